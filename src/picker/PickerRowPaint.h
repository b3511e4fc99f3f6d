#pragma once
// Drawing the picker's list rows: the skin's row bitmaps (or plain fills) behind, a contact's
// name with its matched runs highlighted over its second text, or a number's type at the left
// and the number at the right. Texts too wide for the row end in "...".

#include <windows.h>

#include "picker/PickerModel.h"

/// Colours, fonts and bitmaps of the rows (all borrowed; a null bitmap means a plain fill).
struct RowLook {
    COLORREF fill = RGB(255, 255, 255);    ///< an unselected row without its bitmap
    COLORREF selectedFill = RGB(0, 0, 0);  ///< the selected row without its bitmap
    COLORREF text = RGB(0, 0, 0);
    COLORREF selectedText = RGB(255, 255, 255);
    COLORREF highlight = RGB(0, 0, 128);  ///< behind a matched run of a name
    COLORREF highlightText = RGB(255, 255, 255);
    HFONT font = nullptr;       ///< names, numbers and types
    HFONT smallFont = nullptr;  ///< second texts
    HBITMAP rowUnselected = nullptr;
    HBITMAP rowSelected = nullptr;
    HBITMAP rowVoid = nullptr;  ///< space without rows
    int margin = 4;             ///< left and right of the texts
};

/// The row's background: its bitmap tiled, else its plain fill. Index -1 is space without rows.
void PaintRowBackground(HDC dc, const RECT& rect, int index, bool selected, const RowLook& look);
/// A stage-1 row: the name (matched runs opaque in the highlight colours, the rest transparent)
/// above the second text, the block centred vertically.
void PaintContactRow(HDC dc, const RECT& rect, const ContactLine& line, bool selected,
                     const RowLook& look);
/// A stage-2 row: the type text at the left and the number right-aligned, centred vertically.
void PaintNumberRow(HDC dc, const RECT& rect, const NumberLine& line, bool selected,
                    const RowLook& look);
/// Lower-cases one character with CharLowerW (the system's rule), for HighlightRuns.
char16_t CharLowerOne(char16_t c);
