#include "picker/PickerModel.h"

#include "contacts/SearchServiceClient.h"
#include "phone/NumberTemplates.h"

namespace {

// Drawn rows kept per search; past this many (a long fling) they are dropped and asked again.
constexpr size_t kMaxKeptLines = 512;

}  // namespace

PickerModel::PickerModel(SearchServiceClient& service) : service_(service) {}

void PickerModel::Search(const Str& digits) {
    lastSearched_ = digits;
    stage_ = Stage::kContacts;
    contactIndex_ = -1;
    results_.RemoveAll();
    rows_.RemoveAll();
    serviceWords_.RemoveAll();
    numbers_.RemoveAll();
    lines_.clear();

    Array<Str> texts;
    if (!service_.SearchText(digits, results_, texts))
        results_.RemoveAll();
    // One row per result; texts beyond the results are ignored, missing ones leave empty rows.
    rows_.SetSize(results_.Size());
    const int withText = texts.Size() < results_.Size() ? texts.Size() : results_.Size();
    for (int i = 0; i < withText; ++i)
        rows_[i] = SplitFields(texts[i]);
    if (!results_.IsEmpty() && !service_.GetResultStrings(serviceWords_))
        serviceWords_.RemoveAll();
}

bool PickerModel::TypedDigits(const Str& digits) {
    if (stage_ != Stage::kContacts || digits == lastSearched_)
        return false;
    Search(digits);
    return true;
}

PickerStep PickerModel::Choose(int selected, bool wantNumber, PickerChoice& choice) {
    return stage_ == Stage::kContacts ? ChooseContact(selected, wantNumber, choice)
                                      : ChooseNumber(selected, choice);
}

PickerStep PickerModel::ChooseContact(int selected, bool wantNumber, PickerChoice& choice) {
    if (selected < 0 || selected >= results_.Size())
        return PickerStep::kStay;
    contactIndex_ = selected;
    const uint32_t oid = results_[selected];
    if (!wantNumber) {
        choice.oid = oid;
        return Close(kChosen);
    }
    // A contact whose details cannot be had (gone since the search) counts as one without
    // numbers: the board decides what a button without a number means.
    ServiceDetails details;
    numbers_.RemoveAll();
    if (service_.GetDetails(oid, details))
        details.GetPhones(numbers_);
    if (numbers_.Size() >= 2) {
        stage_ = Stage::kNumbers;
        return PickerStep::kShowNumbers;
    }
    choice.oid = oid;
    if (numbers_.Size() == 1) {
        choice.number = numbers_[0].number;
        choice.numberLabel = numbers_[0].label;
        choice.numberType = numbers_[0].type;
    } else {
        choice.number.Empty();
        choice.numberLabel.Empty();
        choice.numberType = 0;
    }
    return Close(kChosen);
}

PickerStep PickerModel::ChooseNumber(int selected, PickerChoice& choice) {
    if (contactIndex_ < 0 || contactIndex_ >= results_.Size() || selected < 0 ||
        selected >= numbers_.Size()) {
        return PickerStep::kStay;
    }
    choice.oid = results_[contactIndex_];
    choice.number = numbers_[selected].number;
    choice.numberLabel = numbers_[selected].label;
    choice.numberType = numbers_[selected].type;
    return Close(kChosen);
}

PickerStep PickerModel::Cancel() {
    if (stage_ == Stage::kNumbers) {
        stage_ = Stage::kContacts;
        contactIndex_ = -1;
        return PickerStep::kShowContacts;
    }
    return Close(kCancelled);
}

PickerStep PickerModel::Close(int code) {
    closeCode_ = code;
    return PickerStep::kClose;
}

int PickerModel::ItemCount() const {
    return stage_ == Stage::kContacts ? results_.Size() : numbers_.Size();
}

bool PickerModel::ContactLineAt(int index, LowerFn lower, ContactLine& line) {
    line = ContactLine();
    if (index < 0 || index >= results_.Size())
        return false;
    auto kept = lines_.find(index);
    if (kept != lines_.end()) {
        line = kept->second;
        return true;
    }
    ServiceDetails details;
    if (!service_.GetDetails(results_[index], details))
        return false;
    line.name = details.text1;
    line.runs = HighlightRuns(line.name, rows_[index], lower);
    line.second = SecondText(details.value2, serviceWords_);
    if (lines_.size() >= kMaxKeptLines)
        lines_.clear();
    lines_.emplace(index, line);
    return true;
}

bool PickerModel::NumberLineAt(int index, const NumberTemplates* templates,
                               NumberLine& line) const {
    line = NumberLine();
    if (index < 0 || index >= numbers_.Size())
        return false;
    const ContactPhone& phone = numbers_[index];
    line.label = phone.label;
    if (templates == nullptr || !templates->Format(phone.number, line.number))
        line.number = phone.number;
    return true;
}
