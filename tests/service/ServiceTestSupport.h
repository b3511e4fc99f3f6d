#pragma once
// Helpers shared by the service tests: contacts from a few texts, typed-digit queries, layouts.

#include <string>
#include <vector>

#include "keypad/KeypadLayout.h"
#include "service/NameMatch.h"
#include "service/ServiceContact.h"

inline ServiceContact MakeContact(uint32_t oid, const std::u16string& first,
                                  const std::u16string& last, const std::u16string& company = u"",
                                  std::vector<std::u16string> numbers = {},
                                  const std::u16string& middle = u"",
                                  const std::u16string& nickname = u"") {
    ServiceContact c;
    c.oid = oid;
    c.fields[kFieldFirst] = first;
    c.fields[kFieldLast] = last;
    c.fields[kFieldMiddle] = middle;
    c.fields[kFieldCompany] = company;
    c.fields[kFieldNickname] = nickname;
    for (const auto& n : numbers)
        c.phones.push_back({n, u"", 0});
    return c;
}

inline KeyQuery Query(const char* digits) {
    KeyQuery q;
    for (const char* d = digits; *d != 0; ++d)
        q.push_back(static_cast<uint8_t>(*d - '0'));
    return q;
}

inline KeypadLayout LayoutRow(int id) {
    KeypadLayout layout;
    layout.Load(id);
    return layout;
}

inline KeypadLayout LayoutText(const std::u16string& text) {
    KeypadLayout layout;
    layout.Parse(text.data(), static_cast<int>(text.size()));
    return layout;
}
