#pragma once
// The soft-key panel's arithmetic: button sizes and image source points from the two panel
// images, the buttons' rectangles in the panel, and which source point a button is drawn from.
// The first image holds six cells (Prev, Next normal; pressed; disabled), the second four (Menu,
// Close normal; pressed): side by side in portrait, stacked in landscape.

#include <cstdint>

#include "base/ButtonFaces.h"
#include "base/Geometry.h"
#include "base/ResourceIds.h"

/// Commands the panel's buttons send, in button order.
constexpr uint32_t kPanelCommands[4] = {IDM_PREV_PAGE, IDM_NEXT_PAGE, IDM_MAIN_MENU, IDM_CLOSE};
/// Resource texts of the buttons' captions, in button order.
constexpr uint32_t kPanelCaptions[4] = {IDS_PREV, IDS_NEXT, IDS_MENU, IDS_CLOSE};
/// The button that acts on press instead of release.
constexpr int32_t kPanelMenuButton = 2;

/// One button's size and its three source points in its image; the Menu and Close images have no
/// disabled cell, so theirs repeats the normal one.
using PanelButtonArt = ButtonCell;

/// Button art of all four buttons from the sizes of the two images.
void PanelButtonsFromImages(bool landscape, int32_t w1, int32_t h1, int32_t w2, int32_t h2,
                            PanelButtonArt out[4]);

/// Rectangle of button `index` (0..3) in the panel's client rectangle: Prev and Next from the
/// start (left or top), Menu and Close against the end (right or bottom).
Rect PanelButtonRect(int32_t index, const Rect& client, bool landscape,
                     const PanelButtonArt buttons[4]);

/// The source point drawn: pressed, else normal when enabled, else disabled.
inline Point PanelSourcePoint(const PanelButtonArt& art, bool pressed, bool enabled) {
    return CellSourcePoint(art, pressed, enabled);
}

/// Larger of the two panel images' extents across the bar: what the board reserves for it.
inline int32_t PanelThickness(int32_t extent1, int32_t extent2) {
    return extent1 > extent2 ? extent1 : extent2;
}
