#include "CallScenario.h"

#include <filesystem>
#include <fstream>

#include "base/Registry.h"
#include "base/SettingsStore.h"
#include "phone/KeyHookStamp.h"
#include "phone/PhoneAppWait.h"
#include "win/WideCast.h"

namespace {

constexpr DWORD kProbeLimitMs = 30000;
constexpr ULONGLONG kJobLimitMs = 15000;
constexpr DWORD kJobLookMs = 100;
// The fixture phone application is told to leave by itself well within the job limit.
constexpr wchar_t kPhoneAppLifetimeMs[] = L"3000";

// The build passes Unix paths; made full on the current drive, they name the same files under Wine.
std::wstring FullPath(const char* path) {
    std::wstring wide(path, path + std::char_traits<char>::length(path));
    wchar_t full[MAX_PATH];
    DWORD n = GetFullPathNameW(wide.c_str(), MAX_PATH, full, nullptr);
    return n > 0 && n < MAX_PATH ? std::wstring(full, n) : wide;
}

std::filesystem::path NewRecordFolder() {
    static int counter = 0;
    std::filesystem::path folder =
        std::filesystem::temp_directory_path() /
        (L"dd-calls-" + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(counter++));
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    return folder;
}

bool IsOurs(const std::wstring& entry) {
    static const wchar_t* const kNames[] = {L"DD_PROBE_", L"DD_PHONE_", L"DD_CPROG_"};
    for (const wchar_t* name : kNames) {
        if (_wcsnicmp(entry.c_str(), name, wcslen(name)) == 0)
            return true;
    }
    return false;
}

// This process's environment without any earlier fixture settings, plus the given ones.
std::wstring Environment(const std::vector<std::pair<std::wstring, std::wstring>>& settings) {
    std::wstring block;
    wchar_t* strings = GetEnvironmentStringsW();
    for (const wchar_t* entry = strings; *entry != 0; entry += wcslen(entry) + 1) {
        if (!IsOurs(entry))
            block.append(entry).push_back(L'\0');
    }
    FreeEnvironmentStringsW(strings);
    for (const auto& [name, value] : settings)
        block.append(name + L"=" + value).push_back(L'\0');
    block.push_back(L'\0');
    return block;
}

std::wstring Quoted(const std::wstring& text) {
    return L"\"" + text + L"\"";
}

void PumpMessages() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

// Asks phone-application windows of other processes (the fixture cprog.exe) to close.
void ClosePhoneApps() {
    EnumWindows(
        [](HWND window, LPARAM) -> BOOL {
            wchar_t name[64];
            DWORD process = 0;
            GetWindowThreadProcessId(window, &process);
            if (process != GetCurrentProcessId() && GetClassNameW(window, name, 64) > 0 &&
                _wcsicmp(name, W(kPhoneAppPolledClass)) == 0)
                PostMessageW(window, WM_CLOSE, 0, 0);
            return TRUE;
        },
        0);
}

void EnsureDesktopProcess() {
    HWND window = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr,
                                  GetModuleHandleW(nullptr), nullptr);
    if (window != nullptr)
        DestroyWindow(window);
}

struct Job {
    HANDLE job = CreateJobObjectW(nullptr, nullptr);
    HANDLE port = CreateIoCompletionPort(INVALID_HANDLE_VALUE, nullptr, 0, 1);
    ~Job() {
        CloseHandle(job);  // ends whatever is left in it
        CloseHandle(port);
    }

    bool Prepare() {
        JOBOBJECT_ASSOCIATE_COMPLETION_PORT association{};
        association.CompletionKey = job;
        association.CompletionPort = port;
        JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
        limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
        return job != nullptr && port != nullptr &&
               SetInformationJobObject(job, JobObjectAssociateCompletionPortInformation,
                                       &association, sizeof(association)) &&
               SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits,
                                       sizeof(limits));
    }

    // Waits until no process of the job is left, closing the phone application as it shows.
    // The count is read as well as the port: the port's notice is sent once and can be missed.
    bool AwaitEmpty() {
        const ULONGLONG deadline = GetTickCount64() + kJobLimitMs;
        while (GetTickCount64() < deadline) {
            ClosePhoneApps();
            DWORD code = 0;
            ULONG_PTR key = 0;
            LPOVERLAPPED overlapped = nullptr;
            if (GetQueuedCompletionStatus(port, &code, &key, &overlapped, kJobLookMs) &&
                key == reinterpret_cast<ULONG_PTR>(job) &&
                code == JOB_OBJECT_MSG_ACTIVE_PROCESS_ZERO)
                return true;
            if (ActiveProcesses() == 0)
                return true;
        }
        return false;
    }

    DWORD ActiveProcesses() const {
        JOBOBJECT_BASIC_ACCOUNTING_INFORMATION info{};
        if (!QueryInformationJobObject(job, JobObjectBasicAccountingInformation, &info,
                                       sizeof(info), nullptr))
            return ~0u;
        return info.ActiveProcesses;
    }

    // The ids of the processes still in the job, for a failure's message.
    std::string Remaining() const {
        struct {
            JOBOBJECT_BASIC_PROCESS_ID_LIST list;
            ULONG_PTR more[31];
        } ids{};
        ids.list.NumberOfAssignedProcesses = 32;
        if (!QueryInformationJobObject(job, JobObjectBasicProcessIdList, &ids, sizeof(ids),
                                       nullptr))
            return "unknown";
        std::string text;
        for (DWORD i = 0; i < ids.list.NumberOfProcessIdsInList && i < 32; ++i) {
            const ULONG_PTR id = i == 0 ? ids.list.ProcessIdList[0] : ids.more[i - 1];
            text += (text.empty() ? "" : ", ") + ProcessName(static_cast<DWORD>(id));
        }
        return text;
    }

    static std::string ProcessName(DWORD id) {
        std::string name = std::to_string(id);
        HANDLE process = OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, id);
        if (process == nullptr)
            return name;
        wchar_t path[MAX_PATH];
        DWORD size = MAX_PATH;
        if (QueryFullProcessImageNameW(process, 0, path, &size))
            name += " " + std::filesystem::path(path).filename().string();
        CloseHandle(process);
        return name;
    }
};

}  // namespace

std::wstring FixtureFolder(const wchar_t* name) {
    return FullPath(DD_FIXTURE_BIN) + L"\\" + name;
}

std::vector<std::string> RecordLines(const std::filesystem::path& file) {
    std::vector<std::string> lines;
    std::ifstream in(file, std::ios::binary);
    for (std::string line; std::getline(in, line);) {
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        lines.push_back(line);
    }
    return lines;
}

std::vector<std::string> CallRun::Values(const std::string& key) const {
    std::vector<std::string> values;
    for (const std::string& line : report) {
        if (line.compare(0, key.size() + 1, key + "=") == 0)
            values.push_back(line.substr(key.size() + 1));
    }
    return values;
}

std::string CallRun::Value(const std::string& key) const {
    std::vector<std::string> values = Values(key);
    return values.size() == 1 ? values[0] : std::string();
}

CallRun RunCalls(const CallSetup& setup, int times, const std::wstring& number,
                 const wchar_t* calledParty) {
    CallRun run;
    const std::filesystem::path records = NewRecordFolder();
    std::vector<std::pair<std::wstring, std::wstring>> settings = {
        {L"DD_PROBE_REPORT", (records / L"report.txt").wstring()},
        {L"DD_PHONE_RECORD", (records / L"calls.txt").wstring()},
        {L"DD_CPROG_RECORD", (records / L"cprog.txt").wstring()},
        {L"DD_CPROG_LIFETIME_MS", kPhoneAppLifetimeMs}};
    if (!setup.libraryFolder.empty())
        settings.emplace_back(L"DD_PROBE_DLL_DIR", setup.libraryFolder);
    settings.insert(settings.end(), setup.settings.begin(), setup.settings.end());
    std::wstring environment = Environment(settings);

    const std::wstring probe = FullPath(DD_CALL_PROBE);
    std::wstring commandLine =
        Quoted(probe) + L" " + std::to_wstring(times) + L" " + Quoted(number);
    if (calledParty != nullptr)
        commandLine += L" " + Quoted(calledParty);

    // Wine starts its desktop process (explorer.exe) for the first window of a session; started by
    // a process of the job, it would join the job and never end. Have it started from here.
    EnsureDesktopProcess();
    Job job;
    if (!job.Prepare()) {
        run.error = "no job for the probe: error " + std::to_string(GetLastError());
        return run;
    }
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(probe.c_str(), commandLine.data(), nullptr, nullptr, FALSE,
                        CREATE_SUSPENDED | CREATE_UNICODE_ENVIRONMENT, environment.data(),
                        setup.workFolder.empty() ? nullptr : setup.workFolder.c_str(), &startup,
                        &process)) {
        run.error = "the probe did not start: error " + std::to_string(GetLastError());
        return run;
    }
    AssignProcessToJobObject(job.job, process.hProcess);
    ResumeThread(process.hThread);
    CloseHandle(process.hThread);
    // The probe may send to this thread's windows; they answer only while messages are pumped.
    for (;;) {
        DWORD woken =
            MsgWaitForMultipleObjects(1, &process.hProcess, FALSE, kProbeLimitMs, QS_ALLINPUT);
        if (woken == WAIT_OBJECT_0 + 1) {
            PumpMessages();
            continue;
        }
        if (woken != WAIT_OBJECT_0)
            run.error = "the probe did not finish";
        break;
    }
    GetExitCodeProcess(process.hProcess, &run.exitCode);
    CloseHandle(process.hProcess);
    if (run.error.empty() && !job.AwaitEmpty())
        run.error = "processes the probe started did not end: " + job.Remaining();
    PumpMessages();

    run.report = RecordLines(records / L"report.txt");
    run.calls = RecordLines(records / L"calls.txt");
    run.phoneApp = RecordLines(records / L"cprog.txt");
    std::error_code ignored;
    std::filesystem::remove_all(records, ignored);
    return run;
}

namespace {

const wchar_t* KeyHookPath() {
    return W(kKeyHookKey);
}

}  // namespace

void SetKeyHookStamp(DWORD stamp) {
    HKEY key = nullptr;
    if (RegCreateKeyExW(HKEY_LOCAL_MACHINE, KeyHookPath(), 0, nullptr, 0, KEY_WRITE, nullptr, &key,
                        nullptr) != ERROR_SUCCESS)
        return;
    RegSetValueExW(key, W(kKeyHookStampValue), 0, REG_DWORD, reinterpret_cast<const BYTE*>(&stamp),
                   sizeof(stamp));
    RegCloseKey(key);
}

std::optional<DWORD> KeyHookStamp() {
    DWORD stamp = 0;
    DWORD size = sizeof(stamp);
    DWORD type = REG_NONE;
    if (RegGetValueW(HKEY_LOCAL_MACHINE, KeyHookPath(), W(kKeyHookStampValue), RRF_RT_ANY, &type,
                     &stamp, &size) != ERROR_SUCCESS ||
        type != REG_DWORD)
        return std::nullopt;
    return stamp;
}

void RemoveKeyHook() {
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, L"Software\\HTC");
    RegDeleteKeyW(HKEY_LOCAL_MACHINE, L"Software\\HTC");
}

void SetD2Hack(DWORD value) {
    settings::WriteNumber(settings::kSettingsKey, settings::kD2Hack.name, value);
}

void RemoveD2Hack() {
    registry::KeyHolder key(settings::OpenKey(settings::kSettingsKey, false));
    registry::DeleteValue(key.get(), settings::kD2Hack.name);
}
