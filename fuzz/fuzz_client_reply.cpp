// Hostile replies to the search service client: whatever bytes, sizes and results the service
// gives, the client parses them without reading outside its buffers.

#include <cstdint>
#include <cstring>
#include <vector>

#include "contacts/SearchServiceClient.h"

namespace {

/// A service whose replies come from the fuzz input.
class ReplayCalls : public ServiceCalls {
  public:
    ReplayCalls(const uint8_t* data, size_t size) : data_(data), size_(size) {}

    void* GetServiceHandle(const char16_t*) override { return Next(1) % 8 == 0 ? nullptr : this; }
    bool CallRegistrationExport(const char16_t*, const char*) override { return Next(1) % 4 != 0; }
    void* RegisterService(const char16_t*, uint32_t, const char16_t*, uint32_t) override {
        return Next(1) % 4 != 0 ? this : nullptr;
    }
    bool IoControl(void*, uint32_t, const void*, uint32_t, void* out, uint32_t outBytes,
                   uint32_t* returned) override {
        uint32_t mode = Next(1);
        uint32_t length = Next(2) % 512;
        if (length > size_ - at_)
            length = static_cast<uint32_t>(size_ - at_);
        const uint8_t* reply = data_ + at_;
        at_ += length;
        if (mode % 5 == 0) {  // a size that is not the reply's
            *returned = Next(4);
            return (mode & 8) != 0;
        }
        *returned = length;
        if (length > outBytes || (length > 0 && out == nullptr))
            return false;
        if (length > 0)
            std::memcpy(out, reply, length);
        return true;
    }

  private:
    uint32_t Next(int bytes) {
        uint32_t v = 0;
        for (int i = 0; i < bytes && at_ < size_; ++i)
            v |= static_cast<uint32_t>(data_[at_++]) << (8 * i);
        return v;
    }
    const uint8_t* data_;
    size_t size_;
    size_t at_ = 0;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    ReplayCalls calls(data, size);
    SearchServiceClient client(calls);
    Array<uint32_t> oids;
    Array<Str> texts;
    ServiceDetails details;
    Array<ContactPhone> phones;
    Array<Str> strings;
    for (int round = 0; round < 3; ++round) {
        client.SearchText(u"37", oids, texts);
        client.SearchNumber(u"89121234567", oids);
        if (client.GetDetails(7, details))
            details.GetPhones(phones);
        client.GetResultStrings(strings);
    }
    return 0;
}
