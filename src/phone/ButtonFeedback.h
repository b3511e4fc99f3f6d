#pragma once
// Button feedback: short vibrations played on a worker thread, so the UI never waits for them.
// The UI thread starts the worker and posts to it; the worker alone touches the vibrator, one
// pulse after another in the order they were asked for. Check ButtonFeedbackWanted
// (phone/FeedbackSetting.h) before asking.

#include <cstdint>

namespace feedback {

/// Starts the worker thread when there is none yet (it then lives until StopFeedback). Returns
/// its thread id, ready for thread messages (kPulseMessage, kQuitMessage of phone/PulsePlan.h),
/// or 0 when the thread cannot be created.
uint32_t StartFeedbackWorker();

/// Asks for one pulse of `ms` (its low 16 bits) milliseconds with no pause; starts the worker on
/// first use. Returns at once; a worker that cannot be started means no pulse.
void RequestPulse(uint32_t ms);

/// At shutdown: posts the quit message behind any pulses still queued and waits for the worker
/// to end, at most a few seconds. True when no worker is left running.
bool StopFeedback();

}  // namespace feedback
