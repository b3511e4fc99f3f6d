#pragma once
// ScreenInfo: the process-wide screen record, measured once at start-up, and the arithmetic that
// scales the program's lengths (designed at 96 dots per inch) to the screen.

#include <cstdint>

struct ScreenInfo {
    int32_t hiRes = 0;   ///< 1 when either logical resolution is above 131 dots per inch
    int32_t dpiY = 0;    ///< vertical logical dots per inch
    int32_t square = 0;  ///< 1 for the 320 x 320 screen
    int32_t wide = 0;    ///< 1 when a side is 400 or 800 pixels (never for the square screen)
    int32_t dpiX = 0;    ///< horizontal logical dots per inch; non-zero once measured
};

/// The record for a screen of width x height pixels at the given logical resolutions.
ScreenInfo ComputeScreenInfo(int dpiX, int dpiY, int width, int height);

/// A length designed at 96 dots per inch, at `dpi`: (length * dpi + 48) / 96, in integers.
constexpr int ScaleLength(int length, int dpi) {
    return (length * dpi + 48) / 96;
}
/// Height of the shell's bars (the top bar and the soft-key bar) at `dpiY`: 26 scaled.
constexpr int BarHeightAt(int dpiY) {
    return ScaleLength(26, dpiY);
}

/// The process-wide record; all zero until start-up measures the screen.
const ScreenInfo& Screen();
/// Replaces the process-wide record (start-up does it once; tests pick a screen with it).
void SetScreen(const ScreenInfo& info);

/// The measured resolutions; before start-up has measured the screen (tests, tools) the design
/// resolution of 96 stands in.
inline int EffectiveDpiX() {
    return Screen().dpiX != 0 ? Screen().dpiX : 96;
}
inline int EffectiveDpiY() {
    return Screen().dpiY != 0 ? Screen().dpiY : 96;
}

/// The bar height of the measured screen.
inline int BarHeight() {
    return BarHeightAt(Screen().dpiY);
}
/// A length scaled horizontally / vertically to the measured screen.
inline int ScaleX(int length) {
    return ScaleLength(length, Screen().dpiX);
}
inline int ScaleY(int length) {
    return ScaleLength(length, Screen().dpiY);
}
