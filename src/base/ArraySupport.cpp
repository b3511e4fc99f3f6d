#include <cstdlib>

#include "base/Array.h"
#include "base/ErrorLog.h"

namespace array_detail {

void ShowRangeTrap(const char16_t* format, int index, int size) {
    Str message;
    message.Format(format, index, size);
    ShowAlert(message, u"Contactbook Tracer", kAlertOk);
}

void* Allocate(size_t n, size_t bytes) {
    void* memory = n <= SIZE_MAX / bytes ? std::malloc(n * bytes) : nullptr;
    if (memory == nullptr) {
        LogError(u"Memory allocation failed", u"Array", u"SetSize", 0);
        std::abort();
    }
    return memory;
}

}  // namespace array_detail
