#include "phone/ServiceCode.h"

#include <cstring>

namespace {

// The device is little-endian; the bytes are written one by one so every build lays them alike.
void PutLittleEndian32(uint8_t* at, uint32_t value) {
    for (int i = 0; i < 4; ++i)
        at[i] = static_cast<uint8_t>(value >> (8 * i));
}

}  // namespace

void LayOutServiceCodeBlock(std::u16string_view code, uint8_t* block) {
    std::memset(block, 0, ServiceCodeBlockSize(code.size()));
    PutLittleEndian32(block, kServiceCodeHeaderTag);
    PutLittleEndian32(block + 4, static_cast<uint32_t>(kServiceCodeTextOffset));
    uint8_t* text = block + kServiceCodeTextOffset;
    for (char16_t c : code) {
        *text++ = static_cast<uint8_t>(c);
        *text++ = static_cast<uint8_t>(c >> 8);
    }
    // The terminator is among the zeros already written.
}
