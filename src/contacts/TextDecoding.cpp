#include "contacts/TextDecoding.h"

#include "contacts/ShiftJisTable.h"

#include <cstring>
#include <string>

namespace {

// Characters of bytes 0x80..0x9F in windows-1252 (0xA0..0xFF are as in Latin-1).
constexpr char16_t kWindows1252High[] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

// Characters of bytes 0x80..0xFF in windows-1251.
constexpr char16_t kWindows1251High[] = {
    0x0402, 0x0403, 0x201A, 0x0453, 0x201E, 0x2026, 0x2020, 0x2021, 0x20AC, 0x2030, 0x0409, 0x2039,
    0x040A, 0x040C, 0x040B, 0x040F, 0x0452, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0x0098, 0x2122, 0x0459, 0x203A, 0x045A, 0x045C, 0x045B, 0x045F, 0x00A0, 0x040E, 0x045E, 0x0408,
    0x00A4, 0x0490, 0x00A6, 0x00A7, 0x0401, 0x00A9, 0x0404, 0x00AB, 0x00AC, 0x00AD, 0x00AE, 0x0407,
    0x00B0, 0x00B1, 0x0406, 0x0456, 0x0491, 0x00B5, 0x00B6, 0x00B7, 0x0451, 0x2116, 0x0454, 0x00BB,
    0x0458, 0x0405, 0x0455, 0x0457, 0x0410, 0x0411, 0x0412, 0x0413, 0x0414, 0x0415, 0x0416, 0x0417,
    0x0418, 0x0419, 0x041A, 0x041B, 0x041C, 0x041D, 0x041E, 0x041F, 0x0420, 0x0421, 0x0422, 0x0423,
    0x0424, 0x0425, 0x0426, 0x0427, 0x0428, 0x0429, 0x042A, 0x042B, 0x042C, 0x042D, 0x042E, 0x042F,
    0x0430, 0x0431, 0x0432, 0x0433, 0x0434, 0x0435, 0x0436, 0x0437, 0x0438, 0x0439, 0x043A, 0x043B,
    0x043C, 0x043D, 0x043E, 0x043F, 0x0440, 0x0441, 0x0442, 0x0443, 0x0444, 0x0445, 0x0446, 0x0447,
    0x0448, 0x0449, 0x044A, 0x044B, 0x044C, 0x044D, 0x044E, 0x044F,
};

// Characters of bytes 0x80..0xFF in KOI8-R.
constexpr char16_t kKoi8rHigh[] = {
    0x2500, 0x2502, 0x250C, 0x2510, 0x2514, 0x2518, 0x251C, 0x2524, 0x252C, 0x2534, 0x253C, 0x2580,
    0x2584, 0x2588, 0x258C, 0x2590, 0x2591, 0x2592, 0x2593, 0x2320, 0x25A0, 0x2219, 0x221A, 0x2248,
    0x2264, 0x2265, 0x00A0, 0x2321, 0x00B0, 0x00B2, 0x00B7, 0x00F7, 0x2550, 0x2551, 0x2552, 0x0451,
    0x2553, 0x2554, 0x2555, 0x2556, 0x2557, 0x2558, 0x2559, 0x255A, 0x255B, 0x255C, 0x255D, 0x255E,
    0x255F, 0x2560, 0x2561, 0x0401, 0x2562, 0x2563, 0x2564, 0x2565, 0x2566, 0x2567, 0x2568, 0x2569,
    0x256A, 0x256B, 0x256C, 0x00A9, 0x044E, 0x0430, 0x0431, 0x0446, 0x0434, 0x0435, 0x0444, 0x0433,
    0x0445, 0x0438, 0x0439, 0x043A, 0x043B, 0x043C, 0x043D, 0x043E, 0x043F, 0x044F, 0x0440, 0x0441,
    0x0442, 0x0443, 0x0436, 0x0432, 0x044C, 0x044B, 0x0437, 0x0448, 0x044D, 0x0449, 0x0447, 0x044A,
    0x042E, 0x0410, 0x0411, 0x0426, 0x0414, 0x0415, 0x0424, 0x0413, 0x0425, 0x0418, 0x0419, 0x041A,
    0x041B, 0x041C, 0x041D, 0x041E, 0x041F, 0x042F, 0x0420, 0x0421, 0x0422, 0x0423, 0x0416, 0x0412,
    0x042C, 0x042B, 0x0417, 0x0428, 0x042D, 0x0429, 0x0427, 0x042A,
};

Str ToStr(const std::u16string& text) {
    return Str(text.c_str());
}

Str DecodeWithHighTable(const uint8_t* bytes, size_t size, const char16_t* high, uint8_t first) {
    std::u16string out;
    out.reserve(size);
    for (size_t i = 0; i < size; ++i) {
        uint8_t b = bytes[i];
        out += b < first ? static_cast<char16_t>(b) : high[b - first];
    }
    return ToStr(out);
}

void AppendCodePoint(std::u16string& out, char32_t c) {
    if (c < 0x10000) {
        out += static_cast<char16_t>(c);
    } else {
        c -= 0x10000;
        out += static_cast<char16_t>(0xD800 + (c >> 10));
        out += static_cast<char16_t>(0xDC00 + (c & 0x3FF));
    }
}

/// Length of the well-formed UTF-8 sequence at bytes[i], or 0 when it is not one.
size_t Utf8SequenceLength(const uint8_t* bytes, size_t size, size_t i, char32_t& c) {
    uint8_t b = bytes[i];
    if (b < 0x80) {
        c = b;
        return 1;
    }
    size_t length = b >= 0xF0 ? 4 : b >= 0xE0 ? 3 : b >= 0xC2 ? 2 : 0;
    if (length == 0 || b > 0xF4 || i + length > size)
        return 0;
    c = b & (0x7F >> length);
    for (size_t k = 1; k < length; ++k) {
        uint8_t next = bytes[i + k];
        if ((next & 0xC0) != 0x80)
            return 0;
        c = (c << 6) | (next & 0x3F);
    }
    static constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
    if (c < kSmallest[length] || c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF))
        return 0;
    return length;
}

Str DecodeUtf16(const uint8_t* bytes, size_t size, bool littleEndian) {
    std::u16string out;
    out.reserve(size / 2);
    for (size_t i = 0; i + 1 < size; i += 2) {
        out += littleEndian ? static_cast<char16_t>(bytes[i] | (bytes[i + 1] << 8))
                            : static_cast<char16_t>((bytes[i] << 8) | bytes[i + 1]);
    }
    return ToStr(out);
}

struct CharsetName {
    const char* name;
    CharsetDecoder decoder;
};

constexpr CharsetName kCharsets[] = {
    {"UTF-8", DecodeUtf8},           {"UTF8", DecodeUtf8},
    {"US-ASCII", DecodeWindows1252}, {"ASCII", DecodeWindows1252},
    {"ISO-8859-1", DecodeLatin1},    {"ISO8859-1", DecodeLatin1},
    {"ISO_8859-1", DecodeLatin1},    {"LATIN1", DecodeLatin1},
    {"LATIN-1", DecodeLatin1},       {"WINDOWS-1252", DecodeWindows1252},
    {"CP1252", DecodeWindows1252},   {"WINDOWS-1251", DecodeWindows1251},
    {"CP1251", DecodeWindows1251},   {"KOI8-R", DecodeKoi8r},
    {"UTF-16LE", DecodeUtf16Le},     {"SHIFT_JIS", DecodeShiftJis},
    {"SHIFT-JIS", DecodeShiftJis},   {"SJIS", DecodeShiftJis},
    {"CP932", DecodeShiftJis},       {"WINDOWS-31J", DecodeShiftJis},
    {"UTF-16BE", DecodeUtf16Be},
};

bool SameNameIgnoringCase(const char* known, const char* name, size_t length) {
    if (std::strlen(known) != length)
        return false;
    for (size_t i = 0; i < length; ++i) {
        char c = name[i];
        if (c >= 'a' && c <= 'z')
            c = static_cast<char>(c - 'a' + 'A');
        if (c != known[i])
            return false;
    }
    return true;
}

/// True when most high bytes come in runs, as Cyrillic words in windows-1251 do, rather than
/// one among ASCII letters, as accented Latin letters do.
bool LooksCyrillic(const uint8_t* bytes, size_t size) {
    size_t high = 0;
    size_t letters = 0;
    for (size_t i = 0; i < size; ++i) {
        uint8_t b = bytes[i];
        if (b >= 0xC0 || b == 0xA8 || b == 0xB8) {
            ++high;
        } else if ((b | 0x20) >= 'a' && (b | 0x20) <= 'z') {
            ++letters;
        }
    }
    return high > 0 && high * 2 > high + letters;
}

}  // namespace

Str DecodeUtf8(const uint8_t* bytes, size_t size) {
    std::u16string out;
    out.reserve(size);
    size_t i = 0;
    if (size >= 3 && bytes[0] == 0xEF && bytes[1] == 0xBB && bytes[2] == 0xBF)
        i = 3;
    while (i < size) {
        char32_t c = 0;
        size_t length = Utf8SequenceLength(bytes, size, i, c);
        if (length == 0) {
            out += u'\uFFFD';
            ++i;
        } else {
            AppendCodePoint(out, c);
            i += length;
        }
    }
    return ToStr(out);
}

bool IsValidUtf8(const uint8_t* bytes, size_t size) {
    for (size_t i = 0; i < size;) {
        char32_t c = 0;
        size_t length = Utf8SequenceLength(bytes, size, i, c);
        if (length == 0)
            return false;
        i += length;
    }
    return true;
}

Str DecodeUtf16Le(const uint8_t* bytes, size_t size) {
    return DecodeUtf16(bytes, size, true);
}

Str DecodeUtf16Be(const uint8_t* bytes, size_t size) {
    return DecodeUtf16(bytes, size, false);
}

Str DecodeLatin1(const uint8_t* bytes, size_t size) {
    std::u16string out(bytes, bytes + size);
    return ToStr(out);
}

Str DecodeWindows1252(const uint8_t* bytes, size_t size) {
    std::u16string out;
    out.reserve(size);
    for (size_t i = 0; i < size; ++i) {
        uint8_t b = bytes[i];
        out += (b >= 0x80 && b < 0xA0) ? kWindows1252High[b - 0x80] : static_cast<char16_t>(b);
    }
    return ToStr(out);
}

Str DecodeWindows1251(const uint8_t* bytes, size_t size) {
    return DecodeWithHighTable(bytes, size, kWindows1251High, 0x80);
}

Str DecodeKoi8r(const uint8_t* bytes, size_t size) {
    return DecodeWithHighTable(bytes, size, kKoi8rHigh, 0x80);
}

Str DecodeShiftJis(const uint8_t* bytes, size_t size) {
    std::u16string out;
    out.reserve(size);
    for (size_t i = 0; i < size; ++i) {
        uint8_t b = bytes[i];
        if (b < 0x80) {
            out += static_cast<char16_t>(b);
            continue;
        }
        if (b >= 0xA1 && b <= 0xDF) {  // half-width katakana
            out += static_cast<char16_t>(0xFF61 + (b - 0xA1));
            continue;
        }
        int lead = (b >= 0x81 && b <= 0x9F)   ? b - 0x81
                   : (b >= 0xE0 && b <= 0xFC) ? b - 0xE0 + 31
                                              : -1;
        uint8_t trail = i + 1 < size ? bytes[i + 1] : 0;
        if (lead < 0 || trail < 0x40 || trail > 0xFC || trail == 0x7F) {
            out += u'\uFFFD';
            continue;
        }
        out += kShiftJisTable[lead * kShiftJisTrails + trail - 0x40 - (trail > 0x7F ? 1 : 0)];
        ++i;
    }
    return ToStr(out);
}

CharsetDecoder FindCharset(const char* name, size_t length) {
    for (const CharsetName& known : kCharsets) {
        if (SameNameIgnoringCase(known.name, name, length))
            return known.decoder;
    }
    return nullptr;
}

Str DecodeUndeclared(const uint8_t* bytes, size_t size) {
    if (IsValidUtf8(bytes, size))
        return DecodeUtf8(bytes, size);
    if (LooksCyrillic(bytes, size))
        return DecodeWindows1251(bytes, size);
    return DecodeWindows1252(bytes, size);
}
