// Screenshots of the picker as a person sees it, at 240 x 320 and 480 x 640, with a Latin and a
// Cyrillic keypad: the list at rest, narrowed by typed digits with the matched letters
// highlighted, a contact's numbers, and the list in the middle of a fling.
#include <gtest/gtest.h>

#include <string>

#include "HostileServiceCalls.h"
#include "PickerWinSupport.h"
#include "ScreenShot.h"
#include "base/Alert.h"
#include "keypad/KeypadLayout.h"
#include "phone/NumberTemplates.h"
#include "service/AddressBookGenerator.h"
#include "testing/ManualTimers.h"
#include "testing/WindowTestKit.h"

namespace {

int QuietAlert(const char16_t*, const char16_t*, uint32_t) {
    return kAlertAnswerOk;
}

/// Fake time that also photographs the screen at one frame of an animation: the `frame`-th
/// wait of a frame's pace (the fling's), when the frame before it is on the screen.
class FrameCamera : public WindowTimers {
  public:
    FrameCamera(ManualTimers& clock, HWND window, int frame)
        : clock_(clock), window_(window), frame_(frame), previous_(InstallTimers(this)) {}
    ~FrameCamera() override { InstallTimers(previous_); }
    FrameCamera(const FrameCamera&) = delete;
    FrameCamera& operator=(const FrameCamera&) = delete;

    bool Start(HWND window, UINT_PTR id, UINT ms) override { return clock_.Start(window, id, ms); }
    void Stop(HWND window, UINT_PTR id) override { clock_.Stop(window, id); }
    uint32_t Now() const override { return clock_.Now(); }
    void WaitUntil(uint32_t when) override {
        if (++waits_ == frame_)
            shot::CaptureClient(window_, photo);
        clock_.WaitUntil(when);
    }

    shot::Image photo;
    int Waits() const { return waits_; }

  private:
    ManualTimers& clock_;
    HWND window_;
    int frame_;
    int waits_ = 0;
    WindowTimers* previous_;
};

void Pump() {
    MSG msg;
    while (PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&msg);
        DispatchMessageW(&msg);
    }
}

void Repaint(HWND window) {
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
    Pump();
}

void TypeDigits(HWND dialog, const char* digits) {
    for (const char* d = digits; *d != 0; ++d)
        SendMessageW(dialog, WM_KEYDOWN, static_cast<WPARAM>(*d), 1);
}

/// Pixels of `colour` inside `area` of the image.
int CountColour(const shot::Image& image, const RECT& area, COLORREF colour) {
    int n = 0;
    for (int y = area.top; y < area.bottom; ++y) {
        for (int x = area.left; x < area.right; ++x)
            n += image.At(x, y) == colour ? 1 : 0;
    }
    return n;
}

RECT InDialog(HWND child, HWND dialog, const RECT& rect) {
    RECT r = rect;
    MapWindowPoints(child, dialog, reinterpret_cast<POINT*>(&r), 2);
    return r;
}

struct Scene {
    device::Profile profile;
    int keypadType;      ///< "ABC" Type: 1 Latin, 2 Cyrillic
    const char* digits;  ///< typed to narrow the list to names in the keypad's script
    uint32_t several;    ///< a contact with several numbers among the narrowed ones
    const wchar_t* name;
};

class PickerScreenshotTest : public ::testing::TestWithParam<Scene> {
  protected:
    void SetUp() override { previousAlert_ = SetAlertHandler(&QuietAlert); }
    void TearDown() override { SetAlertHandler(previousAlert_); }
    AlertHandler previousAlert_ = nullptr;
};

TEST_P(PickerScreenshotTest, RestTypedNumbersAndMidFling) {
    const Scene& scene = GetParam();
    TestScreen screen(scene.profile);
    KeypadSetting setting(scene.keypadType);
    InProcessService service;
    std::vector<ServiceContact> book = GenerateAddressBook(400, 3);
    for (ServiceContact& c : KnownBook()) {
        c.oid += 100000;
        book.push_back(c);
    }
    service.service.SetContacts(book);
    KeypadLayout layout;
    layout.Load(scene.keypadType);
    service.service.SetLayout(layout);
    NumberTemplates templates;
    templates.LoadDefaults();
    PickerRequest request;
    request.templates = &templates;
    request.look = screen.SkinLook();

    DrivenPicker picker(request, service.client);
    HWND dialog = picker.CreateModeless(screen.Board(), true);
    ASSERT_NE(dialog, nullptr);
    const std::wstring base = std::wstring(L"picker-") + scene.name;

    // At rest, every contact.
    Repaint(dialog);
    shot::Image rest;
    ASSERT_TRUE(shot::CaptureClient(dialog, rest));
    SaveShot(rest, base + L"-rest");

    // Typed digits: the list narrows and the matched letters are highlighted.
    TypeDigits(dialog, scene.digits);
    Repaint(dialog);
    shot::Image typed;
    ASSERT_TRUE(shot::CaptureClient(dialog, typed));
    SaveShot(typed, base + L"-typed");
    ASSERT_GT(picker.List().ItemCount(), 0);
    EXPECT_LT(picker.List().ItemCount(), static_cast<int>(book.size()));
    const RECT firstRow = InDialog(picker.List().Hwnd(), dialog, picker.List().GetRowRect(0));
    EXPECT_GT(CountColour(typed, firstRow, GetSysColor(COLOR_HIGHLIGHT)), 0)
        << "a matched run is drawn in the highlight colour";

    // A contact's numbers.
    const int index = ResultIndex(picker.Model(), scene.several + 100000);
    ASSERT_GE(index, 0);
    picker.List().SetSelection(index, false);
    SendMessageW(dialog, WM_COMMAND, IDOK, 0);
    ASSERT_TRUE(picker.Model().InNumbers());
    Repaint(dialog);
    shot::Image numbers;
    ASSERT_TRUE(shot::CaptureClient(dialog, numbers));
    SaveShot(numbers, base + L"-numbers");

    // Back to every contact, then a flick upward photographed in its third frame.
    SendMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    TypeDigits(dialog, "1111111");
    ASSERT_TRUE(picker.Model().LastSearched().IsEmpty());
    Repaint(dialog);
    {
        ManualTimers clock(1000);
        FrameCamera camera(clock, dialog, 3);
        HWND list = picker.List().Hwnd();
        RECT client{};
        GetClientRect(list, &client);
        const int x = client.right / 2;
        int y = client.bottom - 4;
        SendMessageW(list, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
        for (int i = 0; i < 6; ++i) {
            clock.Advance(15);
            y -= client.bottom / 10;
            SendMessageW(list, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(x, y));
        }
        clock.Advance(10);
        SendMessageW(list, WM_LBUTTONUP, 0, MAKELPARAM(x, y));
        Pump();
        for (int i = 0; i < 400 && camera.Waits() < 3; ++i) {
            clock.Advance(20);
            Pump();
        }
        ASSERT_GE(camera.Waits(), 3) << "the fling ran frames";
        ASSERT_GT(camera.photo.width, 0);
        SaveShot(camera.photo, base + L"-fling");
        for (int i = 0; i < 400; ++i) {
            clock.Advance(50);
            Pump();
        }
    }
    EXPECT_GT(picker.List().Offset(), 0) << "the fling moved the list on";
    Repaint(dialog);
    shot::Image after;
    ASSERT_TRUE(shot::CaptureClient(dialog, after));
    SaveShot(after, base + L"-after-fling");
}

INSTANTIATE_TEST_SUITE_P(Screens, PickerScreenshotTest,
                         ::testing::Values(Scene{kQvga, 1, "373", 10, L"qvga-latin"},
                                           Scene{kVga, 1, "373", 10, L"vga-latin"},
                                           Scene{kQvga, 2, "53665", 50, L"qvga-cyrillic"},
                                           Scene{kVga, 2, "53665", 50, L"vga-cyrillic"}),
                         [](const ::testing::TestParamInfo<Scene>& param) {
                             std::string name;
                             for (const wchar_t* c = param.param.name; *c != 0; ++c)
                                 name += *c == L'-' ? '_' : static_cast<char>(*c);
                             return name;
                         });

}  // namespace
