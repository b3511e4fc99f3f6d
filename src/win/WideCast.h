#pragma once
// Views the core's UTF-16 text (char16_t) as the Win32 API's wchar_t and back. Both are 16-bit
// code units on Windows, so only the pointer's type changes; the Win32 layer is built with
// -fno-strict-aliasing for this.

static_assert(sizeof(wchar_t) == sizeof(char16_t), "wchar_t must be a UTF-16 code unit");

/// The same text as the Win32 API's wide characters.
inline const wchar_t* W(const char16_t* text) {
    return reinterpret_cast<const wchar_t*>(text);
}
inline wchar_t* W(char16_t* text) {
    return reinterpret_cast<wchar_t*>(text);
}
/// The same text as the core's UTF-16 characters.
inline const char16_t* U(const wchar_t* text) {
    return reinterpret_cast<const char16_t*>(text);
}
inline char16_t* U(wchar_t* text) {
    return reinterpret_cast<char16_t*>(text);
}
