// Skin under Wine: colours and fonts from the skin file beside the skin folder, bitmaps from the
// folder and from the resource library, the button size switch and the drawing services.
#include "skin/Skin.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "base/Registry.h"
#include "base/ScreenInfo.h"
#include "base/SettingsStore.h"
#include "win/WideCast.h"

namespace {

constexpr char16_t kSettingsPath[] = u"Software\\Orvalis\\PIM\\Settings";

/// A temporary folder holding "DialdeckSkin" and, beside it, "DialdeckSkinskin.ini".
class SkinFolder {
  public:
    SkinFolder() {
        root_ = std::filesystem::temp_directory_path() /
                (L"dd-skin-" + std::to_wstring(GetCurrentProcessId()) + L"-" +
                 std::to_wstring(counter_++));
        std::filesystem::create_directories(root_ / L"DialdeckSkin");
    }
    ~SkinFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(root_, ignored);
    }
    Str Folder() const {
        const std::wstring folder = (root_ / L"DialdeckSkin").wstring();
        return Str(U(folder.c_str()));
    }
    void WriteIni(const std::string& text) const {
        std::ofstream out(root_ / L"DialdeckSkinskin.ini", std::ios::binary);
        out << text;
    }
    void CopyBitmap(const std::string& from, const std::wstring& name) const {
        std::filesystem::copy_file(from, root_ / L"DialdeckSkin" / (name + L".bmp"));
    }

  private:
    std::filesystem::path root_;
    static inline int counter_ = 0;
};

LOGFONTW Describe(HFONT font) {
    LOGFONTW lf{};
    GetObjectW(font, sizeof lf, &lf);
    return lf;
}

HMODULE LoadResources() {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    std::filesystem::path dll = std::filesystem::path(path).parent_path() / L"DialdeckRes.dll";
    return LoadLibraryExW(dll.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
}

std::string ArtFile(const char* name) {
    return std::string(DD_RES_DIR) + "/art/96/" + name + ".bmp";
}

class SkinTest : public ::testing::Test {
  protected:
    void SetUp() override { SetScreen(ComputeScreenInfo(96, 96, 240, 320)); }
    // The button size is stored as a setting; leave the prefix's own choice in place.
    void TearDown() override {
        registry::KeyHolder key(registry::Open(kSettingsPath));
        if (key)
            registry::DeleteValue(key.get(), u"DdBigBtn");
    }
    SkinFolder folder_;
};

TEST_F(SkinTest, NoSkinFileGivesTheDefaults) {
    Skin skin(folder_.Folder(), nullptr);
    skin.LoadSkinFile();
    const SkinColours& c = skin.Colours();
    EXPECT_EQ(c.background, 0x50463Bu);
    EXPECT_EQ(c.text, 0xFFFFFFu);
    EXPECT_EQ(c.textSelected, 0x000000u);
    EXPECT_EQ(c.buttonNumber, 0xFFFFFFu);
    EXPECT_EQ(c.phoneType1, 0xFFFFFFu);
    EXPECT_EQ(c.phoneType2, 0x000000u);
    const LOGFONTW text = Describe(skin.Font(SkinFont::kText));
    EXPECT_EQ(std::wstring(text.lfFaceName), L"Tahoma");
    EXPECT_EQ(text.lfHeight, -11);
    EXPECT_EQ(text.lfWeight, 700);
    EXPECT_EQ(text.lfQuality, 5);
    const LOGFONTW small = Describe(skin.Font(SkinFont::kSmall));
    EXPECT_EQ(small.lfHeight, -9);
    EXPECT_EQ(small.lfWeight, 400);
    EXPECT_EQ(small.lfQuality, 0);
    const LOGFONTW button = Describe(skin.Font(SkinFont::kButton));
    EXPECT_EQ(button.lfHeight, -9);
    EXPECT_EQ(button.lfWeight, 400);
    EXPECT_EQ(button.lfQuality, 3);
}

TEST_F(SkinTest, FileNameIsJoinedWithoutASeparator) {
    folder_.WriteIni("[Dialdeck]\r\nBgrColor=0,0,255\r\n");
    Skin skin(folder_.Folder(), nullptr);
    skin.LoadSkinFile();
    EXPECT_EQ(skin.Colours().background, RGB(0, 0, 255));
}

TEST_F(SkinTest, ShortColourKeepsTheDefault) {
    folder_.WriteIni("[Dialdeck]\nBgrColor=0,0\nTxtColor=1,2,3\n");
    Skin skin(folder_.Folder(), nullptr);
    skin.LoadSkinFile();
    EXPECT_EQ(skin.Colours().background, 0x50463Bu);
    EXPECT_EQ(skin.Colours().text, RGB(1, 2, 3));
}

TEST_F(SkinTest, SectionInOtherCaseIsIgnored) {
    folder_.WriteIni("[dialdeck]\nBgrColor=0,0,255\nFontText=20,Arial,1\n");
    Skin skin(folder_.Folder(), nullptr);
    skin.LoadSkinFile();
    EXPECT_EQ(skin.Colours().background, 0x50463Bu);
    EXPECT_EQ(Describe(skin.Font(SkinFont::kText)).lfHeight, -11);
}

TEST_F(SkinTest, EmptySkinFileGivesTheDefaults) {
    folder_.WriteIni("");
    Skin skin(folder_.Folder(), nullptr);
    skin.LoadSkinFile();
    EXPECT_EQ(skin.Colours().background, 0x50463Bu);
    EXPECT_NE(skin.Font(SkinFont::kButton), nullptr);
}

struct FontCase {
    const char* line;
    const wchar_t* face;
    LONG height;
    LONG weight;
    BYTE italic;
    BYTE quality;
};

class SkinFontTest : public SkinTest, public ::testing::WithParamInterface<FontCase> {};

TEST_P(SkinFontTest, ReadsTheDescription) {
    folder_.WriteIni(std::string("[Dialdeck]\n") + GetParam().line + "\n");
    Skin skin(folder_.Folder(), nullptr);
    skin.LoadSkinFile();
    const LOGFONTW lf = Describe(skin.Font(SkinFont::kText));
    EXPECT_EQ(std::wstring(lf.lfFaceName), GetParam().face);
    EXPECT_EQ(lf.lfHeight, GetParam().height);
    EXPECT_EQ(lf.lfWeight, GetParam().weight);
    EXPECT_EQ(lf.lfItalic, GetParam().italic);
    EXPECT_EQ(lf.lfQuality, GetParam().quality);
    EXPECT_EQ(lf.lfUnderline, 0);
    EXPECT_EQ(lf.lfStrikeOut, 0);
}

INSTANTIATE_TEST_SUITE_P(
    Fonts, SkinFontTest,
    ::testing::Values(FontCase{"FontText=9", L"Tahoma", -12, 400, 0, 0},
                      FontCase{"FontText=9,Arial,1,0,1", L"Arial", -12, 700, 0, 5},
                      FontCase{"FontText=9,,2", L"Tahoma", -12, 600, 0, 0},
                      FontCase{"FontText=10,Courier New,0,1", L"Courier New", -13, 400, 1, 0}));

TEST_F(SkinTest, FontsFollowTheScreenResolution) {
    SetScreen(ComputeScreenInfo(192, 192, 480, 640));
    Skin skin(folder_.Folder(), nullptr);
    skin.LoadSkinFile();
    EXPECT_EQ(Describe(skin.Font(SkinFont::kText)).lfHeight, -21);
}

TEST_F(SkinTest, BitmapFromTheSkinFolderFirst) {
    folder_.CopyBitmap(ArtFile("scroll"), L"big_btn_text");
    HMODULE library = LoadResources();
    ASSERT_NE(library, nullptr);
    Skin skin(folder_.Folder(), library);
    {
        const gdi::Object<HBITMAP> fromFolder = skin.LoadSkinBitmap(106, u"big_btn_text");
        EXPECT_EQ(Skin::BitmapSize(fromFolder.get()).cx, 6);  // the scroll thumb's, not the face's
        const gdi::Object<HBITMAP> fromLibrary = skin.LoadSkinBitmap(115, u"small_btn_text");
        EXPECT_EQ(Skin::BitmapSize(fromLibrary.get()).cx, 108);
        EXPECT_FALSE(skin.LoadSkinBitmap(9999, u"nothing"));
    }
    FreeLibrary(library);
}

TEST_F(SkinTest, NoLibraryAndNoFileIsNone) {
    Skin skin(folder_.Folder(), nullptr);
    EXPECT_FALSE(skin.LoadSkinBitmap(106, u"big_btn_text"));
}

TEST_F(SkinTest, CellSizeFromAFaceOfOddWidth) {
    // A face of width 161 gives cells 80 wide: the image of the two faces is split in half.
    const std::filesystem::path odd = std::filesystem::temp_directory_path() / L"dd-odd.bmp";
    {
        HDC screen = GetDC(nullptr);
        HBITMAP bitmap = CreateCompatibleBitmap(screen, 161, 50);
        ReleaseDC(nullptr, screen);
        BITMAPINFOHEADER header{sizeof header, 161, 50, 1, 24, BI_RGB, 0, 0, 0, 0, 0};
        const int stride = (161 * 3 + 3) & ~3;
        std::vector<char> bits(static_cast<size_t>(stride) * 50, 0x40);
        BITMAPFILEHEADER file{
            0x4D42, static_cast<DWORD>(sizeof(BITMAPFILEHEADER) + sizeof header + bits.size()), 0,
            0, sizeof(BITMAPFILEHEADER) + sizeof header};
        std::ofstream out(odd, std::ios::binary);
        out.write(reinterpret_cast<const char*>(&file), sizeof file);
        out.write(reinterpret_cast<const char*>(&header), sizeof header);
        out.write(bits.data(), static_cast<std::streamsize>(bits.size()));
        DeleteObject(bitmap);
    }
    folder_.CopyBitmap(odd.string(), L"big_btn_text");
    std::filesystem::remove(odd);
    Skin skin(folder_.Folder(), nullptr);
    ASSERT_TRUE(skin.SetBigButtons(true));
    EXPECT_EQ(skin.CellWidth(), 80);
    EXPECT_EQ(skin.CellHeight(), 50);
}

TEST_F(SkinTest, SwitchingSizeStoresItAndReloads) {
    HMODULE library = LoadResources();
    Skin skin(folder_.Folder(), library);
    EXPECT_EQ(skin.BigButtons(), -1);
    ASSERT_TRUE(skin.SetBigButtons(false));
    EXPECT_EQ(settings::Read(settings::kBigButtons), 0u);
    EXPECT_EQ(skin.CellWidth(), 54);
    EXPECT_EQ(skin.CellHeight(), 48);
    for (int art = 0; art < 4; ++art) {
        EXPECT_NE(skin.Button(static_cast<ButtonArt>(art)), nullptr) << art;
    }
    ASSERT_TRUE(skin.SetBigButtons(true));
    EXPECT_EQ(settings::Read(settings::kBigButtons), 1u);
    EXPECT_EQ(skin.CellWidth(), 74);
    EXPECT_EQ(skin.CellHeight(), 80);
    FreeLibrary(library);
}

TEST_F(SkinTest, SwitchingToTheCurrentSizeWritesAndLoadsNothing) {
    HMODULE library = LoadResources();
    Skin skin(folder_.Folder(), library);
    ASSERT_TRUE(skin.SetBigButtons(true));
    HBITMAP face = skin.Button(ButtonArt::kFace);
    {
        registry::KeyHolder key(registry::Create(kSettingsPath));
        registry::DeleteValue(key.get(), u"DdBigBtn");
    }
    EXPECT_FALSE(skin.SetBigButtons(true));
    EXPECT_EQ(skin.Button(ButtonArt::kFace), face);
    EXPECT_EQ(settings::Read({u"DdBigBtn", 77}), 77u);  // nothing was written
    FreeLibrary(library);
}

class SkinDrawingTest : public ::testing::Test {
  protected:
    void SetUp() override {
        dc_ = CreateCompatibleDC(nullptr);
        LOGFONTW lf{};
        lf.lfHeight = -11;
        lstrcpyW(lf.lfFaceName, L"Tahoma");
        font_ = CreateFontIndirectW(&lf);
        old_ = SelectObject(dc_, font_);
    }
    void TearDown() override {
        SelectObject(dc_, old_);
        DeleteObject(font_);
        DeleteDC(dc_);
    }
    int Width(const Str& text) {
        SIZE size{};
        GetTextExtentPoint32W(dc_, W(text.c_str()), text.Length(), &size);
        return size.cx;
    }
    HDC dc_ = nullptr;
    HFONT font_ = nullptr;
    HGDIOBJ old_ = nullptr;
};

TEST_F(SkinDrawingTest, FitTextLeavesAFittingText) {
    Str text(u"Anna");
    EXPECT_FALSE(Skin::FitText(text, Width(text), dc_));
    EXPECT_EQ(text, Str(u"Anna"));
}

TEST_F(SkinDrawingTest, FitTextKeepsOneCharacterLessThanWouldFit) {
    Str text(u"Margarethe Vanderbilt");
    const int dots = Width(Str(u"..."));
    const int maxWidth = Width(Str(u"Margaret")) + dots;  // "Margaret..." would just fit
    ASSERT_TRUE(Skin::FitText(text, maxWidth, dc_));
    EXPECT_EQ(text, Str(u"Margare..."));
}

TEST_F(SkinDrawingTest, FitTextWithNoRoomKeepsTheFirstCharacter) {
    Str text(u"Margarethe");
    ASSERT_TRUE(Skin::FitText(text, 1, dc_));
    EXPECT_EQ(text, Str(u"M"));
}

TEST_F(SkinDrawingTest, FontHeightOfA) {
    EXPECT_GT(Skin::GetFontHeight(font_), 8);
    EXPECT_LT(Skin::GetFontHeight(font_), 20);
}

TEST_F(SkinDrawingTest, TileBitmapCoversTheRectangleClippingTheLastTiles) {
    HDC screen = GetDC(nullptr);
    HBITMAP tile = CreateCompatibleBitmap(screen, 3, 2);
    HBITMAP target = CreateCompatibleBitmap(screen, 20, 20);
    ReleaseDC(nullptr, screen);
    {
        HDC t = CreateCompatibleDC(nullptr);
        HGDIOBJ o = SelectObject(t, tile);
        for (int x = 0; x < 3; ++x) {
            for (int y = 0; y < 2; ++y)
                SetPixel(t, x, y, RGB(10 * x, 100 + y, 7));
        }
        SelectObject(t, o);
        DeleteDC(t);
    }
    HGDIOBJ old = SelectObject(dc_, target);
    RECT fill{0, 0, 20, 20};
    FillRect(dc_, &fill, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    RECT rect{2, 3, 10, 8};
    EXPECT_TRUE(Skin::TileBitmap(dc_, tile, rect));
    for (int y = 3; y < 8; ++y) {
        for (int x = 2; x < 10; ++x) {
            EXPECT_EQ(GetPixel(dc_, x, y), RGB(10 * ((x - 2) % 3), 100 + (y - 3) % 2, 7));
        }
    }
    EXPECT_EQ(GetPixel(dc_, 10, 3), RGB(255, 255, 255));
    EXPECT_EQ(GetPixel(dc_, 2, 8), RGB(255, 255, 255));
    RECT empty{5, 5, 5, 5};
    EXPECT_TRUE(Skin::TileBitmap(dc_, tile, empty));
    EXPECT_FALSE(Skin::TileBitmap(dc_, nullptr, rect));
    SelectObject(dc_, old);
    DeleteObject(tile);
    DeleteObject(target);
}

TEST_F(SkinDrawingTest, TransparentDrawingLeavesMagentaOut) {
    HDC screen = GetDC(nullptr);
    HBITMAP source = CreateCompatibleBitmap(screen, 2, 1);
    HBITMAP target = CreateCompatibleBitmap(screen, 4, 1);
    ReleaseDC(nullptr, screen);
    HDC s = CreateCompatibleDC(nullptr);
    HGDIOBJ so = SelectObject(s, source);
    SetPixel(s, 0, 0, kTransparentKey);
    SetPixel(s, 1, 0, RGB(1, 2, 3));
    SelectObject(s, so);
    DeleteDC(s);
    HGDIOBJ old = SelectObject(dc_, target);
    RECT all{0, 0, 4, 1};
    FillRect(dc_, &all, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    Skin::DrawTransparent(dc_, 1, 0, source, 0, 0, 2, 1);
    EXPECT_EQ(GetPixel(dc_, 1, 0), RGB(255, 255, 255));
    EXPECT_EQ(GetPixel(dc_, 2, 0), RGB(1, 2, 3));
    SelectObject(dc_, old);
    DeleteObject(source);
    DeleteObject(target);
}

}  // namespace
