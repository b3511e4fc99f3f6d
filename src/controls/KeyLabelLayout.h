#pragma once
// KeyLabelLayout: where a key's label rows stand in its cell. The first row is drawn in the main
// font; when the layout has second rows, the block of both rows (the two fonts' heights together)
// is centred vertically and the second row sits right below the first; otherwise the single row
// is centred. Each row is centred horizontally on its own width.

#include "base/Geometry.h"

/// Top edges of a key's label rows.
struct LabelRows {
    int firstTop = 0;
    int secondTop = 0;  ///< meaningful only when twoRows
    bool twoRows = false;
};

/// The rows of a label in `cell`, with the fonts' heights `firstHeight` and `secondHeight`;
/// `twoRows` when the layout uses second rows.
LabelRows PlaceLabelRows(const Rect& cell, int firstHeight, int secondHeight, bool twoRows);

/// The left edge of a row `textWidth` wide centred in `cell`.
int CentredLeft(const Rect& cell, int textWidth);

/// The top edge of a row `textHeight` high centred in `cell`.
int CentredTop(const Rect& cell, int textHeight);
