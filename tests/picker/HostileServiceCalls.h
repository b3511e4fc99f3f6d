#pragma once
// A service that answers the picker with whatever a test scripts: canned replies per request
// code (garbage included), a reply size that lies, or no service at all. It keeps the control
// call's size rule (too small a buffer: fail with the size needed), unless told to lie.

#include <cstdint>
#include <cstring>
#include <map>
#include <string>
#include <vector>

#include "contacts/SearchServiceClient.h"

/// Reply bytes built by hand.
class ReplyBytes {
  public:
    ReplyBytes& U32(uint32_t v) {
        for (int i = 0; i < 4; ++i)
            bytes.push_back(static_cast<uint8_t>(v >> (8 * i)));
        return *this;
    }
    /// The text's characters and one 0.
    ReplyBytes& Text(const std::u16string& text) {
        for (char16_t c : text)
            Char(c);
        return Char(0);
    }
    ReplyBytes& Char(char16_t c) {
        bytes.push_back(static_cast<uint8_t>(c & 0xFF));
        bytes.push_back(static_cast<uint8_t>(c >> 8));
        return *this;
    }
    std::vector<uint8_t> bytes;
};

class HostileServiceCalls : public ServiceCalls {
  public:
    /// No service at all: lookup and registration fail.
    bool absent = false;
    /// Added to the size a successful call reports (a reply said to be larger than the buffer).
    uint32_t sizeLie = 0;
    /// Canned replies by request code; a code without one fails with size 0.
    std::map<uint32_t, std::vector<uint8_t>> replies;
    /// Canned details replies by object id (request code 6), before `replies`.
    std::map<uint32_t, std::vector<uint8_t>> details;
    /// Requests received, by code.
    std::map<uint32_t, int> calls;

    void* GetServiceHandle(const char16_t*) override { return absent ? nullptr : this; }
    bool CallRegistrationExport(const char16_t*, const char*) override { return !absent; }
    void* RegisterService(const char16_t*, uint32_t, const char16_t*, uint32_t) override {
        return absent ? nullptr : this;
    }
    bool IoControl(void* service, uint32_t code, const void* in, uint32_t inBytes, void* out,
                   uint32_t outBytes, uint32_t* returned) override {
        *returned = 0;
        if (service != this)
            return false;
        ++calls[code];
        const std::vector<uint8_t>* reply = Find(code, in, inBytes);
        if (reply == nullptr)
            return false;
        const auto size = static_cast<uint32_t>(reply->size());
        if (out == nullptr || outBytes < size) {
            *returned = size;
            return false;
        }
        std::memcpy(out, reply->data(), size);
        *returned = size + sizeLie;
        return true;
    }

  private:
    const std::vector<uint8_t>* Find(uint32_t code, const void* in, uint32_t inBytes) const {
        if (code == search_service::kDetails && inBytes == 4) {
            uint32_t oid = 0;
            std::memcpy(&oid, in, 4);
            auto found = details.find(oid);
            if (found != details.end())
                return &found->second;
        }
        auto found = replies.find(code);
        return found != replies.end() ? &found->second : nullptr;
    }
};
