#include "controls/FlickPhysics.h"

#include <algorithm>
#include <climits>
#include <cstdlib>

#include "base/ScreenInfo.h"

namespace flick {

namespace {

int Saturate(int64_t value) {
    return static_cast<int>(std::clamp<int64_t>(value, INT_MIN / 2, INT_MAX / 2));
}

}  // namespace

bool CancelsHold(int dx, int dy, int dpiX, int dpiY) {
    return std::abs(dx) > ScaleLength(kHoldSlop, dpiX) ||
           std::abs(dy) > ScaleLength(kHoldSlop, dpiY);
}

bool StartsDrag(int dy, int dpiY) {
    return std::abs(dy) > ScaleLength(kDragThreshold, dpiY);
}

int RubberBand(int old, int proposed, int maxOffset) {
    const int max = maxOffset;
    if (old < 0 || proposed < 0) {
        // Above the top the list keeps half of what it was pulled and follows at half speed.
        int held = old < 0 ? old / 2 : old;
        return old - held + proposed / 2;
    }
    if (old <= max)
        return proposed <= max ? proposed : max + (proposed - max) / 2;
    if (proposed <= max)
        return old - (old - max) / 2 + (proposed - max);
    return old - (old - max) / 2 + (proposed - max) / 2;
}

VelocitySample StartSample(uint32_t now, int offset) {
    return VelocitySample{now, offset, 0, 0};
}

void UpdateSample(VelocitySample& sample, uint32_t now, int offset) {
    uint32_t elapsed = now - sample.time;
    if (elapsed <= kSampleMs)
        return;
    sample.span = elapsed;
    sample.velocity = offset - sample.offset;
    sample.offset = offset;
    sample.time = now;
}

ReleaseResult Release(const ReleaseInput& input, VelocitySample sample) {
    ReleaseResult result{ReleaseAction::kStop, input.offset, 0};
    if (input.offset < 0) {
        result.action = ReleaseAction::kBounceTop;
        return result;
    }
    if (input.offset > 0 && input.contentHeight - input.offset < input.viewHeight) {
        result.action = ReleaseAction::kBounceEnd;
        return result;
    }
    if (!input.dragging) {
        result.action = ReleaseAction::kTap;
        return result;
    }
    uint32_t span = std::max<uint32_t>(1, sample.span + (input.now - sample.time));
    // The last stretch of the finger moves the list one-to-one, without the rubber band.
    result.offset = input.lastY - input.y + input.offset;
    int64_t distance = static_cast<int64_t>(result.offset) - sample.offset + sample.velocity;
    result.velocity = Saturate(distance * 1000 / static_cast<int64_t>(span));
    result.action = std::abs(result.velocity) < kMinFlingVelocity ? ReleaseAction::kStop
                                                                  : ReleaseAction::kFling;
    return result;
}

int CapVelocity(int velocity, int dpiY) {
    int cap = ScaleLength(kMaxFlingVelocity, dpiY);
    return std::clamp(velocity, -cap, cap);
}

Fling StartFling(int offset, int velocity, int flingFactor) {
    Fling fling;
    fling.target =
        Saturate(static_cast<int64_t>(offset) + static_cast<int64_t>(velocity) * flingFactor);
    fling.up = fling.target < offset;
    return fling;
}

int FlingStep(const Fling& fling, int offset) {
    int64_t remaining = std::abs(static_cast<int64_t>(fling.target) - offset);
    int64_t step = (fling.stepBias + remaining * fling.stepFactor) / 10000;
    // A frame always moves, so no choice of factors can stall the animation.
    return static_cast<int>(std::max<int64_t>(1, std::min<int64_t>(step, INT_MAX / 2)));
}

int FlingFrame(const Fling& fling, int offset, int maxOffset, int viewHeight) {
    int step = FlingStep(fling, offset);
    int next =
        fling.up ? std::max(fling.target, offset - step) : std::min(fling.target, offset + step);
    int reach = std::max(0, viewHeight) * 2 / 3;
    return std::clamp(next, -reach, maxOffset + reach);
}

FrameOutcome FrameEnd(const Fling& fling, int offset, int maxOffset) {
    if (fling.up && offset < 0)
        return FrameOutcome::kBounceTop;
    if (!fling.up && offset > maxOffset)
        return FrameOutcome::kBounceEnd;
    return offset == fling.target ? FrameOutcome::kArrived : FrameOutcome::kContinue;
}

int BounceTopStep(int offset) {
    int64_t step = (std::abs(static_cast<int64_t>(offset)) * kBounceFactor + kBounceBias) / 10000;
    return static_cast<int>(std::min<int64_t>(0, offset + step));
}

int BounceEndStep(int offset, int maxOffset) {
    int64_t distance = std::abs(static_cast<int64_t>(offset) - maxOffset);
    int64_t step = (distance * kBounceFactor + kBounceBias) / 10000;
    return static_cast<int>(std::max<int64_t>(maxOffset, offset - step));
}

}  // namespace flick
