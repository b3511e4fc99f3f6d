#include "platform/DeviceProfile.h"

#include <cstdlib>

namespace device {
namespace {

constexpr int kMaxPixels = 4096;
constexpr int kMaxDpi = 1024;

// Reads decimal digits into value (at most `limit`); returns the position after them, or null.
const char* ReadNumber(const char* p, int limit, int& value) {
    if (*p < '0' || *p > '9')
        return nullptr;
    long n = 0;
    while (*p >= '0' && *p <= '9') {
        n = n * 10 + (*p - '0');
        if (n > limit)
            return nullptr;
        ++p;
    }
    if (n < 1)
        return nullptr;
    value = static_cast<int>(n);
    return p;
}

const char* Expect(const char* p, char c) {
    return p != nullptr && *p == c ? p + 1 : nullptr;
}

Profile& Current() {
    static Profile profile = SelectProfile(std::getenv(kProfileVariable));
    return profile;
}

}  // namespace

bool ParseProfile(const char* text, Profile& out) {
    if (text == nullptr)
        return false;
    Profile parsed{};
    const char* p = ReadNumber(text, kMaxPixels, parsed.width);
    p = Expect(p, 'x');
    if (p != nullptr)
        p = ReadNumber(p, kMaxPixels, parsed.height);
    p = Expect(p, '@');
    if (p != nullptr)
        p = ReadNumber(p, kMaxDpi, parsed.dpi);
    if (p == nullptr || *p != '\0')
        return false;
    out = parsed;
    return true;
}

Profile SelectProfile(const char* value) {
    Profile profile = kDefaultProfile;
    ParseProfile(value, profile);
    return profile;
}

Profile Rotated(const Profile& profile) {
    return {profile.height, profile.width, profile.dpi};
}

const Profile& CurrentProfile() {
    return Current();
}

void SetCurrentProfile(const Profile& profile) {
    Current() = profile;
}

}  // namespace device
