#include "view/InputRules.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

TEST(InputRulesTest, TwoPixelsOfDriftStillHoldThreeCancel) {
    const Point down{100, 100};
    EXPECT_FALSE(SlideCancelsHold(down, {102, 98}));
    EXPECT_FALSE(SlideCancelsHold(down, {98, 102}));
    EXPECT_TRUE(SlideCancelsHold(down, {103, 100}));
    EXPECT_TRUE(SlideCancelsHold(down, {97, 100}));
    EXPECT_TRUE(SlideCancelsHold(down, {100, 103}));
    EXPECT_TRUE(SlideCancelsHold(down, {100, 97}));
}

// 3 columns, 9 buttons a page, 3 pages.
KeyGrid Grid(int32_t page, int32_t selected) {
    return KeyGrid{3, 9, page, 3, selected};
}

TEST(InputRulesTest, LeftWalksTheRowThenTheLastColumnOfThePreviousPage) {
    KeyMove m = NavigateKey(board_key::kLeft, Grid(1, 4));
    EXPECT_TRUE(m.moved);
    EXPECT_EQ(m.selected, 3);
    EXPECT_FALSE(m.pageChanged);
    m = NavigateKey(board_key::kLeft, Grid(1, 3));
    EXPECT_TRUE(m.pageChanged);
    EXPECT_EQ(m.page, 0);
    EXPECT_EQ(m.selected, 5);
}

TEST(InputRulesTest, LeftOnTheFirstColumnOfPageZeroDoesNothing) {
    const KeyMove m = NavigateKey(board_key::kLeft, Grid(0, 6));
    EXPECT_TRUE(m.handled);
    EXPECT_FALSE(m.moved);
    EXPECT_EQ(m.page, 0);
    EXPECT_EQ(m.selected, 6);
}

TEST(InputRulesTest, RightWalksTheRowThenTheFirstColumnOfTheNextPage) {
    KeyMove m = NavigateKey(board_key::kRight, Grid(0, 4));
    EXPECT_EQ(m.selected, 5);
    m = NavigateKey(board_key::kRight, Grid(0, 5));
    EXPECT_TRUE(m.pageChanged);
    EXPECT_EQ(m.page, 1);
    EXPECT_EQ(m.selected, 3);
}

TEST(InputRulesTest, RightOnTheLastColumnOfTheLastPageDoesNothing) {
    const KeyMove m = NavigateKey(board_key::kRight, Grid(2, 8));
    EXPECT_TRUE(m.handled);
    EXPECT_FALSE(m.moved);
    EXPECT_EQ(m.page, 2);
    EXPECT_EQ(m.selected, 8);
}

TEST(InputRulesTest, RightStopsWhereTheCappedPageEnds) {
    // 5 columns and 24 buttons: positions 20 .. 23 form a short last row.
    const KeyMove m = NavigateKey(board_key::kRight, KeyGrid{5, 24, 0, 1, 23});
    EXPECT_FALSE(m.moved);
    EXPECT_EQ(m.selected, 23);
}

TEST(InputRulesTest, UpAndDownStopAtThePageEdges) {
    EXPECT_EQ(NavigateKey(board_key::kUp, Grid(0, 4)).selected, 1);
    EXPECT_FALSE(NavigateKey(board_key::kUp, Grid(0, 2)).moved);
    EXPECT_EQ(NavigateKey(board_key::kDown, Grid(0, 4)).selected, 7);
    EXPECT_FALSE(NavigateKey(board_key::kDown, Grid(0, 7)).moved);
    // Up and Down never change the page.
    EXPECT_FALSE(NavigateKey(board_key::kDown, Grid(1, 8)).pageChanged);
}

TEST(InputRulesTest, HomeAndEndGoToThePagesEnds) {
    EXPECT_EQ(NavigateKey(board_key::kHome, Grid(1, 5)).selected, 0);
    EXPECT_EQ(NavigateKey(board_key::kEnd, Grid(1, 5)).selected, 8);
    EXPECT_EQ(NavigateKey(board_key::kEnd, Grid(1, 5)).page, 1);
}

TEST(InputRulesTest, OtherKeysAndAnEmptyBoardAreLeftAlone) {
    EXPECT_FALSE(NavigateKey(board_key::kEnter, Grid(0, 0)).handled);
    EXPECT_FALSE(NavigateKey('A', Grid(0, 0)).handled);
    const KeyMove m = NavigateKey(board_key::kRight, KeyGrid{0, 0, 0, 0, 0});
    EXPECT_TRUE(m.handled);
    EXPECT_FALSE(m.moved);
}

TEST(InputRulesTest, HiddenMarkerFollowsHidingAndShowing) {
    MarkerChange c = HiddenMarkerRule(0x80 | 0x1);
    EXPECT_TRUE(c.set);
    EXPECT_FALSE(c.clear);
    EXPECT_FALSE(c.hide);
    c = HiddenMarkerRule(0x40 | 0x2);
    EXPECT_FALSE(c.set);
    EXPECT_TRUE(c.clear);
    c = HiddenMarkerRule(0x213);
    EXPECT_TRUE(c.clear);
    // 0x213 with one flag more is not the exact value.
    EXPECT_FALSE(HiddenMarkerRule(0x217).clear);
    EXPECT_TRUE(HiddenMarkerRule(0x20000000).hide);
    EXPECT_TRUE(HiddenMarkerRule(0x40000000 | 0x40).hide);
    EXPECT_FALSE(HiddenMarkerRule(0x1).hide);
    EXPECT_FALSE(HiddenMarkerRule(0x1).set);
    EXPECT_FALSE(HiddenMarkerRule(0x1).clear);
}

TEST(InputRulesTest, OnlyLParamTwoReloadsTheEntries) {
    EXPECT_TRUE(ReloadsEntries(2));
    EXPECT_FALSE(ReloadsEntries(1));
    EXPECT_FALSE(ReloadsEntries(0));
    EXPECT_FALSE(ReloadsEntries(3));
}

TEST(InputRulesTest, CallScreenWaitPollsEvery100MsWhileInFrontUpTo2000) {
    uint32_t clock = 0xFFFFFF00u;  // across the wrap
    std::vector<uint32_t> sleeps;
    const int polls = AwaitCallScreen([] { return true; }, [&] { return clock; },
                                      [&](uint32_t ms) {
                                          sleeps.push_back(ms);
                                          clock += ms;
                                      });
    EXPECT_EQ(polls, 20);
    for (uint32_t ms : sleeps)
        EXPECT_EQ(ms, 100u);
}

TEST(InputRulesTest, CallScreenWaitEndsWhenTheBoardLeavesTheFront) {
    uint32_t clock = 0;
    int asked = 0;
    const int polls = AwaitCallScreen([&] { return ++asked <= 3; }, [&] { return clock; },
                                      [&](uint32_t ms) { clock += ms; });
    EXPECT_EQ(polls, 3);
    EXPECT_EQ(clock, 300u);
    EXPECT_EQ(AwaitCallScreen([] { return false; }, [] { return 0u; }, [](uint32_t) {}), 0);
}

}  // namespace
