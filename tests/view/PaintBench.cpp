// Paint benchmark under Wine (a program, not a test): the demo board at 480 x 640 and 192 dpi,
// painted whole many times through the window's own WM_PAINT (one off-screen bitmap per paint)
// and through the paint path into a memory bitmap. Prints median, mean and worst times.
//
//   tools/wine-exec build/windows/bin/bench_paint_win.exe [paints]

#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "BoardTestSetup.h"
#include "base/Alert.h"
#include "view/BoardWindow.h"

namespace {

int QuietAlert(const char16_t*, const char16_t*, uint32_t) {
    return kAlertAnswerOk;
}

double Millis(LARGE_INTEGER from, LARGE_INTEGER to, LARGE_INTEGER frequency) {
    return 1000.0 * static_cast<double>(to.QuadPart - from.QuadPart) /
           static_cast<double>(frequency.QuadPart);
}

void Report(const char* what, std::vector<double> times) {
    std::sort(times.begin(), times.end());
    double sum = 0;
    for (double t : times)
        sum += t;
    std::printf("%-34s paints %4zu  median %7.3f ms  mean %7.3f ms  worst %7.3f ms\n", what,
                times.size(), times[times.size() / 2], sum / static_cast<double>(times.size()),
                times.back());
}

template <typename PaintOnce>
std::vector<double> Time(int paints, PaintOnce paint) {
    LARGE_INTEGER frequency;
    QueryPerformanceFrequency(&frequency);
    std::vector<double> times;
    for (int i = 0; i < paints; ++i) {
        LARGE_INTEGER start;
        LARGE_INTEGER end;
        QueryPerformanceCounter(&start);
        paint();
        QueryPerformanceCounter(&end);
        times.push_back(Millis(start, end, frequency));
    }
    return times;
}

}  // namespace

int main(int argc, char** argv) {
    const int paints = argc > 1 ? std::max(10, std::atoi(argv[1])) : 300;
    SetAlertHandler(&QuietAlert);
    StoreEntries(DemoEntries());
    StoreOptions(true, true, true);
    HMODULE library = UseScreen({480, 640, 192});
    UseSkinFolder(L"C:\\no-such-folder\\DialdeckSkin");
    DemoContacts contacts;
    {
        BoardWindow board;
        board.Board().SetContacts(&contacts);
        if (!board.Create(false)) {
            std::printf("the board window could not be created\n");
            return 1;
        }
        const BoardGeometry& g = board.Geometry();
        board.Photos().Put(
            7, gdi::Object<HBITMAP>(MakeTestPhoto(g.CellW() + g.CellW() / 4, g.CellH())));
        std::printf(
            "board 480 x 640 at 192 dpi: %d x %d buttons, names, labels, numbers, a photo\n",
            g.Cols(), g.Rows());

        Report("WM_PAINT (off-screen, to screen)", Time(paints, [&] {
                   InvalidateRect(board.Hwnd(), nullptr, FALSE);
                   UpdateWindow(board.Hwnd());
               }));

        RECT client{};
        GetClientRect(board.Hwnd(), &client);
        HDC screen = GetDC(nullptr);
        HDC dc = CreateCompatibleDC(screen);
        HBITMAP bitmap = CreateCompatibleBitmap(screen, client.right, client.bottom);
        ReleaseDC(nullptr, screen);
        HGDIOBJ old = SelectObject(dc, bitmap);
        Report("paint path into a memory bitmap", Time(paints, [&] {
                   board.Paint(dc, client);
                   GdiFlush();
               }));
        SelectObject(dc, old);
        DeleteObject(bitmap);
        DeleteDC(dc);
    }
    FreeLibrary(library);
    ForgetStoredBoard();
    return 0;
}
