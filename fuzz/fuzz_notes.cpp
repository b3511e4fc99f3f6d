// Fuzzes the notes block reader: a notes stream of any form and length, then its "Phone:" items.
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "contacts/NotesBlock.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    auto bytes = std::make_shared<const std::vector<uint8_t>>(data, data + size);
    MemoryStream stream(bytes);
    NotesBlock block;
    ReadNotes(&stream, block);
    Array<Str> labels;
    Array<Str> numbers;
    int count = PhoneItems(block, kNotesPhoneWord, labels, numbers);
    if (count != labels.Size() || labels.Size() != numbers.Size())
        __builtin_trap();
    // The same bytes taken as UTF-16 text, so every character reaches the splitter and parser.
    std::u16string text;
    for (size_t i = 0; i + 1 < size; i += 2) {
        char16_t c = static_cast<char16_t>(data[i] | (data[i + 1] << 8));
        if (c != 0)
            text += c;
    }
    SplitNotesBlock(Str(text.c_str()), block);
    block.blockText = text.c_str();
    PhoneItems(block, kNotesPhoneWord, labels, numbers);
    return 0;
}
