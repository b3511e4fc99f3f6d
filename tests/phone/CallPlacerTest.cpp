// PlaceCall under Wine, each case in a fresh process with the fixtures in the device's places:
// phone.dll recording the requests, cprog.exe recording its start, and this process's own
// "MSCprog" and "CallPol" windows.
#include "phone/CallPlacer.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "CallScenario.h"
#include "FixtureWindow.h"
#include "phone/PhoneLibrary.h"

namespace {

const std::vector<std::string> kNothing;

// The request line phone.dll records for a call the way PlaceCall makes it.
std::string CallLine(const std::string& number, const std::string& party) {
    return "call|size=" + std::to_string(sizeof(PhoneMakeCallInfo)) + "|flags=0|number=" + number +
           "|party=" + party + "|app=(null)|comment=(null)";
}

class CallPlacerTest : public ::testing::Test {
  protected:
    void SetUp() override {
        RemoveKeyHook();
        RemoveD2Hack();
        empty_ = std::filesystem::temp_directory_path() /
                 (L"dd-calls-empty-" + std::to_wstring(GetCurrentProcessId()));
        std::filesystem::create_directories(empty_);
    }
    void TearDown() override {
        RemoveKeyHook();
        RemoveD2Hack();
        std::error_code ignored;
        std::filesystem::remove_all(empty_, ignored);
    }

    /// A folder with neither phone.dll nor cprog.exe.
    std::wstring Empty() const { return empty_.wstring(); }
    /// The fixture phone library; the current folder holds no phone application.
    CallSetup WithPhoneLibrary() const { return {FixtureFolder(L"phone"), Empty(), {}}; }
    /// The fixture phone library, and the fixture phone application where "cprog.exe" is found.
    CallSetup WithPhoneApp() const {
        return {FixtureFolder(L"phone"), FixtureFolder(L"cprog"), {}};
    }

    static void ExpectRan(const CallRun& run) {
        EXPECT_EQ(run.error, "");
        EXPECT_EQ(run.exitCode, 0u);
    }

    std::filesystem::path empty_;
};

TEST_F(CallPlacerTest, EmptyNumberReturnsZeroAndDoesNothingElse) {
    SetKeyHookStamp(5000);
    CallRun run = RunCalls(WithPhoneApp(), 1, L"", nullptr);
    ExpectRan(run);
    EXPECT_EQ(run.Value("result"), "0");
    EXPECT_EQ(run.Value("after"), "absent");
    EXPECT_EQ(run.calls, kNothing);
    EXPECT_EQ(run.phoneApp, kNothing);
    EXPECT_EQ(KeyHookStamp(), 5000u);
}

TEST_F(CallPlacerTest, MissingPhoneLibraryReturnsMinusOneBeforeAnythingElse) {
    SetKeyHookStamp(5000);
    CallSetup setup = WithPhoneApp();
    setup.libraryFolder.clear();
    CallRun run = RunCalls(setup, 1, L"5550100", L"Fred");
    ExpectRan(run);
    EXPECT_EQ(run.Value("result"), "-1");
    EXPECT_EQ(run.Value("after"), "absent");
    EXPECT_EQ(run.phoneApp, kNothing);
    EXPECT_EQ(KeyHookStamp(), 5000u);
}

TEST_F(CallPlacerTest, PhoneLibraryThatRefusesToLoadReturnsMinusOne) {
    CallSetup setup = WithPhoneLibrary();
    setup.settings = {{L"DD_PHONE_REFUSE_LOAD", L"1"}};
    CallRun run = RunCalls(setup, 2, L"5550100", nullptr);
    ExpectRan(run);
    EXPECT_EQ(run.Values("result"), (std::vector<std::string>{"-1", "-1"}));
    EXPECT_EQ(run.Value("after"), "absent");
    EXPECT_EQ(run.calls, kNothing);
}

TEST_F(CallPlacerTest, FileThatIsNoLibraryReturnsMinusOne) {
    std::ofstream(empty_ / L"phone.dll", std::ios::binary) << "MZ this is not a library";
    CallRun run = RunCalls({Empty(), Empty(), {}}, 1, L"5550100", nullptr);
    ExpectRan(run);
    EXPECT_EQ(run.Value("result"), "-1");
    EXPECT_EQ(run.Value("after"), "absent");
}

TEST_F(CallPlacerTest, PhoneLibraryWithoutTheEntryPointReturnsMinusOneAndStaysLoaded) {
    SetKeyHookStamp(5000);
    CallRun run = RunCalls({FixtureFolder(L"phone-without-call"), FixtureFolder(L"cprog"), {}}, 1,
                           L"5550100", nullptr);
    ExpectRan(run);
    EXPECT_EQ(run.Value("result"), "-1");
    EXPECT_EQ(run.Value("after"), "loaded");
    EXPECT_EQ(run.phoneApp, kNothing);
    EXPECT_EQ(KeyHookStamp(), 5000u);
}

TEST_F(CallPlacerTest, RequestCarriesTheNumberAsStoredAndTheName) {
    FixtureWindow phoneApp(L"MSCprog");
    CallRun run = RunCalls(WithPhoneLibrary(), 1, L"+7 (912) 123-45-67", L"Zo\u00EB M\u00FCller");
    ExpectRan(run);
    EXPECT_EQ(run.Value("result"), "0");
    EXPECT_EQ(
        run.calls,
        (std::vector<std::string>{CallLine("+7 (912) 123-45-67", "Zo\xC3\xAB M\xC3\xBCller")}));
}

TEST_F(CallPlacerTest, NoCalledPartyLeavesTheNameNull) {
    FixtureWindow phoneApp(L"MSCprog");
    CallRun run = RunCalls(WithPhoneLibrary(), 1, L"5550100", nullptr);
    ExpectRan(run);
    EXPECT_EQ(run.calls, (std::vector<std::string>{CallLine("5550100", "(null)")}));
}

TEST_F(CallPlacerTest, LibraryResultIsReturnedUnchanged) {
    FixtureWindow phoneApp(L"MSCprog");
    for (const wchar_t* result : {L"7", L"-1", L"0x80004005"}) {
        CallSetup setup = WithPhoneLibrary();
        setup.settings = {{L"DD_PHONE_RESULT", result}};
        CallRun run = RunCalls(setup, 1, L"5550100", nullptr);
        ExpectRan(run);
        EXPECT_EQ(run.Value("result"),
                  std::to_string(static_cast<LONG>(std::wcstoul(result, nullptr, 0))))
            << "library result " << result;
        EXPECT_EQ(run.calls.size(), 1u);
    }
}

TEST_F(CallPlacerTest, LibraryIsLoadedOnceAndKeptWhileEveryCallReachesIt) {
    FixtureWindow phoneApp(L"MSCprog");
    CallRun run = RunCalls(WithPhoneLibrary(), 3, L"5550100", L"Fred");
    ExpectRan(run);
    EXPECT_EQ(run.Value("before"), "absent");
    EXPECT_EQ(run.Values("result"), (std::vector<std::string>{"0", "0", "0"}));
    EXPECT_EQ(run.calls, std::vector<std::string>(3, CallLine("5550100", "Fred")));
    EXPECT_EQ(run.Value("after"), "loaded");
    // One release unloads it: the three calls held exactly one reference.
    EXPECT_EQ(run.Value("afterOneRelease"), "absent");
}

TEST_F(CallPlacerTest, HashThatIsNotLastIsAnOrdinaryCall) {
    FixtureWindow phoneApp(L"MSCprog");
    FixtureWindow callPolicy(L"CallPol");
    CallRun run = RunCalls(WithPhoneLibrary(), 1, L"#31#123", nullptr);
    ExpectRan(run);
    EXPECT_EQ(run.Value("result"), "0");
    EXPECT_EQ(run.calls, (std::vector<std::string>{CallLine("#31#123", "(null)")}));
    EXPECT_TRUE(callPolicy.Received().empty());
}

TEST_F(CallPlacerTest, ServiceCodeGoesOnlyToTheCallPolicyWindow) {
    FixtureWindow callPolicy(L"CallPol");
    SetKeyHookStamp(5000);
    CallRun run = RunCalls(WithPhoneApp(), 1, L"*100#", L"Fred");
    ExpectRan(run);
    EXPECT_EQ(run.Value("result"), "0");
    EXPECT_EQ(run.Value("after"), "absent");
    EXPECT_EQ(run.calls, kNothing);
    EXPECT_EQ(run.phoneApp, kNothing);
    EXPECT_EQ(KeyHookStamp(), 5000u);
    ASSERT_EQ(callPolicy.Received().size(), 1u);
    const CopiedData& block = callPolicy.Received()[0];
    EXPECT_EQ(block.dwData, 1150u);
    EXPECT_EQ(block.cbData, 32u);
    const std::vector<uint8_t> expected = {
        1,   0, 0,   0, 20,  0, 0,   0, 0,   0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,  // header
        '*', 0, '1', 0, '0', 0, '0', 0, '#', 0, 0, 0};                         // text, terminator
    EXPECT_EQ(block.bytes, expected);
}

TEST_F(CallPlacerTest, ServiceCodeWithoutCallPolicyWindowReturnsMinusOne) {
    SetKeyHookStamp(5000);
    CallRun run = RunCalls(WithPhoneApp(), 1, L"*100#", nullptr);
    ExpectRan(run);
    EXPECT_EQ(run.Value("result"), "-1");
    EXPECT_EQ(run.Value("after"), "absent");
    EXPECT_EQ(run.calls, kNothing);
    EXPECT_EQ(run.phoneApp, kNothing);
    EXPECT_EQ(KeyHookStamp(), 5000u);
}

TEST_F(CallPlacerTest, CallPolicyWindowThatIgnoresTheBlockStillGivesZero) {
    FixtureWindow callPolicy(L"CallPol", false);
    CallRun run = RunCalls(WithPhoneLibrary(), 1, L"*#06#", nullptr);
    ExpectRan(run);
    EXPECT_EQ(run.Value("result"), "0");
    ASSERT_EQ(callPolicy.Received().size(), 1u);
    EXPECT_EQ(callPolicy.Received()[0].cbData, 32u);
}

TEST_F(CallPlacerTest, EachCallLowersTheKeyHookStampByTwoThousand) {
    FixtureWindow phoneApp(L"MSCprog");
    SetKeyHookStamp(5000);
    CallRun run = RunCalls(WithPhoneLibrary(), 2, L"5550100", nullptr);
    ExpectRan(run);
    EXPECT_EQ(run.calls.size(), 2u);
    EXPECT_EQ(KeyHookStamp(), 1000u);
}

TEST_F(CallPlacerTest, KeyHookStampWrapsBelowZero) {
    FixtureWindow phoneApp(L"MSCprog");
    SetD2Hack(1);
    SetKeyHookStamp(0);
    CallRun run = RunCalls(WithPhoneLibrary(), 1, L"5550100", nullptr);
    ExpectRan(run);
    EXPECT_EQ(KeyHookStamp(), 0xFFFFF830u);
}

TEST_F(CallPlacerTest, KeyHookStampIsLeftAloneWithD2HackOff) {
    FixtureWindow phoneApp(L"MSCprog");
    SetD2Hack(0);
    SetKeyHookStamp(5000);
    CallRun run = RunCalls(WithPhoneLibrary(), 1, L"5550100", nullptr);
    ExpectRan(run);
    EXPECT_EQ(run.calls.size(), 1u);
    EXPECT_EQ(KeyHookStamp(), 5000u);
}

TEST_F(CallPlacerTest, PhoneAppAlreadyRunningIsNotStarted) {
    FixtureWindow phoneApp(L"MSCprog");
    CallRun run = RunCalls(WithPhoneApp(), 1, L"5550100", nullptr);
    ExpectRan(run);
    EXPECT_EQ(run.phoneApp, kNothing);
    EXPECT_EQ(run.calls.size(), 1u);
}

TEST_F(CallPlacerTest, PhoneAppIsStartedWhenItsWindowIsMissing) {
    CallSetup setup = WithPhoneApp();
    setup.settings = {{L"DD_CPROG_DELAY_MS", L"100"}};
    CallRun run = RunCalls(setup, 1, L"5550100", nullptr);
    ExpectRan(run);
    EXPECT_EQ(run.Value("result"), "0");
    EXPECT_EQ(run.calls.size(), 1u);
    ASSERT_GE(run.phoneApp.size(), 2u);
    EXPECT_EQ(run.phoneApp[0], "started");
    EXPECT_EQ(run.phoneApp[1], "window");
}

TEST_F(CallPlacerTest, CallGoesAheadWhenThePhoneAppCannotStart) {
    // No window and no program: the wait runs its full two seconds, then the call is made.
    CallRun run = RunCalls(WithPhoneLibrary(), 1, L"5550100", nullptr);
    ExpectRan(run);
    EXPECT_EQ(run.Value("result"), "0");
    EXPECT_EQ(run.calls, (std::vector<std::string>{CallLine("5550100", "(null)")}));
}

}  // namespace
