#include "phone/PulsePlan.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using feedback::PlanPulses;
using feedback::PulsePlan;

// What a plan does, step by step: "pulse 40", "pause 200", ...
std::vector<std::string> Steps(const PulsePlan& plan, bool pulsesFail = false) {
    std::vector<std::string> steps;
    feedback::PlayPulses(
        plan,
        [&](uint32_t ms) {
            steps.push_back("pulse " + std::to_string(ms));
            return !pulsesFail;
        },
        [&](uint32_t ms) { steps.push_back("pause " + std::to_string(ms)); });
    return steps;
}

uint64_t WParam(uint32_t length, uint32_t pause) {
    return length | (static_cast<uint64_t>(pause) << 16);
}

TEST(PulsePlanTest, MessageValues) {
    EXPECT_EQ(feedback::kPulseMessage, 0x8001u);
    EXPECT_EQ(feedback::kQuitMessage, 0x8002u);
}

TEST(PulsePlanTest, LengthPauseAndCountComeFromTheirBits) {
    PulsePlan plan = PlanPulses(WParam(40, 200), 3);
    EXPECT_EQ(plan.length, 40u);
    EXPECT_EQ(plan.pause, 200u);
    EXPECT_EQ(plan.count, 3u);
}

TEST(PulsePlanTest, BitsAboveTheFieldsAreIgnored) {
    PulsePlan plan = PlanPulses(WParam(40, 200) | 0xABCD'0000'0000ull, 0x7'0002);
    EXPECT_EQ(plan.length, 40u);
    EXPECT_EQ(plan.pause, 200u);
    EXPECT_EQ(plan.count, 2u);
}

TEST(PulsePlanTest, ThreePulsesWithPausesBetweenAndNoneAfter) {
    std::vector<std::string> expected = {"pulse 40", "pause 200", "pulse 40", "pause 200",
                                         "pulse 40"};
    EXPECT_EQ(Steps(PlanPulses(WParam(40, 200), 3)), expected);
}

TEST(PulsePlanTest, CountOfZeroOrOneIsOnePulse) {
    std::vector<std::string> one = {"pulse 40"};
    EXPECT_EQ(Steps(PlanPulses(WParam(40, 200), 0)), one);
    EXPECT_EQ(Steps(PlanPulses(WParam(40, 200), 1)), one);
}

TEST(PulsePlanTest, FailedPulsesDoNotStopTheSeries) {
    EXPECT_EQ(Steps(PlanPulses(WParam(10, 5), 3), true).size(), 5u);
}

TEST(PulsePlanTest, LimitsAreInclusive) {
    PulsePlan longest = PlanPulses(WParam(50000, 7), 100);
    EXPECT_EQ(longest.length, 50000u);
    EXPECT_EQ(longest.pause, 7u);
    EXPECT_EQ(longest.count, 100u);
    EXPECT_EQ(Steps(PlanPulses(WParam(1, 0), 100)).size(), 199u);
}

TEST(PulsePlanTest, TooLongAPulseIsOneFiftyMillisecondPulse) {
    std::vector<std::string> fallback = {"pulse 50"};
    EXPECT_EQ(Steps(PlanPulses(WParam(50001, 200), 3)), fallback);
    EXPECT_EQ(Steps(PlanPulses(WParam(0xFFFF, 0), 1)), fallback);
}

TEST(PulsePlanTest, TooManyPulsesAreOneFiftyMillisecondPulse) {
    std::vector<std::string> fallback = {"pulse 50"};
    EXPECT_EQ(Steps(PlanPulses(WParam(40, 200), 101)), fallback);
    EXPECT_EQ(Steps(PlanPulses(WParam(40, 200), 0xFFFF)), fallback);
}

TEST(PulsePlanTest, OnePulseRequestKeepsTheLowSixteenBits) {
    EXPECT_EQ(feedback::PulseWParam(50), 50u);
    EXPECT_EQ(feedback::PulseWParam(0x1'0028), 0x28u);
    PulsePlan plan = PlanPulses(feedback::PulseWParam(0x7'0032), 0);
    EXPECT_EQ(plan.length, 50u);
    EXPECT_EQ(plan.pause, 0u);
    EXPECT_EQ(plan.count, 1u);
}

}  // namespace
