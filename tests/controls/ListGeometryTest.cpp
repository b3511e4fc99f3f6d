// The flick list's arithmetic: range, page and clamping, rows and hit tests, visible rows and
// reveal offsets, keyboard targets and scroll-bar moves.
#include "controls/ListGeometry.h"

#include <gtest/gtest.h>

namespace flick {
namespace {

ListState List(int count, int itemHeight, int viewHeight, int offset = 0, int selection = 0) {
    return ListState{count, itemHeight, Rect{0, 0, 240, viewHeight}, offset, selection};
}

TEST(ListGeometryTest, ThreeShortRowsInATallViewNeverScroll) {
    EXPECT_EQ(RangeMaximum(3, 40), 119);
    EXPECT_EQ(Page(3, 40, 200), 120);
    EXPECT_EQ(MaxOffset(3, 40, 200), 0);
    for (int offset : {-50, 0, 1, 30, 119, 500})
        EXPECT_EQ(ClampToRange(offset, 119, 120), 0) << offset;
}

TEST(ListGeometryTest, RangeAndPageOfALongList) {
    EXPECT_EQ(RangeMaximum(40, 30), 1199);
    EXPECT_EQ(Page(40, 30, 600), 600);
    EXPECT_EQ(MaxOffset(40, 30, 600), 600);
    EXPECT_EQ(ClampToRange(700, 1199, 600), 600);
    EXPECT_EQ(ClampToRange(250, 1199, 600), 250);
    EXPECT_EQ(ClampToRange(-1, 1199, 600), 0);
}

TEST(ListGeometryTest, AnEmptyListHasNoRange) {
    EXPECT_EQ(RangeMaximum(0, 40), 0);
    EXPECT_EQ(Page(0, 40, 200), 0);
    EXPECT_EQ(ClampToRange(10, 0, 0), 0);
    EXPECT_EQ(HitTest(List(0, 40, 200), 10, 10), -1);
}

TEST(ListGeometryTest, BadHeightsFallBackInsteadOfDividingByZero) {
    EXPECT_EQ(VisibleRows(200, 0), 200);
    EXPECT_EQ(VisibleRows(200, -5), 200);
    EXPECT_EQ(RangeMaximum(-3, 40), 0);
    EXPECT_EQ(Page(5, 40, -10), 0);
    EXPECT_EQ(ContentHeight(2000000000, 100), ContentHeight(2000000000, 1000));
}

TEST(ListGeometryTest, VisibleRowsIsAtLeastOne) {
    EXPECT_EQ(VisibleRows(200, 40), 5);
    EXPECT_EQ(VisibleRows(219, 40), 5);
    EXPECT_EQ(VisibleRows(30, 40), 1);
    EXPECT_EQ(VisibleRows(0, 40), 1);
}

TEST(ListGeometryTest, RowRectsFollowTheOffsetAndTheViewTop) {
    ListState list{10, 40, Rect{0, 5, 200, 205}, 30, 0};
    EXPECT_EQ(RowRect(list, 0), (Rect{0, -25, 200, 15}));
    EXPECT_EQ(RowRect(list, 3), (Rect{0, 95, 200, 135}));
    EXPECT_EQ(RowRect(list, -1), Rect{});
    EXPECT_EQ(RowRect(list, 10), Rect{});
}

TEST(ListGeometryTest, NegativeOffsetMovesRowZeroDown) {
    ListState list = List(10, 40, 200, -30);
    EXPECT_EQ(RowRect(list, 0), (Rect{0, 30, 240, 70}));
    EXPECT_EQ(HitTest(list, 10, 10), -1);
    EXPECT_EQ(HitTest(list, 10, 30), 0);
}

TEST(ListGeometryTest, HitTestFindsRowsAndMissesOutside) {
    ListState list = List(3, 40, 200, 0);
    EXPECT_EQ(HitTest(list, 0, 0), 0);
    EXPECT_EQ(HitTest(list, 239, 39), 0);
    EXPECT_EQ(HitTest(list, 5, 40), 1);
    EXPECT_EQ(HitTest(list, 5, 119), 2);
    EXPECT_EQ(HitTest(list, 5, 120), -1);  // below the last row
    EXPECT_EQ(HitTest(list, 5, 199), -1);
    EXPECT_EQ(HitTest(list, 240, 10), -1);  // right of the view
    EXPECT_EQ(HitTest(list, -1, 10), -1);
    EXPECT_EQ(HitTest(list, 5, 200), -1);
}

TEST(ListGeometryTest, HitTestOnAScrolledList) {
    ListState list = List(40, 30, 600, 455);
    EXPECT_EQ(HitTest(list, 5, 0), 15);
    EXPECT_EQ(HitTest(list, 5, 24), 15);  // row 15 spans -5..25
    EXPECT_EQ(HitTest(list, 5, 25), 16);
}

TEST(ListGeometryTest, WhollyVisibleRows) {
    ListState list = List(40, 30, 100, 15);
    EXPECT_FALSE(RowWhollyVisible(list, 0));
    EXPECT_TRUE(RowWhollyVisible(list, 1));
    EXPECT_TRUE(RowWhollyVisible(list, 2));
    EXPECT_FALSE(RowWhollyVisible(list, 3));  // 75..105 passes the bottom
    EXPECT_FALSE(RowWhollyVisible(list, 40));
}

TEST(ListGeometryTest, BottomRowOffsetPutsTheRowAtTheBottom) {
    ListState list = List(40, 30, 100);
    EXPECT_EQ(VisibleRows(100, 30), 3);
    EXPECT_EQ(BottomRowOffset(list, 10), 240);
    EXPECT_EQ(BottomRowOffset(list, 1), -30);
}

struct ScrollCase {
    int code;
    int position;
    int offset;
    int move;
};

TEST(ListGeometryTest, ScrollMovesByCodeStayInTheRange) {
    // 40 rows of 30 in a 600 view: offsets 0..600.
    const ScrollCase cases[] = {
        {kLineUp, 0, 100, -30},
        {kLineUp, 0, 10, -10},
        {kLineDown, 0, 100, 30},
        {kLineDown, 0, 590, 10},
        {kPageUp, 0, 700, -600},
        {kPageUp, 0, 300, -300},
        {kPageDown, 0, 0, 600},
        {kPageDown, 0, 100, 500},
        {kThumbPosition, 250, 0, 0},
        {kThumbTrack, 250, 0, 250},
        {kThumbTrack, 9999, 0, 600},
        {kTop, 0, 321, -321},
        {kBottom, 0, 0, 600},
        {kScrollBy, 45, 100, 45},
        {kScrollBy, -45, 100, -45},
        {kScrollBy, -200, 100, -100},
        {8, 0, 100, 0},
        {1004, 10, 100, 0},
        {kLineUp, 0, -40, 40},
    };
    for (const ScrollCase& c : cases) {
        EXPECT_EQ(ScrollMove(List(40, 30, 600, c.offset), c.code, c.position), c.move)
            << "code " << c.code << " at " << c.offset;
    }
}

TEST(ListGeometryTest, ShortListsDoNotScrollByCode) {
    EXPECT_EQ(ScrollMove(List(3, 40, 200), kBottom, 0), 0);
    EXPECT_EQ(ScrollMove(List(3, 40, 200), kLineDown, 0), 0);
}

TEST(ListGeometryTest, HomeAndEnd) {
    ListState list = List(40, 30, 600, 200, 12);
    NavTarget home = Navigate(list, NavKey::kHome);
    EXPECT_TRUE(home.act);
    EXPECT_EQ(home.selection, 0);
    EXPECT_TRUE(home.scroll);
    EXPECT_EQ(home.offset, 0);
    NavTarget end = Navigate(list, NavKey::kEnd);
    EXPECT_EQ(end.selection, 39);
    EXPECT_TRUE(end.scroll);
    EXPECT_EQ(end.offset, 1199);  // the range maximum; the scroll keeps it at 600
}

TEST(ListGeometryTest, UpSelectsTheRowAboveAndScrollsItToTheTop) {
    NavTarget visible = Navigate(List(40, 30, 600, 0, 5), NavKey::kUp);
    EXPECT_EQ(visible.selection, 4);
    EXPECT_FALSE(visible.scroll);
    NavTarget hidden = Navigate(List(40, 30, 600, 150, 5), NavKey::kUp);
    EXPECT_EQ(hidden.selection, 4);
    EXPECT_TRUE(hidden.scroll);
    EXPECT_EQ(hidden.offset, 120);
    NavTarget top = Navigate(List(40, 30, 600, 0, 0), NavKey::kUp);
    EXPECT_EQ(top.selection, 0);
    EXPECT_FALSE(top.scroll);
}

TEST(ListGeometryTest, DownSelectsTheRowBelowAndScrollsItToTheBottom) {
    NavTarget visible = Navigate(List(40, 30, 600, 0, 5), NavKey::kDown);
    EXPECT_EQ(visible.selection, 6);
    EXPECT_FALSE(visible.scroll);
    NavTarget hidden = Navigate(List(40, 30, 600, 0, 19), NavKey::kDown);
    EXPECT_EQ(hidden.selection, 20);
    EXPECT_TRUE(hidden.scroll);
    EXPECT_EQ(hidden.offset, 30);  // rows 1..20 in view
    NavTarget none = Navigate(List(40, 30, 600, 0, -1), NavKey::kDown);
    EXPECT_EQ(none.selection, 0);
}

TEST(ListGeometryTest, DownOnTheLastRowKeepsIt) {
    NavTarget last = Navigate(List(40, 30, 600, 600, 39), NavKey::kDown);
    EXPECT_EQ(last.selection, 39);
    EXPECT_FALSE(last.scroll);
}

TEST(ListGeometryTest, PageUpMovesAViewOfRowsUp) {
    NavTarget page = Navigate(List(40, 30, 600, 300, 25), NavKey::kPageUp);
    EXPECT_TRUE(page.act);
    EXPECT_EQ(page.selection, 6);
    EXPECT_EQ(page.offset, 180);
    EXPECT_EQ(Navigate(List(40, 30, 600, 300, 10), NavKey::kPageUp).selection, 0);
    EXPECT_FALSE(Navigate(List(40, 30, 600, 0, 0), NavKey::kPageUp).act);
    EXPECT_FALSE(Navigate(List(40, 30, 600, 0, -1), NavKey::kPageUp).act);
}

TEST(ListGeometryTest, PageDownMovesAViewOfRowsDown) {
    NavTarget page = Navigate(List(40, 30, 600, 0, 5), NavKey::kPageDown);
    EXPECT_TRUE(page.act);
    EXPECT_EQ(page.selection, 24);
    EXPECT_EQ(page.offset, 150);  // row 24 at the bottom: rows 5..24
    EXPECT_EQ(Navigate(List(40, 30, 600, 0, 30), NavKey::kPageDown).selection, 39);
}

TEST(ListGeometryTest, PageDownOnTheLastRowDoesNothing) {
    EXPECT_FALSE(Navigate(List(40, 30, 600, 600, 39), NavKey::kPageDown).act);
    EXPECT_FALSE(Navigate(List(40, 30, 600, 0, -1), NavKey::kPageDown).act);
}

TEST(ListGeometryTest, KeysOnAnEmptyListDoNothing) {
    for (NavKey key : {NavKey::kHome, NavKey::kEnd, NavKey::kUp, NavKey::kDown, NavKey::kPageUp,
                       NavKey::kPageDown})
        EXPECT_FALSE(Navigate(List(0, 30, 600, 0, 0), key).act);
}

}  // namespace
}  // namespace flick
