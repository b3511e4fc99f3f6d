#pragma once
// PickerModel: what the contact picker knows and decides, free of any window. Stage 1 lists the
// contacts the search service found for the typed digits; choosing one that has several numbers
// switches to stage 2, the list of its numbers. The service's replies are never trusted: every
// index is checked, and a reply that says nothing leaves an empty list.
//
//     PickerModel model(SearchServiceClient::Get());
//     model.Search(Str());                       // the opening search, all contacts
//     model.TypedDigits(u"37");                  // narrows the list
//     PickerChoice choice;
//     if (model.Choose(selected, true, choice) == PickerStep::kClose) ... choice ...

#include <cstdint>
#include <unordered_map>

#include "base/Array.h"
#include "base/Str.h"
#include "contacts/ContactRecord.h"
#include "picker/PickerRows.h"

class NumberTemplates;
class SearchServiceClient;

/// What a choice hands back to the board.
struct PickerChoice {
    uint32_t oid = 0;
    Str number;       ///< empty when the contact has none, or none was wanted
    Str numberLabel;  ///< the text naming the number's type
    int32_t numberType = 0;
};

/// What the dialog does after a choice or a cancel.
enum class PickerStep {
    kStay,          ///< nothing chosen (an empty or out-of-range selection)
    kShowNumbers,   ///< stage 2 began: the list now holds the contact's numbers
    kShowContacts,  ///< back in stage 1 with the same digits and results
    kClose,         ///< done: close with the step's code (1 chosen, 2 cancelled)
};

/// A stage-1 row as drawn: the name, its highlighted runs and the second text.
struct ContactLine {
    Str name;
    Array<TextRun> runs;
    Str second;
};

/// A stage-2 row as drawn: the type text and the number (formatted when a template fits).
struct NumberLine {
    Str label;
    Str number;
};

class PickerModel {
  public:
    /// The close codes.
    static constexpr int kChosen = 1;
    static constexpr int kCancelled = 2;

    /// Talks to the service through `service` (borrowed).
    explicit PickerModel(SearchServiceClient& service);

    /// Searches for `digits` whatever the stage: lastSearched = digits, back to stage 1, results
    /// and service words replaced by the service's answer (empty when it gives none).
    void Search(const Str& digits);
    /// The keypad's digits changed: searches only in stage 1 and only when they differ from the
    /// last search. True when a search ran.
    bool TypedDigits(const Str& digits);

    /// IDOK with list row `selected`. Stage 1: a row out of range does nothing; otherwise the
    /// contact becomes contactIndex and, unless a number is wanted, is chosen at once; a wanted
    /// number is taken at once when the contact has one, left empty when it has none (also when
    /// its details cannot be had), and asked for in stage 2 when it has several. Stage 2: takes
    /// number `selected` when both indices are in range. `choice` is written only on kClose.
    PickerStep Choose(int selected, bool wantNumber, PickerChoice& choice);
    /// IDCANCEL: stage 2 goes back to stage 1 (kShowContacts); stage 1 closes (kClose, code 2).
    PickerStep Cancel();
    /// The close code of the last kClose step: kChosen or kCancelled (0 before any).
    int CloseCode() const { return closeCode_; }

    /// Rows the list shows: the results in stage 1, the numbers in stage 2.
    int ItemCount() const;
    bool InNumbers() const { return stage_ == Stage::kNumbers; }

    /// Stage-1 row `index` as drawn, from the contact's details (asked once per search and
    /// row); false, with `line` emptied, when the index is out of range or the service gives
    /// no details.
    bool ContactLineAt(int index, LowerFn lower, ContactLine& line);
    /// Stage-2 row `index`, the number formatted by `templates` (may be null) when one fits;
    /// false, with `line` emptied, out of range.
    bool NumberLineAt(int index, const NumberTemplates* templates, NumberLine& line) const;

    const Str& LastSearched() const { return lastSearched_; }
    /// -1 in stage 1 before a choice; else the index in Results of the chosen contact.
    int ContactIndex() const { return contactIndex_; }
    const Array<uint32_t>& Results() const { return results_; }
    /// Each result's "+"-separated search text, split; a result the reply gave no text for has
    /// an empty row.
    const Array<Array<Str>>& Rows() const { return rows_; }
    const Array<Str>& ServiceWords() const { return serviceWords_; }
    const Array<ContactPhone>& Numbers() const { return numbers_; }

  private:
    enum class Stage { kContacts, kNumbers };
    PickerStep Close(int code);
    PickerStep ChooseContact(int selected, bool wantNumber, PickerChoice& choice);
    PickerStep ChooseNumber(int selected, PickerChoice& choice);

    SearchServiceClient& service_;
    Stage stage_ = Stage::kContacts;
    Str lastSearched_;
    int contactIndex_ = -1;
    Array<uint32_t> results_;
    Array<Array<Str>> rows_;
    Array<Str> serviceWords_;
    Array<ContactPhone> numbers_;
    int closeCode_ = 0;
    /// Drawn rows of the current search, so scrolling asks the service once per row.
    std::unordered_map<int, ContactLine> lines_;
};
