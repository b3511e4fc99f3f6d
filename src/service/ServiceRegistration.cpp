#include "service/ServiceRegistration.h"

#include <cstdint>

#include "base/Registry.h"
#include "base/SettingsStore.h"

namespace {

uint32_t Bytes(const char16_t* text) {
    uint32_t n = 0;
    while (text[n] != 0)
        ++n;
    return (n + 1) * 2;
}

}  // namespace

bool RecordServiceRegistration() {
    registry::KeyHolder key(settings::OpenKey(service_registration::kKey, true));
    if (!key)
        return false;
    uint32_t index = service_registration::kIndex;
    bool ok = registry::Set(key.get(), u"Dll", registry::kTypeString, service_registration::kDll,
                            Bytes(service_registration::kDll)) &&
              registry::Set(key.get(), u"Prefix", registry::kTypeString,
                            service_registration::kPrefix, Bytes(service_registration::kPrefix)) &&
              registry::Set(key.get(), u"Index", registry::kTypeDword, &index, 4);
    return registry::Flush(key.get()) && ok;
}
