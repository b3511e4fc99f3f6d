#pragma once
// The phone library's call entry point, as the platform publishes it. Win32 layer.

#include <windows.h>

/// The library, loaded by name through the normal search path, and its entry point.
constexpr wchar_t kPhoneLibraryName[] = L"phone.dll";
constexpr char kPhoneMakeCallName[] = "PhoneMakeCall";

/// The call request. On the device (32 bits) it is 24 bytes; it holds pointers, so this 64-bit
/// build uses the platform's own layout and sizeof, and cbSize says sizeof.
struct PhoneMakeCallInfo {
    DWORD cbSize;
    DWORD dwFlags;
    LPCWSTR pszDestAddress;  ///< the number to dial
    LPCWSTR pszAppName;
    LPCWSTR pszCalledParty;  ///< the name shown while the call is placed; may be null
    LPCWSTR pszComment;
};
static_assert(sizeof(void*) != 4 || sizeof(PhoneMakeCallInfo) == 24,
              "a 32-bit build lays the request out as the device does");

/// "PhoneMakeCall": places the call that request describes; its result is the caller's result.
using PhoneMakeCallEntry = LONG(WINAPI*)(PhoneMakeCallInfo* request);
