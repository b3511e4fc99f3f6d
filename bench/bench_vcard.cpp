// Reading a contacts file: the vCard reader and mapping at 1,000 and 10,000 cards, reading one
// contact through the session, and a reload that finds one contact changed.
#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <vector>

#include "contacts/ContactsSession.h"
#include "contacts/MemoryContactsStore.h"
#include "contacts/VCardContacts.h"

namespace {

/// A file of cards as address books write them: names, three numbers, an e-mail, a note.
std::string MakeFile(int cards, int changed = -1) {
    std::string file;
    for (int i = 0; i < cards; ++i) {
        std::string n = std::to_string(i);
        file += "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:bench-" + n + "\r\nN:Family" + n + ";Given" + n +
                ";;;\r\nFN:Given" + n + " Family" + n + "\r\nORG:Company " + n +
                "\r\nTEL;TYPE=CELL:+46 70 " + n + "\r\nTEL;TYPE=HOME:+46 8 " + n +
                "\r\nTEL;TYPE=WORK,FAX:+46 8 9" + n + "\r\nEMAIL:user" + n +
                "@example.com\r\nNOTE:Met at the conference\\, row " + (i == changed ? "B" : "A") +
                ".\r\nEND:VCARD\r\n";
    }
    return file;
}

void BM_ReadContactsFile(benchmark::State& state) {
    std::string file = MakeFile(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        auto contacts =
            ReadContactsFile(reinterpret_cast<const uint8_t*>(file.data()), file.size());
        benchmark::DoNotOptimize(contacts.data());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(file.size()));
}
BENCHMARK(BM_ReadContactsFile)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

void BM_ReloadWithOneChange(benchmark::State& state) {
    int cards = static_cast<int>(state.range(0));
    std::string before = MakeFile(cards);
    std::string after = MakeFile(cards, cards / 2);
    MemoryContactsStore store;
    store.Logon(nullptr);
    bool flip = false;
    for (auto _ : state) {
        const std::string& file = flip ? after : before;
        flip = !flip;
        store.ReplaceAll(
            ReadContactsFile(reinterpret_cast<const uint8_t*>(file.data()), file.size()));
    }
    state.SetItemsProcessed(state.iterations() * cards);
}
BENCHMARK(BM_ReloadWithOneChange)->Arg(10000)->Unit(benchmark::kMillisecond);

class BenchPlatform : public ContactsPlatform {
  public:
    std::unique_ptr<ContactsStore> CreateStore() override {
        std::string file = MakeFile(10000);
        auto store = std::make_unique<MemoryContactsStore>();
        store->ReplaceAll(
            ReadContactsFile(reinterpret_cast<const uint8_t*>(file.data()), file.size()));
        return store;
    }
};

void BM_ReadContactNamesAndPhones(benchmark::State& state) {
    BenchPlatform platform;
    ContactsSession session(platform);
    session.Open();
    std::vector<uint32_t> oids;
    session.Store()->EnumerateOids(oids);
    ContactRecord record;
    size_t i = 0;
    for (auto _ : state) {
        session.ReadContact(oids[i++ % oids.size()], record, 35, 0, 0);
        benchmark::DoNotOptimize(record.phones.Size());
    }
}
BENCHMARK(BM_ReadContactNamesAndPhones)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
