#pragma once
// The skin's look for a soft-key strip: the keys are drawn from the panel's own key pictures, so
// a dialog's soft keys match the board's panel in every skin.

class Skin;
class SoftKeyStrip;

/// Gives `strip` the skin's background colour, button font and key faces. The faces are the
/// portrait panel's Menu key (normal and pressed), laid over each key by slices: only its rim
/// and one plain column are drawn, so the Menu glyph never shows on an OK or a Cancel key.
/// `skin` must outlive the strip (the font is the skin's).
void DressSoftKeys(SoftKeyStrip& strip, const Skin& skin);
