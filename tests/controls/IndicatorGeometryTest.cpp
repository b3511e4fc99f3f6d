// The scroll indicator's arithmetic: the overlay thumb (its top, its squeeze past the ends, the
// position a press asks for), the classic bar (track, thumb length and top, parts, drags), the
// overlay's alpha through the fade, and the three-band stretch of the thumb bitmap.
#include "controls/IndicatorGeometry.h"

#include <gtest/gtest.h>

namespace flick {
namespace {

// 40 rows of 30 in a 600-pixel view: maximum 1199, page 600, positions 0..600.
ScrollRange Range(int position) {
    return ScrollRange{0, 1199, 600, position};
}

TEST(IndicatorGeometryTest, LastPosition) {
    EXPECT_EQ(LastPosition(Range(0)), 600);
    EXPECT_EQ(LastPosition(ScrollRange{0, 119, 120, 0}), 0);
    EXPECT_EQ(LastPosition(ScrollRange{0, 0, 0, 0}), 1);
}

TEST(IndicatorGeometryTest, OverlayThumbTopFollowsThePosition) {
    // top = position * (600 - 60) / (1199 - 600)
    EXPECT_EQ(OverlayThumb(Range(0), 0, 600, 60).top, 0);
    EXPECT_EQ(OverlayThumb(Range(0), 0, 600, 60).length, 60);
    EXPECT_EQ(OverlayThumb(Range(300), 0, 600, 60).top, 300 * 540 / 599);
    EXPECT_EQ(OverlayThumb(Range(599), 0, 600, 60).top, 540);
    EXPECT_EQ(OverlayThumb(Range(600), 0, 600, 60).top, 540);  // kept inside the track
    EXPECT_EQ(OverlayThumb(Range(300), 10, 600, 60).top, 10 + 300 * 540 / 599);
}

TEST(IndicatorGeometryTest, OverlayThumbSqueezesDuringOverscroll) {
    Thumb top = OverlayThumb(Range(-150), 0, 600, 60);
    EXPECT_EQ(top.top, 0);
    EXPECT_EQ(top.length, 60 - 60 * 150 / 600);  // 45
    Thumb end = OverlayThumb(Range(750), 0, 600, 60);
    EXPECT_EQ(end.length, 45);
    EXPECT_EQ(end.top, 600 - 45);
    // Never below two of its three bands.
    EXPECT_EQ(OverlayThumb(Range(-2000), 0, 600, 60).length, 40);
    EXPECT_LT(OverlayThumb(Range(-300), 0, 600, 60).length,
              OverlayThumb(Range(-100), 0, 600, 60).length);
}

TEST(IndicatorGeometryTest, OverlayThumbOfAListThatFits) {
    Thumb thumb = OverlayThumb(ScrollRange{0, 119, 120, 0}, 0, 200, 30);
    EXPECT_EQ(thumb.top, 0);
    EXPECT_EQ(thumb.length, 30);
    Thumb empty = OverlayThumb(ScrollRange{0, 0, 0, 0}, 0, 200, 30);
    EXPECT_EQ(empty.top, 0);
}

TEST(IndicatorGeometryTest, OverlayPressPositions) {
    // Centre of the thumb under the stylus: (y - 30) * 599 / 540.
    EXPECT_EQ(OverlayPositionAt(Range(0), 300, 30, 0, 600, 60), 270 * 599 / 540);
    EXPECT_EQ(OverlayPositionAt(Range(0), 5, 30, 0, 600, 60), 0);
    EXPECT_EQ(OverlayPositionAt(Range(0), 599, 30, 0, 600, 60), 600);
    // A press on the thumb keeps its grab point.
    EXPECT_EQ(OverlayPositionAt(Range(0), 110, 10, 0, 600, 60), 100 * 599 / 540);
    // Nothing to scroll.
    EXPECT_EQ(OverlayPositionAt(ScrollRange{0, 119, 120, 0}, 100, 15, 0, 200, 30), 0);
}

TEST(IndicatorGeometryTest, ClassicMetricsScale) {
    ClassicMetrics at96 = ScaledClassicMetrics(96, 96);
    EXPECT_EQ(at96.width, 13);
    EXPECT_EQ(at96.arrowHeight, 15);
    EXPECT_EQ(at96.minThumb, 20);
    ClassicMetrics at192 = ScaledClassicMetrics(192, 192);
    EXPECT_EQ(at192.width, 26);
    EXPECT_EQ(at192.arrowHeight, 30);
    EXPECT_EQ(at192.minThumb, 40);
}

TEST(IndicatorGeometryTest, ClassicThumbLengthAndTop) {
    ClassicMetrics m;  // 13, 15, 20
    // Track 15..585 (570): length 570 * 600 / 1200 = 285, top 15 + position * 285 / 600.
    Thumb thumb = ClassicThumb(Range(0), 600, m);
    EXPECT_EQ(thumb.top, 15);
    EXPECT_EQ(thumb.length, 285);
    EXPECT_EQ(ClassicThumb(Range(300), 600, m).top, 15 + 300 * 285 / 600);
    EXPECT_EQ(ClassicThumb(Range(600), 600, m).top, 300);
    // Out-of-range positions stay on the track.
    EXPECT_EQ(ClassicThumb(Range(-50), 600, m).top, 15);
    EXPECT_EQ(ClassicThumb(Range(900), 600, m).top, 300);
}

TEST(IndicatorGeometryTest, ClassicThumbHasAMinimumLength) {
    ClassicMetrics m;
    ScrollRange tall{0, 99999, 600, 0};
    EXPECT_EQ(ClassicThumb(tall, 600, m).length, 20);
    ScrollRange fits{0, 119, 120, 0};
    Thumb whole = ClassicThumb(fits, 600, m);
    EXPECT_EQ(whole.length, 570);
    EXPECT_EQ(whole.top, 15);
    // A bar too short for its arrows has no track.
    EXPECT_EQ(ClassicThumb(Range(0), 20, m).length, 0);
}

TEST(IndicatorGeometryTest, ClassicPartsInOrder) {
    ClassicMetrics m;
    ScrollRange range = Range(300);  // thumb 157..442
    EXPECT_EQ(ClassicPartAt(range, 0, 600, m), kPartUpArrow);
    EXPECT_EQ(ClassicPartAt(range, 14, 600, m), kPartUpArrow);
    EXPECT_EQ(ClassicPartAt(range, 585, 600, m), kPartDownArrow);
    EXPECT_EQ(ClassicPartAt(range, 599, 600, m), kPartDownArrow);
    EXPECT_EQ(ClassicPartAt(range, 157, 600, m), kPartThumb);
    EXPECT_EQ(ClassicPartAt(range, 441, 600, m), kPartThumb);
    EXPECT_EQ(ClassicPartAt(range, 156, 600, m), kPartPageAbove);
    EXPECT_EQ(ClassicPartAt(range, 442, 600, m), kPartPageBelow);
    EXPECT_EQ(ClassicPartAt(range, 600, 600, m), kPartNone);
    EXPECT_EQ(ClassicPartAt(range, -1, 600, m), kPartNone);
}

TEST(IndicatorGeometryTest, ClassicDragPositions) {
    ClassicMetrics m;
    // Grabbed 10 below its top: position = (y - 10 - 15) * 600 / 285.
    EXPECT_EQ(ClassicPositionAt(Range(0), 25, 10, 600, m, 1), 0);
    EXPECT_EQ(ClassicPositionAt(Range(0), 167, 10, 600, m, 1), 142 * 600 / 285);
    EXPECT_EQ(ClassicPositionAt(Range(0), 590, 10, 600, m, 1), 600);
    EXPECT_EQ(ClassicPositionAt(Range(0), 0, 10, 600, m, 1), 0);
    // The margin keeps a track with no free length from dividing by zero.
    EXPECT_EQ(ClassicPositionAt(ScrollRange{0, 1199, 1199, 0}, 300, 0, 600, m, 1), 1);
}

TEST(IndicatorGeometryTest, OverlayAlphaAndFade) {
    EXPECT_EQ(OverlayAlpha(true, 0, false), 180);
    EXPECT_EQ(OverlayAlpha(true, 0, true), 255);
    EXPECT_EQ(OverlayAlpha(false, 0, false), 180);
    EXPECT_EQ(OverlayAlpha(false, 1, false), 144);
    EXPECT_EQ(OverlayAlpha(false, 2, false), 108);
    EXPECT_EQ(OverlayAlpha(false, 3, true), 102);
    EXPECT_EQ(OverlayAlpha(false, 4, false), 36);
    EXPECT_EQ(OverlayAlpha(false, 5, false), 0);
    EXPECT_EQ(OverlayAlpha(false, 9, false), 0);
}

TEST(IndicatorGeometryTest, WholeBitmapWhenTheLengthsAgree) {
    std::vector<BandCopy> copies = StretchBands(40, 30, 30);
    ASSERT_EQ(copies.size(), 1u);
    EXPECT_EQ(copies[0].sourceTop, 0);
    EXPECT_EQ(copies[0].top, 40);
    EXPECT_EQ(copies[0].rows, 30);
}

TEST(IndicatorGeometryTest, ThreeBandStretch) {
    // Bands of 10 from a 30-high bitmap, a thumb of 45 at 100: top band 100..110, middle copies at
    // 110, 120, 130 (the last clipped to 5 rows), bottom band 135..145.
    std::vector<BandCopy> copies = StretchBands(100, 45, 30);
    ASSERT_EQ(copies.size(), 5u);
    EXPECT_EQ(copies[0].sourceTop, 0);
    EXPECT_EQ(copies[0].top, 100);
    EXPECT_EQ(copies[1].sourceTop, 10);
    EXPECT_EQ(copies[1].top, 110);
    EXPECT_EQ(copies[3].top, 130);
    EXPECT_EQ(copies[3].rows, 5);
    EXPECT_EQ(copies[4].sourceTop, 20);
    EXPECT_EQ(copies[4].top, 135);
    EXPECT_EQ(copies[4].rows, 10);
}

TEST(IndicatorGeometryTest, SqueezedStretchHasNoMiddle) {
    std::vector<BandCopy> copies = StretchBands(0, 20, 30);
    ASSERT_EQ(copies.size(), 2u);
    EXPECT_EQ(copies[1].top, 10);
    EXPECT_TRUE(StretchBands(0, 0, 30).empty());
    EXPECT_TRUE(StretchBands(0, 20, 0).empty());
}

}  // namespace
}  // namespace flick
