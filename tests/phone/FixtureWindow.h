#pragma once
// Windows of the test process that stand in for the device's phone windows: the phone
// application's "MSCprog" window, found by class, and the call-policy window "CallPol", which
// records every WM_COPYDATA block it is sent. Another process's SendMessageW reaches them while
// the test pumps messages (CallScenario does).

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

/// One WM_COPYDATA the window received: the COPYDATASTRUCT's dwData, cbData and bytes.
struct CopiedData {
    ULONG_PTR dwData = 0;
    DWORD cbData = 0;
    std::vector<uint8_t> bytes;
};

/// A hidden top-level window of a given class, destroyed with the object.
class FixtureWindow {
  public:
    /// answers: whether WM_COPYDATA is handled (returns TRUE) or left to DefWindowProcW.
    explicit FixtureWindow(const wchar_t* className, bool answers = true);
    ~FixtureWindow();
    FixtureWindow(const FixtureWindow&) = delete;
    FixtureWindow& operator=(const FixtureWindow&) = delete;

    HWND Handle() const { return window_; }
    /// The blocks received so far, oldest first (recorded whether or not the window answers).
    const std::vector<CopiedData>& Received() const { return received_; }

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    HWND window_ = nullptr;
    bool answers_;
    std::vector<CopiedData> received_;
};
