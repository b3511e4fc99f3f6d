#include <windows.h>

#include "base/Module.h"
#include "win/WideCast.h"

ModuleHandle ProgramModule() {
    return GetModuleHandleW(nullptr);
}

int ModuleFileName(ModuleHandle module, char16_t* buf, int cap) {
    if (buf == nullptr || cap <= 0)
        return 0;
    DWORD n = GetModuleFileNameW(static_cast<HMODULE>(module), W(buf), static_cast<DWORD>(cap));
    if (n == 0 || n >= static_cast<DWORD>(cap)) {
        buf[0] = 0;  // unreadable, or cut short: no name is better than a wrong one
        return 0;
    }
    return static_cast<int>(n);
}

int LoadResourceText(ModuleHandle module, uint32_t id, char16_t* buf, int cap) {
    if (buf == nullptr || cap <= 0)
        return 0;
    return LoadStringW(static_cast<HINSTANCE>(module), id, W(buf), cap);
}
