#include "skin/PanelGeometry.h"

void PanelButtonsFromImages(bool landscape, int32_t w1, int32_t h1, int32_t w2, int32_t h2,
                            PanelButtonArt out[4]) {
    // Cells run along the bar: columns of a portrait image, rows of a landscape one.
    auto cell = [landscape](int32_t w, int32_t h, int32_t parts, int32_t k) {
        return landscape ? Point{0, h / parts * k} : Point{w / parts * k, 0};
    };
    for (int32_t i = 0; i < 2; ++i) {
        PanelButtonArt& b = out[i];
        b.width = landscape ? w1 : w1 / 6;
        b.height = landscape ? h1 / 6 : h1;
        b.normal = cell(w1, h1, 6, i);
        b.pressed = cell(w1, h1, 6, i + 2);
        b.disabled = cell(w1, h1, 6, i + 4);
    }
    for (int32_t j = 0; j < 2; ++j) {
        PanelButtonArt& b = out[2 + j];
        b.width = landscape ? w2 : w2 / 4;
        b.height = landscape ? h2 / 4 : h2;
        b.normal = cell(w2, h2, 4, j);
        b.pressed = cell(w2, h2, 4, j + 2);
        b.disabled = b.normal;
    }
}

Rect PanelButtonRect(int32_t index, const Rect& client, bool landscape,
                     const PanelButtonArt buttons[4]) {
    const PanelButtonArt& b = buttons[index];
    Rect r;
    if (landscape) {
        r.left = client.left;
        r.right = client.left + b.width;
        r.top = index < 2 ? client.top + index * b.height
                          : client.bottom - (3 - index) * b.height - b.height;
        r.bottom = r.top + b.height;
    } else {
        r.top = client.top;
        r.bottom = client.top + b.height;
        r.left = index < 2 ? client.left + index * b.width
                           : client.right - (3 - index) * b.width - b.width;
        r.right = r.left + b.width;
    }
    return r;
}
