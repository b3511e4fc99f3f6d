#include "base/Format.h"

#include <cstdint>
#include <cstdio>
#include <cstring>

#include "base/Chars.h"

namespace {

enum class Size { Default, Short, Long, LongLong };

struct Conversion {
    bool left = false, plus = false, space = false, zero = false, alternate = false;
    int width = 0;
    int precision = -1;  // -1: none given
    Size size = Size::Default;
    bool narrow = false;  // "h" prefix
    bool wide = false;    // "l" or "w" prefix
    char16_t conversion = 0;
};

bool IsFlag(char16_t c) {
    return c == u'-' || c == u'+' || c == u'0' || c == u' ' || c == u'#';
}

int ReadNumber(const char16_t*& p) {
    int value = 0;
    while (chars::IsDigit(*p)) {
        if (value < 100000000)
            value = value * 10 + (*p - u'0');
        ++p;
    }
    return value;
}

// Parses the part after '%' up to and including the conversion character.
const char16_t* ParseConversion(const char16_t* p, va_list& args, Conversion& conv) {
    for (; IsFlag(*p); ++p) {
        switch (*p) {
            case u'-':
                conv.left = true;
                break;
            case u'+':
                conv.plus = true;
                break;
            case u'0':
                conv.zero = true;
                break;
            case u' ':
                conv.space = true;
                break;
            default:
                conv.alternate = true;
                break;
        }
    }
    if (*p == u'*') {
        conv.width = va_arg(args, int);
        if (conv.width < 0) {
            conv.left = true;
            conv.width = conv.width == INT32_MIN ? 0 : -conv.width;
        }
        ++p;
    } else {
        conv.width = ReadNumber(p);
    }
    if (*p == u'.') {
        ++p;
        if (*p == u'*') {
            conv.precision = va_arg(args, int);
            ++p;
        } else {
            conv.precision = ReadNumber(p);
        }
    }
    for (;;) {
        if (p[0] == u'I' && p[1] == u'6' && p[2] == u'4') {
            conv.size = Size::LongLong;
            p += 3;
        } else if (p[0] == u'I' && p[1] == u'3' && p[2] == u'2') {
            p += 3;
        } else if (p[0] == u'l' && p[1] == u'l') {
            conv.size = Size::LongLong;
            p += 2;
        } else if (*p == u'h') {
            conv.size = Size::Short;
            conv.narrow = true;
            ++p;
        } else if (*p == u'l' || *p == u'w') {
            if (conv.size != Size::LongLong)
                conv.size = Size::Long;
            conv.wide = true;
            ++p;
        } else if (*p == u'F' || *p == u'L' || *p == u'N') {
            ++p;
        } else {
            break;
        }
    }
    conv.conversion = *p;
    return *p != 0 ? p + 1 : p;
}

size_t NarrowLength(const char* s, int precision) {
    size_t n = 0;
    while (s[n] != 0 && (precision < 0 || n < static_cast<size_t>(precision)))
        ++n;
    return n;
}

size_t WideLength(const char16_t* s, int precision) {
    size_t n = 0;
    while (s[n] != 0 && (precision < 0 || n < static_cast<size_t>(precision)))
        ++n;
    return n;
}

bool IsWideText(const Conversion& conv) {
    // %s and %c take UTF-16 unless "h"; %S and %C take narrow text unless "l"/"w".
    bool upper = conv.conversion == u'S' || conv.conversion == u'C';
    return upper ? conv.wide : !conv.narrow;
}

// Writes characters into the caller's buffer, cutting at its end but counting everything.
class Sink {
  public:
    Sink(char16_t* buf, size_t cap) : buf_(buf), cap_(cap) {}
    void Put(char16_t c) {
        if (buf_ != nullptr && count_ + 1 < cap_)
            buf_[count_] = c;
        ++count_;
    }
    void Repeat(char16_t c, size_t n) {
        for (size_t i = 0; i < n; ++i)
            Put(c);
    }
    void PutAscii(const char* s, size_t n) {
        for (size_t i = 0; i < n; ++i)
            Put(static_cast<unsigned char>(s[i]));
    }
    size_t Finish() {
        if (buf_ != nullptr && cap_ > 0)
            buf_[count_ < cap_ ? count_ : cap_ - 1] = 0;
        return count_;
    }

  private:
    char16_t* buf_;
    size_t cap_;
    size_t count_ = 0;
};

// Lays out a body of n characters with width padding; `put` writes the body.
template <typename PutBody>
void Pad(Sink& out, const Conversion& conv, size_t n, PutBody put) {
    size_t pad = conv.width > 0 && static_cast<size_t>(conv.width) > n ? conv.width - n : 0;
    if (!conv.left)
        out.Repeat(u' ', pad);
    put();
    if (conv.left)
        out.Repeat(u' ', pad);
}

void PutText(Sink& out, const Conversion& conv, const void* text) {
    static const char kNull[] = "(null)";
    if (text == nullptr) {
        size_t n = NarrowLength(kNull, conv.precision);
        Pad(out, conv, n, [&] { out.PutAscii(kNull, n); });
    } else if (IsWideText(conv)) {
        auto* s = static_cast<const char16_t*>(text);
        size_t n = WideLength(s, conv.precision);
        Pad(out, conv, n, [&] {
            for (size_t i = 0; i < n; ++i)
                out.Put(s[i]);
        });
    } else {
        // Narrow text is taken byte for byte (Latin-1), the same on every platform.
        auto* s = static_cast<const char*>(text);
        size_t n = NarrowLength(s, conv.precision);
        Pad(out, conv, n, [&] { out.PutAscii(s, n); });
    }
}

void PutChar(Sink& out, const Conversion& conv, int value) {
    char16_t c = IsWideText(conv) ? static_cast<char16_t>(value)
                                  : static_cast<char16_t>(static_cast<unsigned char>(value));
    Pad(out, conv, 1, [&] { out.Put(c); });
}

void PutInteger(Sink& out, const Conversion& conv, uint64_t magnitude, bool negative) {
    char digits[72];
    size_t n = 0;
    unsigned base = 10;
    const char* alphabet = "0123456789abcdef";
    switch (conv.conversion) {
        case u'x':
            base = 16;
            break;
        case u'X':
        case u'p':
            base = 16;
            alphabet = "0123456789ABCDEF";
            break;
        case u'o':
            base = 8;
            break;
        default:
            break;
    }
    for (uint64_t v = magnitude; v != 0; v /= base)
        digits[n++] = alphabet[v % base];
    size_t minDigits = conv.precision >= 0 ? static_cast<size_t>(conv.precision) : 1;
    if (conv.conversion == u'p')
        minDigits = sizeof(void*) * 2;
    if (minDigits > 64)
        minDigits = 64;
    while (n < minDigits)
        digits[n++] = '0';
    bool isSigned = conv.conversion == u'd' || conv.conversion == u'i';
    const char* prefix = "";
    if (negative) {
        prefix = "-";
    } else if (isSigned && conv.plus) {
        prefix = "+";
    } else if (isSigned && conv.space) {
        prefix = " ";
    } else if (conv.alternate && magnitude != 0 && base == 16 && conv.conversion != u'p') {
        prefix = conv.conversion == u'X' ? "0X" : "0x";
    } else if (conv.alternate && base == 8 && digits[n - 1] != '0') {
        prefix = "0";
    }
    size_t prefixLength = std::strlen(prefix);
    size_t body = prefixLength + n;
    size_t pad = conv.width > 0 && static_cast<size_t>(conv.width) > body ? conv.width - body : 0;
    bool zeroPad = conv.zero && !conv.left && conv.precision < 0;
    if (!conv.left && !zeroPad)
        out.Repeat(u' ', pad);
    out.PutAscii(prefix, prefixLength);
    if (zeroPad)
        out.Repeat(u'0', pad);
    while (n > 0)
        out.Put(static_cast<unsigned char>(digits[--n]));
    if (conv.left)
        out.Repeat(u' ', pad);
}

void PutSigned(Sink& out, const Conversion& conv, va_list& args) {
    int64_t value;
    switch (conv.size) {
        case Size::LongLong:
            value = va_arg(args, long long);
            break;
        case Size::Long:
            value = va_arg(args, long);
            break;
        case Size::Short:
            value = static_cast<short>(va_arg(args, int));
            break;
        default:
            value = va_arg(args, int);
            break;
    }
    uint64_t magnitude =
        value < 0 ? 0 - static_cast<uint64_t>(value) : static_cast<uint64_t>(value);
    PutInteger(out, conv, magnitude, value < 0);
}

void PutUnsigned(Sink& out, const Conversion& conv, va_list& args) {
    uint64_t value;
    switch (conv.size) {
        case Size::LongLong:
            value = va_arg(args, unsigned long long);
            break;
        case Size::Long:
            value = va_arg(args, unsigned long);
            break;
        case Size::Short:
            value = static_cast<unsigned short>(va_arg(args, unsigned));
            break;
        default:
            value = va_arg(args, unsigned);
            break;
    }
    PutInteger(out, conv, value, false);
}

// Floating point goes through the C library's narrow formatter; its output is plain ASCII.
// The format handed on is assembled here from validated flags and one of "eEfgGa".
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
void PutFloat(Sink& out, const Conversion& conv, double value) {
    char format[32];
    char* f = format;
    *f++ = '%';
    if (conv.left)
        *f++ = '-';
    if (conv.plus)
        *f++ = '+';
    if (conv.space)
        *f++ = ' ';
    if (conv.zero)
        *f++ = '0';
    if (conv.alternate)
        *f++ = '#';
    std::snprintf(f, sizeof(format) - 8, "*.*%c", static_cast<char>(conv.conversion));
    int precision = conv.precision < 0 ? 6 : conv.precision;
    int length = std::snprintf(nullptr, 0, format, conv.width, precision, value);
    if (length <= 0)
        return;
    char stack[512];
    char* text = static_cast<size_t>(length) < sizeof(stack) ? stack : new char[length + 1];
    std::snprintf(text, static_cast<size_t>(length) + 1, format, conv.width, precision, value);
    out.PutAscii(text, static_cast<size_t>(length));
    if (text != stack)
        delete[] text;
}

#pragma GCC diagnostic pop

size_t FloatEstimate(int width, int precision, double value) {
    int n = std::snprintf(nullptr, 0, "%*.*f", width, precision + 6, value);
    return n > 0 ? static_cast<size_t>(n) : 0;
}

size_t TextEstimate(const Conversion& conv, const void* text) {
    size_t n;
    if (text == nullptr) {
        n = 6;
    } else {
        n = IsWideText(conv) ? chars::Length(static_cast<const char16_t*>(text))
                             : std::strlen(static_cast<const char*>(text));
        if (n < 1)
            n = 1;
    }
    if (conv.precision > 0 && static_cast<size_t>(conv.precision) < n)
        n = conv.precision;
    return n > static_cast<size_t>(conv.width) ? n : static_cast<size_t>(conv.width);
}

size_t AtLeast(size_t value, size_t floor) {
    return value < floor ? floor : value;
}

}  // namespace

size_t FormatEstimate(const char16_t* format, va_list args) {
    va_list ap;
    va_copy(ap, args);
    size_t total = 0;
    for (const char16_t* p = format; *p != 0;) {
        if (*p != u'%' || *++p == u'%') {
            ++total;
            ++p;
            continue;
        }
        Conversion conv;
        p = ParseConversion(p, ap, conv);
        if (conv.alternate)
            total += 2;
        size_t widthAndPrecision = static_cast<size_t>(conv.width) +
                                   static_cast<size_t>(conv.precision > 0 ? conv.precision : 0);
        switch (conv.conversion) {
            case u'c':
            case u'C':
                total += 2;
                (void)va_arg(ap, int);
                break;
            case u's':
            case u'S':
                total += TextEstimate(conv, va_arg(ap, const void*));
                break;
            case u'd':
            case u'i':
            case u'u':
            case u'x':
            case u'X':
            case u'o':
                total += AtLeast(widthAndPrecision, 32);
                if (conv.size == Size::LongLong) {
                    (void)va_arg(ap, long long);
                } else if (conv.size == Size::Long) {
                    (void)va_arg(ap, long);
                } else {
                    (void)va_arg(ap, int);
                }
                break;
            case u'p':
                total += AtLeast(widthAndPrecision, 32);
                (void)va_arg(ap, void*);
                break;
            case u'e':
            case u'E':
            case u'g':
            case u'G':
            case u'a':
                total += AtLeast(widthAndPrecision, 128);
                (void)va_arg(ap, double);
                break;
            case u'f':
                total += FloatEstimate(conv.width, conv.precision > 0 ? conv.precision : 0,
                                       va_arg(ap, double));
                break;
            case u'n':
                (void)va_arg(ap, void*);
                break;
            case 0:
                break;
            default:
                ++total;
                break;
        }
    }
    va_end(ap);
    return total;
}

size_t FormatInto(char16_t* buf, size_t cap, const char16_t* format, va_list args) {
    va_list ap;
    va_copy(ap, args);
    Sink out(buf, cap);
    for (const char16_t* p = format; p != nullptr && *p != 0;) {
        if (*p != u'%') {
            out.Put(*p++);
            continue;
        }
        if (p[1] == u'%') {
            out.Put(u'%');
            p += 2;
            continue;
        }
        Conversion conv;
        p = ParseConversion(p + 1, ap, conv);
        switch (conv.conversion) {
            case u'c':
            case u'C':
                PutChar(out, conv, va_arg(ap, int));
                break;
            case u's':
            case u'S':
                PutText(out, conv, va_arg(ap, const void*));
                break;
            case u'd':
            case u'i':
                PutSigned(out, conv, ap);
                break;
            case u'u':
            case u'x':
            case u'X':
            case u'o':
                PutUnsigned(out, conv, ap);
                break;
            case u'p':
                PutInteger(out, conv, reinterpret_cast<uintptr_t>(va_arg(ap, void*)), false);
                break;
            case u'e':
            case u'E':
            case u'f':
            case u'g':
            case u'G':
            case u'a':
                PutFloat(out, conv, va_arg(ap, double));
                break;
            // %n is consumed but never written through: a format must not store into memory.
            case u'n':
                (void)va_arg(ap, void*);
                break;
            case 0:
                break;
            default:
                out.Put(conv.conversion);
                break;
        }
    }
    va_end(ap);
    return out.Finish();
}
