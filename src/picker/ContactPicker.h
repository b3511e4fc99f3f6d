#pragma once
// ContactPicker: the full-screen dialog that fills a free board button. A finger-scrolled list of
// contacts sits above the phone keypad; digits typed on the keypad narrow the list through the
// search service. The user picks a contact and then, when it has more than one number, one of
// its numbers (stage 2). Cancel in stage 2 goes back to the same contact list.

#include <windows.h>

#include <cstdint>

#include "base/ResourceIds.h"
#include "base/Str.h"
#include "contacts/SearchServiceClient.h"
#include "controls/FlickList.h"
#include "controls/KeypadControl.h"
#include "keypad/KeypadLayout.h"
#include "picker/PickerModel.h"
#include "picker/PickerRowPaint.h"
#include "win/DialogBase.h"
#include "win/Gdi.h"

class NumberTemplates;
class SearchServiceClient;

/// The picker's look, borrowed from the board's skin: the owner keeps every handle alive while
/// the picker runs. A font left null gets the dialog's default (bold 10-point Tahoma).
struct PickerLook {
    COLORREF background = RGB(255, 255, 255);
    COLORREF text = RGB(0, 0, 0);
    COLORREF selectedText = RGB(255, 255, 255);
    HFONT font = nullptr;             ///< names and numbers; the keypad's first label row
    HFONT smallFont = nullptr;        ///< second texts; the keypad's second label row
    HBITMAP rowUnselected = nullptr;  ///< "list_unselect_bgr"
    HBITMAP rowSelected = nullptr;    ///< "list_select_bgr"
    HBITMAP rowVoid = nullptr;        ///< "list_void_bgr"
    HBITMAP scrollThumb = nullptr;    ///< "scroll"
};

/// What the board asks for and what the picker gives back.
struct PickerRequest {
    // In.
    int templateId = IDD_PICKER;
    bool wantNumber = true;  ///< a number must be chosen (false: the contact alone)
    bool vibrate = false;    ///< "BtnFeedback" is 2: the keypad pulses
    uint32_t pulseMs = 50;
    PickerLook look;
    const NumberTemplates* templates = nullptr;  ///< formats stage 2's numbers; may be null
    // Out.
    uint32_t oid = 0;
    Str number;       ///< empty when the contact has none (or none was wanted)
    Str numberLabel;  ///< the text naming the number's type
    int32_t numberType = 0;
};

/// The picker dialog. Run modally (RunModal, or RunContactPicker) or modeless (CreateModeless:
/// the dialog window, shown and painted at once when asked). Closing with 1 fills the request's
/// out part; 2 is a cancel.
class ContactPicker : public DialogBase, private FlickListListener, private KeypadListener {
  public:
    /// The picker for `request` (borrowed: it must outlive the dialog), asking `service`.
    explicit ContactPicker(PickerRequest& request,
                           SearchServiceClient& service = SearchServiceClient::Get());
    ~ContactPicker() override;

    /// The list and the keypad (their windows are null while the dialog is not open).
    FlickList& List() { return list_; }
    KeypadControl& Keypad() { return keypad_; }
    const PickerModel& Model() const { return model_; }
    /// The font of names and numbers: the look's, or the dialog's own bold 10-point Tahoma.
    HFONT Font() const { return font_; }
    /// The font of second texts: the look's small font, or the dialog's own 8-point Tahoma.
    HFONT SmallFont() const { return smallFont_; }
    /// The keypad labels loaded at set-up.
    const KeypadLayout& Labels() const { return labels_; }
    /// How the rows are drawn: the look's colours and bitmaps, the fonts, the margin.
    const RowLook& RowStyle() const { return rowLook_; }

  protected:
    INT_PTR DlgProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) override;
    bool OnInitDialog(HWND focus) override;
    bool OnCommand(int id, int notifyCode, HWND control) override;
    void OnSize(int width, int height) override;

  private:
    // FlickListListener
    void OnDrawItem(HWND list, HDC dc, int index, const RECT& rect, bool selected) override;
    void OnClick(HWND list, int index, int previous, WPARAM keyState) override;
    void OnActivate(HWND list, int index) override;
    // KeypadListener
    void OnDigitsChanged(const Str& typed) override;

    void MakeFonts();
    void MakeRowLook();
    void MakeChildren();
    void LayOut();
    void ShowRows();
    void Choose();
    void Cancel();
    void Finish();

    PickerRequest& request_;
    PickerModel model_;
    FlickList list_;
    KeypadControl keypad_;
    KeypadLayout labels_;
    gdi::Object<HFONT> ownFont_;
    gdi::Object<HFONT> ownSmallFont_;
    HFONT font_ = nullptr;
    HFONT smallFont_ = nullptr;
    RowLook rowLook_;
};

/// Runs the picker modally, owned by `owner`: 1 when a choice was made (the request's out part
/// is filled), 2 on cancel, -1 when the dialog could not be made.
int RunContactPicker(PickerRequest& request, HWND owner);
