// The vibrator against the coredll.dll fixture: the one look-up of the device, the choice of the
// vibrating LED, and the timed pulse. Pulse is called on the test's thread, which runs no worker.
#include "phone/Vibrator.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "LedFixture.h"
#include "phone/LedRecords.h"

namespace {

using feedback::Pulse;
using led_fixture::LedDevice;
using led_fixture::Switches;
using Strings = std::vector<std::string>;

std::vector<uint32_t> AskedLeds(const LedDevice& device) {
    std::vector<uint32_t> leds;
    for (const auto& line : device.Lines("supports"))
        leds.push_back(line.led);
    return leds;
}

TEST(VibratorWinTest, WithoutCoreLibraryFeedbackIsSilentlyOff) {
    LedDevice device(nullptr);
    EXPECT_FALSE(Pulse(40));
    EXPECT_FALSE(Pulse(0));
    EXPECT_EQ(GetModuleHandleW(L"coredll.dll"), nullptr);
    EXPECT_TRUE(device.Lines().empty());
}

TEST(VibratorWinTest, WithoutSetDeviceEveryPulseFailsAtOnce) {
    LedDevice device(led_fixture::kWithoutSetDevice);
    device.SetCount(L"3");
    EXPECT_FALSE(Pulse(40));
    const DWORD start = GetTickCount();
    EXPECT_FALSE(Pulse(1000));
    EXPECT_FALSE(Pulse(0));
    EXPECT_LT(GetTickCount() - start, 1000u);  // no spin: the device is given up for good
    // Loaded once, then never asked anything and never loaded again.
    std::vector<led_fixture::Line> lines = device.Lines();
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].kind, "load");
}

TEST(VibratorWinTest, WithoutDeviceInfoLedOneVibrates) {
    LedDevice device(led_fixture::kWithoutDeviceInfo);
    EXPECT_TRUE(Pulse(20));
    EXPECT_EQ(Switches(device.Lines("switch")), (Strings{"on 1", "off 1"}));
    EXPECT_EQ(device.BadCalls(), "");
}

TEST(VibratorWinTest, FailedCountQueryKeepsLedOne) {
    LedDevice device(led_fixture::kFull);
    EXPECT_TRUE(Pulse(20));
    EXPECT_EQ(device.Lines("count").size(), 1u);
    EXPECT_TRUE(device.Lines("supports").empty());
    EXPECT_EQ(Switches(device.Lines("switch")), (Strings{"on 1", "off 1"}));
    EXPECT_EQ(device.BadCalls(), "");
}

TEST(VibratorWinTest, NoLedWithCycleAdjustMinusOneMeansLedOne) {
    LedDevice device(led_fixture::kFull);
    device.SetCount(L"4");
    device.SetCycleAdjust(L"0,1,0,2");
    EXPECT_TRUE(Pulse(20));
    EXPECT_EQ(AskedLeds(device), (std::vector<uint32_t>{3, 2, 1, 0}));
    EXPECT_EQ(Switches(device.Lines("switch")), (Strings{"on 1", "off 1"}));
    EXPECT_EQ(device.BadCalls(), "");
}

TEST(VibratorWinTest, HighestLedWithCycleAdjustMinusOneVibrates) {
    LedDevice device(led_fixture::kFull);
    device.SetCount(L"5");
    device.SetCycleAdjust(L"0,-1,0,-1,0");
    EXPECT_TRUE(Pulse(20));
    EXPECT_EQ(AskedLeds(device), (std::vector<uint32_t>{4, 3}));
    EXPECT_EQ(Switches(device.Lines("switch")), (Strings{"on 3", "off 3"}));
    EXPECT_EQ(device.BadCalls(), "");
}

TEST(VibratorWinTest, LedZeroCanVibrate) {
    LedDevice device(led_fixture::kFull);
    device.SetCount(L"2");
    device.SetCycleAdjust(L"-1,0");
    EXPECT_TRUE(Pulse(20));
    EXPECT_EQ(Switches(device.Lines("switch")), (Strings{"on 0", "off 0"}));
}

TEST(VibratorWinTest, FailedCapabilityReplyDoesNotCount) {
    LedDevice device(led_fixture::kFull);
    device.SetCount(L"4");
    device.SetCycleAdjust(L"0,0,-1,-1");
    device.SetFailing(L"3");
    EXPECT_TRUE(Pulse(20));
    EXPECT_EQ(AskedLeds(device), (std::vector<uint32_t>{3, 2}));
    EXPECT_EQ(Switches(device.Lines("switch")), (Strings{"on 2", "off 2"}));
    EXPECT_EQ(device.BadCalls(), "");
}

TEST(VibratorWinTest, NoLedsMeansLedOne) {
    LedDevice device(led_fixture::kFull);
    device.SetCount(L"0");
    EXPECT_TRUE(Pulse(20));
    EXPECT_TRUE(device.Lines("supports").empty());
    EXPECT_EQ(Switches(device.Lines("switch")), (Strings{"on 1", "off 1"}));
}

TEST(VibratorWinTest, DeviceIsLookedUpOnce) {
    LedDevice device(led_fixture::kFull);
    device.SetCount(L"3");
    device.SetCycleAdjust(L"0,0,-1");
    EXPECT_TRUE(Pulse(5));
    // A later change of the device's answers is not seen: the choice is made for the run.
    device.SetCycleAdjust(L"-1,0,0");
    EXPECT_TRUE(Pulse(5));
    EXPECT_TRUE(Pulse(5));
    EXPECT_EQ(device.Lines("load").size(), 1u);
    EXPECT_EQ(device.Lines("count").size(), 1u);
    EXPECT_EQ(AskedLeds(device), (std::vector<uint32_t>{2}));
    EXPECT_EQ(Switches(device.Lines("switch")),
              (Strings{"on 2", "off 2", "on 2", "off 2", "on 2", "off 2"}));
}

TEST(VibratorWinTest, PulseZeroSwitchesTheVibratorOff) {
    LedDevice device(led_fixture::kFull);
    EXPECT_TRUE(Pulse(0));
    EXPECT_EQ(Switches(device.Lines("switch")), (Strings{"off 1"}));
    EXPECT_EQ(device.BadCalls(), "");
}

TEST(VibratorWinTest, VibratorStaysOnForTheAskedTime) {
    LedDevice device(led_fixture::kFull);
    const DWORD start = GetTickCount();
    EXPECT_TRUE(Pulse(120));
    EXPECT_GE(GetTickCount() - start, 120u);
    std::vector<led_fixture::Line> switches = device.Lines("switch");
    ASSERT_EQ(switches.size(), 2u);
    EXPECT_GE(switches[1].tick - switches[0].tick, 120u);
    EXPECT_LT(switches[1].tick - switches[0].tick, 2000u);
}

// The fixture itself: calls outside the device's contract are named, so the checks above that
// there were none can fail.
TEST(VibratorWinTest, FixtureNamesCallsOutsideTheContract) {
    LedDevice device(led_fixture::kFull);
    HMODULE library = LoadLibraryW(L"coredll.dll");
    ASSERT_NE(library, nullptr);
    using Entry = BOOL(WINAPI*)(UINT, void*);
    auto setDevice =
        reinterpret_cast<Entry>(reinterpret_cast<void*>(GetProcAddress(library, "NLedSetDevice")));
    auto getInfo = reinterpret_cast<Entry>(
        reinterpret_cast<void*>(GetProcAddress(library, "NLedGetDeviceInfo")));
    ASSERT_NE(setDevice, nullptr);
    ASSERT_NE(getInfo, nullptr);
    nled::SettingsInfo settings{};
    settings.LedNum = 1;
    settings.OffOnBlink = 2;  // blinking: never asked for
    EXPECT_FALSE(setDevice(nled::kSettingsInfoId, &settings));
    settings.OffOnBlink = nled::kOn;
    EXPECT_FALSE(setDevice(5, &settings));
    settings.OnTime = 100;
    EXPECT_FALSE(setDevice(nled::kSettingsInfoId, &settings));
    nled::SupportsInfo supports{};
    supports.fAdjustOnTime = 1;
    EXPECT_FALSE(getInfo(nled::kSupportsInfoId, &supports));
    EXPECT_FALSE(getInfo(9, &supports));
    device.SetCount(L"two");
    nled::CountInfo count{};
    EXPECT_FALSE(getInfo(nled::kCountInfoId, &count));
    FreeLibrary(library);
    EXPECT_EQ(device.BadCalls(),
              "bad NLedSetDevice LED 1 OffOnBlink 2\n"
              "bad NLedSetDevice with unknown id 5\n"
              "bad settings record for LED 1 has cycle times set\n"
              "bad supports record for LED 0 not zeroed after LedNum\n"
              "bad NLedGetDeviceInfo with unknown id 9\n"
              "bad DD_NLED_COUNT is not a count: 'two'\n");
    EXPECT_TRUE(device.Lines("switch").empty());
}

}  // namespace
