#include "app/ScreenDevice.h"

#include <gtest/gtest.h>

#include "base/ScreenInfo.h"
#include "platform/DeviceProfile.h"

namespace {

class ScreenDeviceTest : public ::testing::Test {
  protected:
    void SetUp() override {
        savedProfile_ = device::CurrentProfile();
        savedScreen_ = Screen();
        SetScreen(ScreenInfo{});
    }
    void TearDown() override {
        device::SetCurrentProfile(savedProfile_);
        SetScreen(savedScreen_);
    }

  private:
    device::Profile savedProfile_{};
    ScreenInfo savedScreen_{};
};

TEST_F(ScreenDeviceTest, MeasuresTheEmulatedScreen) {
    device::SetCurrentProfile({240, 320, 96});
    ScreenDcLease dc;
    MeasureScreen(dc.get());
    EXPECT_EQ(Screen().dpiX, 96);
    EXPECT_EQ(Screen().dpiY, 96);
    EXPECT_EQ(Screen().hiRes, 0);
    EXPECT_EQ(BarHeight(), 26);
}

TEST_F(ScreenDeviceTest, HighResolutionProfileIsHiRes) {
    device::SetCurrentProfile({480, 800, 192});
    ScreenDcLease dc;
    MeasureScreen(dc.get());
    EXPECT_EQ(Screen().hiRes, 1);
    EXPECT_EQ(Screen().wide, 1);
    EXPECT_EQ(BarHeight(), 52);
}

TEST_F(ScreenDeviceTest, MeasuresOnlyOnce) {
    device::SetCurrentProfile({320, 320, 96});
    ScreenDcLease dc;
    MeasureScreen(dc.get());
    device::SetCurrentProfile({480, 640, 192});
    MeasureScreen(dc.get());
    EXPECT_EQ(Screen().dpiX, 96);
    EXPECT_EQ(Screen().square, 1);
}

TEST_F(ScreenDeviceTest, LeaseHoldsTheScreenDcForItsScope) {
    EXPECT_EQ(ScreenDc(), nullptr);
    {
        ScreenDcLease dc;
        ASSERT_NE(dc.get(), nullptr);
        EXPECT_EQ(ScreenDc(), dc.get());
        EXPECT_GT(GetDeviceCaps(ScreenDc(), BITSPIXEL), 0);
    }
    EXPECT_EQ(ScreenDc(), nullptr);
}

}  // namespace
