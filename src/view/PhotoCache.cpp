#include "view/PhotoCache.h"

#include <utility>

#include "board/DialBoard.h"

namespace {

/// The entry flag of a contact with a picture.
constexpr uint32_t kHasPicture = 1;

bool ShownWithPicture(const DialBoard& board, uint32_t oid) {
    for (const DialEntry& entry : board.Entries()) {
        if (entry.oid == oid && (entry.flags & kHasPicture) != 0)
            return true;
    }
    return false;
}

}  // namespace

HBITMAP PhotoCache::Find(uint32_t oid) const {
    for (const Photo& photo : photos_) {
        if (photo.oid == oid)
            return photo.bitmap.get();
    }
    return nullptr;
}

HBITMAP PhotoCache::Put(uint32_t oid, gdi::Object<HBITMAP> photo) {
    if (oid == 0)
        return nullptr;  // `photo` goes out of scope and is deleted
    HBITMAP kept = photo.get();
    for (Photo& held : photos_) {
        if (held.oid == oid) {
            held.bitmap = std::move(photo);
            return kept;
        }
    }
    photos_.push_back(Photo{oid, std::move(photo)});
    return kept;
}

void PhotoCache::KeepShown(const DialBoard& board) {
    std::erase_if(photos_,
                  [&board](const Photo& photo) { return !ShownWithPicture(board, photo.oid); });
}
