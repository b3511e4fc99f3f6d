#include "view/RenameDialog.h"

#include <algorithm>
#include <string>

#include "base/ResourceIds.h"
#include "base/ScreenInfo.h"
#include "platform/Shell.h"
#include "skin/Skin.h"
#include "skin/SoftKeyFaces.h"
#include "view/RenameSuggestions.h"
#include "win/WideCast.h"

namespace {

// Input-panel preference: raise the panel, so the name can be typed at once.
constexpr int kSipUp = 0;

int LineHeightOf(HWND control) {
    HDC dc = GetDC(control);
    if (dc == nullptr)
        return 0;
    auto font = reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0));
    HGDIOBJ previous = font != nullptr ? SelectObject(dc, font) : nullptr;
    TEXTMETRICW metrics{};
    GetTextMetricsW(dc, &metrics);
    if (previous != nullptr)
        SelectObject(dc, previous);
    ReleaseDC(control, dc);
    return metrics.tmHeight;
}

void Move(HWND control, const Rect& r) {
    if (control != nullptr)
        MoveWindow(control, r.left, r.top, r.Width(), r.Height(), TRUE);
}

}  // namespace

RenameDialog::RenameDialog(const Str& name, const Array<Str>& suggestions, const Skin* skin)
    : DialogBase(IDD_RENAME, IDR_OK_CANCEL), name_(name), suggestions_(suggestions), skin_(skin) {}

HWND RenameDialog::Edit() const {
    return Hwnd() != nullptr ? GetDlgItem(Hwnd(), IDC_RENAME_EDIT) : nullptr;
}

HWND RenameDialog::List() const {
    return Hwnd() != nullptr ? GetDlgItem(Hwnd(), IDC_RENAME_LIST) : nullptr;
}

bool RenameDialog::OnInitDialog(HWND) {
    HWND hwnd = Hwnd();
    SetForegroundWindow(hwnd);
    shell::SipPreference(hwnd, kSipUp);
    if (skin_ != nullptr) {
        DressSoftKeys(SoftKeys(), *skin_);
        if (HFONT font = skin_->Font(SkinFont::kText)) {
            SendMessageW(Edit(), WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
            SendMessageW(List(), WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
        }
    }
    LayOut();
    TakeOwnerCaption();
    SetWindowTextW(Edit(), W(name_.c_str()));
    SendMessageW(Edit(), EM_SETSEL, 0, -1);
    FillList();
    SelectExactRow();
    SetFocus(Edit());
    return false;
}

bool RenameDialog::OnCommand(int id, int notifyCode, HWND) {
    switch (id) {
        case IDOK:
            shell::SipPreference(Hwnd(), shell::kSipForceDown);
            ReadName();
            End(kAccepted);
            return true;
        case IDCANCEL:
            shell::SipPreference(Hwnd(), shell::kSipForceDown);
            End(kCancelled);
            return true;
        case IDC_RENAME_LIST:
            if (notifyCode != LBN_SELCHANGE)
                return false;
            TakeChosenRow();
            return true;
        default:
            return false;
    }
}

void RenameDialog::OnSize(int width, int height) {
    DialogBase::OnSize(width, height);
    LayOut();
}

void RenameDialog::FillList() {
    HWND list = List();
    for (int i = 0; i < suggestions_.Size(); ++i)
        SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(W(suggestions_[i].c_str())));
}

// The system's exact search ignores case, and a name that differs from a row only in case must
// not select it: each row the search finds is compared again, case and all, until the search
// wraps round.
void RenameDialog::SelectExactRow() {
    HWND list = List();
    const auto text = reinterpret_cast<LPARAM>(W(name_.c_str()));
    int from = -1;
    for (;;) {
        const auto row = static_cast<int>(
            SendMessageW(list, LB_FINDSTRINGEXACT, static_cast<WPARAM>(from), text));
        if (row == LB_ERR || row <= from)
            return;
        const auto length = static_cast<int>(SendMessageW(list, LB_GETTEXTLEN, row, 0));
        std::wstring found(static_cast<size_t>(std::max(length, 0)) + 1, L'\0');
        SendMessageW(list, LB_GETTEXT, row, reinterpret_cast<LPARAM>(found.data()));
        if (name_ == Str(U(found.c_str()))) {
            SendMessageW(list, LB_SETCURSEL, row, 0);
            return;
        }
        from = row;
    }
}

void RenameDialog::TakeChosenRow() {
    HWND list = List();
    const auto row = static_cast<int>(SendMessageW(list, LB_GETCURSEL, 0, 0));
    if (row == LB_ERR)
        return;
    const auto length = static_cast<int>(SendMessageW(list, LB_GETTEXTLEN, row, 0));
    if (length == LB_ERR)
        return;
    std::wstring text(static_cast<size_t>(length) + 1, L'\0');
    SendMessageW(list, LB_GETTEXT, row, reinterpret_cast<LPARAM>(text.data()));
    HWND edit = Edit();
    SetWindowTextW(edit, text.c_str());
    // The caret after the copied name, nothing selected: typing goes on from there rather than
    // replacing the choice.
    SendMessageW(edit, EM_SETSEL, static_cast<WPARAM>(length), length);
}

void RenameDialog::ReadName() {
    wchar_t buffer[kMaxNameLength + 1] = {};
    GetWindowTextW(Edit(), buffer, kMaxNameLength + 1);
    name_ = U(buffer);
}

void RenameDialog::LayOut() {
    HWND edit = Edit();
    if (edit == nullptr)
        return;
    const RenameLayout layout = LayOutRename(ContentArea(), Screen().dpiY, LineHeightOf(edit));
    Move(edit, layout.edit);
    Move(List(), layout.list);
}
