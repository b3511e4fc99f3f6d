#pragma once
// Turning the phone, on the desktop. The device's shell fits the full-screen windows to the
// turned screen and tells them with WM_SETTINGCHANGE (wParam 0x3002); the desktop has no sensor,
// so a key stands in: it turns the emulated screen (device profile) a quarter and does what the
// shell does.

#include <windows.h>

/// WM_SETTINGCHANGE's wParam when the screen was rotated or reset.
constexpr WPARAM kScreenChangedNotice = 0x3002;
/// The key that turns the emulated screen.
constexpr WPARAM kRotationKey = VK_F9;

/// True for the key-down message of the rotation key.
bool IsRotationKey(const MSG& msg);

/// Turns the emulated screen a quarter; each top-level window of this thread that filled the
/// old work area (below the top bar) is fitted to the new one; then every top-level window of
/// the thread gets the rotation notice.
void RotateScreen();
