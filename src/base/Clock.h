#pragma once
// The clock seam.

#include <cstdint>

/// Milliseconds since an arbitrary start, wrapping at 2^32 (the platform's tick count).
uint32_t TickCount();
