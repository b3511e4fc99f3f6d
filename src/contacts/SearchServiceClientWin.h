#pragma once
// The Windows side of SearchServiceClient: the service host's calls (platform/ServiceHost.h) and
// the service library loaded by name for its registration export.

#include "contacts/SearchServiceClient.h"

class WinServiceCalls : public ServiceCalls {
  public:
    void* GetServiceHandle(const char16_t* deviceName) override;
    bool CallRegistrationExport(const char16_t* library, const char* exportName) override;
    void* RegisterService(const char16_t* prefix, uint32_t index, const char16_t* library,
                          uint32_t context) override;
    bool IoControl(void* service, uint32_t code, const void* in, uint32_t inBytes, void* out,
                   uint32_t outBytes, uint32_t* returned) override;
};

/// Makes the process's SearchServiceClient use WinServiceCalls; call once at start-up.
void InstallWinServiceCalls();
