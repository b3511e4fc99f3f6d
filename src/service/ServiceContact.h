#pragma once
// ServiceContact: the search service's copy of one contact, the fields it searches and replies
// with. ContactTable: all of them, kept in display-name order.

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

/// One number of a contact: as written, its label and its type code (0..12, or 100).
struct ServicePhone {
    std::u16string number;
    std::u16string label;
    int32_t type = 0;
};

/// Name fields, in the order their words are searched.
enum NameField : uint8_t { kFieldFirst, kFieldMiddle, kFieldLast, kFieldCompany, kFieldNickname };
constexpr int kNameFieldCount = 5;

struct ServiceContact {
    uint32_t oid = 0;
    std::u16string fields[kNameFieldCount];  ///< indexed by NameField
    std::vector<ServicePhone> phones;

    const std::u16string& Field(NameField f) const { return fields[f]; }
    /// The name the board shows and sorts by (ContactSortName): "Last, First Middle", or
    /// whichever parts exist.
    std::u16string DisplayName() const;
};

/// Orders display names the way the results list them: case and accents ignored first, then
/// the exact text, then the object id, so the order is total and the same on every platform.
bool DisplayOrderLess(const ServiceContact& a, const ServiceContact& b);

/// All contacts in display-name order, with a lookup by object id.
class ContactTable {
  public:
    /// Replaces every contact and sorts them.
    void Assign(std::vector<ServiceContact> contacts);
    /// Adds or replaces the contact with c.oid, keeping the order.
    void Put(ServiceContact contact);
    /// Removes the contact with that object id; false when there was none.
    bool Remove(uint32_t oid);

    int Size() const { return static_cast<int>(contacts_.size()); }
    const ServiceContact& At(int position) const { return contacts_[position]; }
    /// The position of the contact with that object id, or -1.
    int Find(uint32_t oid) const;
    /// Bytes held by the contacts' texts and numbers (for the benchmark's figures).
    size_t DataBytes() const;

  private:
    void Reindex();
    std::vector<ServiceContact> contacts_;
    std::unordered_map<uint32_t, int> byOid_;
};
