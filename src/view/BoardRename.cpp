// The board's rename command: the rename dialog for one button, its answer kept on the entry.
#include "view/BoardWindow.h"
#include "view/RenameDialog.h"
#include "view/RenameSuggestions.h"

void BoardWindow::RenameButton(int position) {
    const int32_t slot = geometry_.SlotOf(position);
    const int index = board_.FindBySlot(slot);
    if (index < 0)
        return;
    // The dialog takes copies and the answer goes back by slot: the board's messages keep
    // flowing while the dialog runs, and a contacts refresh may rebuild the entry list.
    const DialEntry& entry = board_.EntryAt(index);
    RenameDialog dialog(DisplayName(entry), RenameSuggestions(entry), skin_.get());
    if (dialog.RunModal(hwnd_) != RenameDialog::kAccepted)
        return;
    if (board_.Rename(slot, dialog.Name()))
        RepaintCell(position);
}
