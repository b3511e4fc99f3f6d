#include "base/Alert.h"

namespace {
AlertHandler gHandler = nullptr;
}

int ShowAlert(const char16_t* text, const char16_t* caption, uint32_t flags) {
    return gHandler != nullptr ? gHandler(text, caption, flags)
                               : PlatformAlert(text, caption, flags);
}

AlertHandler SetAlertHandler(AlertHandler handler) {
    AlertHandler previous = gHandler;
    gHandler = handler;
    return previous;
}
