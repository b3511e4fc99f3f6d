#include "phone/FeedbackSetting.h"

#include <gtest/gtest.h>

#include "base/RegistryMemory.h"
#include "base/SettingsStore.h"

namespace {

class FeedbackSettingTest : public testing::Test {
  protected:
    void SetUp() override { registry::memory::Reset(); }
};

TEST_F(FeedbackSettingTest, OnlyTwoVibrates) {
    EXPECT_FALSE(feedback::VibratesOn(0));
    EXPECT_FALSE(feedback::VibratesOn(1));
    EXPECT_TRUE(feedback::VibratesOn(2));
    EXPECT_FALSE(feedback::VibratesOn(3));
    EXPECT_FALSE(feedback::VibratesOn(0xFFFFFFFF));
}

TEST_F(FeedbackSettingTest, MissingSettingMeansNoVibration) {
    EXPECT_FALSE(feedback::ButtonFeedbackWanted());
}

TEST_F(FeedbackSettingTest, StoredValueIsReadAtEveryCall) {
    const struct {
        uint32_t stored;
        bool wanted;
    } cases[] = {{0, false}, {1, false}, {2, true}, {3, false}, {2, true}, {1, false}};
    for (const auto& c : cases) {
        ASSERT_EQ(settings::WriteNumber(settings::kSettingsKey, u"BtnFeedback", c.stored), 1);
        EXPECT_EQ(feedback::ButtonFeedbackWanted(), c.wanted) << "BtnFeedback " << c.stored;
    }
}

TEST_F(FeedbackSettingTest, PressPulseIsFiftyMilliseconds) {
    EXPECT_EQ(feedback::kPressPulseMs, 50u);
}

}  // namespace
