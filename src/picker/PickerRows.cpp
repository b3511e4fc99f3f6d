#include "picker/PickerRows.h"

#include <algorithm>

namespace {

Str Lowered(const Str& text, LowerFn lower) {
    Str out;
    const int n = text.Length();
    if (n == 0)
        return out;
    char16_t* buffer = out.GetBuffer(n);
    for (int i = 0; i < n; ++i)
        buffer[i] = lower != nullptr ? lower(text[i]) : text[i];
    out.ReleaseBuffer(n);
    return out;
}

}  // namespace

Array<Str> SplitFields(const Str& text) {
    Array<Str> fields;
    int from = 0;
    for (;;) {
        const int plus = text.Find(u'+', from);
        if (plus < 0) {
            fields.Add(text.Mid(from, text.Length() - from));
            return fields;
        }
        fields.Add(text.Mid(from, plus - from));
        from = plus + 1;
    }
}

Str SecondText(uint32_t value2, const Array<Str>& words) {
    const auto index = static_cast<int>(value2 >> 16);
    if (index < 1 || index > words.Size())
        return Str();
    return words[index - 1];
}

Array<TextRun> HighlightRuns(const Str& name, const Array<Str>& fields, LowerFn lower) {
    Array<TextRun> found;
    // Lowering is character by character, so positions in the lowered name are the name's own.
    const Str lowName = Lowered(name, lower);
    for (const Str& field : fields) {
        if (field.IsEmpty())
            continue;
        const int at = lowName.Find(Lowered(field, lower).c_str());
        if (at >= 0)
            found.Add(TextRun{at, field.Length()});
    }
    std::sort(found.begin(), found.end(),
              [](const TextRun& a, const TextRun& b) { return a.start < b.start; });
    Array<TextRun> merged;
    for (const TextRun& run : found) {
        if (!merged.IsEmpty()) {
            TextRun& last = merged[merged.Size() - 1];
            if (run.start <= last.start + last.length) {
                last.length = std::max(last.length, run.start + run.length - last.start);
                continue;
            }
        }
        merged.Add(run);
    }
    return merged;
}
