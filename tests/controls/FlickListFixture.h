#pragma once
// What the flick list's window tests share: a listener that records every call and draws plain
// rows, a parent that records the keys passed on to it, fake time, and a fixture that makes a
// list of a given size and drives it with real messages.

#include <windows.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "ScreenShot.h"
#include "base/ScreenInfo.h"
#include "controls/FlickList.h"
#include "testing/ManualTimers.h"
#include "testing/WindowTestKit.h"

namespace flicktest {

/// Colours the recording listener paints: even rows, odd rows, the selected row, empty space.
constexpr COLORREF kEvenRow = RGB(250, 250, 250);
constexpr COLORREF kOddRow = RGB(225, 235, 245);
constexpr COLORREF kSelectedRow = RGB(40, 90, 170);
constexpr COLORREF kEmpty = RGB(120, 120, 120);

struct DrawCall {
    int index;
    RECT rect;
    bool selected;
};
struct IndexCall {
    int index;
    int other;  ///< previous selection, by-keyboard flag, or the hold point's y
};

/// Records every call of the list and paints each row in its colour with its name.
class RecordingListener : public FlickListListener {
  public:
    void OnDrawItem(HWND list, HDC dc, int index, const RECT& rect, bool selected) override;
    void OnClick(HWND list, int index, int previous, WPARAM keyState) override;
    void OnSelChange(HWND list, int index, bool byKeyboard) override;
    void OnPress(HWND list, int index) override;
    void OnActivate(HWND list, int index) override;
    void OnHold(HWND list, int index, POINT point) override;
    void OnSetFocus(HWND list, UINT message) override;
    void OnKillFocus(HWND list, UINT message) override;
    bool OnKeyDown(HWND list, UINT key, int selection) override;
    void OnChar(HWND list, wchar_t character, LPARAM keyData) override;
    /// Forgets every call recorded so far.
    void Clear();

    std::vector<DrawCall> draws;
    std::vector<IndexCall> clicks, selChanges, activations, holds;
    std::vector<int> presses;
    std::vector<UINT> keyDowns, focusMessages;
    std::vector<wchar_t> chars;
    UINT consumeKey = 0;  ///< OnKeyDown consumes this key
};

/// A visible top-level window that records the key messages it is sent.
class KeyParent {
  public:
    KeyParent(int width, int height);
    ~KeyParent();
    KeyParent(const KeyParent&) = delete;
    KeyParent& operator=(const KeyParent&) = delete;
    HWND Hwnd() const { return hwnd_; }
    struct Key {
        UINT message;
        WPARAM key;
    };
    std::vector<Key> keys;

  private:
    static LRESULT CALLBACK Proc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
    HWND hwnd_ = nullptr;
};

/// The thumb art of the 96-dpi resources (6 x 30), or null.
HBITMAP LoadThumbArt();
/// Runs every message waiting for the thread (the list's posted fling and bounces).
void Pump();
/// True when `message` is waiting for `window`; removes it when `take` is set.
bool Waiting(HWND window, UINT message, bool take);

class FlickListFixture : public ::testing::Test {
  protected:
    void SetUp() override;
    void TearDown() override;

    /// A shown list of `count` rows `itemHeight` high in a fixed `width` x `height` window.
    FlickList& Make(int count, int itemHeight, int width, int height, bool overlay = true,
                    bool wholeView = true, bool hold = false);
    HWND List() const { return list_->Hwnd(); }
    void Press(int x, int y);
    void Move(int x, int y);
    void Release(int x, int y);
    void Key(UINT message, WPARAM key);
    /// Drags from (x, y0) to (x, y1) in `steps` moves of `msPerStep` each, after starting the
    /// drag with a first move of 11 pixels in y1's direction (without releasing).
    void Drag(int x, int y0, int y1, int steps, uint32_t msPerStep);

    ScreenInfo previousScreen_;
    ManualTimers timers_{100000};
    KeyParent parent_{480, 640};
    RecordingListener listener_;
    HBITMAP thumb_ = nullptr;
    std::unique_ptr<FlickList> list_;
};

}  // namespace flicktest
