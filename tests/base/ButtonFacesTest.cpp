#include "base/ButtonFaces.h"

#include <gtest/gtest.h>

namespace {

TEST(ButtonFacesTest, SourcePointFollowsPressedThenEnabled) {
    ButtonCell cell;
    cell.normal = Point{0, 0};
    cell.pressed = Point{10, 0};
    cell.disabled = Point{20, 0};
    EXPECT_EQ(CellSourcePoint(cell, false, true), (Point{0, 0}));
    EXPECT_EQ(CellSourcePoint(cell, true, true), (Point{10, 0}));
    EXPECT_EQ(CellSourcePoint(cell, true, false), (Point{10, 0}));
    EXPECT_EQ(CellSourcePoint(cell, false, false), (Point{20, 0}));
}

TEST(ButtonFacesTest, SlicedFaceKeepsCornersAndStretchesOneColumn) {
    // A 56 x 34 picture at (112, 0) over a 120 x 26 key at (120, 294): corners of 8.
    FacePiece pieces[9];
    const Rect cell{112, 0, 168, 34};
    const Rect key{120, 294, 240, 320};
    ASSERT_EQ(SliceFace(cell, key, pieces), 9);
    // Top-left corner at its own size.
    EXPECT_EQ(pieces[0].source, (Rect{112, 0, 120, 8}));
    EXPECT_EQ(pieces[0].target, (Rect{120, 294, 128, 302}));
    // Top edge: the one column just inside the corner, stretched across.
    EXPECT_EQ(pieces[1].source, (Rect{120, 0, 121, 8}));
    EXPECT_EQ(pieces[1].target, (Rect{128, 294, 232, 302}));
    // Middle: the same column, its middle rows squeezed into the key's middle rows.
    EXPECT_EQ(pieces[4].source, (Rect{120, 8, 121, 26}));
    EXPECT_EQ(pieces[4].target, (Rect{128, 302, 232, 312}));
    // Bottom-right corner.
    EXPECT_EQ(pieces[8].source, (Rect{160, 26, 168, 34}));
    EXPECT_EQ(pieces[8].target, (Rect{232, 312, 240, 320}));
    // Nothing is copied from the picture's middle, where its glyph is.
    for (const FacePiece& p : pieces) {
        const bool leftRim = p.source.right <= 121;
        const bool rightRim = p.source.left >= 160;
        EXPECT_TRUE(leftRim || rightRim);
    }
}

TEST(ButtonFacesTest, SmallTargetShrinksCorners) {
    FacePiece pieces[9];
    const int32_t n = SliceFace(Rect{0, 0, 56, 34}, Rect{0, 0, 12, 7}, pieces);
    ASSERT_EQ(n, 9);
    EXPECT_EQ(pieces[0].target, (Rect{0, 0, 3, 3}));
    EXPECT_EQ(pieces[8].target, (Rect{9, 4, 12, 7}));
    EXPECT_EQ(pieces[8].source, (Rect{53, 31, 56, 34}));
}

TEST(ButtonFacesTest, EmptyPictureOrTargetGivesNoPieces) {
    FacePiece pieces[9];
    EXPECT_EQ(SliceFace(Rect{}, Rect{0, 0, 100, 26}, pieces), 0);
    EXPECT_EQ(SliceFace(Rect{0, 0, 56, 34}, Rect{}, pieces), 0);
}

TEST(ButtonFacesTest, TwoKeysShareTheStripTheLastTakingTheRest) {
    const Rect strip{0, 294, 241, 320};
    EXPECT_EQ(StripKeyRect(0, 2, strip), (Rect{0, 294, 120, 320}));
    EXPECT_EQ(StripKeyRect(1, 2, strip), (Rect{120, 294, 241, 320}));
    EXPECT_EQ(StripKeyRect(0, 1, strip), strip);
    EXPECT_EQ(StripKeyRect(2, 2, strip), Rect{});
    EXPECT_EQ(StripKeyRect(0, 0, strip), Rect{});
}

}  // namespace
