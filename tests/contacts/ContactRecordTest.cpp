#include "contacts/ContactRecord.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <utility>

#include "contacts/ContactsStore.h"

namespace {

std::u16string Sort(const char16_t* first, const char16_t* last, const char16_t* middle,
                    const char16_t* company) {
    return ContactSortName(first, last, middle, company).c_str();
}

TEST(ContactRecordTest, SortNameRules) {
    struct Case {
        const char16_t* first;
        const char16_t* last;
        const char16_t* middle;
        const char16_t* company;
        const char16_t* expected;
    };
    const Case cases[] = {
        {u"John", u"Smith", u"", u"Acme", u"Smith, John"},
        {u"John", u"Smith", u"Q", u"Acme", u"Smith, John Q"},
        {u"", u"Smith", u"", u"Acme", u"Smith"},
        {u"", u"Smith", u"Q", u"", u"Smith Q"},
        {u"John", u"", u"", u"Acme", u"John"},
        {u"John", u"", u"Q", u"", u"John Q"},
        {u"", u"", u"Quincy", u"Acme", u"Quincy"},
        {u"", u"", u"", u"Acme", u"Acme"},
        {u"", u"", u"", u"", u""},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(Sort(c.first, c.last, c.middle, c.company), c.expected) << int(c.expected[0]);
    }
}

TEST(ContactRecordTest, PhoneTableHoldsThePropertiesAndLabels) {
    using namespace contact_props;
    const uint32_t ids[] = {kMobilePhone,  kHomePhone,  kHome2Phone,     kWorkPhone, kWork2Phone,
                            kPager,        kRadioPhone, kAssistantPhone, kWorkFax,   kHomeFax,
                            kCompanyPhone, kMmsPhone,   kCarPhone};
    const std::u16string labels[] = {u"Mobile",  u"Home",  u"Home",      u"Work",     u"Work",
                                     u"Pager",   u"Radio", u"Assistant", u"Work fax", u"Home fax",
                                     u"Company", u"MMS",   u"Car"};
    const uint32_t values[] = {0x0096001F, 0x0099001F, 0x009A001F, 0x0097001F, 0x0098001F,
                               0x009D001F, 0x009F001F, 0x00A1001F, 0x009B001F, 0x009C001F,
                               0x00A0001F, 0x10A3001F, 0x009E001F};
    for (int type = 0; type < kPhonePropertyCount; ++type) {
        EXPECT_EQ(kPhoneProperties[type].propId, ids[type]);
        EXPECT_EQ(kPhoneProperties[type].propId, values[type]);
        EXPECT_EQ(std::u16string(kPhoneProperties[type].label), labels[type]);
        EXPECT_EQ(std::u16string(PhoneTypeLabel(type)), labels[type]);
    }
    EXPECT_EQ(PhoneTypeLabel(-1), nullptr);
    EXPECT_EQ(PhoneTypeLabel(13), nullptr);
    EXPECT_EQ(PhoneTypeLabel(kPhoneTypeNotes), nullptr);
}

int gReleased = 0;
void Release(PictureHandle picture) {
    delete static_cast<int*>(picture);
    ++gReleased;
}

TEST(ContactRecordTest, ClearEmptiesEverythingAndDeletesThePicture) {
    gReleased = 0;
    ContactRecord record;
    record.oid = 5;
    record.firstName = u"a";
    record.lastName = u"b";
    record.middleName = u"c";
    record.company = u"d";
    record.namePart5 = record.namePart6 = record.namePart7 = record.namePart8 = u"e";
    record.phones.Add(ContactPhone{u"Mobile", u"1", 0});
    record.extraText = record.extraText2 = record.extraText3 = record.notesText = u"x";
    record.list.Add(u"l");
    record.AdoptPicture(new int(1), Release);
    record.hasPicture = 1;
    record.Clear();
    EXPECT_EQ(record.oid, 0u);
    for (const Str* text :
         {&record.firstName, &record.lastName, &record.middleName, &record.company,
          &record.namePart5, &record.namePart6, &record.namePart7, &record.namePart8,
          &record.extraText, &record.extraText2, &record.extraText3, &record.notesText}) {
        EXPECT_TRUE(text->IsEmpty());
    }
    EXPECT_TRUE(record.phones.IsEmpty());
    EXPECT_TRUE(record.list.IsEmpty());
    EXPECT_EQ(record.picture, nullptr);
    EXPECT_EQ(record.hasPicture, 0u);
    EXPECT_EQ(gReleased, 1);
}

TEST(ContactRecordTest, TheDestructorDeletesThePicture) {
    gReleased = 0;
    {
        ContactRecord record;
        record.AdoptPicture(new int(1), Release);
        record.AdoptPicture(new int(2), Release);  // replaces and deletes the first
        EXPECT_EQ(gReleased, 1);
    }
    EXPECT_EQ(gReleased, 2);
}

static_assert(!std::is_copy_constructible_v<Picture>, "a picture has one owner");
static_assert(!std::is_copy_assignable_v<Picture>, "a picture has one owner");
static_assert(std::is_nothrow_move_constructible_v<Picture>);
static_assert(std::is_nothrow_move_assignable_v<Picture>);
static_assert(!std::is_copy_constructible_v<ContactRecord>);

TEST(PictureTest, MovingLeavesTheSourceEmptyAndDeletesOnce) {
    gReleased = 0;
    {
        Picture first(new int(7), Release);
        Picture second(std::move(first));
        EXPECT_EQ(first, nullptr);
        EXPECT_FALSE(first);
        ASSERT_NE(second, nullptr);
        EXPECT_EQ(*static_cast<int*>(second.Get()), 7);
        Picture third;
        third = std::move(second);
        EXPECT_EQ(second, nullptr);
        EXPECT_EQ(gReleased, 0);
    }
    EXPECT_EQ(gReleased, 1);
}

TEST(PictureTest, MoveAssignmentDeletesThePictureItReplaces) {
    gReleased = 0;
    Picture kept(new int(1), Release);
    Picture other(new int(2), Release);
    kept = std::move(other);
    EXPECT_EQ(gReleased, 1);
    EXPECT_EQ(*static_cast<int*>(kept.Get()), 2);
    kept.Reset();
    EXPECT_EQ(gReleased, 2);
    EXPECT_EQ(kept, nullptr);
    kept.Reset();  // an empty owner deletes nothing
    EXPECT_EQ(gReleased, 2);
}

TEST(PictureTest, ReleaseHandsTheHandleOverWithoutDeletingIt) {
    gReleased = 0;
    int* handle = new int(3);
    {
        Picture picture(handle, Release);
        EXPECT_EQ(picture.Release(), handle);
        EXPECT_EQ(picture, nullptr);
    }
    EXPECT_EQ(gReleased, 0);
    Release(handle);
}

TEST(ContactRecordTest, APictureMovesOutOfTheRecordWhole) {
    gReleased = 0;
    Picture taken;
    {
        ContactRecord record;
        record.AdoptPicture(new int(4), Release);
        taken = std::move(record.picture);
        EXPECT_EQ(record.picture, nullptr);
    }
    EXPECT_EQ(gReleased, 0);
    taken.Reset();
    EXPECT_EQ(gReleased, 1);
}

}  // namespace
