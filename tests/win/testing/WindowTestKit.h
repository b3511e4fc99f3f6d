#pragma once
// Small pieces that the window tests share: a parent window that records the commands its
// children send, a window's WM_PRINTCLIENT rendering, screenshots saved by name, and a watch on
// the slot that names a window's object at the window's last message. Test-support only.

#include <windows.h>

#include <string>
#include <vector>

#include "ScreenShot.h"

/// A visible top-level popup that records every WM_COMMAND's wParam it is sent. One class for all
/// tests; the record starts empty with each parent.
class CommandParent {
  public:
    CommandParent(int width, int height);
    ~CommandParent();
    CommandParent(const CommandParent&) = delete;
    CommandParent& operator=(const CommandParent&) = delete;
    HWND Hwnd() const { return hwnd_; }
    /// The commands received so far, in order.
    const std::vector<WPARAM>& Commands() const { return commands_; }
    /// Called with each command as it arrives (before it is recorded); may be empty.
    void (*onCommand)(WPARAM command) = nullptr;

  private:
    static LRESULT CALLBACK Proc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
    HWND hwnd_ = nullptr;
    std::vector<WPARAM> commands_;
};

/// What WM_PRINTCLIENT draws of a window's client area.
shot::Image PrintClient(HWND window);

/// Saves an image as "<name>.png" in the screenshot folder (DD_SCREENSHOT_DIR from the
/// environment, else the build's); the path written, or empty on failure.
std::wstring SaveShot(const shot::Image& image, const std::wstring& name);

/// While it lives, watches `window` for its last message (WM_NCDESTROY) and keeps what the
/// window's slot `slot` (GWLP_USERDATA, DWLP_USER) held when that message was sent. One watch at
/// a time.
class LastMessageWatch {
  public:
    LastMessageWatch(HWND window, int slot);
    ~LastMessageWatch();
    LastMessageWatch(const LastMessageWatch&) = delete;
    LastMessageWatch& operator=(const LastMessageWatch&) = delete;
    /// Starts watching another window (for one made after the watch).
    void Watch(HWND window);
    bool Hooked() const { return hook_ != nullptr; }
    /// The slot's value at WM_NCDESTROY; -1 when the message has not been seen.
    LONG_PTR SlotAtLastMessage() const;

  private:
    static LRESULT CALLBACK Hook(int code, WPARAM wParam, LPARAM lParam);
    HHOOK hook_ = nullptr;
};
