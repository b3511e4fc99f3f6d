// Fuzzes the vCard reader and its mapping onto contacts: any bytes, no crash, no read outside.
#include <cstddef>
#include <cstdint>
#include <vector>

#include "contacts/VCardContacts.h"
#include "contacts/VCardReader.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::vector<uint8_t> bytes(data, data + size);  // exact size: any overrun is caught
    for (const VCard& card : ReadVCards(bytes.data(), bytes.size())) {
        for (const VCardProperty& property : card.properties) {
            std::vector<uint8_t> binary;
            DecodeVCardBinary(property, binary);
            SplitVCardValue(DecodeVCardText(property), u';');
        }
    }
    ReadContactsFile(bytes.data(), bytes.size());
    return 0;
}
