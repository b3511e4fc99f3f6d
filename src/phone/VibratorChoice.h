#pragma once
// Which notification LED is the vibrator.

#include <cstdint>
#include <functional>

namespace feedback {

/// The LED used when the device does not say which one vibrates.
constexpr int32_t kDefaultVibrator = 1;

/// Asks the device about LED `led`: true, with its lCycleAdjust, when the reply succeeds.
using CycleAdjustQuery = std::function<bool(uint32_t led, int32_t* cycleAdjust)>;

/// Walks the LEDs from ledCount - 1 down to 0 and returns the first whose reply succeeds with
/// lCycleAdjust -1 (a vibrator); when none does, returns `current` unchanged. Stops at the first
/// vibrator found, so lower LEDs are never asked.
int32_t ChooseVibrator(int32_t current, uint32_t ledCount, const CycleAdjustQuery& query);

}  // namespace feedback
