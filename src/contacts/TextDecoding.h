#pragma once
// Byte texts to UTF-16: the character sets contact files and notes come in.

#include <cstddef>
#include <cstdint>

#include "base/Str.h"

/// Decodes single-byte text of a code page into UTF-16.
using AnsiDecoder = Str (*)(const uint8_t* bytes, size_t size);

/// UTF-8; an invalid sequence gives U+FFFD per bad byte and decoding goes on.
Str DecodeUtf8(const uint8_t* bytes, size_t size);
/// True when the bytes are well-formed UTF-8.
bool IsValidUtf8(const uint8_t* bytes, size_t size);
/// UTF-16 little-endian (an odd last byte is dropped).
Str DecodeUtf16Le(const uint8_t* bytes, size_t size);
Str DecodeUtf16Be(const uint8_t* bytes, size_t size);
/// ISO-8859-1: each byte is the character of the same code.
Str DecodeLatin1(const uint8_t* bytes, size_t size);
/// Windows-1252 (Western European); its five unassigned bytes map as in Latin-1.
Str DecodeWindows1252(const uint8_t* bytes, size_t size);
/// Windows-1251 (Cyrillic).
Str DecodeWindows1251(const uint8_t* bytes, size_t size);
/// KOI8-R (Cyrillic).
Str DecodeKoi8r(const uint8_t* bytes, size_t size);
/// Shift_JIS as windows-932 writes it (Japanese); a bad sequence gives U+FFFD.
Str DecodeShiftJis(const uint8_t* bytes, size_t size);

/// The decoder of a character set name (case-insensitive: "UTF-8", "windows-1251", "cp1251",
/// "ISO-8859-1", "latin1", "KOI8-R", "Shift_JIS", ...); null when the name is not known.
using CharsetDecoder = Str (*)(const uint8_t* bytes, size_t size);
CharsetDecoder FindCharset(const char* name, size_t length);

/// Text whose character set nobody declared: UTF-8 when it is well-formed, else windows-1251
/// when the high bytes look Cyrillic, else windows-1252.
Str DecodeUndeclared(const uint8_t* bytes, size_t size);
