#pragma once
// SettingsStore: the program's persistent options, read from and written to the registry under
// "Software\Orvalis\PIM\" + subkey at every use. No cache: a value changed by another program is
// seen at its next read.

#include <cstdint>

#include "base/Registry.h"
#include "base/Str.h"

namespace settings {

constexpr char16_t kRoot[] = u"Software\\Orvalis\\PIM\\";

// Subkeys of the root.
constexpr char16_t kSettingsKey[] = u"Settings";
constexpr char16_t kBoardKey[] = u"Dialdeck";
constexpr char16_t kTemplatesKey[] = u"Templates";
constexpr char16_t kKeypadKey[] = u"ABC";
constexpr char16_t kSmsTextKey[] = u"SmsText";

/// A number option of "Settings" with the default a read falls back to.
struct NumberOption {
    const char16_t* name;
    uint32_t fallback;
};

constexpr NumberOption kShowDialerButton{u"DdShowBtn", 0};
constexpr NumberOption kShowPhoneType{u"DdShowType", 0};
constexpr NumberOption kBigButtons{u"DdBigBtn", 1};
constexpr NumberOption kSortType{u"SortType", 0};
constexpr NumberOption kButtonFeedback{u"BtnFeedback", 1};
constexpr NumberOption kModPreload{u"ModPreload", 1};
constexpr NumberOption kSmsEnabled{u"SmsEnabled", 1};
constexpr NumberOption kD2Hack{u"D2Hack", 1};
/// Written around the creation of a preloaded window; never read.
constexpr char16_t kCreatingHidden[] = u"HSTRF";
// String options of "Settings".
constexpr char16_t kSmsApp[] = u"SmsApp";
constexpr char16_t kSmsParam[] = u"SmsParam";

/// Opens root + subkey: created when forWrite, else only opened (null when missing).
registry::Key OpenKey(const char16_t* subkey, bool forWrite);

/// The REG_DWORD value, or fallback when the subkey or name is null, the key or value is missing,
/// the query fails (a value longer than 4 bytes does) or the type is not REG_DWORD.
uint32_t ReadNumber(const char16_t* subkey, const char16_t* name, uint32_t fallback);
/// ReadNumber(kSettingsKey, option.name, option.fallback).
inline uint32_t Read(const NumberOption& option) {
    return ReadNumber(kSettingsKey, option.name, option.fallback);
}

/// The REG_SZ value, or the empty text in every other case. `fallback` is accepted but never
/// used: a missing string option is always empty.
Str ReadString(const char16_t* subkey, const char16_t* name, const Str& fallback);

/// Writes a REG_DWORD into "Settings" whatever subkey is named, flushes and closes the key.
/// Returns 1 when the value was set, 0 when name is null or the key cannot be created.
int WriteNumber(const char16_t* subkeyIgnored, const char16_t* name, uint32_t value);

/// The "Custom" REG_BINARY block of "ABC": a buffer of exactly its size, owned by the caller
/// (free with delete[]), or null. outSize is set to 0 first; it keeps the reported size when
/// the second read fails. Returns null when outSize is null.
uint8_t* ReadBlock(uint32_t* outSize);

}  // namespace settings
