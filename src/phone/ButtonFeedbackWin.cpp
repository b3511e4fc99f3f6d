#include <windows.h>

#include "phone/ButtonFeedback.h"
#include "phone/PulsePlan.h"
#include "phone/Vibrator.h"

namespace feedback {
namespace {

/// How long shutdown waits for the worker: a press pulse in progress ends well within it, while a
/// long series still queued is not worth holding the exit for.
constexpr DWORD kStopWaitMs = 3000;

// Written by the UI thread only, before its first post; no lock.
HANDLE gThread = nullptr;
DWORD gThreadId = 0;
// Set by a new worker once its queue exists.
HANDLE gQueueReady = nullptr;

void PlayMessage(const MSG& msg) {
    PlayPulses(
        PlanPulses(msg.wParam, static_cast<uint64_t>(msg.lParam)), [](uint32_t ms) { Pulse(ms); },
        [](uint32_t ms) { Sleep(ms); });
}

DWORD WINAPI WorkerMain(void* /*unused*/) {
    MSG msg{};
    // A thread gets its queue on its first message call; have it before the first post arrives.
    PeekMessageW(&msg, nullptr, 0, 0, PM_NOREMOVE);
    SetEvent(gQueueReady);
    while (GetMessageW(&msg, nullptr, 0, 0) > 0) {
        TranslateMessage(&msg);
        DispatchMessageW(&msg);
        if (msg.message == kPulseMessage)
            PlayMessage(msg);
        else if (msg.message == kQuitMessage)
            break;
    }
    return 0;
}

}  // namespace

uint32_t StartFeedbackWorker() {
    if (gThread != nullptr)
        return gThreadId;
    gQueueReady = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    if (gQueueReady == nullptr)
        return 0;
    DWORD id = 0;
    HANDLE thread = CreateThread(nullptr, 0, WorkerMain, nullptr, 0, &id);
    if (thread != nullptr) {
        // Only the moment the new thread needs to make its queue; a request posted earlier would
        // be lost. The thread's own handle ends the wait should it die first.
        const HANDLE either[] = {gQueueReady, thread};
        WaitForMultipleObjects(2, either, FALSE, INFINITE);
        gThread = thread;
        gThreadId = id;
    }
    CloseHandle(gQueueReady);
    gQueueReady = nullptr;
    return gThreadId;
}

void RequestPulse(uint32_t ms) {
    if (StartFeedbackWorker() == 0)
        return;
    PostThreadMessageW(gThreadId, kPulseMessage, PulseWParam(ms), 0);
}

bool StopFeedback() {
    if (gThread == nullptr)
        return true;
    PostThreadMessageW(gThreadId, kQuitMessage, 0, 0);
    if (WaitForSingleObject(gThread, kStopWaitMs) != WAIT_OBJECT_0)
        return false;
    CloseHandle(gThread);
    gThread = nullptr;
    gThreadId = 0;
    return true;
}

}  // namespace feedback
