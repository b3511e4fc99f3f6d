#include "view/RenameSuggestions.h"

#include <algorithm>

#include "base/ScreenInfo.h"
#include "board/DialEntry.h"
#include "contacts/ContactRecord.h"

namespace {

// The non-empty parts joined by single blanks.
Str Joined(const Str& a, const Str& b, const Str& c = Str()) {
    Str out;
    for (const Str* part : {&a, &b, &c}) {
        if (part->IsEmpty())
            continue;
        if (!out.IsEmpty())
            out += u' ';
        out += *part;
    }
    return out;
}

Str WithCompany(const Str& name, const Str& company) {
    Str out;
    if (!name.IsEmpty() && !company.IsEmpty())
        out.Format(u"%s (%s)", name.c_str(), company.c_str());
    return out;
}

void AddOnce(Array<Str>& list, const Str& name) {
    if (name.IsEmpty())
        return;
    for (int i = 0; i < list.Size(); ++i) {
        if (list[i] == name)
            return;
    }
    list.Add(name);
}

}  // namespace

Array<Str> RenameSuggestions(const DialEntry& entry) {
    const Str& first = entry.first;
    const Str& last = entry.last;
    const Str& middle = entry.middle;
    const Str& company = entry.company;
    const Str firstLast = Joined(first, last);
    Array<Str> list;
    AddOnce(list, firstLast);
    if (!middle.IsEmpty())
        AddOnce(list, Joined(first, middle, last));
    AddOnce(list, Joined(last, first));
    AddOnce(list, ContactSortName(first, last, middle, company));
    AddOnce(list, first);
    AddOnce(list, last);
    AddOnce(list, company);
    AddOnce(list, WithCompany(firstLast, company));
    AddOnce(list, WithCompany(first, company));
    AddOnce(list, WithCompany(last, company));
    return list;
}

RenameLayout LayOutRename(const Rect& content, int dpiY, int lineHeight) {
    const int margin = ScaleLength(6, dpiY);
    const int editTop = content.top + ScaleLength(13, dpiY);
    const int editHeight = std::max(ScaleLength(20, dpiY), lineHeight + ScaleLength(6, dpiY));
    const int left = content.left + margin;
    const int right = std::max(left, content.right - margin);
    RenameLayout layout;
    layout.edit = Rect{left, editTop, right, editTop + editHeight};
    const int listTop = layout.edit.bottom + ScaleLength(6, dpiY);
    layout.list = Rect{left, listTop, right, std::max(listTop, content.bottom - margin)};
    return layout;
}
