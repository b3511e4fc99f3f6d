#pragma once
// The notification-LED records the device's core library exchanges through "NLedGetDeviceInfo"
// and "NLedSetDevice", kept to the byte as the device lays them out (32-bit fields, no pointers),
// so the same bytes pass on the device and in our 64-bit build.

#include <cstddef>
#include <cstdint>

namespace nled {

/// Info ids of NLedGetDeviceInfo (and the settings id of NLedSetDevice).
constexpr uint32_t kCountInfoId = 0;     ///< fills CountInfo
constexpr uint32_t kSupportsInfoId = 1;  ///< fills SupportsInfo for its LedNum
constexpr uint32_t kSettingsInfoId = 2;  ///< NLedSetDevice takes SettingsInfo

/// OffOnBlink values of SettingsInfo.
constexpr int32_t kOff = 0;
constexpr int32_t kOn = 1;

/// The lCycleAdjust a vibrator reports: it has no blink cycle to adjust.
constexpr int32_t kVibratorCycleAdjust = -1;

/// How many notification LEDs the device has.
struct CountInfo {
    uint32_t cLeds;
};

/// What one LED can do; the caller fills LedNum, the device the rest.
struct SupportsInfo {
    uint32_t LedNum;
    int32_t lCycleAdjust;
    int32_t fAdjustTotalCycleTime;
    int32_t fAdjustOnTime;
    int32_t fAdjustOffTime;
    int32_t fMetaCycleOn;
    int32_t fMetaCycleOff;
};

/// How one LED is to be driven.
struct SettingsInfo {
    uint32_t LedNum;
    int32_t OffOnBlink;
    int32_t TotalCycleTime;
    int32_t OnTime;
    int32_t OffTime;
    int32_t MetaCycleOn;
    int32_t MetaCycleOff;
};

static_assert(sizeof(CountInfo) == 4);

static_assert(sizeof(SupportsInfo) == 28);
static_assert(offsetof(SupportsInfo, LedNum) == 0);
static_assert(offsetof(SupportsInfo, lCycleAdjust) == 4);
static_assert(offsetof(SupportsInfo, fAdjustTotalCycleTime) == 8);
static_assert(offsetof(SupportsInfo, fAdjustOnTime) == 12);
static_assert(offsetof(SupportsInfo, fAdjustOffTime) == 16);
static_assert(offsetof(SupportsInfo, fMetaCycleOn) == 20);
static_assert(offsetof(SupportsInfo, fMetaCycleOff) == 24);

static_assert(sizeof(SettingsInfo) == 28);
static_assert(offsetof(SettingsInfo, LedNum) == 0);
static_assert(offsetof(SettingsInfo, OffOnBlink) == 4);
static_assert(offsetof(SettingsInfo, TotalCycleTime) == 8);
static_assert(offsetof(SettingsInfo, OnTime) == 12);
static_assert(offsetof(SettingsInfo, OffTime) == 16);
static_assert(offsetof(SettingsInfo, MetaCycleOn) == 20);
static_assert(offsetof(SettingsInfo, MetaCycleOff) == 24);

}  // namespace nled
