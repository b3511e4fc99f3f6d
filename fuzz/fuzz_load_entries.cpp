// Loads board entries from arbitrary registry contents and refreshes them against a small
// synthetic contacts database. Input: records of [name byte][index byte][type byte][size byte]
// followed by size data bytes. Checks that a refresh never loses an entry and that a full save
// loads back identical.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "base/Alert.h"
#include "base/ModuleMemory.h"
#include "base/Registry.h"
#include "base/RegistryMemory.h"
#include "board/DialBoard.h"

namespace {

const char16_t* const kBases[] = {u"Oid",  u"Display", u"Btn",  u"Index",  u"Phone",  u"Type",
                                  u"Link", u"First",   u"Last", u"Middle", u"Company"};

// Contacts whose names and numbers follow from their object ids; every third one is gone.
class SyntheticContacts : public ContactSource {
  public:
    bool IsAvailable() override { return true; }
    bool Read(uint32_t oid, uint32_t flags, ContactRecord& record) override {
        if (oid % 3 == 0)
            return false;
        record.Clear();
        record.oid = oid;
        if (flags & 1) {
            record.firstName = oid % 2 ? u"Anna" : u"";
            record.lastName = oid % 5 ? u"" : u"Berg";
        }
        if (flags & 2) {
            for (uint32_t i = 0; i < oid % 4; ++i) {
                ContactPhone phone;
                phone.label = i % 2 ? u"Work" : u"Cabin";
                phone.number = i % 2 ? u"111" : u"222";
                phone.type = i % 2 ? static_cast<int32_t>(i) : 100;
                record.phones.Add(phone);
            }
        }
        if (flags & 32)
            record.hasPicture = oid & 1;
        return true;
    }
    bool FindByNumber(const Str& number, Array<uint32_t>& oids) override {
        oids.RemoveAll();
        for (int i = 0; i < number.Length() % 4; ++i)
            oids.Add(static_cast<uint32_t>(i * 7 + 1));
        return !oids.IsEmpty();
    }
};

void Plant(const uint8_t* data, size_t size) {
    registry::KeyHolder key(registry::Create(DialBoard::kKeyPath));
    if (!key)
        return;
    size_t at = 0;
    while (at + 4 <= size) {
        uint8_t base = data[at];
        uint8_t index = data[at + 1];
        uint8_t type = data[at + 2];
        uint8_t length = data[at + 3];
        at += 4;
        if (length > size - at)
            length = static_cast<uint8_t>(size - at);
        std::u16string name = kBases[base % 11];
        // Mostly small indexes so that lists form; now and then one far out.
        std::string number = std::to_string(index < 200 ? index % 8 : index);
        name.append(number.begin(), number.end());
        registry::Set(key.get(), name.c_str(), type % 5, data + at, length);
        at += length;
    }
}

bool SameStored(const DialEntry& a, const DialEntry& b) {
    return a.oid == b.oid && a.display == b.display && a.btn == b.btn && a.slot == b.slot &&
           a.phone == b.phone && a.typeLabel == b.typeLabel && a.link == b.link &&
           a.first == b.first && a.last == b.last && a.middle == b.middle && a.company == b.company;
}

int Quiet(const char16_t*, const char16_t*, uint32_t) {
    return kAlertAnswerOk;
}

// A resource library with the one text the board needs, so unnamed buttons log nothing.
void ProvideTexts() {
    static bool provided = false;
    if (provided)
        return;
    ModuleHandle texts = module_memory::MakeModule();
    module_memory::SetString(texts, 107, u"Unnamed");
    SetResourceModule(texts);
    provided = true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    SetAlertHandler(Quiet);
    ProvideTexts();
    registry::memory::Reset();
    Plant(data, size);

    DialBoard plain;
    plain.LoadEntries();

    SyntheticContacts contacts;
    DialBoard refreshed(&contacts);
    refreshed.LoadEntries();
    if (refreshed.Count() != plain.Count())
        std::abort();

    refreshed.SaveEntries(-1);
    DialBoard again;
    again.LoadEntries();
    if (again.Count() != refreshed.Count())
        std::abort();
    for (int i = 0; i < again.Count(); ++i) {
        if (!SameStored(again.EntryAt(i), refreshed.EntryAt(i)))
            std::abort();
    }
    refreshed.SortByName();
    return 0;
}
