#include "phone/PhoneAppWait.h"

#include "base/Clock.h"

bool AwaitPhoneApp(uint32_t start, bool (*windowShown)(), void (*sleep)(uint32_t ms)) {
    for (;;) {
        sleep(kPhoneAppPollStepMs);
        if (windowShown())
            return true;
        if (PhoneAppWaitOver(start, TickCount()))
            return false;
    }
}
