#pragma once
// Where the board's painter puts things inside a button cell: the photo's source offset, the
// name's box, the phone-type label, the selection frame and the dialer number with its frame.
// Lengths are scaled from 96 dots per inch with the axis's own dpi.

#include <cstdint>

#include "view/BoardGeometry.h"

/// Text inset of a cell: (dpi + 24) x 2 / 96 (2 at 96 dpi, 4 at 192).
inline int32_t TextInset(int32_t dpi) {
    return (dpi + 24) * 2 / 96;
}
/// Shadow step of the phone-type label: (dpi + 48) / 96 (1 at 96 dpi, 2 at 192).
inline int32_t ShadowStep(int32_t dpi) {
    return (dpi + 48) / 96;
}

/// Source offset that centres a photo of photoW x photoH on a cell of cellW x cellH.
Point PhotoSourceOffset(int32_t photoW, int32_t photoH, int32_t cellW, int32_t cellH);
/// The name's box: the cell shrunk by the text inset on every side and, when a label is shown,
/// shortened at the bottom by its height.
Rect NameBox(const Rect& cell, int32_t dpiX, int32_t dpiY, int32_t labelHeight);
/// Top-left of the phone-type label: centred across, its bottom one shadow step above the
/// cell's bottom.
Point LabelOrigin(const Rect& cell, int32_t textW, int32_t textH, int32_t dpiY);
/// Top-left of the selection frame, centred on the cell (it may stick out).
Point FrameOrigin(const Rect& cell, int32_t frameW, int32_t frameH);
/// The number frame: its bottom-right corner on the cell's bottom-right corner.
Rect NumberFrameBox(const Rect& cell, int32_t frameW, int32_t frameH);
/// Rect the number is centred in: the frame, widened to the right by a shadow step when the
/// free width is odd, so every number sits on whole pixels the same way.
Rect NumberTextBox(const Rect& frame, int32_t textW, int32_t dpiX);
/// What a selection change repaints: the cell grown by the text inset on each side.
Rect SelectionRepaintBox(const Rect& cell, int32_t dpiX, int32_t dpiY);
/// Top-left of a text of textW x textH centred in `box` (the number; whole pixels, rounding down).
Point CentredText(const Rect& box, int32_t textW, int32_t textH);
