#include "phone/VibratorChoice.h"

#include <gtest/gtest.h>

#include <set>
#include <vector>

#include "phone/LedRecords.h"

namespace {

using feedback::ChooseVibrator;

// A device whose LEDs report these lCycleAdjust values; replies for `failing` LEDs fail (with
// -1 filled in all the same, so a chooser that ignores the reply's result is caught).
struct FakeLeds {
    std::vector<int32_t> cycleAdjust;
    std::set<uint32_t> failing;
    std::vector<uint32_t> asked;

    feedback::CycleAdjustQuery Query() {
        return [this](uint32_t led, int32_t* value) {
            asked.push_back(led);
            if (failing.count(led) != 0) {
                *value = nled::kVibratorCycleAdjust;
                return false;
            }
            *value = led < cycleAdjust.size() ? cycleAdjust[led] : 0;
            return true;
        };
    }
};

TEST(VibratorChoiceTest, NoVibratorKeepsLedOneAndAsksEveryLedFromTheTop) {
    FakeLeds leds{{0, 1, 0, 2}, {}, {}};
    EXPECT_EQ(ChooseVibrator(feedback::kDefaultVibrator, 4, leds.Query()), 1);
    EXPECT_EQ(leds.asked, (std::vector<uint32_t>{3, 2, 1, 0}));
}

TEST(VibratorChoiceTest, HighestVibratorWinsAndLowerLedsAreNotAsked) {
    FakeLeds leds{{0, -1, 0, -1, 0}, {}, {}};
    EXPECT_EQ(ChooseVibrator(1, 5, leds.Query()), 3);
    EXPECT_EQ(leds.asked, (std::vector<uint32_t>{4, 3}));
}

TEST(VibratorChoiceTest, LedZeroCanBeTheVibrator) {
    FakeLeds leds{{-1, 0, 0}, {}, {}};
    EXPECT_EQ(ChooseVibrator(1, 3, leds.Query()), 0);
}

TEST(VibratorChoiceTest, FailedRepliesDoNotCount) {
    FakeLeds leds{{0, 0, -1, -1}, {3}, {}};
    EXPECT_EQ(ChooseVibrator(1, 4, leds.Query()), 2);
    FakeLeds allFail{{-1, -1}, {0, 1}, {}};
    EXPECT_EQ(ChooseVibrator(1, 2, allFail.Query()), 1);
}

TEST(VibratorChoiceTest, NoLedsAsksNothing) {
    FakeLeds leds{{}, {}, {}};
    EXPECT_EQ(ChooseVibrator(1, 0, leds.Query()), 1);
    EXPECT_TRUE(leds.asked.empty());
}

TEST(VibratorChoiceTest, CurrentChoiceIsKeptWhenNoneQualifies) {
    FakeLeds leds{{5, 5}, {}, {}};
    EXPECT_EQ(ChooseVibrator(7, 2, leds.Query()), 7);
}

}  // namespace
