#pragma once
// The feedback worker's thread messages and what a pulse message asks the vibrator to do.

#include <cstdint>

namespace feedback {

/// Thread messages of the feedback worker (not window messages).
constexpr uint32_t kPulseMessage = 0x8001;  ///< wParam: length | pause << 16; lParam: count
constexpr uint32_t kQuitMessage = 0x8002;   ///< ends the worker

/// The longest pulse and the most pulses one message may ask for.
constexpr uint32_t kMaxPulseMs = 50000;
constexpr uint32_t kMaxPulseCount = 100;
/// What a message beyond those limits gets instead: one pulse of this length.
constexpr uint32_t kFallbackPulseMs = 50;

/// `count` pulses of `length` ms with `pause` ms between two of them; count is at least 1.
struct PulsePlan {
    uint32_t length;
    uint32_t pause;
    uint32_t count;
};

/// The wParam of a pulse message for one pulse of `ms` (its low 16 bits) with no pause.
constexpr uint64_t PulseWParam(uint32_t ms) {
    return ms & 0xFFFFu;
}

/// Decodes a pulse message: length from wParam bits 0-15, pause from bits 16-31, count from lParam
/// bits 0-15 (a count of 0 is one pulse). Beyond the limits it is one kFallbackPulseMs pulse.
PulsePlan PlanPulses(uint64_t wParam, uint64_t lParam);

/// Plays a plan: pulse(length), then pause(pause) and pulse(length) for each further pulse.
/// Nothing waits after the last pulse; a failed pulse does not stop the rest.
template <typename PulseFn, typename PauseFn>
void PlayPulses(const PulsePlan& plan, PulseFn pulse, PauseFn pause) {
    pulse(plan.length);
    for (uint32_t done = 1; done < plan.count; ++done) {
        pause(plan.pause);
        pulse(plan.length);
    }
}

}  // namespace feedback
