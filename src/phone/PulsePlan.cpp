#include "phone/PulsePlan.h"

namespace feedback {

PulsePlan PlanPulses(uint64_t wParam, uint64_t lParam) {
    const uint32_t length = static_cast<uint32_t>(wParam & 0xFFFFu);
    const uint32_t pause = static_cast<uint32_t>((wParam >> 16) & 0xFFFFu);
    const uint32_t count = static_cast<uint32_t>(lParam & 0xFFFFu);
    if (length > kMaxPulseMs || count > kMaxPulseCount)
        return {kFallbackPulseMs, 0, 1};
    return {length, pause, count == 0 ? 1u : count};
}

}  // namespace feedback
