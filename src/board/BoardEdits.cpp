// Edits that touch more than one field of the entry list, each ending with its save.

#include <utility>
#include <vector>

#include "base/Locale.h"
#include "base/ResourceIds.h"
#include "base/SettingsStore.h"
#include "board/DialBoard.h"

Str DisplayName(const DialEntry& entry) {
    if (!entry.display.IsEmpty())
        return entry.display;
    Str name;
    if (settings::Read(settings::kSortType) == 1)
        name = entry.extra;
    // Company and middle name go in each other's places on purpose: a button with only a
    // company and a middle name shows the company.
    if (name.IsEmpty())
        name = ContactSortName(entry.first, entry.last, entry.company, entry.middle);
    if (name.IsEmpty())
        name.LoadString(IDS_UNNAMED);
    return name;
}

void DialBoard::SetDialerNumber(int32_t slot, int32_t number) {
    int index = FindBySlot(slot);
    if (index == -1)
        return;
    if (number != kNoDialerNumber) {
        // A number belongs to one button at most.
        for (int i = 0; i < entries_.Size(); ++i) {
            if (i == index || entries_[i].btn != number)
                continue;
            entries_[i].btn = kNoDialerNumber;
            SaveEntries(i);
        }
    }
    entries_[index].btn = number;
    SaveEntries(index);
}

void DialBoard::MoveSlot(int32_t from, int32_t to) {
    if (FindBySlot(from) == -1)
        return;
    for (DialEntry& entry : entries_) {
        if (entry.slot == from) {
            entry.slot = to;
        } else if (entry.slot == to) {
            entry.slot = from;
        }
    }
    SaveEntries(-1);
}

void DialBoard::DeleteSlots(const Array<int32_t>& slots) {
    for (int32_t slot : slots) {
        int index = FindBySlot(slot);
        if (index != -1)
            RemoveEntry(index);
    }
    SaveEntries(-1);
}

void DialBoard::SortByName() {
    // Names are taken once: the exchange sort compares each pair, and a name read per comparison
    // would read the settings and the contact texts again for every pair.
    std::vector<Str> names;
    names.reserve(static_cast<size_t>(entries_.Size()));
    for (const DialEntry& entry : entries_)
        names.push_back(DisplayName(entry));

    bool changed = false;
    int count = entries_.Size();
    for (int i = 0; i < count - 1; ++i) {
        for (int j = i + 1; j < count; ++j) {
            if (locale_text::Compare(names[i], names[j]) <= 0)
                continue;
            std::swap(entries_[i], entries_[j]);
            std::swap(names[i], names[j]);
            changed = true;
        }
    }
    for (int k = 0; k < count; ++k) {
        if (entries_[k].slot == k)
            continue;
        entries_[k].slot = k;
        changed = true;
    }
    if (changed)
        SaveEntries(-1);
}
