#include "contacts/VCardContacts.h"

#include <cstring>
#include <unordered_set>

#include "base/Chars.h"
#include "contacts/ContactRecord.h"
#include "contacts/NotesBlock.h"

using namespace contact_props;

namespace {

/// Type codes of the phone properties, for readability of the tables below.
enum PhoneSlot {
    kMobile = 0,
    kHome = 1,
    kHome2 = 2,
    kWork = 3,
    kWork2 = 4,
    kPagerSlot = 5,
    kRadio = 6,
    kAssistant = 7,
    kWorkFaxSlot = 8,
    kHomeFaxSlot = 9,
    kCompanySlot = 10,
    kMms = 11,
    kCar = 12,
};

/// The slots a number may take, tried in order; empty for a number kept in the notes block.
struct SlotChoice {
    std::vector<int> slots;
    bool specific;  ///< placed before numbers of no particular type
};

/// Types that say nothing about which property a number belongs to.
constexpr const char* kNeutralTypes[] = {
    "VOICE",    "PREF", "MSG",  "VIDEO", "TEXT", "INTERNET", "X-EVOLUTION-UI-SLOT",
    "CALLBACK", "BBS",  "ISDN", "PCS"};

/// Types that name a property (checked in this order) and the slots each allows.
struct TypeSlots {
    const char* type;
    std::vector<int> slots;
};

const TypeSlots kTypeSlots[] = {
    {"PAGER", {kPagerSlot}},     {"CAR", {kCar}},
    {"CELL", {kMobile}},         {"MOBILE", {kMobile}},
    {"IPHONE", {kMobile}},       {"MMS", {kMms}},
    {"X-MMS", {kMms}},           {"X-ASSISTANT", {kAssistant}},
    {"ASSISTANT", {kAssistant}}, {"X-RADIO", {kRadio}},
    {"RADIO", {kRadio}},         {"MAIN", {kCompanySlot}},
    {"COMPANY", {kCompanySlot}}, {"HOME", {kHome, kHome2}},
    {"WORK", {kWork, kWork2}},
};

/// Labels some address books give grouped numbers, and the type each stands for.
struct LabelType {
    const char* label;
    const char* type;
};

constexpr LabelType kLabelTypes[] = {
    {"_$!<Mobile>!$_", "CELL"},
    {"_$!<iPhone>!$_", "CELL"},
    {"_$!<Main>!$_", "MAIN"},
    {"_$!<Home>!$_", "HOME"},
    {"_$!<Work>!$_", "WORK"},
    {"_$!<Pager>!$_", "PAGER"},
    {"_$!<AssistantPhone>!$_", "ASSISTANT"},
    {"_$!<HomeFAX>!$_", "HOMEFAX"},
    {"_$!<WorkFAX>!$_", "WORKFAX"},
    {"_$!<Car>!$_", "CAR"},
    {"_$!<Radio>!$_", "RADIO"},
};

const std::vector<int> kGenericSlots = {kMobile, kHome, kWork, kHome2, kWork2};

bool EqualsIgnoringCase(const std::string& text, const char* word) {
    if (text.size() != std::strlen(word))
        return false;
    for (size_t i = 0; i < text.size(); ++i) {
        char a = text[i];
        char b = word[i];
        if (a >= 'a' && a <= 'z')
            a = static_cast<char>(a - 'a' + 'A');
        if (b >= 'a' && b <= 'z')
            b = static_cast<char>(b - 'a' + 'A');
        if (a != b)
            return false;
    }
    return true;
}

Str BytesStr(const std::string& text) {
    return DecodeUndeclared(reinterpret_cast<const uint8_t*>(text.data()), text.size());
}

Str Trim(Str text) {
    text.Trim();
    return text;
}

/// The decoded text of a property, escapes undone, trimmed.
Str TextOf(const VCardProperty* property) {
    if (property == nullptr)
        return Str();
    return Trim(UnescapeVCardText(DecodeVCardText(*property)));
}

/// The components of a structured value, each with its escapes undone; in 3.0 and 4.0 a
/// component's comma-separated values are joined by blanks.
std::vector<Str> ComponentsOf(const VCard& card, const VCardProperty* property) {
    std::vector<Str> components;
    if (property == nullptr)
        return components;
    bool lists = card.version == "3.0" || card.version == "4.0";
    for (const Str& raw : SplitVCardRaw(DecodeVCardText(*property), u';')) {
        Str joined;
        for (const Str& part : lists ? SplitVCardRaw(raw, u',') : std::vector<Str>{raw}) {
            Str value = Trim(UnescapeVCardText(part));
            if (value.IsEmpty())
                continue;
            if (!joined.IsEmpty())
                joined.Append(u' ');
            joined.Append(value);
        }
        components.push_back(joined);
    }
    return components;
}

Str Component(const std::vector<Str>& components, size_t i) {
    return i < components.size() ? components[i] : Str();
}

/// The X-ABLabel of the property's group, or null.
const VCardProperty* GroupLabel(const VCard& card, const VCardProperty& property) {
    if (property.group.empty())
        return nullptr;
    for (const VCardProperty& other : card.properties) {
        if (other.name == "X-ABLABEL" && EqualsIgnoringCase(other.group, property.group.c_str())) {
            return &other;
        }
    }
    return nullptr;
}

/// A label as shown: "_$!<Name>!$_" as Name, an upper-case type as a capitalised word, "X-"
/// dropped.
Str ShownLabel(std::string label) {
    if (label.size() > 8 && label.compare(0, 4, "_$!<") == 0 &&
        label.compare(label.size() - 4, 4, ">!$_") == 0) {
        label = label.substr(4, label.size() - 8);
    }
    if (label.size() > 2 && EqualsIgnoringCase(label.substr(0, 2), "X-"))
        label = label.substr(2);
    bool upper = true;
    for (char c : label) {
        if (c >= 'a' && c <= 'z')
            upper = false;
    }
    for (size_t i = 1; upper && i < label.size(); ++i) {
        if (label[i] >= 'A' && label[i] <= 'Z')
            label[i] = static_cast<char>(label[i] - 'A' + 'a');
    }
    return BytesStr(label);
}

/// Where a number goes, and the label it keeps when it ends in the notes block.
struct NumberPlan {
    Str number;
    SlotChoice choice;
    Str label;
};

bool IsNeutral(const std::string& type) {
    for (const char* neutral : kNeutralTypes) {
        if (EqualsIgnoringCase(type, neutral))
            return true;
    }
    return false;
}

bool IsKnownType(const std::string& type) {
    if (IsNeutral(type) || EqualsIgnoringCase(type, "FAX"))
        return true;
    for (const TypeSlots& entry : kTypeSlots) {
        if (EqualsIgnoringCase(type, entry.type))
            return true;
    }
    return false;
}

/// The types of a number: its TYPE values, plus the type its group's label stands for.
std::vector<std::string> TypesOf(const VCardProperty& tel, const VCardProperty* label) {
    std::vector<std::string> types;
    for (const VCardParam& param : tel.params) {
        if (param.name == "TYPE")
            types.insert(types.end(), param.values.begin(), param.values.end());
    }
    if (label == nullptr)
        return types;
    for (const LabelType& known : kLabelTypes) {
        if (label->value != known.label)
            continue;
        if (std::strcmp(known.type, "HOMEFAX") == 0 || std::strcmp(known.type, "WORKFAX") == 0) {
            types.push_back("FAX");
            types.push_back(known.type[0] == 'H' ? "HOME" : "WORK");
        } else {
            types.push_back(known.type);
        }
    }
    return types;
}

bool Has(const std::vector<std::string>& types, const char* type) {
    for (const std::string& value : types) {
        if (EqualsIgnoringCase(value, type))
            return true;
    }
    return false;
}

SlotChoice FaxSlots(const std::vector<std::string>& types) {
    if (Has(types, "HOME") && !Has(types, "WORK"))
        return {{kHomeFaxSlot}, true};
    if (Has(types, "WORK"))
        return {{kWorkFaxSlot}, true};
    return {{kWorkFaxSlot, kHomeFaxSlot}, true};
}

NumberPlan PlanNumber(const VCard& card, const VCardProperty& tel, const Str& number) {
    const VCardProperty* labelProperty = GroupLabel(card, tel);
    std::vector<std::string> types = TypesOf(tel, labelProperty);
    NumberPlan plan{number, {{}, true}, Str()};
    if (Has(types, "FAX")) {
        plan.choice = FaxSlots(types);
    } else {
        for (const TypeSlots& entry : kTypeSlots) {
            if (plan.choice.slots.empty() && Has(types, entry.type))
                plan.choice.slots = entry.slots;
        }
    }
    std::string custom;
    for (const std::string& type : types) {
        if (custom.empty() && !IsKnownType(type))
            custom = type;
    }
    if (const std::string* own = tel.Param("X-CUSTOM"))
        custom = *own;
    if (labelProperty != nullptr && !labelProperty->value.empty()) {
        custom = labelProperty->value;
    }
    if (plan.choice.slots.empty() && custom.empty())
        plan.choice = {kGenericSlots, false};
    if (!custom.empty()) {
        plan.label = ShownLabel(custom);
    } else if (plan.choice.specific) {
        plan.label = PhoneTypeLabel(plan.choice.slots.front());
    } else {
        plan.label = u"Phone";
    }
    return plan;
}

Str NumberOf(const VCardProperty& tel) {
    Str number = TextOf(&tel);
    if (number.Length() >= 4 && chars::AsciiLower(number[0]) == u't' &&
        chars::AsciiLower(number[1]) == u'e' && chars::AsciiLower(number[2]) == u'l' &&
        number[3] == u':') {
        number = Trim(number.Mid(4, number.Length() - 4));
    }
    return number;
}

/// Puts each number into its first free slot, numbers of a particular type first; returns
/// the numbers that found none, with their labels.
std::vector<NumberPlan> PlaceNumbers(const VCard& card, StoredContact& contact) {
    std::vector<NumberPlan> plans;
    for (const VCardProperty& property : card.properties) {
        if (property.name != "TEL")
            continue;
        Str number = NumberOf(property);
        if (!number.IsEmpty())
            plans.push_back(PlanNumber(card, property, number));
    }
    bool taken[kPhonePropertyCount] = {};
    std::vector<NumberPlan> overflow;
    for (bool specific : {true, false}) {
        for (const NumberPlan& plan : plans) {
            if (plan.choice.specific != specific)
                continue;
            bool placed = false;
            for (int slot : plan.choice.slots) {
                if (placed || taken[slot])
                    continue;
                taken[slot] = placed = true;
                contact.SetText(kPhoneProperties[slot].propId, plan.number);
            }
            if (!placed)
                overflow.push_back(plan);
        }
    }
    return overflow;
}

/// "[label: number]" with the item's special characters escaped.
Str NotesItem(const NumberPlan& plan) {
    Str item(u"[");
    for (const Str* part : {&plan.label, &plan.number}) {
        for (int i = 0; i < part->Length(); ++i) {
            char16_t c = (*part)[i];
            if (c == u'\\' || c == u'[' || c == u']' || c == u':')
                item.Append(u'\\');
            item.Append(c);
        }
        item.Append(part == &plan.label ? u": " : u"]");
    }
    return item;
}

/// Adds items to the notes' block: after its "Phone:" word, else at the block's end, else in a
/// new block after the notes.
Str AddNotesItems(const Str& notes, const std::vector<NumberPlan>& overflow) {
    if (overflow.empty())
        return notes;
    Str items;
    for (const NumberPlan& plan : overflow) {
        items.Append(u' ');
        items.Append(NotesItem(plan));
    }
    int start = notes.Find(kNotesStartMarker);
    if (start < 0) {
        Str text = notes;
        if (!text.IsEmpty())
            text.Append(u"\r\n");
        text.Append(kNotesStartMarker);
        text.Append(u"\r\n");
        text.Append(kNotesPhoneWord);
        text.Append(items);
        text.Append(u"\r\n");
        text.Append(kNotesEndMarker);
        return text;
    }
    int from = start + static_cast<int>(chars::Length(kNotesStartMarker));
    int end = notes.Find(kNotesEndMarker, from);
    if (end < 0)
        end = notes.Length();
    int word = notes.Find(kNotesPhoneWord, from);
    int at =
        (word >= 0 && word < end) ? word + static_cast<int>(chars::Length(kNotesPhoneWord)) : end;
    Str insert = at == end ? Str(u"\r\n") : Str();
    if (at == end)
        insert.Append(kNotesPhoneWord);
    insert.Append(items);
    if (at == end)
        insert.Append(u"\r\n");
    Str text = notes.Left(at);
    text.Append(insert);
    text.Append(notes.Mid(at, notes.Length() - at));
    return text;
}

/// Notes as their stream holds them: the FE FF mark, then UTF-16 little-endian.
std::shared_ptr<const std::vector<uint8_t>> NotesBytes(const Str& notes) {
    if (notes.IsEmpty())
        return nullptr;
    auto bytes = std::make_shared<std::vector<uint8_t>>();
    bytes->push_back(0xFE);
    bytes->push_back(0xFF);
    for (int i = 0; i < notes.Length(); ++i) {
        bytes->push_back(static_cast<uint8_t>(notes[i] & 0xFF));
        bytes->push_back(static_cast<uint8_t>(notes[i] >> 8));
    }
    return bytes;
}

/// Every NOTE of the card, joined by line breaks, with CR LF line breaks.
Str NotesOf(const VCard& card) {
    Str notes;
    for (const VCardProperty& property : card.properties) {
        if (property.name != "NOTE")
            continue;
        Str text = TextOf(&property);
        if (text.IsEmpty())
            continue;
        if (!notes.IsEmpty())
            notes.Append(u"\r\n");
        for (int i = 0; i < text.Length(); ++i) {
            if (text[i] == u'\n' && (i == 0 || text[i - 1] != u'\r'))
                notes.Append(u'\r');
            notes.Append(text[i]);
        }
    }
    return notes;
}

std::shared_ptr<const std::vector<uint8_t>> PictureOf(const VCard& card) {
    for (const VCardProperty& property : card.properties) {
        if (property.name != "PHOTO")
            continue;
        auto bytes = std::make_shared<std::vector<uint8_t>>();
        if (DecodeVCardBinary(property, *bytes))
            return bytes;
    }
    return nullptr;
}

Str FirstText(const VCard& card, const char* name) {
    for (const VCardProperty& property : card.properties) {
        if (property.name != name)
            continue;
        Str text = TextOf(&property);
        if (!text.IsEmpty())
            return text;
    }
    return Str();
}

Str CategoriesOf(const VCard& card) {
    Str list;
    for (const VCardProperty& property : card.properties) {
        if (property.name != "CATEGORIES")
            continue;
        for (const Str& part : SplitVCardRaw(DecodeVCardText(property), u',')) {
            Str item = Trim(UnescapeVCardText(part));
            if (item.IsEmpty())
                continue;
            if (!list.IsEmpty())
                list.Append(u", ");
            list.Append(item);
        }
    }
    return list;
}

void MapNames(const VCard& card, StoredContact& contact) {
    std::vector<Str> name = ComponentsOf(card, card.Find("N"));
    std::vector<Str> org = ComponentsOf(card, card.Find("ORG"));
    contact.SetText(kLastName, Component(name, 0));
    contact.SetText(kFirstName, Component(name, 1));
    contact.SetText(kMiddleName, Component(name, 2));
    contact.SetText(kNamePart7, Component(name, 3));
    contact.SetText(kNamePart8, Component(name, 4));
    contact.SetText(kCompany, Component(org, 0));
    contact.SetText(kExtraText2, Component(org, 1));
    bool named = contact.Text(kLastName) || contact.Text(kFirstName) || contact.Text(kMiddleName);
    Str formatted = TextOf(card.Find("FN"));
    if (!named && !formatted.IsEmpty() && formatted != Component(org, 0)) {
        contact.SetText(kFirstName, formatted);
    }
    contact.SetText(kNamePart5, TextOf(card.Find("TITLE")));
    if (const VCardProperty* nickname = card.Find("NICKNAME")) {
        contact.SetText(kNamePart6, Trim(SplitVCardValue(DecodeVCardText(*nickname), u',')[0]));
    }
}

uint32_t Fnv1a(uint32_t hash, const std::u16string& text) {
    for (char16_t c : text) {
        hash = (hash ^ (c & 0xFF)) * 16777619u;
        hash = (hash ^ (c >> 8)) * 16777619u;
    }
    return hash;
}

std::u16string IdentityOf(const StoredContact& contact, const VCard& card) {
    Str uid = TextOf(card.Find("UID"));
    if (!uid.IsEmpty())
        return u"uid:" + std::u16string(uid.c_str());
    std::u16string identity = u"card";
    for (uint32_t id : {kLastName, kFirstName, kMiddleName, kCompany, kExtraText}) {
        const Str* text = contact.Text(id);
        identity += u'\x1F';
        if (text != nullptr)
            identity += text->c_str();
    }
    for (const PhoneProperty& phone : kPhoneProperties) {
        if (const Str* number = contact.Text(phone.propId)) {
            identity += u'\x1F';
            identity += number->c_str();
            break;
        }
    }
    return identity;
}

bool IsEmpty(const StoredContact& contact) {
    return contact.texts.empty() && contact.notes == nullptr && contact.picture == nullptr;
}

}  // namespace

StoredContact ContactFromVCard(const VCard& card, std::u16string& identity) {
    StoredContact contact;
    MapNames(card, contact);
    contact.SetText(kExtraText, FirstText(card, "EMAIL"));
    contact.SetText(kExtraText3, FirstText(card, "ROLE"));
    contact.SetText(kList, CategoriesOf(card));
    std::vector<NumberPlan> overflow = PlaceNumbers(card, contact);
    contact.notes = NotesBytes(AddNotesItems(NotesOf(card), overflow));
    contact.picture = PictureOf(card);
    identity = IdentityOf(contact, card);
    return contact;
}

uint32_t ObjectIdFor(const std::u16string& identity, uint32_t attempt) {
    uint32_t hash = Fnv1a(2166136261u, identity);
    if (attempt == 0)
        return hash;
    std::u16string salt = u"#";
    for (uint32_t n = attempt; n != 0; n /= 10)
        salt += static_cast<char16_t>(u'0' + n % 10);
    return Fnv1a(hash, salt);
}

std::vector<StoredContact> ReadContactsFile(const uint8_t* bytes, size_t size) {
    std::vector<StoredContact> contacts;
    std::unordered_set<uint32_t> used;
    for (const VCard& card : ReadVCards(bytes, size)) {
        std::u16string identity;
        StoredContact contact = ContactFromVCard(card, identity);
        if (IsEmpty(contact))
            continue;
        uint32_t oid = 0;
        for (uint32_t attempt = 0; oid == 0 || used.count(oid) != 0; ++attempt) {
            oid = ObjectIdFor(identity, attempt);
        }
        used.insert(oid);
        contact.oid = oid;
        contacts.push_back(std::move(contact));
    }
    return contacts;
}
