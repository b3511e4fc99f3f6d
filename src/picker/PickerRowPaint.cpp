#include "picker/PickerRowPaint.h"

#include <algorithm>

#include "controls/KeyLabelLayout.h"
#include "skin/Skin.h"
#include "win/RectConvert.h"
#include "win/WideCast.h"

namespace {

// DrawTextW flags: one line, no "&" prefixes; right-aligned for the number.
constexpr UINT kLeftText = DT_SINGLELINE | DT_NOPREFIX;  // 0x820
constexpr UINT kRightText = kLeftText | DT_RIGHT;        // 0x822
static_assert(kLeftText == 0x820 && kRightText == 0x822);

int LineHeight(HDC dc) {
    TEXTMETRICW metrics{};
    GetTextMetricsW(dc, &metrics);
    return metrics.tmHeight;
}

int TextWidth(HDC dc, const char16_t* text, int length) {
    SIZE size{};
    if (length > 0)
        GetTextExtentPoint32W(dc, W(text), length, &size);
    return size.cx;
}

/// Draws text[from, to) at x; returns the x after it.
int DrawPiece(HDC dc, int x, int y, const Str& text, int from, int to) {
    if (to <= from)
        return x;
    const wchar_t* piece = W(text.c_str()) + from;
    ExtTextOutW(dc, x, y, 0, nullptr, piece, static_cast<UINT>(to - from), nullptr);
    return x + TextWidth(dc, text.c_str() + from, to - from);
}

/// The name in runs: matched runs opaque in the highlight colours, the rest transparent.
/// `shown` is the name as fitted; runs past its kept characters are not drawn highlighted.
void DrawName(HDC dc, int x, int y, const Str& shown, int kept, const Array<TextRun>& runs,
              COLORREF text, const RowLook& look) {
    int at = 0;
    for (const TextRun& run : runs) {
        const int start = std::clamp(run.start, at, kept);
        const int end = std::clamp(run.start + run.length, start, kept);
        if (end <= start)
            continue;
        SetBkMode(dc, TRANSPARENT);
        SetTextColor(dc, text);
        x = DrawPiece(dc, x, y, shown, at, start);
        SetBkMode(dc, OPAQUE);
        SetBkColor(dc, look.highlight);
        SetTextColor(dc, look.highlightText);
        x = DrawPiece(dc, x, y, shown, start, end);
        at = end;
    }
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, text);
    DrawPiece(dc, x, y, shown, at, shown.Length());
}

}  // namespace

void PaintRowBackground(HDC dc, const RECT& rect, int index, bool selected, const RowLook& look) {
    HBITMAP art = index < 0 ? look.rowVoid : (selected ? look.rowSelected : look.rowUnselected);
    if (Skin::TileBitmap(dc, art, rect))
        return;
    gdi::FillSolid(dc, rect, selected && index >= 0 ? look.selectedFill : look.fill);
}

void PaintContactRow(HDC dc, const RECT& rect, const ContactLine& line, bool selected,
                     const RowLook& look) {
    const int width = std::max(0, static_cast<int>(rect.right - rect.left) - 2 * look.margin);
    const int x = rect.left + look.margin;
    const COLORREF text = selected ? look.selectedText : look.text;

    gdi::Selection nameFont(dc, look.font != nullptr ? look.font : GetStockObject(SYSTEM_FONT));
    const int nameHeight = LineHeight(dc);
    int secondHeight = 0;
    if (!line.second.IsEmpty()) {
        gdi::Selection smallFont(dc, look.smallFont != nullptr ? look.smallFont : look.font);
        secondHeight = LineHeight(dc);
    }
    const int top = CentredTop(FromRECT(rect), nameHeight + secondHeight);

    Str name = line.name;
    const bool cut = Skin::FitText(name, width, dc);
    // A cut name ends in "..." after the characters it keeps (or is its first character alone).
    const int kept = cut && name.Length() > 3 ? name.Length() - 3 : name.Length();
    DrawName(dc, x, top, name, kept, line.runs, text, look);

    if (secondHeight > 0) {
        gdi::Selection smallFont(dc, look.smallFont != nullptr ? look.smallFont : look.font);
        Str second = line.second;
        Skin::FitText(second, width, dc);
        SetBkMode(dc, TRANSPARENT);
        SetTextColor(dc, text);
        RECT area{x, top + nameHeight, x + width, top + nameHeight + secondHeight};
        DrawTextW(dc, W(second.c_str()), second.Length(), &area, kLeftText);
    }
}

void PaintNumberRow(HDC dc, const RECT& rect, const NumberLine& line, bool selected,
                    const RowLook& look) {
    const int width = std::max(0, static_cast<int>(rect.right - rect.left) - 2 * look.margin);
    gdi::Selection font(dc, look.font != nullptr ? look.font : GetStockObject(SYSTEM_FONT));
    const int height = LineHeight(dc);
    const int top = CentredTop(FromRECT(rect), height);
    RECT area{rect.left + look.margin, top, rect.left + look.margin + width, top + height};
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, selected ? look.selectedText : look.text);

    // The number keeps the row; the type text gets what is left beside it.
    Str number = line.number;
    Skin::FitText(number, width, dc);
    const int numberWidth = TextWidth(dc, number.c_str(), number.Length());
    Str label = line.label;
    const int gap = look.margin;
    Skin::FitText(label, std::max(0, width - numberWidth - gap), dc);
    DrawTextW(dc, W(label.c_str()), label.Length(), &area, kLeftText);
    DrawTextW(dc, W(number.c_str()), number.Length(), &area, kRightText);
}

char16_t CharLowerOne(char16_t c) {
    // CharLowerW lower-cases a single character passed in the pointer's low word.
    const auto lowered = reinterpret_cast<ULONG_PTR>(
        CharLowerW(reinterpret_cast<LPWSTR>(static_cast<ULONG_PTR>(c))));
    return static_cast<char16_t>(lowered & 0xFFFF);
}
