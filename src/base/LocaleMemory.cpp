// Native stand-in for the system locale: Latin-1 as the ANSI code page, case folding for Latin,
// Greek and Cyrillic, and a comparison that orders by letters first (accents and case second).
#include <ctime>

#include "base/Chars.h"
#include "base/Locale.h"
#include "base/LocaleMemory.h"

namespace locale_text {

namespace {

uint16_t gLanguage = 0x0409;
const char16_t* gFixedStamp = nullptr;

// Base letters of the Latin-1 letters 0xC0..0xFF ('\0' where there is none).
constexpr char kLatin1Base[] =
    "aaaaaaaceeeeiiii"
    "dnooooo\0ouuuuyts"
    "aaaaaaaceeeeiiii"
    "dnooooo\0ouuuuyty";

char16_t PrimaryKey(char16_t c) {
    c = ToLower(c);
    if (c >= 0xE0 && c <= 0xFF && kLatin1Base[c - 0xC0] != 0)
        return kLatin1Base[c - 0xC0];
    if (c == 0x451)
        return 0x435;  // ё sorts with е
    return c;
}

}  // namespace

char16_t ToLower(char16_t c) {
    if (c >= u'A' && c <= u'Z')
        return static_cast<char16_t>(c + 32);
    if (c >= 0xC0 && c <= 0xDE && c != 0xD7)
        return static_cast<char16_t>(c + 32);
    if (c >= 0x100 && c <= 0x17F && c != 0x130 && c != 0x138 && c != 0x149 && c % 2 == 0)
        return static_cast<char16_t>(c + 1);
    if (c >= 0x391 && c <= 0x3AB && c != 0x3A2)
        return static_cast<char16_t>(c + 32);
    if (c >= 0x410 && c <= 0x42F)
        return static_cast<char16_t>(c + 32);
    if (c >= 0x400 && c <= 0x40F)
        return static_cast<char16_t>(c + 80);
    return c;
}

int Compare(const char16_t* a, const char16_t* b) {
    static const char16_t kEmpty[] = u"";
    if (a == nullptr)
        a = kEmpty;
    if (b == nullptr)
        b = kEmpty;
    for (size_t i = 0;; ++i) {
        char16_t ka = PrimaryKey(a[i]);
        char16_t kb = PrimaryKey(b[i]);
        if (ka != kb)
            return ka < kb ? -1 : 1;
        if (a[i] == 0)
            break;
    }
    int ordinal = chars::Compare(a, b);
    return ordinal < 0 ? -1 : (ordinal > 0 ? 1 : 0);
}

int ToAnsi(const char16_t* text, int n, char* out, int outBytes) {
    int written = 0;
    for (int i = 0; i < n && written < outBytes; ++i) {
        out[written++] = text[i] < 0x100 ? static_cast<char>(text[i]) : '?';
    }
    return written;
}

uint16_t UserLanguageId() {
    return gLanguage;
}

void FormatLogStamp(char16_t* buf, int cap) {
    if (cap <= 0)
        return;
    if (gFixedStamp != nullptr) {
        chars::CopyN(buf, static_cast<size_t>(cap), gFixedStamp);
        return;
    }
    std::time_t now = std::time(nullptr);
    std::tm local = *std::localtime(&now);  // one thread: the shared result is safe here
    char text[64];
    std::strftime(text, sizeof(text), "%Y.%m.%d %H:%M:%S - ", &local);
    int i = 0;
    for (; text[i] != 0 && i + 1 < cap; ++i)
        buf[i] = static_cast<char16_t>(text[i]);
    buf[i] = 0;
}

void SetUserLanguageId(uint16_t id) {
    gLanguage = id;
}
void SetFixedLogStamp(const char16_t* stamp) {
    gFixedStamp = stamp;
}

}  // namespace locale_text
