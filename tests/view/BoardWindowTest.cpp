// The running board on every device profile: screenshots of what a person sees, and probes of
// what the design fixes (the grid, the panel, the background, transparency, the selection).
#include "view/BoardWindow.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>

#include "BoardTestSetup.h"
#include "base/Alert.h"
#include "base/Registry.h"
#include "base/ScreenInfo.h"
#include "base/SettingsStore.h"
#include "skin/ButtonPanel.h"
#include "skin/Skin.h"
#include "view/PaintGeometry.h"

namespace {

constexpr COLORREF kBackground = RGB(59, 70, 80);
constexpr COLORREF kSelection = RGB(250, 196, 84);
constexpr COLORREF kMagenta = RGB(255, 0, 255);
/// The round face in the middle of the test photo.
constexpr COLORREF kPhotoFace = RGB(232, 190, 160);
constexpr uint32_t kPhotoOid = 7;

int QuietAlert(const char16_t*, const char16_t*, uint32_t) {
    return kAlertAnswerOk;
}

struct ScreenCase {
    device::Profile profile;
    const char* name;
};

const ScreenCase kScreens[] = {
    {{240, 320, 96}, "240x320"},  {{320, 240, 96}, "320x240"},  {{320, 320, 96}, "320x320"},
    {{480, 640, 192}, "480x640"}, {{480, 800, 192}, "480x800"},
};

/// The grid the design gives a screen, worked out from the art's design sizes.
BoardGeometry ExpectedGrid(const device::Profile& p, bool big, Rect& panel) {
    const int k = p.dpi / 96;
    const int bar = BarHeightAt(p.dpi);
    const bool landscape = IsLandscape(p.width, p.height);
    const int thickness = (landscape ? 50 : 34) * k;
    PanelPlacement placed =
        PlacePanel(Rect{0, 0, p.width, p.height - bar}, landscape, thickness, thickness);
    panel = placed.panel;
    BoardGeometry g;
    g.Layout(placed.usableWidth, placed.usableHeight, (big ? 74 : 54) * k, (big ? 80 : 48) * k, 9);
    return g;
}

/// The demo board on one screen, with its photo contact's picture in place.
class BoardWindowTest : public ::testing::Test {
  protected:
    void SetUp() override {
        previousAlert_ = SetAlertHandler(&QuietAlert);
        StoreEntries(DemoEntries());
    }
    void TearDown() override {
        board_.reset();
        if (library_ != nullptr)
            FreeLibrary(library_);
        SetResourceModule(nullptr);
        SetAlertHandler(previousAlert_);
        ForgetStoredBoard();
    }

    BoardWindow& Open(const device::Profile& profile, bool big, bool showType, bool showNumber,
                      const std::wstring& skinFolder = L"C:\\no-such-folder\\DialdeckSkin",
                      bool withPhoto = true) {
        StoreOptions(big, showType, showNumber);
        library_ = UseScreen(profile);
        UseSkinFolder(skinFolder);
        board_ = std::make_unique<BoardWindow>();
        board_->Board().SetContacts(&contacts_);
        EXPECT_TRUE(board_->Create(false));
        if (withPhoto)
            GivePhoto();
        return *board_;
    }

    // The desktop's contacts store decodes pictures in its own layer; the test hands the photo
    // contact its picture the way a decoded one is cached.
    HBITMAP GivePhoto(uint32_t oid = kPhotoOid) {
        const BoardGeometry& g = board_->Geometry();
        return board_->Photos().Put(
            oid, gdi::Object<HBITMAP>(MakeTestPhoto(g.CellW() + g.CellW() / 4, g.CellH())));
    }

    shot::Image Shoot(const std::string& name) {
        shot::Image image = RenderBoard(*board_);
        const std::wstring path = SaveShot(image, std::wstring(name.begin(), name.end()));
        EXPECT_FALSE(path.empty()) << name;
        return image;
    }

    /// Probes every screen shot: background between cells, faces in the cells, transparent
    /// corners showing the background, the panel, and no magenta left anywhere.
    void ProbeBoard(const shot::Image& image, const device::Profile& p, bool big,
                    COLORREF background) {
        Rect panel;
        const BoardGeometry expected = ExpectedGrid(p, big, panel);
        const BoardGeometry& g = board_->Geometry();
        ASSERT_EQ(g.Cols(), expected.Cols());
        ASSERT_EQ(g.Rows(), expected.Rows());
        RECT client{};
        GetClientRect(board_->Hwnd(), &client);
        EXPECT_EQ(client.right, p.width);
        EXPECT_EQ(client.bottom, p.height - BarHeightAt(p.dpi));
        for (int i = 0; i < expected.CellCount(); ++i) {
            const Rect& cell = g.Cell(i);
            EXPECT_EQ(cell, expected.Cell(i)) << i;
            // The face's rounded corner is transparent: the background shows through.
            EXPECT_EQ(image.At(cell.left, cell.top), background) << "corner of cell " << i;
            // The middle of the cell is covered by a face or a photo.
            EXPECT_NE(image.At((cell.left + cell.right) / 2, cell.top + cell.Height() / 4),
                      background)
                << "middle of cell " << i;
        }
        // Outside every cell: the background (the left margin of the second row, and the gap
        // between its first two cells; the selection frame rings the first row's first cell).
        const int row = g.Rows() > 1 ? g.Cols() : 0;
        const Rect& first = g.Cell(row);
        if (first.left > 0) {
            EXPECT_EQ(image.At(first.left - 1, first.bottom - 1), background);
        }
        if (g.Cols() > 1 && g.Cell(row + 1).left > first.right) {
            EXPECT_EQ(
                image.At((first.right + g.Cell(row + 1).left) / 2, (first.top + first.bottom) / 2),
                background);
        }
        // The panel window sits where the design puts it.
        RECT at{};
        GetWindowRect(board_->Panel()->Hwnd(), &at);
        MapWindowPoints(nullptr, board_->Hwnd(), reinterpret_cast<POINT*>(&at), 2);
        EXPECT_EQ((Rect{at.left, at.top, at.right, at.bottom}), panel);
        for (const uint32_t pixel : image.pixels) {
            const COLORREF c = RGB(pixel >> 16 & 0xFF, pixel >> 8 & 0xFF, pixel & 0xFF);
            ASSERT_NE(c, kMagenta);
        }
    }

    std::unique_ptr<BoardWindow> board_;
    HMODULE library_ = nullptr;
    DemoContacts contacts_;
    AlertHandler previousAlert_ = nullptr;
};

TEST_F(BoardWindowTest, EveryProfileWithBigAndSmallButtons) {
    for (const ScreenCase& s : kScreens) {
        for (bool big : {true, false}) {
            SCOPED_TRACE(std::string(s.name) + (big ? " big" : " small"));
            Open(s.profile, big, false, false);
            const shot::Image image =
                Shoot(std::string("board-") + s.name + (big ? "-big" : "-small"));
            ProbeBoard(image, s.profile, big, kBackground);
            board_.reset();
            FreeLibrary(library_);
            library_ = nullptr;
        }
    }
}

TEST_F(BoardWindowTest, PhoneTypeAndDialerNumbersShown) {
    for (const ScreenCase& s : {kScreens[0], kScreens[3]}) {
        SCOPED_TRACE(s.name);
        Open(s.profile, true, true, true);
        const shot::Image image = Shoot(std::string("board-") + s.name + "-type-number");
        ProbeBoard(image, s.profile, true, kBackground);
        // Anna (slot 0) carries dialer number 1: its frame sits in the cell's bottom-right
        // corner and is not the face's colour.
        const Rect& cell = board_->Geometry().Cell(0);
        const SIZE frame = Skin::BitmapSize(board_->NumberFrame());
        ASSERT_GT(frame.cx, 0);
        const COLORREF inFrame = image.At(cell.right - frame.cx / 2, cell.bottom - frame.cy / 2);
        const COLORREF face = image.At(cell.left + cell.Width() / 4, cell.top + cell.Height() / 2);
        EXPECT_NE(inFrame, face);
        // Without a number (slot 3) the face is intact where the frame would be: that box is
        // the same as with the numbers switched off, while Anna's changes.
        board_->SetShowsDialerButton(false);
        const shot::Image unnumbered = RenderBoard(*board_);
        const auto changed = [&](const Rect& box) {
            int count = 0;
            for (int y = box.top; y < box.bottom; ++y) {
                for (int x = box.left; x < box.right; ++x)
                    count += image.At(x, y) != unnumbered.At(x, y) ? 1 : 0;
            }
            return count;
        };
        ASSERT_EQ(board_->Board().EntryAt(board_->Board().FindBySlot(3)).btn, kNoDialerNumber);
        EXPECT_EQ(changed(NumberFrameBox(board_->Geometry().Cell(3), frame.cx, frame.cy)), 0);
        EXPECT_GT(changed(NumberFrameBox(cell, frame.cx, frame.cy)), 0);
        board_.reset();
        FreeLibrary(library_);
        library_ = nullptr;
    }
}

TEST_F(BoardWindowTest, SelectionFrameRingsTheSelectedCell) {
    BoardWindow& board = Open({480, 640, 192}, true, false, false);
    const shot::Image image = Shoot("board-480x640-selection");
    const Rect& cell = board.Geometry().Cell(board.Geometry().Selected());
    // The frame sticks out of the cell by two design pixels (four at 192 dpi).
    EXPECT_EQ(image.At((cell.left + cell.right) / 2, cell.top - 2), kSelection);
    EXPECT_EQ(image.At(cell.left - 2, (cell.top + cell.bottom) / 2), kSelection);
    const Rect& other = board.Geometry().Cell(1);
    EXPECT_EQ(image.At((other.left + other.right) / 2, other.top - 2), kBackground);
}

TEST_F(BoardWindowTest, PhotoButtonShowsThePhotoInsideItsFrame) {
    BoardWindow& board = Open({480, 640, 192}, true, false, false);
    const shot::Image image = Shoot("board-480x640-photo");
    const Rect& cell = board.Geometry().Cell(7);
    // The test photo's round face (a warm colour) shows in the middle of the frame.
    EXPECT_EQ(image.At((cell.left + cell.right) / 2, cell.top + cell.Height() * 2 / 5), kPhotoFace);
    // The frame's outer corner hides the photo with the background.
    EXPECT_EQ(image.At(cell.left, cell.top), kBackground);
}

/// Whether any pixel of `colour` lies in the box.
bool HasColour(const shot::Image& image, const Rect& box, COLORREF colour) {
    for (int y = box.top; y < box.bottom; ++y) {
        for (int x = box.left; x < box.right; ++x) {
            if (image.At(x, y) == colour)
                return true;
        }
    }
    return false;
}

TEST_F(BoardWindowTest, DeletedContactWithAPictureKeepsItsStoredNameOnAPlainFace) {
    // "Old Office" belongs to contact 8, which has a picture when the board is first read.
    std::vector<StoredEntry> entries = DemoEntries();
    ASSERT_EQ(entries[6].slot, 6);
    entries[6].oid = 8;
    StoreEntries(entries);
    contacts_.added.push_back(entries[6]);
    contacts_.pictures.insert(8);
    BoardWindow& board = Open({480, 640, 192}, true, false, false);
    const int index = board.Board().FindBySlot(6);
    ASSERT_GE(index, 0);
    ASSERT_EQ(board.Board().EntryAt(index).oid, 8u);
    ASSERT_EQ(board.Board().EntryAt(index).flags & 1u, 1u);
    HBITMAP photo = GivePhoto(8);
    const Rect& cell = board.Geometry().Cell(6);
    EXPECT_TRUE(HasColour(Shoot("board-480x640-contact-before-deletion"), cell, kPhotoFace));

    // The contact is deleted; the refresh finds it gone but leaves its picture flag to the
    // paint, which must clear it rather than look for a picture of no contact.
    contacts_.deleted.insert(8);
    board.RefreshContacts();
    ASSERT_EQ(board.Board().EntryAt(index).oid, 0u);
    ASSERT_EQ(board.Board().EntryAt(index).flags & 1u, 1u);
    EXPECT_EQ(DisplayName(board.Board().EntryAt(index)), Str(u"Old Office"));
    const shot::Image image = Shoot("board-480x640-deleted-contact");
    EXPECT_EQ(board.Board().EntryAt(index).flags & 1u, 0u);
    EXPECT_EQ(board.Photos().Find(8), nullptr);
    EXPECT_EQ(GetObjectType(photo), 0u);  // deleted, not just forgotten
    // A plain face (the dark text face) without the photo, with the white name in its middle.
    EXPECT_FALSE(HasColour(image, cell, kPhotoFace));
    const Rect middle{cell.left, cell.top + cell.Height() / 3, cell.right,
                      cell.bottom - cell.Height() / 3};
    EXPECT_TRUE(HasColour(image, middle, RGB(255, 255, 255)));
}

TEST_F(BoardWindowTest, PictureThatCannotBeReadLeavesAPlainFace) {
    BoardWindow& board =
        Open({480, 640, 192}, true, false, false, L"C:\\no-such-folder\\DialdeckSkin", false);
    const int index = board.Board().FindBySlot(7);
    ASSERT_EQ(board.Board().EntryAt(index).flags & 1u, 1u);
    const shot::Image image = Shoot("board-480x640-unreadable-picture");
    EXPECT_EQ(board.Board().EntryAt(index).flags & 1u, 0u);
    EXPECT_EQ(board.Photos().Find(kPhotoOid), nullptr);
    // Drawn as the plain text face: its name in white.
    const Rect& cell = board.Geometry().Cell(7);
    bool white = false;
    for (int x = cell.left; x < cell.right && !white; ++x) {
        for (int y = cell.top; y < cell.bottom; ++y) {
            if (image.At(x, y) == RGB(255, 255, 255))
                white = true;
        }
    }
    EXPECT_TRUE(white);
}

/// Counts the pixels of exactly `colour` in a box, and whether all of them lie inside `inside`.
int CountColour(const shot::Image& image, const Rect& box, COLORREF colour, const Rect& inside,
                bool& allInside) {
    int count = 0;
    allInside = true;
    for (int y = box.top; y < box.bottom; ++y) {
        for (int x = box.left; x < box.right; ++x) {
            if (image.At(x, y) != colour)
                continue;
            ++count;
            if (!inside.Contains(x, y))
                allInside = false;
        }
    }
    return count;
}

TEST_F(BoardWindowTest, LongNameWrapsAboveTheLabelAndEqualTypeColoursDropTheShadow) {
    std::error_code ignored;
    const std::filesystem::path folder =
        std::filesystem::temp_directory_path() /
        (L"dd-view-colours-" + std::to_wstring(GetCurrentProcessId()));
    std::filesystem::create_directories(folder / "DialdeckSkin");
    const auto writeSkin = [&folder](const char* shadow) {
        std::ofstream ini(folder / "DialdeckSkinskin.ini", std::ios::binary);
        ini << "[Dialdeck]\r\nTxtColor=255,255,0\r\nPhoneTypeColor1=0,255,255\r\n"
            << "PhoneTypeColor2=" << shadow << "\r\n";
    };
    writeSkin("0,255,255");
    BoardWindow& board =
        Open({480, 640, 192}, true, true, false, (folder / "DialdeckSkin").wstring());
    const shot::Image image = Shoot("board-480x640-long-name-no-shadow");
    const Rect cell = board.Geometry().Cell(5);  // "Dr. Margarethe Vanderbilt-Oppenheimer"
    const int labelH = Skin::GetFontHeight(board.GetSkin()->Font(SkinFont::kSmall));
    const Rect nameBox = NameBox(cell, 192, 192, labelH);
    bool inside = false;
    EXPECT_GT(CountColour(image, cell, RGB(255, 255, 0), nameBox, inside), 0);
    EXPECT_TRUE(inside);
    // Wrapped: name pixels on rows far apart (more than two lines of the text font).
    int top = cell.bottom;
    int bottom = cell.top;
    for (int y = cell.top; y < cell.bottom; ++y) {
        for (int x = cell.left; x < cell.right; ++x) {
            if (image.At(x, y) != RGB(255, 255, 0))
                continue;
            top = std::min(top, y);
            bottom = std::max(bottom, y);
        }
    }
    EXPECT_GT(bottom - top, 3 * labelH);
    // The label is drawn in the bottom band. A shadow in the label's own colour would add
    // label-coloured pixels one step up and left, so count them against the same label drawn
    // with a red shadow, where the label covers exactly its own pixels.
    const Rect band{cell.left, cell.bottom - labelH - 4, cell.right, cell.bottom};
    const int labelPixels = CountColour(image, cell, RGB(0, 255, 255), band, inside);
    EXPECT_GT(labelPixels, 0);
    EXPECT_TRUE(inside);
    board_.reset();
    FreeLibrary(library_);
    library_ = nullptr;
    writeSkin("255,0,0");
    BoardWindow& shadowed =
        Open({480, 640, 192}, true, true, false, (folder / "DialdeckSkin").wstring());
    const shot::Image withShadow = Shoot("board-480x640-label-red-shadow");
    ASSERT_EQ(shadowed.Geometry().Cell(5), cell);
    EXPECT_GT(CountColour(withShadow, cell, RGB(255, 0, 0), band, inside), 0);
    EXPECT_EQ(CountColour(withShadow, cell, RGB(0, 255, 255), band, inside), labelPixels);
    board_.reset();
    std::filesystem::remove_all(folder, ignored);
}

TEST_F(BoardWindowTest, LabelHasItsShadowWithTheDefaultColours) {
    BoardWindow& board = Open({480, 640, 192}, true, true, false);
    const shot::Image image = Shoot("board-480x640-label-shadow");
    const Rect& cell = board.Geometry().Cell(1);
    bool inside = false;
    EXPECT_GT(CountColour(image, cell, RGB(0, 0, 0), cell, inside), 0);
}

TEST_F(BoardWindowTest, SampleSkinChangesColoursAndBitmaps) {
    std::error_code ignored;
    const std::filesystem::path folder =
        std::filesystem::temp_directory_path() /
        (L"dd-view-skin-" + std::to_wstring(GetCurrentProcessId()));
    std::filesystem::remove_all(folder, ignored);
    std::filesystem::create_directories(folder);
    const std::filesystem::path sample = std::filesystem::path(DD_RES_DIR) / "sample-skin";
    std::filesystem::copy(sample, folder, std::filesystem::copy_options::recursive);
    ASSERT_TRUE(std::filesystem::exists(folder / "DialdeckSkinskin.ini"));

    BoardWindow& board =
        Open({480, 640, 192}, true, true, true, (folder / "DialdeckSkin").wstring());
    EXPECT_EQ(board.GetSkin()->Colours().background, RGB(24, 52, 44));
    const shot::Image image = Shoot("board-480x640-sample-skin");
    ProbeBoard(image, {480, 640, 192}, true, RGB(24, 52, 44));
    // The skin's own panel images: their corners carry the skin's background too.
    RECT panel{};
    GetWindowRect(board.Panel()->Hwnd(), &panel);
    MapWindowPoints(nullptr, board.Hwnd(), reinterpret_cast<POINT*>(&panel), 2);
    EXPECT_EQ(image.At(panel.left, panel.top), RGB(24, 52, 44));
    EXPECT_EQ(image.At(panel.right - 1, panel.bottom - 1), RGB(24, 52, 44));
    board_.reset();
    std::filesystem::remove_all(folder, ignored);
}

TEST_F(BoardWindowTest, RotationMovesThePanelToTheRightAndRelaysTheBoard) {
    BoardWindow& board = Open({240, 320, 96}, true, false, false);
    EXPECT_FALSE(board.Panel()->IsLandscape());
    device::SetCurrentProfile({320, 240, 96});
    SetWindowPos(board.Hwnd(), nullptr, 0, BarHeightAt(96), 320, 240 - BarHeightAt(96),
                 SWP_NOZORDER | SWP_NOACTIVATE);
    SendMessageW(board.Hwnd(), WM_SETTINGCHANGE, kScreenChangedNotice, 0);
    EXPECT_TRUE(board.Panel()->IsLandscape());
    const shot::Image image = Shoot("board-240x320-rotated");
    ProbeBoard(image, {320, 240, 96}, true, kBackground);
}

TEST_F(BoardWindowTest, OnScreenThePanelSurvivesTheBoardsPaint) {
    BoardWindow& board = Open({480, 640, 192}, true, false, false);
    EXPECT_NE(GetWindowLongPtrW(board.Hwnd(), GWL_STYLE) & WS_CLIPCHILDREN, 0);
    InvalidateRect(board.Hwnd(), nullptr, FALSE);
    UpdateWindow(board.Hwnd());
    MSG msg;
    while (PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE))
        DispatchMessageW(&msg);
    shot::Image screen;
    ASSERT_TRUE(shot::CaptureClient(board.Hwnd(), screen));
    SaveShot(screen, L"board-480x640-on-screen");
    const shot::Image rendered = RenderBoard(board);
    // The Close key's middle, as the panel paints it, is what the screen shows.
    RECT close{};
    board.Panel()->GetButtonRect(3, close);
    RECT panel{};
    GetWindowRect(board.Panel()->Hwnd(), &panel);
    MapWindowPoints(nullptr, board.Hwnd(), reinterpret_cast<POINT*>(&panel), 2);
    const int x = panel.left + (close.left + close.right) / 2;
    const int y = panel.top + close.top + 6;
    EXPECT_NE(screen.At(x, y), kBackground);
    EXPECT_EQ(screen.At(x, y), rendered.At(x, y));
}

TEST_F(BoardWindowTest, OtherSettingChangesLeaveTheLayout) {
    BoardWindow& board = Open({240, 320, 96}, true, false, false);
    device::SetCurrentProfile({320, 240, 96});
    SendMessageW(board.Hwnd(), WM_SETTINGCHANGE, 0x1234, 0);
    EXPECT_FALSE(board.Panel()->IsLandscape());
}

TEST_F(BoardWindowTest, PageArrowsFollowThePages) {
    // 480 x 640 with big buttons: 9 a page; slot 9 is on the second page.
    BoardWindow& board = Open({480, 640, 192}, true, false, false);
    EXPECT_EQ(board.Geometry().Pages(), 2);
    EXPECT_EQ(board.ShownArrows(), (Arrows{false, true}));
    EXPECT_FALSE(board.Panel()->Button(0).enabled);
    EXPECT_TRUE(board.Panel()->Button(1).enabled);
}

TEST_F(BoardWindowTest, ClearButtonDeletesTheEntryOfThatPosition) {
    BoardWindow& board = Open({480, 640, 192}, true, false, false);
    ASSERT_GE(board.Board().FindBySlot(2), 0);
    board.ClearButton(2);
    EXPECT_EQ(board.Board().FindBySlot(2), -1);
    EXPECT_EQ(board.Board().Count(), static_cast<int>(DemoEntries().size()) - 1);
}

TEST_F(BoardWindowTest, DeletePageMovesTheNextPageDown) {
    BoardWindow& board = Open({480, 640, 192}, true, false, false);
    board.DeletePage();
    // Page 0's nine slots are gone and Pizza Roma (slot 9) moved to slot 0.
    EXPECT_EQ(board.Board().Count(), 1);
    EXPECT_EQ(board.Board().EntryAt(0).slot, 0);
    EXPECT_EQ(board.Geometry().Pages(), 1);
    EXPECT_EQ(board.ShownArrows(), (Arrows{false, false}));
}

TEST_F(BoardWindowTest, MoveButtonRightFromTheLastColumnGoesToTheNextPage) {
    BoardWindow& board = Open({480, 640, 192}, true, false, false);
    board.Geometry().SetSelected(2);
    board.MoveButton(2, MoveDirection::kRight);  // Mum, slot 2 -> page 1, position 0
    EXPECT_EQ(board.Geometry().Page(), 1);
    EXPECT_EQ(board.Geometry().Selected(), 0);
    // The target was taken by Pizza Roma: the two swap.
    EXPECT_EQ(DisplayName(board.Board().EntryAt(board.Board().FindBySlot(9))), Str(u"Mum"));
    EXPECT_EQ(DisplayName(board.Board().EntryAt(board.Board().FindBySlot(2))), Str(u"Pizza Roma"));
}

TEST_F(BoardWindowTest, GrowByPageAddsAnEmptyPage) {
    BoardWindow& board = Open({480, 640, 192}, true, false, false);
    board.GrowByPage();
    EXPECT_EQ(board.Geometry().Pages(), 3);
}

TEST_F(BoardWindowTest, ButtonSizeChangeDropsThePhotos) {
    BoardWindow& board = Open({480, 640, 192}, true, false, false);
    HBITMAP photo = board.Photos().Find(kPhotoOid);
    ASSERT_NE(photo, nullptr);
    board.SetBigButtons(false);
    EXPECT_EQ(board.Photos().Find(kPhotoOid), nullptr);
    EXPECT_EQ(board.Photos().Count(), 0);
    EXPECT_EQ(GetObjectType(photo), 0u);  // deleted, not just forgotten
    EXPECT_EQ(board.GetSkin()->CellWidth(), 108);
}

}  // namespace
