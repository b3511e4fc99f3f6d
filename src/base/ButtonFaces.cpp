#include "base/ButtonFaces.h"

namespace {

/// Splits [begin, end) into start, middle and finish spans of corner length `corner`.
struct Spans {
    int32_t at[4];
};

Spans Split(int32_t begin, int32_t end, int32_t corner) {
    return Spans{{begin, begin + corner, end - corner, end}};
}

int32_t Min(int32_t a, int32_t b) {
    return a < b ? a : b;
}

}  // namespace

int32_t SliceFace(const Rect& cell, const Rect& target, FacePiece out[9]) {
    // A quarter of the picture's shorter side holds a rounded corner; a smaller target shrinks
    // the corners rather than letting them overlap.
    int32_t corner = Min(cell.Width(), cell.Height()) / 4;
    corner = Min(corner, Min(target.Width(), target.Height()) / 2);
    if (corner < 0 || cell.Width() <= 2 * corner || cell.Height() <= 2 * corner)
        return 0;
    const Spans sx = Split(cell.left, cell.right, corner);
    const Spans sy = Split(cell.top, cell.bottom, corner);
    const Spans tx = Split(target.left, target.right, corner);
    const Spans ty = Split(target.top, target.bottom, corner);
    // The middle of the source is one column and its full middle rows: no glyph is reached.
    auto sourceColumn = [&](int32_t k, int32_t& from, int32_t& to) {
        if (k == 1) {
            from = sx.at[1];
            to = sx.at[1] + 1;
        } else {
            from = sx.at[k];
            to = sx.at[k + 1];
        }
    };
    int32_t count = 0;
    for (int32_t row = 0; row < 3; ++row) {
        for (int32_t column = 0; column < 3; ++column) {
            FacePiece piece;
            sourceColumn(column, piece.source.left, piece.source.right);
            piece.source.top = sy.at[row];
            piece.source.bottom = sy.at[row + 1];
            piece.target = Rect{tx.at[column], ty.at[row], tx.at[column + 1], ty.at[row + 1]};
            if (piece.target.Width() <= 0 || piece.target.Height() <= 0)
                continue;
            if (piece.source.Width() <= 0 || piece.source.Height() <= 0)
                continue;
            out[count++] = piece;
        }
    }
    return count;
}

Rect StripKeyRect(int32_t index, int32_t count, const Rect& strip) {
    if (count <= 0 || index < 0 || index >= count)
        return Rect{};
    const int32_t width = strip.Width() / count;
    const int32_t left = strip.left + width * index;
    const int32_t right = index == count - 1 ? strip.right : left + width;
    return Rect{left, strip.top, right, strip.bottom};
}
