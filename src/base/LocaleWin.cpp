#include <windows.h>

#include "base/Locale.h"
#include "win/WideCast.h"

namespace locale_text {
namespace {

const wchar_t* OrEmpty(const char16_t* text) {
    return text != nullptr ? W(text) : L"";
}

bool IsLeadSurrogate(char16_t c) {
    return c >= 0xD800 && c <= 0xDBFF;
}

// Converts character by character while whole characters still fit; returns the bytes written.
int ToAnsiCut(const char16_t* text, int n, char* out, int outBytes) {
    int written = 0;
    for (int i = 0; i < n;) {
        int units = (IsLeadSurrogate(text[i]) && i + 1 < n) ? 2 : 1;
        int need = WideCharToMultiByte(CP_ACP, 0, W(text + i), units, nullptr, 0, nullptr, nullptr);
        if (need <= 0 || written + need > outBytes)
            break;
        written += WideCharToMultiByte(CP_ACP, 0, W(text + i), units, out + written,
                                       outBytes - written, nullptr, nullptr);
        i += units;
    }
    return written;
}

}  // namespace

int Compare(const char16_t* a, const char16_t* b) {
    return CompareStringW(LOCALE_SYSTEM_DEFAULT, 0, OrEmpty(a), -1, OrEmpty(b), -1) - CSTR_EQUAL;
}

char16_t ToLower(char16_t c) {
    // CharLowerW lower-cases a single character passed in the pointer's low word.
    ULONG_PTR lowered = reinterpret_cast<ULONG_PTR>(
        CharLowerW(reinterpret_cast<LPWSTR>(static_cast<ULONG_PTR>(c))));
    return static_cast<char16_t>(lowered & 0xFFFF);
}

int ToAnsi(const char16_t* text, int n, char* out, int outBytes) {
    if (text == nullptr || n <= 0 || out == nullptr || outBytes <= 0)
        return 0;
    int written = WideCharToMultiByte(CP_ACP, 0, W(text), n, out, outBytes, nullptr, nullptr);
    if (written > 0)
        return written;
    return ToAnsiCut(text, n, out, outBytes);
}

uint16_t UserLanguageId() {
    return GetUserDefaultLangID();
}

void FormatLogStamp(char16_t* buf, int cap) {
    if (buf == nullptr || cap <= 0)
        return;
    buf[0] = 0;
    SYSTEMTIME now;
    GetLocalTime(&now);
    int date = GetDateFormatW(LOCALE_SYSTEM_DEFAULT, 0, &now, L"yyyy.MM.dd ", W(buf), cap);
    if (date <= 0)
        return;
    int used = date - 1;
    if (GetTimeFormatW(LOCALE_SYSTEM_DEFAULT, 0, &now, L"HH:mm:ss - ", W(buf + used), cap - used) <=
        0) {
        buf[used] = 0;
    }
}

}  // namespace locale_text
