// The feedback worker under Wine: pulse messages played on its own thread against the
// coredll.dll fixture, the limits of one message, the quit at shutdown and the "BtnFeedback" rule
// as callers apply it. Lower time bounds are exact, each on the clock that governs it: on-times in
// ticks (the busy wait spins on the tick count), pauses in microseconds (Sleep counts real time,
// which the coarse tick count can under-read by a step). Upper bounds are loose: a loaded machine.
#include "phone/ButtonFeedback.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <vector>

#include "LedFixture.h"
#include "phone/FeedbackSetting.h"
#include "phone/PulsePlan.h"

namespace {

using led_fixture::LedDevice;
using led_fixture::Line;

/// Far above any on-time or pause asked for here, far below the wrong behaviour's.
constexpr uint32_t kSlack = 2000;
constexpr uint64_t kMicrosPerMs = 1000;

// Posts a pulse message as a caller that wants more than one pulse would.
void PostPulses(uint32_t length, uint32_t pause, uint32_t count) {
    uint32_t worker = feedback::StartFeedbackWorker();
    ASSERT_NE(worker, 0u);
    ASSERT_TRUE(PostThreadMessageW(worker, feedback::kPulseMessage, length | (pause << 16),
                                   static_cast<LPARAM>(count)));
}

class ButtonFeedbackWinTest : public testing::Test {
  protected:
    void TearDown() override { EXPECT_TRUE(feedback::StopFeedback()); }

    // Checks on/off pairs on LED 1, each on for at least `length` ms.
    static void ExpectPulses(const std::vector<Line>& switches, size_t pulses, uint32_t length) {
        ASSERT_EQ(switches.size(), 2 * pulses);
        for (size_t i = 0; i < switches.size(); i += 2) {
            EXPECT_EQ(switches[i].kind, "on") << i;
            EXPECT_EQ(switches[i + 1].kind, "off") << i;
            EXPECT_EQ(switches[i].led, 1u) << i;
            EXPECT_EQ(switches[i + 1].led, 1u) << i;
            EXPECT_GE(switches[i + 1].tick - switches[i].tick, length) << i;
            EXPECT_LT(switches[i + 1].tick - switches[i].tick, length + kSlack) << i;
        }
    }
};

TEST_F(ButtonFeedbackWinTest, RequestPulseVibratesOnTheWorker) {
    LedDevice device(led_fixture::kFull);
    const DWORD start = GetTickCount();
    feedback::RequestPulse(500);
    EXPECT_LT(GetTickCount() - start, 500u);  // the caller never waits for the pulse
    ASSERT_TRUE(device.WaitForSwitches(2));
    ASSERT_TRUE(feedback::StopFeedback());
    ExpectPulses(device.Lines("switch"), 1, 500);
    EXPECT_EQ(device.BadCalls(), "");
}

TEST_F(ButtonFeedbackWinTest, RequestPulseKeepsTheLowSixteenBitsOfTheLength) {
    LedDevice device(led_fixture::kFull);
    feedback::RequestPulse(0x1'0028);  // 40 ms, not 65576
    ASSERT_TRUE(device.WaitForSwitches(2));
    ExpectPulses(device.Lines("switch"), 1, 40);
}

TEST_F(ButtonFeedbackWinTest, FirstRequestIsNotLost) {
    LedDevice device(led_fixture::kFull);
    feedback::RequestPulse(5);
    feedback::RequestPulse(5);
    ASSERT_TRUE(feedback::StopFeedback());
    EXPECT_EQ(device.Lines("switch").size(), 4u);
}

TEST_F(ButtonFeedbackWinTest, ThreePulsesWithPausesBetweenAndNoSleepAfterTheLast) {
    LedDevice device(led_fixture::kFull);
    PostPulses(40, 200, 3);
    // The quit queued right behind: a sleep after the last pulse would hold the worker's end.
    ASSERT_TRUE(feedback::StopFeedback());
    const uint64_t ended = led_fixture::Microseconds();
    std::vector<Line> switches = device.Lines("switch");
    ExpectPulses(switches, 3, 40);
    ASSERT_EQ(switches.size(), 6u);
    for (size_t off = 1; off + 1 < switches.size(); off += 2) {
        const uint64_t pause = switches[off + 1].micros - switches[off].micros;
        EXPECT_GE(pause, 200 * kMicrosPerMs) << off;
        EXPECT_LT(pause, (200 + kSlack) * kMicrosPerMs) << off;
    }
    EXPECT_LT(ended - switches.back().micros, 200 * kMicrosPerMs);
}

TEST_F(ButtonFeedbackWinTest, CountOfZeroIsOnePulse) {
    LedDevice device(led_fixture::kFull);
    PostPulses(30, 200, 0);
    ASSERT_TRUE(feedback::StopFeedback());
    ExpectPulses(device.Lines("switch"), 1, 30);
}

TEST_F(ButtonFeedbackWinTest, HundredPulsesAreAllowed) {
    LedDevice device(led_fixture::kFull);
    PostPulses(1, 0, 100);
    ASSERT_TRUE(device.WaitForSwitches(200));
    ASSERT_TRUE(feedback::StopFeedback());
    ExpectPulses(device.Lines("switch"), 100, 1);
}

TEST_F(ButtonFeedbackWinTest, OverlongPulseIsOneFiftyMillisecondPulse) {
    LedDevice device(led_fixture::kFull);
    PostPulses(50001, 200, 3);
    ASSERT_TRUE(device.WaitForSwitches(2));
    ASSERT_TRUE(feedback::StopFeedback());
    ExpectPulses(device.Lines("switch"), 1, 50);
}

TEST_F(ButtonFeedbackWinTest, HundredAndOnePulsesAreOneFiftyMillisecondPulse) {
    LedDevice device(led_fixture::kFull);
    PostPulses(10, 200, 101);
    ASSERT_TRUE(device.WaitForSwitches(2));
    ASSERT_TRUE(feedback::StopFeedback());
    ExpectPulses(device.Lines("switch"), 1, 50);  // not 10: the whole message is replaced
}

TEST_F(ButtonFeedbackWinTest, OtherMessagesAreIgnored) {
    LedDevice device(led_fixture::kFull);
    uint32_t worker = feedback::StartFeedbackWorker();
    ASSERT_NE(worker, 0u);
    PostThreadMessageW(worker, 0x8003, 40, 3);
    PostThreadMessageW(worker, WM_USER, 40, 3);
    feedback::RequestPulse(10);
    ASSERT_TRUE(device.WaitForSwitches(2));
    ASSERT_TRUE(feedback::StopFeedback());
    ExpectPulses(device.Lines("switch"), 1, 10);
}

TEST_F(ButtonFeedbackWinTest, StopEndsTheWorkerAndARequestStartsAnother) {
    LedDevice device(led_fixture::kFull);
    EXPECT_TRUE(feedback::StopFeedback());  // none yet
    uint32_t first = feedback::StartFeedbackWorker();
    ASSERT_NE(first, 0u);
    EXPECT_EQ(feedback::StartFeedbackWorker(), first);
    HANDLE thread = OpenThread(SYNCHRONIZE, FALSE, first);
    ASSERT_NE(thread, nullptr);
    ASSERT_TRUE(feedback::StopFeedback());
    EXPECT_EQ(WaitForSingleObject(thread, 0), WAIT_OBJECT_0);
    CloseHandle(thread);
    feedback::RequestPulse(10);
    ASSERT_TRUE(device.WaitForSwitches(2));
    ExpectPulses(device.Lines("switch"), 1, 10);
}

TEST_F(ButtonFeedbackWinTest, WithoutCoreLibraryRequestsDoNothing) {
    LedDevice device(nullptr);
    feedback::RequestPulse(40);
    PostPulses(40, 100, 3);
    const DWORD start = GetTickCount();
    ASSERT_TRUE(feedback::StopFeedback());
    // Only the pauses between pulses remain: two of 100 ms, no pulse time.
    EXPECT_LT(GetTickCount() - start, 200u + kSlack);
    EXPECT_TRUE(device.Lines().empty());
    EXPECT_EQ(GetModuleHandleW(L"coredll.dll"), nullptr);
}

TEST_F(ButtonFeedbackWinTest, WithoutSetDeviceRequestsDoNothing) {
    LedDevice device(led_fixture::kWithoutSetDevice);
    feedback::RequestPulse(40);
    feedback::RequestPulse(40);
    ASSERT_TRUE(feedback::StopFeedback());
    EXPECT_TRUE(device.Lines("switch").empty());
    EXPECT_EQ(device.BadCalls(), "");
}

// What the board and the picker do on a press.
void Press() {
    if (feedback::ButtonFeedbackWanted())
        feedback::RequestPulse(feedback::kPressPulseMs);
}

// The program's settings, from none to none again.
struct CleanSettings {
    CleanSettings() { RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Orvalis"); }
    ~CleanSettings() { RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Orvalis"); }
};

void StoreButtonFeedback(DWORD value) {
    HKEY key = nullptr;
    ASSERT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, L"Software\\Orvalis\\PIM\\Settings", 0, nullptr, 0,
                              KEY_WRITE, nullptr, &key, nullptr),
              ERROR_SUCCESS);
    ASSERT_EQ(RegSetValueExW(key, L"BtnFeedback", 0, REG_DWORD,
                             reinterpret_cast<const BYTE*>(&value), sizeof(value)),
              ERROR_SUCCESS);
    RegCloseKey(key);
}

TEST_F(ButtonFeedbackWinTest, OnlyButtonFeedbackTwoVibrates) {
    CleanSettings settings;
    LedDevice device(led_fixture::kFull);
    Press();  // no value stored: the default 1
    ASSERT_TRUE(feedback::StopFeedback());
    EXPECT_TRUE(device.Lines("switch").empty());
    for (DWORD value : {0u, 1u, 3u}) {
        StoreButtonFeedback(value);
        Press();
        ASSERT_TRUE(feedback::StopFeedback());
        EXPECT_TRUE(device.Lines("switch").empty()) << "BtnFeedback " << value;
    }
    StoreButtonFeedback(2);
    Press();
    ASSERT_TRUE(feedback::StopFeedback());
    ExpectPulses(device.Lines("switch"), 1, feedback::kPressPulseMs);
}

}  // namespace
