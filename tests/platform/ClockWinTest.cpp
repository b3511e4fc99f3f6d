#include "base/Clock.h"

#include <windows.h>

#include <gtest/gtest.h>

namespace {

TEST(ClockWinTest, TickCountIsTheSystemTickCount) {
    DWORD before = GetTickCount();
    uint32_t ticks = TickCount();
    DWORD after = GetTickCount();
    EXPECT_LE(before, ticks);
    EXPECT_LE(ticks, after);
}

}  // namespace
