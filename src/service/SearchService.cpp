#include "service/SearchService.h"

#include <bit>
#include <cstring>

#include "keypad/KeypadLayout.h"
#include "service/NumberIdentity.h"
#include "service/ReplyWriter.h"
#include "service/ServiceProtocol.h"

static_assert(std::endian::native == std::endian::little, "replies are written in host order");

namespace {

constexpr uint32_t kMaxStrings = 0xFFFF;

std::u16string TextOf(const uint8_t* in, uint32_t inBytes) {
    std::u16string text(inBytes / 2, u'\0');
    if (inBytes > 0)
        std::memcpy(text.data(), in, text.size() * 2);
    return text;
}

bool ValidText(const uint8_t* in, uint32_t inBytes) {
    return inBytes % 2 == 0 && inBytes <= search_protocol::kMaxQueryChars * 2 &&
           (inBytes == 0 || in != nullptr);
}

/// The type text of a phone in the details reply.
std::u16string TypeText(const ServicePhone& phone) {
    if (phone.type >= 0 && phone.type <= 12) {
        return std::u16string(1, static_cast<char16_t>(phone.type + 1));
    }
    bool sendable = !phone.label.empty() && phone.label.find(u'\0') == std::u16string::npos &&
                    !(phone.label.size() == 1 && phone.label[0] >= 1 && phone.label[0] <= 13);
    return sendable ? phone.label : std::u16string(search_protocol::kOtherLabel);
}

bool HasNonZero(const std::u16string& text) {
    return text.find_first_not_of(u'\0') != std::u16string::npos;
}

}  // namespace

SearchService::SearchService() : keys_(std::make_unique<LetterKeys>()) {}

void SearchService::Changed() {
    stale_ = true;
    cached_ = false;
    lastHits_.clear();
    lastQuery_.clear();
    stringsReady_ = false;
}

void SearchService::SetContacts(std::vector<ServiceContact> contacts) {
    table_.Assign(std::move(contacts));
    Changed();
}

void SearchService::PutContact(ServiceContact contact) {
    table_.Put(std::move(contact));
    Changed();
}

void SearchService::RemoveContact(uint32_t oid) {
    if (table_.Remove(oid))
        Changed();
}

void SearchService::SetLayout(const KeypadLayout& layout) {
    keys_ = std::make_unique<LetterKeys>(layout);
    Changed();
}

void SearchService::EnsureIndex() {
    if (!stale_)
        return;
    index_.Build(table_, *keys_);
    stale_ = false;
}

const SearchHits& SearchService::Search(const KeyQuery& query) {
    EnsureIndex();
    index_.Search(query, lastHits_);
    lastQuery_ = query;
    stringsReady_ = false;
    return lastHits_;
}

bool SearchService::IoControl(uint32_t code, const uint8_t* in, uint32_t inBytes, uint8_t* out,
                              uint32_t outBytes, uint32_t* returned) {
    uint32_t ignored = 0;
    if (returned == nullptr)
        returned = &ignored;
    *returned = 0;
    if (out == nullptr && outBytes != 0)
        return false;
    if (inBytes != 0 && in == nullptr)
        return false;
    // The empty text opens a picker session, which must see the store's latest state.
    bool opensSession = code == search_protocol::kSearchText && inBytes == 0;
    bool repeat = cached_ && !opensSession && code == cachedCode_ &&
                  cachedRequest_.size() == inBytes &&
                  (inBytes == 0 || std::memcmp(cachedRequest_.data(), in, inBytes) == 0);
    if (!repeat && code == search_protocol::kSearchText)
        return TextSearch(in, inBytes, out, outBytes, returned);
    if (!repeat) {
        if (!BuildReply(code, in, inBytes, building_)) {
            cached_ = false;
            return false;
        }
        cached_ = true;
        cachedCode_ = code;
        cachedRequest_.assign(in, in + inBytes);
        std::swap(cachedReply_, building_);
    }
    if (cachedReply_.size() > 0xFFFFFFFFu)
        return false;
    uint32_t size = static_cast<uint32_t>(cachedReply_.size());
    *returned = size;
    if (size > outBytes || (size > 0 && out == nullptr))
        return false;
    if (size > 0)
        std::memcpy(out, cachedReply_.data(), size);
    return true;
}

bool SearchService::TextSearch(const uint8_t* in, uint32_t inBytes, uint8_t* out, uint32_t outBytes,
                               uint32_t* returned) {
    size_t size = 0;
    if (!PrepareTextSearch(in, inBytes, &size)) {
        cached_ = false;
        return false;
    }
    if (size > 0xFFFFFFFFu)
        return false;
    *returned = static_cast<uint32_t>(size);
    if (out != nullptr && size <= outBytes) {
        // It fits: written straight into the caller's buffer, nothing kept for a retry.
        WriteTextSearch(out);
        cached_ = false;
        return true;
    }
    cachedReply_.resize(size);
    WriteTextSearch(cachedReply_.data());
    cached_ = true;
    cachedCode_ = search_protocol::kSearchText;
    cachedRequest_.assign(in, in + inBytes);
    return false;
}

// Every request but the text search (TextSearch writes its reply in place).
bool SearchService::BuildReply(uint32_t code, const uint8_t* in, uint32_t inBytes,
                               std::vector<uint8_t>& reply) {
    switch (code) {
        case search_protocol::kSearchNumber:
            return NumberSearchReply(in, inBytes, reply);
        case search_protocol::kDetails:
            return DetailsReply(in, inBytes, reply);
        case search_protocol::kResultStrings:
            if (inBytes != 0)
                return false;
            StringsReply(reply);
            return true;
        default:
            return false;
    }
}

bool SearchService::PrepareTextSearch(const uint8_t* in, uint32_t inBytes, size_t* size) {
    if (!ValidText(in, inBytes))
        return false;
    std::u16string text = TextOf(in, inBytes);
    KeyQuery query;
    bool digitsOnly = ParseKeyQuery(text.data(), text.size(), query);
    if (text.empty() && sessionStart_)
        sessionStart_();
    if (digitsOnly) {
        Search(query);
    } else {
        // Only keypad digits can match; anything else finds nothing.
        lastHits_.clear();
        lastQuery_ = query;
        stringsReady_ = false;
    }
    texts_.clear();
    // The hits lie scattered over the index: ask for each one's words well before its turn.
    constexpr size_t kAhead = 8;
    size_t count = lastHits_.size();
    for (size_t i = 0; i < count; ++i) {
        const SearchHit& hit = lastHits_[i];
        if (i + 3 * kAhead < count)
            index_.Prefetch(lastHits_[i + 3 * kAhead], 0);
        if (i + 2 * kAhead < count)
            index_.Prefetch(lastHits_[i + 2 * kAhead], 1);
        if (i + kAhead < count && query.size() > 1)
            index_.Prefetch(lastHits_[i + kAhead], 2);
        if (hit.rank > kRankInitials || query.empty()) {
            texts_.append(u"+", 2);  // the "+" and its terminator
            continue;
        }
        index_.AppendHitText(hit, query.size(), texts_);
        texts_.push_back(0);
    }
    texts_.push_back(0);
    *size = 4 + 4 * count + 2 * texts_.size();
    return true;
}

void SearchService::WriteTextSearch(uint8_t* reply) const {
    size_t count = lastHits_.size();
    auto n = static_cast<uint32_t>(count);
    std::memcpy(reply, &n, 4);
    uint8_t* ids = reply + 4;
    for (size_t i = 0; i < count; ++i) {
        uint32_t oid = index_.OidAt(lastHits_[i].position);
        std::memcpy(ids + 4 * i, &oid, 4);
    }
    std::memcpy(ids + 4 * count, texts_.data(), 2 * texts_.size());
}

bool SearchService::NumberSearchReply(const uint8_t* in, uint32_t inBytes,
                                      std::vector<uint8_t>& reply) {
    if (!ValidText(in, inBytes))
        return false;
    std::u16string wanted = DigitsOf(TextOf(in, inBytes));
    ReplyWriter writer(reply);
    writer.U32(0);
    uint32_t count = 0;
    for (int p = 0; p < table_.Size(); ++p) {
        const ServiceContact& contact = table_.At(p);
        for (const ServicePhone& phone : contact.phones) {
            if (SameNumber(wanted, DigitsOf(phone.number))) {
                writer.U32(contact.oid);
                ++count;
                break;
            }
        }
    }
    writer.PatchU32(0, count);
    return true;
}

bool SearchService::DetailsReply(const uint8_t* in, uint32_t inBytes, std::vector<uint8_t>& reply) {
    if (inBytes != 4)
        return false;
    uint32_t oid = 0;
    std::memcpy(&oid, in, 4);
    int position = table_.Find(oid);
    if (position < 0)
        return false;
    ComputeStrings();
    const ServiceContact& contact = table_.At(position);
    uint32_t stringIndex = 0;
    auto found = stringOfPosition_.find(static_cast<uint32_t>(position));
    if (found != stringOfPosition_.end())
        stringIndex = found->second;
    std::vector<const ServicePhone*> phones;
    for (const ServicePhone& phone : contact.phones) {
        if (HasNonZero(phone.number))
            phones.push_back(&phone);
    }
    uint32_t phoneCount = phones.size() > 0xFFFF ? 0xFFFF : static_cast<uint32_t>(phones.size());
    ReplyWriter writer(reply);
    writer.U32(contact.oid);
    writer.U32(stringIndex << 16 | phoneCount);
    writer.Text(contact.DisplayName());
    for (const ServicePhone* phone : phones) {
        writer.Text(phone->number);
        writer.Text(TypeText(*phone));
    }
    if (phones.empty())
        writer.Char(0);
    writer.Char(0);
    writer.Text(contact.fields[kFieldCompany]);
    writer.Text(contact.fields[kFieldNickname]);
    return true;
}

void SearchService::StringsReply(std::vector<uint8_t>& reply) {
    ComputeStrings();
    ReplyWriter writer(reply);
    for (const std::u16string& s : strings_)
        writer.Text(s);
}

void SearchService::ComputeStrings() {
    if (stringsReady_)
        return;
    stringsReady_ = true;
    strings_.clear();
    stringOfPosition_.clear();
    std::unordered_map<std::u16string, uint16_t> indexOf;
    for (const SearchHit& hit : lastHits_) {
        const ServiceContact& contact = table_.At(static_cast<int>(hit.position));
        std::u16string shown = contact.fields[kFieldCompany];
        if (hit.rank == kRankNumber) {
            int phone = MatchingPhone(contact, lastQuery_);
            if (phone >= 0)
                shown = contact.phones[static_cast<size_t>(phone)].number;
        }
        if (!HasNonZero(shown))
            continue;
        auto [at, added] = indexOf.emplace(shown, 0);
        if (added) {
            if (strings_.size() >= kMaxStrings) {
                indexOf.erase(at);
                continue;
            }
            strings_.push_back(shown);
            at->second = static_cast<uint16_t>(strings_.size());
        }
        stringOfPosition_[hit.position] = at->second;
    }
}
