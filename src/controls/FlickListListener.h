#pragma once
// FlickListListener: what a FlickList tells its owner. The owner draws every row (OnDrawItem) and
// hears of taps, selection changes, presses, activation, holds, focus and keys. Every operation
// but OnDrawItem does nothing unless the owner overrides it.

#include <windows.h>

class FlickListListener {
  public:
    virtual ~FlickListListener() = default;

    /// Draws row `index` into `dc` within `rect`; -1 asks for empty space (below the last row,
    /// or above row 0 while the list is pulled down). `selected` is set for the selected row.
    virtual void OnDrawItem(HWND list, HDC dc, int index, const RECT& rect, bool selected) = 0;
    /// A tap (a release without a drag) on a row made `index` the selection.
    virtual void OnClick(HWND list, int index, int previous, WPARAM keyState);
    /// The selection became `index` (by a key when `byKeyboard` is set).
    virtual void OnSelChange(HWND list, int index, bool byKeyboard);
    /// The stylus went down on row `index`.
    virtual void OnPress(HWND list, int index);
    /// Enter (or the Action key) was released on the selected row `index`.
    virtual void OnActivate(HWND list, int index);
    /// A press on row `index` was held for half a second at `point` (list client coordinates).
    virtual void OnHold(HWND list, int index, POINT point);
    /// The list got the focus (`message` is WM_SETFOCUS).
    virtual void OnSetFocus(HWND list, UINT message);
    /// The list lost the focus (`message` is WM_KILLFOCUS).
    virtual void OnKillFocus(HWND list, UINT message);
    /// A key went down while `selection` was selected, before the list's own handling; true when
    /// the owner consumed it.
    virtual bool OnKeyDown(HWND list, UINT key, int selection);
    /// A character reached the list (WM_CHAR: the character's low 16 bits and the key data).
    virtual void OnChar(HWND list, wchar_t character, LPARAM keyData);
};
