#pragma once
// Character routines over char16_t, so the core never depends on the width of wchar_t.

#include <cstddef>
#include <cstdint>

namespace chars {

/// Length of a zero-terminated text; 0 for null.
size_t Length(const char16_t* s);
/// Ordinal comparison of two zero-terminated texts (null counts as ""): <0, 0 or >0.
int Compare(const char16_t* a, const char16_t* b);
/// Ordinal comparison of at most n characters.
int CompareN(const char16_t* a, const char16_t* b, size_t n);
/// Copies at most cap - 1 characters and terminates (cap > 0). Returns the characters copied.
size_t CopyN(char16_t* dst, size_t cap, const char16_t* src);
/// The C library's wide white-space class: blank, \t, \n, \v, \f, \r.
bool IsSpace(char16_t c);
bool IsDigit(char16_t c);
/// ASCII letters only are folded; other characters are returned unchanged.
char16_t AsciiLower(char16_t c);
/// Parses like _wtol: leading white space, optional sign, decimal digits; stops at anything else.
int32_t ToLong(const char16_t* s);

}  // namespace chars
