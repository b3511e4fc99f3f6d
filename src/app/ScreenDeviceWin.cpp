#include "app/ScreenDevice.h"

#include "base/ScreenInfo.h"
#include "platform/DeviceScreen.h"

namespace {

HDC& TheScreenDc() {
    static HDC dc = nullptr;
    return dc;
}

}  // namespace

void MeasureScreen(HDC dc) {
    if (Screen().dpiX != 0)
        return;
    SetScreen(
        ComputeScreenInfo(device::DeviceCaps(dc, LOGPIXELSX), device::DeviceCaps(dc, LOGPIXELSY),
                          device::SystemMetrics(SM_CXSCREEN), device::SystemMetrics(SM_CYSCREEN)));
}

HDC ScreenDc() {
    return TheScreenDc();
}

ScreenDcLease::ScreenDcLease() {
    TheScreenDc() = GetDC(nullptr);
}

ScreenDcLease::~ScreenDcLease() {
    if (TheScreenDc() != nullptr)
        ReleaseDC(nullptr, TheScreenDc());
    TheScreenDc() = nullptr;
}
