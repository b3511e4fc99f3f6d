#pragma once
// ContactSource: what the board needs of the contacts database to bind and refresh its entries.
// The program's source reads through the contacts session and finds numbers through the search
// service (SessionContactSource); tests use an in-memory one.

#include <cstdint>

#include "base/Array.h"
#include "base/Str.h"
#include "contacts/ContactRecord.h"

/// The read flags the board uses: names only when re-linking; names, phones, the has-picture
/// test and the extra text when filling or refreshing a button.
constexpr uint32_t kReadNames = 1;
/// 35 names the groups a button shows (names 1, phones 2, has-picture 32); the extra text (16)
/// is one flag more, because every entry takes it from the contact too: with "SortType" 1 it is
/// the name the button shows and sorts by, and without its flag a read leaves it empty.
constexpr uint32_t kReadForButton = 35 | 16;

class ContactSource {
  public:
    virtual ~ContactSource() = default;
    /// Whether the contacts database could be reached at all. While it cannot, a refresh would
    /// take every contact for deleted, so the board leaves its stored bindings alone.
    virtual bool IsAvailable() = 0;
    /// Fills record with the groups of `flags` of contact `oid`; true when found and read.
    virtual bool Read(uint32_t oid, uint32_t flags, ContactRecord& record) = 0;
    /// Fills oids (emptied first) with the contacts that own `number`, best first; false when
    /// the search fails or finds nothing.
    virtual bool FindByNumber(const Str& number, Array<uint32_t>& oids) = 0;
};
