#include "contacts/VCardPhones.h"

#include "base/Chars.h"
#include "contacts/ContactRecord.h"
#include "contacts/NotesBlock.h"

namespace {

/// Type codes of the phone properties, for the tables below.
enum PhoneSlot {
    kMobile = 0,
    kHome = 1,
    kHome2 = 2,
    kWork = 3,
    kWork2 = 4,
    kPager = 5,
    kRadio = 6,
    kAssistant = 7,
    kWorkFax = 8,
    kHomeFax = 9,
    kCompany = 10,
    kMms = 11,
    kCar = 12,
};

/// Types known here that choose no property by themselves (FAX chooses with HOME or WORK).
constexpr const char* kPlainTypes[] = {"VOICE",    "PREF", "MSG",  "VIDEO", "TEXT", "INTERNET",
                                       "CALLBACK", "BBS",  "ISDN", "PCS",   "FAX"};

/// Types that name a property (checked in this order), and the properties each may take.
struct TypeSlots {
    const char* type;
    std::vector<int> slots;
};

const TypeSlots kTypeSlots[] = {
    {"PAGER", {kPager}},         {"CAR", {kCar}},
    {"CELL", {kMobile}},         {"MOBILE", {kMobile}},
    {"IPHONE", {kMobile}},       {"MMS", {kMms}},
    {"X-MMS", {kMms}},           {"X-ASSISTANT", {kAssistant}},
    {"ASSISTANT", {kAssistant}}, {"X-RADIO", {kRadio}},
    {"RADIO", {kRadio}},         {"MAIN", {kCompany}},
    {"COMPANY", {kCompany}},     {"HOME", {kHome, kHome2}},
    {"WORK", {kWork, kWork2}},
};

/// Built-in labels some address books give grouped numbers, and the types each stands for.
struct LabelTypes {
    const char* label;
    const char* types[2];
};

constexpr LabelTypes kLabelTypes[] = {
    {"_$!<Mobile>!$_", {"CELL", nullptr}},
    {"_$!<iPhone>!$_", {"CELL", nullptr}},
    {"_$!<Main>!$_", {"MAIN", nullptr}},
    {"_$!<Home>!$_", {"HOME", nullptr}},
    {"_$!<Work>!$_", {"WORK", nullptr}},
    {"_$!<Pager>!$_", {"PAGER", nullptr}},
    {"_$!<AssistantPhone>!$_", {"ASSISTANT", nullptr}},
    {"_$!<HomeFAX>!$_", {"FAX", "HOME"}},
    {"_$!<WorkFAX>!$_", {"FAX", "WORK"}},
    {"_$!<Car>!$_", {"CAR", nullptr}},
    {"_$!<Radio>!$_", {"RADIO", nullptr}},
};

/// Where numbers of no particular type go, in order.
const std::vector<int> kGenericSlots = {kMobile, kHome, kWork, kHome2, kWork2};

/// Where one number may go.
struct NumberPlan {
    Str number;
    std::vector<int> slots;  ///< tried in order; empty for a number kept in the notes block
    bool specific;           ///< placed before the numbers of no particular type
    Str label;               ///< its label in the notes block
};

bool Has(const std::vector<std::string>& types, const char* type) {
    for (const std::string& value : types) {
        if (SameVCardName(value, type))
            return true;
    }
    return false;
}

bool IsKnownType(const std::string& type) {
    for (const char* plain : kPlainTypes) {
        if (SameVCardName(type, plain))
            return true;
    }
    for (const TypeSlots& entry : kTypeSlots) {
        if (SameVCardName(type, entry.type))
            return true;
    }
    return false;
}

Str Trim(Str text) {
    text.Trim();
    return text;
}

Str TextOf(const VCardProperty& property) {
    return Trim(UnescapeVCardText(DecodeVCardText(property)));
}

/// The X-ABLabel of the property's group, or null.
const VCardProperty* GroupLabel(const VCard& card, const VCardProperty& property) {
    if (property.group.empty())
        return nullptr;
    for (const VCardProperty& other : card.properties) {
        if (other.name == "X-ABLABEL" && SameVCardName(other.group, property.group.c_str())) {
            return &other;
        }
    }
    return nullptr;
}

/// True when text is exactly the ASCII word.
bool SameText(const Str& text, const char* word) {
    int i = 0;
    for (; word[i] != 0; ++i) {
        if (i >= text.Length() || text[i] != static_cast<char16_t>(word[i]))
            return false;
    }
    return i == text.Length();
}

/// The number's types: its TYPE values, and those its group's built-in label stands for.
std::vector<std::string> TypesOf(const VCardProperty& tel, const Str& groupLabel) {
    std::vector<std::string> types;
    for (const VCardParam& param : tel.params) {
        if (param.name == "TYPE")
            types.insert(types.end(), param.values.begin(), param.values.end());
    }
    for (const LabelTypes& known : kLabelTypes) {
        if (!SameText(groupLabel, known.label))
            continue;
        for (const char* type : known.types) {
            if (type != nullptr)
                types.push_back(type);
        }
    }
    return types;
}

/// A label as shown: "_$!<Name>!$_" as Name, "X-" dropped, an all-capitals word capitalised.
Str ShownLabel(const Str& label) {
    Str shown = label;
    if (shown.Length() > 8 && shown.Left(4) == Str(u"_$!<") && shown.Right(4) == Str(u">!$_")) {
        shown = shown.Mid(4, shown.Length() - 8);
    }
    if (shown.Length() > 2 && chars::AsciiLower(shown[0]) == u'x' && shown[1] == u'-') {
        shown = shown.Mid(2, shown.Length() - 2);
    }
    for (int i = 0; i < shown.Length(); ++i) {
        if (shown[i] >= u'a' && shown[i] <= u'z')
            return shown;
    }
    Str capitalised = shown.Left(1);
    for (int i = 1; i < shown.Length(); ++i)
        capitalised.Append(chars::AsciiLower(shown[i]));
    return capitalised;
}

Str FromAscii(const std::string& text) {
    return DecodeUndeclared(reinterpret_cast<const uint8_t*>(text.data()), text.size());
}

std::vector<int> FaxSlots(const std::vector<std::string>& types) {
    if (Has(types, "HOME") && !Has(types, "WORK"))
        return {kHomeFax};
    if (Has(types, "WORK"))
        return {kWorkFax};
    return {kWorkFax, kHomeFax};
}

NumberPlan PlanNumber(const VCard& card, const VCardProperty& tel, const Str& number) {
    const VCardProperty* groupLabel = GroupLabel(card, tel);
    Str label = groupLabel != nullptr ? TextOf(*groupLabel) : Str();
    std::vector<std::string> types = TypesOf(tel, label);
    NumberPlan plan{number, {}, true, Str()};
    if (Has(types, "FAX")) {
        plan.slots = FaxSlots(types);
    } else {
        for (const TypeSlots& entry : kTypeSlots) {
            if (plan.slots.empty() && Has(types, entry.type))
                plan.slots = entry.slots;
        }
    }
    if (label.IsEmpty()) {
        if (const std::string* own = tel.Param("X-CUSTOM"))
            label = FromAscii(*own);
    }
    for (const std::string& type : types) {
        if (label.IsEmpty() && !IsKnownType(type))
            label = FromAscii(type);
    }
    if (plan.slots.empty() && label.IsEmpty()) {
        plan.slots = kGenericSlots;
        plan.specific = false;
    }
    plan.label = !label.IsEmpty() ? ShownLabel(label)
                 : plan.specific  ? Str(PhoneTypeLabel(plan.slots.front()))
                                  : Str(u"Phone");
    return plan;
}

/// The number of a TEL value, a "tel:" URI's scheme dropped.
Str NumberOf(const VCardProperty& tel) {
    Str number = TextOf(tel);
    if (number.Length() >= 4 && chars::AsciiLower(number[0]) == u't' &&
        chars::AsciiLower(number[1]) == u'e' && chars::AsciiLower(number[2]) == u'l' &&
        number[3] == u':') {
        number = Trim(number.Mid(4, number.Length() - 4));
    }
    return number;
}

/// "[label: number]" with the item's special characters escaped.
Str NotesItem(const NotesNumber& entry) {
    Str item(u"[");
    for (const Str* part : {&entry.label, &entry.number}) {
        for (int i = 0; i < part->Length(); ++i) {
            char16_t c = (*part)[i];
            if (c == u'\\' || c == u'[' || c == u']' || c == u':')
                item.Append(u'\\');
            item.Append(c);
        }
        item.Append(part == &entry.label ? u": " : u"]");
    }
    return item;
}

}  // namespace

std::vector<NotesNumber> PlaceNumbers(const VCard& card, StoredContact& contact) {
    std::vector<NumberPlan> plans;
    for (const VCardProperty& property : card.properties) {
        if (property.name != "TEL")
            continue;
        Str number = NumberOf(property);
        if (!number.IsEmpty())
            plans.push_back(PlanNumber(card, property, number));
    }
    bool taken[kPhonePropertyCount] = {};
    std::vector<bool> placed(plans.size(), false);
    for (bool specific : {true, false}) {
        for (size_t i = 0; i < plans.size(); ++i) {
            if (plans[i].specific != specific)
                continue;
            for (int slot : plans[i].slots) {
                if (placed[i] || taken[slot])
                    continue;
                taken[slot] = true;
                placed[i] = true;
                contact.SetText(kPhoneProperties[slot].propId, plans[i].number);
            }
        }
    }
    std::vector<NotesNumber> rest;
    for (size_t i = 0; i < plans.size(); ++i) {
        if (!placed[i])
            rest.push_back({plans[i].label, plans[i].number});
    }
    return rest;
}

Str AddNotesItems(const Str& notes, const std::vector<NotesNumber>& numbers) {
    if (numbers.empty())
        return notes;
    Str items;
    for (const NotesNumber& entry : numbers) {
        items.Append(u' ');
        items.Append(NotesItem(entry));
    }
    Str list(kNotesPhoneWord);
    list.Append(items);
    int start = notes.Find(kNotesStartMarker);
    if (start < 0) {
        Str text = notes;
        if (!text.IsEmpty())
            text.Append(u"\r\n");
        text.Append(kNotesStartMarker);
        text.Append(u"\r\n");
        text.Append(list);
        text.Append(u"\r\n");
        text.Append(kNotesEndMarker);
        return text;
    }
    int from = start + static_cast<int>(chars::Length(kNotesStartMarker));
    int end = notes.Find(kNotesEndMarker, from);
    if (end < 0)
        end = notes.Length();
    int word = notes.Find(kNotesPhoneWord, from);
    bool hasList = word >= 0 && word < end;
    int at = hasList ? word + static_cast<int>(chars::Length(kNotesPhoneWord)) : end;
    Str text = notes.Left(at);
    if (hasList) {
        text.Append(items);
    } else {
        text.Append(u"\r\n");
        text.Append(list);
        text.Append(u"\r\n");
    }
    text.Append(notes.Mid(at, notes.Length() - at));
    return text;
}
