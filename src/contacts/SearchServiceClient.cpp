#include "contacts/SearchServiceClient.h"

#include <cstdlib>
#include <cstring>

namespace {

// Zeroed bytes past every kept buffer's size: the details values are read as 8 bytes even when
// only 4 arrived, and an unterminated text ends in them.
constexpr uint32_t kSlack = 8;
// No real reply comes near this (a hundred thousand results take a few megabytes); a larger
// size reported by a misbehaving service is not believed rather than allocated.
constexpr uint32_t kMaxReplyBytes = 16u << 20;

/// Reads the character at byte offset `at` of a reply of `size` bytes; 0 past the end.
char16_t CharAt(const uint8_t* reply, uint32_t size, uint64_t at) {
    if (at + 2 > size)
        return 0;
    return static_cast<char16_t>(reply[at] | reply[at + 1] << 8);
}

uint32_t U32At(const uint8_t* bytes) {
    uint32_t v = 0;
    std::memcpy(&v, bytes, 4);
    return v;
}

/// Characters of the zero-terminated text at `at` (bounded by the reply's size).
uint32_t TextLength(const uint8_t* reply, uint32_t size, uint64_t at) {
    uint32_t n = 0;
    while (CharAt(reply, size, at + 2ull * n) != 0)
        ++n;
    return n;
}

/// A new[] copy of n characters at `at` followed by `zeros` terminators.
char16_t* CopyText(const uint8_t* reply, uint32_t size, uint64_t at, uint32_t n, int zeros) {
    auto* text = new char16_t[n + static_cast<uint32_t>(zeros)];
    for (uint32_t i = 0; i < n; ++i)
        text[i] = CharAt(reply, size, at + 2ull * i);
    for (int z = 0; z < zeros; ++z)
        text[n + static_cast<uint32_t>(z)] = 0;
    return text;
}

/// Copies the text at *at when it is not empty; moves *at past its terminator.
char16_t* TakeText(const uint8_t* reply, uint32_t size, uint64_t* at) {
    uint32_t n = TextLength(reply, size, *at);
    char16_t* text = n > 0 ? CopyText(reply, size, *at, n, 1) : nullptr;
    *at += 2ull * (n + 1);
    return text;
}

/// Appends the object ids of a search or number reply; returns the offset after them.
uint64_t TakeIds(const uint8_t* reply, uint32_t size, Array<uint32_t>& oids) {
    if (size < 4)
        return size;
    auto count = static_cast<int32_t>(U32At(reply));
    uint32_t fit = (size - 4) / 4;
    uint32_t n = count < 0 ? 0 : static_cast<uint32_t>(count);
    if (n > fit)
        n = fit;
    int first = oids.Size();
    oids.SetSize(first + static_cast<int>(n));
    for (uint32_t i = 0; i < n; ++i)
        oids[first + static_cast<int>(i)] = U32At(reply + 4 + 4 * i);
    return 4 + 4ull * n;
}

/// Appends the zero-terminated texts from `at` to the end of the reply, or up to the first
/// empty one when `untilEmpty`. Counted first, so a long run costs one allocation.
void TakeTexts(const uint8_t* reply, uint32_t size, uint64_t at, bool untilEmpty, Array<Str>& out) {
    int count = 0;
    for (uint64_t p = at; p + 2 <= size; ++count) {
        uint32_t n = TextLength(reply, size, p);
        if (n == 0 && untilEmpty)
            break;
        p += 2ull * (n + 1);
    }
    int first = out.Size();
    out.SetSize(first + count);
    for (int k = 0; k < count; ++k) {
        uint32_t n = TextLength(reply, size, at);
        if (n > 0) {
            char16_t* text = out[first + k].GetBuffer(static_cast<int>(n));
            for (uint32_t i = 0; i < n; ++i)
                text[i] = CharAt(reply, size, at + 2ull * i);
            out[first + k].ReleaseBuffer(static_cast<int>(n));
        }
        at += 2ull * (n + 1);
    }
}

ServiceCalls* g_processCalls = nullptr;

/// The calls of a process that installed none: there is no service.
class NoServiceCalls : public ServiceCalls {
  public:
    void* GetServiceHandle(const char16_t*) override { return nullptr; }
    bool CallRegistrationExport(const char16_t*, const char*) override { return false; }
    void* RegisterService(const char16_t*, uint32_t, const char16_t*, uint32_t) override {
        return nullptr;
    }
    bool IoControl(void*, uint32_t, const void*, uint32_t, void*, uint32_t,
                   uint32_t* returned) override {
        if (returned != nullptr)
            *returned = 0;
        return false;
    }
};

/// Routes to whatever calls are installed at the time of the request.
class ProcessCalls : public ServiceCalls {
  public:
    void* GetServiceHandle(const char16_t* name) override { return Calls().GetServiceHandle(name); }
    bool CallRegistrationExport(const char16_t* library, const char* name) override {
        return Calls().CallRegistrationExport(library, name);
    }
    void* RegisterService(const char16_t* prefix, uint32_t index, const char16_t* library,
                          uint32_t context) override {
        return Calls().RegisterService(prefix, index, library, context);
    }
    bool IoControl(void* service, uint32_t code, const void* in, uint32_t inBytes, void* out,
                   uint32_t outBytes, uint32_t* returned) override {
        return Calls().IoControl(service, code, in, inBytes, out, outBytes, returned);
    }

  private:
    static ServiceCalls& Calls() {
        static NoServiceCalls none;
        return g_processCalls != nullptr ? *g_processCalls : none;
    }
};

}  // namespace

void ServiceDetails::Clear() {
    value1 = 0;
    value2 = 0;
    for (char16_t** text : {&text1, &phones, &text2, &text3}) {
        delete[] * text;
        *text = nullptr;
    }
}

void ServiceDetails::Parse(const uint8_t* reply, uint32_t size) {
    if (reply == nullptr || size < 4)
        return;
    value1 = U32At(reply);
    value2 = U32At(reply + 4);
    if (static_cast<int64_t>(size) - 8 < 10)
        return;
    uint64_t at = 8;
    text1 = TakeText(reply, size, &at);
    // The phones text runs to its first two consecutive zeros.
    uint32_t n = 0;
    while (CharAt(reply, size, at + 2ull * n) != 0 || CharAt(reply, size, at + 2ull * n + 2) != 0) {
        ++n;
    }
    if (n > 0)
        phones = CopyText(reply, size, at, n, 2);
    at += 2ull * (n + 2);
    text2 = TakeText(reply, size, &at);
    text3 = TakeText(reply, size, &at);
}

void ServiceDetails::GetPhones(Array<ContactPhone>& out) const {
    out.RemoveAll();
    if (phones == nullptr)
        return;
    const char16_t* p = phones;
    while (*p != 0) {
        ContactPhone phone;
        phone.number = p;
        p += phone.number.Length() + 1;
        Str type = p;
        if (*p != 0)
            p += type.Length() + 1;
        if (type.Length() == 1 && type[0] >= 1 && type[0] <= 13) {
            phone.type = type[0] - 1;
            phone.label = PhoneTypeLabel(phone.type);
        } else {
            phone.type = kPhoneTypeNotes;
            phone.label = type;
        }
        out.Add(phone);
    }
}

SearchServiceClient::~SearchServiceClient() {
    for (Kept* kept : {&textBuffer_, &numberBuffer_, &detailsBuffer_})
        std::free(kept->data);
}

SearchServiceClient& SearchServiceClient::Get() {
    static ProcessCalls calls;
    static SearchServiceClient client(calls);
    return client;
}

void SearchServiceClient::SetProcessCalls(ServiceCalls* calls) {
    g_processCalls = calls;
}

bool SearchServiceClient::Send(uint32_t code, const void* in, uint32_t inBytes, void* out,
                               uint32_t outBytes, uint32_t* returned) {
    Str device;
    device.Format(search_service::kDeviceNameFormat, search_service::kPrefix);
    void* service = calls_.GetServiceHandle(device);
    if (service == nullptr) {
        if (!calls_.CallRegistrationExport(search_service::kLibrary,
                                           search_service::kRegistrationExport)) {
            return false;
        }
        service = calls_.RegisterService(search_service::kPrefix, 0, search_service::kLibrary, 0);
        if (service == nullptr)
            return false;
    }
    return calls_.IoControl(service, code, in, inBytes, out, outBytes, returned);
}

bool SearchServiceClient::Exchange(uint32_t code, const void* in, uint32_t inBytes, Kept& kept,
                                   uint32_t* size) {
    *size = 0;
    if (!Send(code, in, inBytes, kept.data, kept.size, size)) {
        if (*size == 0 || *size > kMaxReplyBytes)
            return false;
        // Exactly the size the service asked for, kept for the next request of this kind.
        std::free(kept.data);
        kept.data = static_cast<uint8_t*>(std::calloc(static_cast<size_t>(*size) + kSlack, 1));
        kept.size = kept.data != nullptr ? *size : 0;
        if (kept.data == nullptr)
            return false;
        uint32_t needed = *size;
        *size = 0;
        if (!Send(code, in, inBytes, kept.data, needed, size))
            return false;
    }
    // An empty reply is no result; a size beyond the buffer is not believed.
    return *size != 0 && *size <= kept.size;
}

bool SearchServiceClient::SearchText(const Str& text, Array<uint32_t>& oids, Array<Str>& texts) {
    oids.RemoveAll();
    uint32_t size = 0;
    if (!Exchange(search_service::kSearchText, text.c_str(),
                  static_cast<uint32_t>(text.Length()) * 2, textBuffer_, &size)) {
        return false;
    }
    uint64_t at = TakeIds(textBuffer_.data, size, oids);
    texts.RemoveAll();
    TakeTexts(textBuffer_.data, size, at, true, texts);
    return true;
}

bool SearchServiceClient::SearchNumber(const Str& text, Array<uint32_t>& oids) {
    oids.RemoveAll();
    uint32_t size = 0;
    if (!Exchange(search_service::kSearchNumber, text.c_str(),
                  static_cast<uint32_t>(text.Length()) * 2, numberBuffer_, &size)) {
        return false;
    }
    TakeIds(numberBuffer_.data, size, oids);
    return true;
}

bool SearchServiceClient::GetDetails(uint32_t oid, ServiceDetails& details) {
    details.Clear();
    uint32_t size = 0;
    if (!Exchange(search_service::kDetails, &oid, 4, detailsBuffer_, &size))
        return false;
    details.Parse(detailsBuffer_.data, size);
    return true;
}

bool SearchServiceClient::GetResultStrings(Array<Str>& strings) {
    strings.RemoveAll();
    uint32_t size = 0;
    if (Send(search_service::kResultStrings, nullptr, 0, nullptr, 0, &size))
        return true;
    if (size == 0 || size > kMaxReplyBytes)
        return false;
    auto* reply = static_cast<uint8_t*>(std::calloc(static_cast<size_t>(size) + kSlack, 1));
    if (reply == nullptr)
        return false;
    uint32_t needed = size;
    bool ok =
        Send(search_service::kResultStrings, nullptr, 0, reply, needed, &size) && size <= needed;
    if (ok)
        TakeTexts(reply, size, 0, false, strings);
    std::free(reply);
    return ok;
}
