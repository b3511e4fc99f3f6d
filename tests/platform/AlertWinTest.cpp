// The platform's own box: a real message box with no owner, answered from another thread.
#include "base/Alert.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <thread>

#include "WindowProbe.h"

namespace {

constexpr wchar_t kCaption[] = L"DdAlertWinTest";

struct SeenBox {
    bool found = false;
    bool owned = true;
    std::wstring text;
};

// Waits for the box, reads it and presses `button`.
std::thread Answer(SeenBox& seen, int button) {
    return std::thread([&seen, button] {
        HWND box = probe::WaitForWindow(L"#32770", kCaption, 20000);
        if (box == nullptr)
            return;
        seen.found = true;
        seen.owned = GetWindow(box, GW_OWNER) != nullptr;
        seen.text = probe::MessageBoxText(box);
        probe::PressButton(box, button);
    });
}

TEST(AlertWinTest, PlatformAlertShowsAnUnownedBoxAndReturnsTheAnswer) {
    SeenBox seen;
    std::thread answer = Answer(seen, IDOK);
    int result = PlatformAlert(u"Failed to load skin !", u"DdAlertWinTest", kAlertOk);
    answer.join();
    ASSERT_TRUE(seen.found);
    EXPECT_FALSE(seen.owned);
    EXPECT_EQ(seen.text, L"Failed to load skin !");
    EXPECT_EQ(result, kAlertAnswerOk);
}

TEST(AlertWinTest, YesNoBoxReturnsTheButtonPressed) {
    SeenBox seen;
    std::thread answer = Answer(seen, IDNO);
    int result = PlatformAlert(u"Sure?", u"DdAlertWinTest", kAlertYesNo | kAlertIconExclamation);
    answer.join();
    ASSERT_TRUE(seen.found);
    EXPECT_EQ(result, kAlertAnswerNo);
}

TEST(AlertWinTest, ShowAlertGoesToThePlatformBoxByDefault) {
    AlertHandler previous = SetAlertHandler(nullptr);
    SeenBox seen;
    std::thread answer = Answer(seen, IDOK);
    int result = ShowAlert(u"through the seam", u"DdAlertWinTest", kAlertOk);
    answer.join();
    SetAlertHandler(previous);
    ASSERT_TRUE(seen.found);
    EXPECT_EQ(seen.text, L"through the seam");
    EXPECT_EQ(result, kAlertAnswerOk);
}

}  // namespace
