#pragma once
// LinearMatcher: the matching rules applied to every contact in turn. It is the plain reference
// that the index must agree with, result for result, and the baseline it is measured against.

#include <cstdint>

#include "service/LetterKeys.h"
#include "service/NameMatch.h"
#include "service/SearchHit.h"
#include "service/ServiceContact.h"

/// Every contact matching the query, best rank first, display-name order within a rank. An
/// empty query returns every contact with rank kRankAll.
SearchHits LinearSearch(const ContactTable& table, const LetterKeys& keys, const KeyQuery& query);
