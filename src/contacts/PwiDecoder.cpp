#include "contacts/PwiDecoder.h"

#include <cstring>

namespace {

constexpr size_t kHeaderSize = 14;
constexpr size_t kRecordHeader = 6;
constexpr size_t kRunCountOffset = 8;
constexpr size_t kRunTextOffset = 30;

/// What a byte of a text run does (codes 0x80 and up; lower bytes are characters).
enum class RunCode { kPair, kWide, kByte, kControl, kSkip, kError };

struct RunAction {
    RunCode code;
    size_t skip;  ///< bytes skipped for kSkip
};

RunAction ActionFor(uint8_t b) {
    if (b <= 0xBF)
        return {RunCode::kPair, 0};
    switch (b) {
        case 0xC0:
            return {RunCode::kWide, 0};
        case 0xC1:
            return {RunCode::kByte, 0};
        case 0xC2:
        case 0xC3:
        case 0xC5:
            return {RunCode::kSkip, 2};
        case 0xC4:
            return {RunCode::kControl, 0};
        case 0xEF:
            return {RunCode::kSkip, 3};
        case 0xF1:
            return {RunCode::kSkip, 7};
        default:
            break;
    }
    if (b >= 0xE5 && b <= 0xE8)
        return {RunCode::kSkip, 2};
    if (b >= 0xE9 && b <= 0xEC)
        return {RunCode::kSkip, 1};
    return {RunCode::kError, 0};  // 0xC6..0xE4, 0xED, 0xEE, 0xF0, 0xF2 and above
}

uint32_t Read16(const uint8_t* p) {
    return static_cast<uint32_t>(p[0] | (p[1] << 8));
}

/// Handles the control byte after 0xC4 at run[i]; returns the bytes it takes, or 0 for an error.
size_t Control(const uint8_t* run, size_t count, size_t i, Str& out) {
    if (i >= count)
        return 0;
    switch (run[i]) {
        case 0:
            return 1;
        case 4:
            out.Append(u'\t');
            return 1;
        case 25:
            return 3;
        case 27:
            return 7;
        default:
            return 0;
    }
}

}  // namespace

bool IsPwi(const uint8_t* bytes, size_t size) {
    if (size <= kHeaderSize || std::memcmp(bytes, "{\\pwi", 5) != 0)
        return false;
    for (size_t i = 5; i <= 13; ++i) {
        if (bytes[i] < 10)
            return true;
    }
    return false;
}

bool DecodePwiRun(const uint8_t* run, size_t count, Str& out) {
    size_t i = 0;
    while (i < count) {
        uint8_t b = run[i++];
        if (b < 0x80) {
            out.Append(static_cast<char16_t>(b));
            continue;
        }
        RunAction action = ActionFor(b);
        switch (action.code) {
            case RunCode::kPair:
                if (i < count)
                    out.Append(static_cast<char16_t>((b & 0x3F) + 64 * run[i++]));
                break;
            case RunCode::kWide:
                if (i + 2 > count)
                    return true;
                out.Append(static_cast<char16_t>(Read16(run + i)));
                i += 2;
                break;
            case RunCode::kByte:
                if (i < count)
                    out.Append(static_cast<char16_t>(run[i++]));
                break;
            case RunCode::kControl: {
                size_t taken = Control(run, count, i, out);
                if (taken == 0)
                    return i >= count;
                i += taken;
                break;
            }
            case RunCode::kSkip:
                i += action.skip;
                break;
            case RunCode::kError:
                return false;
        }
    }
    return true;
}

Str DecodePwi(const uint8_t* bytes, size_t size) {
    Str notes;
    size_t start = kHeaderSize;
    while (start < size && size - start > kRecordHeader) {
        const uint8_t* record = bytes + start;
        size_t available = size - start;
        size_t length = Read16(record + 4);
        size_t step = kRecordHeader + 4 * length;
        if (record[0] == 'U' || record[0] == 'o') {
            step = kRecordHeader + (static_cast<size_t>(record[1]) * 65536 + length);
        } else if (record[0] == 'A' && available > kRunTextOffset) {
            size_t count = Read16(record + kRunCountOffset);
            size_t room = available - kRunTextOffset;
            Str run;
            DecodePwiRun(record + kRunTextOffset, count < room ? count : room, run);
            if (!notes.IsEmpty() && !run.IsEmpty())
                notes.Append(u' ');
            notes.Append(run);
        }
        start += step;
    }
    return notes;
}
