// Loading and refreshing stored board entries against a large contacts database: the program's
// contact source over the contacts session on an in-memory store of 10,000 contacts, and the
// search client talking to the search service in process.
#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <vector>

#include "base/Registry.h"
#include "base/RegistryMemory.h"
#include "board/DialBoard.h"
#include "board/SessionContactSource.h"
#include "contacts/ContactsSession.h"
#include "contacts/MemoryContactsStore.h"
#include "contacts/SearchServiceClient.h"
#include "service/InProcessServiceCalls.h"
#include "service/SearchService.h"

namespace {

constexpr int kContacts = 10000;
constexpr int kEntries = 500;

std::u16string Text(const std::string& narrow) {
    return std::u16string(narrow.begin(), narrow.end());
}

std::u16string MobileOf(int i) {
    return Text("+4670" + std::to_string(1000000 + i));
}
std::u16string WorkOf(int i) {
    return Text("+4680" + std::to_string(2000000 + i));
}
std::u16string FirstOf(int i) {
    return Text("First" + std::to_string(i % 977));
}
std::u16string LastOf(int i) {
    return Text("Last" + std::to_string(i));
}

StoredContact MakeContact(int i, uint32_t oid) {
    StoredContact c;
    c.oid = oid;
    c.SetText(contact_props::kFirstName, FirstOf(i).c_str());
    c.SetText(contact_props::kLastName, LastOf(i).c_str());
    c.SetText(contact_props::kCompany, u"Company");
    c.SetText(contact_props::kMobilePhone, MobileOf(i).c_str());
    c.SetText(contact_props::kWorkPhone, WorkOf(i).c_str());
    return c;
}

ServiceContact MakeServiceContact(int i, uint32_t oid) {
    ServiceContact c;
    c.oid = oid;
    c.fields[kFieldFirst] = FirstOf(i);
    c.fields[kFieldLast] = LastOf(i);
    c.fields[kFieldCompany] = u"Company";
    c.phones = {{MobileOf(i), u"Mobile", 0}, {WorkOf(i), u"Work", 3}};
    return c;
}

// How the stored entries differ from the database.
enum Scenario { kUnchanged = 0, kNumbersEdited = 1, kContactsRecreated = 2 };

// Contact i has oid i + 1, except that in the re-created scenario every tenth bound contact
// was deleted and created again under a new oid.
uint32_t OidOf(int i, Scenario scenario) {
    bool recreated = scenario == kContactsRecreated && i % 200 == 0 && i / 20 < kEntries;
    return recreated ? static_cast<uint32_t>(100000 + i) : static_cast<uint32_t>(i + 1);
}

class BenchPlatform : public ContactsPlatform {
  public:
    explicit BenchPlatform(Scenario scenario) : scenario_(scenario) {}
    std::unique_ptr<ContactsStore> CreateStore() override {
        auto store = std::make_unique<MemoryContactsStore>();
        std::vector<StoredContact> contacts;
        contacts.reserve(kContacts);
        for (int i = 0; i < kContacts; ++i)
            contacts.push_back(MakeContact(i, OidOf(i, scenario_)));
        store->ReplaceAll(std::move(contacts));
        return store;
    }

  private:
    Scenario scenario_;
};

void PlantEntries(Scenario scenario) {
    registry::memory::Reset();
    registry::KeyHolder key(registry::Create(DialBoard::kKeyPath));
    auto number = [&](const char16_t* base, int e, uint32_t value) {
        std::u16string name = base + Text(std::to_string(e));
        registry::Set(key.get(), name.c_str(), registry::kTypeDword, &value, 4);
    };
    auto text = [&](const char16_t* base, int e, const std::u16string& value) {
        std::u16string name = base + Text(std::to_string(e));
        registry::Set(key.get(), name.c_str(), registry::kTypeString, value.c_str(),
                      static_cast<uint32_t>((value.size() + 1) * 2));
    };
    for (int e = 0; e < kEntries; ++e) {
        int i = e * 20;  // spread over the database
        bool edited = scenario == kNumbersEdited && e % 10 == 0;
        number(u"Oid", e, static_cast<uint32_t>(i + 1));
        text(u"Display", e, u"");
        number(u"Btn", e, static_cast<uint32_t>(-1));
        number(u"Index", e, static_cast<uint32_t>(e));
        text(u"Phone", e, edited ? u"+4670999" : MobileOf(i));
        text(u"Type", e, u"Mobile");
        number(u"Link", e, 0);
        text(u"First", e, FirstOf(i));
        text(u"Last", e, LastOf(i));
        text(u"Middle", e, u"");
        text(u"Company", e, u"Company");
    }
}

void BM_LoadAndRefresh(benchmark::State& state) {
    auto scenario = static_cast<Scenario>(state.range(0));
    BenchPlatform platform(scenario);
    ContactsSession session(platform);
    if (!session.Open()) {
        state.SkipWithError("contacts session did not open");
        return;
    }
    SearchService service;
    std::vector<ServiceContact> serviceContacts;
    for (int i = 0; i < kContacts; ++i) {
        serviceContacts.push_back(MakeServiceContact(i, OidOf(i, scenario)));
    }
    service.SetContacts(std::move(serviceContacts));
    service.EnsureIndex();
    InProcessServiceCalls calls(service);
    SearchServiceClient client(calls);
    SessionContactSource contacts(&session, client);
    DialBoard board(&contacts);

    int saves = 0;
    for (auto _ : state) {
        state.PauseTiming();
        PlantEntries(scenario);
        int before = registry::memory::SetCount();
        state.ResumeTiming();
        board.LoadEntries();
        state.PauseTiming();
        saves = (registry::memory::SetCount() - before) / 11;
        state.ResumeTiming();
    }
    if (board.Count() != kEntries)
        state.SkipWithError("entries lost");
    state.counters["entries"] = board.Count();
    state.counters["saved"] = saves;
    state.SetItemsProcessed(state.iterations() * kEntries);
    state.SetLabel(scenario == kUnchanged       ? "nothing changed"
                   : scenario == kNumbersEdited ? "10% numbers edited"
                                                : "10% contacts re-created");
    registry::memory::Reset();
}
BENCHMARK(BM_LoadAndRefresh)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);

void BM_LoadWithoutContacts(benchmark::State& state) {
    DialBoard board;
    for (auto _ : state) {
        state.PauseTiming();
        PlantEntries(kUnchanged);
        state.ResumeTiming();
        board.LoadEntries();
    }
    state.SetItemsProcessed(state.iterations() * kEntries);
    registry::memory::Reset();
}
BENCHMARK(BM_LoadWithoutContacts)->Unit(benchmark::kMillisecond);

void BM_SaveAll(benchmark::State& state) {
    PlantEntries(kUnchanged);
    DialBoard board;
    board.LoadEntries();
    for (auto _ : state)
        board.SaveEntries(-1);
    state.SetItemsProcessed(state.iterations() * kEntries);
    registry::memory::Reset();
}
BENCHMARK(BM_SaveAll)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
