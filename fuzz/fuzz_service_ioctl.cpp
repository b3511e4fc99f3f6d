// Hostile requests to the search service's I/O control entry: any code, any sizes, buffers of
// exactly the sizes claimed, several requests in a row so the kept results and the kept reply
// are exercised. Typed-digit searches are also checked against the linear matcher.

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "keypad/KeypadLayout.h"
#include "service/AddressBookGenerator.h"
#include "service/LinearMatcher.h"
#include "service/SearchService.h"

namespace {

SearchService& Service() {
    static SearchService* service = [] {
        auto* s = new SearchService;
        KeypadLayout layout;
        layout.Load(3);
        s->SetLayout(layout);
        std::vector<ServiceContact> book = GenerateAddressBook(300, 5);
        book[0].fields[kFieldFirst] = std::u16string(u"A\0B\u0301", 4);  // a zero inside a name
        book[1].phones.push_back({u"", u"", 100});
        s->SetContacts(std::move(book));
        return s;
    }();
    return *service;
}

constexpr uint32_t kCodes[] = {5, 6, 8, 9, 5, 5, 0, 0xFFFFFFFF};

struct Reader {
    const uint8_t* data;
    size_t size;
    size_t at = 0;
    uint32_t Take(int bytes) {
        uint32_t v = 0;
        for (int i = 0; i < bytes && at < size; ++i)
            v |= static_cast<uint32_t>(data[at++]) << (8 * i);
        return v;
    }
};

void CheckAgainstLinear(SearchService& service, const uint8_t* in, uint32_t inBytes) {
    std::u16string text(inBytes / 2, u'\0');
    if (inBytes >= 2)
        std::memcpy(text.data(), in, text.size() * 2);
    KeyQuery query;
    if (inBytes % 2 != 0 || !ParseKeyQuery(text.data(), text.size(), query))
        return;
    SearchHits indexed = service.Search(query);
    if (indexed != LinearSearch(service.Table(), service.Keys(), query))
        std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    SearchService& service = Service();
    Reader reader{data, size};
    for (int request = 0; request < 4 && reader.at < size; ++request) {
        uint32_t selector = reader.Take(1);
        uint32_t code = selector < 8 ? kCodes[selector] : selector;
        uint32_t inBytes = reader.Take(1);
        if (inBytes == 0xFF)
            inBytes = reader.Take(4);  // sizes near the 32-bit limit
        uint32_t outBytes = reader.Take(2);
        bool noOut = (reader.Take(1) & 1) != 0;
        size_t left = size - reader.at;
        // The buffer handed over holds exactly what is claimed (the rest of the input, or fewer
        // bytes when the claim is larger than what is left: then only that many are claimed).
        if (inBytes > left)
            inBytes = static_cast<uint32_t>(left);
        std::vector<uint8_t> in(data + reader.at, data + reader.at + inBytes);
        reader.at += inBytes;
        std::vector<uint8_t> out(noOut ? 0 : outBytes);
        uint32_t returned = 0;
        bool ok = service.IoControl(code, in.empty() ? nullptr : in.data(), inBytes,
                                    noOut ? nullptr : out.data(), noOut ? 0 : outBytes, &returned);
        if (ok && returned > out.size())
            std::abort();
        if (code == 5)
            CheckAgainstLinear(service, in.data(), inBytes);
    }
    return 0;
}
