#include "phone/NumberTemplates.h"

#include <vector>

#include "base/Registry.h"
#include "base/SettingsStore.h"
#include "phone/NumberMatch.h"

namespace {

constexpr const char16_t* kBuiltIn[] = {u"##-##-##", u"###-##-##", u"# (###) ###-##-##",
                                        u"+# (###) ###-##-##"};

// A number or a template cut into the pieces the formatter matches and joins.
struct NumberParts {
    Str headOuter;
    Str headInner;
    Str body;
    Str tailInner;
    Str tailOuter;
};

NumberParts SplitParts(const char16_t* text, const char16_t* places) {
    DigitRun run = SplitDigitRun(text, places);
    HeadParts head = SplitHead(run.head);
    TailParts tail = SplitTail(run.tail);
    return {head.outer, head.inner, run.body, tail.inner, tail.outer};
}

// A number's inner part fits when it is empty or found inside the template's (non-empty) one.
bool InnerFits(const Str& templateInner, const Str& numberInner) {
    if (numberInner.IsEmpty())
        return true;
    return !templateInner.IsEmpty() && templateInner.Find(numberInner.c_str()) != -1;
}

// Writes the number's digits into the template's body; false when the digit count matches
// neither the "#" places alone nor all digit places.
bool Fill(const Str& templateBody, const Str& digits, Str& filled) {
    const char16_t* places = nullptr;
    if (digits.Length() == CountInSet(templateBody, u"#")) {
        places = u"#";
    } else if (digits.Length() == CountInSet(templateBody, kDigitPlaces)) {
        places = kDigitPlaces;
    } else {
        return false;
    }
    int n = templateBody.Length();
    filled.Empty();
    char16_t* out = filled.GetBuffer(n);
    int next = 0;
    for (int i = 0; i < n; ++i) {
        out[i] = IsInSet(templateBody[i], places) ? digits[next++] : templateBody[i];
    }
    filled.ReleaseBuffer(n);
    return true;
}

void Assemble(const NumberParts& layout, const NumberParts& number, const Str& filled, Str& out) {
    out.Empty();
    if (!layout.headOuter.IsEmpty() && !EqualIgnoringCase(layout.headOuter, number.headOuter)) {
        out += layout.headOuter;
        out += u' ';
    }
    out += number.headOuter;
    out += number.headInner.IsEmpty() ? layout.headInner : number.headInner;
    out += filled;
    out += number.tailInner.IsEmpty() ? layout.tailInner : number.tailInner;
    out += number.tailOuter;
    if (!layout.tailOuter.IsEmpty() && !EqualIgnoringCase(layout.tailOuter, number.tailOuter)) {
        out += u' ';
        out += layout.tailOuter;
    }
}

// Tries one template; true with out assembled when it fits and fills.
bool TryTemplate(const Str& layoutText, const NumberParts& number, const Str& digits, Str& out) {
    NumberParts layout = SplitParts(layoutText, kDigitPlaces);
    if (!InnerFits(layout.headInner, number.headInner))
        return false;
    if (!InnerFits(layout.tailInner, number.tailInner))
        return false;
    if (!FitsTemplate(layout.body, number.body))
        return false;
    Str filled;
    if (!Fill(layout.body, digits, filled))
        return false;
    Assemble(layout, number, filled, out);
    return true;
}

// Reads a REG_SZ value of an open key; every failure (missing, other type) reads as "".
Str ReadStringValue(registry::Key key, const char16_t* name) {
    uint32_t type = 0;
    uint32_t size = 0;
    if (!registry::Query(key, name, &type, nullptr, &size))
        return Str();
    if (type != registry::kTypeString || size < 2)
        return Str();
    // One spare character so an unterminated value still ends.
    std::vector<char16_t> buf(size / 2 + 1, 0);
    uint32_t bytes = static_cast<uint32_t>(buf.size() * 2);
    if (!registry::Query(key, name, &type, buf.data(), &bytes))
        return Str();
    if (type != registry::kTypeString)
        return Str();
    size_t length = bytes / 2 < buf.size() ? bytes / 2 : buf.size() - 1;
    buf[length] = 0;
    return Str(buf.data());
}

}  // namespace

void NumberTemplates::Load() {
    enabled_ = true;
    collapseDashes_ = true;
    Clear();
    auto count = static_cast<int32_t>(
        settings::ReadNumber(settings::kTemplatesKey, kCountValue, static_cast<uint32_t>(-1)));
    if (count == -1) {
        LoadDefaults();
        return;
    }
    if (count > kMaxStoredTemplates)
        count = kMaxStoredTemplates;
    registry::KeyHolder key(settings::OpenKey(settings::kTemplatesKey, false));
    if (!key)
        return;
    for (int32_t i = 0; i < count; ++i) {
        Str name;
        name.Format(u"%d", i);
        Str layout = ReadStringValue(key.get(), name);
        if (layout.IsEmpty() || CountInSet(layout, kInvalidTemplateChars) != 0)
            continue;
        Append(layout);
    }
}

void NumberTemplates::LoadDefaults() {
    Clear();
    for (const char16_t* layout : kBuiltIn)
        Append(layout);
}

bool NumberTemplates::Format(const char16_t* number, Str& out) const {
    if (!enabled_ || templates_.IsEmpty() || number == nullptr || *number == 0)
        return false;
    if (CountInSet(number, kDialMarks) != 0)
        return false;
    int digitCount = CountInSet(number, kDigits);
    if (digitCount == 0)
        return false;

    NumberParts parts = SplitParts(number, kDigits);
    if (collapseDashes_)
        parts.body = WithoutSet(parts.body, u"-");
    parts.body = WithoutSet(parts.body, u" ");
    Str digits = OnlySet(parts.body, kDigits);

    // First only the templates with fixed digits, then all: a fixed-digit layout beats a
    // general one of the same length.
    for (int pass = 0; pass < 2; ++pass) {
        for (int i = 0; i < templates_.Size(); ++i) {
            if (digitSlots_[i] != digitCount)
                continue;
            if (pass == 0 && CountInSet(templates_[i], kDigits) == 0)
                continue;
            if (TryTemplate(templates_[i], parts, digits, out))
                return true;
        }
    }
    return false;
}

void NumberTemplates::Clear() {
    templates_.RemoveAll();
    digitSlots_.RemoveAll();
}

void NumberTemplates::Append(const Str& layout) {
    templates_.Add(layout);
    digitSlots_.Add(CountInSet(layout, kDigitPlaces));
}
