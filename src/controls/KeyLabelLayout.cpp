#include "controls/KeyLabelLayout.h"

LabelRows PlaceLabelRows(const Rect& cell, int firstHeight, int secondHeight, bool twoRows) {
    LabelRows rows;
    rows.twoRows = twoRows;
    if (!twoRows) {
        rows.firstTop = CentredTop(cell, firstHeight);
        rows.secondTop = rows.firstTop;
        return rows;
    }
    rows.firstTop = CentredTop(cell, firstHeight + secondHeight);
    rows.secondTop = rows.firstTop + firstHeight;
    return rows;
}

int CentredLeft(const Rect& cell, int textWidth) {
    return cell.left + (cell.Width() - textWidth) / 2;
}

int CentredTop(const Rect& cell, int textHeight) {
    return cell.top + (cell.Height() - textHeight) / 2;
}
