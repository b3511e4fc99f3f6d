// Picker benchmark under Wine (a program, not a test), at 480 x 640 and 192 dpi with the search
// service in this process over generated address books. Each figure is printed beside a floor
// measured in the same run: a bare window whose WM_PAINT draws the same rows' texts on the same
// row bitmaps, with no search and no list control.
//
//   tools/wine-exec build/windows/bin/bench_picker_win.exe [repeats]
//
// open N      picker created and shown until its first list is painted (N contacts)
// keystroke   one typed digit until the narrowed list is repainted (search, the visible rows'
//             details, paint), at 10,000 contacts
// flick frame the whole list view scrolled and painted once

#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "PickerWinSupport.h"
#include "base/Alert.h"
#include "base/ScreenInfo.h"
#include "picker/PickerGeometry.h"
#include "service/AddressBookGenerator.h"
#include "win/RectConvert.h"
#include "win/WideCast.h"

namespace {

int QuietAlert(const char16_t*, const char16_t*, uint32_t) {
    return kAlertAnswerOk;
}

double Now() {
    static LARGE_INTEGER frequency = [] {
        LARGE_INTEGER f;
        QueryPerformanceFrequency(&f);
        return f;
    }();
    LARGE_INTEGER t;
    QueryPerformanceCounter(&t);
    return 1000.0 * static_cast<double>(t.QuadPart) / static_cast<double>(frequency.QuadPart);
}

double Median(std::vector<double> times) {
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

void Pump() {
    MSG msg;
    while (PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&msg);
        DispatchMessageW(&msg);
    }
}

void Report(const char* what, const std::vector<double>& figure, const std::vector<double>& floor,
            double target) {
    const double f = Median(figure);
    const double b = Median(floor);
    std::printf("%-22s figure %8.3f ms  floor %8.3f ms  ratio %6.2f  target < %g ms  %s\n", what, f,
                b, b > 0 ? f / b : 0.0, target, f < target ? "met" : "MISSED");
}

/// The floor: a plain window that paints the given rows' texts on the row bitmaps.
class BareList {
  public:
    BareList(HWND parent, const RECT& at, const PickerLook& look, int itemHeight,
             std::vector<std::wstring> names, std::vector<std::wstring> seconds)
        : look_(look),
          itemHeight_(itemHeight),
          names_(std::move(names)),
          seconds_(std::move(seconds)) {
        static const bool registered = [] {
            WNDCLASSW wc{};
            wc.lpfnWndProc = &BareList::Proc;
            wc.hInstance = GetModuleHandleW(nullptr);
            wc.lpszClassName = L"BareBenchList";
            return RegisterClassW(&wc) != 0;
        }();
        (void)registered;
        hwnd_ = CreateWindowExW(0, L"BareBenchList", L"", WS_CHILD | WS_VISIBLE, at.left, at.top,
                                at.right - at.left, at.bottom - at.top, parent, nullptr,
                                GetModuleHandleW(nullptr), this);
        SetWindowLongPtrW(hwnd_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    }
    ~BareList() { DestroyWindow(hwnd_); }
    HWND Hwnd() const { return hwnd_; }
    int offset = 0;

  private:
    static LRESULT CALLBACK Proc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
        auto* self = reinterpret_cast<BareList*>(GetWindowLongPtrW(hwnd, GWLP_USERDATA));
        if (message == WM_PAINT && self != nullptr) {
            self->Paint();
            return 0;
        }
        if (message == WM_ERASEBKGND)
            return 1;
        return DefWindowProcW(hwnd, message, wParam, lParam);
    }
    void Paint() {
        PAINTSTRUCT ps;
        HDC dc = BeginPaint(hwnd_, &ps);
        RECT client{};
        GetClientRect(hwnd_, &client);
        SetBkMode(dc, TRANSPARENT);
        SetTextColor(dc, look_.text);
        const int count = static_cast<int>(names_.size());
        for (int row = offset / itemHeight_; row < count; ++row) {
            RECT r{0, row * itemHeight_ - offset, client.right, (row + 1) * itemHeight_ - offset};
            if (r.top >= client.bottom)
                break;
            Skin::TileBitmap(dc, look_.rowUnselected, r);
            HGDIOBJ old = SelectObject(dc, look_.font);
            RECT text = r;
            DrawTextW(dc, names_[static_cast<size_t>(row)].c_str(), -1, &text,
                      DT_SINGLELINE | DT_NOPREFIX);
            SelectObject(dc, look_.smallFont);
            text.top += itemHeight_ / 2;
            DrawTextW(dc, seconds_[static_cast<size_t>(row)].c_str(), -1, &text,
                      DT_SINGLELINE | DT_NOPREFIX);
            SelectObject(dc, old);
        }
        EndPaint(hwnd_, &ps);
    }

    HWND hwnd_ = nullptr;
    PickerLook look_;
    int itemHeight_;
    std::vector<std::wstring> names_;
    std::vector<std::wstring> seconds_;
};

struct Bench {
    TestScreen& screen;
    InProcessService& service;
    PickerRequest request;
    int repeats;

    /// Names and second texts of the first rows of the full list, read before timing.
    void RowTexts(int rows, std::vector<std::wstring>& names, std::vector<std::wstring>& seconds) {
        PickerModel model(service.client);
        model.Search(Str());
        for (int i = 0; i < rows && i < model.ItemCount(); ++i) {
            ContactLine line;
            model.ContactLineAt(i, nullptr, line);
            names.emplace_back(W(line.name.c_str()));
            seconds.emplace_back(W(line.second.c_str()));
        }
    }

    PickerLayout Layout(const ContactPicker& picker) const {
        return LayOutPicker(picker.ContentArea(), EffectiveDpiY(),
                            Skin::GetFontHeight(request.look.font),
                            Skin::GetFontHeight(request.look.smallFont));
    }

    void Open(const char* what, double target) {
        std::vector<double> figure;
        std::vector<double> floor;
        service.service.EnsureIndex();  // built once per contacts load, off the picker's path
        PickerLayout layout{};
        for (int i = 0; i < repeats; ++i) {
            ContactPicker picker(request, service.client);
            const double start = Now();
            HWND dialog = picker.CreateModeless(screen.Board(), true);
            UpdateWindow(picker.List().Hwnd());
            GdiFlush();
            figure.push_back(Now() - start);
            if (dialog == nullptr) {
                std::printf("the picker could not be made\n");
                return;
            }
            layout = Layout(picker);
            Pump();
        }
        std::vector<std::wstring> names;
        std::vector<std::wstring> seconds;
        RowTexts(layout.list.Height() / layout.itemHeight + 2, names, seconds);
        // The floor's list lives in a shown window where the dialog stood.
        const Rect area = DialogBase::FullScreenArea();
        HWND host =
            CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, area.left, area.top,
                            area.Width(), area.Height(), nullptr, nullptr, nullptr, nullptr);
        Pump();
        for (int i = 0; i < repeats; ++i) {
            const double start = Now();
            BareList bare(host, ToRECT(layout.list), request.look, layout.itemHeight, names,
                          seconds);
            UpdateWindow(bare.Hwnd());
            GdiFlush();
            floor.push_back(Now() - start);
        }
        DestroyWindow(host);
        Report(what, figure, floor, target);
    }

    void Keystroke(double target) {
        ContactPicker picker(request, service.client);
        HWND dialog = picker.CreateModeless(screen.Board(), true);
        if (dialog == nullptr)
            return;
        const PickerLayout layout = Layout(picker);
        std::vector<double> figure;
        // Type a name's first letters and take them back, over and over.
        const char keys[] = {'5', '6', '2', '1', '1', '1', '7', '4', '1', '1'};
        int found = 0;
        for (int i = 0; i < repeats * 3; ++i) {
            const char key = keys[i % sizeof(keys)];
            const double start = Now();
            SendMessageW(dialog, WM_KEYDOWN, static_cast<WPARAM>(key), 1);
            UpdateWindow(picker.List().Hwnd());
            GdiFlush();
            figure.push_back(Now() - start);
            found += picker.List().ItemCount();
        }
        std::vector<std::wstring> names;
        std::vector<std::wstring> seconds;
        RowTexts(layout.list.Height() / layout.itemHeight + 2, names, seconds);
        BareList bare(dialog, ToRECT(layout.list), request.look, layout.itemHeight, names, seconds);
        std::vector<double> floor;
        for (int i = 0; i < repeats * 3; ++i) {
            const double start = Now();
            InvalidateRect(bare.Hwnd(), nullptr, FALSE);
            UpdateWindow(bare.Hwnd());
            GdiFlush();
            floor.push_back(Now() - start);
        }
        Report("keystroke 10,000", figure, floor, target);
        std::printf("%-22s (%d rows listed over the keystrokes)\n", "", found);
    }

    void FlickFrame(double target) {
        ContactPicker picker(request, service.client);
        HWND dialog = picker.CreateModeless(screen.Board(), true);
        if (dialog == nullptr)
            return;
        const PickerLayout layout = Layout(picker);
        HWND list = picker.List().Hwnd();
        std::vector<double> figure;
        const int step = layout.itemHeight / 3 + 1;
        for (int i = 0; i < repeats * 5; ++i) {
            const double start = Now();
            SendMessageW(list, WM_VSCROLL, MAKEWPARAM(FlickList::kScrollByCode, step), 0);
            InvalidateRect(list, nullptr, FALSE);
            UpdateWindow(list);
            GdiFlush();
            figure.push_back(Now() - start);
        }
        std::vector<std::wstring> names;
        std::vector<std::wstring> seconds;
        RowTexts(2000, names, seconds);
        BareList bare(dialog, ToRECT(layout.list), request.look, layout.itemHeight, names, seconds);
        std::vector<double> floor;
        for (int i = 0; i < repeats * 5; ++i) {
            const double start = Now();
            bare.offset += step;
            InvalidateRect(bare.Hwnd(), nullptr, FALSE);
            UpdateWindow(bare.Hwnd());
            GdiFlush();
            floor.push_back(Now() - start);
        }
        Report("flick frame 480x640", figure, floor, target);
        std::printf("%-22s (list offset %d after the frames)\n", "", picker.List().Offset());
    }
};

}  // namespace

int main(int argc, char** argv) {
    const int repeats = argc > 1 ? std::max(5, std::atoi(argv[1])) : 30;
    SetAlertHandler(&QuietAlert);
    TestScreen screen(kVga);
    KeypadSetting latin(1);
    InProcessService service;
    Bench bench{screen, service, PickerRequest(), repeats};
    bench.request.look = screen.SkinLook();
    bench.request.wantNumber = true;
    std::printf("picker at 480 x 640, 192 dpi; medians of %d runs\n", repeats);

    service.service.SetContacts(GenerateAddressBook(10000, 1));
    bench.Open("open 10,000", 100);
    bench.Keystroke(16);
    bench.FlickFrame(8);
    service.service.SetContacts(GenerateAddressBook(100000, 1));
    bench.Open("open 100,000", 300);
    return 0;
}
