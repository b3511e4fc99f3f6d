#pragma once
// DialBoard: the board's entries, one per bound slot, kept in load/creation order. An entry's
// position in the list is the number it is stored under in the registry; it stays stable until
// the whole list is rewritten.

#include <cstdint>

#include "base/Array.h"
#include "base/Str.h"
#include "board/ContactSource.h"
#include "board/DialEntry.h"

class DialBoard {
  public:
    /// Registry key of the entries, below the current user's hive.
    static constexpr char16_t kKeyPath[] = u"Software\\Orvalis\\PIM\\Dialdeck";

    /// contacts (not owned) binds and refreshes entries; null leaves them as stored.
    explicit DialBoard(ContactSource* contacts = nullptr) : contacts_(contacts) {}
    DialBoard(const DialBoard&) = delete;
    DialBoard& operator=(const DialBoard&) = delete;

    void SetContacts(ContactSource* contacts) { contacts_ = contacts; }
    /// The contacts the board binds from (not owned); null when it has none.
    ContactSource* Contacts() const { return contacts_; }

    int Count() const { return entries_.Size(); }
    /// The entry at list position i (0 <= i < Count()).
    const DialEntry& EntryAt(int i) const { return entries_[i]; }
    const Array<DialEntry>& Entries() const { return entries_; }

    /// Index of the first entry whose slot is `slot`, or -1.
    int FindBySlot(int32_t slot) const;
    /// Copies the entry of `slot` into out; false (out untouched) when there is none.
    bool GetBySlot(int32_t slot, DialEntry& out) const;
    /// The highest slot of all entries; 0 when there are none.
    int32_t MaxSlot() const;
    /// Deletes every entry and frees the storage (nothing is saved).
    void Clear();

    /// Binds slot to contact oid and one of its numbers: reads the contact (unchanged board and
    /// false when it cannot), replaces the slot's entry in place or appends a new one, then saves
    /// that entry alone.
    bool Assign(int32_t slot, uint32_t oid, const Str& phone, const Str& typeLabel, int32_t link);
    /// The entry's contact shows no picture after all: clears its picture flag.
    void ForgetPicture(int index);
    /// Sets the display text of slot's entry and saves it alone; false when the slot is free.
    bool Rename(int32_t slot, const Str& display);

    // Persistence (BoardStore.cpp).

    /// Clears the board, reads every stored entry and refreshes them from the contacts.
    void LoadEntries();
    /// Reads every bound entry's contact again in place (the contacts changed) and saves each
    /// entry that changed. A contact that is gone leaves its entry with its texts and oid 0.
    void Refresh();
    /// which = -1: deletes the key and writes the whole list (no key for an empty board);
    /// other negatives write the whole list; which >= 0 writes only that list position.
    void SaveEntries(int which);

    // Edits (BoardEdits.cpp).

    /// Gives slot's entry the dialer number (-1 = none), taking it from any other entry.
    void SetDialerNumber(int32_t slot, int32_t number);
    /// Moves slot from's entry to slot to, swapping with an entry there; full rewrite.
    void MoveSlot(int32_t from, int32_t to);
    /// Deletes the entries of the listed slots (free slots skipped); always one full rewrite.
    void DeleteSlots(const Array<int32_t>& slots);
    /// Sorts by DisplayName with the system locale's comparison and renumbers slots from 0;
    /// a full rewrite when anything changed.
    void SortByName();

  private:
    void RemoveEntry(int index);
    bool RefreshEntry(int index, ContactRecord& record);
    uint32_t Relink(const DialEntry& entry, ContactRecord& record);

    Array<DialEntry> entries_;
    ContactSource* contacts_;
};

/// The name shown on a button, used for sorting and calls: the display text; else, when the
/// "SortType" setting (read at every call) is 1, the extra text; else the contact's composed
/// sort name; else resource text 107 ("Unnamed").
Str DisplayName(const DialEntry& entry);
