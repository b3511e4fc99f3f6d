// Renaming a button on the running board: the rename dialog offered for the selected entry,
// driven from inside its own loop as a person would, and what the board keeps afterwards.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "BoardTestSetup.h"
#include "ScreenShot.h"
#include "base/Alert.h"
#include "base/Registry.h"
#include "base/ResourceIds.h"
#include "skin/Skin.h"
#include "view/BoardWindow.h"
#include "win/WideCast.h"

namespace {

constexpr char16_t kEntriesKey[] = u"Software\\Orvalis\\PIM\\Dialdeck";
constexpr UINT kTickMs = 20;
// Ticks after which a dialog still open is cancelled and the test fails.
constexpr int kGiveUpTicks = 250;

int QuietAlert(const char16_t*, const char16_t*, uint32_t) {
    return kAlertAnswerOk;
}

std::u16string TextOf(HWND window) {
    std::wstring text(static_cast<size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(
        static_cast<size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return std::u16string(U(text.c_str()));
}

/// The stored text value `name` of the board's key; "<none>" when it is missing.
std::u16string StoredText(const char16_t* name) {
    registry::KeyHolder key(registry::Open(kEntriesKey));
    if (!key)
        return u"<none>";
    char16_t buffer[300] = {};
    uint32_t type = 0;
    uint32_t size = sizeof buffer;
    if (!registry::Query(key.get(), name, &type, buffer, &size))
        return u"<none>";
    return buffer;
}

// What a person does in the dialog once it is up, run from a timer of the test's thread, which
// the dialog's own loop dispatches. Seen: what the dialog showed before anything was done.
struct Script {
    HWND board = nullptr;
    int tapRow = -1;       ///< the list row to tap first, -1 for none
    std::u16string typed;  ///< then keys typed into the edit field
    int softKey = 0;       ///< then the soft key tapped: 0 OK, 1 Cancel
    int ticks = 0;
    bool acted = false;
    bool gaveUp = false;
    HWND dialog = nullptr;
    std::u16string caption;
    std::u16string name;
    int selectedRow = -2;
    int rows = -1;
    std::u16string row0;
    HFONT font = nullptr;
};

Script* gScript = nullptr;

void PostTap(HWND window, POINT at) {
    const LPARAM where = MAKELPARAM(at.x, at.y);
    PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, where);
    PostMessageW(window, WM_LBUTTONUP, 0, where);
}

// The dialog the board owns, once it is up.
HWND OwnedDialog(HWND board) {
    for (HWND found = FindWindowExW(nullptr, nullptr, L"#32770", nullptr); found != nullptr;
         found = FindWindowExW(nullptr, found, L"#32770", nullptr)) {
        if (GetWindow(found, GW_OWNER) == board)
            return found;
    }
    return nullptr;
}

void CALLBACK Act(HWND, UINT, UINT_PTR timer, DWORD) {
    if (gScript == nullptr)
        return;
    Script& s = *gScript;
    ++s.ticks;
    HWND dialog = OwnedDialog(s.board);
    if (s.ticks > kGiveUpTicks) {
        s.gaveUp = true;
        if (dialog != nullptr)
            PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
        return;
    }
    if (dialog == nullptr || !IsWindowVisible(dialog) || s.acted)
        return;
    s.acted = true;
    KillTimer(nullptr, timer);
    s.dialog = dialog;
    HWND edit = GetDlgItem(dialog, IDC_RENAME_EDIT);
    HWND list = GetDlgItem(dialog, IDC_RENAME_LIST);
    s.caption = TextOf(dialog);
    s.name = TextOf(edit);
    s.selectedRow = static_cast<int>(SendMessageW(list, LB_GETCURSEL, 0, 0));
    s.rows = static_cast<int>(SendMessageW(list, LB_GETCOUNT, 0, 0));
    std::wstring row0(static_cast<size_t>(SendMessageW(list, LB_GETTEXTLEN, 0, 0)) + 1, L'\0');
    SendMessageW(list, LB_GETTEXT, 0, reinterpret_cast<LPARAM>(row0.data()));
    s.row0 = U(row0.c_str());
    s.font = reinterpret_cast<HFONT>(SendMessageW(edit, WM_GETFONT, 0, 0));
    if (s.tapRow >= 0) {
        RECT item{};
        SendMessageW(list, LB_GETITEMRECT, static_cast<WPARAM>(s.tapRow),
                     reinterpret_cast<LPARAM>(&item));
        PostTap(list, POINT{(item.left + item.right) / 2, (item.top + item.bottom) / 2});
    }
    for (char16_t c : s.typed)
        PostMessageW(edit, WM_CHAR, c, 1);
    // The soft-key strip is the dialog's one other child, across the bottom band.
    HWND strip = nullptr;
    for (HWND child = GetWindow(dialog, GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT)) {
        if (child != edit && child != list)
            strip = child;
    }
    if (strip == nullptr)
        return;
    RECT band{};
    GetClientRect(strip, &band);
    const int quarter = band.right / 4;
    PostTap(strip, POINT{s.softKey == 0 ? quarter : band.right - quarter, band.bottom / 2});
}

class BoardRenameTest : public ::testing::Test {
  protected:
    void SetUp() override {
        previousAlert_ = SetAlertHandler(&QuietAlert);
        StoreEntries(DemoEntries());
        StoreOptions(true, false, false);
        library_ = UseScreen({240, 320, 96});
        UseSkinFolder(L"C:\\no-such-folder\\DialdeckSkin");
        board_ = std::make_unique<BoardWindow>();
        board_->Board().SetContacts(&contacts_);
        ASSERT_TRUE(board_->Create(false));
        SetForegroundWindow(board_->Hwnd());
        UpdateWindow(board_->Hwnd());
        script_.board = board_->Hwnd();
        gScript = &script_;
    }
    void TearDown() override {
        if (timer_ != 0)
            KillTimer(nullptr, timer_);
        gScript = nullptr;
        board_.reset();
        if (library_ != nullptr)
            FreeLibrary(library_);
        SetResourceModule(nullptr);
        SetAlertHandler(previousAlert_);
        ForgetStoredBoard();
    }

    /// Renames the button at `position` with the script acting in the dialog.
    void Rename(int position) {
        timer_ = SetTimer(nullptr, 0, kTickMs, &Act);
        board_->RenameButton(position);
        EXPECT_FALSE(script_.gaveUp) << "the dialog did not end";
    }
    const DialEntry& EntryOfSlot(int32_t slot) {
        return board_->Board().EntryAt(board_->Board().FindBySlot(slot));
    }
    /// The cell as the screen shows it now and as the board paints it.
    void ExpectScreenShowsTheBoard(int position) {
        shot::Image screen;
        ASSERT_TRUE(shot::CaptureClient(board_->Hwnd(), screen));
        const shot::Image painted = RenderBoard(*board_);
        const Rect& cell = board_->Geometry().Cell(position);
        int differing = 0;
        for (int y = cell.top; y < cell.bottom; ++y) {
            for (int x = cell.left; x < cell.right; ++x)
                differing += screen.At(x, y) != painted.At(x, y) ? 1 : 0;
        }
        EXPECT_EQ(differing, 0);
    }

    std::unique_ptr<BoardWindow> board_;
    HMODULE library_ = nullptr;
    DemoContacts contacts_;
    AlertHandler previousAlert_ = nullptr;
    Script script_;
    UINT_PTR timer_ = 0;
};

TEST_F(BoardRenameTest, AcceptedNameIsShownStoredAndPainted) {
    // Anna Lindqvist on slot 0 has no display text: the dialog starts with her composed name,
    // which is one of the offered rows, so that row starts selected.
    ASSERT_EQ(EntryOfSlot(0).display, Str(u""));
    const shot::Image before = RenderBoard(*board_);
    script_.tapRow = 0;  // "Anna Lindqvist"
    script_.typed = u" (work)";
    script_.softKey = 0;
    Rename(0);
    EXPECT_EQ(script_.caption, u"Orvalis Dialdeck");
    EXPECT_EQ(script_.name, u"Lindqvist, Anna");
    EXPECT_EQ(script_.rows, 5);
    EXPECT_EQ(script_.row0, u"Anna Lindqvist");
    EXPECT_EQ(script_.selectedRow, 2);
    EXPECT_EQ(script_.font, board_->GetSkin()->Font(SkinFont::kText));
    EXPECT_FALSE(IsWindow(script_.dialog));
    EXPECT_TRUE(IsWindowEnabled(board_->Hwnd()));

    EXPECT_EQ(EntryOfSlot(0).display, Str(u"Anna Lindqvist (work)"));
    EXPECT_EQ(DisplayName(EntryOfSlot(0)), Str(u"Anna Lindqvist (work)"));
    EXPECT_EQ(StoredText(u"Display0"), u"Anna Lindqvist (work)");
    EXPECT_EQ(StoredText(u"Display1"), u"") << "only that entry is written";
    // The cell was painted anew before anything else ran: the screen shows the new name.
    ExpectScreenShowsTheBoard(0);
    const shot::Image after = RenderBoard(*board_);
    const Rect& cell = board_->Geometry().Cell(0);
    int changed = 0;
    for (int y = cell.top; y < cell.bottom; ++y) {
        for (int x = cell.left; x < cell.right; ++x)
            changed += before.At(x, y) != after.At(x, y) ? 1 : 0;
    }
    EXPECT_GT(changed, 0) << "the cell shows the new name";
    SaveShot(after, L"board-240x320-renamed");
}

TEST_F(BoardRenameTest, CancelledLeavesTheEntryAndTheStoreAlone) {
    script_.tapRow = 1;
    script_.typed = u"xyz";
    script_.softKey = 1;
    // A written value would show here: the stored text is made different from the entry's.
    registry::KeyHolder key(registry::Open(kEntriesKey));
    ASSERT_TRUE(key);
    const Str marker(u"stored before");
    registry::Set(key.get(), u"Display2", registry::kTypeString, marker.c_str(),
                  static_cast<uint32_t>((marker.Length() + 1) * sizeof(char16_t)));
    Rename(2);  // Mum
    EXPECT_EQ(script_.name, u"Mum");
    EXPECT_EQ(script_.selectedRow, LB_ERR);
    EXPECT_EQ(EntryOfSlot(2).display, Str(u"Mum"));
    EXPECT_EQ(StoredText(u"Display2"), u"stored before");
}

TEST_F(BoardRenameTest, AnEmptiedNameGivesTheButtonItsComposedNameBack) {
    script_.typed = u"\b";  // the whole name starts selected: one backspace empties it
    script_.softKey = 0;
    Rename(2);  // Mum, Margaret Hale's button
    EXPECT_EQ(script_.name, u"Mum");
    EXPECT_EQ(EntryOfSlot(2).display, Str(u""));
    EXPECT_EQ(DisplayName(EntryOfSlot(2)), Str(u"Hale, Margaret"));
    EXPECT_EQ(StoredText(u"Display2"), u"");
    ExpectScreenShowsTheBoard(2);
}

TEST_F(BoardRenameTest, RenameCommandRenamesTheSelectedButton) {
    ASSERT_EQ(board_->Geometry().Selected(), 0);
    script_.tapRow = 0;  // "Anna Lindqvist"
    script_.softKey = 0;
    timer_ = SetTimer(nullptr, 0, kTickMs, &Act);
    SendMessageW(board_->Hwnd(), WM_COMMAND, IDM_RENAME, 0);
    EXPECT_FALSE(script_.gaveUp) << "the dialog did not end";
    EXPECT_EQ(script_.name, u"Lindqvist, Anna");
    EXPECT_EQ(EntryOfSlot(0).display, Str(u"Anna Lindqvist"));
    EXPECT_EQ(StoredText(u"Display0"), u"Anna Lindqvist");
}

TEST_F(BoardRenameTest, AFreeButtonOffersNoDialog) {
    // Slot 8 of the demo is free: nothing opens, nothing changes.
    ASSERT_EQ(board_->Board().FindBySlot(8), -1);
    const int entries = board_->Board().Count();
    script_.softKey = 0;
    timer_ = SetTimer(nullptr, 0, kTickMs, &Act);
    board_->RenameButton(8);
    EXPECT_EQ(script_.dialog, nullptr);
    EXPECT_EQ(board_->Board().Count(), entries);
    MSG msg;
    while (PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE))
        DispatchMessageW(&msg);
    EXPECT_EQ(OwnedDialog(board_->Hwnd()), nullptr);
}

}  // namespace
