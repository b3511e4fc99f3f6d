#pragma once
// DialEntry: one bound button of the board. The first eleven fields are what the registry keeps
// for it; the rest is contact data cached at refresh. The decoded photo is the view's, not the
// entry's, so entries copy freely.

#include <cstdint>

#include "base/Array.h"
#include "base/Str.h"
#include "contacts/ContactRecord.h"

/// The field identifier that marks a custom-labelled number (matched by label as well).
constexpr int32_t kCustomLabelLink = kPhoneTypeNotes;
/// The dialer number of an entry without one.
constexpr int32_t kNoDialerNumber = -1;

struct DialEntry {
    uint32_t oid = 0;  ///< contact's object id; 0 = the contact is gone (stored texts are kept)
    Str display;       ///< name shown on the button; empty = composed (DisplayName)
    int32_t btn = kNoDialerNumber;  ///< dialer number 1..99, or -1
    int32_t slot = 0;               ///< page x buttons-per-page + position, from 0
    Str phone;                      ///< number dialled; empty when the contact has none
    Str typeLabel;                  ///< label of that number
    int32_t link = 0;               ///< field identifier of that number (100 = custom label)
    Str first;
    Str last;
    Str middle;
    Str company;
    Array<ContactPhone> phones;  ///< the contact's numbers as last read (not stored)
    Str extra;                   ///< contact's extra text as last read (not stored)
    uint32_t flags = 0;          ///< 1 when the contact has a picture (not stored)
};

/// Whether the entry carries a dialer number the board can show (1..99); stored values outside
/// that range are kept as they are but shown as none.
constexpr bool HasDialerNumber(int32_t btn) {
    return btn >= 1 && btn <= 99;
}
