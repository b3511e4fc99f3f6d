#include "service/ReplyWriter.h"

void ReplyWriter::U32(uint32_t value) {
    for (int i = 0; i < 4; ++i)
        bytes_.push_back(static_cast<uint8_t>(value >> (8 * i)));
}

void ReplyWriter::PatchU32(size_t at, uint32_t value) {
    for (int i = 0; i < 4; ++i)
        bytes_[at + i] = static_cast<uint8_t>(value >> (8 * i));
}

void ReplyWriter::Char(char16_t c) {
    bytes_.push_back(static_cast<uint8_t>(c & 0xFF));
    bytes_.push_back(static_cast<uint8_t>(c >> 8));
}

void ReplyWriter::Text(const char16_t* text, size_t length) {
    for (size_t i = 0; i < length; ++i) {
        if (text[i] != 0)
            Char(text[i]);
    }
    Char(0);
}

void ReplyWriter::Text(const std::u16string& text) {
    Text(text.data(), text.size());
}
