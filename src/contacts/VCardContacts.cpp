#include "contacts/VCardContacts.h"

#include <cstring>
#include <unordered_set>

#include "base/Chars.h"
#include "contacts/ContactRecord.h"
#include "contacts/VCardPhones.h"

using namespace contact_props;

namespace {

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

/// Undoes the caret escapes of a parameter value: ^' a double quote, ^^ a caret, ^n a line
/// break (a blank here, as a sort name is one line).
Str UncaretParam(const Str& value) {
    Str out;
    for (int i = 0; i < value.Length(); ++i) {
        char16_t next = i + 1 < value.Length() ? value[i + 1] : 0;
        if (value[i] == u'^' && (next == u'\'' || next == u'^' || next == u'n' || next == u'N')) {
            out.Append(next == u'\'' ? u'"' : next == u'^' ? u'^' : u' ');
            ++i;
        } else {
            out.Append(value[i]);
        }
    }
    return out;
}

/// Appends a non-empty piece to a sort name, one blank between pieces.
void AppendPiece(Str& name, const Str& piece) {
    if (piece.IsEmpty())
        return;
    if (!name.IsEmpty())
        name.Append(u' ');
    name.Append(piece);
}

/// The components of a property's SORT-AS parameter, escapes undone, empty ones dropped. They
/// are comma-separated; a semicolon separates them too, as some address books write the
/// components of N's sort name like N's own.
std::vector<Str> SortAsOf(const VCardProperty* property) {
    std::vector<Str> pieces;
    if (property == nullptr)
        return pieces;
    VCardProperty sortAs;
    for (const VCardParam& param : property->params) {
        if (param.name == "SORT-AS") {
            // The reader split the values at commas outside quotes; join them back.
            for (const std::string& value : param.values) {
                if (!sortAs.value.empty())
                    sortAs.value += ',';
                sortAs.value += value;
            }
        } else if (param.name == "CHARSET") {
            sortAs.params.push_back(param);
        }
    }
    if (sortAs.value.empty())
        return pieces;
    for (const Str& component : SplitVCardRaw(UncaretParam(DecodeVCardText(sortAs)), u',')) {
        for (const Str& raw : SplitVCardRaw(component, u';')) {
            Str piece = Trim(UnescapeVCardText(raw));
            if (!piece.IsEmpty())
                pieces.push_back(piece);
        }
    }
    return pieces;
}

/// The card's own sort name (see the header): SORT-STRING, else N's SORT-AS, else the phonetic
/// name fields, else a 2.1 phone's phonetic N (SOUND;X-IRMC-N), else ORG's SORT-AS for a card
/// that names no person.
Str SortNameOf(const VCard& card, const StoredContact& contact) {
    Str name = FirstText(card, "SORT-STRING");
    if (!name.IsEmpty())
        return name;
    for (const Str& piece : SortAsOf(card.Find("N")))
        AppendPiece(name, piece);
    if (!name.IsEmpty())
        return name;
    for (const char* field :
         {"X-PHONETIC-LAST-NAME", "X-PHONETIC-FIRST-NAME", "X-PHONETIC-MIDDLE-NAME"}) {
        AppendPiece(name, FirstText(card, field));
    }
    if (!name.IsEmpty())
        return name;
    for (const VCardProperty& property : card.properties) {
        if (property.name != "SOUND" || !property.HasType("X-IRMC-N"))
            continue;
        std::vector<Str> phonetic = ComponentsOf(card, &property);
        for (size_t i = 0; i < 3; ++i)
            AppendPiece(name, Component(phonetic, i));
        if (!name.IsEmpty())
            return name;
    }
    bool person = contact.Text(kLastName) || contact.Text(kFirstName) || contact.Text(kMiddleName);
    if (person)
        return Str();
    // An organisation's sort name has a component for each unit, as ORG has; the company the
    // board shows is the first.
    std::vector<Str> organisation = SortAsOf(card.Find("ORG"));
    return organisation.empty() ? Str() : organisation.front();
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
    for (uint32_t id : {kLastName, kFirstName, kMiddleName, kCompany}) {
        const Str* text = contact.Text(id);
        identity += u'\x1F';
        if (text != nullptr)
            identity += text->c_str();
    }
    identity += u'\x1F';
    identity += FirstText(card, "EMAIL").c_str();
    for (const PhoneProperty& phone : kPhoneProperties) {
        if (const Str* number = contact.Text(phone.propId)) {
            identity += u'\x1F';
            identity += number->c_str();
            break;
        }
    }
    return identity;
}

/// A card with nothing of a contact; a card with only an e-mail address is still a contact.
bool IsEmpty(const StoredContact& contact, const VCard& card) {
    return contact.texts.empty() && contact.notes == nullptr && contact.picture == nullptr &&
           FirstText(card, "EMAIL").IsEmpty();
}

}  // namespace

StoredContact ContactFromVCard(const VCard& card, std::u16string& identity) {
    StoredContact contact;
    MapNames(card, contact);
    contact.SetText(kExtraText, SortNameOf(card, contact));
    contact.SetText(kExtraText3, FirstText(card, "ROLE"));
    contact.SetText(kList, CategoriesOf(card));
    std::vector<NotesNumber> rest = PlaceNumbers(card, contact);
    contact.notes = NotesBytes(AddNotesItems(NotesOf(card), rest));
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
        if (IsEmpty(contact, card))
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
