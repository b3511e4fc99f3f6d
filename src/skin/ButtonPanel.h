#pragma once
// ButtonPanel: the board's own soft-key bar. A child window with four image buttons, Prev and
// Next at its start and Menu and Close at its end, along the bottom in portrait and down the
// right side in landscape. A button sends its command to the parent as WM_COMMAND on release;
// Menu acts on press.

#include <windows.h>

#include "base/Str.h"
#include "skin/PanelGeometry.h"
#include "win/WndBase.h"

class Skin;

/// One button of the panel.
struct PanelButton {
    bool pressed = false;
    bool enabled = true;
    uint32_t command = 0;
    Str caption;
    PanelButtonArt art;  ///< size and source points in its image
};

class ButtonPanel : public WndBase {
  public:
    /// `skin` (not owned) supplies the panel bitmaps; it must outlive the panel.
    explicit ButtonPanel(const Skin& skin) : skin_(skin) {}
    /// Deletes the two images.
    ~ButtonPanel() override;

    /// Creates the child window of `parent` once (a second call does nothing and succeeds),
    /// sets the commands and captions and lays the buttons out. False when no window was made.
    bool Create(HWND parent);
    /// Reloads the two images for the screen's orientation and recomputes the buttons.
    void Layout();
    /// Enables or disables a button; a change repaints it at once.
    void SetButtonEnabled(int index, bool enabled);
    /// The button's rectangle in the panel's client area; other indices leave rect untouched.
    void GetButtonRect(int index, RECT& rect) const;

    /// Colour behind the buttons and the caption font (not owned), from the board's skin.
    void SetBackground(COLORREF colour) { background_ = colour; }
    void SetFont(HFONT font) { font_ = font; }

    /// Extent of the bar across: the larger image width (landscape) or height (portrait).
    int Thickness() const;
    bool IsLandscape() const { return landscape_; }
    const PanelButton& Button(int index) const { return buttons_[index]; }
    int PressedButton() const { return pressedButton_; }

    /// Paints the panel into dc (client coordinates), the buttons meeting `clip`.
    void Paint(HDC dc, const RECT& clip);
    LRESULT WndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    LRESULT OnPaint();
    LRESULT OnLButtonDown(int x, int y);
    LRESULT OnMouseMove(int x, int y);
    LRESULT OnLButtonUp(int x, int y);
    int HitTest(int x, int y) const;
    void SetPressed(int index, bool pressed);
    void RepaintButton(int index);
    void DrawButton(HDC dc, HDC source, int index);

    const Skin& skin_;
    HBITMAP first_ = nullptr;
    HBITMAP second_ = nullptr;
    SIZE firstSize_{};
    SIZE secondSize_{};
    bool landscape_ = false;
    COLORREF background_ = RGB(255, 255, 255);
    HFONT font_ = nullptr;
    int pressedButton_ = -1;
    PanelButton buttons_[4];
};
