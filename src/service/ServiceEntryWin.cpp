// The service library's exports: the registration export "MyRegService" and the service entry
// points of the prefix "OPS", which the service host finds by name. One service instance reads
// the contacts through its own contacts session and answers the requests of ServiceProtocol.h.

#include <windows.h>

#include <cstdint>
#include <new>

#include "base/Registry.h"
#include "base/SettingsStore.h"
#include "contacts/ContactsSession.h"
#include "service/SearchService.h"
#include "service/ServiceRegistration.h"
#include "service/StoreFeed.h"

namespace {

/// One running service: its contacts session on the portable platform (the vCard store, notices
/// delivered at once), the search service and the feed between them.
struct ServiceInstance {
    ContactsPlatform platform;
    ContactsSession session{platform};
    SearchService service;
    StoreFeed feed{service, session};
};

ServiceInstance* InstanceOf(DWORD_PTR context) {
    return reinterpret_cast<ServiceInstance*>(context);
}

}  // namespace

extern "C" {

/// Records the service's registration (its library, prefix and index); non-zero on success.
__declspec(dllexport) BOOL WINAPI MyRegService() {
    return RecordServiceRegistration() ? TRUE : FALSE;
}

__declspec(dllexport) DWORD_PTR WINAPI OPS_Init(DWORD_PTR) {
    try {
        auto* instance = new ServiceInstance;
        // Without a contacts store the service still answers, with no contacts.
        instance->feed.Start();
        return reinterpret_cast<DWORD_PTR>(instance);
    } catch (...) {
        return 0;
    }
}

__declspec(dllexport) BOOL WINAPI OPS_Deinit(DWORD_PTR initContext) {
    delete InstanceOf(initContext);
    return TRUE;
}

__declspec(dllexport) DWORD_PTR WINAPI OPS_Open(DWORD_PTR initContext, DWORD, DWORD) {
    return initContext;
}

__declspec(dllexport) BOOL WINAPI OPS_Close(DWORD_PTR) {
    return TRUE;
}

__declspec(dllexport) BOOL WINAPI
    OPS_IOControl(DWORD_PTR openContext, DWORD code, BYTE* in, DWORD inSize, BYTE* out,
                  DWORD outSize, DWORD* returned) {
    ServiceInstance* instance = InstanceOf(openContext);
    if (returned != nullptr)
        *returned = 0;
    if (instance == nullptr)
        return FALSE;
    try {
        uint32_t size = 0;
        bool ok = instance->service.IoControl(code, in, inSize, out, outSize, &size);
        if (returned != nullptr)
            *returned = size;
        return ok ? TRUE : FALSE;
    } catch (...) {
        if (returned != nullptr)
            *returned = 0;
        return FALSE;
    }
}

}  // extern "C"
