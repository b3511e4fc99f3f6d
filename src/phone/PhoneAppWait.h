#pragma once
// Making sure the phone application runs before a call: when its window is missing the program
// is started and its window is awaited for up to about two seconds. The call goes ahead whether
// or not the window showed up.

#include <cstdint>

/// The phone application's program, started by name.
constexpr char16_t kPhoneAppProgram[] = u"cprog.exe";
/// The window class looked for before starting the program.
constexpr char16_t kPhoneAppClass[] = u"MSCprog";
/// The window class polled for after the start: the program spells it with a capital "P".
/// Class names compare without regard to case, so both find the same window.
constexpr char16_t kPhoneAppPolledClass[] = u"MSCProg";
/// One poll step, and how long after the start request the polling gives up.
constexpr uint32_t kPhoneAppPollStepMs = 100;
constexpr uint32_t kPhoneAppWaitMs = 2000;

/// Whether the wait that began at tick `start` is over at tick `now`: more than 2000 ms have
/// passed, counted on the tick clock that wraps at 2^32.
constexpr bool PhoneAppWaitOver(uint32_t start, uint32_t now) {
    return now - start > kPhoneAppWaitMs;
}

/// The poll after a start request made at tick `start` (TickCount()): sleep(100 ms), then ask
/// windowShown(); stop when it answers true or when PhoneAppWaitOver(start, TickCount()).
/// Returns whether the window showed. The first look comes after the first sleep.
bool AwaitPhoneApp(uint32_t start, bool (*windowShown)(), void (*sleep)(uint32_t ms));
