#pragma once
// A workaround for a device key hook, kept as the device does it: before each call the hook's
// "SendKeyStamp" value under HKEY_LOCAL_MACHINE is moved 2000 back. Switched by the "D2Hack"
// setting (on by default); devices without the hook have no such key and are left alone.

#include <cstdint>

/// The hook's key below HKEY_LOCAL_MACHINE and its REG_DWORD value.
constexpr char16_t kKeyHookKey[] = u"Software\\HTC\\Phone\\KeyboardHook";
constexpr char16_t kKeyHookStampValue[] = u"SendKeyStamp";
/// How far each call moves the stamp back.
constexpr uint32_t kKeyHookStampStep = 2000;

/// The stamp moved back by 2000, wrapping as an unsigned 32-bit number (0 gives 0xFFFFF830).
constexpr uint32_t LoweredKeyStamp(uint32_t stamp) {
    return stamp - kKeyHookStampStep;
}

/// Win32 layer. When "D2Hack" is non-zero and the hook's key opens, reads "SendKeyStamp" (4
/// bytes) and, only when that read succeeds, writes LoweredKeyStamp of it back as REG_DWORD and
/// flushes the key. Every failure is ignored: the call goes on without the workaround.
void LowerKeyHookStamp();
