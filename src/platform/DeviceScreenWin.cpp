#include "platform/DeviceScreen.h"

#include "platform/DeviceProfile.h"

namespace device {

int DeviceCaps(HDC hdc, int index) {
    if (index == LOGPIXELSX || index == LOGPIXELSY)
        return CurrentProfile().dpi;
    return GetDeviceCaps(hdc, index);
}

int SystemMetrics(int index) {
    if (index == SM_CXSCREEN)
        return CurrentProfile().width;
    if (index == SM_CYSCREEN)
        return CurrentProfile().height;
    return GetSystemMetrics(index);
}

}  // namespace device
