#include "win/DialogBase.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "TestDialogs.h"
#include "base/ScreenInfo.h"
#include "platform/DeviceProfile.h"
#include "testing/WindowTestKit.h"
#include "win/WindowTimers.h"
#include "win/WndBase.h"

namespace {

constexpr UINT kEndWith = WM_APP;  // wParam: the end code
// A modal loop that never ends fails its test with this code instead of hanging it.
constexpr UINT_PTR kSafetyTimer = 99;
constexpr UINT kSafetyMs = 5000;
constexpr int kNeverEnded = -99;

// Records the members the base calls, in order; runs a test's action at WM_INITDIALOG.
class Probe : public DialogBase {
  public:
    explicit Probe(int templateId = IDD_TEST_PLAIN) : DialogBase(templateId) {}

    INT_PTR DlgProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) override {
        switch (message) {
            case WM_SETFONT:
                calls.push_back("WM_SETFONT");
                break;
            case WM_TIMER:
                if (wParam == kSafetyTimer)
                    End(kNeverEnded);
                break;
            case WM_SHOWWINDOW:
                shown = shown || wParam != FALSE;
                break;
            case kEndWith:
                if (watchedOwner != nullptr)
                    ownerEnabledWhileOpen = IsWindowEnabled(watchedOwner) != FALSE;
                End(static_cast<int>(wParam));
                return TRUE;
            default:
                break;
        }
        return DialogBase::DlgProc(hwnd, message, wParam, lParam);
    }
    bool OnInitDialog(HWND focus) override {
        calls.push_back("OnInitDialog");
        SetTimer(Hwnd(), kSafetyTimer, kSafetyMs, nullptr);
        if (onInit)
            onInit(*this);
        return DialogBase::OnInitDialog(focus);
    }
    bool OnCommand(int id, int notifyCode, HWND control) override {
        calls.push_back("OnCommand " + std::to_string(id));
        return DialogBase::OnCommand(id, notifyCode, control);
    }
    void OnSize(int width, int height) override {
        calls.push_back("OnSize " + std::to_string(width) + "x" + std::to_string(height));
        DialogBase::OnSize(width, height);
    }
    void OnDestroy() override {
        calls.push_back("OnDestroy");
        if (watchedOwner != nullptr)
            ownerEnabledAtDestroy = IsWindowEnabled(watchedOwner) != FALSE;
    }
    using DialogBase::TakeOwnerCaption;
    HWND Edit() const { return GetDlgItem(Hwnd(), IDC_TEST_EDIT); }
    bool Saw(const std::string& call) const {
        for (const std::string& c : calls) {
            if (c == call)
                return true;
        }
        return false;
    }

    std::function<void(Probe&)> onInit;
    std::vector<std::string> calls;
    HWND watchedOwner = nullptr;
    bool ownerEnabledWhileOpen = true;
    bool ownerEnabledAtDestroy = false;
    bool shown = false;
};

// The board's stand-in: a top-level window that can end a dialog from its own messages.
class Owner : public WndBase {
  public:
    LRESULT WndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) override {
        if ((message == WM_TIMER || message == WM_USER) && dialog != nullptr) {
            Timers().Stop(hwnd, 1);
            dialog->End(message == WM_TIMER ? 9 : 8);
            return 0;
        }
        return WndBase::WndProc(hwnd, message, wParam, lParam);
    }
    HWND Make() { return Create(0, L"owner title", WS_POPUP, 0, 0, 50, 50, nullptr); }
    DialogBase* dialog = nullptr;
};

// Puts the emulated screen back after a test picked one.
class ScreenGuard {
  public:
    ScreenGuard() : profile_(device::CurrentProfile()), screen_(Screen()) {}
    ~ScreenGuard() {
        device::SetCurrentProfile(profile_);
        SetScreen(screen_);
    }
    static void Pick(const device::Profile& profile) {
        device::SetCurrentProfile(profile);
        SetScreen(ComputeScreenInfo(profile.dpi, profile.dpi, profile.width, profile.height));
    }

  private:
    device::Profile profile_;
    ScreenInfo screen_;
};

TEST(DialogBaseTest, ModalReturnsTheCodeGivenToEnd) {
    for (int code : {7, 1, 2}) {
        Owner owner;
        ASSERT_NE(owner.Make(), nullptr);
        Probe dialog;
        dialog.watchedOwner = owner.Hwnd();
        dialog.onInit = [code](Probe& d) { PostMessageW(d.Hwnd(), kEndWith, code, 0); };
        EXPECT_EQ(dialog.RunModal(owner.Hwnd()), code);
        EXPECT_FALSE(dialog.ownerEnabledWhileOpen);
        EXPECT_TRUE(dialog.ownerEnabledAtDestroy);  // enabled before the dialog went
        EXPECT_TRUE(IsWindowEnabled(owner.Hwnd()));
        EXPECT_EQ(dialog.Hwnd(), nullptr);
        EXPECT_FALSE(dialog.IsModal());
        EXPECT_TRUE(dialog.Saw("OnDestroy"));
        EXPECT_TRUE(dialog.shown);
    }
}

TEST(DialogBaseTest, PostedOkAndCancelEndWithOneAndTwo) {
    for (int id : {IDOK, IDCANCEL}) {
        Probe dialog;
        dialog.onInit = [id](Probe& d) { PostMessageW(d.Hwnd(), WM_COMMAND, id, 0); };
        EXPECT_EQ(dialog.RunModal(nullptr), id == IDOK ? 1 : 2);
        EXPECT_TRUE(dialog.Saw("OnCommand " + std::to_string(id)));
    }
}

TEST(DialogBaseTest, OtherWindowsMessagesAndTimersFlowWhileModal) {
    Owner owner;
    ASSERT_NE(owner.Make(), nullptr);
    Probe dialog;
    owner.dialog = &dialog;
    dialog.onInit = [&owner](Probe&) { PostMessageW(owner.Hwnd(), WM_USER, 0, 0); };
    EXPECT_EQ(dialog.RunModal(owner.Hwnd()), 8);

    Probe timed;
    owner.dialog = &timed;
    timed.onInit = [&owner](Probe&) { Timers().Start(owner.Hwnd(), 1, 10); };
    EXPECT_EQ(timed.RunModal(owner.Hwnd()), 9);
}

TEST(DialogBaseTest, EscapeAndEnterInAControlEndTheModalDialog) {
    Probe cancelled;
    cancelled.onInit = [](Probe& d) { PostMessageW(d.Edit(), WM_KEYDOWN, VK_ESCAPE, 0); };
    EXPECT_EQ(cancelled.RunModal(nullptr), 2);
    EXPECT_TRUE(cancelled.Saw("OnCommand 2"));

    Probe accepted;
    accepted.onInit = [](Probe& d) { PostMessageW(d.Edit(), WM_KEYDOWN, VK_RETURN, 0); };
    EXPECT_EQ(accepted.RunModal(nullptr), 1);
    EXPECT_TRUE(accepted.Saw("OnCommand 1"));
}

TEST(DialogBaseTest, EndDuringInitDialogNeverShowsTheDialog) {
    Probe dialog;
    dialog.onInit = [](Probe& d) { d.End(4); };
    EXPECT_EQ(dialog.RunModal(nullptr), 4);
    EXPECT_TRUE(dialog.Saw("OnDestroy"));
    EXPECT_FALSE(dialog.shown);
}

TEST(DialogBaseTest, QuitEndsTheModalLoopAndIsPostedAgain) {
    Probe dialog;
    dialog.onInit = [](Probe&) { PostQuitMessage(3); };
    EXPECT_EQ(dialog.RunModal(nullptr), 0);
    EXPECT_EQ(dialog.Hwnd(), nullptr);
    MSG msg;
    ASSERT_TRUE(PeekMessageW(&msg, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(msg.wParam, 3u);
}

TEST(DialogBaseTest, MissingTemplateFails) {
    Probe dialog(IDD_TEST_MISSING);
    EXPECT_EQ(dialog.RunModal(nullptr), -1);
    EXPECT_EQ(dialog.CreateModeless(nullptr, false), nullptr);
    EXPECT_TRUE(dialog.calls.empty());
}

TEST(DialogBaseTest, ModelessMessagesReachNamedMembersFromTheFirst) {
    Probe dialog;
    HWND hwnd = dialog.CreateModeless(nullptr, false);
    ASSERT_NE(hwnd, nullptr);
    EXPECT_EQ(dialog.Hwnd(), hwnd);
    EXPECT_FALSE(dialog.IsModal());
    EXPECT_FALSE(IsWindowVisible(hwnd));
    ASSERT_GE(dialog.calls.size(), 2u);
    EXPECT_EQ(dialog.calls[0], "WM_SETFONT");  // before WM_INITDIALOG brings the parameter
    EXPECT_TRUE(dialog.Saw("OnInitDialog"));
    EXPECT_EQ(GetWindowLongPtrW(hwnd, DWLP_USER), reinterpret_cast<LONG_PTR>(&dialog));
    EXPECT_EQ(dialog.CreateModeless(nullptr, false), nullptr);  // one window per object
    EXPECT_EQ(dialog.RunModal(nullptr), -1);

    dialog.calls.clear();
    SendMessageW(hwnd, WM_COMMAND, MAKEWPARAM(42, 0), 0);
    SendMessageW(hwnd, WM_SIZE, SIZE_RESTORED, MAKELPARAM(100, 60));
    std::vector<std::string> expected{"OnCommand 42", "OnSize 100x60"};
    EXPECT_EQ(dialog.calls, expected);
    EXPECT_TRUE(IsWindow(hwnd));  // an unknown command leaves it open
}

TEST(DialogBaseTest, ModelessShownWhenAsked) {
    Probe dialog;
    HWND hwnd = dialog.CreateModeless(nullptr, true);
    ASSERT_NE(hwnd, nullptr);
    EXPECT_TRUE(IsWindowVisible(hwnd));
}

TEST(DialogBaseTest, ModelessEndDestroysItAndKeepsTheCode) {
    Probe dialog;
    HWND hwnd = dialog.CreateModeless(nullptr, false);
    ASSERT_NE(hwnd, nullptr);
    SendMessageW(hwnd, WM_COMMAND, IDCANCEL, 0);
    EXPECT_FALSE(IsWindow(hwnd));
    EXPECT_EQ(dialog.EndCode(), 2);
    EXPECT_EQ(dialog.Hwnd(), nullptr);
    EXPECT_TRUE(dialog.Saw("OnDestroy"));
    // The object can open its dialog again.
    ASSERT_NE(dialog.CreateModeless(nullptr, false), nullptr);
    EXPECT_EQ(dialog.EndCode(), 0);
}

TEST(DialogBaseTest, ObjectDestroyedFirstIsDetachedBeforeTheWindowGoes) {
    HWND hwnd = nullptr;
    LastMessageWatch watch(nullptr, DWLP_USER);
    ASSERT_TRUE(watch.Hooked());
    {
        Probe dialog;
        hwnd = dialog.CreateModeless(nullptr, false);
        ASSERT_NE(hwnd, nullptr);
        watch.Watch(hwnd);
    }
    EXPECT_EQ(watch.SlotAtLastMessage(), 0);  // no message after the object died could reach it
    EXPECT_FALSE(IsWindow(hwnd));
}

// A dialog object that deletes itself when its window goes, as one-use panels do.
class SelfDeleting : public Probe {
  public:
    void OnDestroy() override { delete this; }
};

TEST(DialogBaseTest, ObjectDeletedInItsDestroyHandlerSeesNoLaterMessage) {
    auto* dialog = new SelfDeleting();
    HWND hwnd = dialog->CreateModeless(nullptr, false);
    ASSERT_NE(hwnd, nullptr);
    LastMessageWatch watch(hwnd, DWLP_USER);
    ASSERT_TRUE(watch.Hooked());
    DestroyWindow(hwnd);
    EXPECT_EQ(watch.SlotAtLastMessage(), 0);
    EXPECT_FALSE(IsWindow(hwnd));
}

TEST(DialogBaseTest, WindowDestroyedFirstLeavesTheObjectWithoutIt) {
    Probe dialog;
    HWND hwnd = dialog.CreateModeless(nullptr, false);
    ASSERT_NE(hwnd, nullptr);
    DestroyWindow(hwnd);
    EXPECT_EQ(dialog.Hwnd(), nullptr);
    EXPECT_TRUE(dialog.Saw("OnDestroy"));
    MSG msg{};
    msg.hwnd = hwnd;
    msg.message = WM_KEYDOWN;
    msg.wParam = VK_ESCAPE;
    EXPECT_FALSE(DialogBase::RouteDialogMessage(msg));  // no longer an open dialog
}

TEST(DialogBaseTest, FullScreenAreaIsTheBoardsArea) {
    EXPECT_EQ(DialogBase::FullScreenAreaOf(240, 320, 96), (Rect{0, 26, 240, 320}));
    EXPECT_EQ(DialogBase::FullScreenAreaOf(480, 640, 192), (Rect{0, 52, 480, 640}));
    EXPECT_EQ(DialogBase::FullScreenAreaOf(640, 480, 192), (Rect{0, 52, 640, 480}));
}

struct Placement {
    device::Profile profile;
    Rect window;
    Rect content;
    Rect softKeys;
};

TEST(DialogBaseTest, DialogFillsTheBoardsAreaOfEachProfile) {
    const Placement placements[] = {
        {{240, 320, 96}, {0, 26, 240, 320}, {0, 0, 240, 268}, {0, 268, 240, 294}},
        {{480, 640, 192}, {0, 52, 480, 640}, {0, 0, 480, 536}, {0, 536, 480, 588}},
    };
    for (const Placement& p : placements) {
        ScreenGuard guard;
        ScreenGuard::Pick(p.profile);
        EXPECT_EQ(DialogBase::FullScreenArea(), p.window);
        Probe dialog;
        HWND hwnd = dialog.CreateModeless(nullptr, false);
        ASSERT_NE(hwnd, nullptr);
        RECT r;
        GetWindowRect(hwnd, &r);
        EXPECT_EQ((Rect{r.left, r.top, r.right, r.bottom}), p.window);
        GetClientRect(hwnd, &r);  // the desktop's caption and frame are gone
        EXPECT_EQ(r.right, p.window.Width());
        EXPECT_EQ(r.bottom, p.window.Height());
        EXPECT_EQ(GetWindowLongPtrW(hwnd, GWL_STYLE) & WS_CAPTION, 0);
        EXPECT_EQ(dialog.ContentArea(), p.content);
        EXPECT_EQ(dialog.SoftKeyArea(), p.softKeys);
    }
}

Rect ChildRect(HWND child) {
    RECT r;
    GetWindowRect(child, &r);
    MapWindowPoints(nullptr, GetParent(child), reinterpret_cast<POINT*>(&r), 2);
    return Rect{r.left, r.top, r.right, r.bottom};
}

TEST(DialogBaseTest, SoftKeyStripStaysDockedInTheBottomBand) {
    ScreenGuard guard;
    ScreenGuard::Pick({240, 320, 96});
    Probe dialog;
    HWND hwnd = dialog.CreateModeless(nullptr, false);
    ASSERT_NE(hwnd, nullptr);
    HWND strip = dialog.SoftKeys().Hwnd();
    ASSERT_NE(strip, nullptr);  // the OK / Cancel keys of the program's menu
    EXPECT_EQ(GetParent(strip), hwnd);
    EXPECT_EQ(dialog.SoftKeys().Command(0), static_cast<uint32_t>(IDOK));
    EXPECT_EQ(dialog.SoftKeys().Command(1), static_cast<uint32_t>(IDCANCEL));
    EXPECT_EQ(ChildRect(strip), (Rect{0, 268, 240, 294}));
    SetWindowPos(hwnd, nullptr, 0, 26, 200, 150, SWP_NOZORDER | SWP_NOACTIVATE);
    EXPECT_EQ(ChildRect(strip), (Rect{0, 124, 200, 150}));
    EXPECT_EQ(dialog.ContentArea(), (Rect{0, 0, 200, 124}));
}

TEST(DialogBaseTest, ADialogWithoutSoftKeysHasNoStrip) {
    class NoKeys : public DialogBase {
      public:
        NoKeys() : DialogBase(IDD_TEST_PLAIN, 0) {}
    };
    NoKeys dialog;
    HWND hwnd = dialog.CreateModeless(nullptr, false);
    ASSERT_NE(hwnd, nullptr);
    EXPECT_EQ(dialog.SoftKeys().Hwnd(), nullptr);
    EXPECT_EQ(FindWindowExW(hwnd, nullptr, nullptr, nullptr), GetDlgItem(hwnd, IDC_TEST_EDIT));
}

// Taps a soft key as a person would: stylus down and up in the middle of the key.
void TapSoftKey(SoftKeyStrip& strip, int index) {
    const Rect key = strip.ButtonRect(index);
    const LPARAM at = MAKELPARAM((key.left + key.right) / 2, (key.top + key.bottom) / 2);
    PostMessageW(strip.Hwnd(), WM_LBUTTONDOWN, MK_LBUTTON, at);
    PostMessageW(strip.Hwnd(), WM_LBUTTONUP, 0, at);
}

TEST(DialogBaseTest, SoftKeysEndTheModalDialogWithOkAndCancel) {
    ScreenGuard guard;
    ScreenGuard::Pick({480, 640, 192});
    for (int key : {0, 1}) {
        Owner owner;
        ASSERT_NE(owner.Make(), nullptr);
        Probe dialog;
        dialog.onInit = [key](Probe& d) { TapSoftKey(d.SoftKeys(), key); };
        EXPECT_EQ(dialog.RunModal(owner.Hwnd()), key == 0 ? IDOK : IDCANCEL);
        EXPECT_TRUE(dialog.Saw("OnCommand " + std::to_string(key == 0 ? IDOK : IDCANCEL)));
    }
}

TEST(DialogBaseTest, TakeOwnerCaptionCopiesTheTopLevelOwnersTitle) {
    Owner owner;
    ASSERT_NE(owner.Make(), nullptr);
    Probe dialog;
    dialog.onInit = [](Probe& d) { SetWindowTextW(d.Hwnd(), L"before"); };
    HWND hwnd = dialog.CreateModeless(owner.Hwnd(), false);
    ASSERT_NE(hwnd, nullptr);
    Probe second;  // owned by the first dialog: the caption still comes from the top
    second.onInit = [](Probe& d) { d.TakeOwnerCaption(); };
    HWND secondHwnd = second.CreateModeless(hwnd, false);
    ASSERT_NE(secondHwnd, nullptr);
    wchar_t caption[32] = {};
    GetWindowTextW(secondHwnd, caption, 32);
    EXPECT_STREQ(caption, L"owner title");
}

TEST(DialogBaseTest, ModelessDialogTakesEscapeThroughRouteDialogMessage) {
    Probe dialog;
    HWND hwnd = dialog.CreateModeless(nullptr, false);
    ASSERT_NE(hwnd, nullptr);
    MSG msg{};
    msg.hwnd = dialog.Edit();
    msg.message = WM_KEYDOWN;
    msg.wParam = VK_ESCAPE;
    EXPECT_TRUE(DialogBase::RouteDialogMessage(msg));
    EXPECT_FALSE(IsWindow(hwnd));
    EXPECT_EQ(dialog.EndCode(), 2);

    Owner other;
    ASSERT_NE(other.Make(), nullptr);
    msg.hwnd = other.Hwnd();
    EXPECT_FALSE(DialogBase::RouteDialogMessage(msg));  // not a dialog's window
}

}  // namespace
