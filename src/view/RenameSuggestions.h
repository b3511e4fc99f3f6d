#pragma once
// The ready-made names the rename dialog offers for a button, and where its two controls go.
// Portable, so the list and the layout are checked without a window.

#include "base/Array.h"
#include "base/Geometry.h"
#include "base/Str.h"

struct DialEntry;

/// The names offered for `entry`, made from its name parts and company, in this order:
/// "First Last", "First Middle Last", "Last First", the composed name an unnamed button shows
/// ("Last, First Middle"), "First", "Last", "Company", then the company forms "%s (%s)":
/// "First Last (Company)", "First (Company)", "Last (Company)". A form whose parts are all empty
/// is left out, and so is one equal (case-sensitive) to an earlier row; no parts, no rows.
Array<Str> RenameSuggestions(const DialEntry& entry);

/// Where the rename dialog puts its edit field and its list.
struct RenameLayout {
    Rect edit;
    Rect list;
};

/// Lays the dialog's controls out in `content` at `dpiY`: both span the width less a margin on
/// each side; the edit field, tall enough for a line of `lineHeight` pixels, sits at the top,
/// and the list takes the rest down to the bottom margin. The template's proportions at 96 dpi:
/// 6 px margins, the edit field 13 px down and at least 20 px tall, 6 px above the list.
RenameLayout LayOutRename(const Rect& content, int dpiY, int lineHeight);
