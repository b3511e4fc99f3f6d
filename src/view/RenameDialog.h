#pragma once
// RenameDialog: changes the text shown on a board button. An edit field with the current text
// and, under it, the ready-made names the caller offers (RenameSuggestions); tapping one copies
// it into the field. Full screen in the board's area with OK / Cancel on the soft-key strip.
//
//     RenameDialog dialog(DisplayName(entry), RenameSuggestions(entry), skin);
//     if (dialog.RunModal(board) == RenameDialog::kAccepted)
//         ... dialog.Name() ...

#include <windows.h>

#include "base/Array.h"
#include "base/Str.h"
#include "win/DialogBase.h"

class Skin;

class RenameDialog : public DialogBase {
  public:
    /// RunModal's code for OK and for Cancel.
    static constexpr int kAccepted = 1;
    static constexpr int kCancelled = 2;
    /// The most characters OK keeps of the edited text (a 260-character buffer with its end).
    static constexpr int kMaxNameLength = 259;

    /// `name` starts in the edit field, `suggestions` fill the list in order. `skin` (may be
    /// null; must outlive the dialog) gives the soft keys their look and the controls its text
    /// font.
    RenameDialog(const Str& name, const Array<Str>& suggestions, const Skin* skin = nullptr);

    /// The name given at construction; after OK, the edited text (at most kMaxNameLength).
    const Str& Name() const { return name_; }
    const Array<Str>& Suggestions() const { return suggestions_; }
    /// The dialog's controls; null while it is not open.
    HWND Edit() const;
    HWND List() const;

  protected:
    bool OnInitDialog(HWND focus) override;
    bool OnCommand(int id, int notifyCode, HWND control) override;
    void OnSize(int width, int height) override;

  private:
    void FillList();
    void SelectExactRow();
    void TakeChosenRow();
    void ReadName();
    void LayOut();

    Str name_;
    Array<Str> suggestions_;
    const Skin* skin_;
};
