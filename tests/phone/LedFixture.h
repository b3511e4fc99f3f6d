#pragma once
// The coredll.dll fixture from a test's side: which variant the program's LoadLibraryW finds, the
// answers it gives (through its environment variables) and the lines it recorded.
//
// The vibrator looks the library up once per process, so each test case sets up one device; CTest
// runs every case in a process of its own.

#include <windows.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace led_fixture {

/// The fixture variants, each a folder holding one coredll.dll.
constexpr wchar_t kFull[] = L"full";
constexpr wchar_t kWithoutSetDevice[] = L"no-set";
constexpr wchar_t kWithoutDeviceInfo[] = L"no-info";

/// How long a test waits for the worker's records, and how often it looks.
constexpr DWORD kWaitMs = 10000;
constexpr DWORD kPollMs = 10;

/// One recorded call: "on", "off", "count", "supports", "load" or "bad" with its details.
struct Line {
    std::string kind;
    uint32_t led = 0;     ///< on, off, supports
    uint32_t tick = 0;    ///< the tick count at the call, what pulses are timed by
    uint64_t micros = 0;  ///< a finer clock (Microseconds below), what pauses are measured by
    std::string text;     ///< the whole line
};

/// The fixture's fine clock, read in the test: the performance counter in microseconds.
inline uint64_t Microseconds() {
    LARGE_INTEGER count{};
    LARGE_INTEGER frequency{};
    QueryPerformanceCounter(&count);
    QueryPerformanceFrequency(&frequency);
    const auto ticks = static_cast<uint64_t>(count.QuadPart);
    const auto perSecond = static_cast<uint64_t>(frequency.QuadPart);
    return ticks / perSecond * 1000000u + ticks % perSecond * 1000000u / perSecond;
}

/// A build path (a host path under Wine's Z: drive) as a Windows path.
inline std::wstring HostToWindows(const char* hostPath) {
    std::wstring path = L"Z:";
    for (const char* p = hostPath; *p != 0; ++p)
        path += *p == '/' ? L'\\' : static_cast<wchar_t>(*p);
    return path;
}

class LedDevice {
  public:
    /// With a variant, LoadLibraryW("coredll.dll") finds that fixture; with none, it finds no
    /// such library, as on desktop Windows. Records go to a fresh file either way.
    explicit LedDevice(const wchar_t* variant) {
        record_ = std::filesystem::temp_directory_path() /
                  (L"dd-nled-" + std::to_wstring(GetCurrentProcessId()) + L".txt");
        std::filesystem::remove(record_);
        SetEnvironmentVariableW(L"DD_NLED_RECORD", record_.c_str());
        for (const wchar_t* name : kAnswers)
            SetEnvironmentVariableW(name, nullptr);
        if (variant != nullptr) {
            std::wstring folder = HostToWindows(DD_COREDLL_FIXTURES) + L"\\" + variant;
            SetDllDirectoryW(folder.c_str());
        }
    }
    ~LedDevice() {
        SetDllDirectoryW(nullptr);
        std::error_code ignored;
        std::filesystem::remove(record_, ignored);
    }
    LedDevice(const LedDevice&) = delete;
    LedDevice& operator=(const LedDevice&) = delete;

    /// The LED count the count query reports (unset: the query fails).
    void SetCount(const wchar_t* count) { SetEnvironmentVariableW(L"DD_NLED_COUNT", count); }
    /// lCycleAdjust of LED 0, 1, ... as "0,-1,...".
    void SetCycleAdjust(const wchar_t* list) {
        SetEnvironmentVariableW(L"DD_NLED_CYCLE_ADJUST", list);
    }
    /// LEDs whose capability query fails, as "3,..."
    void SetFailing(const wchar_t* list) { SetEnvironmentVariableW(L"DD_NLED_FAILING", list); }

    /// Every recorded line, in order.
    std::vector<Line> Lines() const {
        std::vector<Line> lines;
        std::ifstream file(record_);
        std::string text;
        while (std::getline(file, text)) {
            Line line;
            line.text = text;
            std::istringstream words(text);
            words >> line.kind;
            if (line.kind == "on" || line.kind == "off" || line.kind == "supports")
                words >> line.led;
            if (line.kind != "bad")
                words >> line.tick >> line.micros;
            lines.push_back(line);
        }
        return lines;
    }
    /// The lines of one kind ("on" and "off" together as "switch").
    std::vector<Line> Lines(const std::string& kind) const {
        std::vector<Line> chosen;
        for (const Line& line : Lines()) {
            bool isSwitch = line.kind == "on" || line.kind == "off";
            if (line.kind == kind || (kind == "switch" && isSwitch))
                chosen.push_back(line);
        }
        return chosen;
    }
    /// Waits until at least `count` on/off lines are recorded; false when they never come.
    bool WaitForSwitches(size_t count) const {
        const DWORD start = GetTickCount();
        while (Lines("switch").size() < count) {
            if (GetTickCount() - start >= kWaitMs)
                return false;
            Sleep(kPollMs);
        }
        return true;
    }
    /// Every "bad" line joined, for a failure message; empty when the calls kept the contract.
    std::string BadCalls() const {
        std::string bad;
        for (const Line& line : Lines("bad"))
            bad += line.text + "\n";
        return bad;
    }

  private:
    static constexpr const wchar_t* kAnswers[] = {L"DD_NLED_COUNT", L"DD_NLED_CYCLE_ADJUST",
                                                  L"DD_NLED_FAILING"};
    std::filesystem::path record_;
};

/// "on 1", "off 1", ... of the on/off lines, to compare sequences at a glance.
inline std::vector<std::string> Switches(const std::vector<Line>& lines) {
    std::vector<std::string> switches;
    for (const Line& line : lines)
        switches.push_back(line.kind + " " + std::to_string(line.led));
    return switches;
}

}  // namespace led_fixture
