#include "contacts/ContactRecord.h"

#include "contacts/ContactsStore.h"

using namespace contact_props;

const PhoneProperty kPhoneProperties[kPhonePropertyCount] = {
    {kMobilePhone, u"Mobile"}, {kHomePhone, u"Home"},           {kHome2Phone, u"Home"},
    {kWorkPhone, u"Work"},     {kWork2Phone, u"Work"},          {kPager, u"Pager"},
    {kRadioPhone, u"Radio"},   {kAssistantPhone, u"Assistant"}, {kWorkFax, u"Work fax"},
    {kHomeFax, u"Home fax"},   {kCompanyPhone, u"Company"},     {kMmsPhone, u"MMS"},
    {kCarPhone, u"Car"},
};

const char16_t* PhoneTypeLabel(int32_t type) {
    if (type < 0 || type >= kPhonePropertyCount)
        return nullptr;
    return kPhoneProperties[type].label;
}

void ContactRecord::Clear() {
    oid = 0;
    phones.RemoveAll();
    list.RemoveAll();
    for (Str* text : {&extraText, &extraText2, &extraText3, &firstName, &lastName, &middleName,
                      &company, &namePart5, &namePart6, &namePart7, &namePart8, &notesText}) {
        text->Empty();
    }
    picture.Reset();
    hasPicture = 0;
}

void ContactRecord::AdoptPicture(PictureHandle handle, PictureRelease release) {
    picture = Picture(handle, release);
}

Str ContactSortName(const Str& first, const Str& last, const Str& middle, const Str& company) {
    Str name = last;
    if (!last.IsEmpty() && !first.IsEmpty()) {
        name.Append(u", ");
        name.Append(first);
    } else if (last.IsEmpty()) {
        if (!first.IsEmpty()) {
            name = first;
        } else if (!middle.IsEmpty()) {
            return middle;
        } else {
            return company;
        }
    }
    if (!middle.IsEmpty()) {
        name.Append(u' ');
        name.Append(middle);
    }
    return name;
}
