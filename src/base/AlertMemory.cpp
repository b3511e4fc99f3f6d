// Without a window system a box becomes a line on standard error, answered with OK.
#include <cstdio>
#include <string>

#include "base/Alert.h"

namespace {
std::string Narrow(const char16_t* text) {
    std::string out;
    for (; text != nullptr && *text != 0; ++text)
        out += *text < 0x80 ? static_cast<char>(*text) : '?';
    return out;
}
}  // namespace

int PlatformAlert(const char16_t* text, const char16_t* caption, uint32_t /*flags*/) {
    std::fprintf(stderr, "[%s] %s\n", Narrow(caption).c_str(), Narrow(text).c_str());
    return kAlertAnswerOk;
}
