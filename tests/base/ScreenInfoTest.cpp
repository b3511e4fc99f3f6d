#include "base/ScreenInfo.h"

#include <gtest/gtest.h>

namespace {

struct ScreenCase {
    int dpiX, dpiY, width, height;
    int hiRes, square, wide;
};

class ScreenInfoCases : public ::testing::TestWithParam<ScreenCase> {};

TEST_P(ScreenInfoCases, FlagsFollowTheScreen) {
    const ScreenCase& c = GetParam();
    ScreenInfo info = ComputeScreenInfo(c.dpiX, c.dpiY, c.width, c.height);
    EXPECT_EQ(info.dpiX, c.dpiX);
    EXPECT_EQ(info.dpiY, c.dpiY);
    EXPECT_EQ(info.hiRes, c.hiRes);
    EXPECT_EQ(info.square, c.square);
    EXPECT_EQ(info.wide, c.wide);
}

INSTANTIATE_TEST_SUITE_P(
    Screens, ScreenInfoCases,
    ::testing::Values(ScreenCase{192, 192, 480, 640, 1, 0, 0},  // the default profile
                      ScreenCase{96, 96, 240, 320, 0, 0, 0}, ScreenCase{96, 96, 320, 240, 0, 0, 0},
                      ScreenCase{131, 131, 240, 320, 0, 0, 0},  // 131 is not above 131
                      ScreenCase{132, 96, 240, 320, 1, 0, 0},   // either axis counts
                      ScreenCase{96, 132, 240, 320, 1, 0, 0},
                      ScreenCase{96, 96, 320, 320, 0, 1, 0},  // square, never wide
                      ScreenCase{192, 192, 320, 320, 1, 1, 0},
                      ScreenCase{96, 96, 240, 400, 0, 0, 1}, ScreenCase{96, 96, 400, 240, 0, 0, 1},
                      ScreenCase{192, 192, 480, 800, 1, 0, 1},
                      ScreenCase{192, 192, 800, 480, 1, 0, 1},
                      ScreenCase{96, 96, 320, 400, 0, 0, 1}, ScreenCase{96, 96, 401, 799, 0, 0, 0},
                      ScreenCase{96, 96, 320, 321, 0, 0, 0}));

TEST(ScreenInfoTest, BarHeightIs26Scaled) {
    EXPECT_EQ(BarHeightAt(96), 26);
    EXPECT_EQ(BarHeightAt(192), 52);
    EXPECT_EQ(BarHeightAt(131), (26 * 131 + 48) / 96);
    EXPECT_EQ(BarHeightAt(131), 35);
    EXPECT_EQ(BarHeightAt(128), 35);
}

TEST(ScreenInfoTest, LengthsScaleWithRoundingInIntegers) {
    EXPECT_EQ(ScaleLength(10, 96), 10);
    EXPECT_EQ(ScaleLength(10, 192), 20);
    EXPECT_EQ(ScaleLength(1, 144), 2);  // (144 + 48) / 96 = 2
    EXPECT_EQ(ScaleLength(1, 143), 1);  // (143 + 48) / 96 = 1
    EXPECT_EQ(ScaleLength(0, 192), 0);
    EXPECT_EQ(ScaleLength(7, 131), 10);  // (917 + 48) / 96 = 10
}

TEST(ScreenInfoTest, ProcessWideRecordScalesEachAxisWithItsOwnDpi) {
    ScreenInfo saved = Screen();
    SetScreen(ComputeScreenInfo(96, 192, 480, 640));
    EXPECT_EQ(ScaleX(26), 26);
    EXPECT_EQ(ScaleY(26), 52);
    EXPECT_EQ(BarHeight(), 52);
    SetScreen(saved);
}

}  // namespace
