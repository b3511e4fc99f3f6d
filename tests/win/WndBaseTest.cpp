#include "win/WndBase.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "base/ScreenInfo.h"
#include "testing/WindowTestKit.h"

namespace {

constexpr wchar_t kTestClass[] = L"DdWndBaseTestClass";

// Records the calls the base makes into the object, in order.
class Recorder : public WndBase {
  public:
    LRESULT WndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_CREATE || message == WM_DESTROY || message == WM_ACTIVATE ||
            message == WM_SETTINGCHANGE || message == WM_NCCREATE || message == WM_NCDESTROY ||
            message == WM_USER) {
            calls.push_back("WndProc " + std::to_string(message));
            handleSeen = hwnd_;
            storedObject = GetWindowLongPtrW(hwnd, GWLP_USERDATA);
            if (message == WM_DESTROY)
                handleAtDestroy = hwnd_;
        }
        return WndBase::WndProc(hwnd, message, wParam, lParam);
    }
    void OnSettingChange(WPARAM wParam, LPARAM lParam) override {
        calls.push_back("OnSettingChange " + std::to_string(wParam));
        WndBase::OnSettingChange(wParam, lParam);
    }
    void OnActivate(WPARAM wParam, LPARAM lParam) override {
        calls.push_back("OnActivate " + std::to_string(LOWORD(wParam)));
        WndBase::OnActivate(wParam, lParam);
    }
    void FitToDesktop() override {
        calls.push_back("FitToDesktop");
        WndBase::FitToDesktop();
    }
    void SetFitToDesktop(int32_t on) { fitToDesktop_ = on; }

    std::vector<std::string> calls;
    HWND handleSeen = nullptr;
    HWND handleAtDestroy = nullptr;
    LONG_PTR storedObject = 0;
};

HWND MakeWindow(WndBase& object) {
    return object.Create(0, L"test", WS_POPUP, 10, 20, 100, 80, nullptr);
}

TEST(WndBaseTest, CreateRegistersTheDefaultClass) {
    Recorder window;
    ASSERT_NE(MakeWindow(window), nullptr);
    EXPECT_EQ(std::u16string(window.ClassName().c_str()), u"OrvaWndCls");
    WNDCLASSW wc{};
    ASSERT_TRUE(GetClassInfoW(GetModuleHandleW(nullptr), kDefaultWindowClass, &wc));
    EXPECT_EQ(wc.style, 3u);
    EXPECT_EQ(wc.hbrBackground, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    EXPECT_EQ(wc.lpfnWndProc, &WndBase::StaticWndProc);
}

TEST(WndBaseTest, RegisterKeepsTheClassAndItsStyle) {
    Recorder window;
    HBRUSH black = static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH));
    EXPECT_TRUE(window.Register(kTestClass, CS_DBLCLKS, nullptr, black));
    EXPECT_EQ(std::u16string(window.ClassName().c_str()), u"DdWndBaseTestClass");
    WNDCLASSW wc{};
    ASSERT_TRUE(GetClassInfoW(GetModuleHandleW(nullptr), kTestClass, &wc));
    EXPECT_EQ(wc.style, static_cast<UINT>(CS_DBLCLKS));
    EXPECT_EQ(wc.hbrBackground, black);
    HWND hwnd = MakeWindow(window);
    ASSERT_NE(hwnd, nullptr);
    wchar_t name[64] = {};
    GetClassNameW(hwnd, name, 64);
    EXPECT_STREQ(name, kTestClass);
}

TEST(WndBaseTest, RegisterDoesNothingOnceTheWindowExists) {
    Recorder window;
    ASSERT_NE(MakeWindow(window), nullptr);
    EXPECT_FALSE(window.Register(L"DdOtherClass", 0, nullptr, nullptr));
    EXPECT_EQ(std::u16string(window.ClassName().c_str()), u"OrvaWndCls");
}

TEST(WndBaseTest, ObjectIsAttachedAtTheFirstMessage) {
    Recorder window;
    HWND hwnd = MakeWindow(window);
    ASSERT_NE(hwnd, nullptr);
    ASSERT_GE(window.calls.size(), 2u);
    EXPECT_EQ(window.calls.front(), "WndProc 129");  // WM_NCCREATE, the window's first message
    EXPECT_NE(std::find(window.calls.begin(), window.calls.end(), "WndProc 1"), window.calls.end());
    EXPECT_EQ(window.handleSeen, hwnd);
    EXPECT_EQ(window.storedObject, reinterpret_cast<LONG_PTR>(&window));
    EXPECT_EQ(window.Hwnd(), hwnd);
}

TEST(WndBaseTest, ExtendedStyleIsAlwaysZero) {
    Recorder window;
    HWND hwnd =
        window.Create(WS_EX_TOOLWINDOW | WS_EX_TOPMOST, L"test", WS_POPUP, 0, 0, 50, 50, nullptr);
    ASSERT_NE(hwnd, nullptr);
    LONG_PTR exStyle = GetWindowLongPtrW(hwnd, GWL_EXSTYLE);
    EXPECT_EQ(exStyle & (WS_EX_TOOLWINDOW | WS_EX_TOPMOST), 0);
}

TEST(WndBaseTest, CreatePassesTitlePositionAndSize) {
    Recorder window;
    HWND hwnd = MakeWindow(window);
    ASSERT_NE(hwnd, nullptr);
    RECT r;
    GetWindowRect(hwnd, &r);
    EXPECT_EQ(r.left, 10);
    EXPECT_EQ(r.top, 20);
    EXPECT_EQ(r.right - r.left, 100);
    EXPECT_EQ(r.bottom - r.top, 80);
    wchar_t title[16] = {};
    GetWindowTextW(hwnd, title, 16);
    EXPECT_STREQ(title, L"test");
}

TEST(WndBaseTest, MessagesReachTheObject) {
    Recorder window;
    HWND hwnd = MakeWindow(window);
    ASSERT_NE(hwnd, nullptr);
    window.calls.clear();
    SendMessageW(hwnd, WM_USER, 0, 0);
    ASSERT_EQ(window.calls.size(), 1u);
    EXPECT_EQ(window.calls[0], "WndProc 1024");
}

TEST(WndBaseTest, DestroyDetachesTheHandleAfterWndProc) {
    Recorder window;
    HWND hwnd = MakeWindow(window);
    ASSERT_NE(hwnd, nullptr);
    window.calls.clear();
    DestroyWindow(hwnd);
    ASSERT_FALSE(window.calls.empty());
    EXPECT_EQ(window.calls[0], "WndProc 2");
    EXPECT_EQ(window.handleAtDestroy, hwnd);  // still set while WM_DESTROY runs
    EXPECT_EQ(window.Hwnd(), nullptr);
}

TEST(WndBaseTest, ActivateCallsOnActivateBeforeWndProc) {
    Recorder window;
    HWND hwnd = MakeWindow(window);
    ASSERT_NE(hwnd, nullptr);
    window.calls.clear();
    SendMessageW(hwnd, WM_ACTIVATE, WA_INACTIVE, 0);
    std::vector<std::string> expected{"OnActivate 0", "WndProc 6"};
    EXPECT_EQ(window.calls, expected);
    window.calls.clear();
    SendMessageW(hwnd, WM_ACTIVATE, WA_ACTIVE, 0);  // default processing may activate it again
    expected = {"OnActivate 1", "FitToDesktop", "WndProc 6"};
    ASSERT_GE(window.calls.size(), expected.size());
    window.calls.resize(expected.size());
    EXPECT_EQ(window.calls, expected);
}

TEST(WndBaseTest, SettingChangeCallsOnSettingChangeBeforeWndProc) {
    Recorder window;
    HWND hwnd = MakeWindow(window);
    ASSERT_NE(hwnd, nullptr);
    window.calls.clear();
    SendMessageW(hwnd, WM_SETTINGCHANGE, 0x3002, 0);
    std::vector<std::string> expected{"OnSettingChange 12290", "WndProc 26"};
    EXPECT_EQ(window.calls, expected);
    window.calls.clear();
    SendMessageW(hwnd, WM_SETTINGCHANGE, 224, 0);  // the input panel changed
    expected = {"OnSettingChange 224", "FitToDesktop", "WndProc 26"};
    EXPECT_EQ(window.calls, expected);
}

TEST(WndBaseTest, FitToDesktopLeavesTheWindowWithoutAnInputPanel) {
    Recorder window;
    HWND hwnd = MakeWindow(window);
    ASSERT_NE(hwnd, nullptr);
    window.SetFitToDesktop(1);
    window.FitToDesktop();
    RECT r;
    GetWindowRect(hwnd, &r);
    EXPECT_EQ(r.left, 10);
    EXPECT_EQ(r.top, 20);
    EXPECT_EQ(r.bottom - r.top, 80);
}

TEST(WndBaseTest, DestructorDestroysALiveWindow) {
    HWND hwnd = nullptr;
    {
        Recorder window;
        hwnd = MakeWindow(window);
        ASSERT_NE(hwnd, nullptr);
        EXPECT_TRUE(IsWindow(hwnd));
    }
    EXPECT_FALSE(IsWindow(hwnd));
}

TEST(WndBaseTest, WindowOfAClassWithoutObjectUsesDefaultProcessing) {
    WndBase registrar;
    ASSERT_TRUE(registrar.Register(L"DdNoObjectClass", 0, nullptr, nullptr));
    HWND hwnd = CreateWindowExW(0, L"DdNoObjectClass", L"bare", WS_POPUP, 0, 0, 10, 10, nullptr,
                                nullptr, GetModuleHandleW(nullptr), nullptr);
    ASSERT_NE(hwnd, nullptr);
    EXPECT_EQ(GetWindowLongPtrW(hwnd, GWLP_USERDATA), 0);
    DestroyWindow(hwnd);
}

TEST(WndBaseTest, NcDestroyIsTheLastMessageAndDetachesTheObject) {
    Recorder window;
    HWND hwnd = MakeWindow(window);
    ASSERT_NE(hwnd, nullptr);
    window.calls.clear();
    DestroyWindow(hwnd);
    ASSERT_FALSE(window.calls.empty());
    EXPECT_EQ(window.calls.back(), "WndProc 130");  // WM_NCDESTROY
    EXPECT_EQ(window.storedObject, 0);              // the slot is cleared before the object sees it
    EXPECT_EQ(window.Hwnd(), nullptr);
}

TEST(WndBaseTest, DerivedDestroyHandlerRunsWhenTheParentIsDestroyed) {
    Recorder parent;
    HWND parentHwnd = MakeWindow(parent);
    ASSERT_NE(parentHwnd, nullptr);
    Recorder child;
    ASSERT_NE(child.Create(0, L"child", WS_CHILD, 0, 0, 10, 10, parentHwnd), nullptr);
    child.calls.clear();
    DestroyWindow(parentHwnd);
    EXPECT_NE(std::find(child.calls.begin(), child.calls.end(), "WndProc 2"), child.calls.end());
    EXPECT_EQ(child.Hwnd(), nullptr);
}

// A window object that deletes itself in its WM_DESTROY handler, as one-use windows do.
class SelfDeleting : public WndBase {
  public:
    LRESULT WndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_DESTROY) {
            delete this;
            return 0;
        }
        return WndBase::WndProc(hwnd, message, wParam, lParam);
    }
};

TEST(WndBaseTest, ObjectDeletedBeforeItsWindowNeverSeesAnotherMessage) {
    auto* window = new SelfDeleting();
    HWND hwnd = MakeWindow(*window);
    ASSERT_NE(hwnd, nullptr);
    LastMessageWatch watch(hwnd, GWLP_USERDATA);
    ASSERT_TRUE(watch.Hooked());
    DestroyWindow(hwnd);  // WM_DESTROY deletes the object; WM_NCDESTROY still follows
    EXPECT_EQ(watch.SlotAtLastMessage(), 0);  // the dead object is no longer named by its window
    EXPECT_FALSE(IsWindow(hwnd));
}

TEST(WndBaseTest, DestructorDetachesBeforeDestroying) {
    HWND hwnd = nullptr;
    LastMessageWatch watch(nullptr, GWLP_USERDATA);
    ASSERT_TRUE(watch.Hooked());
    {
        Recorder window;
        hwnd = MakeWindow(window);
        ASSERT_NE(hwnd, nullptr);
        watch.Watch(hwnd);
    }
    EXPECT_EQ(watch.SlotAtLastMessage(), 0);
    EXPECT_FALSE(IsWindow(hwnd));
}

}  // namespace
