#include "base/PhotoFit.h"

#include <gtest/gtest.h>

namespace {

struct FitCase {
    int mode;
    int boxWidth;
    int boxHeight;
    int width;
    int height;
    int fittedWidth;
    int fittedHeight;
};

TEST(PhotoFitTest, FitsByMode) {
    const FitCase cases[] = {
        {kFitCover, 60, 60, 100, 50, 120, 60},
        {kFitInside, 60, 60, 100, 50, 60, 30},
        {kFitCover, 60, 60, 50, 100, 60, 120},
        {kFitInside, 60, 60, 50, 100, 30, 60},
        {kFitCover, 64, 48, 640, 480, 64, 48},
        {kFitInside, 100, 100, 3, 2, 100, 67},  // 2 * 100 / 3 = 66.67 rounds to 67
        {kFitCover, 100, 100, 2, 3, 100, 150},
        {kFitInside, 10, 10, 1, 3, 3, 10},  // 1 * 10 / 3 = 3.33 rounds to 3
        {kFitInside, 10, 10, 1, 4, 3, 10},  // 2.5 rounds away from zero
        {0, 60, 60, 100, 50, 100, 50},
        {3, 60, 60, 100, 50, 100, 50},
    };
    for (const FitCase& c : cases) {
        int width = c.width;
        int height = c.height;
        FitSize(c.mode, c.boxWidth, c.boxHeight, width, height);
        EXPECT_EQ(width, c.fittedWidth) << c.mode << " " << c.width << "x" << c.height;
        EXPECT_EQ(height, c.fittedHeight) << c.mode << " " << c.width << "x" << c.height;
    }
}

TEST(PhotoFitTest, MulDivRoundsToNearest) {
    EXPECT_EQ(MulDivRound(10, 3, 4), 8);  // 7.5
    EXPECT_EQ(MulDivRound(10, 1, 4), 3);  // 2.5
    EXPECT_EQ(MulDivRound(-10, 1, 4), -3);
    EXPECT_EQ(MulDivRound(10, 1, -4), -3);
    EXPECT_EQ(MulDivRound(7, 1, 3), 2);
    EXPECT_EQ(MulDivRound(1, 1, 0), -1);
    EXPECT_EQ(MulDivRound(0x40000000, 8, 2), -1);  // does not fit
}

TEST(PhotoFitTest, ANegativeWidthProductTakesTheBoxWidth) {
    int width = 100;
    int height = 0;  // MulDiv by zero gives -1
    FitSize(kFitCover, 60, 60, width, height);
    EXPECT_EQ(width, 60);
    EXPECT_EQ(height, 0);
}

}  // namespace
