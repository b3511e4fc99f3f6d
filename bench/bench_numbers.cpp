// Number formatting through the built-in templates, and loading a stored template list.
#include <benchmark/benchmark.h>

#include <string>

#include "base/Registry.h"
#include "base/RegistryMemory.h"
#include "phone/NumberTemplates.h"

namespace {

const char16_t* const kNumbers[] = {
    u"81234567890",   // general 11-digit layout
    u"+71234567890",  // the "+" layout
    u"1234567",       // 7 digits
    u"123456",        // 6 digits
    u"12345678",      // fits none
    u"*100#",         // dialling marks: declined at once
};

void BM_FormatBuiltIn(benchmark::State& state) {
    NumberTemplates templates;
    templates.LoadDefaults();
    const char16_t* number = kNumbers[state.range(0)];
    Str out;
    for (auto _ : state) {
        benchmark::DoNotOptimize(templates.Format(number, out));
    }
    state.SetLabel(templates.Format(number, out) ? "formatted" : "as stored");
}
BENCHMARK(BM_FormatBuiltIn)->DenseRange(0, 5);

void BM_FormatMixed(benchmark::State& state) {
    NumberTemplates templates;
    templates.LoadDefaults();
    Str out;
    for (auto _ : state) {
        for (const char16_t* number : kNumbers)
            benchmark::DoNotOptimize(templates.Format(number, out));
    }
    state.SetItemsProcessed(state.iterations() * 6);
}
BENCHMARK(BM_FormatMixed);

void BM_LoadStoredTemplates(benchmark::State& state) {
    registry::memory::Reset();
    {
        registry::KeyHolder key(registry::Create(u"Software\\Orvalis\\PIM\\Templates"));
        auto count = static_cast<uint32_t>(state.range(0));
        registry::Set(key.get(), u"Count", registry::kTypeDword, &count, sizeof(count));
        for (uint32_t i = 0; i < count; ++i) {
            std::string narrow = std::to_string(i);
            std::u16string name(narrow.begin(), narrow.end());
            const char16_t layout[] = u"# (###) ###-##-##";
            registry::Set(key.get(), name.c_str(), registry::kTypeString, layout, sizeof(layout));
        }
    }
    NumberTemplates templates;
    for (auto _ : state)
        templates.Load();
    state.SetItemsProcessed(state.iterations() * state.range(0));
    registry::memory::Reset();
}
BENCHMARK(BM_LoadStoredTemplates)->Arg(4)->Arg(100);

}  // namespace

BENCHMARK_MAIN();
