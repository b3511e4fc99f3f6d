#pragma once
// The vibrator: the notification LED of the device's core library ("coredll.dll") that vibrates.
// Its state is process-wide and belongs to the feedback worker's thread.
//
// The library is looked up once, on the first pulse: without it, or without "NLedSetDevice", the
// vibrator is gone for the rest of the run and every pulse fails at once. That is the normal case
// on desktop Windows and under Wine, which have no such library.

#include <cstdint>

namespace feedback {

/// One vibration of `ms` milliseconds, timed by spinning on the tick count; Pulse(0) switches
/// the vibrator off. False when there is no usable vibrator. Call from one thread only (the
/// feedback worker, or a test that runs no worker).
bool Pulse(uint32_t ms);

}  // namespace feedback
