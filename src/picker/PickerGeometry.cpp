#include "picker/PickerGeometry.h"

#include <algorithm>

#include "base/ScreenInfo.h"

namespace {

constexpr int kRowDesignHeight = 34;
constexpr int kRowDesignPadding = 2;
constexpr int kTextDesignMargin = 4;
constexpr int kKeypadFifths = 2;

}  // namespace

PickerLayout LayOutPicker(const Rect& content, int dpiY, int lineHeight, int smallLineHeight) {
    PickerLayout layout{};
    const int height = std::max(0, content.Height());
    const int keypadHeight = height * kKeypadFifths / 5;
    const int split = content.top + height - keypadHeight;
    layout.list = Rect{content.left, content.top, content.right, split};
    layout.keypad = Rect{content.left, split, content.right, content.top + height};
    const int needed = std::max(0, lineHeight) + std::max(0, smallLineHeight) +
                       2 * ScaleLength(kRowDesignPadding, dpiY);
    layout.itemHeight = std::max({ScaleLength(kRowDesignHeight, dpiY), needed, 1});
    return layout;
}

int RowMargin(int dpiX) {
    return ScaleLength(kTextDesignMargin, dpiX);
}
