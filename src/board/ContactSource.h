#pragma once
// ContactSource: what the board needs of the contacts database to bind and refresh its entries.
// The program's source reads through the contacts session and finds numbers through the search
// service (SessionContactSource); tests use an in-memory one.

#include <cstdint>

#include "base/Array.h"
#include "base/Str.h"
#include "contacts/ContactRecord.h"

/// The read flags the board uses: names only when re-linking; names, phones and the
/// has-picture test when filling or refreshing a button.
constexpr uint32_t kReadNames = 1;
constexpr uint32_t kReadForButton = 35;

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
