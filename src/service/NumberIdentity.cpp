#include "service/NumberIdentity.h"

namespace {

bool IsTrunkDigit(char16_t c) {
    return c == u'0' || c == u'8';
}

/// True when `part` (with its trunk digit dropped when it has one) ends `whole`.
bool TailOf(const std::u16string& part, const std::u16string& whole) {
    for (size_t drop = 0; drop <= 1; ++drop) {
        if (drop == 1 && (part.empty() || !IsTrunkDigit(part[0])))
            break;
        size_t n = part.size() - drop;
        if (n < kMinNumberTail || n > whole.size())
            continue;
        if (whole.compare(whole.size() - n, n, part, drop, n) == 0)
            return true;
    }
    return false;
}

}  // namespace

std::u16string DigitsOf(const std::u16string& text) {
    std::u16string digits;
    for (char16_t c : text) {
        if (c >= u'0' && c <= u'9')
            digits.push_back(c);
    }
    return digits;
}

bool SameNumber(const std::u16string& digitsA, const std::u16string& digitsB) {
    if (digitsA.empty() || digitsB.empty())
        return false;
    if (digitsA == digitsB)
        return true;
    return TailOf(digitsA, digitsB) || TailOf(digitsB, digitsA);
}
