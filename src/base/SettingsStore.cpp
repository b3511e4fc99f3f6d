#include "base/SettingsStore.h"

namespace settings {

namespace {

Str KeyPath(const char16_t* subkey) {
    Str path(kRoot);
    path.Append(subkey);
    return path;
}

}  // namespace

registry::Key OpenKey(const char16_t* subkey, bool forWrite) {
    Str path = KeyPath(subkey);
    return forWrite ? registry::Create(path) : registry::Open(path);
}

uint32_t ReadNumber(const char16_t* subkey, const char16_t* name, uint32_t fallback) {
    if (subkey == nullptr || name == nullptr)
        return fallback;
    registry::KeyHolder key(OpenKey(subkey, false));
    if (!key)
        return fallback;
    uint32_t type = 0;
    uint32_t value = 0;
    uint32_t size = sizeof(value);
    if (!registry::Query(key.get(), name, &type, &value, &size))
        return fallback;
    return type == registry::kTypeDword ? value : fallback;
}

Str ReadString(const char16_t* subkey, const char16_t* name, const Str& /*fallback*/) {
    registry::KeyHolder key(OpenKey(subkey, false));
    if (!key)
        return Str();
    uint32_t type = 0;
    uint32_t size = 0;
    if (!registry::Query(key.get(), name, &type, nullptr, &size))
        return Str();
    Str text;
    uint32_t characters = size / 2;
    char16_t* buffer = text.GetBuffer(static_cast<int>(characters));
    buffer[characters] = 0;  // a stored string need not carry its terminator
    uint32_t bytes = characters * 2;
    if (!registry::Query(key.get(), name, &type, buffer, &bytes) || type != registry::kTypeString) {
        return Str();
    }
    text.ReleaseBuffer(-1);
    return text;
}

int WriteNumber(const char16_t* /*subkeyIgnored*/, const char16_t* name, uint32_t value) {
    if (name == nullptr)
        return 0;
    registry::KeyHolder key(OpenKey(kSettingsKey, true));
    if (!key)
        return 0;
    bool set = registry::Set(key.get(), name, registry::kTypeDword, &value, sizeof(value));
    registry::Flush(key.get());
    return set ? 1 : 0;
}

uint8_t* ReadBlock(uint32_t* outSize) {
    if (outSize == nullptr)
        return nullptr;
    *outSize = 0;
    registry::KeyHolder key(OpenKey(kKeypadKey, false));
    if (!key)
        return nullptr;
    uint32_t type = 0;
    uint32_t size = 0;
    if (!registry::Query(key.get(), u"Custom", &type, nullptr, &size) ||
        type != registry::kTypeBinary) {
        return nullptr;
    }
    *outSize = size;
    auto* block = new uint8_t[size];
    uint32_t bytes = size;
    if (!registry::Query(key.get(), u"Custom", &type, block, &bytes)) {
        delete[] block;
        return nullptr;
    }
    return block;
}

}  // namespace settings
