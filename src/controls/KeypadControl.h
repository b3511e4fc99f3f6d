#pragma once
// KeypadControl: the picker's on-screen phone keypad, a child window of three by three keys. Key 0
// (top left) is a backspace, keys 1 to 8 type "2" to "9" and show the letter groups of the
// current keypad layout. The control keeps the typed digits and tells its listener each time
// they change; matching digits to names is the search's task.

#include <windows.h>

#include <cstdint>

#include "base/Array.h"
#include "base/Str.h"
#include "win/WndBase.h"

/// Hears the typed-digit string change.
class KeypadListener {
  public:
    virtual ~KeypadListener() = default;
    virtual void OnDigitsChanged(const Str& typed) = 0;
};

/// Colours and fonts of the keys (borrowed: the owner keeps the fonts alive).
struct KeypadLook {
    COLORREF background = RGB(255, 255, 255);
    COLORREF text = RGB(0, 0, 0);
    COLORREF pressedBackground = RGB(0, 0, 0);
    COLORREF pressedText = RGB(255, 255, 255);
    COLORREF secondRowText = RGB(128, 128, 128);
    HFONT font = nullptr;        ///< first label row and the backspace
    HFONT secondFont = nullptr;  ///< second label row
};

class KeypadControl : public WndBase {
  public:
    /// The backspace key's hold timer: held this long, it clears every digit.
    static constexpr UINT_PTR kRepeatTimer = 1;
    static constexpr UINT kClearAllMs = 600;

    KeypadControl();
    ~KeypadControl() override;

    void SetListener(KeypadListener* listener) { listener_ = listener; }
    void SetLook(const KeypadLook& look) { look_ = look; }
    /// The first label row of keys 2, 3, ... and, when `hasSubLabels`, their second rows.
    void SetLabels(const Array<Str>& labels, const Array<Str>& subLabels, bool hasSubLabels);
    /// A vibration pulse of `pulseMs` on every key action when `vibrate` is set.
    void SetFeedback(bool vibrate, uint32_t pulseMs);
    /// What asks for a vibration pulse: feedback::RequestPulse unless a test put another in.
    using PulseFn = void (*)(uint32_t ms);
    void SetPulseRequester(PulseFn requester) { pulse_ = requester; }

    /// Creates the child window in `parent` at the given rectangle. Returns it, or null. A control
    /// that has a window keeps it and returns it.
    HWND Create(HWND parent, int x, int y, int width, int height);

    /// The typed digits.
    const Str& Typed() const { return typed_; }
    /// The key held down, or -1.
    int PressedKey() const { return pressedKey_; }
    /// Does key `key`'s action: a digit appended, or (key 0) the last one removed.
    void PressKey(int key);

    LRESULT WndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    LRESULT OnPaint();
    LRESULT OnPrintClient(HDC dc);
    LRESULT OnLButtonDown(int x, int y);
    LRESULT OnMouseMove(int x, int y);
    LRESULT OnLButtonUp(int x, int y);
    LRESULT OnTimer(UINT_PTR id);
    LRESULT OnKeyDown(WPARAM code);
    LRESULT OnCancelMode();

    /// Paints every key into `dc` (client coordinates) through one off-screen bitmap.
    void Paint(HDC dc);
    void DrawKey(HDC dc, int key, const RECT& client);
    void DrawLabels(HDC dc, int key, const RECT& cell, COLORREF text, COLORREF secondText);
    /// Client rectangle, cell of a key and hit test in the control's own coordinates.
    RECT Client() const;
    int KeyAt(int x, int y) const;
    bool OverKey(int key, int x, int y) const;
    /// Redraws one key now.
    void RepaintKey(int key);
    void Pulse();

    KeypadListener* listener_ = nullptr;
    KeypadLook look_;
    PulseFn pulse_;
    Str typed_;
    int pressedKey_ = -1;
    bool pressedLook_ = false;
    POINT downPoint_{};
    bool vibrate_ = false;
    uint32_t pulseMs_ = 50;
    Array<Str> labels_;
    Array<Str> subLabels_;
    bool hasSubLabels_ = false;
};
