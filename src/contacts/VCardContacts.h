#pragma once
// Maps vCards onto the contacts database's properties and streams.
//
//   N           last, first, middle name (3.0 and 4.0 lists joined by blanks); prefix to name
//               part 7, suffix to name part 8
//   FN          first name, only when N gives no name and FN is not the company's name
//   ORG         company (first unit); the second unit to extra text 2 (department)
//   TITLE       name part 5;  NICKNAME: name part 6 (the first of the list)
//   ROLE        extra text 3;  EMAIL: not mapped, only part of a card's identity (below)
//   sort name   extra text: the name the board shows and sorts by in the alternative name order
//               ("SortType" 1), from the first of these that gives one: SORT-STRING (3.0); the
//               SORT-AS parameter of N (4.0: components in N's order, family, given, ...,
//               separated by commas, or by semicolons as some phones write them); the phonetic
//               name fields X-PHONETIC-LAST-NAME, X-PHONETIC-FIRST-NAME, X-PHONETIC-MIDDLE-NAME
//               (as phone and desktop address books export them); a 2.1 phone's phonetic name
//               SOUND;X-IRMC-N (family;given;middle); and, for a card that names no person, the
//               first component of ORG's SORT-AS. Pieces are joined by one blank, family name
//               first: N;SORT-AS="Mann,James" gives "Mann James".
//   CATEGORIES  the list property, items joined by ", "
//   TEL         numbers with a type that names a property go first, each into the first free
//               property it allows: CELL, MOBILE, IPHONE -> Mobile; HOME -> Home, then Home 2;
//               WORK -> Work, then Work 2; FAX with HOME -> Home fax, with WORK -> Work fax,
//               alone -> Work fax, then Home fax; PAGER -> Pager; CAR -> Car; MMS -> MMS;
//               X-ASSISTANT -> Assistant; X-RADIO -> Radio; MAIN, COMPANY -> Company. A label
//               of the group's X-ABLabel in the "_$!<Mobile>!$_" style counts as its type.
//               Then numbers with no such type (none, VOICE, PREF, ...) and no label of their
//               own take Mobile, Home, Work, Home 2, Work 2, whichever is free first.
//               Every other number becomes a "Phone:" item of the notes block: one with a
//               label of its own (the group's X-ABLabel, an X-CUSTOM(...) label, or a type
//               such as OTHER or X-SKYPE shown as "Other", "Skype") under that label, one that
//               found its properties taken under the property's label, any other as "Phone".
//   NOTE        the notes stream (FE FF and UTF-16), so a notes block written in the card is
//               read back; the extra "Phone:" items join its block, or a new one.
//   PHOTO       the picture stream: base64, a data: URI, or quoted-printable bytes.
//
// Object ids come from the UID when the card has one, else from the card's identity (its name
// parts, company, e-mail and first number); they are never 0, and a collision takes the next id
// of the identity's sequence, in file order, so the same file always gives the same ids.

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "contacts/MemoryContactsStore.h"
#include "contacts/VCardReader.h"

/// The contact of one card, with object id 0 and its identity key in `identity`.
StoredContact ContactFromVCard(const VCard& card, std::u16string& identity);

/// Every contact of a vCard file, with object ids assigned.
std::vector<StoredContact> ReadContactsFile(const uint8_t* bytes, size_t size);

/// The first object id tried for an identity key, and the ones after it on collision.
uint32_t ObjectIdFor(const std::u16string& identity, uint32_t attempt);
