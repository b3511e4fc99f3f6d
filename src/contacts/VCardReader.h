#pragma once
// The vCard reader: splits a vCard file (versions 2.1, 3.0 and 4.0) into cards and content lines,
// and decodes property values. Lines are unfolded (a line break followed by a blank or a tab
// continues the line; in 2.1 a quoted-printable value also continues after a closing "="); names
// and parameters are read case-insensitively; nested cards are read as cards of their own.
// Bytes are kept raw here: character sets are applied when a value is decoded.

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "base/Str.h"

struct VCardParam {
    /// Upper-cased; a bare 2.1 parameter is named "TYPE" (or "ENCODING"), a phone's own label
    /// written X-CUSTOM(...,label) is "X-CUSTOM" with the label.
    std::string name;
    std::vector<std::string> values;  ///< unquoted, split at commas
};

struct VCardProperty {
    std::string group;  ///< as written (empty when none)
    std::string name;   ///< upper-cased
    std::vector<VCardParam> params;
    std::string value;  ///< raw bytes after the colon, unfolded

    /// The first value of parameter `name` (upper-case), or null.
    const std::string* Param(const char* name) const;
    /// True when a TYPE value equals `type` (upper-case; compared case-insensitively).
    bool HasType(const char* type) const;
};

struct VCard {
    std::string version;  ///< "2.1", "3.0", "4.0", or empty when the card has none
    std::vector<VCardProperty> properties;

    /// The first property of that name (upper-case), or null.
    const VCardProperty* Find(const char* name) const;
};

/// True when text equals the ASCII word, ignoring case (as vCard names and types compare).
bool SameVCardName(const std::string& text, const char* word);

/// Reads every card of a file. A card without END runs to the end of the file; content before
/// a BEGIN (or a file without any) is read as a card when it holds properties. Text that is not
/// a content line is skipped. A UTF-16 file (by its byte order mark) is read as UTF-8.
std::vector<VCard> ReadVCards(const uint8_t* bytes, size_t size);

/// The text of a property value: quoted-printable undone (2.1 ENCODING or bare parameter), the
/// CHARSET applied (else UTF-8 when well-formed, else guessed), nothing unescaped.
Str DecodeVCardText(const VCardProperty& property);

/// Splits a decoded value at unescaped `separator`, keeping the escapes in the parts.
std::vector<Str> SplitVCardRaw(const Str& value, char16_t separator);
/// Splits a decoded value at unescaped `separator` (';' components, ',' lists) and undoes the
/// escapes \\ \, \; \: and \n or \N (a line break); a lone backslash stays.
std::vector<Str> SplitVCardValue(const Str& value, char16_t separator);
/// One text value with its escapes undone.
Str UnescapeVCardText(const Str& value);

/// The bytes of a binary value: base64 (ENCODING=BASE64 or B), a data: URI, or quoted-printable.
/// False when the property holds no inline data (a URL) or the data is empty.
bool DecodeVCardBinary(const VCardProperty& property, std::vector<uint8_t>& bytes);
