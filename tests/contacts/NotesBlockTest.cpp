#include "contacts/NotesBlock.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "TestBytes.h"

namespace {

using test_bytes::Bytes;
using test_bytes::Shared;
using test_bytes::U16;
using test_bytes::Utf16Le;

const std::u16string kStart = u"== start pim information ==";
const std::u16string kEnd = u"== end pim information ==";

NotesBlock Split(const std::u16string& notes) {
    NotesBlock block;
    block.blockText = u"stale";
    block.otherText = u"stale";
    SplitNotesBlock(Str(notes.c_str()), block);
    return block;
}

struct Items {
    std::vector<std::u16string> labels;
    std::vector<std::u16string> numbers;
    int count;
};

Items ItemsOfBlock(const std::u16string& blockText) {
    NotesBlock block;
    block.blockText = blockText.c_str();
    Array<Str> labels;
    Array<Str> numbers;
    labels.Add(u"stale");
    Items items;
    items.count = PhoneItems(block, kNotesPhoneWord, labels, numbers);
    for (const Str& label : labels)
        items.labels.push_back(U16(label));
    for (const Str& number : numbers)
        items.numbers.push_back(U16(number));
    return items;
}

NotesBlock ReadBytes(const std::vector<uint8_t>& bytes) {
    NotesBlock block;
    block.blockText = u"stale";
    MemoryStream stream(Shared(bytes));
    ReadNotes(&stream, block);
    return block;
}

TEST(NotesBlockTest, SplitsTheBlockAndFindsItsItems) {
    std::u16string notes = u"a " + kStart + u"Phone: [Skype: 123], [Fax\\: 2: 456]" + kEnd + u" b";
    NotesBlock block = Split(notes);
    EXPECT_EQ(U16(block.blockText), u"Phone: [Skype: 123], [Fax\\: 2: 456]");
    EXPECT_EQ(U16(block.otherText), u"a  b");
    Items items = ItemsOfBlock(U16(block.blockText));
    EXPECT_EQ(items.count, 2);
    EXPECT_EQ(items.labels, (std::vector<std::u16string>{u"Skype", u"Fax: 2"}));
    EXPECT_EQ(items.numbers, (std::vector<std::u16string>{u"123", u"456"}));
}

TEST(NotesBlockTest, ADigitEndsTheList) {
    Items items = ItemsOfBlock(u"Phone: 12 [Skype: 123]");
    EXPECT_EQ(items.count, 0);
    EXPECT_TRUE(items.labels.empty());
    EXPECT_TRUE(items.numbers.empty());
}

TEST(NotesBlockTest, ALetterEndsTheList) {
    EXPECT_EQ(ItemsOfBlock(u"Phone: [a: 1] x [b: 2]").count, 1);
    EXPECT_EQ(ItemsOfBlock(u"Phone: \x0416 [a: 1]").count, 0);  // a Cyrillic letter
    EXPECT_EQ(ItemsOfBlock(u"Phone: \x00E9 [a: 1]").count, 0);
}

TEST(NotesBlockTest, ItemsWithoutLabelOrNumberAreDropped) {
    Items items = ItemsOfBlock(u"Phone: [Empty: ] [: 555] [NoColon] [Home: 1]");
    EXPECT_EQ(items.labels, (std::vector<std::u16string>{u"Home"}));
    EXPECT_EQ(items.numbers, (std::vector<std::u16string>{u"1"}));
}

TEST(NotesBlockTest, SeparatorsAreAnythingButLettersAndDigits) {
    Items items = ItemsOfBlock(u"Phone:\r\n[a: 1],\t[b: 2]; - [c: 3]\n");
    EXPECT_EQ(items.labels, (std::vector<std::u16string>{u"a", u"b", u"c"}));
}

TEST(NotesBlockTest, BackslashMakesTheNextCharacterLiteral) {
    Items items = ItemsOfBlock(u"Phone: [a\\]b: 1\\]2] [c\\\\: 3]");
    EXPECT_EQ(items.labels, (std::vector<std::u16string>{u"a]b", u"c\\"}));
    EXPECT_EQ(items.numbers, (std::vector<std::u16string>{u"1]2", u"3"}));
}

TEST(NotesBlockTest, ANumberMayRunToTheEndOfTheBlock) {
    Items items = ItemsOfBlock(u"Phone: [a: 12 34");
    EXPECT_EQ(items.numbers, (std::vector<std::u16string>{u"12 34"}));
    EXPECT_EQ(ItemsOfBlock(u"Phone: [label only").count, 0);
}

TEST(NotesBlockTest, LabelsAndNumbersKeepTheirInnerBlanks) {
    Items items = ItemsOfBlock(u"Phone: [  My office : +1 555 ]");
    EXPECT_EQ(items.labels, (std::vector<std::u16string>{u"My office "}));
    EXPECT_EQ(items.numbers, (std::vector<std::u16string>{u"+1 555 "}));
}

TEST(NotesBlockTest, BracketedSectionsBeforeTheWordAreSkipped) {
    Items items = ItemsOfBlock(u"[Phone: [a: 1]] Phone: [b: 2]");
    EXPECT_EQ(items.labels, (std::vector<std::u16string>{u"b"}));
    EXPECT_EQ(ItemsOfBlock(u"[x\\] Phone: [a: 1]").count, 0);  // the escaped bracket hides it
}

TEST(NotesBlockTest, ADoubledLeadingLetterHidesTheWord) {
    EXPECT_EQ(ItemsOfBlock(u"PPhone: [a: 1]").count, 0);
    EXPECT_EQ(ItemsOfBlock(u"Mobile Phone: [a: 1]").count, 1);
    EXPECT_EQ(ItemsOfBlock(u"Phones: [a: 1]").count, 0);  // the word never completes
}

TEST(NotesBlockTest, NoWordOrEmptyBlockGivesNothing) {
    EXPECT_EQ(ItemsOfBlock(u"[a: 1]").count, 0);
    EXPECT_EQ(ItemsOfBlock(u"").count, 0);
}

TEST(NotesBlockTest, AStartMarkerWithoutAnEndTakesTheRest) {
    NotesBlock block = Split(u"  first " + kStart + u"Phone: [a: 1]  ");
    EXPECT_EQ(U16(block.blockText), u"Phone: [a: 1]  ");
    EXPECT_EQ(U16(block.otherText), u"first");
}

TEST(NotesBlockTest, AnEmptyBlockTakesNothingAfterIt) {
    NotesBlock block = Split(u" x " + kStart + kEnd + u" y");
    EXPECT_EQ(U16(block.blockText), u"");
    EXPECT_EQ(U16(block.otherText), u"x ");  // neither "y" nor the trailing cut
}

TEST(NotesBlockTest, NotesWithoutMarkerAreOtherTextAsTheyStand) {
    NotesBlock block = Split(u"  just notes \r\n");
    EXPECT_EQ(U16(block.blockText), u"");
    EXPECT_EQ(U16(block.otherText), u"  just notes \r\n");
    NotesBlock empty = Split(u"");
    EXPECT_EQ(U16(empty.otherText), u"");
}

TEST(NotesBlockTest, TheEndMarkerIsSearchedAfterTheStart) {
    NotesBlock block = Split(kEnd + u"a" + kStart + u"b" + kEnd + u"c");
    EXPECT_EQ(U16(block.blockText), u"b");
    EXPECT_EQ(U16(block.otherText), kEnd + u"ac");
}

TEST(NotesBlockTest, ReadsSingleByteNotes) {
    NotesBlock block =
        ReadBytes(Bytes("Caf\xE9 "
                        "== start pim information ==Phone: [x: 1]"));
    EXPECT_EQ(U16(block.otherText), u"Caf\x00E9");
    EXPECT_EQ(U16(block.blockText), u"Phone: [x: 1]");
}

TEST(NotesBlockTest, SingleBytesGoThroughTheGivenCodePage) {
    auto cyrillic = [](const uint8_t* bytes, size_t size) {
        return DecodeWindows1251(bytes, size);
    };
    NotesBlock block;
    MemoryStream stream(Shared(Bytes("\xC8\xE2\xE0\xED")));
    ReadNotes(&stream, block, cyrillic);
    EXPECT_EQ(U16(block.otherText), u"\x0418\x0432\x0430\x043D");
}

TEST(NotesBlockTest, TheFeFfFormIsTakenLittleEndianAsItStands) {
    NotesBlock block = ReadBytes(Utf16Le(u"Hi \x0416", {0xFE, 0xFF}));
    EXPECT_EQ(U16(block.otherText), u"Hi \x0416");
    EXPECT_EQ(U16(ReadBytes({0xFE, 0xFF}).otherText), u"");
    EXPECT_EQ(U16(ReadBytes({0xFE, 0xFF, 'a'}).otherText), u"");  // one byte is no character
}

TEST(NotesBlockTest, TheFfFeMarkIsNotUtf16) {
    NotesBlock block = ReadBytes({0xFF, 0xFE, 'a', 0});
    EXPECT_EQ(U16(block.otherText),
              u"\x00FF\x00FE"
              u"a");
}

TEST(NotesBlockTest, ReadsThePwiForm) {
    std::vector<uint8_t> bytes = {'{', '\\', 'p', 'w', 'i', 1, 1, 1, 1, 1, 1, 1, 1, 1};
    const char text[] = "Phone: [a: 1]";
    std::vector<uint8_t> record(30 + sizeof text - 1, 0);
    record[0] = 'A';
    record[4] = 10;  // 6 + 4 * 10 bytes: past the end, which cuts it
    record[8] = sizeof text - 1;
    std::copy(text, text + sizeof text - 1, record.begin() + 30);
    bytes.insert(bytes.end(), record.begin(), record.end());
    NotesBlock block = ReadBytes(bytes);
    EXPECT_EQ(U16(block.otherText), u"Phone: [a: 1]");
}

TEST(NotesBlockTest, NothingToReadGivesEmptyTexts) {
    NotesBlock block;
    block.blockText = u"stale";
    block.otherText = u"stale";
    ReadNotes(nullptr, block);
    EXPECT_TRUE(block.blockText.IsEmpty());
    EXPECT_TRUE(block.otherText.IsEmpty());
    EXPECT_TRUE(ReadBytes({}).otherText.IsEmpty());
}

/// A stream that reports a size but delivers fewer bytes, or fails outright.
class ShortStream : public ContactsStream {
  public:
    ShortStream(bool failSeek, bool failRead) : failSeek_(failSeek), failRead_(failRead) {}
    bool Seek(int64_t, int origin, uint64_t* position) override {
        if (position != nullptr)
            *position = origin == kSeekEnd ? 10 : 0;
        return !failSeek_;
    }
    bool Read(void* buffer, uint32_t, uint32_t* bytesRead) override {
        static_cast<uint8_t*>(buffer)[0] = 'a';
        *bytesRead = 1;
        return !failRead_;
    }

  private:
    bool failSeek_;
    bool failRead_;
};

TEST(NotesBlockTest, AShortOrFailedReadGivesEmptyTexts) {
    for (auto [failSeek, failRead] : {std::pair{false, false}, {true, false}, {false, true}}) {
        ShortStream stream(failSeek, failRead);
        NotesBlock block;
        block.otherText = u"stale";
        ReadNotes(&stream, block);
        EXPECT_TRUE(block.otherText.IsEmpty());
    }
}

}  // namespace
