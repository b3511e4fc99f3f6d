#pragma once
// Screen queries answered the way the device answers them: the logical dots per inch and the
// screen size come from the device profile (DeviceProfile.h); every other index from the system.

#include <windows.h>

namespace device {

/// GetDeviceCaps, with LOGPIXELSX and LOGPIXELSY taken from the current profile.
int DeviceCaps(HDC hdc, int index);
/// GetSystemMetrics, with SM_CXSCREEN and SM_CYSCREEN taken from the current profile.
int SystemMetrics(int index);

}  // namespace device
