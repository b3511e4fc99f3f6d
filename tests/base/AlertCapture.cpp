#include "AlertCapture.h"

namespace {

std::vector<CapturedAlert> gAlerts;
bool gThrow = false;

int Capture(const char16_t* text, const char16_t* caption, uint32_t flags) {
    gAlerts.push_back({text, caption, flags});
    if (gThrow)
        throw AlertShown{text};
    return kAlertAnswerOk;
}

}  // namespace

AlertCapture::AlertCapture(bool throwOnAlert) : previous_(SetAlertHandler(Capture)) {
    gAlerts.clear();
    gThrow = throwOnAlert;
}

AlertCapture::~AlertCapture() {
    SetAlertHandler(previous_);
    gThrow = false;
}

const std::vector<CapturedAlert>& AlertCapture::Alerts() const {
    return gAlerts;
}
