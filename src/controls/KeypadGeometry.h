#pragma once
// KeypadGeometry: where the nine keys of the on-screen keypad stand. The client area is cut into
// three by three equal cells (integer division; the remainder stays unused at the right and the
// bottom), numbered row by row from the top left; each key is painted over its cell less a gap
// on the right and bottom edges, so the background shows through as a grid.

#include "base/Geometry.h"

/// Number of keys: key 0 is the backspace, keys 1 to 8 type "2" to "9".
constexpr int kKeypadKeyCount = 9;

/// The cell of key `key` within `client`; an empty rectangle for indices outside 0..8.
Rect KeyCell(const Rect& client, int key);

/// The first key, trying 0 to 8 in order, whose cell holds `point`; -1 when none does.
int HitKey(const Rect& client, Point point);

/// The grid gap at `dpi`: one design pixel scaled, (dpi + 48) / 96.
int KeyGap(int dpi);

/// The part of a cell painted as the key: the cell less `gapX` on its right and `gapY` on its
/// bottom (never less than empty).
Rect KeyFace(const Rect& cell, int gapX, int gapY);
