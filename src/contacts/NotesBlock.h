#pragma once
// The notes block: a contact's notes hold, between "== start pim information ==" and
// "== end pim information ==", a block that programs of the same family share; its "Phone:" list
// carries extra numbers with labels of the user's own, as items "[label: number]".
// The notes may be stored as single-byte ANSI text, as UTF-16 after an FE FF mark, or in the
// word processor's binary "pwi" form (PwiDecoder.h).

#include <cstddef>
#include <cstdint>

#include "base/Array.h"
#include "base/Str.h"
#include "contacts/ContactsStore.h"
#include "contacts/TextDecoding.h"

constexpr char16_t kNotesStartMarker[] = u"== start pim information ==";
constexpr char16_t kNotesEndMarker[] = u"== end pim information ==";
constexpr char16_t kNotesPhoneWord[] = u"Phone:";

/// A contact's notes split at the markers.
struct NotesBlock {
    Str blockText;  ///< between the markers, as it stands
    Str otherText;  ///< the notes without the block, trimmed
};

/// Reads the whole notes stream (null allowed), turns it into text by its storage form (single
/// bytes through `ansi`) and splits it. Unreadable or empty notes leave both texts empty.
void ReadNotes(ContactsStream* stream, NotesBlock& block, AnsiDecoder ansi = DecodeWindows1252);

/// The notes text of raw stream bytes, by storage form (the part of ReadNotes after reading).
Str NotesTextFromBytes(const uint8_t* bytes, size_t size, AnsiDecoder ansi = DecodeWindows1252);

/// Splits notes into block text and other text. When the block is empty, what follows the end
/// marker is not taken into other text (kept on purpose).
void SplitNotesBlock(const Str& notes, NotesBlock& block);

/// Finds `word` in the block text and collects its "[label: number]" items into labels and
/// numbers (both emptied first, filled in step). Returns the number of labels collected.
int PhoneItems(const NotesBlock& block, const char16_t* word, Array<Str>& labels,
               Array<Str>& numbers);
