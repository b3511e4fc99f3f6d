#include <windows.h>

#include "base/SettingsStore.h"
#include "phone/KeyHookStamp.h"
#include "win/WideCast.h"

namespace {

/// Owns a key of the machine-wide hive, which the settings' registry seam does not reach.
class MachineKey {
  public:
    explicit MachineKey(const char16_t* path) {
        if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, W(path), 0, KEY_QUERY_VALUE | KEY_SET_VALUE, &key_) !=
            ERROR_SUCCESS)
            key_ = nullptr;
    }
    ~MachineKey() {
        if (key_ != nullptr)
            RegCloseKey(key_);
    }
    MachineKey(const MachineKey&) = delete;
    MachineKey& operator=(const MachineKey&) = delete;
    HKEY get() const { return key_; }

  private:
    HKEY key_ = nullptr;
};

}  // namespace

void LowerKeyHookStamp() {
    if (settings::Read(settings::kD2Hack) == 0)
        return;
    MachineKey key(kKeyHookKey);
    if (key.get() == nullptr)
        return;
    DWORD stamp = 0;
    DWORD size = sizeof(stamp);
    // The value's type is not checked: any value that fits the 4 bytes is taken as the stamp.
    if (RegQueryValueExW(key.get(), W(kKeyHookStampValue), nullptr, nullptr,
                         reinterpret_cast<BYTE*>(&stamp), &size) != ERROR_SUCCESS)
        return;
    const DWORD lowered = LoweredKeyStamp(stamp);
    RegSetValueExW(key.get(), W(kKeyHookStampValue), 0, REG_DWORD,
                   reinterpret_cast<const BYTE*>(&lowered), sizeof(lowered));
    RegFlushKey(key.get());
}
