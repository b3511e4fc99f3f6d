// The registry kept in memory: key paths compare without regard to ASCII case, as the platform's
// do; a key handle is a private copy of the path, so deleting a key under an open handle is safe.
#include <algorithm>
#include <cstring>
#include <map>
#include <string>

#include "base/Chars.h"
#include "base/Registry.h"
#include "base/RegistryMemory.h"

namespace registry {

namespace {

std::u16string Fold(std::u16string text) {
    for (char16_t& c : text)
        c = chars::AsciiLower(c);
    return text;
}

struct StoredKey {
    std::u16string path;                                                        // as first created
    std::map<std::u16string, std::pair<std::u16string, memory::Value>> values;  // folded name
};

struct State {
    std::map<std::u16string, StoredKey> keys;  // by folded path
    int flushes = 0;
    int sets = 0;
    bool failCreate = false;
};

State& Store() {
    static State state;
    return state;
}

std::u16string Normalise(const char16_t* path) {
    std::u16string p = path != nullptr ? std::u16string(path) : std::u16string();
    while (!p.empty() && p.back() == u'\\')
        p.pop_back();
    return p;
}

}  // namespace

struct KeyTag {
    std::u16string folded;
};

Key Create(const char16_t* path) {
    if (Store().failCreate)
        return nullptr;
    std::u16string p = Normalise(path);
    // Parents exist whenever a child does.
    for (size_t at = p.find(u'\\'); at != std::u16string::npos; at = p.find(u'\\', at + 1)) {
        std::u16string parent = p.substr(0, at);
        Store().keys.try_emplace(Fold(parent), StoredKey{parent, {}});
    }
    Store().keys.try_emplace(Fold(p), StoredKey{p, {}});
    return new KeyTag{Fold(p)};
}

Key Open(const char16_t* path) {
    std::u16string folded = Fold(Normalise(path));
    if (Store().keys.count(folded) == 0)
        return nullptr;
    return new KeyTag{folded};
}

void Close(Key key) {
    delete key;
}

bool Query(Key key, const char16_t* name, uint32_t* type, void* data, uint32_t* size) {
    if (key == nullptr)
        return false;
    auto k = Store().keys.find(key->folded);
    if (k == Store().keys.end())
        return false;
    auto v = k->second.values.find(Fold(name != nullptr ? name : u""));
    if (v == k->second.values.end())
        return false;
    const memory::Value& value = v->second.second;
    if (type != nullptr)
        *type = value.type;
    uint32_t needed = static_cast<uint32_t>(value.data.size());
    if (size == nullptr)
        return data == nullptr;
    if (data != nullptr && *size < needed) {
        *size = needed;
        return false;
    }
    if (data != nullptr && needed > 0)
        std::memcpy(data, value.data.data(), needed);
    *size = needed;
    return true;
}

bool Set(Key key, const char16_t* name, uint32_t type, const void* data, uint32_t size) {
    if (key == nullptr)
        return false;
    auto k = Store().keys.find(key->folded);
    if (k == Store().keys.end())
        return false;
    std::u16string shown = name != nullptr ? name : u"";
    memory::Value value;
    value.type = type;
    auto* bytes = static_cast<const uint8_t*>(data);
    if (bytes != nullptr)
        value.data.assign(bytes, bytes + size);
    k->second.values[Fold(shown)] = {shown, value};
    ++Store().sets;
    return true;
}

bool DeleteValue(Key key, const char16_t* name) {
    if (key == nullptr)
        return false;
    auto k = Store().keys.find(key->folded);
    return k != Store().keys.end() &&
           k->second.values.erase(Fold(name != nullptr ? name : u"")) > 0;
}

bool Flush(Key key) {
    ++Store().flushes;
    return key != nullptr;
}

bool DeleteTree(const char16_t* path) {
    std::u16string folded = Fold(Normalise(path));
    auto& keys = Store().keys;
    for (auto it = keys.begin(); it != keys.end();) {
        bool below = it->first == folded || (it->first.size() > folded.size() &&
                                             it->first.compare(0, folded.size(), folded) == 0 &&
                                             it->first[folded.size()] == u'\\');
        it = below ? keys.erase(it) : std::next(it);
    }
    return true;
}

namespace memory {

void Reset() {
    Store().keys.clear();
    Store().flushes = Store().sets = 0;
    Store().failCreate = false;
}

std::vector<std::u16string> Keys() {
    std::vector<std::u16string> result;
    for (const auto& [folded, key] : Store().keys)
        result.push_back(key.path);
    return result;
}

std::map<std::u16string, Value> Values(const char16_t* path) {
    std::map<std::u16string, Value> result;
    auto k = Store().keys.find(Fold(Normalise(path)));
    if (k == Store().keys.end())
        return result;
    for (const auto& [folded, entry] : k->second.values)
        result[entry.first] = entry.second;
    return result;
}

int FlushCount() {
    return Store().flushes;
}
int SetCount() {
    return Store().sets;
}
void FailCreate(bool fail) {
    Store().failCreate = fail;
}

}  // namespace memory

}  // namespace registry
