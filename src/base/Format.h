#pragma once
// The printf-style formatter over char16_t used by Str::Format on every platform.
// Conversions: %d %i %u %x %X %o %p %c %C %s %S %e %E %f %g %G %n %%, flags "-+0 #", width and
// precision (also "*"), size prefixes "h", "l", "I64", "ll"; "F", "L" and "N" are accepted and
// ignored. %s takes a UTF-16 text (const char16_t*), %S a narrow one (const char*), "(null)" for
// null; "h" and "l" turn %s/%c into narrow/wide explicitly.

#include <cstdarg>
#include <cstddef>

/// The upper bound of the formatted length, estimated the way Str::Format reserves its block.
size_t FormatEstimate(const char16_t* format, va_list args);

/// Formats into buf (cap characters, terminator included; output is cut to fit and always
/// terminated when cap > 0). Returns the full length of the formatted text.
size_t FormatInto(char16_t* buf, size_t cap, const char16_t* format, va_list args);
