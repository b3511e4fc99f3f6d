// The fixtures themselves: given bad input they say what they got, in their records, and carry on.
#include <windows.h>

#include <gtest/gtest.h>

#include <filesystem>

#include "CallScenario.h"
#include "FixtureWindow.h"
#include "phone/PhoneLibrary.h"

namespace {

TEST(PhoneFixturesTest, PhoneLibraryTellsABadResultSettingAndReturnsZero) {
    FixtureWindow phoneApp(L"MSCprog");
    CallRun run = RunCalls(
        {FixtureFolder(L"phone"), FixtureFolder(L"phone"), {{L"DD_PHONE_RESULT", L"soon"}}}, 1,
        L"5550100", nullptr);
    EXPECT_EQ(run.error, "");
    EXPECT_EQ(run.Value("result"), "0");
    ASSERT_EQ(run.calls.size(), 2u);
    EXPECT_EQ(run.calls[0].rfind("call|size=", 0), 0u);
    EXPECT_EQ(run.calls[1], "bad setting: DD_PHONE_RESULT=\"soon\" is not a whole number; using 0");
}

TEST(PhoneFixturesTest, PhoneLibraryTellsABadRequest) {
    const std::filesystem::path record =
        std::filesystem::temp_directory_path() /
        (L"dd-phone-record-" + std::to_wstring(GetCurrentProcessId()) + L".txt");
    std::filesystem::remove(record);
    SetEnvironmentVariableW(L"DD_PHONE_RECORD", record.c_str());
    HMODULE library = LoadLibraryW((FixtureFolder(L"phone") + L"\\phone.dll").c_str());
    ASSERT_NE(library, nullptr);
    auto makeCall = reinterpret_cast<PhoneMakeCallEntry>(
        reinterpret_cast<void*>(GetProcAddress(library, kPhoneMakeCallName)));
    ASSERT_NE(makeCall, nullptr);

    PhoneMakeCallInfo request{};
    request.cbSize = 24;
    request.pszDestAddress = L"5550100";
    EXPECT_EQ(makeCall(nullptr), E_INVALIDARG);
    EXPECT_EQ(makeCall(&request), E_INVALIDARG);
    FreeLibrary(library);
    SetEnvironmentVariableW(L"DD_PHONE_RECORD", nullptr);

    EXPECT_EQ(RecordLines(record),
              (std::vector<std::string>{"bad request: null record",
                                        "bad request: cbSize=24, the record is " +
                                            std::to_string(sizeof(PhoneMakeCallInfo)) + " bytes"}));
    std::filesystem::remove(record);
}

TEST(PhoneFixturesTest, PhoneAppTellsABadDelayAndOpensItsWindowAtOnce) {
    CallRun run = RunCalls(
        {FixtureFolder(L"phone"), FixtureFolder(L"cprog"), {{L"DD_CPROG_DELAY_MS", L"soon"}}}, 1,
        L"5550100", nullptr);
    EXPECT_EQ(run.error, "");
    ASSERT_GE(run.phoneApp.size(), 3u);
    EXPECT_EQ(run.phoneApp[0], "started");
    EXPECT_EQ(run.phoneApp[1],
              "bad setting: DD_CPROG_DELAY_MS=\"soon\" is not a whole number; using 0");
    EXPECT_EQ(run.phoneApp[2], "window");
}

}  // namespace
