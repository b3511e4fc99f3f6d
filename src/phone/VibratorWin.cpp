#include <windows.h>

#include "base/Clock.h"
#include "phone/LedRecords.h"
#include "phone/Vibrator.h"
#include "phone/VibratorChoice.h"

namespace feedback {
namespace {

using GetDeviceInfoFn = BOOL(WINAPI*)(UINT infoId, void* output);
using SetDeviceFn = BOOL(WINAPI*)(UINT deviceId, void* input);

/// The vibrator index once the library has proved unusable: no pulse ever again.
constexpr int32_t kNoVibrator = -1;

// Written and read by the worker thread only; no lock.
int32_t gVibratorIndex = kDefaultVibrator;
SetDeviceFn gSetDevice = nullptr;

template <typename Fn>
Fn Entry(HMODULE library, const char* name) {
    return reinterpret_cast<Fn>(reinterpret_cast<void*>(GetProcAddress(library, name)));
}

// Asks the device which LED vibrates; a device that cannot say keeps the current choice.
void AskForVibrator(GetDeviceInfoFn getInfo) {
    nled::CountInfo count{};
    if (getInfo == nullptr || !getInfo(nled::kCountInfoId, &count))
        return;
    gVibratorIndex =
        ChooseVibrator(gVibratorIndex, count.cLeds, [getInfo](uint32_t led, int32_t* cycleAdjust) {
            nled::SupportsInfo info{};
            info.LedNum = led;
            if (!getInfo(nled::kSupportsInfoId, &info))
                return false;
            *cycleAdjust = info.lCycleAdjust;
            return true;
        });
}

// The one look-up of the run. The library stays loaded while it is in use.
bool FindDevice() {
    HMODULE library = LoadLibraryW(L"coredll.dll");
    if (library == nullptr) {
        gVibratorIndex = kNoVibrator;
        return false;
    }
    auto setDevice = Entry<SetDeviceFn>(library, "NLedSetDevice");
    if (setDevice == nullptr) {
        FreeLibrary(library);
        gVibratorIndex = kNoVibrator;
        return false;
    }
    AskForVibrator(Entry<GetDeviceInfoFn>(library, "NLedGetDeviceInfo"));
    gSetDevice = setDevice;
    return true;
}

// Whether the device took the setting does not matter: the pulse is done either way.
void SetVibrator(int32_t offOnBlink) {
    nled::SettingsInfo settings{};
    settings.LedNum = static_cast<uint32_t>(gVibratorIndex);
    settings.OffOnBlink = offOnBlink;
    gSetDevice(nled::kSettingsInfoId, &settings);
}

}  // namespace

bool Pulse(uint32_t ms) {
    if (gVibratorIndex == kNoVibrator)
        return false;
    if (gSetDevice == nullptr && !FindDevice())
        return false;
    if (ms == 0) {
        SetVibrator(nled::kOff);
        return true;
    }
    SetVibrator(nled::kOn);
    // Spinning, not sleeping, keeps the vibrator on for the asked time however the scheduler
    // treats this thread; it is the worker's own thread, so nobody waits for it. The comparison
    // is of absolute ticks in unsigned arithmetic, as the device does it.
    const uint32_t start = TickCount();
    while (start + ms >= TickCount()) {
    }
    SetVibrator(nled::kOff);
    return true;
}

}  // namespace feedback
