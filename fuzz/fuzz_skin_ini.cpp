// The skin description reader on arbitrary bytes: parsing and every typed look-up, on every
// section, must neither crash nor read outside what it was given.
#include <cstddef>
#include <cstdint>

#include "skin/IniFile.h"

namespace {

constexpr const char16_t* kKeys[] = {u"BgrColor",  u"TxtColor",   u"FontText",
                                     u"FontSmall", u"FontButton", u""};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    IniFile ini;
    ini.Parse(data, size);
    for (int section = -1; section <= ini.SectionCount(); ++section) {
        for (const char16_t* key : kKeys) {
            uint32_t colour = 0;
            ini.GetColor(section, key, colour);
            int32_t points = 0;
            int32_t weight = 0;
            Str face;
            bool italic = false;
            bool quality = false;
            ini.GetFontSpec(section, key, points, face, weight, italic, &quality);
            Array<Str> list;
            ini.GetList(section, key, list);
        }
        ini.GetValue(section, nullptr);
    }
    ini.FindSection(u"Dialdeck");
    return 0;
}
