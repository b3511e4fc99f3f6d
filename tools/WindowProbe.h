#pragma once
// Finding and reading other windows, for the run command and the end-to-end tests: waiting for
// a window to appear, reading a message box and pressing its buttons.

#include <windows.h>

#include <string>

namespace probe {

/// Waits until a window of the class (and title, when given) exists and, when visibleOnly, is
/// visible; polls until timeoutMs has passed. Returns the window or null.
HWND WaitForWindow(const wchar_t* windowClass, const wchar_t* title, DWORD timeoutMs,
                   bool visibleOnly = true);
/// Waits until no window of the class exists; false when one is still there after timeoutMs.
bool WaitForNoWindow(const wchar_t* windowClass, const wchar_t* title, DWORD timeoutMs);

/// The window's text (caption of a top-level window).
std::wstring TextOf(HWND window);
/// The message of a message box: the text of its static message control.
std::wstring MessageBoxText(HWND box);
/// Presses a dialog's button by id (IDOK, IDNO, ...) as a click would.
void PressButton(HWND dialog, int id);

}  // namespace probe
