#pragma once
// A ServiceCalls for tests: records every call and answers either from a SearchService (the real
// protocol) or from a canned reply, with the service control call's size rules.

#include <cstring>
#include <map>
#include <string>
#include <vector>

#include "contacts/SearchServiceClient.h"
#include "service/SearchService.h"

class FakeServiceCalls : public ServiceCalls {
  public:
    struct IoCall {
        uint32_t code;
        std::vector<uint8_t> in;
        uint32_t outBytes;
        bool outGiven;
    };

    void* GetServiceHandle(const char16_t* deviceName) override {
        lookedUp.push_back(deviceName);
        return running ? this : nullptr;
    }
    bool CallRegistrationExport(const char16_t* library, const char* exportName) override {
        exportCalls.push_back(std::u16string(library) + u"!" +
                              std::u16string(exportName, exportName + std::strlen(exportName)));
        return exportSucceeds;
    }
    void* RegisterService(const char16_t* prefix, uint32_t index, const char16_t* library,
                          uint32_t context) override {
        registrations.push_back(std::u16string(prefix) + u"|" + std::u16string(library));
        registeredIndex = index;
        registeredContext = context;
        if (!registrationSucceeds)
            return nullptr;
        running = true;
        return this;
    }
    bool IoControl(void* service, uint32_t code, const void* in, uint32_t inBytes, void* out,
                   uint32_t outBytes, uint32_t* returned) override {
        const auto* bytes = static_cast<const uint8_t*>(in);
        calls.push_back(
            {code, std::vector<uint8_t>(bytes, bytes + inBytes), outBytes, out != nullptr});
        if (service != this)
            return false;
        auto canned = replies.find(code);
        if (canned == replies.end()) {
            return target != nullptr &&
                   target->IoControl(code, bytes, inBytes, static_cast<uint8_t*>(out), outBytes,
                                     returned);
        }
        auto size = static_cast<uint32_t>(canned->second.size());
        *returned = size;
        if (size > outBytes || (size > 0 && out == nullptr))
            return false;
        if (size > 0)
            std::memcpy(out, canned->second.data(), size);
        return true;
    }

    bool running = true;
    bool exportSucceeds = true;
    bool registrationSucceeds = true;
    SearchService* target = nullptr;
    std::map<uint32_t, std::vector<uint8_t>> replies;

    std::vector<std::u16string> lookedUp;
    std::vector<std::u16string> exportCalls;
    std::vector<std::u16string> registrations;
    uint32_t registeredIndex = 99;
    uint32_t registeredContext = 99;
    std::vector<IoCall> calls;
};
