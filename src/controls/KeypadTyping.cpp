#include "controls/KeypadTyping.h"

#include "controls/KeypadGeometry.h"

namespace {

constexpr uint32_t kCodeOfOne = 49;   // '1'
constexpr uint32_t kCodeOfNine = 57;  // '9'

}  // namespace

char16_t KeyDigit(int key) {
    if (key <= kBackspaceKey || key >= kKeypadKeyCount)
        return 0;
    return static_cast<char16_t>(kCodeOfOne + static_cast<uint32_t>(key));
}

Str TypedAfterKey(const Str& typed, int key) {
    if (key == kBackspaceKey)
        return typed.IsEmpty() ? typed : typed.Left(typed.Length() - 1);
    const char16_t digit = KeyDigit(key);
    if (digit == 0)
        return typed;
    Str next = typed;
    next.Append(digit);
    return next;
}

int KeyForHardwareCode(uint32_t code) {
    if (code < kCodeOfOne || code > kCodeOfNine)
        return -1;
    return static_cast<int>(code - kCodeOfOne);
}
