#include "phone/NumberMatch.h"

#include "base/Chars.h"
#include "base/Locale.h"

namespace {

// The shared body of StripSet and KeepSet: copies the characters whose membership equals keep.
bool CopyFiltered(const char16_t* text, char16_t* out, const char16_t* set, int capacity,
                  bool keep) {
    if (text == nullptr || out == nullptr || set == nullptr || capacity <= 0)
        return false;
    out[0] = 0;
    int stored = 0;
    for (; *text != 0; ++text) {
        if (IsInSet(*text, set) != keep)
            continue;
        if (stored == capacity - 1) {
            out[0] = 0;
            return false;
        }
        out[stored++] = *text;
    }
    out[stored] = 0;
    return true;
}

Str Filtered(const char16_t* text, const char16_t* set, bool keep) {
    Str result;
    if (text == nullptr || set == nullptr)
        return result;
    int n = static_cast<int>(chars::Length(text));
    if (n == 0)
        return result;
    char16_t* buf = result.GetBuffer(n);
    int stored = 0;
    for (int i = 0; i < n; ++i) {
        if (IsInSet(text[i], set) == keep)
            buf[stored++] = text[i];
    }
    result.ReleaseBuffer(stored);
    return result;
}

Str Slice(const char16_t* text, int start, int count) {
    Str result;
    if (count <= 0)
        return result;
    char16_t* buf = result.GetBuffer(count);
    for (int i = 0; i < count; ++i)
        buf[i] = text[start + i];
    result.ReleaseBuffer(count);
    return result;
}

}  // namespace

bool IsInSet(char16_t c, const char16_t* set) {
    if (set == nullptr)
        return false;
    for (; *set != 0; ++set) {
        if (*set == c)
            return true;
    }
    return false;
}

int CountInSet(const char16_t* text, const char16_t* set) {
    if (text == nullptr || set == nullptr)
        return 0;
    int count = 0;
    for (; *text != 0; ++text) {
        if (IsInSet(*text, set))
            ++count;
    }
    return count;
}

int FindLastInSet(const char16_t* text, const char16_t* set) {
    if (text == nullptr || set == nullptr)
        return -1;
    int found = -1;
    for (int i = 0; text[i] != 0; ++i) {
        if (IsInSet(text[i], set))
            found = i;
    }
    return found;
}

int FindInSetFrom(int start, const char16_t* text, const char16_t* set) {
    if (text == nullptr || set == nullptr || start < 0)
        return -1;
    int n = static_cast<int>(chars::Length(text));
    for (int i = start; i < n; ++i) {
        if (IsInSet(text[i], set))
            return i;
    }
    return -1;
}

bool StripSet(const char16_t* text, char16_t* out, const char16_t* set, int capacity) {
    if (text != nullptr && *text == 0) {
        // Deliberately unlike KeepSet: nothing to strip counts as a failure.
        if (out != nullptr && capacity > 0)
            out[0] = 0;
        return false;
    }
    return CopyFiltered(text, out, set, capacity, false);
}

bool KeepSet(const char16_t* text, char16_t* out, const char16_t* set, int capacity) {
    return CopyFiltered(text, out, set, capacity, true);
}

Str WithoutSet(const char16_t* text, const char16_t* set) {
    return Filtered(text, set, false);
}

Str OnlySet(const char16_t* text, const char16_t* set) {
    return Filtered(text, set, true);
}

bool EqualIgnoringCase(const char16_t* a, const char16_t* b) {
    if (a == nullptr)
        a = u"";
    if (b == nullptr)
        b = u"";
    for (; *a != 0 && *b != 0; ++a, ++b) {
        if (*a != *b && locale_text::ToLower(*a) != locale_text::ToLower(*b))
            return false;
    }
    return *a == 0 && *b == 0;
}

bool FitsTemplate(const char16_t* templateBody, const char16_t* numberBody) {
    if (templateBody == nullptr || numberBody == nullptr)
        return false;
    if (*templateBody == 0 || *numberBody == 0)
        return false;
    if (CountInSet(numberBody, kRunSeparators) != 0)
        return false;
    int t = FindInSetFrom(0, templateBody, kDigitPlaces);
    int n = FindInSetFrom(0, numberBody, kDigits);
    while (t != -1 && n != -1) {
        if (templateBody[t] != u'#' && templateBody[t] != numberBody[n])
            return false;
        t = FindInSetFrom(t + 1, templateBody, kDigitPlaces);
        n = FindInSetFrom(n + 1, numberBody, kDigits);
    }
    if (t != -1 || n != -1)
        return false;
    Str templateRest = WithoutSet(WithoutSet(templateBody, kDigitPlaces), kRunSeparators);
    Str numberRest = WithoutSet(numberBody, kDigits);
    return EqualIgnoringCase(templateRest, numberRest);
}

DigitRun SplitDigitRun(const char16_t* text, const char16_t* places) {
    DigitRun run;
    if (text == nullptr || places == nullptr)
        return run;
    int first = FindInSetFrom(0, text, places);
    if (first == -1) {
        run.body = text;
        return run;
    }
    int last = FindLastInSet(text, places);
    int n = static_cast<int>(chars::Length(text));
    run.head = Slice(text, 0, first);
    run.body = Slice(text, first, last - first + 1);
    run.tail = Slice(text, last + 1, n - last - 1);
    return run;
}

HeadParts SplitHead(const char16_t* head) {
    HeadParts parts;
    if (head == nullptr)
        return parts;
    int n = static_cast<int>(chars::Length(head));
    if (n == 0 || !IsInSet(head[n - 1], kHeadSeparators)) {
        parts.outer = head;
        return parts;
    }
    int start = n - 1;
    while (start > 0 && IsInSet(head[start - 1], kHeadOpeners))
        --start;
    parts.outer = Slice(head, 0, start);
    parts.inner = Slice(head, start, n - start);
    return parts;
}

TailParts SplitTail(const char16_t* tail) {
    TailParts parts;
    if (tail == nullptr)
        return parts;
    // A leading space (or anything but a closer) keeps the whole tail outside.
    if (!IsInSet(tail[0], kTailClosers)) {
        parts.outer = tail;
        return parts;
    }
    int n = static_cast<int>(chars::Length(tail));
    int run = 0;
    while (run < n && IsInSet(tail[run], kTailClosers))
        ++run;
    parts.inner = Slice(tail, 0, run);
    parts.outer = Slice(tail, run, n - run);
    return parts;
}
