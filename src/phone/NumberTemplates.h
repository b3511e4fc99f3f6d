#pragma once
// NumberTemplates: the user's phone number layouts, read from the "Templates" registry key, and
// the formatter that rewrites a raw number into the first layout that fits it
// ("81234567890" -> "8 (123) 456-78-90").
//
// Template syntax: "#" is one digit of the number, a digit 0-9 must equal the number's digit in
// that place, any other character is copied as it stands.

#include <cstdint>

#include "base/Array.h"
#include "base/Str.h"

class NumberTemplates {
  public:
    /// Value of "Templates" that holds how many templates follow.
    static constexpr char16_t kCountValue[] = u"Count";
    /// Template values looked at, at most: a corrupt "Count" of millions must not stall start-up
    /// by probing millions of missing values.
    static constexpr int kMaxStoredTemplates = 4096;

    /// Sets both flags on and reads the list from the registry: the built-in list when "Count"
    /// is missing (or not a number), otherwise values "0".."Count-1", skipping empty or invalid
    /// ones. A "Count" of 0 or below gives an empty list (no formatting).
    void Load();
    /// Replaces the list with the built-in templates; the flags are left as they are.
    void LoadDefaults();
    /// Formats number with the first template that fits: true with out set, false (out not to
    /// be used) when formatting is off, nothing fits or the number is not formattable.
    bool Format(const char16_t* number, Str& out) const;

    int Count() const { return templates_.Size(); }
    /// Template i in list order (0 <= i < Count()).
    const Str& TemplateAt(int i) const { return templates_[i]; }
    /// How many characters of template i are "#" or fixed digits.
    int32_t DigitSlotsAt(int i) const { return digitSlots_[i]; }

    bool Enabled() const { return enabled_; }
    void SetEnabled(bool on) { enabled_ = on; }
    bool CollapseDashes() const { return collapseDashes_; }
    void SetCollapseDashes(bool on) { collapseDashes_ = on; }

  private:
    void Clear();
    void Append(const Str& layout);

    Array<Str> templates_;
    Array<int32_t> digitSlots_;
    bool enabled_ = true;
    bool collapseDashes_ = true;
};
