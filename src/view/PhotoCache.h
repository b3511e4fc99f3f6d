#pragma once
// PhotoCache: the board view's decoded contact photos, one bitmap per contact at the current
// button size. The view owns them; the board's entries only say whether a contact has a
// picture, so entries copy freely and a bitmap never has two owners.

#include <windows.h>

#include <cstdint>
#include <vector>

#include "win/Gdi.h"

class DialBoard;

class PhotoCache {
  public:
    PhotoCache() = default;
    PhotoCache(const PhotoCache&) = delete;
    PhotoCache& operator=(const PhotoCache&) = delete;

    /// The photo kept for contact `oid`; null when there is none (always for oid 0).
    HBITMAP Find(uint32_t oid) const;
    /// Keeps `photo` for contact `oid`, deleting one it replaces, and returns it. A photo for
    /// oid 0 (no contact) is deleted at once and null returned.
    HBITMAP Put(uint32_t oid, gdi::Object<HBITMAP> photo);
    /// Deletes the photos of contacts that no entry of `board` shows with a picture any more
    /// (the entry was replaced, removed, or its contact is gone).
    void KeepShown(const DialBoard& board);
    /// Deletes every photo (the button size changed or the entries were read again).
    void Clear() { photos_.clear(); }
    int Count() const { return static_cast<int>(photos_.size()); }

  private:
    struct Photo {
        uint32_t oid;
        gdi::Object<HBITMAP> bitmap;
    };
    std::vector<Photo> photos_;
};
