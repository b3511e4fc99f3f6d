#pragma once
// FlickPhysics: the flick list's gestures as arithmetic of explicit time and state: the hold and
// drag thresholds, the rubber band beyond the ends, velocity sampling, what a release starts, the
// fling's ease-out frames and the bounces back from the ends. Lengths are designed at 96 pixels
// per inch and scaled to the screen.

#include <cstdint>

namespace flick {

/// A hold is cancelled by a move beyond 2 design pixels on either axis.
constexpr int kHoldSlop = 2;
/// A drag starts beyond 10 design pixels of vertical movement.
constexpr int kDragThreshold = 10;
/// A velocity sample ends once more than this many milliseconds have passed.
constexpr uint32_t kSampleMs = 100;
/// A release slower than this (pixels per second) does not fling.
constexpr int kMinFlingVelocity = 50;
/// The fastest fling, in design pixels per second.
constexpr int kMaxFlingVelocity = 1000;
/// One fling frame lasts this long.
constexpr uint32_t kFrameMs = 50;
/// The fling's defaults: velocity factor, and the step's proportional part and constant part
/// (ten-thousandths).
constexpr int kFlingFactor = 1;
constexpr int kStepFactor = 1700;
constexpr int kStepBias = 10553;
/// The bounces' step: (|distance| * 3364 + 10753) / 10000.
constexpr int kBounceFactor = 3364;
constexpr int kBounceBias = 10753;

/// True when a move of (dx, dy) from the press cancels a pending hold.
bool CancelsHold(int dx, int dy, int dpiX, int dpiY);
/// True when a vertical move of dy from the press starts a drag.
bool StartsDrag(int dy, int dpiY);

/// The offset a drag moves to from `old` when the finger asks for `proposed`, with `maxOffset`
/// the largest offset at rest: the finger is followed inside 0..max and at half speed beyond.
int RubberBand(int old, int proposed, int maxOffset);

/// The running velocity measurement of a drag.
struct VelocitySample {
    uint32_t time = 0;  ///< start of the current sample
    int offset = 0;     ///< offset at its start
    uint32_t span = 0;  ///< length of the last completed sample
    int velocity = 0;   ///< the last completed sample's distance; pixels per second at release
};
/// A fresh sample starting at `now` from `offset`.
VelocitySample StartSample(uint32_t now, int offset);
/// Closes the sample when more than kSampleMs have passed and starts the next one.
void UpdateSample(VelocitySample& sample, uint32_t now, int offset);

/// What a release starts.
enum class ReleaseAction { kTap, kBounceTop, kBounceEnd, kFling, kStop };
/// The facts a release is decided on.
struct ReleaseInput {
    int offset = 0;
    int contentHeight = 0;  ///< item count * item height
    int viewHeight = 0;
    bool dragging = false;
    int lastY = 0;  ///< y of the last move
    int y = 0;      ///< y of the release
    uint32_t now = 0;
};
struct ReleaseResult {
    ReleaseAction action = ReleaseAction::kStop;
    int offset = 0;    ///< the offset after the release
    int velocity = 0;  ///< pixels per second, for a fling
};
/// Decides a release: pulled below the top bounces to the top, an end above the view's bottom
/// bounces to the end, no drag is a tap, else the sampled velocity flings or stops.
ReleaseResult Release(const ReleaseInput& input, VelocitySample sample);

/// The velocity capped at the fastest fling scaled to `dpiY`, sign kept.
int CapVelocity(int velocity, int dpiY);

/// How a fling frame ends.
enum class FrameOutcome { kContinue, kBounceTop, kBounceEnd, kArrived };
/// A running fling toward `target`.
struct Fling {
    int target = 0;
    bool up = false;  ///< moving toward smaller offsets
    int stepFactor = kStepFactor;
    int stepBias = kStepBias;
};
/// The fling a (capped) velocity starts from `offset`.
Fling StartFling(int offset, int velocity, int flingFactor);
/// One frame's step: (bias + |target - offset| * factor) / 10000, at least 1.
int FlingStep(const Fling& fling, int offset);
/// The offset after one frame: a step toward the target, not past it, and never more than two
/// thirds of the view height beyond either end.
int FlingFrame(const Fling& fling, int offset, int maxOffset, int viewHeight);
/// How the frame that reached `offset` ends: past the end it moved toward bounces, the target
/// ends the fling.
FrameOutcome FrameEnd(const Fling& fling, int offset, int maxOffset);

/// The next offset of the bounce back to 0 from a negative offset, not above 0.
int BounceTopStep(int offset);
/// The next offset of the bounce back to `maxOffset` from beyond it, not below it.
int BounceEndStep(int offset, int maxOffset);

}  // namespace flick
