#include "base/Chars.h"

namespace chars {

size_t Length(const char16_t* s) {
    if (s == nullptr)
        return 0;
    size_t n = 0;
    while (s[n] != 0)
        ++n;
    return n;
}

int Compare(const char16_t* a, const char16_t* b) {
    static const char16_t kEmpty[] = u"";
    if (a == nullptr)
        a = kEmpty;
    if (b == nullptr)
        b = kEmpty;
    while (*a != 0 && *a == *b) {
        ++a;
        ++b;
    }
    return static_cast<int>(*a) - static_cast<int>(*b);
}

int CompareN(const char16_t* a, const char16_t* b, size_t n) {
    for (size_t i = 0; i < n; ++i) {
        if (a[i] != b[i])
            return static_cast<int>(a[i]) - static_cast<int>(b[i]);
        if (a[i] == 0)
            return 0;
    }
    return 0;
}

size_t CopyN(char16_t* dst, size_t cap, const char16_t* src) {
    size_t n = 0;
    if (src != nullptr) {
        while (n + 1 < cap && src[n] != 0) {
            dst[n] = src[n];
            ++n;
        }
    }
    dst[n] = 0;
    return n;
}

bool IsSpace(char16_t c) {
    return c == u' ' || (c >= u'\t' && c <= u'\r');
}

bool IsDigit(char16_t c) {
    return c >= u'0' && c <= u'9';
}

char16_t AsciiLower(char16_t c) {
    return (c >= u'A' && c <= u'Z') ? static_cast<char16_t>(c - u'A' + u'a') : c;
}

int32_t ToLong(const char16_t* s) {
    if (s == nullptr)
        return 0;
    while (IsSpace(*s))
        ++s;
    bool negative = false;
    if (*s == u'+' || *s == u'-')
        negative = (*s++ == u'-');
    uint32_t value = 0;
    while (IsDigit(*s))
        value = value * 10u + static_cast<uint32_t>(*s++ - u'0');
    return static_cast<int32_t>(negative ? 0u - value : value);
}

}  // namespace chars
