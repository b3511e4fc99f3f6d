#pragma once
// ButtonPanel: the board's own soft-key bar. A child window with four image buttons, Prev and
// Next at its start and Menu and Close at its end, along the bottom in portrait and down the
// right side in landscape. A button sends its command to the parent as WM_COMMAND on release;
// Menu acts on press. Drawing and pressing are the button bar's (win/ButtonBar.h); the panel
// chooses the images by orientation and places the buttons.

#include <windows.h>

#include "skin/PanelGeometry.h"
#include "win/ButtonBar.h"
#include "win/Gdi.h"

class Skin;

/// One button of the panel: its command, caption, pictures and state.
using PanelButton = BarButton;

class ButtonPanel : public ButtonBar {
  public:
    /// `skin` (not owned) supplies the panel bitmaps; it must outlive the panel.
    explicit ButtonPanel(const Skin& skin) : skin_(skin) {}

    /// Creates the child window of `parent` once (a second call does nothing and succeeds),
    /// sets the commands and captions and lays the buttons out. False when no window was made.
    bool Create(HWND parent);
    /// Reloads the two images for the screen's orientation and recomputes the buttons.
    void Layout();
    /// The button's rectangle in the panel's client area; other indices leave rect untouched.
    void GetButtonRect(int index, RECT& rect) const;

    /// Extent of the bar across: the larger image width (landscape) or height (portrait).
    int Thickness() const;
    bool IsLandscape() const { return landscape_; }

    Rect ButtonRect(int index) const override;

  private:
    const Skin& skin_;
    gdi::Object<HBITMAP> first_;
    gdi::Object<HBITMAP> second_;
    SIZE firstSize_{};
    SIZE secondSize_{};
    bool landscape_ = false;
};
