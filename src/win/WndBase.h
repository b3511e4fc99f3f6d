#pragma once
// WndBase: the base of every window object of the program. It registers a window class whose
// procedure keeps the object with its window (in the window's user-data slot) and hands every
// message to the object's virtual WndProc. Derived windows override WndProc with one switch that
// passes each message to a named member.

#include <windows.h>

#include <cstdint>

#include "base/Str.h"

/// The class registered by Create when the object registered none.
constexpr wchar_t kDefaultWindowClass[] = L"OrvaWndCls";
/// Class style 3: redraw on horizontal and vertical size changes.
constexpr UINT kRedrawOnResize = CS_HREDRAW | CS_VREDRAW;

class WndBase {
  public:
    WndBase() = default;
    /// Frees the class name; detaches the object from its window and destroys the window if it
    /// is still alive. The derived parts are gone by then, so a window whose WM_DESTROY handler
    /// must run destroys its window in its own destructor.
    virtual ~WndBase();
    WndBase(const WndBase&) = delete;
    WndBase& operator=(const WndBase&) = delete;

    /// The object's window procedure; the base hands every message to DefWindowProcW.
    virtual LRESULT WndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
    /// Called with WM_SETTINGCHANGE before WndProc: the input-panel notice refits the window.
    virtual void OnSettingChange(WPARAM wParam, LPARAM lParam);
    /// Called with WM_ACTIVATE before WndProc: a window becoming active refits itself.
    virtual void OnActivate(WPARAM wParam, LPARAM lParam);
    /// When fitToDesktop is set and the window lives: moves the window onto the visible desktop
    /// the shell reports beside the input panel, keeping the soft-key bar uncovered while the
    /// panel is down, and repaints. On desktop Windows the shell reports no input panel, so the
    /// window stays where it is.
    virtual void FitToDesktop();

    /// Registers className with the given class style, icon and background brush, the shared
    /// window procedure and the program module, and keeps a copy of the name. Does nothing when
    /// the object already has a window. True when the class is registered (also by an earlier
    /// call).
    bool Register(const wchar_t* className, UINT classStyle, HICON icon, HBRUSH background);
    /// Creates the window of the object's class (registering "OrvaWndCls" with class style 3 and
    /// the stock white brush when none was registered) with the given title, style, position,
    /// size and parent, no menu, and the object attached. exStyle is accepted and not used: the
    /// window always gets extended style 0. Returns the window, or null.
    HWND Create(DWORD exStyle, const wchar_t* title, DWORD style, int x, int y, int width,
                int height, HWND parent);

    /// The window; null before WM_NCCREATE and after WM_DESTROY.
    HWND Hwnd() const { return hwnd_; }
    /// The class name this object registered; empty before Register.
    const Str& ClassName() const { return className_; }

    /// The procedure of every class the objects register: attaches the object on WM_NCCREATE
    /// (the window's first message), clears the handle after WM_DESTROY, detaches the object on
    /// WM_NCDESTROY (its last), and routes every message in between to the object.
    static LRESULT CALLBACK StaticWndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);

  protected:
    HWND hwnd_ = nullptr;
    int32_t fitToDesktop_ = 0;  ///< non-zero: follow the input panel (FitToDesktop)
    Str className_;
};
