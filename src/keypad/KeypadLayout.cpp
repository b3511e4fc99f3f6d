#include "keypad/KeypadLayout.h"

#include <cstring>
#include <vector>

#include "base/Locale.h"
#include "base/SettingsStore.h"

namespace {

// Characters dropped from a key's letters. The set is the device's: "/" appears twice and
// the numero sign is in it.
constexpr char16_t kSkippedLetters[] = u"\r\n\t`\"!@#$%^&*()_|{}://<>?[];',./№-=\\";

bool IsSkippedLetter(char16_t c) {
    for (const char16_t* s = kSkippedLetters; *s != 0; ++s) {
        if (*s == c)
            return true;
    }
    return false;
}

constexpr uint32_t kTypeMissing = 0xFFFFFFFF;
constexpr uint32_t kLanguageFallback = 0x0409;

}  // namespace

void KeypadLayout::Clear() {
    labels.RemoveAll();
    subLabels.RemoveAll();
    letters.RemoveAll();
    hasSubLabels = false;
}

void KeypadLayout::Parse(const char16_t* text, int length) {
    Clear();
    Str label;
    Str keyLetters;
    bool inLetters = false;
    auto keep = [&] {
        if (!label.IsEmpty() && !keyLetters.IsEmpty()) {
            labels.Add(label);
            letters.Add(keyLetters);
        }
        label.Empty();
        keyLetters.Empty();
    };
    for (int i = 0; text != nullptr && i < length; ++i) {
        char16_t c = text[i];
        if (!inLetters) {
            if (c == u'/' || c == u'\\') {
                inLetters = true;
            } else if (c != u' ') {
                label.Append(c);
            }
        } else if (c == u' ') {
            keep();
            inLetters = false;
        } else if (!IsSkippedLetter(c)) {
            keyLetters.Append(c);
        }
    }
    keep();
    for (int k = 0; k < labels.Size(); ++k) {
        int caret = labels[k].Find(u'^');
        Str second;
        if (caret >= 0) {
            second = labels[k].Mid(caret + 1, labels[k].Length());
            labels[k] = labels[k].Left(caret);
        }
        if (!second.IsEmpty())
            hasSubLabels = true;
        subLabels.Add(second);
    }
}

bool KeypadLayout::Load(int id) {
    Clear();
    if (id == kKeypadCustomId) {
        uint32_t size = 0;
        uint8_t* block = settings::ReadBlock(&size);
        if (block == nullptr)
            return false;
        // The block need not be aligned or even-sized: copy whole characters out of it.
        std::vector<char16_t> text(size / 2);
        if (!text.empty())
            std::memcpy(text.data(), block, text.size() * sizeof(char16_t));
        delete[] block;
        Parse(text.data(), static_cast<int>(text.size()));
        return !labels.IsEmpty();
    }
    const KeypadRow* row = FindKeypadRow(id);
    if (row == nullptr)
        return false;
    Str joined;
    for (int k = 0; k < 8; ++k) {
        if (k > 0)
            joined.Append(u' ');
        joined.Append(row->keys[k]);
    }
    Parse(joined.c_str(), joined.Length());
    return !labels.IsEmpty();
}

int KeypadLayout::ChooseId() {
    uint32_t type = settings::ReadNumber(settings::kKeypadKey, kKeypadTypeValue, kTypeMissing);
    int32_t chosen = static_cast<int32_t>(type);
    if (chosen >= kKeypadCustomId && chosen <= kKeypadLastRowId)
        return chosen;
    uint32_t language = locale_text::UserLanguageId();
    if (language == 0)
        language = kLanguageFallback;
    uint8_t primary = static_cast<uint8_t>(language & 0xFF);
    for (int i = 0; i < kKeypadRowCount; ++i) {
        if (kKeypadRows[i].language == primary)
            return kKeypadRows[i].id;
    }
    return kKeypadFirstRowId;
}
