#include <windows.h>

#include "base/Alert.h"
#include "win/WideCast.h"

int PlatformAlert(const char16_t* text, const char16_t* caption, uint32_t flags) {
    return MessageBoxW(nullptr, W(text), W(caption), flags);
}
