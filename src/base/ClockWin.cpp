#include <windows.h>

#include "base/Clock.h"

uint32_t TickCount() {
    return GetTickCount();
}
