#include "platform/DeviceScreen.h"

#include <gtest/gtest.h>

#include "platform/DeviceProfile.h"

namespace {

class DeviceScreenTest : public ::testing::Test {
  protected:
    void SetUp() override { saved_ = device::CurrentProfile(); }
    void TearDown() override { device::SetCurrentProfile(saved_); }

  private:
    device::Profile saved_{};
};

TEST_F(DeviceScreenTest, ResolutionComesFromTheProfile) {
    device::SetCurrentProfile({240, 320, 96});
    HDC dc = GetDC(nullptr);
    EXPECT_EQ(device::DeviceCaps(dc, LOGPIXELSX), 96);
    EXPECT_EQ(device::DeviceCaps(dc, LOGPIXELSY), 96);
    device::SetCurrentProfile({480, 640, 192});
    EXPECT_EQ(device::DeviceCaps(dc, LOGPIXELSX), 192);
    EXPECT_EQ(device::DeviceCaps(dc, LOGPIXELSY), 192);
    EXPECT_EQ(device::DeviceCaps(dc, BITSPIXEL), GetDeviceCaps(dc, BITSPIXEL));
    ReleaseDC(nullptr, dc);
}

TEST_F(DeviceScreenTest, ScreenSizeComesFromTheProfile) {
    device::SetCurrentProfile({320, 240, 96});
    EXPECT_EQ(device::SystemMetrics(SM_CXSCREEN), 320);
    EXPECT_EQ(device::SystemMetrics(SM_CYSCREEN), 240);
    EXPECT_EQ(device::SystemMetrics(SM_CYCAPTION), GetSystemMetrics(SM_CYCAPTION));
}

TEST_F(DeviceScreenTest, TheDesktopItselfIsLeftAlone) {
    int width = GetSystemMetrics(SM_CXSCREEN);
    int height = GetSystemMetrics(SM_CYSCREEN);
    device::SetCurrentProfile({width + 1, height + 1, 96});
    EXPECT_EQ(GetSystemMetrics(SM_CXSCREEN), width);
    EXPECT_EQ(GetSystemMetrics(SM_CYSCREEN), height);
}

}  // namespace
