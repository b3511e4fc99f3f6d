#include <chrono>

#include "base/Clock.h"
#include "base/ClockMemory.h"

namespace {
bool gFake = false;
uint32_t gTicks = 0;
}  // namespace

uint32_t TickCount() {
    if (gFake)
        return gTicks;
    auto now = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<uint32_t>(
        std::chrono::duration_cast<std::chrono::milliseconds>(now).count());
}

void SetFakeTickCount(bool enabled, uint32_t ticks) {
    gFake = enabled;
    gTicks = ticks;
}
