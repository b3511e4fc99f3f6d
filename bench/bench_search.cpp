// Search service figures: index build time and size, and the latency of one keystroke (request
// to complete reply) at 1,000, 10,000 and 100,000 synthetic contacts, beside the linear matcher
// with the same rules. Prints a table, then runs the registered Google Benchmark cases.

#include <benchmark/benchmark.h>
#include <time.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "keypad/KeypadLayout.h"
#include "service/AddressBookGenerator.h"
#include "service/LinearMatcher.h"
#include "service/SearchService.h"
#include "service/ServiceProtocol.h"

namespace {

using Clock = std::chrono::steady_clock;

double Micros(Clock::duration d) {
    return std::chrono::duration<double, std::micro>(d).count();
}

/// This thread's processor time in microseconds: what a request costs when the machine is
/// shared, without the time other processes held the processor.
double ThreadMicros() {
    timespec t{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
    return static_cast<double>(t.tv_sec) * 1e6 + static_cast<double>(t.tv_nsec) / 1e3;
}

struct Samples {
    std::vector<double> service;
    std::vector<double> serviceCpu;
    std::vector<double> linear;
    void Add(std::pair<double, double> wallAndCpu) {
        service.push_back(wallAndCpu.first);
        serviceCpu.push_back(wallAndCpu.second);
    }
};

double Percentile(std::vector<double> v, double p) {
    if (v.empty())
        return 0;
    std::sort(v.begin(), v.end());
    size_t i = static_cast<size_t>(p * static_cast<double>(v.size() - 1) + 0.5);
    return v[i];
}

/// Times the service's reply to one typed text, as the picker asks it (a kept buffer).
class Typist {
  public:
    explicit Typist(SearchService& service) : service_(service), buffer_(1 << 16) {}

    /// Wall and processor microseconds of one request.
    std::pair<double, double> Request(const std::u16string& text) {
        uint32_t returned = 0;
        double cpuStart = ThreadMicros();
        auto start = Clock::now();
        bool ok = Send(text, &returned);
        if (!ok && returned > buffer_.size()) {
            buffer_.resize(returned);
            ok = Send(text, &returned);
        }
        double us = Micros(Clock::now() - start);
        double cpu = ThreadMicros() - cpuStart;
        if (!ok)
            std::fprintf(stderr, "request failed\n");
        return {us, cpu};
    }

  private:
    bool Send(const std::u16string& text, uint32_t* returned) {
        return service_.IoControl(search_protocol::kSearchText,
                                  reinterpret_cast<const uint8_t*>(text.data()),
                                  static_cast<uint32_t>(text.size() * 2), buffer_.data(),
                                  static_cast<uint32_t>(buffer_.size()), returned);
    }
    SearchService& service_;
    std::vector<uint8_t> buffer_;
};

double TimeLinear(const SearchService& service, const std::u16string& text) {
    KeyQuery query;
    ParseKeyQuery(text.data(), text.size(), query);
    auto start = Clock::now();
    SearchHits hits = LinearSearch(service.Table(), service.Keys(), query);
    benchmark::DoNotOptimize(hits.data());
    return Micros(Clock::now() - start);
}

/// The typed digits of a contact's name: first name, or last name, or company.
std::u16string TypedToward(const ServiceContact& c, const LetterKeys& keys, size_t length) {
    std::u16string out;
    for (int f : {kFieldFirst, kFieldLast, kFieldCompany}) {
        for (char16_t ch : c.fields[f]) {
            int key = SingleKey(keys.Mask(ch));
            if (key >= 0 && out.size() < length)
                out.push_back(static_cast<char16_t>(u'0' + key));
        }
        if (!out.empty())
            break;
    }
    return out;
}

void PrintRow(const char* what, const Samples& s) {
    double sp50 = Percentile(s.service, 0.5), sp99 = Percentile(s.service, 0.99);
    double cp50 = Percentile(s.serviceCpu, 0.5), cp99 = Percentile(s.serviceCpu, 0.99);
    double lp50 = Percentile(s.linear, 0.5), lp99 = Percentile(s.linear, 0.99);
    std::printf(
        "  %-22s n=%5zu  service wall p50 %7.1f p99 %8.1f us | cpu p50 %7.1f p99 %7.1f us"
        " | linear p50 %9.1f p99 %9.1f us | x%.0f\n",
        what, s.service.size(), sp50, sp99, cp50, cp99, lp50, lp99, sp50 > 0 ? lp50 / sp50 : 0.0);
}

void Measure(uint32_t count) {
    SearchService service;
    KeypadLayout layout;
    layout.Load(3);  // Cyrillic with the Latin letters: every generated name is typeable
    service.SetLayout(layout);
    std::vector<ServiceContact> book = GenerateAddressBook(count, 2024);
    // The build: ordering the contacts by display name, then indexing them.
    auto start = Clock::now();
    service.SetContacts(std::move(book));
    service.EnsureIndex();
    double buildMs = Micros(Clock::now() - start) / 1000.0;
    std::printf(
        "%u contacts: index build %.1f ms, index %.0f bytes per contact, contact data "
        "%.0f bytes per contact\n",
        count, buildMs, static_cast<double>(service.IndexBytes()) / count,
        static_cast<double>(service.Table().DataBytes()) / count);

    Typist typist(service);
    // Linear samples are thinned at large sizes: each costs a full scan.
    uint32_t linearEvery = count >= 100000 ? 8 : 1;
    Samples one, two, three, backspace;
    for (char16_t a = u'2'; a <= u'9'; ++a) {
        std::u16string t(1, a);
        typist.Request(u"");
        one.Add(typist.Request(t));
        one.linear.push_back(TimeLinear(service, t));
        for (char16_t b = u'2'; b <= u'9'; ++b) {
            typist.Request(u"");
            two.Add(typist.Request(t + b));
            if ((a + b) % linearEvery == 0)
                two.linear.push_back(TimeLinear(service, t + b));
        }
    }
    BookRandom random(77);
    int sessions = count >= 100000 ? 150 : 300;
    for (int s = 0; s < sessions; ++s) {
        const ServiceContact& target = service.Table().At(static_cast<int>(random.Below(count)));
        std::u16string goal = TypedToward(target, service.Keys(), 8);
        typist.Request(u"");
        std::u16string typed;
        bool timeLinear = s % linearEvery == 0;
        for (char16_t d : goal) {
            typed.push_back(d);
            Samples& into = typed.size() == 1 ? one : typed.size() == 2 ? two : three;
            into.Add(typist.Request(typed));
            if (timeLinear && typed.size() >= 3)
                into.linear.push_back(TimeLinear(service, typed));
        }
        while (typed.size() > 1) {
            typed.pop_back();
            backspace.Add(typist.Request(typed));
            if (timeLinear)
                backspace.linear.push_back(TimeLinear(service, typed));
        }
    }
    PrintRow("one digit", one);
    PrintRow("two digits", two);
    PrintRow("three or more digits", three);
    PrintRow("backspace", backspace);
    std::fflush(stdout);
}

void BM_BuildIndex(benchmark::State& state) {
    SearchService service;
    auto book = GenerateAddressBook(static_cast<uint32_t>(state.range(0)), 99);
    for (auto _ : state) {
        service.SetContacts(book);
        service.EnsureIndex();
    }
}
BENCHMARK(BM_BuildIndex)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

void BM_TypeFourDigits(benchmark::State& state) {
    SearchService service;
    service.SetContacts(GenerateAddressBook(static_cast<uint32_t>(state.range(0)), 99));
    service.EnsureIndex();
    Typist typist(service);
    for (auto _ : state) {
        typist.Request(u"");
        for (const char16_t* t : {u"3", u"37", u"373", u"3733"})
            typist.Request(t);
    }
}
BENCHMARK(BM_TypeFourDigits)->Arg(10000)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
    for (uint32_t count : {1000u, 10000u, 100000u})
        Measure(count);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
