#pragma once
// The alert seam: the program's few message boxes (the range trap, a failed resource load, a skin
// that cannot be loaded) go through here, so tests can capture them instead of blocking.

#include <cstdint>

/// Box flags and answers, with the platform's values.
constexpr uint32_t kAlertOk = 0x0;
constexpr uint32_t kAlertYesNo = 0x4;
constexpr uint32_t kAlertIconExclamation = 0x30;
constexpr int kAlertAnswerOk = 1;
constexpr int kAlertAnswerYes = 6;
constexpr int kAlertAnswerNo = 7;

/// Shows text in a box with no owner; returns the button pressed.
using AlertHandler = int (*)(const char16_t* text, const char16_t* caption, uint32_t flags);

int ShowAlert(const char16_t* text, const char16_t* caption, uint32_t flags);
/// Replaces the handler (null restores the platform's box); returns the previous one.
AlertHandler SetAlertHandler(AlertHandler handler);
/// The platform's own box (message box on Windows; standard error elsewhere, answering OK).
int PlatformAlert(const char16_t* text, const char16_t* caption, uint32_t flags);
