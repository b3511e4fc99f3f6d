#pragma once
// ButtonBar: a child window of image buttons, the ground of the board's panel and of the
// soft-key strip. It paints, hit-tests and presses; the derived bar decides where each button
// stands (ButtonRect) and supplies the images, colours and font, so the bar knows nothing of the
// skin. A button sends its command to the parent as WM_COMMAND (SendMessageW) when the stylus is
// lifted over it, or at once on press when it acts on press. Losing the capture (a menu or a
// dialog taking it, WM_CANCELMODE) drops the press without sending anything.

#include <windows.h>

#include <cstdint>
#include <vector>

#include "base/ButtonFaces.h"
#include "base/Geometry.h"
#include "base/Str.h"
#include "win/WndBase.h"

/// One button of a bar.
struct BarButton {
    uint32_t command = 0;
    Str caption;
    ButtonCell art;           ///< its pictures in `image`
    HBITMAP image = nullptr;  ///< not owned: the derived bar keeps it alive
    bool sliced = false;      ///< lay the picture over the button by slices instead of copying it
    bool centreCaption = false;  ///< centre the caption down the button, not at its foot
    bool enabled = true;
    bool pressed = false;
    bool actsOnPress = false;  ///< send the command on press; the press ends when it returns
};

class ButtonBar : public WndBase {
  public:
    /// Colour behind the buttons, caption colour and caption font (not owned).
    void SetBackground(COLORREF colour) { background_ = colour; }
    void SetTextColour(COLORREF colour) { textColour_ = colour; }
    void SetFont(HFONT font) { font_ = font; }

    int Count() const { return static_cast<int>(buttons_.size()); }
    const BarButton& Button(int index) const { return buttons_[index]; }
    /// The button held pressed with the capture, or -1.
    int PressedButton() const { return pressedButton_; }
    /// Enables or disables a button; a change repaints it at once. Other indices: nothing.
    void SetButtonEnabled(int index, bool enabled);

    /// Where button `index` stands in the client area; empty for an unknown index.
    virtual Rect ButtonRect(int index) const;
    /// Paints the bar into dc (client coordinates), the buttons meeting `clip`.
    void Paint(HDC dc, const RECT& clip);
    LRESULT WndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) override;

  protected:
    /// Creates the bar's child window of `parent` (visible, empty until placed).
    bool CreateBar(HWND parent);

    std::vector<BarButton> buttons_;

  private:
    LRESULT OnPaint();
    LRESULT OnPrintClient(HDC dc);
    LRESULT OnLButtonDown(int x, int y);
    LRESULT OnMouseMove(int x, int y);
    LRESULT OnLButtonUp(int x, int y);
    LRESULT OnCaptureChanged();
    LRESULT OnCancelMode();
    int HitTest(int x, int y) const;
    void DropPress();
    void SetPressed(int index, bool pressed);
    void RepaintButton(int index);
    void DrawButton(HDC dc, HDC source, int index, const RECT& client);

    COLORREF background_ = RGB(255, 255, 255);
    COLORREF textColour_ = RGB(0, 0, 0);
    HFONT font_ = nullptr;
    int pressedButton_ = -1;
};
