#include <windows.h>

#include "base/Registry.h"
#include "win/WideCast.h"

namespace registry {
namespace {

// The device opens every key with full access; read and write is the desktop's equivalent.
constexpr REGSAM kAccess = KEY_READ | KEY_WRITE;

HKEY ToHkey(Key key) {
    return reinterpret_cast<HKEY>(key);
}
Key FromHkey(HKEY key) {
    return reinterpret_cast<Key>(key);
}

}  // namespace

Key Create(const char16_t* path) {
    if (path == nullptr)
        return nullptr;
    HKEY key = nullptr;
    LONG status =
        RegCreateKeyExW(HKEY_CURRENT_USER, W(path), 0, nullptr, 0, kAccess, nullptr, &key, nullptr);
    return status == ERROR_SUCCESS ? FromHkey(key) : nullptr;
}

Key Open(const char16_t* path) {
    if (path == nullptr)
        return nullptr;
    HKEY key = nullptr;
    LONG status = RegOpenKeyExW(HKEY_CURRENT_USER, W(path), 0, kAccess, &key);
    return status == ERROR_SUCCESS ? FromHkey(key) : nullptr;
}

void Close(Key key) {
    if (key != nullptr)
        RegCloseKey(ToHkey(key));
}

bool Query(Key key, const char16_t* name, uint32_t* type, void* data, uint32_t* size) {
    if (key == nullptr || (data != nullptr && size == nullptr))
        return false;
    DWORD valueType = REG_NONE;
    DWORD bytes = size != nullptr ? *size : 0;
    LONG status = RegQueryValueExW(ToHkey(key), W(name), nullptr, &valueType,
                                   static_cast<BYTE*>(data), size != nullptr ? &bytes : nullptr);
    if (type != nullptr)
        *type = valueType;
    if (size != nullptr)
        *size = bytes;
    return status == ERROR_SUCCESS;
}

bool Set(Key key, const char16_t* name, uint32_t type, const void* data, uint32_t size) {
    if (key == nullptr)
        return false;
    return RegSetValueExW(ToHkey(key), W(name), 0, type, static_cast<const BYTE*>(data), size) ==
           ERROR_SUCCESS;
}

bool DeleteValue(Key key, const char16_t* name) {
    return key != nullptr && RegDeleteValueW(ToHkey(key), W(name)) == ERROR_SUCCESS;
}

bool Flush(Key key) {
    return key != nullptr && RegFlushKey(ToHkey(key)) == ERROR_SUCCESS;
}

bool DeleteTree(const char16_t* path) {
    if (path == nullptr || *path == 0)
        return false;
    RegDeleteTreeW(HKEY_CURRENT_USER, W(path));
    KeyHolder left(Open(path));
    return !left;
}

}  // namespace registry
