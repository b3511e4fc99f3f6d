#pragma once
// Small helpers of the contacts tests: byte buffers and streams made from literals.

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "base/Str.h"
#include "contacts/ContactsStore.h"

namespace test_bytes {

inline std::vector<uint8_t> Bytes(const std::string& text) {
    return std::vector<uint8_t>(text.begin(), text.end());
}

/// UTF-16 little-endian bytes of text, after an optional prefix.
inline std::vector<uint8_t> Utf16Le(const std::u16string& text, std::vector<uint8_t> prefix = {}) {
    for (char16_t c : text) {
        prefix.push_back(static_cast<uint8_t>(c & 0xFF));
        prefix.push_back(static_cast<uint8_t>(c >> 8));
    }
    return prefix;
}

inline std::shared_ptr<const std::vector<uint8_t>> Shared(std::vector<uint8_t> bytes) {
    return std::make_shared<const std::vector<uint8_t>>(std::move(bytes));
}

inline std::u16string U16(const Str& text) {
    return std::u16string(text.c_str());
}

}  // namespace test_bytes
