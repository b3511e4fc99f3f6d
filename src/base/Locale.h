#pragma once
// The locale seam: text services of the system default locale.

#include <cstdint>

namespace locale_text {

/// Locale-aware comparison of the system default locale: <0, 0 or >0.
int Compare(const char16_t* a, const char16_t* b);
/// Lower-cases one character the way the system does.
char16_t ToLower(char16_t c);
/// Converts n UTF-16 characters to the ANSI code page into out (outBytes bytes); returns the
/// bytes written. A character needing more room than is left is cut.
int ToAnsi(const char16_t* text, int n, char* out, int outBytes);
/// The user's language id (for example 0x0409 English, 0x0419 Russian).
uint16_t UserLanguageId();
/// Local date and time as "yyyy.MM.dd HH:mm:ss - " into buf (cap characters).
void FormatLogStamp(char16_t* buf, int cap);

}  // namespace locale_text
