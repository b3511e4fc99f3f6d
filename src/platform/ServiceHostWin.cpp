#include "platform/ServiceHost.h"

#include <memory>
#include <string>
#include <vector>

namespace service_host {
namespace {

struct Service {
    std::wstring deviceName;  ///< "OPS0:"
    std::wstring dllName;
    HMODULE module = nullptr;
    DeinitEntry deinit = nullptr;
    CloseEntry close = nullptr;
    IoControlEntry ioControl = nullptr;
    DWORD_PTR initContext = 0;
    DWORD_PTR openContext = 0;
};

// The host's services; handles are the records' addresses. One UI thread uses the host.
std::vector<std::unique_ptr<Service>>& Services() {
    static std::vector<std::unique_ptr<Service>> services;
    return services;
}

Service* Find(HANDLE handle) {
    for (auto& service : Services()) {
        if (service.get() == handle)
            return service.get();
    }
    return nullptr;
}

Service* FindByName(const std::wstring& deviceName) {
    for (auto& service : Services()) {
        if (_wcsicmp(service->deviceName.c_str(), deviceName.c_str()) == 0)
            return service.get();
    }
    return nullptr;
}

template <typename Entry>
Entry EntryPoint(HMODULE module, const std::wstring& prefix, const char* name) {
    std::string symbol(prefix.begin(), prefix.end());
    symbol += '_';
    symbol += name;
    return reinterpret_cast<Entry>(reinterpret_cast<void*>(GetProcAddress(module, symbol.c_str())));
}

}  // namespace

HANDLE RegisterService(LPCWSTR prefix, DWORD index, LPCWSTR dllName, DWORD context) {
    if (prefix == nullptr || dllName == nullptr || wcslen(prefix) != 3)
        return nullptr;
    auto service = std::make_unique<Service>();
    service->deviceName = std::wstring(prefix) + std::to_wstring(index) + L":";
    if (FindByName(service->deviceName) != nullptr)
        return nullptr;
    service->dllName = dllName;
    service->module = LoadLibraryW(dllName);
    if (service->module == nullptr)
        return nullptr;
    std::wstring p(prefix);
    auto init = EntryPoint<InitEntry>(service->module, p, "Init");
    auto open = EntryPoint<OpenEntry>(service->module, p, "Open");
    service->deinit = EntryPoint<DeinitEntry>(service->module, p, "Deinit");
    service->close = EntryPoint<CloseEntry>(service->module, p, "Close");
    service->ioControl = EntryPoint<IoControlEntry>(service->module, p, "IOControl");
    bool complete = init != nullptr && open != nullptr && service->deinit != nullptr &&
                    service->close != nullptr && service->ioControl != nullptr;
    if (complete)
        service->initContext = init(context);
    if (service->initContext != 0) {
        service->openContext = open(service->initContext, GENERIC_READ | GENERIC_WRITE, 0);
        if (service->openContext == 0)
            service->deinit(service->initContext);
    }
    if (service->openContext == 0) {
        FreeLibrary(service->module);
        return nullptr;
    }
    Services().push_back(std::move(service));
    return Services().back().get();
}

HANDLE GetServiceHandle(LPCWSTR deviceName, LPWSTR dllName, DWORD* dllBufSize) {
    if (deviceName == nullptr)
        return INVALID_HANDLE_VALUE;
    Service* service = FindByName(deviceName);
    if (service == nullptr)
        return INVALID_HANDLE_VALUE;
    if (dllName != nullptr && dllBufSize != nullptr && *dllBufSize > 0) {
        lstrcpynW(dllName, service->dllName.c_str(), static_cast<int>(*dllBufSize));
    }
    return service;
}

BOOL ServiceIoControl(HANDLE handle, DWORD code, LPVOID in, DWORD inSize, LPVOID out, DWORD outSize,
                      LPDWORD returned, LPOVERLAPPED) {
    Service* service = Find(handle);
    if (service == nullptr) {
        SetLastError(ERROR_INVALID_HANDLE);
        return FALSE;
    }
    return service->ioControl(service->openContext, code, static_cast<BYTE*>(in), inSize,
                              static_cast<BYTE*>(out), outSize, returned);
}

BOOL DeregisterService(HANDLE handle) {
    auto& services = Services();
    for (auto it = services.begin(); it != services.end(); ++it) {
        if (it->get() != handle)
            continue;
        Service& service = **it;
        service.close(service.openContext);
        service.deinit(service.initContext);
        FreeLibrary(service.module);
        services.erase(it);
        return TRUE;
    }
    return FALSE;
}

}  // namespace service_host
