#include "picker/ContactPicker.h"

#include <algorithm>

#include "base/ScreenInfo.h"
#include "picker/PickerGeometry.h"
#include "picker/PickerRowPaint.h"
#include "platform/Shell.h"
#include "skin/Skin.h"

namespace {

// The dialog's own fonts when the look gives none: Tahoma, bold 10 point for names and numbers,
// normal 8 point for the second texts.
constexpr int kFontPoints = 10;
constexpr int kSmallFontPoints = 8;
constexpr LONG kBold = FW_BOLD;
constexpr LONG kNormal = FW_NORMAL;

// The font heights rule: -(pixels per inch x points / 72 + 0.5), truncated.
LONG FontHeight(int points) {
    return -static_cast<LONG>(EffectiveDpiY() * points / 72.0 + 0.5);
}

HFONT MakeTahoma(int points, LONG weight) {
    LOGFONTW font{};
    GetObjectW(GetStockObject(SYSTEM_FONT), sizeof(font), &font);
    font.lfHeight = FontHeight(points);
    font.lfWidth = 0;
    font.lfWeight = weight;
    font.lfItalic = FALSE;
    font.lfUnderline = FALSE;
    font.lfStrikeOut = FALSE;
    lstrcpynW(font.lfFaceName, L"Tahoma", LF_FACESIZE);
    return CreateFontIndirectW(&font);
}

// A colour halfway between two: the keypad's second label row.
COLORREF Between(COLORREF a, COLORREF b) {
    return RGB((GetRValue(a) + GetRValue(b)) / 2, (GetGValue(a) + GetGValue(b)) / 2,
               (GetBValue(a) + GetBValue(b)) / 2);
}

}  // namespace

ContactPicker::ContactPicker(PickerRequest& request, SearchServiceClient& service)
    : DialogBase(request.templateId, IDR_OK_CANCEL), request_(request), model_(service) {}

ContactPicker::~ContactPicker() {
    // The children and the dialog go while this object's parts still exist.
    if (Hwnd() != nullptr)
        DestroyWindow(Hwnd());
}

INT_PTR ContactPicker::DlgProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_KEYDOWN:
            // Hardware digit keys type on the keypad.
            if (keypad_.Hwnd() != nullptr)
                SendMessageW(keypad_.Hwnd(), WM_KEYDOWN, wParam, lParam);
            return TRUE;
        default:
            return DialogBase::DlgProc(hwnd, message, wParam, lParam);
    }
}

bool ContactPicker::OnInitDialog(HWND) {
    HWND hwnd = Hwnd();
    SetForegroundWindow(hwnd);
    // The shell's dialog initialisation (full screen with a Done button) and its ordinal-69 call
    // have no desktop stand-in: DialogBase already placed the dialog over the board's area.
    shell::SipPreference(hwnd, shell::kSipForceDown);
    TakeOwnerCaption();
    MakeFonts();
    MakeRowLook();
    labels_.Load(KeypadLayout::ChooseId());
    MakeChildren();
    LayOut();
    model_.Search(Str());
    ShowRows();
    ShowWindow(list_.Hwnd(), SW_SHOW);
    SetFocus(list_.Hwnd());
    return false;
}

bool ContactPicker::OnCommand(int id, int, HWND) {
    switch (id) {
        case IDOK:
            Choose();
            return true;
        case IDCANCEL:
            Cancel();
            return true;
        default:
            return false;
    }
}

void ContactPicker::OnSize(int width, int height) {
    DialogBase::OnSize(width, height);
    LayOut();
}

void ContactPicker::MakeFonts() {
    font_ = request_.look.font;
    if (font_ == nullptr) {
        ownFont_.Reset(MakeTahoma(kFontPoints, kBold));
        font_ = ownFont_.get();
    }
    smallFont_ = request_.look.smallFont;
    if (smallFont_ == nullptr) {
        ownSmallFont_.Reset(MakeTahoma(kSmallFontPoints, kNormal));
        smallFont_ = ownSmallFont_.get();
    }
}

void ContactPicker::MakeRowLook() {
    const PickerLook& look = request_.look;
    rowLook_.fill = look.background;
    rowLook_.selectedFill = look.text;
    rowLook_.text = look.text;
    rowLook_.selectedText = look.selectedText;
    rowLook_.highlight = GetSysColor(COLOR_HIGHLIGHT);
    rowLook_.highlightText = GetSysColor(COLOR_HIGHLIGHTTEXT);
    rowLook_.font = font_;
    rowLook_.smallFont = smallFont_;
    rowLook_.rowUnselected = look.rowUnselected;
    rowLook_.rowSelected = look.rowSelected;
    rowLook_.rowVoid = look.rowVoid;
    rowLook_.margin = RowMargin(EffectiveDpiX());
}

void ContactPicker::MakeChildren() {
    const PickerLook& look = request_.look;
    list_.SetListener(this);
    list_.SetWholeViewBuffer(true);
    list_.SetHoldEnabled(false);
    list_.SetHideOnDeactivate(false);

    KeypadLook keys;
    keys.background = look.background;
    keys.text = look.text;
    keys.pressedBackground = look.text;
    keys.pressedText = look.background;
    keys.secondRowText = Between(look.text, look.background);
    keys.font = font_;
    keys.secondFont = smallFont_;
    keypad_.SetLook(keys);
    keypad_.SetLabels(labels_.labels, labels_.subLabels, labels_.hasSubLabels);
    keypad_.SetFeedback(request_.vibrate, request_.pulseMs);
    keypad_.SetListener(this);

    const PickerLayout layout =
        LayOutPicker(ContentArea(), EffectiveDpiY(), Skin::GetFontHeight(font_),
                     Skin::GetFontHeight(smallFont_));
    list_.SetItemHeight(layout.itemHeight);
    list_.SetPlacement(layout.list.left, layout.list.top, layout.list.Width(), layout.list.Height(),
                       true);
    list_.Create(Hwnd(), look.scrollThumb);
    keypad_.Create(Hwnd(), layout.keypad.left, layout.keypad.top, layout.keypad.Width(),
                   layout.keypad.Height());
}

void ContactPicker::LayOut() {
    if (list_.Hwnd() == nullptr)
        return;
    const PickerLayout layout =
        LayOutPicker(ContentArea(), EffectiveDpiY(), Skin::GetFontHeight(font_),
                     Skin::GetFontHeight(smallFont_));
    list_.SetItemHeight(layout.itemHeight);
    list_.SetPlacement(layout.list.left, layout.list.top, layout.list.Width(), layout.list.Height(),
                       true);
    list_.SizeToContent();
    list_.UpdateScrollInfo(true);
    InvalidateRect(list_.Hwnd(), nullptr, FALSE);
    if (keypad_.Hwnd() != nullptr) {
        MoveWindow(keypad_.Hwnd(), layout.keypad.left, layout.keypad.top, layout.keypad.Width(),
                   layout.keypad.Height(), TRUE);
    }
}

void ContactPicker::ShowRows() {
    if (list_.Hwnd() != nullptr)
        list_.SetItemCount(model_.ItemCount());
}

void ContactPicker::Choose() {
    PickerChoice choice;
    switch (model_.Choose(list_.Selection(), request_.wantNumber, choice)) {
        case PickerStep::kShowNumbers:
            ShowRows();
            LayOut();
            return;
        case PickerStep::kClose:
            request_.oid = choice.oid;
            request_.number = choice.number;
            request_.numberLabel = choice.numberLabel;
            request_.numberType = choice.numberType;
            Finish();
            return;
        case PickerStep::kStay:
        case PickerStep::kShowContacts:
            return;
    }
}

void ContactPicker::Cancel() {
    switch (model_.Cancel()) {
        case PickerStep::kShowContacts:
            ShowRows();
            LayOut();
            return;
        case PickerStep::kClose:
            Finish();
            return;
        case PickerStep::kStay:
        case PickerStep::kShowNumbers:
            return;
    }
}

void ContactPicker::Finish() {
    End(model_.CloseCode());
}

void ContactPicker::OnDrawItem(HWND, HDC dc, int index, const RECT& rect, bool selected) {
    const RowLook& rows = rowLook_;
    PaintRowBackground(dc, rect, index, selected, rows);
    if (index < 0)
        return;
    if (model_.InNumbers()) {
        NumberLine line;
        if (model_.NumberLineAt(index, request_.templates, line))
            PaintNumberRow(dc, rect, line, selected, rows);
        return;
    }
    ContactLine line;
    if (model_.ContactLineAt(index, CharLowerOne, line))
        PaintContactRow(dc, rect, line, selected, rows);
}

void ContactPicker::OnClick(HWND, int, int, WPARAM) {
    // Posted: the list is still inside its own message when it reports the tap.
    PostMessageW(Hwnd(), WM_COMMAND, IDOK, 0);
}

void ContactPicker::OnActivate(HWND, int) {
    PostMessageW(Hwnd(), WM_COMMAND, IDOK, 0);
}

void ContactPicker::OnDigitsChanged(const Str& typed) {
    if (model_.TypedDigits(typed))
        ShowRows();
}

int RunContactPicker(PickerRequest& request, HWND owner) {
    ContactPicker picker(request);
    return picker.RunModal(owner);
}
