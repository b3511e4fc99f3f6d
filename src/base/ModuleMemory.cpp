// Modules in memory: handles are addresses of small records that hold a file name and strings.
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "base/Chars.h"
#include "base/Module.h"
#include "base/ModuleMemory.h"

namespace {

struct FakeModule {
    std::u16string fileName;
    std::map<uint32_t, std::u16string> strings;
};

struct State {
    FakeModule program{u"C:\\Program Files\\Dialdeck\\Dialdeck.exe", {}};
    std::vector<std::unique_ptr<FakeModule>> others;
    std::vector<int> loadSizes;
};

State& Modules() {
    static State state;
    return state;
}

FakeModule* Find(ModuleHandle handle) {
    if (handle == &Modules().program)
        return &Modules().program;
    for (auto& m : Modules().others) {
        if (m.get() == handle)
            return m.get();
    }
    return nullptr;
}

}  // namespace

ModuleHandle ProgramModule() {
    return &Modules().program;
}

int ModuleFileName(ModuleHandle module, char16_t* buf, int cap) {
    FakeModule* m = Find(module);
    if (m == nullptr || cap <= 0 || m->fileName.empty())
        return 0;
    return static_cast<int>(chars::CopyN(buf, static_cast<size_t>(cap), m->fileName.c_str()));
}

int LoadResourceText(ModuleHandle module, uint32_t id, char16_t* buf, int cap) {
    Modules().loadSizes.push_back(cap);
    FakeModule* m = Find(module);
    if (m == nullptr || cap <= 0)
        return 0;
    auto s = m->strings.find(id);
    if (s == m->strings.end())
        return 0;
    return static_cast<int>(chars::CopyN(buf, static_cast<size_t>(cap), s->second.c_str()));
}

namespace module_memory {

void Reset() {
    Modules().program.strings.clear();
    Modules().program.fileName = u"C:\\Program Files\\Dialdeck\\Dialdeck.exe";
    Modules().others.clear();
    Modules().loadSizes.clear();
}

ModuleHandle MakeModule() {
    Modules().others.push_back(std::make_unique<FakeModule>());
    return Modules().others.back().get();
}

void SetFileName(ModuleHandle module, const char16_t* name) {
    if (FakeModule* m = Find(module))
        m->fileName = name != nullptr ? name : u"";
}

void SetString(ModuleHandle module, uint32_t id, const char16_t* text) {
    if (FakeModule* m = Find(module))
        m->strings[id] = text;
}

std::vector<int> LoadBufferSizes() {
    return Modules().loadSizes;
}

}  // namespace module_memory
