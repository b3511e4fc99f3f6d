#pragma once
// The screen device context and the measuring of the screen, done once at start-up.

#include <windows.h>

/// Fills the process-wide ScreenInfo from the screen (the device profile on the desktop) the
/// first time; later calls do nothing.
void MeasureScreen(HDC dc);

/// The screen device context taken at start-up for text measurements; null outside the run.
HDC ScreenDc();

/// Takes the screen device context for the run and releases it when it goes out of scope.
class ScreenDcLease {
  public:
    ScreenDcLease();
    ~ScreenDcLease();
    ScreenDcLease(const ScreenDcLease&) = delete;
    ScreenDcLease& operator=(const ScreenDcLease&) = delete;
    HDC get() const { return ScreenDc(); }
};
