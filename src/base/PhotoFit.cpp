#include "base/PhotoFit.h"

int32_t MulDivRound(int32_t a, int32_t b, int32_t c) {
    if (c == 0)
        return -1;
    int64_t product = static_cast<int64_t>(a) * b;
    bool negative = (product < 0) != (c < 0);
    uint64_t magnitude = static_cast<uint64_t>(product < 0 ? -product : product);
    uint64_t divisor = static_cast<uint64_t>(c < 0 ? -static_cast<int64_t>(c) : c);
    uint64_t quotient = (magnitude + divisor / 2) / divisor;
    if (quotient > 0x7FFFFFFFu)
        return -1;  // overflow, as the platform reports it
    return negative ? -static_cast<int32_t>(quotient) : static_cast<int32_t>(quotient);
}

void FitSize(int mode, int boxWidth, int boxHeight, int& width, int& height) {
    if (mode != kFitInside && mode != kFitCover)
        return;
    int fittedWidth = MulDivRound(width, boxHeight, height);
    bool keepHeight = fittedWidth >= 0 &&
                      (mode == kFitInside ? fittedWidth <= boxWidth : fittedWidth >= boxWidth);
    if (keepHeight) {
        width = fittedWidth;
        height = boxHeight;
    } else {
        height = MulDivRound(height, boxWidth, width);
        width = boxWidth;
    }
}
