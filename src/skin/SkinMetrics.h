#pragma once
// The skin's arithmetic that does not need a device: font heights and weights from the skin
// file's font descriptions, the three default fonts, and how FitText shortens a text.

#include <cstdint>

#include "base/Str.h"

/// Font quality codes, with the platform's values.
constexpr uint8_t kQualityDefault = 0;
constexpr uint8_t kQualityNonAntialiased = 3;
constexpr uint8_t kQualityClearType = 5;

/// Everything the skin decides about one font; the rest comes from the system font.
struct FontChoice {
    int32_t height = 0;  ///< negative: character height in pixels
    int32_t weight = 400;
    bool italic = false;
    uint8_t quality = kQualityDefault;
    Str face;
};

/// -(integer part of (pixelsPerInch x points / 72 + 0.5)), in double precision.
int32_t FontHeightForPoints(int32_t pixelsPerInch, int32_t points);
/// Weight code of the skin file: 0 gives 400, 1 gives 700, any other gives 600.
int32_t WeightForCode(int32_t code);
/// The font of a skin file description; an empty face means "Tahoma".
FontChoice FontFromSpec(int32_t pixelsPerInch, int32_t points, const Str& face, int32_t weightCode,
                        bool italic, bool clearType);

/// The three fonts of the board.
enum class SkinFont : int32_t { kText = 0, kSmall = 1, kButton = 2 };
/// The default of a font the skin file does not give: text Tahoma 8 pt bold ClearType, small
/// Tahoma 7 pt normal, button Tahoma 7 pt normal non-antialiased.
FontChoice DefaultFont(SkinFont which, int32_t pixelsPerInch);

/// How many characters FitText keeps before its "...": `extents[i]` is the width of the first
/// i + 1 characters, `dotWidth` that of one ".". The count is one less than the longest prefix
/// that fits with three dots (a deliberate margin), 0 when none fits.
int32_t FitKeepCount(const int32_t* extents, int32_t length, int32_t dotWidth, int32_t maxWidth);
/// The shortened text: the first `count` characters and "...", or, for 0, the first character
/// alone.
Str ShortenedText(const Str& text, int32_t count);
