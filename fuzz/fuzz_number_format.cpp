// Formats arbitrary numbers through arbitrary stored templates. The input is UTF-16 text split at
// line feeds: every line but the last is a template value, the last line is the number.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "base/Registry.h"
#include "base/RegistryMemory.h"
#include "phone/NumberMatch.h"
#include "phone/NumberTemplates.h"

namespace {

std::vector<std::u16string> Lines(const uint8_t* data, size_t size) {
    std::u16string text(size / 2, u'\0');
    if (!text.empty())
        std::memcpy(text.data(), data, text.size() * 2);
    std::vector<std::u16string> lines(1);
    for (char16_t c : text) {
        if (c == u'\n') {
            lines.emplace_back();
        } else if (c != 0) {
            lines.back() += c;
        }
    }
    return lines;
}

void StoreTemplates(const std::vector<std::u16string>& lines) {
    registry::KeyHolder key(registry::Create(u"Software\\Orvalis\\PIM\\Templates"));
    if (!key)
        return;
    auto count = static_cast<uint32_t>(lines.size() - 1);
    registry::Set(key.get(), u"Count", registry::kTypeDword, &count, sizeof(count));
    for (uint32_t i = 0; i < count; ++i) {
        std::string narrow = std::to_string(i);
        std::u16string name(narrow.begin(), narrow.end());
        registry::Set(key.get(), name.c_str(), registry::kTypeString, lines[i].c_str(),
                      static_cast<uint32_t>((lines[i].size() + 1) * 2));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    registry::memory::Reset();
    std::vector<std::u16string> lines = Lines(data, size);
    const std::u16string& number = lines.back();
    if (lines.size() > 1)
        StoreTemplates(lines);

    NumberTemplates templates;
    templates.Load();
    Str out;
    if (templates.Format(number.c_str(), out)) {
        // Formatting only rearranges: the digits come out as they went in.
        if (!(OnlySet(out, kDigits) == OnlySet(number.c_str(), kDigits)))
            std::abort();
    }
    templates.SetCollapseDashes(false);
    templates.Format(number.c_str(), out);

    char16_t buf[260];
    StripSet(number.c_str(), buf, kRunSeparators, 260);
    KeepSet(number.c_str(), buf, kSmsNumberChars, 260);
    for (size_t i = 0; i + 1 < lines.size(); ++i)
        FitsTemplate(lines[i].c_str(), number.c_str());
    return 0;
}
