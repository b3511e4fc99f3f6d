#pragma once
// Runs PlaceCall in a fresh process (call_probe.exe) with the fixtures in the device's places,
// and gathers what every party recorded. The probe and whatever it starts run in one job: the
// run ends when all of them have ended, so the records are complete, and nothing outlives it.

#include <windows.h>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

/// Where the fixtures were built: fixtures/phone (phone.dll), fixtures/phone-without-call
/// (phone.dll without "PhoneMakeCall"), fixtures/cprog (cprog.exe).
std::wstring FixtureFolder(const wchar_t* name);

/// A fixture's record file, one line per entry; empty when the file is missing.
std::vector<std::string> RecordLines(const std::filesystem::path& file);

/// What one run is given.
struct CallSetup {
    std::wstring libraryFolder;  ///< added to the probe's library search path; empty: none
    std::wstring workFolder;     ///< the probe's current folder, where "cprog.exe" is looked for
    std::vector<std::pair<std::wstring, std::wstring>> settings;  ///< more variables, e.g.
                                                                  ///< DD_PHONE_RESULT
};

/// What one run left behind.
struct CallRun {
    DWORD exitCode = 0;
    std::vector<std::string> report;    ///< the probe's report lines
    std::vector<std::string> calls;     ///< phone.dll's record: one line per request
    std::vector<std::string> phoneApp;  ///< cprog.exe's record: "started", "window", ...
    std::string error;                  ///< why the run itself failed; empty when it did not

    /// The report's values for key ("result" has one per call).
    std::vector<std::string> Values(const std::string& key) const;
    /// The report's one value for key; empty when missing.
    std::string Value(const std::string& key) const;
};

/// Places `times` calls to number (calledParty null: none) in a fresh probe process, pumping this
/// thread's messages meanwhile so the test's fixture windows answer.
CallRun RunCalls(const CallSetup& setup, int times, const std::wstring& number,
                 const wchar_t* calledParty);

/// The machine-wide key-hook stamp: set it (creating the key), read it (nullopt when the key or
/// value is missing), and remove the key.
void SetKeyHookStamp(DWORD stamp);
std::optional<DWORD> KeyHookStamp();
void RemoveKeyHook();
/// The "D2Hack" setting: set it, or remove it so the default applies.
void SetD2Hack(DWORD value);
void RemoveD2Hack();
