#pragma once
// Reads the service's replies back in tests.

#include <cstdint>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "service/SearchService.h"
#include "service/ServiceProtocol.h"

struct TextReply {
    std::vector<uint32_t> oids;
    std::vector<std::u16string> texts;
};

inline std::vector<uint8_t> Call(SearchService& service, uint32_t code,
                                 const std::vector<uint8_t>& request, bool* ok = nullptr) {
    uint32_t needed = 0;
    const uint8_t* in = request.empty() ? nullptr : request.data();
    auto size = static_cast<uint32_t>(request.size());
    bool first = service.IoControl(code, in, size, nullptr, 0, &needed);
    std::vector<uint8_t> reply(needed);
    uint32_t returned = 0;
    bool second = first || service.IoControl(code, in, size, reply.data(), needed, &returned);
    if (ok != nullptr)
        *ok = second && (first ? needed == 0 : returned == needed);
    return reply;
}

inline std::vector<uint8_t> TextBytes(const std::u16string& text) {
    std::vector<uint8_t> bytes(text.size() * 2);
    if (!text.empty())
        std::memcpy(bytes.data(), text.data(), bytes.size());
    return bytes;
}

inline uint32_t ReadU32(const std::vector<uint8_t>& bytes, size_t at) {
    uint32_t v = 0;
    std::memcpy(&v, bytes.data() + at, 4);
    return v;
}

/// Zero-terminated texts from byte offset `at`; stops after the empty one when untilEmpty.
inline std::vector<std::u16string> ReadTexts(const std::vector<uint8_t>& bytes, size_t at,
                                             bool untilEmpty) {
    std::vector<std::u16string> texts;
    std::u16string current;
    for (size_t i = at; i + 1 < bytes.size(); i += 2) {
        char16_t c = static_cast<char16_t>(bytes[i] | bytes[i + 1] << 8);
        if (c != 0) {
            current.push_back(c);
            continue;
        }
        if (current.empty() && untilEmpty)
            break;
        texts.push_back(current);
        current.clear();
    }
    return texts;
}

inline TextReply SearchText(SearchService& service, const std::u16string& digits) {
    std::vector<uint8_t> reply = Call(service, search_protocol::kSearchText, TextBytes(digits));
    TextReply out;
    uint32_t n = ReadU32(reply, 0);
    for (uint32_t i = 0; i < n; ++i)
        out.oids.push_back(ReadU32(reply, 4 + 4 * i));
    out.texts = ReadTexts(reply, 4 + 4 * static_cast<size_t>(n), true);
    return out;
}
