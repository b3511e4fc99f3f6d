#include "phone/VibratorChoice.h"

#include "phone/LedRecords.h"

namespace feedback {

int32_t ChooseVibrator(int32_t current, uint32_t ledCount, const CycleAdjustQuery& query) {
    // Counting down in 64 bits: a count of 0 asks nothing, and no count wraps the walk.
    for (int64_t led = static_cast<int64_t>(ledCount) - 1; led >= 0; --led) {
        int32_t cycleAdjust = 0;
        if (query(static_cast<uint32_t>(led), &cycleAdjust) &&
            cycleAdjust == nled::kVibratorCycleAdjust) {
            return static_cast<int32_t>(led);
        }
    }
    return current;
}

}  // namespace feedback
