#pragma once
// Maps vCards onto the contacts database's properties and streams.
//
//   N             last, first, middle name; prefix to name part 7, suffix to name part 8
//   FN            first name, only when N gives no name and there is no ORG
//   ORG           company (first unit); the second unit to extra text 2 (department)
//   TITLE         name part 5;  NICKNAME: name part 6 (first of the list)
//   EMAIL         extra text (the first one);  CATEGORIES: the list property, comma-separated
//   X-OFFICE, ROLE  extra text 3 (office)
//   TEL           by its types, into the first free phone property that fits:
//                 CELL/MOBILE -> Mobile; HOME -> Home, then Home 2; WORK -> Work, then Work 2;
//                 FAX (+HOME) -> Home fax, FAX (+WORK or alone) -> Work fax; PAGER -> Pager;
//                 CAR -> Car; MSG/MMS (no voice type) -> MMS; X-ASSISTANT (or the group's
//                 X-ABLabel naming an assistant) -> Assistant; X-RADIO -> Radio;
//                 MAIN/COMPANY -> Company; no type, VOICE, PREF or OTHER -> Home, Home 2, Work,
//                 Work 2, Mobile in that order. A number that fits no free property becomes a
//                 "Phone:" item of the notes block with its label (the group's X-ABLabel, else
//                 its type names).
//   NOTE          the notes stream (UTF-16 with its mark), so a notes block written in the
//                 card is read back; extra "Phone:" items are added to its block.
//   PHOTO         the picture stream: base64, a data: URI, or quoted-printable bytes.
//
// Object ids come from the UID when the card has one, else from the card's identity (its name
// parts, company and first number); they are never 0, and a collision takes the next id of the
// same sequence, in file order, so the same file always gives the same ids.

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
