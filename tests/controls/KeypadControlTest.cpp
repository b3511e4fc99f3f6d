// The keypad control under Wine with plain colours and fake time: taps, slides, the backspace
// hold, hardware keys, the pulse, the pressed look and the labels, and screenshots of Latin and
// Cyrillic layouts at the two screen sizes.
#include "controls/KeypadControl.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include "ScreenShot.h"
#include "base/ScreenInfo.h"
#include "controls/KeypadGeometry.h"
#include "keypad/KeypadLayout.h"
#include "testing/ManualTimers.h"
#include "testing/WindowTestKit.h"
#include "win/Gdi.h"

namespace {

constexpr COLORREF kBackground = RGB(250, 248, 240);
constexpr COLORREF kText = RGB(20, 20, 20);
constexpr COLORREF kPressedBackground = RGB(0, 90, 200);
constexpr COLORREF kPressedText = RGB(255, 255, 255);
constexpr COLORREF kSecondRow = RGB(200, 60, 0);

std::vector<uint32_t> gPulses;

void RecordPulse(uint32_t ms) {
    gPulses.push_back(ms);
}

/// Records every typed-digit string it hears.
class Recorder : public KeypadListener {
  public:
    void OnDigitsChanged(const Str& typed) override {
        heard.emplace_back(reinterpret_cast<const wchar_t*>(typed.c_str()));
    }
    std::vector<std::wstring> heard;
};

/// A font of `points` at the vertical resolution, drawn without smoothing so that text pixels
/// carry exactly the text colour.
HFONT MakeFont(int points, int dpi, bool bold) {
    LOGFONTW lf{};
    lf.lfHeight = -static_cast<LONG>(dpi * points / 72.0 + 0.5);
    lf.lfWeight = bold ? FW_BOLD : FW_NORMAL;
    lf.lfCharSet = DEFAULT_CHARSET;
    lf.lfQuality = NONANTIALIASED_QUALITY;
    lstrcpyW(lf.lfFaceName, L"Tahoma");
    return CreateFontIndirectW(&lf);
}

/// Pixels of `rect` in the image that have the colour.
int CountColour(const shot::Image& image, const Rect& rect, COLORREF colour) {
    int count = 0;
    for (int y = rect.top; y < rect.bottom; ++y) {
        for (int x = rect.left; x < rect.right; ++x) {
            if (image.At(x, y) == colour)
                ++count;
        }
    }
    return count;
}

/// Rows of `rect` that hold at least one pixel of the colour: first and last, or -1.
std::pair<int, int> RowsWithColour(const shot::Image& image, const Rect& rect, COLORREF colour) {
    int first = -1;
    int last = -1;
    for (int y = rect.top; y < rect.bottom; ++y) {
        for (int x = rect.left; x < rect.right; ++x) {
            if (image.At(x, y) == colour) {
                if (first < 0)
                    first = y;
                last = y;
                break;
            }
        }
    }
    return {first, last};
}

Array<Str> Texts(std::initializer_list<const char16_t*> texts) {
    Array<Str> out;
    for (const char16_t* text : texts)
        out.Add(Str(text));
    return out;
}

class KeypadControlTest : public ::testing::Test {
  protected:
    /// A keypad of width x height at `dpi` with the given layout row (0: five short keys).
    void Make(int width, int height, int dpi, int layoutRow) {
        SetScreen(ComputeScreenInfo(dpi, dpi, width == 480 ? 480 : 240, width == 480 ? 640 : 320));
        font_.Reset(MakeFont(9, dpi, true));
        secondFont_.Reset(MakeFont(7, dpi, false));
        KeypadLook look;
        look.background = kBackground;
        look.text = kText;
        look.pressedBackground = kPressedBackground;
        look.pressedText = kPressedText;
        look.secondRowText = kSecondRow;
        look.font = font_.get();
        look.secondFont = secondFont_.get();
        keypad_.SetLook(look);
        keypad_.SetListener(&recorder_);
        keypad_.SetPulseRequester(&RecordPulse);
        keypad_.SetFeedback(true, 50);
        if (layoutRow > 0) {
            KeypadLayout layout;
            ASSERT_TRUE(layout.Load(layoutRow));
            keypad_.SetLabels(layout.labels, layout.subLabels, layout.hasSubLabels);
        } else {
            keypad_.SetLabels(Texts({u"ABC", u"DEF", u"GHI", u"JKL", u"MNO"}), Array<Str>(), false);
        }
        if (keypad_.Hwnd() != nullptr)
            DestroyWindow(keypad_.Hwnd());
        ASSERT_NE(keypad_.Create(parent_->Hwnd(), 0, 0, width, height), nullptr);
        client_ = Rect{0, 0, width, height};
    }

    // One parent for the whole suite: destroying a visible top-level window costs Wine seconds.
    static void SetUpTestSuite() { parent_ = new CommandParent(480, 320); }
    static void TearDownTestSuite() {
        delete parent_;
        parent_ = nullptr;
    }
    void SetUp() override {
        gPulses.clear();
        Make(300, 150, 96, 1);
    }

    Rect Cell(int key) const { return KeyCell(client_, key); }
    Point Centre(int key) const {
        const Rect c = Cell(key);
        return Point{(c.left + c.right) / 2, (c.top + c.bottom) / 2};
    }
    void Send(UINT message, Point p) {
        SendMessageW(keypad_.Hwnd(), message, message == WM_LBUTTONDOWN ? MK_LBUTTON : 0,
                     MAKELPARAM(p.x, p.y));
    }
    void Tap(int key) {
        Send(WM_LBUTTONDOWN, Centre(key));
        Send(WM_LBUTTONUP, Centre(key));
    }
    void Type(const char* digits) {
        for (const char* d = digits; *d != 0; ++d)
            SendMessageW(keypad_.Hwnd(), WM_KEYDOWN, static_cast<WPARAM>(*d), 0);
    }
    /// Forgets what the listener and the pulse requester heard so far.
    void Forget() {
        recorder_.heard.clear();
        gPulses.clear();
    }
    std::wstring Typed() const { return reinterpret_cast<const wchar_t*>(keypad_.Typed().c_str()); }
    shot::Image Print() { return PrintClient(keypad_.Hwnd()); }
    bool Armed() const { return timers_.IsArmed(keypad_.Hwnd(), KeypadControl::kRepeatTimer); }

    ManualTimers timers_;
    static inline CommandParent* parent_ = nullptr;
    gdi::Object<HFONT> font_;
    gdi::Object<HFONT> secondFont_;
    Recorder recorder_;
    KeypadControl keypad_;
    Rect client_;
};

TEST_F(KeypadControlTest, TapsTypeDigitsAndTellTheListener) {
    Tap(4);
    Tap(8);
    Tap(1);
    EXPECT_EQ(Typed(), L"592");
    EXPECT_EQ(recorder_.heard, (std::vector<std::wstring>{L"5", L"59", L"592"}));
    EXPECT_EQ(gPulses, (std::vector<uint32_t>{50, 50, 50}));
    EXPECT_EQ(keypad_.PressedKey(), -1);
    EXPECT_NE(GetCapture(), keypad_.Hwnd());
}

TEST_F(KeypadControlTest, PressCapturesAndHoldsTheKey) {
    Send(WM_LBUTTONDOWN, Centre(4));
    EXPECT_EQ(keypad_.PressedKey(), 4);
    EXPECT_EQ(GetCapture(), keypad_.Hwnd());
    EXPECT_FALSE(Armed());  // only the backspace has a hold
    EXPECT_TRUE(recorder_.heard.empty());
    Send(WM_LBUTTONUP, Centre(4));
}

TEST_F(KeypadControlTest, PressOffEveryKeyDoesNothing) {
    Make(302, 152, 96, 1);
    Send(WM_LBUTTONDOWN, Point{301, 20});  // the unused pixels right of the last column
    EXPECT_EQ(keypad_.PressedKey(), -1);
    EXPECT_NE(GetCapture(), keypad_.Hwnd());
    Send(WM_LBUTTONUP, Point{301, 20});
    EXPECT_TRUE(Typed().empty());
    EXPECT_TRUE(gPulses.empty());
}

TEST_F(KeypadControlTest, SlideOffFiveAndReleaseOutsideDoesNothing) {
    Type("23");
    Forget();
    Send(WM_LBUTTONDOWN, Centre(4));
    Send(WM_MOUSEMOVE, Centre(5));
    Send(WM_LBUTTONUP, Point{400, 140});  // outside the keypad altogether
    EXPECT_EQ(Typed(), L"23");
    EXPECT_TRUE(recorder_.heard.empty());
    EXPECT_TRUE(gPulses.empty());
    EXPECT_EQ(keypad_.PressedKey(), -1);
    EXPECT_NE(GetCapture(), keypad_.Hwnd());
}

TEST_F(KeypadControlTest, ReleaseOnAnotherKeyDoesNotTypeIt) {
    Send(WM_LBUTTONDOWN, Centre(4));
    Send(WM_MOUSEMOVE, Centre(7));
    Send(WM_LBUTTONUP, Centre(7));
    EXPECT_TRUE(Typed().empty());
    EXPECT_TRUE(recorder_.heard.empty());
}

TEST_F(KeypadControlTest, SlideOffAndBackStillTypes) {
    Send(WM_LBUTTONDOWN, Centre(4));
    ASSERT_EQ(Print().At(Cell(4).left + 3, Cell(4).top + 3), kPressedBackground);
    Send(WM_MOUSEMOVE, Centre(1));
    EXPECT_EQ(Print().At(Cell(4).left + 3, Cell(4).top + 3), kBackground);
    EXPECT_EQ(Print().At(Cell(1).left + 3, Cell(1).top + 3), kBackground);  // not pressed
    Send(WM_MOUSEMOVE, Point{Centre(4).x + 5, Centre(4).y - 5});
    EXPECT_EQ(Print().At(Cell(4).left + 3, Cell(4).top + 3), kPressedBackground);
    Send(WM_LBUTTONUP, Point{Centre(4).x + 5, Centre(4).y - 5});
    EXPECT_EQ(Typed(), L"5");
    EXPECT_EQ(recorder_.heard, std::vector<std::wstring>{L"5"});
    EXPECT_EQ(Print().At(Cell(4).left + 3, Cell(4).top + 3), kBackground);
}

TEST_F(KeypadControlTest, BackspaceTapRemovesOneDigit) {
    Type("234");
    Forget();
    Tap(0);
    EXPECT_EQ(Typed(), L"23");
    EXPECT_EQ(recorder_.heard, std::vector<std::wstring>{L"23"});
    EXPECT_EQ(gPulses, std::vector<uint32_t>{50});
    EXPECT_FALSE(Armed());
}

TEST_F(KeypadControlTest, BackspaceOnEmptyGivesAPulseButNoNotification) {
    Tap(0);
    EXPECT_TRUE(Typed().empty());
    EXPECT_TRUE(recorder_.heard.empty());
    EXPECT_EQ(gPulses, std::vector<uint32_t>{50});
}

TEST_F(KeypadControlTest, HoldingBackspaceClearsEverythingOnceAndReleaseAddsNothing) {
    Type("234");
    Forget();
    Send(WM_LBUTTONDOWN, Centre(0));
    EXPECT_TRUE(Armed());
    EXPECT_EQ(timers_.DueIn(keypad_.Hwnd(), KeypadControl::kRepeatTimer), 600);
    timers_.Advance(599);
    EXPECT_EQ(Typed(), L"234");
    EXPECT_TRUE(recorder_.heard.empty());
    timers_.Advance(1);
    EXPECT_TRUE(Typed().empty());
    EXPECT_EQ(recorder_.heard, std::vector<std::wstring>{L""});
    EXPECT_EQ(gPulses, std::vector<uint32_t>{50});
    EXPECT_FALSE(Armed());
    EXPECT_EQ(keypad_.PressedKey(), -1);
    EXPECT_NE(GetCapture(), keypad_.Hwnd());
    EXPECT_EQ(Print().At(Cell(0).left + 3, Cell(0).top + 3), kBackground);
    EXPECT_EQ(timers_.Advance(2000), 0);
    Send(WM_LBUTTONUP, Centre(0));
    EXPECT_TRUE(Typed().empty());
    EXPECT_EQ(recorder_.heard.size(), 1u);
    EXPECT_EQ(gPulses.size(), 1u);
}

TEST_F(KeypadControlTest, HoldingBackspaceOnEmptyPulsesWithoutNotification) {
    Send(WM_LBUTTONDOWN, Centre(0));
    timers_.Advance(600);
    EXPECT_TRUE(recorder_.heard.empty());
    EXPECT_EQ(gPulses, std::vector<uint32_t>{50});
    Send(WM_LBUTTONUP, Centre(0));
    EXPECT_EQ(gPulses.size(), 1u);
}

TEST_F(KeypadControlTest, HoldCountsOnlyWhileTheFingerStaysOnBackspace) {
    Type("234");
    Forget();
    Send(WM_LBUTTONDOWN, Centre(0));
    timers_.Advance(300);
    Send(WM_MOUSEMOVE, Centre(1));
    EXPECT_FALSE(Armed());
    Send(WM_MOUSEMOVE, Centre(0));  // coming back does not start the hold again
    EXPECT_FALSE(Armed());
    EXPECT_EQ(timers_.Advance(1000), 0);
    EXPECT_EQ(Typed(), L"234");
    Send(WM_LBUTTONUP, Centre(0));  // but the release over the key is still a tap
    EXPECT_EQ(Typed(), L"23");
    EXPECT_EQ(recorder_.heard, std::vector<std::wstring>{L"23"});
}

TEST_F(KeypadControlTest, ReleaseBeforeTheHoldStopsTheTimer) {
    Type("45");
    Send(WM_LBUTTONDOWN, Centre(0));
    timers_.Advance(500);
    Send(WM_LBUTTONUP, Centre(0));
    EXPECT_FALSE(Armed());
    EXPECT_EQ(timers_.Advance(1000), 0);
    EXPECT_EQ(Typed(), L"4");
}

TEST_F(KeypadControlTest, QueuedTicksAreDroppedWhenTheTimerStops) {
    Type("45");
    Send(WM_LBUTTONDOWN, Centre(0));
    // A tick already waiting in the queue when the finger lifts must not clear the digits.
    PostMessageW(keypad_.Hwnd(), WM_TIMER, KeypadControl::kRepeatTimer, 0);
    Send(WM_LBUTTONUP, Centre(0));
    MSG msg;
    while (PeekMessageW(&msg, keypad_.Hwnd(), 0, 0, PM_REMOVE))
        DispatchMessageW(&msg);
    EXPECT_EQ(Typed(), L"4");
}

TEST_F(KeypadControlTest, HardwareOneDeletesAndTwoToNineTypeThemselves) {
    Type("2345");
    EXPECT_EQ(Typed(), L"2345");
    Type("1");
    EXPECT_EQ(Typed(), L"234");
    Type("6789");
    EXPECT_EQ(Typed(), L"2346789");
    EXPECT_EQ(recorder_.heard.back(), L"2346789");
    EXPECT_EQ(gPulses.size(), 9u);
}

TEST_F(KeypadControlTest, OtherHardwareKeysAreIgnored) {
    Type("0A#");
    SendMessageW(keypad_.Hwnd(), WM_KEYDOWN, VK_LEFT, 0);
    SendMessageW(keypad_.Hwnd(), WM_KEYDOWN, VK_NUMPAD5, 0);
    EXPECT_TRUE(Typed().empty());
    EXPECT_TRUE(recorder_.heard.empty());
    EXPECT_TRUE(gPulses.empty());
}

TEST_F(KeypadControlTest, NoPulseWithoutVibrate) {
    keypad_.SetFeedback(false, 50);
    Tap(2);
    Tap(0);
    Tap(0);
    EXPECT_TRUE(gPulses.empty());
    EXPECT_EQ(recorder_.heard, (std::vector<std::wstring>{L"3", L""}));
}

TEST_F(KeypadControlTest, PulseHasTheLengthAskedFor) {
    keypad_.SetFeedback(true, 35);
    Tap(3);
    EXPECT_EQ(gPulses, std::vector<uint32_t>{35});
}

TEST_F(KeypadControlTest, WorksWithoutAListener) {
    keypad_.SetListener(nullptr);
    Tap(5);
    Tap(6);
    Tap(0);
    EXPECT_EQ(Typed(), L"6");
}

TEST_F(KeypadControlTest, PressKeyOutsideTheKeysDoesNothing) {
    keypad_.PressKey(9);
    keypad_.PressKey(-1);
    EXPECT_TRUE(Typed().empty());
    EXPECT_TRUE(gPulses.empty());
}

TEST_F(KeypadControlTest, CancelModeDropsThePressAndTheHold) {
    Type("23");
    Forget();
    Send(WM_LBUTTONDOWN, Centre(0));
    ASSERT_TRUE(Armed());
    SendMessageW(keypad_.Hwnd(), WM_CANCELMODE, 0, 0);
    EXPECT_FALSE(Armed());
    EXPECT_NE(GetCapture(), keypad_.Hwnd());
    EXPECT_EQ(keypad_.PressedKey(), -1);
    EXPECT_EQ(Print().At(Cell(0).left + 3, Cell(0).top + 3), kBackground);
    EXPECT_EQ(timers_.Advance(1000), 0);
    Send(WM_LBUTTONUP, Centre(0));
    EXPECT_EQ(Typed(), L"23");
    EXPECT_TRUE(recorder_.heard.empty());
    EXPECT_TRUE(gPulses.empty());
}

TEST_F(KeypadControlTest, PressedKeyIsFilledAndTheGridGapKeepsTheBackground) {
    Send(WM_LBUTTONDOWN, Centre(4));
    const shot::Image image = Print();
    const Rect cell = Cell(4);
    EXPECT_EQ(image.At(cell.left, cell.top), kPressedBackground);
    EXPECT_EQ(image.At(cell.right - 2, cell.bottom - 2), kPressedBackground);
    EXPECT_EQ(image.At(cell.right - 1, cell.top + 5), kBackground);  // the one-pixel gap
    EXPECT_EQ(image.At(cell.left + 5, cell.bottom - 1), kBackground);
    EXPECT_EQ(image.At(Cell(3).left + 3, Cell(3).top + 3), kBackground);
    EXPECT_GT(CountColour(image, cell, kPressedText), 0);  // the label turns to the pressed colour
    EXPECT_EQ(CountColour(image, cell, kText), 0);
    Send(WM_LBUTTONUP, Centre(4));
}

TEST_F(KeypadControlTest, GapGrowsWithTheResolution) {
    Make(480, 300, 192, 1);
    Send(WM_LBUTTONDOWN, Centre(4));
    const shot::Image image = Print();
    const Rect cell = Cell(4);
    EXPECT_EQ(image.At(cell.right - 3, cell.top + 5), kPressedBackground);
    EXPECT_EQ(image.At(cell.right - 2, cell.top + 5), kBackground);
    EXPECT_EQ(image.At(cell.right - 1, cell.top + 5), kBackground);
    EXPECT_EQ(image.At(cell.left + 5, cell.bottom - 3), kPressedBackground);
    EXPECT_EQ(image.At(cell.left + 5, cell.bottom - 2), kBackground);
    Send(WM_LBUTTONUP, Centre(4));
}

TEST_F(KeypadControlTest, ScreenPaintMatchesThePrintedClient) {
    Send(WM_LBUTTONDOWN, Centre(2));
    InvalidateRect(keypad_.Hwnd(), nullptr, FALSE);
    UpdateWindow(keypad_.Hwnd());
    shot::Image onScreen;
    ASSERT_TRUE(shot::CaptureClient(keypad_.Hwnd(), onScreen));
    const shot::Image printed = Print();
    ASSERT_EQ(onScreen.width, printed.width);
    ASSERT_EQ(onScreen.height, printed.height);
    EXPECT_EQ(onScreen.pixels, printed.pixels);
    Send(WM_LBUTTONUP, Centre(2));
}

TEST_F(KeypadControlTest, BackspaceAndLabelsAreDrawnInTheirCells) {
    const shot::Image image = Print();
    for (int key = 0; key < 9; ++key)
        EXPECT_GT(CountColour(image, Cell(key), kText), 0) << "key " << key;
    EXPECT_EQ(CountColour(image, client_, kSecondRow), 0);  // a Latin layout has one row
}

TEST_F(KeypadControlTest, SingleRowIsCentredVertically) {
    const shot::Image image = Print();
    const Rect cell = Cell(4);
    const auto [first, last] = RowsWithColour(image, cell, kText);
    ASSERT_GE(first, 0);
    const int above = first - cell.top;
    const int below = cell.bottom - 1 - last;
    EXPECT_LE(std::abs(above - below), 6) << above << " above, " << below << " below";
}

TEST_F(KeypadControlTest, FiveKeyLayoutStillTypesSevenEightNine) {
    Make(300, 150, 96, 0);
    const shot::Image image = Print();
    EXPECT_GT(CountColour(image, Cell(5), kText), 0);  // "MNO"
    for (int key = 6; key <= 8; ++key)
        EXPECT_EQ(CountColour(image, Cell(key), kText), 0) << "key " << key;
    Tap(6);
    Tap(7);
    Tap(8);
    EXPECT_EQ(Typed(), L"789");
}

TEST_F(KeypadControlTest, SecondRowsGoBelowTheFirstInTheirColour) {
    Make(300, 150, 96, 3);
    shot::Image image = Print();
    const Rect cell = Cell(1);
    const auto [firstTop, firstBottom] = RowsWithColour(image, cell, kText);
    const auto [secondTop, secondBottom] = RowsWithColour(image, cell, kSecondRow);
    ASSERT_GE(firstTop, 0);
    ASSERT_GE(secondTop, 0);
    EXPECT_GT(secondTop, firstBottom);
    // The two rows together sit in the middle of the cell.
    EXPECT_LE(std::abs((firstTop - cell.top) - (cell.bottom - 1 - secondBottom)), 8);

    Send(WM_LBUTTONDOWN, Centre(1));
    image = Print();
    EXPECT_EQ(CountColour(image, cell, kSecondRow), 0);  // pressed: both rows in the pressed colour
    EXPECT_GT(
        CountColour(image, Rect{cell.left, secondTop, cell.right, secondBottom + 1}, kPressedText),
        0);
    Send(WM_LBUTTONUP, Centre(1));
}

TEST_F(KeypadControlTest, SecondRowsAreIgnoredWhenTheLayoutHasNone) {
    keypad_.SetLabels(Texts({u"ABC", u"DEF"}), Texts({u"XY", u"Z"}), false);
    EXPECT_EQ(CountColour(Print(), client_, kSecondRow), 0);
    keypad_.SetLabels(Texts({u"ABC", u"DEF"}), Texts({u"XY", u"Z"}), true);
    EXPECT_GT(CountColour(Print(), Cell(1), kSecondRow), 0);
}

/// Screenshots of each layout and size, normal and with a key pressed.
struct ShotCase {
    int width;
    int height;
    int dpi;
    int row;
    const wchar_t* name;
};

class KeypadShotTest : public KeypadControlTest, public ::testing::WithParamInterface<ShotCase> {};

TEST_P(KeypadShotTest, SavesNormalAndPressed) {
    const ShotCase& c = GetParam();
    Make(c.width, c.height, c.dpi, c.row);
    const std::wstring name = c.name;
    EXPECT_FALSE(SaveShot(Print(), name).empty());
    Send(WM_LBUTTONDOWN, Centre(4));
    const shot::Image pressed = Print();
    EXPECT_FALSE(SaveShot(pressed, name + L"-pressed").empty());
    EXPECT_EQ(pressed.At(Cell(4).left + 2, Cell(4).top + 2), kPressedBackground);
    Send(WM_LBUTTONUP, Centre(4));
}

INSTANTIATE_TEST_SUITE_P(Layouts, KeypadShotTest,
                         ::testing::Values(ShotCase{480, 300, 192, 1, L"keypad-latin-480"},
                                           ShotCase{240, 150, 96, 1, L"keypad-latin-240"},
                                           ShotCase{480, 300, 192, 3, L"keypad-cyrillic-480"},
                                           ShotCase{240, 150, 96, 3, L"keypad-cyrillic-240"}));

}  // namespace
