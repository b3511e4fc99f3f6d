// Checks the rendered skin art in res/: every named bitmap at both resolutions, the layouts the
// painters rely on, transparency without tinted fringes, and the grids the sizes give.
#include <gtest/gtest.h>

#include <cstdint>
#include <fstream>
#include <string>
#include <vector>

#include "skin/IniFile.h"
#include "skin/PanelGeometry.h"
#include "view/BoardGeometry.h"

namespace {

struct Rgb {
    uint8_t r, g, b;
    bool IsKey() const { return r == 255 && g == 0 && b == 255; }
};

struct Image {
    int width = 0;
    int height = 0;
    std::vector<Rgb> pixels;  // top row first
    const Rgb& At(int x, int y) const { return pixels[static_cast<size_t>(y) * width + x]; }
};

uint32_t U32(const std::vector<uint8_t>& d, size_t at) {
    return d[at] | d[at + 1] << 8 | d[at + 2] << 16 | static_cast<uint32_t>(d[at + 3]) << 24;
}

bool ReadFileBytes(const std::string& path, std::vector<uint8_t>& out) {
    std::ifstream in(path, std::ios::binary);
    if (!in)
        return false;
    out.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    return true;
}

/// Reads an uncompressed bottom-up 24-bit BMP; false for anything else.
bool ReadBmp(const std::string& path, Image& image) {
    std::vector<uint8_t> d;
    if (!ReadFileBytes(path, d) || d.size() < 54 || d[0] != 'B' || d[1] != 'M')
        return false;
    const uint32_t offset = U32(d, 10);
    image.width = static_cast<int>(U32(d, 18));
    image.height = static_cast<int>(U32(d, 22));
    const int bits = d[28] | d[29] << 8;
    if (bits != 24 || U32(d, 30) != 0 || image.width <= 0 || image.height <= 0)
        return false;
    const size_t stride = (static_cast<size_t>(image.width) * 3 + 3) & ~size_t{3};
    if (offset + stride * image.height > d.size())
        return false;
    image.pixels.resize(static_cast<size_t>(image.width) * image.height);
    for (int y = 0; y < image.height; ++y) {
        const uint8_t* row = &d[offset + stride * (image.height - 1 - y)];
        for (int x = 0; x < image.width; ++x) {
            image.pixels[static_cast<size_t>(y) * image.width + x] =
                Rgb{row[x * 3 + 2], row[x * 3 + 1], row[x * 3]};
        }
    }
    return true;
}

const char* const kNames[] = {"btn_number_frame",
                              "list_unselect_bgr",
                              "list_select_bgr",
                              "list_void_bgr",
                              "scroll",
                              "sms_bgr",
                              "small_btn_text",
                              "big_btn_text",
                              "small_btn_add",
                              "big_btn_add",
                              "small_photo_frame",
                              "big_photo_frame",
                              "small_active_frame",
                              "big_active_frame",
                              "l_panel_1",
                              "p_panel_1",
                              "l_panel_2",
                              "p_panel_2"};

std::string ArtPath(int dpi, const std::string& name) {
    return std::string(DD_RES_DIR) + "/art/" + std::to_string(dpi) + "/" + name + ".bmp";
}

Image Load(int dpi, const std::string& name) {
    Image image;
    EXPECT_TRUE(ReadBmp(ArtPath(dpi, name), image)) << ArtPath(dpi, name);
    return image;
}

class SkinArtTest : public ::testing::TestWithParam<int> {
  protected:
    int Dpi() const { return GetParam(); }
    int K() const { return GetParam() / 96; }
};

TEST_P(SkinArtTest, EveryNamedBitmapIsThere) {
    for (const char* name : kNames) {
        Image image;
        EXPECT_TRUE(ReadBmp(ArtPath(Dpi(), name), image)) << name;
    }
}

TEST_P(SkinArtTest, NoMagentaTintedFringe) {
    for (const char* name : kNames) {
        Image image = Load(Dpi(), name);
        for (int y = 0; y < image.height; ++y) {
            for (int x = 0; x < image.width; ++x) {
                const Rgb& p = image.At(x, y);
                if (p.IsKey())
                    continue;
                // A blend of magenta into anything raises red and blue together over green.
                const bool tinted = p.r > p.g + 40 && p.b > p.g + 40;
                ASSERT_FALSE(tinted) << name << " at " << x << "," << y;
            }
        }
    }
}

TEST_P(SkinArtTest, FacesHoldTwoEqualHalvesAndGiveTheDesignedGrids) {
    struct Size {
        const char* face;
        int w, h;
    };
    const Size sizes[] = {{"big_btn_text", 148, 80}, {"small_btn_text", 108, 48}};
    for (const Size& s : sizes) {
        Image face = Load(Dpi(), s.face);
        EXPECT_EQ(face.width, s.w * K()) << s.face;
        EXPECT_EQ(face.height, s.h * K()) << s.face;
        EXPECT_EQ(face.width % 2, 0) << s.face;
        // The corners are transparent, the middle of each half is not.
        EXPECT_TRUE(face.At(0, 0).IsKey());
        EXPECT_TRUE(face.At(face.width / 2, 0).IsKey());
        EXPECT_FALSE(face.At(face.width / 4, face.height / 2).IsKey());
        EXPECT_FALSE(face.At(face.width * 3 / 4, face.height / 2).IsKey());
    }
    for (const char* name : {"big_btn_add", "big_photo_frame"}) {
        EXPECT_EQ(Load(Dpi(), name).width, 148 * K()) << name;
    }
    for (const char* name : {"small_btn_add", "small_photo_frame"}) {
        EXPECT_EQ(Load(Dpi(), name).width, 108 * K()) << name;
    }
}

TEST_P(SkinArtTest, PressedFaceDiffersVisibly) {
    Image face = Load(Dpi(), "big_btn_text");
    const Rgb& normal = face.At(face.width / 4, face.height / 2);
    const Rgb& pressed = face.At(face.width * 3 / 4, face.height / 2);
    const int difference = std::abs(normal.r - pressed.r) + std::abs(normal.g - pressed.g) +
                           std::abs(normal.b - pressed.b);
    EXPECT_GT(difference, 150);
}

TEST_P(SkinArtTest, PhotoFrameShowsThePhotoAndHidesTheCorners) {
    for (const char* name : {"big_photo_frame", "small_photo_frame"}) {
        Image frame = Load(Dpi(), name);
        const int half = frame.width / 2;
        for (int h = 0; h < 2; ++h) {
            EXPECT_TRUE(frame.At(h * half + half / 2, frame.height / 2).IsKey()) << name;
            EXPECT_FALSE(frame.At(h * half, 0).IsKey()) << name;
        }
    }
}

TEST_P(SkinArtTest, SelectionFrameSurroundsTheCell) {
    Image big = Load(Dpi(), "big_active_frame");
    EXPECT_EQ(big.width, (74 + 4) * K());
    EXPECT_EQ(big.height, (80 + 4) * K());
    EXPECT_TRUE(big.At(big.width / 2, big.height / 2).IsKey());
    EXPECT_FALSE(big.At(big.width / 2, K()).IsKey());
    Image small = Load(Dpi(), "small_active_frame");
    EXPECT_EQ(small.width, (54 + 4) * K());
    EXPECT_EQ(small.height, (48 + 4) * K());
}

TEST_P(SkinArtTest, NumberFrameFitsInTheSmallCell) {
    Image frame = Load(Dpi(), "btn_number_frame");
    EXPECT_LE(frame.width, 54 * K());
    EXPECT_LE(frame.height, 48 * K());
    EXPECT_FALSE(frame.At(frame.width / 2, frame.height / 2).IsKey());
    EXPECT_TRUE(frame.At(0, 0).IsKey());
}

TEST_P(SkinArtTest, PanelImagesAreOpaqueAndSplitEvenly) {
    Image p1 = Load(Dpi(), "p_panel_1");
    Image p2 = Load(Dpi(), "p_panel_2");
    Image l1 = Load(Dpi(), "l_panel_1");
    Image l2 = Load(Dpi(), "l_panel_2");
    EXPECT_EQ(p1.width % 6, 0);
    EXPECT_EQ(p2.width % 4, 0);
    EXPECT_EQ(l1.height % 6, 0);
    EXPECT_EQ(l2.height % 4, 0);
    EXPECT_EQ(p1.width / 6, p2.width / 4);
    EXPECT_EQ(l1.height / 6, l2.height / 4);
    for (const Image* image : {&p1, &p2, &l1, &l2}) {
        for (const Rgb& p : image->pixels)
            ASSERT_FALSE(p.IsKey());
    }
    // Four portrait keys fit the narrowest screen.
    EXPECT_LE(4 * p1.width / 6, 240 * K());
}

INSTANTIATE_TEST_SUITE_P(Resolutions, SkinArtTest, ::testing::Values(96, 192));

struct GridCase {
    int width, height, dpi;
    bool big;
    int cols, rows;
};

class SkinArtGridTest : public ::testing::TestWithParam<GridCase> {};

TEST_P(SkinArtGridTest, ProfilesGetSensibleGrids) {
    const GridCase& c = GetParam();
    const int k = c.dpi / 96;
    const int bar = (26 * c.dpi + 48) / 96;
    const bool landscape = IsLandscape(c.width, c.height);
    Image face = Load(c.dpi, c.big ? "big_btn_text" : "small_btn_text");
    Image p1 = Load(c.dpi, landscape ? "l_panel_1" : "p_panel_1");
    Image p2 = Load(c.dpi, landscape ? "l_panel_2" : "p_panel_2");
    PanelPlacement placed =
        PlacePanel(Rect{0, 0, c.width, c.height - bar}, landscape,
                   PanelThickness(p1.width, p2.width), PanelThickness(p1.height, p2.height));
    BoardGeometry g;
    g.Layout(placed.usableWidth, placed.usableHeight, face.width / 2, face.height, 0);
    EXPECT_EQ(g.Cols(), c.cols);
    EXPECT_EQ(g.Rows(), c.rows);
    (void)k;
}

INSTANTIATE_TEST_SUITE_P(
    Profiles, SkinArtGridTest,
    ::testing::Values(GridCase{240, 320, 96, true, 3, 3}, GridCase{240, 320, 96, false, 4, 5},
                      GridCase{480, 640, 192, true, 3, 3}, GridCase{480, 640, 192, false, 4, 5},
                      GridCase{320, 240, 96, true, 3, 2}, GridCase{320, 240, 96, false, 5, 4},
                      GridCase{320, 320, 96, true, 4, 3}, GridCase{320, 320, 96, false, 5, 4},
                      GridCase{480, 800, 192, true, 3, 4}, GridCase{480, 800, 192, false, 4, 6}));

TEST(SkinArtSampleTest, SampleSkinDescriptionSitsBesideItsFolder) {
    std::vector<uint8_t> bytes;
    const std::string root = std::string(DD_RES_DIR) + "/sample-skin/";
    ASSERT_TRUE(ReadFileBytes(root + "DialdeckSkinskin.ini", bytes));
    IniFile ini;
    ini.Parse(bytes.data(), bytes.size());
    const int section = ini.FindSection(u"Dialdeck");
    ASSERT_GE(section, 0);
    uint32_t colour = 0;
    EXPECT_TRUE(ini.GetColor(section, u"BgrColor", colour));
    EXPECT_NE(colour, 0x50463Bu);
    Image face;
    EXPECT_TRUE(ReadBmp(root + "DialdeckSkin/big_btn_text.bmp", face));
}

}  // namespace
