// A free button is filled through the contact picker: the chosen contact and number are bound to
// the slot and stored, and binding a button on the last page opens a page after it.
#include "phone/FeedbackSetting.h"
#include "picker/ContactPicker.h"
#include "skin/Skin.h"
#include "view/BoardWindow.h"

namespace {

BoardWindow::PickerFn& Picker() {
    static BoardWindow::PickerFn picker = &RunContactPicker;
    return picker;
}

}  // namespace

BoardWindow::PickerFn BoardWindow::SetPickerRunner(PickerFn picker) {
    PickerFn previous = Picker();
    Picker() = picker != nullptr ? picker : &RunContactPicker;
    return previous;
}

PickerLook BoardWindow::PickerLookOf() const {
    PickerLook look;
    if (skin_) {
        const SkinColours& colours = skin_->Colours();
        look.background = colours.background;
        look.text = colours.text;
        look.selectedText = colours.textSelected;
        look.font = skin_->Font(SkinFont::kText);
        look.smallFont = skin_->Font(SkinFont::kSmall);
    }
    look.rowUnselected = ListUnselected();
    look.rowSelected = ListSelected();
    look.rowVoid = ListVoid();
    look.scrollThumb = ScrollThumb();
    return look;
}

void BoardWindow::FillFreeButton(int position) {
    const int32_t slot = geometry_.SlotOf(position);
    if (slot < 0 || board_.FindBySlot(slot) >= 0)
        return;
    PickerRequest request;
    request.wantNumber = true;
    request.vibrate = feedback::ButtonFeedbackWanted();
    request.pulseMs = feedback::kPressPulseMs;
    request.look = PickerLookOf();
    request.templates = &templates_;
    if (Picker()(request, hwnd_) != 1)
        return;
    // A contact without numbers is still bound: its button shows the contact, a tap on it calls
    // nothing, and its menu can rename, clear or give it a dialer number.
    if (!board_.Assign(slot, request.oid, request.number, request.numberLabel, request.numberType))
        return;
    if (slot / geometry_.PerPage() == geometry_.Pages() - 1)
        GrowByPage();
    RepaintCell(position);
}
