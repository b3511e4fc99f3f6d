#include "skin/PanelGeometry.h"

#include <gtest/gtest.h>

namespace {

TEST(PanelGeometryTest, PortraitSixAndFourColumns) {
    PanelButtonArt b[4];
    PanelButtonsFromImages(false, 240, 36, 160, 36, b);
    EXPECT_EQ(b[0].width, 40);  // a 240-wide first image gives 40-wide Prev and Next
    EXPECT_EQ(b[1].width, 40);
    EXPECT_EQ(b[0].height, 36);
    EXPECT_EQ(b[0].normal, (Point{0, 0}));
    EXPECT_EQ(b[1].normal, (Point{40, 0}));
    EXPECT_EQ(b[0].pressed, (Point{80, 0}));
    EXPECT_EQ(b[1].pressed, (Point{120, 0}));
    EXPECT_EQ(b[0].disabled, (Point{160, 0}));
    EXPECT_EQ(b[1].disabled, (Point{200, 0}));
    EXPECT_EQ(b[2].width, 40);
    EXPECT_EQ(b[2].normal, (Point{0, 0}));
    EXPECT_EQ(b[3].normal, (Point{40, 0}));
    EXPECT_EQ(b[2].pressed, (Point{80, 0}));
    EXPECT_EQ(b[3].pressed, (Point{120, 0}));
}

TEST(PanelGeometryTest, LandscapeSixAndFourRows) {
    PanelButtonArt b[4];
    PanelButtonsFromImages(true, 40, 216, 40, 144, b);
    EXPECT_EQ(b[0].width, 40);
    EXPECT_EQ(b[0].height, 36);
    EXPECT_EQ(b[1].normal, (Point{0, 36}));
    EXPECT_EQ(b[0].pressed, (Point{0, 72}));
    EXPECT_EQ(b[1].disabled, (Point{0, 180}));
    EXPECT_EQ(b[3].height, 36);
    EXPECT_EQ(b[3].pressed, (Point{0, 108}));
}

TEST(PanelGeometryTest, PortraitRectsFromBothEnds) {
    PanelButtonArt b[4];
    PanelButtonsFromImages(false, 240, 36, 160, 36, b);
    Rect client{0, 0, 320, 36};
    EXPECT_EQ(PanelButtonRect(0, client, false, b), (Rect{0, 0, 40, 36}));
    EXPECT_EQ(PanelButtonRect(1, client, false, b), (Rect{40, 0, 80, 36}));
    EXPECT_EQ(PanelButtonRect(2, client, false, b), (Rect{240, 0, 280, 36}));
    EXPECT_EQ(PanelButtonRect(3, client, false, b), (Rect{280, 0, 320, 36}));
}

TEST(PanelGeometryTest, LandscapeRectsFromBothEnds) {
    PanelButtonArt b[4];
    PanelButtonsFromImages(true, 40, 216, 40, 144, b);
    Rect client{0, 0, 40, 214};
    EXPECT_EQ(PanelButtonRect(0, client, true, b), (Rect{0, 0, 40, 36}));
    EXPECT_EQ(PanelButtonRect(1, client, true, b), (Rect{0, 36, 40, 72}));
    EXPECT_EQ(PanelButtonRect(2, client, true, b), (Rect{0, 142, 40, 178}));
    EXPECT_EQ(PanelButtonRect(3, client, true, b), (Rect{0, 178, 40, 214}));
}

TEST(PanelGeometryTest, SourcePointByState) {
    PanelButtonArt b[4];
    PanelButtonsFromImages(false, 240, 36, 160, 36, b);
    EXPECT_EQ(PanelSourcePoint(b[1], false, true), b[1].normal);
    EXPECT_EQ(PanelSourcePoint(b[1], true, true), b[1].pressed);
    EXPECT_EQ(PanelSourcePoint(b[1], false, false), b[1].disabled);
    EXPECT_EQ(PanelSourcePoint(b[1], true, false), b[1].pressed);
}

TEST(PanelGeometryTest, EmptyImagesGiveEmptyButtons) {
    PanelButtonArt b[4];
    PanelButtonsFromImages(false, 0, 0, 0, 0, b);
    for (const PanelButtonArt& art : b) {
        EXPECT_EQ(art.width, 0);
        EXPECT_EQ(art.height, 0);
    }
    Rect r = PanelButtonRect(3, Rect{0, 0, 240, 0}, false, b);
    EXPECT_FALSE(r.Contains(239, 0));
}

TEST(PanelGeometryTest, ThicknessIsTheLarger) {
    EXPECT_EQ(PanelThickness(36, 40), 40);
    EXPECT_EQ(PanelThickness(40, 36), 40);
}

TEST(PanelGeometryTest, CommandsAndCaptions) {
    EXPECT_EQ(kPanelCommands[0], 101u);
    EXPECT_EQ(kPanelCommands[3], 104u);
    EXPECT_EQ(kPanelCaptions[0], 129u);
    EXPECT_EQ(kPanelCaptions[3], 132u);
    EXPECT_EQ(kPanelCommands[kPanelMenuButton], 103u);
}

}  // namespace
