#pragma once
// ContactPhone and ContactRecord: one contact as the session reads it, and one of its numbers.
// A record is constructed empty and reused between reads; it owns the decoded picture.

#include <cstddef>
#include <cstdint>

#include "base/Array.h"
#include "base/Str.h"

/// Type code of a number taken from the notes block's "Phone:" list.
constexpr int32_t kPhoneTypeNotes = 100;
/// How many phone properties a contact has (type codes 0 to 12).
constexpr int kPhonePropertyCount = 13;

/// One number of a contact: its label (stored by the board as "Type%d"), the number, and its
/// type code (stored as "Link%d": 0..12 for the phone properties, 100 for a notes item).
struct ContactPhone {
    Str label;
    Str number;
    int32_t type = 0;
};

/// A phone property: its property id and its built-in label.
struct PhoneProperty {
    uint32_t propId;
    const char16_t* label;
};

/// The thirteen phone properties, indexed by type code. The labels are built in.
extern const PhoneProperty kPhoneProperties[kPhonePropertyCount];

/// The built-in label of type code 0..12; null for any other code.
const char16_t* PhoneTypeLabel(int32_t type);

/// A decoded picture: a bitmap handle on Windows (null for none).
using PictureHandle = void*;
/// Deletes a picture handle.
using PictureRelease = void (*)(PictureHandle);

/// Owns one decoded picture and deletes it with its release function. Move-only: a picture has
/// one owner, so it is deleted exactly once however it is passed on.
class Picture {
  public:
    Picture() = default;
    /// Takes ownership of `handle`; `release` (null = never) deletes it.
    Picture(PictureHandle handle, PictureRelease release) : handle_(handle), release_(release) {}
    ~Picture() { Reset(); }
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;
    Picture(Picture&& other) noexcept : handle_(other.handle_), release_(other.release_) {
        other.handle_ = nullptr;
        other.release_ = nullptr;
    }
    Picture& operator=(Picture&& other) noexcept {
        if (this != &other) {
            Reset();
            handle_ = other.handle_;
            release_ = other.release_;
            other.handle_ = nullptr;
            other.release_ = nullptr;
        }
        return *this;
    }

    PictureHandle Get() const { return handle_; }
    /// Gives up ownership: the caller deletes the returned handle.
    PictureHandle Release() {
        PictureHandle handle = handle_;
        handle_ = nullptr;
        release_ = nullptr;
        return handle;
    }
    /// Deletes the held picture; the owner is empty afterwards.
    void Reset() {
        if (handle_ != nullptr && release_ != nullptr)
            release_(handle_);
        handle_ = nullptr;
        release_ = nullptr;
    }
    explicit operator bool() const { return handle_ != nullptr; }
    friend bool operator==(const Picture& picture, std::nullptr_t) {
        return picture.handle_ == nullptr;
    }

  private:
    PictureHandle handle_ = nullptr;
    PictureRelease release_ = nullptr;
};

/// One contact as read. Fields in the order of the contacts database's record.
struct ContactRecord {
    uint32_t oid = 0;  ///< object id; 0 when empty
    Str firstName;
    Str lastName;
    Str middleName;
    Str company;
    Str namePart5;
    Str namePart6;
    Str namePart7;
    Str namePart8;
    Array<ContactPhone> phones;  ///< phone properties in type-code order, then notes items
    Str extraText;
    Array<Str> list;          ///< the list property split at commas
    Picture picture;          ///< the decoded picture, when it was asked for
    uint32_t hasPicture = 0;  ///< 1 when the contact has a picture stream
    Str notesText;            ///< the notes without the notes block
    Str extraText2;
    Str extraText3;

    ContactRecord() = default;
    ContactRecord(const ContactRecord&) = delete;
    ContactRecord& operator=(const ContactRecord&) = delete;

    /// Empties every field, deletes the picture and sets has-picture to 0.
    void Clear();
    /// Takes ownership of `handle`; `release` deletes it when the record is cleared or destroyed.
    void AdoptPicture(PictureHandle handle, PictureRelease release);
};

/// The name a contact sorts under: "Last, First" when both are set, else Last or First; a
/// middle name follows after a blank. With neither, the middle name alone, else the company.
Str ContactSortName(const Str& first, const Str& last, const Str& middle, const Str& company);
