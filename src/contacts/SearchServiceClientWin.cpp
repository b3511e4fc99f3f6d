#include "contacts/SearchServiceClientWin.h"

#include <windows.h>

#include "platform/ServiceHost.h"
#include "win/WideCast.h"

namespace {

using RegistrationExport = BOOL(WINAPI*)();

}  // namespace

void* WinServiceCalls::GetServiceHandle(const char16_t* deviceName) {
    HANDLE service = service_host::GetServiceHandle(W(deviceName), nullptr, nullptr);
    return service == INVALID_HANDLE_VALUE ? nullptr : service;
}

bool WinServiceCalls::CallRegistrationExport(const char16_t* library, const char* exportName) {
    HMODULE module = LoadLibraryW(W(library));
    if (module == nullptr)
        return false;
    auto registration = reinterpret_cast<RegistrationExport>(
        reinterpret_cast<void*>(GetProcAddress(module, exportName)));
    bool ok = registration != nullptr && registration() != FALSE;
    FreeLibrary(module);
    return ok;
}

void* WinServiceCalls::RegisterService(const char16_t* prefix, uint32_t index,
                                       const char16_t* library, uint32_t context) {
    return service_host::RegisterService(W(prefix), index, W(library), context);
}

bool WinServiceCalls::IoControl(void* service, uint32_t code, const void* in, uint32_t inBytes,
                                void* out, uint32_t outBytes, uint32_t* returned) {
    DWORD size = 0;
    BOOL ok = service_host::ServiceIoControl(service, code, const_cast<void*>(in), inBytes, out,
                                             outBytes, &size, nullptr);
    if (returned != nullptr)
        *returned = size;
    return ok != FALSE;
}

void InstallWinServiceCalls() {
    static WinServiceCalls calls;
    SearchServiceClient::SetProcessCalls(&calls);
}
