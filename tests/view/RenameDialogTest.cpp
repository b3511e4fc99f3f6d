// The rename dialog under Wine, driven as a person drives it: keys typed into the edit field,
// rows tapped in the list, OK and Cancel tapped on the soft-key strip. Screenshots at both
// resolutions with the skin's soft keys.
#include "view/RenameDialog.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "BoardTestSetup.h"
#include "ScreenShot.h"
#include "base/Alert.h"
#include "base/ResourceIds.h"
#include "base/ScreenInfo.h"
#include "skin/Skin.h"
#include "win/WideCast.h"
#include "win/WndBase.h"

namespace {

// Runs the test's step wParam inside the dialog's own loop.
constexpr UINT kRunStep = WM_APP + 1;
// A modal loop that never ends fails its test with this code instead of hanging it.
constexpr UINT_PTR kSafetyTimer = 99;
constexpr UINT kSafetyMs = 5000;
constexpr int kNeverEnded = -99;

const device::Profile kQvga{240, 320, 96};
const device::Profile kVga{480, 640, 192};

int QuietAlert(const char16_t*, const char16_t*, uint32_t) {
    return kAlertAnswerOk;
}

Array<Str> Rows(std::initializer_list<const char16_t*> texts) {
    Array<Str> rows;
    for (const char16_t* text : texts)
        rows.Add(Str(text));
    return rows;
}

std::u16string TextOf(HWND window) {
    std::wstring text(static_cast<size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(
        static_cast<size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return std::u16string(U(text.c_str()));
}

std::u16string RowText(HWND list, int row) {
    const auto length = static_cast<int>(SendMessageW(list, LB_GETTEXTLEN, row, 0));
    std::wstring text(static_cast<size_t>(std::max(length, 0)) + 1, L'\0');
    SendMessageW(list, LB_GETTEXT, row, reinterpret_cast<LPARAM>(text.data()));
    return std::u16string(U(text.c_str()));
}

struct Selection {
    DWORD start = 0;
    DWORD end = 0;
};

Selection EditSelection(HWND edit) {
    Selection s;
    SendMessageW(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&s.start),
                 reinterpret_cast<LPARAM>(&s.end));
    return s;
}

Rect ChildRect(HWND child) {
    RECT r;
    GetWindowRect(child, &r);
    MapWindowPoints(nullptr, GetParent(child), reinterpret_cast<POINT*>(&r), 2);
    return Rect{r.left, r.top, r.right, r.bottom};
}

// A person's keys: one WM_CHAR per character, into the focused edit field.
void Type(HWND edit, const std::u16string& text) {
    for (char16_t c : text)
        PostMessageW(edit, WM_CHAR, c, 1);
}

// A person's tap on a list row: stylus down and up in the middle of the row.
void TapRow(HWND list, int row) {
    RECT item{};
    ASSERT_NE(SendMessageW(list, LB_GETITEMRECT, row, reinterpret_cast<LPARAM>(&item)), LB_ERR);
    const LPARAM at = MAKELPARAM((item.left + item.right) / 2, (item.top + item.bottom) / 2);
    PostMessageW(list, WM_LBUTTONDOWN, MK_LBUTTON, at);
    PostMessageW(list, WM_LBUTTONUP, 0, at);
}

// A person's tap on a soft key: stylus down and up in the middle of the key.
void TapSoftKey(SoftKeyStrip& strip, int index) {
    const Rect key = strip.ButtonRect(index);
    const LPARAM at = MAKELPARAM((key.left + key.right) / 2, (key.top + key.bottom) / 2);
    PostMessageW(strip.Hwnd(), WM_LBUTTONDOWN, MK_LBUTTON, at);
    PostMessageW(strip.Hwnd(), WM_LBUTTONUP, 0, at);
}

constexpr int kOkKey = 0;
constexpr int kCancelKey = 1;

// The dialog with a test's script: `onInit` runs when the dialog is set up and posts what a
// person does; Step(i) queues steps[i] behind it, to look at the dialog between actions.
class Driven : public RenameDialog {
  public:
    using RenameDialog::RenameDialog;

    void Step(int i) { PostMessageW(Hwnd(), kRunStep, static_cast<WPARAM>(i), 0); }

    std::function<void(Driven&)> onInit;
    std::vector<std::function<void(Driven&)>> steps;
    int stepsRun = 0;

  protected:
    INT_PTR DlgProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_TIMER && wParam == kSafetyTimer) {
            End(kNeverEnded);
            return TRUE;
        }
        if (message == kRunStep) {
            steps.at(wParam)(*this);
            ++stepsRun;
            return TRUE;
        }
        return RenameDialog::DlgProc(hwnd, message, wParam, lParam);
    }
    bool OnInitDialog(HWND focus) override {
        const bool result = RenameDialog::OnInitDialog(focus);
        SetTimer(Hwnd(), kSafetyTimer, kSafetyMs, nullptr);
        if (onInit)
            onInit(*this);
        return result;
    }
};

// The board's stand-in: a top-level window with the board's title.
class Owner : public WndBase {
  public:
    HWND Make(const device::Profile& p) {
        return Create(0, L"Orvalis Dialdeck", WS_POPUP | WS_VISIBLE, 0, BarHeightAt(p.dpi), p.width,
                      p.height - BarHeightAt(p.dpi), nullptr);
    }
};

class RenameDialogTest : public ::testing::Test {
  protected:
    void SetUp() override { previousAlert_ = SetAlertHandler(&QuietAlert); }
    void TearDown() override {
        owner_.reset();
        skin_.reset();
        SetResourceModule(nullptr);
        if (library_ != nullptr)
            FreeLibrary(library_);
        library_ = nullptr;
        SetAlertHandler(previousAlert_);
    }
    /// The screen, its resource library and the default skin, and the board's stand-in.
    HWND UseBoard(const device::Profile& profile = kQvga) {
        TearDown();
        SetUp();
        library_ = UseScreen(profile);
        skin_ = std::make_unique<Skin>(Str(u"C:\\no-such-folder\\DialdeckSkin"), library_);
        skin_->LoadSkinFile();
        owner_ = std::make_unique<Owner>();
        return owner_->Make(profile);
    }

    HMODULE library_ = nullptr;
    std::unique_ptr<Skin> skin_;
    std::unique_ptr<Owner> owner_;
    AlertHandler previousAlert_ = nullptr;
};

// What RenameSuggestions offers for Anna Lindqvist of Acme, less the last two company forms.
Array<Str> AnnaRows() {
    return Rows({u"Anna Lindqvist", u"Lindqvist Anna", u"Lindqvist, Anna", u"Anna", u"Lindqvist",
                 u"Acme", u"Anna Lindqvist (Acme)"});
}

TEST_F(RenameDialogTest, NoSuggestionsLeaveTheListEmptyAndTheEditFieldDecides) {
    HWND board = UseBoard();
    Driven dialog(Str(u"Mum"), Array<Str>(), skin_.get());
    int rows = -1;
    std::u16string shown;
    Selection selected;
    dialog.onInit = [&](Driven& d) {
        rows = static_cast<int>(SendMessageW(d.List(), LB_GETCOUNT, 0, 0));
        shown = TextOf(d.Edit());
        selected = EditSelection(d.Edit());
        Type(d.Edit(), u"Mother");  // the whole name is selected: typing replaces it
        TapSoftKey(d.SoftKeys(), kOkKey);
    };
    EXPECT_EQ(dialog.RunModal(board), RenameDialog::kAccepted);
    EXPECT_EQ(rows, 0);
    EXPECT_EQ(shown, u"Mum");
    EXPECT_EQ(selected.start, 0u);
    EXPECT_EQ(selected.end, 3u);
    EXPECT_EQ(dialog.Name(), Str(u"Mother"));
}

TEST_F(RenameDialogTest, TheRowEqualToTheNameStartsSelected) {
    HWND board = UseBoard();
    const Array<Str> rows = AnnaRows();
    for (int row = 0; row < rows.Size(); ++row) {
        Driven dialog(rows[row], AnnaRows(), skin_.get());
        ASSERT_NE(dialog.CreateModeless(board, false), nullptr);
        EXPECT_EQ(SendMessageW(dialog.List(), LB_GETCOUNT, 0, 0), rows.Size());
        for (int i = 0; i < rows.Size(); ++i)
            EXPECT_EQ(RowText(dialog.List(), i), rows[i].c_str()) << "rows in given order";
        EXPECT_EQ(SendMessageW(dialog.List(), LB_GETCURSEL, 0, 0), row);
    }
}

TEST_F(RenameDialogTest, ANameDifferingOnlyInCaseSelectsNoRow) {
    HWND board = UseBoard();
    for (const char16_t* name : {u"anna", u"ANNA LINDQVIST", u"Anna Lindqvist (acme)", u"Ann"}) {
        Driven dialog(Str(name), AnnaRows(), skin_.get());
        ASSERT_NE(dialog.CreateModeless(board, false), nullptr);
        EXPECT_EQ(SendMessageW(dialog.List(), LB_GETCURSEL, 0, 0), LB_ERR);
        EXPECT_EQ(TextOf(dialog.Edit()), name);
    }
}

TEST_F(RenameDialogTest, TheExactRowIsFoundPastARowThatDiffersOnlyInCase) {
    HWND board = UseBoard();
    const Array<Str> rows = Rows({u"ann", u"Bob", u"Ann", u"ann (Ann)"});
    Driven dialog(Str(u"Ann"), rows, skin_.get());
    ASSERT_NE(dialog.CreateModeless(board, false), nullptr);
    EXPECT_EQ(SendMessageW(dialog.List(), LB_GETCURSEL, 0, 0), 2);
}

TEST_F(RenameDialogTest, ATappedRowGoesIntoTheEditFieldUnselected) {
    HWND board = UseBoard();
    Driven dialog(Str(u"Lindqvist, Anna"), AnnaRows(), skin_.get());
    std::u16string afterTap;
    Selection selected;
    int current = -1;
    dialog.onInit = [&](Driven& d) {
        TapRow(d.List(), 6);
        d.Step(0);
    };
    dialog.steps.emplace_back([&](Driven& d) {
        afterTap = TextOf(d.Edit());
        selected = EditSelection(d.Edit());
        current = static_cast<int>(SendMessageW(d.List(), LB_GETCURSEL, 0, 0));
        TapSoftKey(d.SoftKeys(), kOkKey);
    });
    EXPECT_EQ(dialog.RunModal(board), RenameDialog::kAccepted);
    ASSERT_EQ(dialog.stepsRun, 1);
    EXPECT_EQ(current, 6);
    EXPECT_EQ(afterTap, u"Anna Lindqvist (Acme)");
    EXPECT_EQ(selected.start, selected.end) << "nothing selected after the copy";
    EXPECT_EQ(dialog.Name(), Str(u"Anna Lindqvist (Acme)"));
}

TEST_F(RenameDialogTest, OkReturnsTheTextAsEditedAfterATap) {
    HWND board = UseBoard();
    Driven dialog(Str(u"Lindqvist, Anna"), AnnaRows(), skin_.get());
    dialog.onInit = [&](Driven& d) {
        TapRow(d.List(), 3);     // "Anna"
        Type(d.Edit(), u" L.");  // goes on after the copied name, replacing none of it
        TapSoftKey(d.SoftKeys(), kOkKey);
    };
    EXPECT_EQ(dialog.RunModal(board), RenameDialog::kAccepted);
    EXPECT_EQ(dialog.Name(), Str(u"Anna L."));
}

TEST_F(RenameDialogTest, EnterInTheEditFieldIsOk) {
    HWND board = UseBoard();
    Driven dialog(Str(u"Mum"), AnnaRows(), skin_.get());
    dialog.onInit = [&](Driven& d) {
        Type(d.Edit(), u"Ma");
        PostMessageW(d.Edit(), WM_KEYDOWN, VK_RETURN, 1);
    };
    EXPECT_EQ(dialog.RunModal(board), RenameDialog::kAccepted);
    EXPECT_EQ(dialog.Name(), Str(u"Ma"));
}

TEST_F(RenameDialogTest, CancelReturnsTwoAndKeepsTheNameAfterATap) {
    HWND board = UseBoard();
    Driven dialog(Str(u"Mum"), AnnaRows(), skin_.get());
    std::u16string afterTap;
    dialog.onInit = [&](Driven& d) {
        TapRow(d.List(), 0);
        Type(d.Edit(), u"xyz");
        d.Step(0);
    };
    dialog.steps.emplace_back([&](Driven& d) {
        afterTap = TextOf(d.Edit());
        TapSoftKey(d.SoftKeys(), kCancelKey);
    });
    EXPECT_EQ(dialog.RunModal(board), RenameDialog::kCancelled);
    EXPECT_EQ(afterTap, u"Anna Lindqvistxyz");  // the edit field did change
    EXPECT_EQ(dialog.Name(), Str(u"Mum"));
}

TEST_F(RenameDialogTest, EscapeIsCancel) {
    HWND board = UseBoard();
    Driven dialog(Str(u"Mum"), AnnaRows(), skin_.get());
    dialog.onInit = [&](Driven& d) {
        Type(d.Edit(), u"Dad");
        PostMessageW(d.Edit(), WM_KEYDOWN, VK_ESCAPE, 1);
    };
    EXPECT_EQ(dialog.RunModal(board), RenameDialog::kCancelled);
    EXPECT_EQ(dialog.Name(), Str(u"Mum"));
}

TEST_F(RenameDialogTest, OkCutsALongTextTo259Characters) {
    HWND board = UseBoard();
    std::u16string text;
    for (int i = 0; i < 300; ++i)
        text += static_cast<char16_t>(u'a' + i % 26);
    Driven dialog(Str(u"Mum"), Array<Str>(), skin_.get());
    int held = 0;
    dialog.onInit = [&](Driven& d) {
        SetWindowTextW(d.Edit(), W(text.c_str()));
        held = GetWindowTextLengthW(d.Edit());
        TapSoftKey(d.SoftKeys(), kOkKey);
    };
    EXPECT_EQ(dialog.RunModal(board), RenameDialog::kAccepted);
    EXPECT_EQ(held, 300) << "the field itself holds the whole text";
    ASSERT_EQ(dialog.Name().Length(), RenameDialog::kMaxNameLength);
    EXPECT_EQ(std::u16string(dialog.Name().c_str()), text.substr(0, 259));

    // Exactly 259 typed characters come back whole.
    Driven typed(Str(u""), Array<Str>(), skin_.get());
    typed.onInit = [&](Driven& d) {
        Type(d.Edit(), text.substr(0, 259));
        TapSoftKey(d.SoftKeys(), kOkKey);
    };
    EXPECT_EQ(typed.RunModal(board), RenameDialog::kAccepted);
    EXPECT_EQ(std::u16string(typed.Name().c_str()), text.substr(0, 259));
}

TEST_F(RenameDialogTest, TakesTheCaptionOfItsTopLevelOwner) {
    HWND board = UseBoard();
    // Owned through a child of the board: the caption still comes from the top-level window.
    HWND child = CreateWindowExW(0, L"STATIC", L"child", WS_CHILD | WS_VISIBLE, 0, 0, 10, 10, board,
                                 nullptr, nullptr, nullptr);
    ASSERT_NE(child, nullptr);
    Driven dialog(Str(u"Mum"), AnnaRows(), skin_.get());
    ASSERT_NE(dialog.CreateModeless(child, false), nullptr);
    EXPECT_EQ(TextOf(dialog.Hwnd()), u"Orvalis Dialdeck");
}

TEST_F(RenameDialogTest, FillsTheBoardsAreaWithTheStripAtTheBottom) {
    for (const device::Profile& p : {kQvga, kVga}) {
        SCOPED_TRACE(p.width);
        HWND board = UseBoard(p);
        Driven dialog(Str(u"Anna"), AnnaRows(), skin_.get());
        HWND hwnd = dialog.CreateModeless(board, true);
        ASSERT_NE(hwnd, nullptr);
        const int bar = BarHeightAt(p.dpi);
        RECT r;
        GetWindowRect(hwnd, &r);
        EXPECT_EQ((Rect{r.left, r.top, r.right, r.bottom}), (Rect{0, bar, p.width, p.height}));
        const Rect content{0, 0, p.width, p.height - 2 * bar};
        EXPECT_EQ(dialog.ContentArea(), content);
        HWND strip = dialog.SoftKeys().Hwnd();
        ASSERT_NE(strip, nullptr);
        EXPECT_EQ(ChildRect(strip), (Rect{0, content.bottom, p.width, content.bottom + bar}));
        EXPECT_EQ(dialog.SoftKeys().Command(kOkKey), static_cast<uint32_t>(IDOK));
        EXPECT_EQ(dialog.SoftKeys().Command(kCancelKey), static_cast<uint32_t>(IDCANCEL));
        // The controls span the width with the margins and stop above the strip, in the
        // skin's text font.
        const auto font = reinterpret_cast<HFONT>(SendMessageW(dialog.Edit(), WM_GETFONT, 0, 0));
        EXPECT_EQ(font, skin_->Font(SkinFont::kText));
        EXPECT_EQ(reinterpret_cast<HFONT>(SendMessageW(dialog.List(), WM_GETFONT, 0, 0)), font);
        const Rect edit = ChildRect(dialog.Edit());
        const Rect list = ChildRect(dialog.List());
        const int margin = ScaleLength(6, p.dpi);
        EXPECT_EQ(edit.left, margin);
        EXPECT_EQ(edit.right, p.width - margin);
        EXPECT_EQ(list.left, margin);
        EXPECT_EQ(list.right, p.width - margin);
        EXPECT_LT(edit.bottom, list.top);
        EXPECT_EQ(list.bottom, content.bottom - margin);
        // Tall enough for a row of the font, and every row shows its text.
        EXPECT_GE(edit.Height(), Skin::GetFontHeight(font));
        EXPECT_GE(SendMessageW(dialog.List(), LB_GETITEMHEIGHT, 0, 0), Skin::GetFontHeight(font));
    }
}

TEST_F(RenameDialogTest, WithoutASkinTheKeysAndFontsAreTheDialogsOwn) {
    HWND board = UseBoard();
    Driven dialog(Str(u"Anna"), AnnaRows());
    ASSERT_NE(dialog.CreateModeless(board, false), nullptr);
    ASSERT_NE(dialog.SoftKeys().Hwnd(), nullptr);
    EXPECT_NE(reinterpret_cast<HFONT>(SendMessageW(dialog.Edit(), WM_GETFONT, 0, 0)),
              skin_->Font(SkinFont::kText));
    EXPECT_EQ(SendMessageW(dialog.List(), LB_GETCURSEL, 0, 0), 3);
}

TEST_F(RenameDialogTest, ScreenshotsWithSuggestionsAndSkinnedKeys) {
    for (const device::Profile& p : {kQvga, kVga}) {
        SCOPED_TRACE(p.width);
        HWND board = UseBoard(p);
        Driven dialog(Str(u"Lindqvist, Anna"), AnnaRows(), skin_.get());
        shot::Image image;
        bool captured = false;
        dialog.onInit = [&](Driven& d) { d.Step(0); };
        dialog.steps.emplace_back([&](Driven& d) {
            RedrawWindow(d.Hwnd(), nullptr, nullptr,
                         RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
            captured = shot::CaptureClient(d.Hwnd(), image);
            TapSoftKey(d.SoftKeys(), kCancelKey);
        });
        EXPECT_EQ(dialog.RunModal(board), RenameDialog::kCancelled);
        ASSERT_TRUE(captured);
        const std::wstring name =
            L"rename-" + std::to_wstring(p.width) + L"x" + std::to_wstring(p.height);
        EXPECT_FALSE(SaveShot(image, name).empty());
        ASSERT_EQ(image.width, p.width);
        ASSERT_EQ(image.height, p.height - BarHeightAt(p.dpi));
        // The edit field and the list are white inside; the soft keys wear the skin's faces,
        // not the dialog's face colour.
        const int bar = BarHeightAt(p.dpi);
        const int margin = ScaleLength(6, p.dpi);
        EXPECT_EQ(image.At(image.width - margin - 4, ScaleLength(13, p.dpi) + 4),
                  RGB(255, 255, 255));
        EXPECT_EQ(image.At(image.width - margin - 20, image.height - bar - margin - 6),
                  RGB(255, 255, 255));
        const COLORREF face = GetSysColor(COLOR_BTNFACE);
        EXPECT_EQ(image.At(1, 1), face);
        EXPECT_NE(image.At(image.width / 8, image.height - bar / 2), face);
        EXPECT_NE(image.At(image.width * 5 / 8, image.height - bar / 2), face);
    }
}

}  // namespace
