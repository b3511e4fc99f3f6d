#pragma once
// BoardWindow: the board's main full-screen window. One object lives for the whole run on the
// entry function's stack; a second start of the program finds its window by class name.

#include <windows.h>

#include "app/WndBase.h"

/// The board window's class; a running copy of the program is found by it.
constexpr wchar_t kBoardWindowClass[] = L"Orvalis_Dialdeck_Wnd_Class";
constexpr wchar_t kBoardWindowTitle[] = L"Orvalis Dialdeck";
/// The board's background colour until a skin sets another.
constexpr COLORREF kBoardDefaultBackground = 0x50463B;
/// WM_CLOSE's wParam for a forced close: the process ends even when resident.
constexpr WPARAM kForcedCloseCode = 100;

class BoardWindow : public WndBase {
  public:
    BoardWindow() = default;
    ~BoardWindow() override;

    /// Creates the window below the top bar, covering the rest of the screen; in preload mode
    /// hidden at once. True when the window exists (also when it existed already).
    bool Create(bool preload);
    LRESULT WndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) override;

    /// Closes the board. Not forced while ModPreload is on: only hides the window (the process
    /// stays resident). Otherwise gives the Talk key back and ends the message loop with code 0.
    void Close(bool forced);
    /// Paints the board into dc over rect, in client coordinates; the one paint path of
    /// WM_PAINT (off-screen) and WM_PRINTCLIENT.
    void Paint(HDC dc, const RECT& rect);

    bool IsPreload() const { return preload_; }
    bool ShowsDialerButton() const { return showDialerButton_; }
    bool ShowsPhoneType() const { return showPhoneType_; }

  private:
    void ReadOptions();
    bool CreateFrame();
    void RemoveDesktopFrame();
    void CreateMenuBar();
    void HideInputPanel();
    void OverrideTalkKey();
    void RestoreTalkKey();

    LRESULT OnCreate();
    LRESULT OnDestroy();
    LRESULT OnPaint();
    LRESULT OnPrintClient(HDC dc);
    LRESULT OnClose(WPARAM wParam);

    bool preload_ = false;
    bool showDialerButton_ = false;
    bool showPhoneType_ = false;
    HWND menuBar_ = nullptr;
    LRESULT talkKeyDefault_ = 0;
    COLORREF background_ = kBoardDefaultBackground;
};
