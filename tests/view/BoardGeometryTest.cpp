#include "view/BoardGeometry.h"

#include <gtest/gtest.h>

#include <map>

namespace {

TEST(BoardGeometryTest, PanelAlongTheBottomInPortrait) {
    PanelPlacement p = PlacePanel(Rect{0, 0, 240, 294}, false, 40, 36);
    EXPECT_EQ(p.panel, (Rect{0, 258, 240, 294}));
    EXPECT_EQ(p.usableWidth, 240);
    EXPECT_EQ(p.usableHeight, 258);
}

TEST(BoardGeometryTest, PanelAtTheRightInLandscape) {
    PanelPlacement p = PlacePanel(Rect{0, 0, 320, 214}, true, 40, 36);
    EXPECT_EQ(p.panel, (Rect{280, 0, 320, 214}));
    EXPECT_EQ(p.usableWidth, 280);
    EXPECT_EQ(p.usableHeight, 214);
}

TEST(BoardGeometryTest, OrientationFromScreenSize) {
    EXPECT_FALSE(IsLandscape(240, 320));
    EXPECT_TRUE(IsLandscape(320, 240));
    EXPECT_FALSE(IsLandscape(480, 480));
}

TEST(BoardGeometryTest, RotationMovesThePanelAndRecomputesTheGrid) {
    BoardGeometry g;
    PanelPlacement portrait = PlacePanel(Rect{0, 0, 240, 294}, false, 40, 36);
    g.Layout(portrait.usableWidth, portrait.usableHeight, 76, 80, 0);
    EXPECT_EQ(g.Cols(), 3);
    EXPECT_EQ(g.Rows(), 3);
    PanelPlacement landscape = PlacePanel(Rect{0, 0, 320, 214}, true, 40, 36);
    EXPECT_EQ(landscape.panel.left, 280);
    g.Layout(landscape.usableWidth, landscape.usableHeight, 76, 80, 0);
    EXPECT_EQ(g.Cols(), 3);
    EXPECT_EQ(g.Rows(), 2);
    EXPECT_EQ(g.PerPage(), 6);
}

TEST(BoardGeometryTest, AreaNarrowerThanACellIsAnEmptyBoard) {
    BoardGeometry g;
    g.Layout(70, 400, 76, 80, 30);
    EXPECT_EQ(g.Cols(), 0);
    EXPECT_EQ(g.Rows(), 0);
    EXPECT_EQ(g.PerPage(), 0);
    EXPECT_EQ(g.TotalSlots(), 0);
    EXPECT_EQ(g.Page(), 0);
    EXPECT_EQ(g.Pages(), 0);
    EXPECT_EQ(g.ArrowsNow(), (Arrows{false, false}));
    EXPECT_EQ(g.HitTest(10, 10), -1);
    EXPECT_EQ(g.SlotOf(0), -1);
}

TEST(BoardGeometryTest, AreaLowerThanACellIsAnEmptyBoard) {
    BoardGeometry g;
    g.Layout(400, 79, 76, 80, 0);
    EXPECT_EQ(g.PerPage(), 0);
    EXPECT_EQ(g.ArrowsNow(), (Arrows{false, false}));
}

TEST(BoardGeometryTest, CapWithColumnsThatDivide24) {
    BoardGeometry g;
    g.Layout(3 * 10, 9 * 10, 10, 10, 0);
    EXPECT_EQ(g.Cols(), 3);
    EXPECT_EQ(g.Rows(), 8);
    EXPECT_EQ(g.PerPage(), 24);
    EXPECT_EQ(g.CellCount(), 24);
    EXPECT_NE(g.Cell(23).Width(), 0);
}

TEST(BoardGeometryTest, CapWithColumnsThatDoNotDivide24) {
    BoardGeometry g;
    g.Layout(5 * 10, 6 * 10, 10, 10, 0);
    EXPECT_EQ(g.Cols(), 5);
    EXPECT_EQ(g.Rows(), 4);
    EXPECT_EQ(g.PerPage(), 24);
    EXPECT_EQ(g.CellCount(), 20);
    EXPECT_NE(g.Cell(19).Width(), 0);
    for (int p = 20; p < 24; ++p) {
        EXPECT_EQ(g.Cell(p), Rect{}) << p;
        EXPECT_EQ(g.SlotOf(p), p);  // the slot exists, the cell does not
    }
}

TEST(BoardGeometryTest, HighSlotDecidesThePageCount) {
    BoardGeometry g;
    g.Layout(4 * 10, 3 * 10, 10, 10, 30);
    ASSERT_EQ(g.PerPage(), 12);
    EXPECT_EQ(g.TotalSlots(), 36);
    EXPECT_EQ(g.Pages(), 3);
}

TEST(BoardGeometryTest, AlwaysAtLeastOnePage) {
    BoardGeometry g;
    g.Layout(40, 30, 10, 10, 0);
    EXPECT_EQ(g.TotalSlots(), 12);
    EXPECT_EQ(g.Pages(), 1);
    g.Layout(40, 30, 10, 10, 11);
    EXPECT_EQ(g.Pages(), 1);
    g.Layout(40, 30, 10, 10, 12);
    EXPECT_EQ(g.Pages(), 2);
}

TEST(BoardGeometryTest, NegativeMaxSlotCountsAsZero) {
    BoardGeometry g;
    g.Layout(40, 30, 10, 10, -50);
    EXPECT_EQ(g.TotalSlots(), 12);
}

TEST(BoardGeometryTest, HugeSlotDoesNotOverflow) {
    BoardGeometry g;
    g.Layout(40, 30, 10, 10, 2147483647);
    EXPECT_GT(g.TotalSlots(), 0);
    EXPECT_EQ(g.TotalSlots() % 12, 0);
    EXPECT_GE(g.Pages(), 1);
}

TEST(BoardGeometryTest, SelectionOnTheLastButtonMovesToTheNextPage) {
    BoardGeometry g;
    g.Layout(40, 30, 10, 10, 20);  // 12 a page, two pages
    ASSERT_EQ(g.Pages(), 2);
    g.SetPage(0);
    g.SetSelected(11);
    g.Layout(40, 30, 10, 10, 20);
    EXPECT_EQ(g.Page(), 1);
    EXPECT_EQ(g.Selected(), 0);
}

TEST(BoardGeometryTest, SelectionOnTheLastButtonOfTheLastPageStays) {
    BoardGeometry g;
    g.Layout(40, 30, 10, 10, 5);  // one page
    g.SetSelected(11);
    g.Layout(40, 30, 10, 10, 5);
    EXPECT_EQ(g.Page(), 0);
    EXPECT_EQ(g.Selected(), 11);
}

TEST(BoardGeometryTest, SelectionKeptInTheMiddleOfAPage) {
    BoardGeometry g;
    g.Layout(40, 30, 10, 10, 30);
    g.SetPage(1);
    g.SetSelected(4);
    g.Layout(40, 30, 10, 10, 30);
    EXPECT_EQ(g.Page(), 1);
    EXPECT_EQ(g.Selected(), 4);
}

TEST(BoardGeometryTest, SelectionFollowsItsSlotWhenThePageSizeChanges) {
    BoardGeometry g;
    g.Layout(40, 30, 10, 10, 30);  // 12 a page
    g.SetPage(1);
    g.SetSelected(5);              // slot 17
    g.Layout(30, 20, 10, 10, 30);  // 6 a page: slot 17 is page (17 + 1) / 6 = 3, position -1
    EXPECT_EQ(g.PerPage(), 6);
    EXPECT_EQ(g.Page(), 3);
    EXPECT_EQ(g.Selected(), 0);
}

TEST(BoardGeometryTest, SelectionOffThePageStartsAtPageZero) {
    BoardGeometry g;
    g.Layout(40, 30, 10, 10, 30);
    g.SetPage(2);
    g.SetSelected(-1);
    g.Layout(40, 30, 10, 10, 30);
    EXPECT_EQ(g.Page(), 0);
    EXPECT_EQ(g.Selected(), 0);
}

TEST(BoardGeometryTest, PageIsClampedToTheLastPage) {
    BoardGeometry g;
    g.Layout(40, 30, 10, 10, 40);  // 4 pages
    g.SetPage(3);
    g.SetSelected(2);             // slot 38
    g.Layout(40, 30, 10, 10, 5);  // now one page
    EXPECT_EQ(g.Page(), 0);
    EXPECT_EQ(g.Selected(), 0);
}

struct GridCase {
    int32_t width, height, cellW, cellH;
    int32_t cols, rows, x0, y0, gapX, gapY;
};

class BoardGeometryGridTest : public ::testing::TestWithParam<GridCase> {};

TEST_P(BoardGeometryGridTest, GapsAndMarginsSplitTheLeftover) {
    const GridCase& c = GetParam();
    BoardGeometry g;
    g.Layout(c.width, c.height, c.cellW, c.cellH, 0);
    ASSERT_EQ(g.Cols(), c.cols);
    ASSERT_EQ(g.Rows(), c.rows);
    EXPECT_EQ(g.Cell(0), (Rect{c.x0, c.y0, c.x0 + c.cellW, c.y0 + c.cellH}));
    for (int r = 0; r < c.rows; ++r) {
        for (int col = 0; col < c.cols; ++col) {
            const Rect& cell = g.Cell(col + c.cols * r);
            EXPECT_EQ(cell.left, c.x0 + col * (c.cellW + c.gapX));
            EXPECT_EQ(cell.top, c.y0 + r * (c.cellH + c.gapY));
            EXPECT_EQ(cell.Width(), c.cellW);
            EXPECT_EQ(cell.Height(), c.cellH);
            EXPECT_LE(cell.right, c.width);
            EXPECT_LE(cell.bottom, c.height);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(
    Grids, BoardGeometryGridTest,
    ::testing::Values(
        // 100 across, 3 cells of 30: spare 10, gap 10 / 4 = 2, remainder 2, x0 = 2 + 1.
        GridCase{100, 100, 30, 30, 3, 3, 3, 3, 2, 2},
        // Exact fit: no gaps at all.
        GridCase{90, 60, 30, 30, 3, 2, 0, 0, 0, 0},
        // One column: spare 7, gap 3, remainder 1, x0 = 3.
        GridCase{37, 30, 30, 30, 1, 1, 3, 0, 3, 0},
        // Spare 5 over 5 gaps: gap 1, remainder 0.
        GridCase{65, 30, 15, 30, 4, 1, 1, 0, 1, 0},
        // The 240 x 320 portrait board with big buttons.
        GridCase{240, 258, 76, 80, 3, 3, 3, 5, 3, 4}));

TEST(BoardGeometryTest, HitTestFindsTheCellAndNotTheGap) {
    BoardGeometry g;
    g.Layout(100, 100, 30, 30, 0);
    EXPECT_EQ(g.HitTest(3, 3), 0);
    EXPECT_EQ(g.HitTest(32, 3), 0);
    EXPECT_EQ(g.HitTest(33, 3), -1);  // gap between column 0 and 1
    EXPECT_EQ(g.HitTest(35, 3), 1);
    EXPECT_EQ(g.HitTest(99, 99), -1);
    EXPECT_EQ(g.HitTest(67 + 5, 67 + 5), 8);
}

TEST(BoardGeometryTest, SlotOfPositions) {
    BoardGeometry g;
    g.Layout(40, 30, 10, 10, 30);
    g.SetPage(2);
    EXPECT_EQ(g.SlotOf(0), 24);
    EXPECT_EQ(g.SlotOf(11), 35);
    EXPECT_EQ(g.SlotOf(12), -1);
    EXPECT_EQ(g.SlotOf(-1), -1);
}

TEST(BoardGeometryTest, ArrowsByPage) {
    BoardGeometry g;
    g.Layout(40, 30, 10, 10, 30);  // 3 pages
    g.SetPage(0);
    EXPECT_EQ(g.ArrowsNow(), (Arrows{false, true}));
    g.SetPage(1);
    EXPECT_EQ(g.ArrowsNow(), (Arrows{true, true}));
    g.SetPage(2);
    EXPECT_EQ(g.ArrowsNow(), (Arrows{true, false}));
    g.Layout(40, 30, 10, 10, 0);  // one page
    EXPECT_EQ(g.ArrowsNow(), (Arrows{false, false}));
}

TEST(BoardGeometryTest, GrowByPageAddsAnEmptyPage) {
    BoardGeometry g;
    g.Layout(40, 30, 10, 10, 0);
    g.GrowByPage();
    EXPECT_EQ(g.TotalSlots(), 24);
    EXPECT_EQ(g.Page(), 0);
    EXPECT_EQ(g.ArrowsNow(), (Arrows{false, true}));
    // A later layout recomputes the pages from the highest bound slot.
    g.Layout(40, 30, 10, 10, 0);
    EXPECT_EQ(g.TotalSlots(), 12);
}

TEST(BoardGeometryTest, AddPageOnOnePageMakesTheSecondCurrent) {
    BoardGeometry g;
    g.Layout(40, 30, 10, 10, 0);
    g.SetSelected(7);
    g.AddPage();
    EXPECT_EQ(g.Pages(), 2);
    EXPECT_EQ(g.Page(), 1);
    EXPECT_EQ(g.Selected(), 0);
}

TEST(BoardGeometryTest, ResetToOnePage) {
    BoardGeometry g;
    g.Layout(40, 30, 10, 10, 40);
    g.SetPage(2);
    g.SetSelected(3);
    g.ResetToOnePage();
    EXPECT_EQ(g.Page(), 0);
    EXPECT_EQ(g.TotalSlots(), 12);
    EXPECT_EQ(g.Selected(), 0);
}

/// Applies a plan to slot -> name, the way the board's edits do.
void Apply(const DeletePagePlan& plan, std::map<int, char>& slots) {
    for (int s : plan.deleted)
        slots.erase(s);
    for (auto [from, to] : plan.moves) {
        auto it = slots.find(from);
        if (it == slots.end())
            continue;
        char v = it->second;
        slots.erase(it);
        slots[to] = v;
    }
}

TEST(BoardGeometryTest, DeletingTheOnlyPageEmptiesItButKeepsIt) {
    BoardGeometry g;
    g.Layout(40, 30, 10, 10, 5);
    g.SetSelected(4);
    DeletePagePlan plan = g.PlanDeletePage();
    EXPECT_EQ(plan.deleted.size(), 12u);
    EXPECT_EQ(plan.deleted.front(), 0);
    EXPECT_EQ(plan.deleted.back(), 11);
    EXPECT_TRUE(plan.moves.empty());
    g.ApplyDeletePage(plan);
    EXPECT_EQ(g.TotalSlots(), 12);
    EXPECT_EQ(g.Pages(), 1);
    EXPECT_EQ(g.Page(), 0);
    EXPECT_EQ(g.Selected(), 0);
}

TEST(BoardGeometryTest, DeletingAMiddlePageShiftsTheLaterOnesDown) {
    BoardGeometry g;
    g.Layout(40, 30, 10, 10, 30);  // 3 pages of 12
    g.SetPage(1);
    std::map<int, char> slots{{0, 'a'}, {13, 'b'}, {25, 'c'}, {35, 'd'}};
    DeletePagePlan plan = g.PlanDeletePage();
    EXPECT_EQ(plan.deleted.front(), 12);
    EXPECT_EQ(plan.deleted.back(), 23);
    ASSERT_EQ(plan.moves.size(), 12u);
    EXPECT_EQ(plan.moves.front(), (std::pair<int32_t, int32_t>{24, 12}));
    Apply(plan, slots);
    EXPECT_EQ(slots, (std::map<int, char>{{0, 'a'}, {13, 'c'}, {23, 'd'}}));
    g.ApplyDeletePage(plan);
    EXPECT_EQ(g.TotalSlots(), 24);
    EXPECT_EQ(g.Page(), 1);
}

TEST(BoardGeometryTest, DeletingTheLastPageGoesBackAPage) {
    BoardGeometry g;
    g.Layout(40, 30, 10, 10, 20);  // 2 pages
    g.SetPage(1);
    DeletePagePlan plan = g.PlanDeletePage();
    EXPECT_TRUE(plan.moves.empty());
    g.ApplyDeletePage(plan);
    EXPECT_EQ(g.TotalSlots(), 12);
    EXPECT_EQ(g.Page(), 0);
}

struct MoveCase {
    int32_t page;
    int32_t position;
    MoveDirection direction;
    bool valid;
    int32_t targetPosition;
    int32_t targetPage;
};

class BoardGeometryMoveTest : public ::testing::TestWithParam<MoveCase> {};

TEST_P(BoardGeometryMoveTest, TargetByDirection) {
    // 4 columns, 3 rows, 3 pages.
    BoardGeometry g;
    g.Layout(40, 30, 10, 10, 30);
    const MoveCase& c = GetParam();
    g.SetPage(c.page);
    MoveResult r = g.MoveTarget(c.position, c.direction);
    EXPECT_EQ(r.valid, c.valid);
    if (c.valid) {
        EXPECT_EQ(r.position, c.targetPosition);
        EXPECT_EQ(r.page, c.targetPage);
    }
}

INSTANTIATE_TEST_SUITE_P(Moves, BoardGeometryMoveTest,
                         ::testing::Values(MoveCase{0, 5, MoveDirection::kUp, true, 1, 0},
                                           MoveCase{0, 1, MoveDirection::kUp, false, 0, 0},
                                           MoveCase{0, 5, MoveDirection::kDown, true, 9, 0},
                                           MoveCase{0, 9, MoveDirection::kDown, false, 0, 0},
                                           MoveCase{0, 5, MoveDirection::kLeft, true, 4, 0},
                                           MoveCase{0, 4, MoveDirection::kLeft, false, 0, 0},
                                           MoveCase{1, 4, MoveDirection::kLeft, true, 7, 0},
                                           MoveCase{1, 0, MoveDirection::kLeft, true, 3, 0},
                                           MoveCase{0, 5, MoveDirection::kRight, true, 6, 0},
                                           MoveCase{0, 7, MoveDirection::kRight, true, 4, 1},
                                           MoveCase{1, 11, MoveDirection::kRight, true, 8, 2},
                                           MoveCase{2, 7, MoveDirection::kRight, false, 0, 0},
                                           MoveCase{2, 6, MoveDirection::kRight, true, 7, 2},
                                           MoveCase{0, 5, static_cast<MoveDirection>(9), false, 0,
                                                    0}));

TEST(BoardGeometryTest, MoveDownIntoThePositionsWithoutACellIsAllowed) {
    // 5 columns x 4 rows shown, 24 a page: position 17 + 5 = 22 exists as a slot.
    BoardGeometry g;
    g.Layout(50, 60, 10, 10, 0);
    MoveResult r = g.MoveTarget(17, MoveDirection::kDown);
    EXPECT_TRUE(r.valid);
    EXPECT_EQ(r.position, 22);
    EXPECT_FALSE(g.MoveTarget(19, MoveDirection::kDown).valid);
}

TEST(BoardGeometryTest, MoveOnAnEmptyBoardDoesNothing) {
    BoardGeometry g;
    g.Layout(5, 5, 10, 10, 0);
    EXPECT_FALSE(g.MoveTarget(0, MoveDirection::kRight).valid);
}

}  // namespace
