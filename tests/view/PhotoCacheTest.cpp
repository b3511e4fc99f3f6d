// The view's photo cache: one bitmap per contact, deleted exactly when it is replaced, dropped
// or cleared, and never kept for a contact no entry shows with a picture.
#include "view/PhotoCache.h"

#include <gtest/gtest.h>

#include <type_traits>

#include "BoardTestSetup.h"
#include "board/DialBoard.h"

namespace {

static_assert(!std::is_copy_constructible_v<PhotoCache>, "a photo has one owner");
static_assert(!std::is_copy_assignable_v<PhotoCache>, "a photo has one owner");

gdi::Object<HBITMAP> NewPhoto() {
    return gdi::Object<HBITMAP>(MakeTestPhoto(8, 8));
}

/// Whether `bitmap` is still a live bitmap (deleted handles are no object at all).
bool Alive(HBITMAP bitmap) {
    return GetObjectType(bitmap) == OBJ_BITMAP;
}

TEST(PhotoCacheTest, KeepsOnePhotoPerContactAndFindsIt) {
    PhotoCache cache;
    EXPECT_EQ(cache.Find(7), nullptr);
    HBITMAP seven = cache.Put(7, NewPhoto());
    HBITMAP nine = cache.Put(9, NewPhoto());
    ASSERT_NE(seven, nullptr);
    EXPECT_EQ(cache.Find(7), seven);
    EXPECT_EQ(cache.Find(9), nine);
    EXPECT_EQ(cache.Find(8), nullptr);
    EXPECT_EQ(cache.Count(), 2);
    // Found again, not made again: the same bitmap every time.
    EXPECT_EQ(cache.Find(7), seven);
    EXPECT_TRUE(Alive(seven));
}

TEST(PhotoCacheTest, PutDeletesThePhotoItReplaces) {
    PhotoCache cache;
    HBITMAP first = cache.Put(7, NewPhoto());
    HBITMAP second = cache.Put(7, NewPhoto());
    EXPECT_FALSE(Alive(first));
    EXPECT_TRUE(Alive(second));
    EXPECT_EQ(cache.Find(7), second);
    EXPECT_EQ(cache.Count(), 1);
}

TEST(PhotoCacheTest, APhotoWithoutAContactIsDeletedAtOnce) {
    PhotoCache cache;
    gdi::Object<HBITMAP> photo = NewPhoto();
    HBITMAP handle = photo.get();
    EXPECT_EQ(cache.Put(0, std::move(photo)), nullptr);
    EXPECT_FALSE(Alive(handle));
    EXPECT_EQ(cache.Find(0), nullptr);
    EXPECT_EQ(cache.Count(), 0);
}

TEST(PhotoCacheTest, ClearAndDestructionDeleteEveryPhoto) {
    HBITMAP kept = nullptr;
    {
        PhotoCache cache;
        HBITMAP a = cache.Put(1, NewPhoto());
        HBITMAP b = cache.Put(2, NewPhoto());
        cache.Clear();
        EXPECT_FALSE(Alive(a));
        EXPECT_FALSE(Alive(b));
        EXPECT_EQ(cache.Count(), 0);
        kept = cache.Put(3, NewPhoto());
        EXPECT_TRUE(Alive(kept));
    }
    EXPECT_FALSE(Alive(kept));
}

/// Contacts 7 and 8 have pictures, 9 has none.
class PictureContacts : public ContactSource {
  public:
    bool IsAvailable() override { return true; }
    bool Read(uint32_t oid, uint32_t, ContactRecord& record) override {
        if (oid < 7 || oid > 9)
            return false;
        record.Clear();
        record.oid = oid;
        record.firstName = u"Someone";
        record.hasPicture = oid != 9 ? 1 : 0;
        return true;
    }
    bool FindByNumber(const Str&, Array<uint32_t>& oids) override {
        oids.RemoveAll();
        return false;
    }
};

TEST(PhotoCacheTest, KeepsOnlyThePhotosOfContactsShownWithAPicture) {
    PictureContacts contacts;
    DialBoard board(&contacts);
    ASSERT_TRUE(board.Assign(0, 7, u"1", u"Mobile", 1));
    ASSERT_TRUE(board.Assign(1, 8, u"2", u"Mobile", 1));
    PhotoCache cache;
    HBITMAP seven = cache.Put(7, NewPhoto());
    HBITMAP eight = cache.Put(8, NewPhoto());
    HBITMAP nine = cache.Put(9, NewPhoto());  // on no button
    cache.KeepShown(board);
    EXPECT_TRUE(Alive(seven));
    EXPECT_TRUE(Alive(eight));
    EXPECT_FALSE(Alive(nine));
    EXPECT_EQ(cache.Count(), 2);

    // Slot 0 now calls contact 9 (no picture) and contact 8 turns out to show none.
    ASSERT_TRUE(board.Assign(0, 9, u"3", u"Mobile", 1));
    board.ForgetPicture(board.FindBySlot(1));
    cache.KeepShown(board);
    EXPECT_FALSE(Alive(seven));
    EXPECT_FALSE(Alive(eight));
    EXPECT_EQ(cache.Count(), 0);
    board.Clear();
    ForgetStoredBoard();
}

}  // namespace
