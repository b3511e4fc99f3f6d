#pragma once
// The service host's calls with a SearchService running in this process: what tests and
// benchmarks put between a SearchServiceClient and the service, without a host or a library.

#include <cstdint>

#include "contacts/SearchServiceClient.h"
#include "service/SearchService.h"

class InProcessServiceCalls : public ServiceCalls {
  public:
    explicit InProcessServiceCalls(SearchService& service) : service_(service) {}

    void* GetServiceHandle(const char16_t* deviceName) override;
    bool CallRegistrationExport(const char16_t* library, const char* exportName) override;
    void* RegisterService(const char16_t* prefix, uint32_t index, const char16_t* library,
                          uint32_t context) override;
    /// Hands the request to the service when `service` is the handle this object gave out.
    bool IoControl(void* service, uint32_t code, const void* in, uint32_t inBytes, void* out,
                   uint32_t outBytes, uint32_t* returned) override;

    /// How many number searches reached the service.
    int NumberSearches() const { return numberSearches_; }

  private:
    SearchService& service_;
    int numberSearches_ = 0;
};
