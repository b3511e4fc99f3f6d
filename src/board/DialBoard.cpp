#include "board/DialBoard.h"

int DialBoard::FindBySlot(int32_t slot) const {
    for (int i = 0; i < entries_.Size(); ++i) {
        if (entries_[i].slot == slot)
            return i;
    }
    return -1;
}

bool DialBoard::GetBySlot(int32_t slot, DialEntry& out) const {
    int index = FindBySlot(slot);
    if (index == -1)
        return false;
    out = entries_.GetAt(index);
    return true;
}

int32_t DialBoard::MaxSlot() const {
    int32_t highest = 0;
    for (const DialEntry& entry : entries_) {
        if (entry.slot > highest)
            highest = entry.slot;
    }
    return highest;
}

void DialBoard::Clear() {
    entries_.RemoveAll();
}

bool DialBoard::Assign(int32_t slot, uint32_t oid, const Str& phone, const Str& typeLabel,
                       int32_t link) {
    if (contacts_ == nullptr)
        return false;
    ContactRecord record;
    if (!contacts_->Read(oid, kReadForButton, record))
        return false;

    DialEntry entry;
    entry.oid = oid;
    entry.slot = slot;
    entry.phone = phone;
    entry.typeLabel = typeLabel;
    entry.link = link;
    entry.first = record.firstName;
    entry.last = record.lastName;
    entry.middle = record.middleName;
    entry.company = record.company;
    entry.phones = record.phones;
    entry.extra = record.extraText;
    entry.flags = record.hasPicture;

    // Replacing in place keeps the list position, so the entry keeps its stored number.
    int index = FindBySlot(slot);
    if (index != -1) {
        entries_.SetAt(index, entry);
    } else {
        index = entries_.Add(entry);
    }
    SaveEntries(index);
    return true;
}

void DialBoard::ForgetPicture(int index) {
    entries_[index].flags = 0;
}

bool DialBoard::Rename(int32_t slot, const Str& display) {
    int index = FindBySlot(slot);
    if (index == -1)
        return false;
    entries_[index].display = display;
    SaveEntries(index);
    return true;
}

void DialBoard::RemoveEntry(int index) {
    entries_.RemoveAt(index);
}
