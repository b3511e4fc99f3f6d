#pragma once
// ReplyWriter: appends little-endian values and zero-terminated UTF-16 texts to a reply.

#include <cstdint>
#include <string>
#include <vector>

class ReplyWriter {
  public:
    explicit ReplyWriter(std::vector<uint8_t>& bytes) : bytes_(bytes) { bytes_.clear(); }
    void U32(uint32_t value);
    /// Writes v at byte offset `at` (already written).
    void PatchU32(size_t at, uint32_t value);
    /// The text without any 0 characters (they would end it early), then a terminator.
    void Text(const std::u16string& text);
    void Text(const char16_t* text, size_t length);
    void Char(char16_t c);
    size_t Size() const { return bytes_.size(); }

  private:
    std::vector<uint8_t>& bytes_;
};
