#pragma once
// Whether the user asked for a vibration on a button press: the "BtnFeedback" option of
// "Settings". Callers check it themselves before they request a pulse.

#include <cstdint>

namespace feedback {

/// The "BtnFeedback" value that turns vibration on; every other value leaves it off.
constexpr uint32_t kVibrateSetting = 2;
/// The pulse length of a press: the board's page flips and the picker's keypad.
constexpr uint32_t kPressPulseMs = 50;

/// True only for the "BtnFeedback" value 2.
constexpr bool VibratesOn(uint32_t buttonFeedback) {
    return buttonFeedback == kVibrateSetting;
}

/// Reads "BtnFeedback" now (default 1, so off) and tells whether a press should vibrate.
bool ButtonFeedbackWanted();

}  // namespace feedback
