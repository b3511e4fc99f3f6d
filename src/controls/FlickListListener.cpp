#include "controls/FlickListListener.h"

// Owners override only what they need; the rest is heard and ignored.

void FlickListListener::OnClick(HWND, int, int, WPARAM) {}
void FlickListListener::OnSelChange(HWND, int, bool) {}
void FlickListListener::OnPress(HWND, int) {}
void FlickListListener::OnActivate(HWND, int) {}
void FlickListListener::OnHold(HWND, int, POINT) {}
void FlickListListener::OnSetFocus(HWND, UINT) {}
void FlickListListener::OnKillFocus(HWND, UINT) {}
bool FlickListListener::OnKeyDown(HWND, UINT, int) {
    return false;
}
void FlickListListener::OnChar(HWND, wchar_t, LPARAM) {}
