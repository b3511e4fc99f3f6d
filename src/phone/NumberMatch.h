#pragma once
// Character-set operations on phone numbers and number templates. A set is a plain
// zero-terminated text treated as a set: order does not matter and doubles are harmless.
// Every operation gives its empty result (0, -1, false or empty parts) for a null text or set.

#include "base/Str.h"

/// The digits of a number.
constexpr char16_t kDigits[] = u"1234567890";
/// The digit places of a template: "#" and fixed digits.
constexpr char16_t kDigitPlaces[] = u"#1234567890";
/// Dialling marks; a number holding any of them is never formatted.
constexpr char16_t kDialMarks[] = u"*#,wWpP";
/// Separators a number's digit run must not hold; ignored in a template's leftovers.
constexpr char16_t kRunSeparators[] = u"()[]{}=-~\\|/_ ";
/// Separators that can end the part in front of the digits.
constexpr char16_t kHeadSeparators[] = u"()[]{}=-+~\\|/";
/// Openers that belong with such a final separator.
constexpr char16_t kHeadOpeners[] = u"+([{";
/// Closers that can begin the part after the digits.
constexpr char16_t kTailClosers[] = u")]}";
/// Characters that make a stored template invalid.
constexpr char16_t kInvalidTemplateChars[] = u"[]{}<>";
/// What the SMS composer keeps of a number.
constexpr char16_t kSmsNumberChars[] = u"+1234567890";
/// What the SMS composer removes from a recipient text.
constexpr char16_t kSmsRecipientStrip[] = u",;[]{}<>:";

/// Whether c is one of the characters of set (never the terminator).
bool IsInSet(char16_t c, const char16_t* set);
/// How many characters of text are in set; 0 for an empty text.
int CountInSet(const char16_t* text, const char16_t* set);
/// Index of the last character of text that is in set, or -1.
int FindLastInSet(const char16_t* text, const char16_t* set);
/// Index of the first character at or after start that is in set; -1 when there is none or when
/// start is not inside the text.
int FindInSetFrom(int start, const char16_t* text, const char16_t* set);

/// Copies to out the characters of text not in set. capacity counts the terminator: a result
/// that would need more than capacity - 1 characters leaves out empty and returns false. An empty
/// text also returns false (with out empty).
bool StripSet(const char16_t* text, char16_t* out, const char16_t* set, int capacity);
/// Copies to out the characters of text that are in set, with StripSet's capacity rule; an empty
/// text returns true (with out empty).
bool KeepSet(const char16_t* text, char16_t* out, const char16_t* set, int capacity);

/// The characters of text not in set, with no length limit.
Str WithoutSet(const char16_t* text, const char16_t* set);
/// The characters of text that are in set, with no length limit.
Str OnlySet(const char16_t* text, const char16_t* set);
/// Whether a and b are equal after lower-casing each character the system's way.
bool EqualIgnoringCase(const char16_t* a, const char16_t* b);

/// Whether a number's digit run can be written in a template's digit run: both non-empty, no
/// separator in the number, one digit per template place with fixed digits matching, and equal
/// leftovers (template without places and separators, number without digits) ignoring case.
bool FitsTemplate(const char16_t* templateBody, const char16_t* numberBody);

/// A text split around the first and last character of a set of places.
struct DigitRun {
    Str head;  ///< everything before the first place
    Str body;  ///< from the first place through the last; the whole text when there is none
    Str tail;  ///< everything after the last place
};
DigitRun SplitDigitRun(const char16_t* text, const char16_t* places);

/// The part in front of the digits, split into what stays outside and a final separator with
/// the openers in front of it.
struct HeadParts {
    Str outer;
    Str inner;
};
HeadParts SplitHead(const char16_t* head);

/// The part after the digits, split into a leading run of closers and the rest.
struct TailParts {
    Str inner;
    Str outer;
};
TailParts SplitTail(const char16_t* tail);
