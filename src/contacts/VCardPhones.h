#pragma once
// Where a card's numbers go: each TEL into the phone property its types name, the rest into the
// notes block under labels of their own. The rules are listed in VCardContacts.h.

#include <vector>

#include "base/Str.h"
#include "contacts/MemoryContactsStore.h"
#include "contacts/VCardReader.h"

/// A number that fits no free phone property, and the label it keeps as a notes item.
struct NotesNumber {
    Str label;
    Str number;
};

/// Sets the card's numbers into the contact's phone properties; returns those that fit none, in
/// the card's order.
std::vector<NotesNumber> PlaceNumbers(const VCard& card, StoredContact& contact);

/// Adds "[label: number]" items (special characters escaped) to notes text: right after the
/// block's "Phone:" word, else at the end of the block, else in a new block after the notes.
Str AddNotesItems(const Str& notes, const std::vector<NotesNumber>& numbers);
