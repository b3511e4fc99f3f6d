#include "controls/IndicatorGeometry.h"

#include <algorithm>
#include <cstdint>

#include "base/ScreenInfo.h"

namespace flick {

namespace {

// Products of pixel lengths and positions can pass 32 bits on long lists.
int MulDivFloor(int64_t a, int64_t b, int64_t c) {
    return static_cast<int>(a * b / c);
}

int KeepThumbInTrack(int top, int trackTop, int trackLength, int length) {
    return std::max(trackTop, std::min(top, trackTop + trackLength - length));
}

}  // namespace

int LastPosition(const ScrollRange& range) {
    return std::max(range.minimum, range.maximum - range.page + 1);
}

Thumb OverlayThumb(const ScrollRange& range, int trackTop, int trackLength, int bitmapLength) {
    int last = LastPosition(range);
    int overshoot = range.position < range.minimum ? range.minimum - range.position
                    : range.position > last        ? range.position - last
                                                   : 0;
    int length = bitmapLength;
    if (overshoot > 0) {
        // Squeezed in proportion to how much of a page the list is pulled past its end.
        int page = std::max(1, range.page);
        length = bitmapLength - MulDivFloor(bitmapLength, std::min(overshoot, page), page);
        length = std::max(length, std::max(1, 2 * (bitmapLength / 3)));
    }
    Thumb thumb{trackTop, length};
    int free = trackLength - length;
    int span = range.maximum - range.minimum - range.page;
    if (range.position < range.minimum)
        thumb.top = trackTop;
    else if (range.position > last)
        thumb.top = trackTop + free;
    else if (span > 0)
        thumb.top = trackTop + MulDivFloor(range.position - range.minimum, free, span);
    thumb.top = KeepThumbInTrack(thumb.top, trackTop, trackLength, length);
    return thumb;
}

int OverlayPositionAt(const ScrollRange& range, int y, int grab, int trackTop, int trackLength,
                      int thumbLength) {
    int free = trackLength - thumbLength;
    int span = range.maximum - range.minimum - range.page;
    if (free <= 0 || span <= 0)
        return range.minimum;
    int position = range.minimum + MulDivFloor(y - grab - trackTop, span, free);
    return std::clamp(position, range.minimum, LastPosition(range));
}

ClassicMetrics ScaledClassicMetrics(int dpiX, int dpiY) {
    ClassicMetrics design;
    return ClassicMetrics{ScaleLength(design.width, dpiX), ScaleLength(design.arrowHeight, dpiY),
                          ScaleLength(design.minThumb, dpiY)};
}

Thumb ClassicThumb(const ScrollRange& range, int barHeight, const ClassicMetrics& metrics) {
    int trackTop = metrics.arrowHeight;
    int track = std::max(0, barHeight - 2 * metrics.arrowHeight);
    int total = range.maximum - range.minimum + 1;
    int length = total > 0 ? MulDivFloor(track, range.page, total) : track;
    length = std::min(track, std::max(length, metrics.minThumb));
    Thumb thumb{trackTop, length};
    int scrollable = total - range.page;
    if (scrollable > 0) {
        int position = std::clamp(range.position, range.minimum, LastPosition(range));
        thumb.top = trackTop + MulDivFloor(position - range.minimum, track - length, scrollable);
    }
    thumb.top = KeepThumbInTrack(thumb.top, trackTop, track, length);
    return thumb;
}

int ClassicPositionAt(const ScrollRange& range, int y, int grab, int barHeight,
                      const ClassicMetrics& metrics, int margin) {
    Thumb thumb = ClassicThumb(range, barHeight, metrics);
    int track = std::max(0, barHeight - 2 * metrics.arrowHeight);
    int free = std::max({track - thumb.length, margin, 1});
    int scrollable = range.maximum - range.minimum + 1 - range.page;
    if (scrollable <= 0)
        return range.minimum;
    int position = range.minimum + MulDivFloor(y - grab - metrics.arrowHeight, scrollable, free);
    return std::clamp(position, range.minimum, LastPosition(range));
}

IndicatorPart ClassicPartAt(const ScrollRange& range, int y, int barHeight,
                            const ClassicMetrics& metrics) {
    if (y < 0 || y >= barHeight)
        return kPartNone;
    if (y < metrics.arrowHeight)
        return kPartUpArrow;
    if (y >= barHeight - metrics.arrowHeight)
        return kPartDownArrow;
    Thumb thumb = ClassicThumb(range, barHeight, metrics);
    if (y >= thumb.top && y < thumb.top + thumb.length)
        return kPartThumb;
    return y < thumb.top ? kPartPageAbove : kPartPageBelow;
}

int OverlayAlpha(bool visible, int fadeStep, bool held) {
    int alpha = held ? 255 : 180;
    if (visible)
        return alpha;
    int step = std::clamp(fadeStep, 0, kFadeSteps);
    return (kFadeSteps - step) * alpha / kFadeSteps;
}

std::vector<BandCopy> StretchBands(int thumbTop, int length, int bitmapHeight) {
    std::vector<BandCopy> copies;
    if (length <= 0 || bitmapHeight <= 0)
        return copies;
    int band = bitmapHeight / 3;
    if (length == bitmapHeight || band <= 0) {
        copies.push_back(BandCopy{0, thumbTop, std::min(length, bitmapHeight)});
        return copies;
    }
    int bottom = thumbTop + length;
    // The ends first; on a thumb shorter than two bands the bottom band overlaps the top one.
    copies.push_back(BandCopy{0, thumbTop, std::min(band, length)});
    for (int top = thumbTop + band; top < bottom - band; top += band)
        copies.push_back(BandCopy{band, top, std::min(band, bottom - band - top)});
    copies.push_back(BandCopy{2 * band, std::max(thumbTop, bottom - band), std::min(band, length)});
    return copies;
}

}  // namespace flick
