#include "phone/PhoneAppWait.h"

#include <gtest/gtest.h>

#include <vector>

#include "base/ClockMemory.h"

namespace {

// The fake clock moves only when the poll sleeps; the window shows after a set number of looks.
struct Poll {
    static inline uint32_t now = 0;
    static inline int looks = 0;
    static inline int showAtLook = 0;  // 0: never
    static inline std::vector<uint32_t> sleeps;

    static void Sleep(uint32_t ms) {
        sleeps.push_back(ms);
        now += ms;
        SetFakeTickCount(true, now);
    }
    static bool Shown() { return ++looks == showAtLook; }
};

class PhoneAppWaitTest : public ::testing::Test {
  protected:
    void Start(uint32_t start, int showAtLook) {
        Poll::now = start;
        Poll::looks = 0;
        Poll::showAtLook = showAtLook;
        Poll::sleeps.clear();
        SetFakeTickCount(true, start);
    }
    void TearDown() override { SetFakeTickCount(false); }
};

TEST_F(PhoneAppWaitTest, WaitIsOverOnlyAfterMoreThanTwoSeconds) {
    EXPECT_FALSE(PhoneAppWaitOver(1000, 1000));
    EXPECT_FALSE(PhoneAppWaitOver(1000, 3000));
    EXPECT_TRUE(PhoneAppWaitOver(1000, 3001));
}

TEST_F(PhoneAppWaitTest, WaitIsMeasuredAcrossTheTickCountWrap) {
    EXPECT_FALSE(PhoneAppWaitOver(0xFFFFFF00u, 0x000006D0u));  // 2000 ms later, wrapped
    EXPECT_TRUE(PhoneAppWaitOver(0xFFFFFF00u, 0x000006D1u));
    EXPECT_FALSE(PhoneAppWaitOver(0xFFFFFF00u, 0xFFFFFF64u));
}

TEST_F(PhoneAppWaitTest, StopsAtTheFirstLookThatFindsTheWindow) {
    Start(5000, 3);
    EXPECT_TRUE(AwaitPhoneApp(5000, Poll::Shown, Poll::Sleep));
    EXPECT_EQ(Poll::looks, 3);
    EXPECT_EQ(Poll::sleeps, (std::vector<uint32_t>{100, 100, 100}));
}

TEST_F(PhoneAppWaitTest, SleepsBeforeTheFirstLook) {
    Start(0, 1);
    EXPECT_TRUE(AwaitPhoneApp(0, Poll::Shown, Poll::Sleep));
    EXPECT_EQ(Poll::sleeps, (std::vector<uint32_t>{100}));
}

TEST_F(PhoneAppWaitTest, GivesUpWhenMoreThanTwoSecondsHavePassed) {
    Start(7000, 0);
    EXPECT_FALSE(AwaitPhoneApp(7000, Poll::Shown, Poll::Sleep));
    // At 2000 ms the wait is not yet over; the look at 2100 ms is the last.
    EXPECT_EQ(Poll::looks, 21);
    EXPECT_EQ(Poll::now, 9100u);
}

TEST_F(PhoneAppWaitTest, GivesUpOnTimeAcrossTheWrap) {
    Start(0xFFFFFC18u, 0);  // 1000 ms before the wrap
    EXPECT_FALSE(AwaitPhoneApp(0xFFFFFC18u, Poll::Shown, Poll::Sleep));
    EXPECT_EQ(Poll::looks, 21);
}

TEST_F(PhoneAppWaitTest, WindowAtTheLastLookStillCounts) {
    Start(0, 21);
    EXPECT_TRUE(AwaitPhoneApp(0, Poll::Shown, Poll::Sleep));
    EXPECT_EQ(Poll::looks, 21);
}

}  // namespace
