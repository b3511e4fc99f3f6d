#pragma once
// Network service codes ("*100#", "*#06#"): a number whose last character is "#" is not dialled.
// It goes to the phone's call-policy window as one copied-data block, laid out to the byte as the
// device defines it (the block holds no pointers, so the 64-bit build keeps the same bytes).

#include <cstddef>
#include <cstdint>
#include <string_view>

/// Class of the phone's call-policy window, the only receiver of service codes.
constexpr char16_t kCallPolicyClass[] = u"CallPol";
/// The copied-data message's dwData that marks a service-code block.
constexpr uint32_t kServiceCodeDataId = 1150;
/// The block's header: 32-bit 1, 32-bit text offset, then zeros up to the text.
constexpr uint32_t kServiceCodeHeaderTag = 1;
constexpr size_t kServiceCodeTextOffset = 20;

/// Whether number is a service code: its last character is "#". An empty number is not.
constexpr bool IsServiceCode(std::u16string_view number) {
    return !number.empty() && number.back() == u'#';
}

/// The block's size in bytes for a code of `length` characters: ((2 × length + 25) / 4) × 4,
/// truncating. It always holds the header, the text and its terminator; an even length leaves
/// two spare zero bytes at the end.
constexpr size_t ServiceCodeBlockSize(size_t length) {
    return (2 * length + 25) / 4 * 4;
}

/// Writes the block for code into block, which holds ServiceCodeBlockSize(code.size()) bytes:
/// 32-bit 1 at byte 0, 32-bit 20 at byte 4, zeros to byte 19, then the code as little-endian
/// UTF-16 with its terminating zero, and zeros to the end.
void LayOutServiceCodeBlock(std::u16string_view code, uint8_t* block);
