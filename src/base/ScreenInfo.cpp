#include "base/ScreenInfo.h"

namespace {

constexpr int kHiResAbove = 131;

ScreenInfo& Record() {
    static ScreenInfo info;
    return info;
}

bool IsWideSide(int side) {
    return side == 400 || side == 800;
}

}  // namespace

ScreenInfo ComputeScreenInfo(int dpiX, int dpiY, int width, int height) {
    ScreenInfo info;
    info.dpiX = dpiX;
    info.dpiY = dpiY;
    info.hiRes = (dpiX > kHiResAbove || dpiY > kHiResAbove) ? 1 : 0;
    if (width == 320 && height == 320) {
        info.square = 1;
        info.wide = 0;
    } else {
        info.square = 0;
        info.wide = (IsWideSide(width) || IsWideSide(height)) ? 1 : 0;
    }
    return info;
}

const ScreenInfo& Screen() {
    return Record();
}

void SetScreen(const ScreenInfo& info) {
    Record() = info;
}
