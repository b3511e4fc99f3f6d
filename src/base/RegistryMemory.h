#pragma once
// Test hooks of the in-memory registry (native builds and the core tests).

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace registry::memory {

struct Value {
    uint32_t type = 0;
    std::vector<uint8_t> data;
};

/// Forgets every key and value.
void Reset();
/// Key paths (as created, case kept) currently present.
std::vector<std::u16string> Keys();
/// The values of the key at path (names as stored); empty when the key is missing.
std::map<std::u16string, Value> Values(const char16_t* path);
/// How many times Flush and Set were called since Reset.
int FlushCount();
int SetCount();
/// While set, Create fails (a key that cannot be created or opened for writing).
void FailCreate(bool fail);

}  // namespace registry::memory
