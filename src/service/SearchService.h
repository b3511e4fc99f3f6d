#pragma once
// SearchService: the search service itself, free of any platform. It keeps the contacts, the
// key masks of the active keypad layout and the index, and answers the requests of
// ServiceProtocol.h through IoControl. The last text search's results are kept for requests 8
// and 6, and the last reply for a repeat of the same request (the caller's retry with a buffer
// of the reported size).
//
// A contact change (a store notice) marks the index stale and the next search rebuilds it, about
// 35 ms at 10,000 contacts; notices reach the service when a picker opens (StoreFeed), so the
// rebuild falls on the opening search and never between keystrokes.

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "service/LetterKeys.h"
#include "service/NameMatch.h"
#include "service/SearchHit.h"
#include "service/SearchIndex.h"
#include "service/ServiceContact.h"

struct KeypadLayout;

class SearchService {
  public:
    /// Starts with no contacts and the Latin table only.
    SearchService();

    /// Replaces every contact.
    void SetContacts(std::vector<ServiceContact> contacts);
    /// Adds or replaces one contact (a created or changed notice).
    void PutContact(ServiceContact contact);
    /// Removes one contact (a deleted notice).
    void RemoveContact(uint32_t oid);
    /// Matches letters with this layout from now on.
    void SetLayout(const KeypadLayout& layout);
    /// Called at every search with the empty text (a picker opening): lets the owner catch up
    /// with the contacts store and the chosen layout.
    void SetSessionStartHook(std::function<void()> hook) { sessionStart_ = std::move(hook); }

    /// Handles one request. True when the reply was written to out; *returned is its size.
    /// False for a malformed request (*returned 0) or a reply larger than outBytes (*returned
    /// the size needed). returned may be null.
    bool IoControl(uint32_t code, const uint8_t* in, uint32_t inBytes, uint8_t* out,
                   uint32_t outBytes, uint32_t* returned);

    /// The hits of a text search (for tests and measurements); rebuilds a stale index first.
    const SearchHits& Search(const KeyQuery& query);
    const ContactTable& Table() const { return table_; }
    const LetterKeys& Keys() const { return *keys_; }
    /// Rebuilds the index when contacts or the layout changed since it was built.
    void EnsureIndex();
    size_t IndexBytes() const { return index_.Bytes(); }

  private:
    bool BuildReply(uint32_t code, const uint8_t* in, uint32_t inBytes,
                    std::vector<uint8_t>& reply);
    bool TextSearch(const uint8_t* in, uint32_t inBytes, uint8_t* out, uint32_t outBytes,
                    uint32_t* returned);
    /// Runs a text search and lays out its texts; *size gets the reply's size.
    bool PrepareTextSearch(const uint8_t* in, uint32_t inBytes, size_t* size);
    /// Writes the prepared reply (count, ids, texts) to reply.
    void WriteTextSearch(uint8_t* reply) const;
    bool NumberSearchReply(const uint8_t* in, uint32_t inBytes, std::vector<uint8_t>& reply);
    bool DetailsReply(const uint8_t* in, uint32_t inBytes, std::vector<uint8_t>& reply);
    void StringsReply(std::vector<uint8_t>& reply);
    void ComputeStrings();
    void Changed();

    ContactTable table_;
    std::unique_ptr<LetterKeys> keys_;
    SearchIndex index_;
    bool stale_ = true;
    std::function<void()> sessionStart_;

    KeyQuery lastQuery_;
    SearchHits lastHits_;
    bool stringsReady_ = false;
    std::vector<std::u16string> strings_;
    std::unordered_map<uint32_t, uint16_t> stringOfPosition_;

    bool cached_ = false;
    uint32_t cachedCode_ = 0;
    std::vector<uint8_t> cachedRequest_;
    std::vector<uint8_t> cachedReply_;
    std::vector<uint8_t> building_;  ///< the reply being built (kept for its capacity)
    std::u16string texts_;
};
