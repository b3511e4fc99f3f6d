#include "platform/DeviceProfile.h"

#include <gtest/gtest.h>

namespace {

struct ParseCase {
    const char* text;
    bool ok;
    device::Profile profile;
};

class ParseCases : public ::testing::TestWithParam<ParseCase> {};

TEST_P(ParseCases, ParsesWellFormedProfilesOnly) {
    const ParseCase& c = GetParam();
    device::Profile out{1, 2, 3};
    EXPECT_EQ(device::ParseProfile(c.text, out), c.ok) << (c.text ? c.text : "(null)");
    EXPECT_EQ(out, (c.ok ? c.profile : device::Profile{1, 2, 3}));
}

INSTANTIATE_TEST_SUITE_P(
    Texts, ParseCases,
    ::testing::Values(ParseCase{"480x640@192", true, {480, 640, 192}},
                      ParseCase{"240x320@96", true, {240, 320, 96}},
                      ParseCase{"320x240@96", true, {320, 240, 96}},
                      ParseCase{"320x320@96", true, {320, 320, 96}},
                      ParseCase{"480x800@192", true, {480, 800, 192}},
                      ParseCase{"240x400@131", true, {240, 400, 131}},
                      ParseCase{"4096x4096@1024", true, {4096, 4096, 1024}},
                      ParseCase{"4097x320@96", false, {}}, ParseCase{"240x320@1025", false, {}},
                      ParseCase{"0x320@96", false, {}}, ParseCase{"240x320@0", false, {}},
                      ParseCase{"240X320@96", false, {}}, ParseCase{"240x320", false, {}},
                      ParseCase{"240x320@", false, {}}, ParseCase{" 240x320@96", false, {}},
                      ParseCase{"240x320@96 ", false, {}}, ParseCase{"-240x320@96", false, {}},
                      ParseCase{"240x320@96x", false, {}},
                      ParseCase{"99999999999999999999x1@1", false, {}}, ParseCase{"", false, {}},
                      ParseCase{nullptr, false, {}}));

TEST(DeviceProfileTest, DefaultIsVgaAt192Dpi) {
    EXPECT_EQ(device::kDefaultProfile, (device::Profile{480, 640, 192}));
    EXPECT_EQ(device::SelectProfile(nullptr), device::kDefaultProfile);
    EXPECT_EQ(device::SelectProfile("nonsense"), device::kDefaultProfile);
    EXPECT_EQ(device::SelectProfile("240x320@96"), (device::Profile{240, 320, 96}));
}

TEST(DeviceProfileTest, RotationSwapsTheSides) {
    EXPECT_EQ(device::Rotated({240, 320, 96}), (device::Profile{320, 240, 96}));
    EXPECT_EQ(device::Rotated(device::Rotated({480, 800, 192})), (device::Profile{480, 800, 192}));
}

TEST(DeviceProfileTest, CurrentProfileCanBeReplaced) {
    device::Profile saved = device::CurrentProfile();
    device::SetCurrentProfile({320, 320, 96});
    EXPECT_EQ(device::CurrentProfile(), (device::Profile{320, 320, 96}));
    device::SetCurrentProfile(saved);
    EXPECT_EQ(device::CurrentProfile(), saved);
}

}  // namespace
