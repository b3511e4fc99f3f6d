// call_probe.exe: places calls in a process of its own, so each test starts with no phone
// library loaded and can put a different phone.dll in its place.
//   call_probe <times> <number> [<calledParty>]
// DD_PROBE_DLL_DIR, when set, is added to the library search path (SetDllDirectoryW). The
// report, one line each, goes to the file DD_PROBE_REPORT names:
//   before=<loaded|absent>   phone.dll before the first call
//   result=<n>               PlaceCall's result, once per call
//   after=<loaded|absent>    phone.dll after the calls
//   afterOneRelease=<loaded|absent|->  after one FreeLibrary: absent when exactly one reference
//                                      was held ("-" when it was not loaded)
#include <windows.h>

#include <shellapi.h>

#include <cstdio>
#include <cwchar>
#include <string>

#include "phone/CallPlacer.h"
#include "win/WideCast.h"

namespace {

const char* PhoneLibraryState() {
    return GetModuleHandleW(L"phone.dll") != nullptr ? "loaded" : "absent";
}

}  // namespace

int main() {
    int count = 0;
    wchar_t** args = CommandLineToArgvW(GetCommandLineW(), &count);
    wchar_t* end = nullptr;
    const long times = count >= 3 ? std::wcstol(args[1], &end, 10) : 0;
    wchar_t reportPath[MAX_PATH];
    const DWORD pathLength = GetEnvironmentVariableW(L"DD_PROBE_REPORT", reportPath, MAX_PATH);
    if (count < 3 || count > 4 || times < 1 || *end != 0 || pathLength == 0 ||
        pathLength >= MAX_PATH) {
        std::fprintf(stderr,
                     "call_probe: got %d arguments and DD_PROBE_REPORT %s; usage: call_probe "
                     "<times 1 or more> <number> [<calledParty>] with DD_PROBE_REPORT set\n",
                     count - 1, pathLength > 0 ? "set" : "not set");
        return 2;
    }
    FILE* report = _wfopen(reportPath, L"w");
    if (report == nullptr) {
        std::fprintf(stderr, "call_probe: cannot write the report to %ls\n", reportPath);
        return 2;
    }
    wchar_t dllFolder[MAX_PATH];
    const DWORD folderLength = GetEnvironmentVariableW(L"DD_PROBE_DLL_DIR", dllFolder, MAX_PATH);
    if (folderLength > 0 && folderLength < MAX_PATH)
        SetDllDirectoryW(dllFolder);

    const char16_t* number = U(args[2]);
    const char16_t* calledParty = count == 4 ? U(args[3]) : nullptr;
    std::fprintf(report, "before=%s\n", PhoneLibraryState());
    for (long i = 0; i < times; ++i)
        std::fprintf(report, "result=%d\n", PlaceCall(number, calledParty));
    std::fprintf(report, "after=%s\n", PhoneLibraryState());
    HMODULE library = GetModuleHandleW(L"phone.dll");
    if (library != nullptr)
        FreeLibrary(library);
    std::fprintf(report, "afterOneRelease=%s\n", library != nullptr ? PhoneLibraryState() : "-");
    std::fclose(report);
    LocalFree(args);
    return 0;
}
