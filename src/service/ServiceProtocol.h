#pragma once
// The search service's requests and reply layouts. All values are little-endian, texts UTF-16;
// layouts hold no pointers, so they are the same for 32- and 64-bit callers.
//
//   5  search by text. Request: the typed digits, no terminator. Reply: count N (int32), N object
//      ids (uint32), then one zero-terminated text per result and an empty text. A result's
//      text is the matched fragments of its name as written, joined by "+" ("Fred+S"); "+"
//      alone when nothing of the name matched (a number match, or the empty text).
//   9  search by number. Request: a number as text. Reply: count N, N object ids of the contacts
//      owning that number (see NumberIdentity.h), in display-name order.
//   6  details. Request: an object id (4 bytes). Reply: value 1 (the object id), value 2 (high
//      16 bits: the 1-based index of the contact's string among those of request 8, 0 for
//      none; low 16 bits: its phone count), the display name, the phones multi-text (number
//      and type text pairs, then an extra 0: a type code 0..12 is the single character of code
//      type + 1, any other type its label), the company, the nickname; texts zero-terminated.
//   8  result strings. No request. Reply: the distinct non-empty strings shown under the
//      results of the last text search, each zero-terminated: the matched number for a number
//      match, otherwise the company.
//
// A request that is malformed (unknown code, odd text size, text longer than kMaxQueryChars,
// object id not 4 bytes, unknown object id, input bytes for request 8, a size without a buffer)
// fails and reports 0 bytes. A reply that does not fit the caller's buffer fails and reports
// the size it needs; asking again with that size returns it.

#include <cstdint>

namespace search_protocol {

constexpr uint32_t kSearchText = 5;
constexpr uint32_t kDetails = 6;
constexpr uint32_t kResultStrings = 8;
constexpr uint32_t kSearchNumber = 9;

constexpr uint32_t kMaxQueryChars = 256;
/// The label sent for a number whose own label cannot be sent (empty, or a type character).
constexpr char16_t kOtherLabel[] = u"Other";

}  // namespace search_protocol
