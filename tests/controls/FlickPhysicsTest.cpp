// The flick list's gestures as arithmetic: thresholds by screen resolution, the rubber band's
// cases, velocity samples, releases, the fling's cap, steps, frames and overscroll limit, and the
// bounces' steps.
#include "controls/FlickPhysics.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <vector>

namespace flick {
namespace {

TEST(FlickPhysicsTest, HoldSlopIsTwoDesignPixelsPerAxis) {
    EXPECT_FALSE(CancelsHold(2, -2, 96, 96));
    EXPECT_TRUE(CancelsHold(3, 0, 96, 96));
    EXPECT_TRUE(CancelsHold(0, -3, 96, 96));
    EXPECT_FALSE(CancelsHold(4, 4, 192, 192));
    EXPECT_TRUE(CancelsHold(5, 0, 192, 96));
    EXPECT_FALSE(CancelsHold(2, 4, 96, 192));  // horizontal by dpiX, vertical by dpiY
    EXPECT_TRUE(CancelsHold(2, 4, 96, 96));
    EXPECT_TRUE(CancelsHold(3, 4, 192, 96));
}

TEST(FlickPhysicsTest, DragStartsBeyondTenDesignPixelsVertically) {
    EXPECT_FALSE(StartsDrag(10, 96));
    EXPECT_TRUE(StartsDrag(11, 96));
    EXPECT_TRUE(StartsDrag(-11, 96));
    EXPECT_FALSE(StartsDrag(20, 192));
    EXPECT_TRUE(StartsDrag(21, 192));
    EXPECT_FALSE(StartsDrag(13, 131));  // (10 * 131 + 48) / 96 = 14
    EXPECT_TRUE(StartsDrag(15, 131));
}

struct BandCase {
    int old;
    int proposed;
    int expected;
};

TEST(FlickPhysicsTest, RubberBandFollowsInsideAndHalvesBeyond) {
    const int max = 600;
    const BandCase cases[] = {
        {100, 150, 150},  // inside: the finger
        {0, 600, 600},
        {580, 640, 620},  // into the end: half of what passes max
        {600, 601, 600},
        {700, 500, 550},  // from beyond back inside: half the excess kept, the rest followed
        {700, 700, 700},  // beyond and beyond: half of each excess
        {650, 700, 675},
        {-40, -60, -50},  // above the top: half of the old pull and half the finger
        {-40, 20, -10},
        {30, -10, -5},    // from inside past the top: old - old + proposed / 2
        {10, -31, -15},   // truncation toward zero
        {-31, -31, -31},  // -31 - (-15) + (-15)
    };
    for (const BandCase& c : cases)
        EXPECT_EQ(RubberBand(c.old, c.proposed, max), c.expected) << c.old << " -> " << c.proposed;
}

TEST(FlickPhysicsTest, RubberBandDragsHalfSpeedPastTheTop) {
    int offset = 0;
    std::vector<int> seen;
    for (int step = 0; step < 4; ++step) {
        offset = RubberBand(offset, offset - 20, 600);
        seen.push_back(offset);
    }
    EXPECT_EQ(seen, (std::vector<int>{-10, -20, -30, -40}));
}

TEST(FlickPhysicsTest, VelocitySamplesCloseAfterAHundredMilliseconds) {
    VelocitySample sample = StartSample(1000, 50);
    UpdateSample(sample, 1100, 90);
    EXPECT_EQ(sample.time, 1000u);
    EXPECT_EQ(sample.velocity, 0);
    UpdateSample(sample, 1101, 100);
    EXPECT_EQ(sample.time, 1101u);
    EXPECT_EQ(sample.span, 101u);
    EXPECT_EQ(sample.velocity, 50);
    EXPECT_EQ(sample.offset, 100);
}

TEST(FlickPhysicsTest, VelocitySamplesSurviveTheClockWrap) {
    VelocitySample sample = StartSample(0xFFFFFFF0u, 0);
    UpdateSample(sample, 0x60u, 30);
    EXPECT_EQ(sample.span, 0x70u);
    EXPECT_EQ(sample.velocity, 30);
}

ReleaseInput Input(int offset, bool dragging, int lastY, int y, uint32_t now) {
    return ReleaseInput{offset, 1200, 600, dragging, lastY, y, now};
}

TEST(FlickPhysicsTest, ReleaseBelowTheTopBouncesEvenAfterATap) {
    EXPECT_EQ(Release(Input(-5, false, 0, 0, 0), {}).action, ReleaseAction::kBounceTop);
    EXPECT_EQ(Release(Input(-5, true, 0, 0, 0), {}).action, ReleaseAction::kBounceTop);
}

TEST(FlickPhysicsTest, ReleaseWithTheEndAboveTheViewBottomBouncesToTheEnd) {
    EXPECT_EQ(Release(Input(601, true, 0, 0, 0), {}).action, ReleaseAction::kBounceEnd);
    EXPECT_EQ(Release(Input(601, false, 0, 0, 0), {}).action, ReleaseAction::kBounceEnd);
    EXPECT_NE(Release(Input(600, true, 0, 0, 0), {}).action, ReleaseAction::kBounceEnd);
    // A short list at offset 0 never bounces to its end.
    ReleaseInput shortList{0, 120, 600, false, 0, 0, 0};
    EXPECT_EQ(Release(shortList, {}).action, ReleaseAction::kTap);
}

TEST(FlickPhysicsTest, ReleaseWithoutADragIsATapWhateverTheTime) {
    ReleaseResult result = Release(Input(100, false, 300, 305, 2000), StartSample(0, 100));
    EXPECT_EQ(result.action, ReleaseAction::kTap);
    EXPECT_EQ(result.offset, 100);
}

TEST(FlickPhysicsTest, AStillFingerAfterTheLastSampleDoesNotFling) {
    // The drag moved 60 pixels in its first 120 ms sample, then the finger rested 400 ms.
    VelocitySample sample = StartSample(0, 100);
    UpdateSample(sample, 120, 160);
    ReleaseResult result = Release(Input(160, true, 240, 240, 520), sample);
    // span 120 + 400 = 520; distance 160 - 160 + 60 = 60; 60000 / 520 = 115 -> flings.
    EXPECT_EQ(result.velocity, 115);
    // Resting long enough for another sample to close with no movement: no fling.
    UpdateSample(sample, 300, 160);
    result = Release(Input(160, true, 240, 240, 520), sample);
    EXPECT_EQ(result.velocity, 0);
    EXPECT_EQ(result.action, ReleaseAction::kStop);
}

TEST(FlickPhysicsTest, AQuickDragFlingsWithPixelsPerSecond) {
    VelocitySample sample = StartSample(0, 0);
    UpdateSample(sample, 101, 100);  // velocity 100 over 101 ms
    // Released 49 ms later, 20 pixels above the last move.
    ReleaseResult result = Release(Input(150, true, 200, 180, 150), sample);
    EXPECT_EQ(result.action, ReleaseAction::kFling);
    EXPECT_EQ(result.offset, 170);
    EXPECT_EQ(result.velocity, (170 - 100 + 100) * 1000 / (101 + 49));
}

TEST(FlickPhysicsTest, ReleaseSpanIsAtLeastOneMillisecond) {
    VelocitySample sample = StartSample(500, 0);
    ReleaseResult result = Release(Input(0, true, 100, 97, 500), sample);
    EXPECT_EQ(result.velocity, 3000);
}

TEST(FlickPhysicsTest, SlowReleasesStop) {
    VelocitySample sample = StartSample(0, 100);
    ReleaseResult result = Release(Input(104, true, 0, 0, 100), sample);
    EXPECT_EQ(result.velocity, 40);
    EXPECT_EQ(result.action, ReleaseAction::kStop);
    result = Release(Input(96, true, 0, 0, 100), sample);
    EXPECT_EQ(result.velocity, -40);
    EXPECT_EQ(result.action, ReleaseAction::kStop);
    result = Release(Input(105, true, 0, 0, 100), sample);
    EXPECT_EQ(result.action, ReleaseAction::kFling);
}

TEST(FlickPhysicsTest, VelocityIsCappedByResolution) {
    EXPECT_EQ(CapVelocity(3000, 96), 1000);
    EXPECT_EQ(CapVelocity(-3000, 96), -1000);
    EXPECT_EQ(CapVelocity(3000, 192), 2000);
    EXPECT_EQ(CapVelocity(700, 96), 700);
}

TEST(FlickPhysicsTest, FlingStepIsSeventeenPercentPlusAboutAPixel) {
    Fling fling = StartFling(0, 1000, kFlingFactor);
    EXPECT_EQ(fling.target, 1000);
    EXPECT_FALSE(fling.up);
    EXPECT_EQ(FlingStep(fling, 0), (10553 + 1000 * 1700) / 10000);  // 171
    EXPECT_EQ(FlingStep(fling, 999), 1);
    EXPECT_EQ(FlingStep(fling, 1000), 1);
    Fling up = StartFling(500, -300, kFlingFactor);
    EXPECT_TRUE(up.up);
    EXPECT_EQ(up.target, 200);
    EXPECT_EQ(FlingStep(up, 500), (10553 + 300 * 1700) / 10000);
}

TEST(FlickPhysicsTest, AFlingOfThreeThousandTravelsAtMostAThousandAt96) {
    Fling fling = StartFling(0, CapVelocity(3000, 96), kFlingFactor);
    int offset = 0;
    int frames = 0;
    FrameOutcome outcome = FrameOutcome::kContinue;
    while (outcome == FrameOutcome::kContinue && frames < 1000) {
        int next = FlingFrame(fling, offset, 100000, 600);
        EXPECT_GT(next, offset);
        offset = next;
        outcome = FrameEnd(fling, offset, 100000);
        ++frames;
    }
    EXPECT_EQ(outcome, FrameOutcome::kArrived);
    EXPECT_EQ(offset, 1000);
    EXPECT_LT(frames, 100);
}

TEST(FlickPhysicsTest, FlingFramesNeverPassTheTarget) {
    Fling fling = StartFling(100, -2, kFlingFactor);
    EXPECT_EQ(FlingFrame(fling, 100, 600, 600), 99);
    EXPECT_EQ(FlingFrame(fling, 99, 600, 600), 98);
    EXPECT_EQ(FrameEnd(fling, 98, 600), FrameOutcome::kArrived);
}

TEST(FlickPhysicsTest, FlingGoesAtMostTwoThirdsOfTheViewPastAnEnd) {
    Fling up = StartFling(10, -5000, kFlingFactor);
    EXPECT_EQ(FlingFrame(up, 10, 600, 300), -200);
    EXPECT_EQ(FrameEnd(up, -200, 600), FrameOutcome::kBounceTop);
    Fling down = StartFling(590, 5000, kFlingFactor);
    EXPECT_EQ(FlingFrame(down, 590, 600, 300), 800);
    EXPECT_EQ(FrameEnd(down, 800, 600), FrameOutcome::kBounceEnd);
}

TEST(FlickPhysicsTest, PassingTheEndBehindTheFlingDoesNotBounce) {
    Fling down = StartFling(-10, 400, kFlingFactor);
    EXPECT_EQ(FrameEnd(down, -5, 600), FrameOutcome::kContinue);
    Fling up = StartFling(700, -50, kFlingFactor);
    EXPECT_EQ(FrameEnd(up, 680, 600), FrameOutcome::kContinue);
}

TEST(FlickPhysicsTest, FlingStepsAlwaysMoveWhateverTheFactors) {
    Fling fling = StartFling(0, 100, kFlingFactor);
    fling.stepBias = 0;
    fling.stepFactor = 0;
    EXPECT_EQ(FlingStep(fling, 0), 1);
}

TEST(FlickPhysicsTest, BounceToTopSteps) {
    EXPECT_EQ(BounceTopStep(-100), -100 + (100 * 3364 + 10753) / 10000);  // -66
    EXPECT_EQ(BounceTopStep(-1), 0);
    EXPECT_EQ(BounceTopStep(-2), -1);
    EXPECT_EQ(BounceTopStep(0), 0);
    int offset = -200;
    int steps = 0;
    while (offset != 0 && steps < 100) {
        int next = BounceTopStep(offset);
        EXPECT_GT(next, offset);
        offset = next;
        ++steps;
    }
    EXPECT_EQ(offset, 0);
}

TEST(FlickPhysicsTest, BounceToEndSteps) {
    EXPECT_EQ(BounceEndStep(700, 600), 700 - (100 * 3364 + 10753) / 10000);  // 666
    EXPECT_EQ(BounceEndStep(601, 600), 600);
    EXPECT_EQ(BounceEndStep(600, 600), 600);
    int offset = 1000;
    int steps = 0;
    while (offset != 600 && steps < 100) {
        offset = BounceEndStep(offset, 600);
        ++steps;
    }
    EXPECT_EQ(offset, 600);
}

}  // namespace
}  // namespace flick
