#pragma once
// When two phone numbers name the same line. Only digits count ("+7 912 123-45-67" is
// 79121234567). Two numbers are the same when their digits are equal, or when, after dropping
// at most one leading trunk digit ("0" or "8") from one of them, it is a tail of the other and
// that tail is at least 7 digits long. So a national form with its trunk prefix ("8 912 ...",
// "020 7946 ...") and an international form with its country code ("+7 912 ...",
// "+44 20 7946 ...") are the same number, and so are a number with and without its area code.

#include <string>

/// The digits '0'..'9' of text, in order.
std::u16string DigitsOf(const std::u16string& text);
/// True when the two digit strings name the same number by the rule above.
bool SameNumber(const std::u16string& digitsA, const std::u16string& digitsB);

constexpr size_t kMinNumberTail = 7;
