// Fuzzes the pwi decoder behind a valid header, so the record walk and the run decoder get the
// lying lengths and bad codes.
#include <cstddef>
#include <cstdint>
#include <vector>

#include "contacts/PwiDecoder.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::vector<uint8_t> bytes = {'{', '\\', 'p', 'w', 'i', 1, 1, 1, 1, 1, 1, 1, 1, 1};
    bytes.insert(bytes.end(), data, data + size);
    std::vector<uint8_t> exact(bytes.begin(), bytes.end());
    DecodePwi(exact.data(), exact.size());
    std::vector<uint8_t> run(data, data + size);
    Str out;
    DecodePwiRun(run.data(), run.size(), out);
    return 0;
}
