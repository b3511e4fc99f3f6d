// Using the real program as a person would: the stylus and the keys posted to the board window,
// the pop-up menus answered with the keyboard through their own windows, and the registry read
// after each command. The hold is real time here (half a second), so every step waits by polling.
#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <vector>

#include "BoardDriver.h"
#include "ScreenShot.h"
#include "base/ResourceIds.h"
#include "skin/PanelGeometry.h"
#include "view/BoardGeometry.h"

namespace {

using e2e::Contents;
using e2e::Process;
using e2e::Sandbox;

constexpr wchar_t kEntriesPath[] = L"Software\\Orvalis\\PIM\\Dialdeck";
constexpr wchar_t kMenuClass[] = L"#32768";

struct Button {
    DWORD oid;
    const wchar_t* display;
    int slot;
    const wchar_t* phone;
};

void SetNumber(HKEY key, const std::wstring& name, DWORD value) {
    RegSetValueExW(key, name.c_str(), 0, REG_DWORD, reinterpret_cast<const BYTE*>(&value),
                   sizeof value);
}

void SetText(HKEY key, const std::wstring& name, const wchar_t* text) {
    RegSetValueExW(key, name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(text),
                   static_cast<DWORD>((lstrlenW(text) + 1) * sizeof(wchar_t)));
}

void StoreButtons(const std::vector<Button>& buttons) {
    HKEY key = nullptr;
    ASSERT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, kEntriesPath, 0, nullptr, 0, KEY_WRITE, nullptr,
                              &key, nullptr),
              ERROR_SUCCESS);
    for (size_t n = 0; n < buttons.size(); ++n) {
        const std::wstring i = std::to_wstring(n);
        const Button& b = buttons[n];
        SetNumber(key, L"Oid" + i, b.oid);
        SetText(key, L"Display" + i, b.display);
        SetNumber(key, L"Btn" + i, static_cast<DWORD>(-1));
        SetNumber(key, L"Index" + i, static_cast<DWORD>(b.slot));
        SetText(key, L"Phone" + i, b.phone);
        SetText(key, L"Type" + i, L"Mobile");
        SetNumber(key, L"Link" + i, 1);
        for (const wchar_t* part : {L"First", L"Last", L"Middle", L"Company"})
            SetText(key, part + i, L"");
    }
    RegCloseKey(key);
}

/// The slots of the stored entries ("Index0", "Index1", ...).
std::set<int> StoredSlots() {
    std::set<int> slots;
    for (int i = 0; i < 100; ++i) {
        DWORD value = 0;
        DWORD size = sizeof value;
        const std::wstring name = L"Index" + std::to_wstring(i);
        if (RegGetValueW(HKEY_CURRENT_USER, kEntriesPath, name.c_str(), RRF_RT_REG_DWORD, nullptr,
                         &value, &size) != ERROR_SUCCESS) {
            break;
        }
        slots.insert(static_cast<int>(value));
    }
    return slots;
}

SIZE BitmapSize(HMODULE library, int id) {
    SIZE size{};
    HBITMAP bitmap = static_cast<HBITMAP>(
        LoadImageW(library, MAKEINTRESOURCEW(id), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION));
    BITMAP info{};
    if (bitmap != nullptr && GetObjectW(bitmap, sizeof info, &info) != 0)
        size = SIZE{info.bmWidth, info.bmHeight};
    if (bitmap != nullptr)
        DeleteObject(bitmap);
    return size;
}

/// Where the board puts its buttons and its panel's Menu key on the 480 x 640 screen, worked out
/// from the art in the program's resource library.
struct BoardPlan {
    BoardGeometry grid;
    Rect menuKey;  ///< in the panel's client area
};

BoardPlan PlanFor(const std::filesystem::path& folder, const wchar_t* libraryName, RECT client) {
    BoardPlan plan;
    HMODULE library =
        LoadLibraryExW((folder / libraryName).wstring().c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    EXPECT_NE(library, nullptr);
    const SIZE first = BitmapSize(library, IDB_PORTRAIT_PANEL_1);
    const SIZE second = BitmapSize(library, IDB_PORTRAIT_PANEL_2);
    const SIZE face = BitmapSize(library, IDB_BIG_FACE);
    FreeLibrary(library);
    const int thickness = PanelThickness(first.cy, second.cy);
    const PanelPlacement placed =
        PlacePanel(Rect{0, 0, client.right, client.bottom}, false, thickness, thickness);
    plan.grid.Layout(placed.usableWidth, placed.usableHeight, face.cx / 2, face.cy, 9);
    PanelButtonArt art[4];
    PanelButtonsFromImages(false, first.cx, first.cy, second.cx, second.cy, art);
    plan.menuKey = PanelButtonRect(
        kPanelMenuButton, Rect{0, 0, placed.panel.Width(), placed.panel.Height()}, false, art);
    return plan;
}

LPARAM At(Point p) {
    return MAKELPARAM(p.x, p.y);
}

Point Middle(const Rect& r) {
    return Point{(r.left + r.right) / 2, (r.top + r.bottom) / 2};
}

/// Every visible pop-up menu window of the process.
std::vector<HWND> MenusOf(const Process& process) {
    std::vector<HWND> menus;
    for (HWND w : e2e::WindowsOfClass(kMenuClass)) {
        DWORD owner = 0;
        GetWindowThreadProcessId(w, &owner);
        if (owner == process.Id() && IsWindowVisible(w))
            menus.push_back(w);
    }
    return menus;
}

bool WaitForMenus(const Process& process, size_t count) {
    return e2e::WaitUntil([&] { return MenusOf(process).size() >= count; });
}

/// A key as the keyboard gives it to the open menu: down, the character it makes, up.
void MenuKey(HWND menu, WPARAM key) {
    PostMessageW(menu, WM_KEYDOWN, key, 1);
    if (key == VK_RETURN)
        PostMessageW(menu, WM_CHAR, L'\r', 1);
    PostMessageW(menu, WM_KEYUP, key, 0xC0000001);
}

/// Saves what the screen shows of the board and of the menus open over it (which may reach past
/// its edge) and returns the image.
shot::Image ShootBoard(HWND board, const std::vector<HWND>& menus, const wchar_t* name) {
    RECT area{};
    GetWindowRect(board, &area);
    for (HWND menu : menus) {
        RECT more{};
        GetWindowRect(menu, &more);
        UnionRect(&area, &area, &more);
    }
    shot::Image image;
    EXPECT_TRUE(shot::CaptureScreen(area, image));
    EXPECT_TRUE(shot::SavePng(image, e2e::ScreenshotPath(name).c_str()));
    return image;
}

/// Pixels of the board's client area inside `box`.
std::vector<COLORREF> Pixels(HWND board, const Rect& box) {
    shot::Image image;
    std::vector<COLORREF> out;
    if (!shot::CaptureClient(board, image))
        return out;
    for (int y = box.top; y < box.bottom; ++y) {
        for (int x = box.left; x < box.right; ++x)
            out.push_back(image.At(x, y));
    }
    return out;
}

Rect Inner(const Rect& cell) {
    return Rect{cell.left + 12, cell.top + 12, cell.right - 12, cell.bottom - 12};
}

class E2eBoardUse : public ::testing::Test {
  protected:
    void SetUp() override {
        e2e::CleanRegistry();
        ASSERT_TRUE(e2e::WindowsOfClass(e2e::kBoardClass).empty()) << "a board is still running";
    }
    void TearDown() override {
        if (process_.IsRunning() && board_ != nullptr)
            PostMessageW(board_, WM_CLOSE, 100, 0);
        process_.WaitExit(e2e::kStepTimeoutMs);
        e2e::CleanRegistry();
    }

    void Start(const std::vector<Button>& buttons, bool smallScreen = false) {
        StoreButtons(buttons);
        process_ = sandbox_.Start(L"", smallScreen ? L"240x320@96" : L"480x640@192");
        board_ = e2e::WaitForWindowOf(process_, e2e::kBoardClass, nullptr, true);
        ASSERT_NE(board_, nullptr);
        ASSERT_TRUE(process_.WaitIdle());
        RECT client{};
        GetClientRect(board_, &client);
        plan_ = PlanFor(sandbox_.Folder(), smallScreen ? L"DialdeckRes.dll" : L"DialdeckResVga.dll",
                        client);
        ASSERT_EQ(plan_.grid.PerPage(), 9);
        panel_ = FindWindowExW(board_, nullptr, nullptr, nullptr);
        ASSERT_NE(panel_, nullptr);
    }

    Point CellMiddle(int position) const { return Middle(plan_.grid.Cell(position)); }

    void Key(WPARAM key) {
        PostMessageW(board_, WM_KEYDOWN, key, 1);
        PostMessageW(board_, WM_KEYUP, key, 0xC0000001);
    }

    /// Presses the panel's Menu key (it acts on press) and waits for the main menu.
    HWND OpenMainMenu() {
        const Point key = Middle(plan_.menuKey);
        PostMessageW(panel_, WM_LBUTTONDOWN, MK_LBUTTON, At(key));
        if (!WaitForMenus(process_, 1))
            return nullptr;
        return MenusOf(process_).front();
    }

    void ReleaseMenuKey() { PostMessageW(panel_, WM_LBUTTONUP, 0, At(Middle(plan_.menuKey))); }

    Sandbox sandbox_{Contents{.normalLibrary = true, .vgaLibrary = true}};
    Process process_;
    HWND board_ = nullptr;
    HWND panel_ = nullptr;
    BoardPlan plan_;
};

TEST_F(E2eBoardUse, TapAndHoldOpensTheContextMenuAndClearClearsTheButton) {
    Start({{1, L"Anna", 0, L"+46701234567"}, {2, L"Bob", 1, L"+2348031234567"}});
    ASSERT_EQ(StoredSlots(), (std::set<int>{0, 1}));
    const Point p = CellMiddle(1);
    PostMessageW(board_, WM_LBUTTONDOWN, MK_LBUTTON, At(p));
    ASSERT_TRUE(WaitForMenus(process_, 1));
    const HWND menu = MenusOf(process_).front();
    // The menu stands at the hold point.
    RECT where{};
    GetWindowRect(menu, &where);
    POINT hold{p.x, p.y};
    ClientToScreen(board_, &hold);
    EXPECT_EQ(where.left, hold.x);
    EXPECT_EQ(where.top, hold.y);
    ShootBoard(board_, MenusOf(process_), L"e2e-context-menu-480x640.png");
    // From no choice, Up goes round to the last item: "Clear".
    MenuKey(menu, VK_UP);
    MenuKey(menu, VK_RETURN);
    EXPECT_TRUE(e2e::WaitUntil([] { return StoredSlots() == std::set<int>{0}; }));
    EXPECT_TRUE(e2e::WaitUntil([&] { return MenusOf(process_).empty(); }));
    PostMessageW(board_, WM_LBUTTONUP, 0, At(p));
    EXPECT_TRUE(process_.IsRunning());
}

TEST_F(E2eBoardUse, MainMenuViewShowDialerButtonIsWritten) {
    Start({{1, L"Anna", 0, L"+46701234567"}});
    Key(VK_END);  // a free button: the main menu starts with the pages
    ASSERT_FALSE(e2e::ReadSetting(L"DdShowBtn").has_value());
    const HWND menu = OpenMainMenu();
    ASSERT_NE(menu, nullptr);
    // Add Page, Delete Page, Clear All, View: open View.
    for (int i = 0; i < 4; ++i)
        MenuKey(menu, VK_DOWN);
    MenuKey(menu, VK_RIGHT);
    ASSERT_TRUE(WaitForMenus(process_, 2));
    Sleep(200);  // the sub-menu's own painting, for the picture only
    ShootBoard(board_, MenusOf(process_), L"e2e-main-menu-view-480x640.png");
    const std::vector<HWND> open = MenusOf(process_);
    const HWND view = open.front() == menu ? open.back() : open.front();
    // Big Buttons is chosen as the sub-menu opens; the next is Show Dialer Button.
    MenuKey(view, VK_DOWN);
    MenuKey(view, VK_RETURN);
    EXPECT_TRUE(e2e::WaitUntil([] { return e2e::ReadSetting(L"DdShowBtn") == 1u; }));
    EXPECT_FALSE(e2e::ReadSetting(L"DdBigBtn") == 0u);
    ReleaseMenuKey();
}

TEST_F(E2eBoardUse, AddPageShowsANewEmptyPage) {
    Start({{1, L"Anna", 0, L"+46701234567"}, {2, L"Bob", 1, L"+2348031234567"}});
    const Rect box = Inner(plan_.grid.Cell(0));
    std::vector<COLORREF> before;
    ASSERT_TRUE(e2e::WaitUntil([&] {
        before = Pixels(board_, box);
        return !before.empty();
    }));
    Key(VK_END);
    const HWND menu = OpenMainMenu();
    ASSERT_NE(menu, nullptr);
    MenuKey(menu, VK_DOWN);  // Add Page
    MenuKey(menu, VK_RETURN);
    ASSERT_TRUE(e2e::WaitUntil([&] { return MenusOf(process_).empty(); }));
    ReleaseMenuKey();
    // The new page is current: its first button is a free one.
    EXPECT_TRUE(e2e::WaitUntil([&] { return Pixels(board_, box) != before; }));
    EXPECT_EQ(StoredSlots(), (std::set<int>{0, 1}));
    // And Left from its first column goes back to the first page.
    Key(VK_LEFT);
    EXPECT_TRUE(e2e::WaitUntil([&] { return Pixels(board_, box) == before; }));
}

TEST_F(E2eBoardUse, ExitEndsTheProcessEvenWhenResident) {
    Start({{1, L"Anna", 0, L"+46701234567"}});
    e2e::WriteSetting(L"ModPreload", 1);
    Key(VK_END);
    const HWND menu = OpenMainMenu();
    ASSERT_NE(menu, nullptr);
    MenuKey(menu, VK_UP);  // the last item: Exit
    MenuKey(menu, VK_RETURN);
    EXPECT_EQ(process_.WaitExit(e2e::kStepTimeoutMs), 0u);
}

TEST_F(E2eBoardUse, RightAndLeftPageAcross) {
    Start({{1, L"Anna", 0, L"+46701234567"},
           {2, L"Bob", 1, L"+2348031234567"},
           {9, L"Pizza", 9, L"+390612345678"}});
    Key(VK_RIGHT);
    Key(VK_RIGHT);  // the first row's last column
    const Rect box = Inner(plan_.grid.Cell(1));
    std::vector<COLORREF> firstPage;
    ASSERT_TRUE(e2e::WaitUntil([&] {
        firstPage = Pixels(board_, box);
        return !firstPage.empty();
    }));
    Key(VK_RIGHT);  // onto the second page, where position 1 is free
    EXPECT_TRUE(e2e::WaitUntil([&] { return Pixels(board_, box) != firstPage; }));
    Key(VK_LEFT);  // back onto the first page's last column
    EXPECT_TRUE(e2e::WaitUntil([&] { return Pixels(board_, box) == firstPage; }));
    EXPECT_EQ(StoredSlots(), (std::set<int>{0, 1, 9}));
}

TEST_F(E2eBoardUse, EndCallKeyHidesTheResidentBoardAndAnotherStartShowsIt) {
    Start({{1, L"Anna", 0, L"+46701234567"}});
    Key(VK_F4);
    EXPECT_TRUE(e2e::WaitUntil([&] { return !IsWindowVisible(board_); }));
    EXPECT_TRUE(process_.IsRunning());
    // A second start raises the hidden board, which shows itself as it becomes active.
    Process second = sandbox_.Start(L"");
    EXPECT_EQ(second.WaitExit(e2e::kStepTimeoutMs), 1u);
    EXPECT_TRUE(e2e::WaitUntil([&] { return IsWindowVisible(board_) != FALSE; }));
}

TEST_F(E2eBoardUse, EndCallKeyEndsTheProgramWhenNotResident) {
    Start({{1, L"Anna", 0, L"+46701234567"}});
    e2e::WriteSetting(L"ModPreload", 0);
    Key(VK_F4);
    EXPECT_EQ(process_.WaitExit(e2e::kStepTimeoutMs), 0u);
}

TEST_F(E2eBoardUse, TalkKeyCallsTheSelectedButtonAndTheBoardHides) {
    Start({{1, L"Anna", 0, L"+46701234567"}});
    Key(VK_END);  // a free button: the Talk key does nothing
    Key(VK_F3);
    Key(VK_HOME);
    // Once the keys before it were handled, the board still shows.
    ASSERT_TRUE(process_.WaitIdle());
    EXPECT_TRUE(IsWindowVisible(board_));
    // Anna: the call goes out (no phone library on desktop), the board waits for the call
    // screen while it stays in front, then hides.
    Key(VK_F3);
    EXPECT_TRUE(e2e::WaitUntil([&] { return !IsWindowVisible(board_); }));
    EXPECT_TRUE(process_.IsRunning());
    EXPECT_EQ(StoredSlots(), (std::set<int>{0}));
}

TEST_F(E2eBoardUse, TalkKeyCallReachesThePhoneLibraryWithTheNumberAndName) {
    // The fixture phone library beside the program records each request it is handed.
    ASSERT_TRUE(sandbox_.AddFixture(L"phone\\phone.dll"));
    const std::filesystem::path record = sandbox_.Folder() / L"calls.txt";
    SetEnvironmentVariableW(L"DD_PHONE_RECORD", record.c_str());
    Start({{1, L"Anna", 0, L"+46701234567"}});
    SetEnvironmentVariableW(L"DD_PHONE_RECORD", nullptr);
    Key(VK_HOME);
    Key(VK_F3);
    std::string calls;
    EXPECT_TRUE(e2e::WaitUntil([&] {
        std::ifstream in(record, std::ios::binary);
        calls.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
        return !calls.empty();
    }));
    // The stored number goes through the built-in number templates on its way to the phone.
    EXPECT_NE(calls.find("|flags=0|number=+4 (670) 123-45-67|party=Anna|app=(null)|comment=(null)"),
              std::string::npos)
        << calls;
    EXPECT_EQ(std::count(calls.begin(), calls.end(), '\n'), 1) << calls;
    EXPECT_TRUE(e2e::WaitUntil([&] { return !IsWindowVisible(board_); }));
    EXPECT_EQ(StoredSlots(), (std::set<int>{0}));  // a call changes nothing stored
}

TEST_F(E2eBoardUse, ContextMenuOnTheSmallScreen) {
    Start({{1, L"Anna", 0, L"+46701234567"}, {2, L"Bob", 1, L"+2348031234567"}}, true);
    const Point p = CellMiddle(0);
    PostMessageW(board_, WM_LBUTTONDOWN, MK_LBUTTON, At(p));
    ASSERT_TRUE(WaitForMenus(process_, 1));
    ShootBoard(board_, MenusOf(process_), L"e2e-context-menu-240x320.png");
    MenuKey(MenusOf(process_).front(), VK_ESCAPE);
    EXPECT_TRUE(e2e::WaitUntil([&] { return MenusOf(process_).empty(); }));
    PostMessageW(board_, WM_LBUTTONUP, 0, At(p));
    // Dismissed: nothing changed, and the board is still there.
    EXPECT_EQ(StoredSlots(), (std::set<int>{0, 1}));
    EXPECT_TRUE(process_.IsRunning());
    EXPECT_TRUE(IsWindowVisible(board_));
}

}  // namespace
