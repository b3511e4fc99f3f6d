#include "skin/SoftKeyFaces.h"

#include <utility>

#include "skin/PanelGeometry.h"
#include "skin/Skin.h"
#include "win/SoftKeyStrip.h"

void DressSoftKeys(SoftKeyStrip& strip, const Skin& skin) {
    strip.SetBackground(skin.Colours().background);
    strip.SetFont(skin.Font(SkinFont::kButton));
    // The portrait image whatever the screen: the strip always lies across the foot.
    gdi::Object<HBITMAP> image = skin.LoadSkinBitmap(skin_bitmap::kPortraitPanel2, u"p_panel_2");
    const SIZE size = Skin::BitmapSize(image.get());
    PanelButtonArt art[4];
    PanelButtonsFromImages(false, 0, 0, size.cx, size.cy, art);
    strip.SetFaces(std::move(image), art[kPanelMenuButton]);
}
