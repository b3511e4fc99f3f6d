#pragma once
// Where the picker puts its list, its keypad and the texts of a row, in portable arithmetic.

#include "base/Geometry.h"

/// The picker's parts in its content area (the dialog's client area above the soft keys).
struct PickerLayout {
    Rect list;       ///< the contact or number list, full width, above the keypad
    Rect keypad;     ///< the keypad: the bottom two fifths of the content area
    int itemHeight;  ///< the list's row height
};

/// Lays the picker out in `content` at dpiY: the keypad takes 2/5 of the height at the bottom,
/// the list the rest. Rows are 34 design pixels high, or taller when the two lines of a contact
/// (`lineHeight` + `smallLineHeight`) need it with 2 design pixels above and below.
PickerLayout LayOutPicker(const Rect& content, int dpiY, int lineHeight, int smallLineHeight);

/// The horizontal margin of a row's texts at dpiX: 4 design pixels.
int RowMargin(int dpiX);
