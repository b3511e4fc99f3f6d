#include "phone/CallPlacer.h"

#include <windows.h>

#include <string_view>

#include "base/Clock.h"
#include "phone/KeyHookStamp.h"
#include "phone/PhoneAppWait.h"
#include "phone/PhoneLibrary.h"
#include "phone/ServiceCode.h"
#include "platform/Shell.h"
#include "win/WideCast.h"

namespace {

// Loaded the first time a call needs it and kept for the life of the process, as the device
// does: it is never freed. A failed load is tried again at the next call.
HMODULE PhoneLibrary() {
    static HMODULE library = nullptr;
    if (library == nullptr)
        library = LoadLibraryW(kPhoneLibraryName);
    return library;
}

// Looked up at every call, never cached: the device does the same.
PhoneMakeCallEntry PhoneMakeCall(HMODULE library) {
    return reinterpret_cast<PhoneMakeCallEntry>(
        reinterpret_cast<void*>(GetProcAddress(library, kPhoneMakeCallName)));
}

bool PhoneAppWindowShown() {
    return FindWindowW(W(kPhoneAppPolledClass), nullptr) != nullptr;
}

void SleepFor(uint32_t ms) {
    Sleep(ms);
}

void EnsurePhoneAppRuns() {
    if (FindWindowW(W(kPhoneAppClass), nullptr) != nullptr)
        return;
    const uint32_t start = TickCount();
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION process{};
    if (CreateProcessW(W(kPhoneAppProgram), nullptr, nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                       &startup, &process)) {
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
    }
    // A program that did not start is not an error: its window may still come from elsewhere,
    // and the call is attempted either way.
    AwaitPhoneApp(start, PhoneAppWindowShown, SleepFor);
}

int SendServiceCode(std::u16string_view code) {
    HWND policy = FindWindowW(W(kCallPolicyClass), nullptr);
    if (policy == nullptr)
        return -1;
    const size_t size = ServiceCodeBlockSize(code.size());
    auto* block = static_cast<uint8_t*>(LocalAlloc(LMEM_FIXED, size));
    if (block == nullptr)
        return -1;
    LayOutServiceCodeBlock(code, block);
    COPYDATASTRUCT data{};
    data.dwData = kServiceCodeDataId;
    data.cbData = static_cast<DWORD>(size);
    data.lpData = block;
    SendMessageW(policy, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data));
    // The block is not freed here: the device leaves it to the receiving side.
    return 0;
}

}  // namespace

int PlaceCall(const char16_t* number, const char16_t* calledParty) {
    const std::u16string_view text = number != nullptr ? number : u"";
    if (IsServiceCode(text))
        return SendServiceCode(text);
    if (text.empty())
        return 0;
    HMODULE library = PhoneLibrary();
    if (library == nullptr)
        return -1;
    PhoneMakeCallEntry makeCall = PhoneMakeCall(library);
    if (makeCall == nullptr)
        return -1;
    LowerKeyHookStamp();
    shell::SipPreference(nullptr, shell::kSipForceDown);
    PhoneMakeCallInfo request{};
    request.cbSize = sizeof(request);
    request.dwFlags = 0;
    request.pszDestAddress = W(number);
    request.pszCalledParty = calledParty != nullptr ? W(calledParty) : nullptr;
    EnsurePhoneAppRuns();
    return static_cast<int>(makeCall(&request));
}
