// The board's portable layout work behind every paint and relayout: the grid of every device
// profile, hit tests, the page-delete plan, the text-fit count and reading the skin file.
#include <benchmark/benchmark.h>

#include <cstring>
#include <vector>

#include "skin/IniFile.h"
#include "skin/PanelGeometry.h"
#include "skin/SkinMetrics.h"
#include "view/BoardGeometry.h"
#include "view/PaintGeometry.h"

namespace {

struct Profile {
    int width, height, dpi;
};
constexpr Profile kProfiles[] = {
    {240, 320, 96}, {320, 240, 96}, {320, 320, 96}, {480, 640, 192}, {480, 800, 192}};

void BM_LayoutEveryProfile(benchmark::State& state) {
    BoardGeometry g;
    for (auto _ : state) {
        for (const Profile& p : kProfiles) {
            const int k = p.dpi / 96;
            const bool landscape = IsLandscape(p.width, p.height);
            const int bar = (26 * p.dpi + 48) / 96;
            PanelPlacement placed =
                PlacePanel(Rect{0, 0, p.width, p.height - bar}, landscape, 50 * k, 34 * k);
            g.Layout(placed.usableWidth, placed.usableHeight, 74 * k, 80 * k, 40);
            benchmark::DoNotOptimize(g.Cell(0));
        }
    }
}
BENCHMARK(BM_LayoutEveryProfile);

// The geometry a full 480 x 640 paint needs for each of its cells.
void BM_PaintGeometry480x640(benchmark::State& state) {
    BoardGeometry g;
    g.Layout(480, 520, 148, 160, 40);
    for (auto _ : state) {
        for (int p = 0; p < g.PerPage(); ++p) {
            const Rect& cell = g.Cell(p);
            benchmark::DoNotOptimize(NameBox(cell, 192, 192, 19));
            benchmark::DoNotOptimize(LabelOrigin(cell, 56, 19, 192));
            benchmark::DoNotOptimize(NumberTextBox(NumberFrameBox(cell, 44, 36), 17, 192));
            benchmark::DoNotOptimize(PhotoSourceOffset(185, 160, 148, 160));
        }
        benchmark::DoNotOptimize(FrameOrigin(g.Cell(g.Selected()), 156, 168));
    }
}
BENCHMARK(BM_PaintGeometry480x640);

void BM_HitTestWholePage(benchmark::State& state) {
    BoardGeometry g;
    g.Layout(480, 680, 108, 96, 40);  // 24 small buttons
    int x = 0;
    for (auto _ : state) {
        x = (x + 37) % 480;
        benchmark::DoNotOptimize(g.HitTest(x, 650));
    }
}
BENCHMARK(BM_HitTestWholePage);

void BM_DeletePagePlan(benchmark::State& state) {
    BoardGeometry g;
    g.Layout(480, 680, 108, 96, static_cast<int32_t>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(g.PlanDeletePage());
}
BENCHMARK(BM_DeletePagePlan)->Arg(24)->Arg(240)->Arg(2400);

void BM_FitKeepCount(benchmark::State& state) {
    std::vector<int32_t> extents(40);
    for (size_t i = 0; i < extents.size(); ++i)
        extents[i] = static_cast<int32_t>(7 * (i + 1));
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            FitKeepCount(extents.data(), static_cast<int32_t>(extents.size()), 3, 120));
    }
}
BENCHMARK(BM_FitKeepCount);

void BM_ParseSkinFile(benchmark::State& state) {
    const char* text =
        "; a skin\r\n[Dialdeck]\r\nBgrColor = 24, 52, 44\r\nTxtColor = 240, 236, 220\r\n"
        "TxtSelectColor = 40, 28, 8\r\nBtnNumberColor = 255, 244, 214\r\n"
        "PhoneTypeColor1 = 255, 228, 160\r\nPhoneTypeColor2 = 8, 20, 16\r\n"
        "FontText = 9, Tahoma, 2, 0, 1\r\nFontSmall = 7, Tahoma, 0, 1\r\nFontButton = 7, Tahoma, "
        "1\r\n";
    const auto* bytes = reinterpret_cast<const uint8_t*>(text);
    const size_t length = std::strlen(text);
    for (auto _ : state) {
        IniFile ini;
        ini.Parse(bytes, length);
        uint32_t colour = 0;
        ini.GetColor(ini.FindSection(u"Dialdeck"), u"BgrColor", colour);
        benchmark::DoNotOptimize(colour);
    }
}
BENCHMARK(BM_ParseSkinFile);

}  // namespace

BENCHMARK_MAIN();
