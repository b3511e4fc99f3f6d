#include "contacts/VCardContacts.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "TestBytes.h"
#include "contacts/ContactRecord.h"
#include "contacts/ContactsSession.h"
#include "contacts/NotesBlock.h"

namespace {

using namespace contact_props;
using test_bytes::U16;

std::vector<StoredContact> ReadFile(const std::string& text) {
    return ReadContactsFile(reinterpret_cast<const uint8_t*>(text.data()), text.size());
}

StoredContact ReadOne(const std::string& text) {
    std::vector<StoredContact> contacts = ReadFile(text);
    EXPECT_EQ(contacts.size(), 1u);
    return contacts.empty() ? StoredContact() : contacts.front();
}

std::u16string TextOf(const StoredContact& contact, uint32_t id) {
    const Str* text = contact.Text(id);
    return text == nullptr ? u"<none>" : U16(*text);
}

/// The phones as a session reads them: (label, number, type code) in order.
std::vector<std::tuple<std::u16string, std::u16string, int>> Phones(const StoredContact& contact) {
    NotesBlock block;
    std::unique_ptr<ContactsStream> notes;
    if (contact.notes)
        notes = std::make_unique<MemoryStream>(contact.notes);
    ReadNotes(notes.get(), block);
    Array<Str> labels;
    Array<Str> numbers;
    PhoneItems(block, kNotesPhoneWord, labels, numbers);
    std::vector<std::tuple<std::u16string, std::u16string, int>> phones;
    for (int type = 0; type < kPhonePropertyCount; ++type) {
        if (const Str* number = contact.Text(kPhoneProperties[type].propId)) {
            phones.emplace_back(kPhoneProperties[type].label, U16(*number), type);
        }
    }
    for (int i = 0; i < labels.Size(); ++i)
        phones.emplace_back(U16(labels[i]), U16(numbers[i]), 100);
    return phones;
}

using PhoneList = std::vector<std::tuple<std::u16string, std::u16string, int>>;

std::string Card(const std::string& version, const std::string& body) {
    return "BEGIN:VCARD\r\nVERSION:" + version + "\r\n" + body + "END:VCARD\r\n";
}

TEST(VCardContactsTest, MapsNamesAndTexts) {
    StoredContact contact = ReadOne(
        Card("3.0",
             "N:Smith;John;Quincy,Adam;Dr.;Jr.\r\nFN:Dr. John Q. Smith Jr.\r\n"
             "ORG:Acme\\, Inc.;Research;Lab 2\r\nTITLE:Chief Tester\r\nNICKNAME:Johnny,JJ\r\n"
             "EMAIL;TYPE=INTERNET:john@acme.example\r\nEMAIL:second@acme.example\r\n"
             "CATEGORIES:Work,VIP\r\nCATEGORIES:Golf\r\nROLE:Owner\r\n"));
    EXPECT_EQ(TextOf(contact, kLastName), u"Smith");
    EXPECT_EQ(TextOf(contact, kFirstName), u"John");
    EXPECT_EQ(TextOf(contact, kMiddleName), u"Quincy Adam");
    EXPECT_EQ(TextOf(contact, kNamePart7), u"Dr.");
    EXPECT_EQ(TextOf(contact, kNamePart8), u"Jr.");
    EXPECT_EQ(TextOf(contact, kCompany), u"Acme, Inc.");
    EXPECT_EQ(TextOf(contact, kExtraText2), u"Research");
    EXPECT_EQ(TextOf(contact, kNamePart5), u"Chief Tester");
    EXPECT_EQ(TextOf(contact, kNamePart6), u"Johnny");
    EXPECT_EQ(TextOf(contact, kExtraText), u"<none>");  // no sort name; the e-mail is not one
    EXPECT_EQ(TextOf(contact, kList), u"Work, VIP, Golf");
    EXPECT_EQ(TextOf(contact, kExtraText3), u"Owner");
    EXPECT_EQ(contact.notes, nullptr);
    EXPECT_EQ(contact.picture, nullptr);
}

TEST(VCardContactsTest, CommasAreTextInVersionTwoOne) {
    StoredContact contact = ReadOne(Card("2.1", "N:Doe;Jane;Ann,Marie\r\nORG:Ximian, Inc.\r\n"));
    EXPECT_EQ(TextOf(contact, kMiddleName), u"Ann,Marie");
    EXPECT_EQ(TextOf(contact, kCompany), u"Ximian, Inc.");
}

TEST(VCardContactsTest, FormattedNameStandsInForAMissingName) {
    StoredContact person = ReadOne(Card("3.0", "FN:Frank Dawson\r\nORG:Lotus\r\n"));
    EXPECT_EQ(TextOf(person, kFirstName), u"Frank Dawson");
    EXPECT_EQ(TextOf(person, kCompany), u"Lotus");
    StoredContact company = ReadOne(Card("3.0", "N:;;;;\r\nFN:Lotus\r\nORG:Lotus;\r\n"));
    EXPECT_EQ(TextOf(company, kFirstName), u"<none>");
    EXPECT_EQ(TextOf(company, kCompany), u"Lotus");
    StoredContact named = ReadOne(Card("3.0", "N:Doe;Jo\r\nFN:Someone Else\r\n"));
    EXPECT_EQ(TextOf(named, kFirstName), u"Jo");
}

TEST(VCardContactsTest, NumbersGoToThePropertiesTheirTypesName) {
    StoredContact contact =
        ReadOne(Card("3.0",
                     "N:Many;Numbers\r\n"
                     "TEL;TYPE=HOME:h1\r\nTEL;TYPE=HOME:h2\r\nTEL;TYPE=HOME:h3\r\n"
                     "TEL;TYPE=WORK,VOICE:w1\r\nTEL;TYPE=WORK:w2\r\nTEL;TYPE=CELL:m\r\n"
                     "TEL;TYPE=HOME,FAX:hf\r\nTEL;TYPE=WORK,FAX:wf\r\nTEL;TYPE=PAGER:p\r\n"
                     "TEL;TYPE=CAR:c\r\nTEL;TYPE=X-ASSISTANT:a\r\nTEL;TYPE=X-RADIO:r\r\n"
                     "TEL;TYPE=MAIN:co\r\nTEL;TYPE=MMS:mms\r\n"));
    EXPECT_EQ(Phones(contact), (PhoneList{{u"Mobile", u"m", 0},
                                          {u"Home", u"h1", 1},
                                          {u"Home", u"h2", 2},
                                          {u"Work", u"w1", 3},
                                          {u"Work", u"w2", 4},
                                          {u"Pager", u"p", 5},
                                          {u"Radio", u"r", 6},
                                          {u"Assistant", u"a", 7},
                                          {u"Work fax", u"wf", 8},
                                          {u"Home fax", u"hf", 9},
                                          {u"Company", u"co", 10},
                                          {u"MMS", u"mms", 11},
                                          {u"Car", u"c", 12},
                                          {u"Home", u"h3", 100}}));
}

TEST(VCardContactsTest, NumbersOfNoTypeTakeWhatIsLeft) {
    StoredContact contact =
        ReadOne(Card("2.1",
                     "N:Plain;Numbers\r\nTEL:1\r\nTEL;VOICE:2\r\nTEL;CELL:3\r\nTEL;PREF:4\r\n"
                     "TEL;HOME:5\r\nTEL:6\r\nTEL:7\r\n"));
    EXPECT_EQ(Phones(contact), (PhoneList{{u"Mobile", u"3", 0},
                                          {u"Home", u"5", 1},
                                          {u"Home", u"2", 2},
                                          {u"Work", u"1", 3},
                                          {u"Work", u"4", 4},
                                          {u"Phone", u"6", 100},
                                          {u"Phone", u"7", 100}}));
}

TEST(VCardContactsTest, AFaxAloneIsAWorkFaxThenAHomeFax) {
    StoredContact contact =
        ReadOne(Card("2.1", "N:F;F\r\nTEL;FAX:1\r\nTEL;FAX:2\r\nTEL;FAX:3\r\n"));
    EXPECT_EQ(
        Phones(contact),
        (PhoneList{{u"Work fax", u"1", 8}, {u"Home fax", u"2", 9}, {u"Work fax", u"3", 100}}));
}

TEST(VCardContactsTest, CustomLabelsGoToTheNotesBlock) {
    StoredContact contact =
        ReadOne(Card("3.0",
                     "N:Label;Custom\r\nitem1.TEL:111\r\nitem1.X-ABLabel:Summer house\r\n"
                     "item2.TEL:222\r\nitem2.X-ABLabel:_$!<Mobile>!$_\r\nTEL;TYPE=WhatsApp:333\r\n"
                     "TEL;TYPE=X-SKYPE:444\r\nTEL;TYPE=OTHER:555\r\nitem3.TEL:666\r\n"
                     "item3.X-ABLabel:_$!<Other>!$_\r\nTEL;TYPE=x-evil\\]:[7:7]\r\n"));
    EXPECT_EQ(Phones(contact), (PhoneList{{u"Mobile", u"222", 0},
                                          {u"Summer house", u"111", 100},
                                          {u"WhatsApp", u"333", 100},
                                          {u"Skype", u"444", 100},
                                          {u"Other", u"555", 100},
                                          {u"Other", u"666", 100},
                                          {u"evil\\]", u"[7:7]", 100}}));
}

TEST(VCardContactsTest, AssistantLabelAndTelUris) {
    StoredContact contact =
        ReadOne(Card("4.0",
                     "N:Uri;Tel\r\nTEL;VALUE=uri;TYPE=\"cell,voice\":tel:+1-555-0100\r\n"
                     "item2.TEL:+1-555-0101\r\nitem2.X-ABLabel:_$!<AssistantPhone>!$_\r\n"
                     "TEL;TYPE=work:TEL: 555 0102\r\nTEL;TYPE=home: \r\n"));
    EXPECT_EQ(Phones(contact), (PhoneList{{u"Mobile", u"+1-555-0100", 0},
                                          {u"Work", u"555 0102", 3},
                                          {u"Assistant", u"+1-555-0101", 7}}));
}

TEST(VCardContactsTest, NoteBecomesTheNotesStreamAndItsBlockIsKept) {
    StoredContact contact = ReadOne(Card(
        "3.0",
        "N:Noted;Ann\r\nNOTE:Met at the fair.\\n== start pim information ==\\nPhone: [Skype: "
        "ann.b]\\n== end pim information ==\\nLikes tea.\r\nTEL;TYPE=HOME:1\r\nTEL;TYPE=HOME:2\r\n"
        "TEL;TYPE=HOME:3\r\n"));
    ASSERT_NE(contact.notes, nullptr);
    ASSERT_GE(contact.notes->size(), 2u);
    EXPECT_EQ((*contact.notes)[0], 0xFE);
    EXPECT_EQ((*contact.notes)[1], 0xFF);
    MemoryStream stream(contact.notes);
    NotesBlock block;
    ReadNotes(&stream, block);
    EXPECT_EQ(U16(block.otherText), u"Met at the fair.\r\n\r\nLikes tea.");
    EXPECT_EQ(Phones(contact), (PhoneList{{u"Home", u"1", 1},
                                          {u"Home", u"2", 2},
                                          {u"Home", u"3", 100},
                                          {u"Skype", u"ann.b", 100}}));
}

TEST(VCardContactsTest, ExtraNumbersJoinABlockWithoutAPhoneList) {
    StoredContact contact =
        ReadOne(Card("3.0",
                     "N:B;A\r\nNOTE:== start pim information ==\\nBirthday: [May 1]\\n"
                     "== end pim information ==\r\nTEL;TYPE=OTHER:9\r\n"));
    EXPECT_EQ(Phones(contact), (PhoneList{{u"Other", u"9", 100}}));
}

TEST(VCardContactsTest, AnOverflowNumberCreatesABlock) {
    StoredContact contact = ReadOne(Card("3.0", "N:B;A\r\nTEL;TYPE=X-ICQ:42\r\n"));
    MemoryStream stream(contact.notes);
    NotesBlock block;
    ReadNotes(&stream, block);
    EXPECT_EQ(U16(block.otherText), u"");
    EXPECT_EQ(Phones(contact), (PhoneList{{u"Icq", u"42", 100}}));
}

TEST(VCardContactsTest, PhotosBecomeThePictureStream) {
    StoredContact base64 = ReadOne(Card("3.0", "N:P;A\r\nPHOTO;ENCODING=b;TYPE=JPEG:/9j/\r\n"));
    ASSERT_NE(base64.picture, nullptr);
    EXPECT_EQ(*base64.picture, (std::vector<uint8_t>{0xFF, 0xD8, 0xFF}));
    StoredContact uri = ReadOne(Card("4.0", "N:P;B\r\nPHOTO:data:image/png;base64,iVBO\r\n"));
    ASSERT_NE(uri.picture, nullptr);
    EXPECT_EQ(*uri.picture, (std::vector<uint8_t>{0x89, 0x50, 0x4E}));
    StoredContact url = ReadOne(Card("3.0", "N:P;C\r\nPHOTO;VALUE=uri:http://x.example/a.png\r\n"));
    EXPECT_EQ(url.picture, nullptr);
}

TEST(VCardContactsTest, ObjectIdsAreStableNeverZeroAndDistinct) {
    std::string a = Card("3.0", "UID:uid-a\r\nN:Alpha;Ann\r\n");
    std::string b = Card("3.0", "N:Beta;Bob\r\n");
    std::string twin = Card("3.0", "N:Beta;Bob\r\n");
    std::vector<StoredContact> first = ReadFile(a + b + twin);
    ASSERT_EQ(first.size(), 3u);
    std::set<uint32_t> ids;
    for (const StoredContact& contact : first) {
        EXPECT_NE(contact.oid, 0u);
        ids.insert(contact.oid);
    }
    EXPECT_EQ(ids.size(), 3u);
    std::vector<StoredContact> again = ReadFile(a + b + twin);
    for (size_t i = 0; i < 3; ++i)
        EXPECT_EQ(again[i].oid, first[i].oid);

    std::vector<StoredContact> edited = ReadFile(
        Card("3.0", "N:Other;Bob\r\n") + Card("3.0", "UID:uid-a\r\nN:Renamed;Ann\r\nTEL:1\r\n"));
    EXPECT_EQ(edited[1].oid, first[0].oid);  // the UID keeps the id through an edit
    EXPECT_NE(edited[0].oid, first[1].oid);

    std::vector<StoredContact> swapped = ReadFile(b + a);
    EXPECT_EQ(swapped[0].oid, first[1].oid);
    EXPECT_EQ(swapped[1].oid, first[0].oid);
    EXPECT_EQ(first[2].oid, ObjectIdFor(u"card\x1F"
                                        u"Beta\x1F"
                                        u"Bob\x1F\x1F\x1F",
                                        1));
}

// The extra text is the card's sort name.

TEST(VCardContactsTest, SortStringIsTheSortName) {
    StoredContact contact = ReadOne(
        Card("3.0", "N:Smith;John;;;\r\nSORT-STRING:Smyth John\r\nEMAIL:john@acme.example\r\n"));
    EXPECT_EQ(TextOf(contact, kExtraText), u"Smyth John");
}

TEST(VCardContactsTest, SortAsOfTheNameGivesFamilyThenGivenName) {
    StoredContact quoted =
        ReadOne(Card("4.0", "N;SORT-AS=\"Mann,James\":de Mann;Henry,James;;;\r\n"));
    EXPECT_EQ(TextOf(quoted, kExtraText), u"Mann James");
    EXPECT_EQ(TextOf(quoted, kLastName), u"de Mann");
    StoredContact bare = ReadOne(Card("4.0", "N;SORT-AS=Mann,James:de Mann;Henry;;;\r\n"));
    EXPECT_EQ(TextOf(bare, kExtraText), u"Mann James");
    StoredContact familyOnly = ReadOne(Card("4.0", "N;SORT-AS=Mann:de Mann;Henry;;;\r\n"));
    EXPECT_EQ(TextOf(familyOnly, kExtraText), u"Mann");
}

TEST(VCardContactsTest, SortAsComponentsMayBeSeparatedBySemicolons) {
    // Family and given name readings in kana, written with a semicolon inside the quotes.
    StoredContact contact =
        ReadOne(Card("4.0",
                     "N;SORT-AS=\"\xE3\x82\x84\xE3\x81\xBE\xE3\x81\xA0;\xE3\x81\x9F\xE3\x82\x8D"
                     "\xE3\x81\x86\":\xE5\xB1\xB1\xE7\x94\xB0;\xE5\xA4\xAA\xE9\x83\x8E;;;\r\n"));
    EXPECT_EQ(TextOf(contact, kExtraText), u"\u3084\u307E\u3060 \u305F\u308D\u3046");
    EXPECT_EQ(TextOf(contact, kLastName), u"\u5C71\u7530");
    EXPECT_EQ(TextOf(contact, kFirstName), u"\u592A\u90CE");
}

TEST(VCardContactsTest, SortAsUndoesCaretEscapes) {
    StoredContact contact =
        ReadOne(Card("4.0", "N;SORT-AS=\"Hat^^^'s,Ann^nMarie\":Hat;Ann;;;\r\n"));
    EXPECT_EQ(TextOf(contact, kExtraText), u"Hat^\"s Ann Marie");
}

TEST(VCardContactsTest, PhoneticNameFieldsGiveFamilyGivenMiddle) {
    StoredContact contact =
        ReadOne(Card("3.0",
                     "N:Doe;John;;;\r\nX-PHONETIC-FIRST-NAME:Jon\r\n"
                     "X-PHONETIC-MIDDLE-NAME:Kwin\r\nX-PHONETIC-LAST-NAME:Dow\r\n"));
    EXPECT_EQ(TextOf(contact, kExtraText), u"Dow Jon Kwin");
    StoredContact givenOnly =
        ReadOne(Card("3.0", "N:Doe;John;;;\r\nX-PHONETIC-FIRST-NAME:Jon\r\n"));
    EXPECT_EQ(TextOf(givenOnly, kExtraText), u"Jon");
}

TEST(VCardContactsTest, APhonesPhoneticNameIsTheSortNameInVersionTwoOne) {
    StoredContact contact = ReadOne(
        Card("2.1", "N:Doe;John;;;\r\nSOUND;X-IRMC-N;CHARSET=UTF-8:Dow;Jon;;;\r\nTEL:1\r\n"));
    EXPECT_EQ(TextOf(contact, kExtraText), u"Dow Jon");
    StoredContact notPhonetic = ReadOne(Card("2.1", "N:Doe;John;;;\r\nSOUND:dow.wav\r\n"));
    EXPECT_EQ(TextOf(notPhonetic, kExtraText), u"<none>");
}

TEST(VCardContactsTest, TheSortNameSourcesComeInOrder) {
    std::string all =
        "N;SORT-AS=\"Nsort\":Doe;John;;;\r\nX-PHONETIC-LAST-NAME:Phon\r\n"
        "SOUND;X-IRMC-N:Sound;;;;\r\n";
    EXPECT_EQ(TextOf(ReadOne(Card("3.0", "SORT-STRING:Str\r\n" + all)), kExtraText), u"Str");
    EXPECT_EQ(TextOf(ReadOne(Card("3.0", all)), kExtraText), u"Nsort");
    EXPECT_EQ(TextOf(ReadOne(Card("3.0",
                                  "N:Doe;John;;;\r\nX-PHONETIC-LAST-NAME:Phon\r\n"
                                  "SOUND;X-IRMC-N:Sound;;;;\r\n")),
                     kExtraText),
              u"Phon");
    // Empty sources are passed over.
    EXPECT_EQ(TextOf(ReadOne(Card("4.0",
                                  "SORT-STRING:\r\nN;SORT-AS=\",;\":Doe;John;;;\r\n"
                                  "X-PHONETIC-FIRST-NAME: \r\nSOUND;X-IRMC-N:Sound;;;;\r\n")),
                     kExtraText),
              u"Sound");
}

TEST(VCardContactsTest, AnOrganisationsSortNameServesOnlyACardWithoutAPerson) {
    StoredContact company =
        ReadOne(Card("4.0", "FN:Acme\r\nORG;SORT-AS=\"Akme,Research\":Acme;Research\r\nTEL:1\r\n"));
    EXPECT_EQ(TextOf(company, kExtraText), u"Akme");
    StoredContact person =
        ReadOne(Card("4.0", "N:Doe;John;;;\r\nORG;SORT-AS=\"Akme\":Acme\r\nTEL:1\r\n"));
    EXPECT_EQ(TextOf(person, kExtraText), u"<none>");
}

TEST(VCardContactsTest, TheEmailStillTellsCardsWithoutUidApart) {
    std::vector<StoredContact> contacts =
        ReadFile(Card("3.0", "N:Beta;Bob\r\nEMAIL:bob@one.example\r\n") +
                 Card("3.0", "N:Beta;Bob\r\nEMAIL:bob@two.example\r\n"));
    ASSERT_EQ(contacts.size(), 2u);
    EXPECT_EQ(contacts[0].oid, ObjectIdFor(u"card\x1F"
                                           u"Beta\x1F"
                                           u"Bob\x1F\x1F\x1F"
                                           u"bob@one.example",
                                           0));
    EXPECT_EQ(contacts[1].oid, ObjectIdFor(u"card\x1F"
                                           u"Beta\x1F"
                                           u"Bob\x1F\x1F\x1F"
                                           u"bob@two.example",
                                           0));
}

TEST(VCardContactsTest, EmptyCardsAreNotContacts) {
    EXPECT_TRUE(ReadFile(Card("3.0", "") + Card("2.1", "N:;;;;\r\nTEL:\r\n")).empty());
    EXPECT_EQ(ReadFile(Card("3.0", "EMAIL:only@example.com\r\n")).size(), 1u);
}

// Cards written the way common address books export them.

TEST(VCardContactsTest, ReadsADesktopMailClientExportInVersionTwoOne) {
    StoredContact contact = ReadOne(
        "BEGIN:VCARD\r\nVERSION:2.1\r\nN;LANGUAGE=en-us:Whitfield;Harold;;Mr.\r\n"
        "FN:Mr. Harold Whitfield\r\nORG:Northwind Traders;Purchasing\r\nTITLE:Buyer\r\n"
        "NOTE;ENCODING=QUOTED-PRINTABLE:Prefers calls after 10.=0D=0A=\r\nSecond line.\r\n"
        "TEL;WORK;VOICE:(206) 555-0100\r\nTEL;HOME;VOICE:(206) 555-0101\r\n"
        "TEL;CELL;VOICE:(206) 555-0102\r\nTEL;WORK;FAX:(206) 555-0103\r\n"
        "ADR;WORK;PREF:;;1 Main St;Seattle;WA;98052;USA\r\n"
        "EMAIL;PREF;INTERNET:harold@northwind.example\r\n"
        "PHOTO;TYPE=JPEG;ENCODING=BASE64:\r\n /9j/4AAQ\r\n\r\nREV:20240101T120000Z\r\n"
        "END:VCARD\r\n");
    EXPECT_EQ(TextOf(contact, kLastName), u"Whitfield");
    EXPECT_EQ(TextOf(contact, kFirstName), u"Harold");
    EXPECT_EQ(TextOf(contact, kNamePart7), u"Mr.");
    EXPECT_EQ(TextOf(contact, kCompany), u"Northwind Traders");
    EXPECT_EQ(Phones(contact), (PhoneList{{u"Mobile", u"(206) 555-0102", 0},
                                          {u"Home", u"(206) 555-0101", 1},
                                          {u"Work", u"(206) 555-0100", 3},
                                          {u"Work fax", u"(206) 555-0103", 8}}));
    MemoryStream stream(contact.notes);
    NotesBlock block;
    ReadNotes(&stream, block);
    EXPECT_EQ(U16(block.otherText), u"Prefers calls after 10.\r\nSecond line.");
    ASSERT_NE(contact.picture, nullptr);
    EXPECT_EQ(contact.picture->size(), 6u);
}

TEST(VCardContactsTest, ReadsAPhoneExportInVersionTwoOneWithQuotedPrintableUtf8) {
    StoredContact contact = ReadOne(
        "BEGIN:VCARD\r\nVERSION:2.1\r\n"
        "N;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:=D0=A1=D0=BC=D0=B8=D1=80=D0=BD=D0=BE=D0=B2=\r\n"
        "=D0=B0;=D0=9E=D0=BB=D1=8C=D0=B3=D0=B0;;;\r\n"
        "FN;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:=D0=9E=D0=BB=D1=8C=D0=B3=D0=B0\r\n"
        "TEL;CELL;PREF:+7 916 555-01-02\r\nTEL;HOME:+7 495 555-01-03\r\n"
        "TEL;X-CUSTOM(CHARSET=UTF-8,ENCODING=QUOTED-PRINTABLE,=44=61=63=68=61):+7 496 555-01-04\r\n"
        "END:VCARD\r\n");
    EXPECT_EQ(TextOf(contact, kLastName), u"\x0421\x043C\x0438\x0440\x043D\x043E\x0432\x0430");
    EXPECT_EQ(TextOf(contact, kFirstName), u"\x041E\x043B\x044C\x0433\x0430");
    PhoneList phones = Phones(contact);
    ASSERT_EQ(phones.size(), 3u);
    EXPECT_EQ(phones[0],
              (std::tuple<std::u16string, std::u16string, int>{u"Mobile", u"+7 916 555-01-02", 0}));
    EXPECT_EQ(phones[1],
              (std::tuple<std::u16string, std::u16string, int>{u"Home", u"+7 495 555-01-03", 1}));
    EXPECT_EQ(phones[2], (std::tuple<std::u16string, std::u16string, int>{
                             u"Dacha", u"+7 496 555-01-04", 100}));
}

TEST(VCardContactsTest, ReadsAnAddressBookExportInVersionThree) {
    StoredContact contact = ReadOne(
        "BEGIN:VCARD\r\nVERSION:3.0\r\nPRODID:-//Example Corp.//Address Book 9.0//EN\r\n"
        "N:M\xC3\xBCller;J\xC3\xBCrgen;;;\r\nFN:J\xC3\xBCrgen M\xC3\xBCller\r\n"
        "ORG:Stadtwerke;\r\nitem1.TEL;type=pref:+49 30 5550100\r\n"
        "item1.X-ABLabel:_$!<Mobile>!$_\r\nTEL;type=HOME;type=VOICE:+49 30 5550101\r\n"
        "TEL;type=WORK;type=FAX:+49 30 5550102\r\nitem2.TEL:+49 30 5550103\r\n"
        "item2.X-ABLabel:Ferienhaus\r\nitem3.EMAIL;type=INTERNET:j@example.de\r\n"
        "PHOTO;ENCODING=b;TYPE=JPEG:/9j/4AAQSkZJ\r\n RgABAQ==\r\nX-ABUID:ABC-123\r\n"
        "UID:5B8F-0002\r\nEND:VCARD\r\n");
    EXPECT_EQ(TextOf(contact, kLastName), u"M\x00FCller");
    EXPECT_EQ(TextOf(contact, kFirstName), u"J\x00FCrgen");
    EXPECT_EQ(TextOf(contact, kCompany), u"Stadtwerke");
    EXPECT_EQ(TextOf(contact, kExtraText), u"<none>");
    EXPECT_EQ(Phones(contact), (PhoneList{{u"Mobile", u"+49 30 5550100", 0},
                                          {u"Home", u"+49 30 5550101", 1},
                                          {u"Work fax", u"+49 30 5550102", 8},
                                          {u"Ferienhaus", u"+49 30 5550103", 100}}));
    ASSERT_NE(contact.picture, nullptr);
    EXPECT_EQ(contact.picture->size(), 13u);
    EXPECT_EQ(contact.oid, ObjectIdFor(u"uid:5B8F-0002", 0));
}

TEST(VCardContactsTest, ReadsAWebMailExportInVersionThree) {
    StoredContact contact = ReadOne(
        "BEGIN:VCARD\nVERSION:3.0\nFN:Priya Natarajan\nN:Natarajan;Priya;;;\n"
        "EMAIL;TYPE=INTERNET;TYPE=HOME:priya@example.org\nTEL;TYPE=CELL:+91 98450 55501\n"
        "TEL;TYPE=WORK:+91 80 5550 2200\nitem1.TEL:+91 80 5550 2201\n"
        "item1.X-ABLabel:GRAND_CENTRAL\nNOTE:Project lead\\, platform team\n"
        "CATEGORIES:myContacts,Colleagues\nEND:VCARD\n");
    EXPECT_EQ(Phones(contact), (PhoneList{{u"Mobile", u"+91 98450 55501", 0},
                                          {u"Work", u"+91 80 5550 2200", 3},
                                          {u"Grand_central", u"+91 80 5550 2201", 100}}));
    EXPECT_EQ(TextOf(contact, kList), u"myContacts, Colleagues");
}

TEST(VCardContactsTest, ReadsAVersionFourExport) {
    StoredContact contact = ReadOne(
        "BEGIN:VCARD\r\nVERSION:4.0\r\nFN:Ren\xC3\xA9\x65 Lef\xC3\xA8vre\r\n"
        "N:Lef\xC3\xA8vre;Ren\xC3\xA9\x65;;;\r\nTEL;VALUE=uri;TYPE=\"voice,cell\";PREF=1:tel:+33-6-"
        "55-"
        "50-01-02\r\nTEL;VALUE=uri;TYPE=home:tel:+33-1-55-50-01-03;ext=7\r\n"
        "PHOTO:data:image/"
        "gif;base64,R0lGODlh\r\nUID:urn:uuid:4fbe8971-0bc3-424c-9c26-36c3e1eff6b1\r\n"
        "END:VCARD\r\n");
    EXPECT_EQ(TextOf(contact, kFirstName),
              u"Ren\x00E9"
              u"e");
    EXPECT_EQ(TextOf(contact, kLastName), u"Lef\x00E8vre");
    EXPECT_EQ(Phones(contact), (PhoneList{{u"Mobile", u"+33-6-55-50-01-02", 0},
                                          {u"Home", u"+33-1-55-50-01-03;ext=7", 1}}));
    ASSERT_NE(contact.picture, nullptr);
    EXPECT_EQ(std::string(contact.picture->begin(), contact.picture->end()), "GIF89a");
}

TEST(VCardContactsTest, ReadsAnOldPhoneExportInWindows1251) {
    StoredContact contact = ReadOne(
        "BEGIN:VCARD\r\nVERSION:2.1\r\nN;CHARSET=WINDOWS-1251:\xCF\xE5\xF2\xF0\xEE\xE2;"
        "\xC8\xE2\xE0\xED\r\n"
        "TEL;PREF;CELL:+380501234567\r\nTEL;WORK:+380441234567\r\nEND:VCARD\r\n");
    EXPECT_EQ(TextOf(contact, kLastName), u"\x041F\x0435\x0442\x0440\x043E\x0432");
    EXPECT_EQ(TextOf(contact, kFirstName), u"\x0418\x0432\x0430\x043D");
    EXPECT_EQ(Phones(contact),
              (PhoneList{{u"Mobile", u"+380501234567", 0}, {u"Work", u"+380441234567", 3}}));
}

}  // namespace
