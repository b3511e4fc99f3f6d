#pragma once
// The registry seam: keys below HKEY_CURRENT_USER, with the platform's value types and the
// meaning of the platform's calls (a query with too small a buffer fails and reports the size).

#include <cstdint>

namespace registry {

struct KeyTag;
using Key = KeyTag*;

constexpr uint32_t kTypeNone = 0;
constexpr uint32_t kTypeString = 1;  // REG_SZ
constexpr uint32_t kTypeBinary = 3;  // REG_BINARY
constexpr uint32_t kTypeDword = 4;   // REG_DWORD

/// Opens the key at path below the current user's hive, creating it (and its parents) when
/// missing; null on failure. Close with Close.
Key Create(const char16_t* path);
/// Opens an existing key; null when missing.
Key Open(const char16_t* path);
void Close(Key key);
/// Queries a value. data may be null to ask for the size only. On entry *size is the buffer's
/// size in bytes; on return the value's size. False when missing, or when data is given and
/// too small (then *size is the size needed). type may be null.
bool Query(Key key, const char16_t* name, uint32_t* type, void* data, uint32_t* size);
/// Sets a value of the given type from size bytes.
bool Set(Key key, const char16_t* name, uint32_t type, const void* data, uint32_t size);
bool DeleteValue(Key key, const char16_t* name);
bool Flush(Key key);
/// Deletes the key at path with everything below it; true when it is gone afterwards.
bool DeleteTree(const char16_t* path);

/// Owns an open key.
class KeyHolder {
  public:
    explicit KeyHolder(Key key = nullptr) : key_(key) {}
    ~KeyHolder() { Close(key_); }
    KeyHolder(const KeyHolder&) = delete;
    KeyHolder& operator=(const KeyHolder&) = delete;
    Key get() const { return key_; }
    explicit operator bool() const { return key_ != nullptr; }

  private:
    Key key_;
};

}  // namespace registry
