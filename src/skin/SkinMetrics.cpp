#include "skin/SkinMetrics.h"

namespace {

constexpr char16_t kDefaultFace[] = u"Tahoma";

}  // namespace

int32_t FontHeightForPoints(int32_t pixelsPerInch, int32_t points) {
    return -static_cast<int32_t>(static_cast<double>(pixelsPerInch) * points / 72.0 + 0.5);
}

int32_t WeightForCode(int32_t code) {
    switch (code) {
        case 0:
            return 400;
        case 1:
            return 700;
        default:
            return 600;
    }
}

FontChoice FontFromSpec(int32_t pixelsPerInch, int32_t points, const Str& face, int32_t weightCode,
                        bool italic, bool clearType) {
    FontChoice font;
    font.height = FontHeightForPoints(pixelsPerInch, points);
    font.weight = WeightForCode(weightCode);
    font.italic = italic;
    font.quality = clearType ? kQualityClearType : kQualityDefault;
    font.face = face.IsEmpty() ? Str(kDefaultFace) : face;
    return font;
}

FontChoice DefaultFont(SkinFont which, int32_t pixelsPerInch) {
    struct Default {
        int32_t points;
        int32_t weight;
        uint8_t quality;
    };
    static constexpr Default kDefaults[] = {
        {8, 700, kQualityClearType},       // text
        {7, 400, kQualityDefault},         // small
        {7, 400, kQualityNonAntialiased},  // button
    };
    const Default& d = kDefaults[static_cast<int32_t>(which)];
    FontChoice font;
    font.height = FontHeightForPoints(pixelsPerInch, d.points);
    font.weight = d.weight;
    font.quality = d.quality;
    font.face = kDefaultFace;
    return font;
}

int32_t FitKeepCount(const int32_t* extents, int32_t length, int32_t dotWidth, int32_t maxWidth) {
    int32_t count = length;
    // Each test looks at the extent before the decrease, so the prefix that fits is itself
    // given up: the kept text is one character shorter than it could be.
    while (count >= 1) {
        const int32_t width = extents[count - 1];
        --count;
        if (width + 3 * dotWidth <= maxWidth)
            break;
    }
    return count;
}

Str ShortenedText(const Str& text, int32_t count) {
    if (count <= 0)
        return text.Left(1);
    Str out = text.Left(count);
    out.Append(u"...");
    return out;
}
