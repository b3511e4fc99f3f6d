#pragma once
// Test hook of the native clock: a settable tick count.

#include <cstdint>

/// While set, TickCount returns the given value instead of the real clock.
void SetFakeTickCount(bool enabled, uint32_t ticks = 0);
