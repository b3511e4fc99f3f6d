#pragma once
// SoftKeyStrip: the soft-key bar of a full-screen window, drawn by the window itself. The device
// shows two soft keys from a menu resource at the foot of the screen; on the desktop this strip
// stands in for them, docked at the bottom of its parent's client area, one bar height tall.
//
// The keys come from the top-level items of the menu (the first two): the first key at the left,
// the second at the right, each half the strip (a lone key keeps the left half). A key sends
// WM_COMMAND with its item's id to the parent (SendMessageW) when the stylus is lifted over it, as
// the device's bar does. A greyed item, or one that opens a submenu, makes a key that ignores
// presses.
//
//     SoftKeyStrip strip;
//     strip.Create(hwnd, IDR_OK_CANCEL);   // in the parent's WM_CREATE
//     strip.SetFaces(...);                 // the skin's key pictures (skin/SoftKeyFaces.h)
//     strip.Place();                       // again on every WM_SIZE of the parent
//     // the parent's content takes its client height minus strip.Height()
//
// Without faces the keys are their captions on the background colour.

#include <windows.h>

#include <cstdint>

#include "base/ButtonFaces.h"
#include "win/ButtonBar.h"
#include "win/Gdi.h"

class SoftKeyStrip : public ButtonBar {
  public:
    /// The most keys a strip shows: the device's bar has two.
    static constexpr int kMaxKeys = 2;

    /// Reads the keys from menu `menuId` of the program's module and creates the strip's window
    /// as a child of `parent`, docked at its bottom. Once only (a second call does nothing and
    /// succeeds). False when the menu cannot be loaded or no window can be made.
    bool Create(HWND parent, uint32_t menuId);
    /// Docks the strip along the bottom of the parent's client area: full width, Height() tall.
    void Place();
    /// The strip's height: the bar height of the screen (26 design pixels).
    static int Height();
    /// The command key `index` sends (0 when there is no such key).
    uint32_t Command(int index) const;

    /// Key faces: the picture `cell` of `image` (which the strip keeps from now on) laid over
    /// each key by slices, its pressed picture while pressed. Before or after Create; repaints.
    void SetFaces(gdi::Object<HBITMAP> image, const ButtonCell& cell);

    Rect ButtonRect(int index) const override;

  private:
    bool ReadKeys(uint32_t menuId);

    gdi::Object<HBITMAP> faces_;
    ButtonCell cell_;
};
