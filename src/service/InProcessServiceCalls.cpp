#include "service/InProcessServiceCalls.h"

#include "service/ServiceProtocol.h"

void* InProcessServiceCalls::GetServiceHandle(const char16_t*) {
    return this;
}

bool InProcessServiceCalls::CallRegistrationExport(const char16_t*, const char*) {
    return true;
}

void* InProcessServiceCalls::RegisterService(const char16_t*, uint32_t, const char16_t*, uint32_t) {
    return this;
}

bool InProcessServiceCalls::IoControl(void* service, uint32_t code, const void* in,
                                      uint32_t inBytes, void* out, uint32_t outBytes,
                                      uint32_t* returned) {
    if (service != this)
        return false;
    if (code == search_service::kSearchNumber)
        ++numberSearches_;
    return service_.IoControl(code, static_cast<const uint8_t*>(in), inBytes,
                              static_cast<uint8_t*>(out), outBytes, returned);
}
