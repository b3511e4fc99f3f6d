#include "contacts/PwiDecoder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Bytes = std::vector<uint8_t>;

std::u16string Text(const Str& s) {
    return std::u16string(s.c_str());
}

/// The 14-byte header: "{\pwi" and nine bytes, one of them below 10.
Bytes Header() {
    Bytes bytes = {'{', '\\', 'p', 'w', 'i', 'x', 'x', 'x', 'x', 'x', 'x', 'x', 'x', 'x'};
    bytes[9] = 3;
    return bytes;
}

void Put16(Bytes& bytes, size_t at, uint32_t value) {
    bytes[at] = static_cast<uint8_t>(value & 0xFF);
    bytes[at + 1] = static_cast<uint8_t>(value >> 8);
}

/// A record of 6 + 4 * length bytes with the tag and lengths set.
Bytes Record(char tag, uint32_t length, uint8_t high = 0) {
    Bytes record(6 + 4 * length, 0);
    record[0] = static_cast<uint8_t>(tag);
    record[1] = high;
    Put16(record, 4, length);
    return record;
}

/// A text-run record holding the encoded run.
Bytes TextRecord(const Bytes& run) {
    uint32_t length = static_cast<uint32_t>((24 + run.size() + 3) / 4);
    Bytes record = Record('A', length);
    Put16(record, 8, static_cast<uint32_t>(run.size()));
    std::copy(run.begin(), run.end(), record.begin() + 30);
    return record;
}

Bytes Join(std::initializer_list<Bytes> parts) {
    Bytes all;
    for (const Bytes& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

Bytes Ascii(const std::string& text) {
    return Bytes(text.begin(), text.end());
}

std::u16string DecodeRun(const Bytes& run, bool* ok) {
    Str out;
    bool result = DecodePwiRun(run.data(), run.size(), out);
    if (ok != nullptr)
        *ok = result;
    return Text(out);
}

TEST(PwiDecoderTest, RecognisesTheFormByItsHeader) {
    Bytes header = Header();
    Bytes fifteen = Join({header, {0}});
    EXPECT_TRUE(IsPwi(fifteen.data(), fifteen.size()));
    EXPECT_FALSE(IsPwi(header.data(), header.size()));  // 14 bytes are not above 14

    Bytes noSmallByte = fifteen;
    noSmallByte[9] = 'x';
    EXPECT_FALSE(IsPwi(noSmallByte.data(), noSmallByte.size()));

    for (size_t at : {5u, 13u}) {
        Bytes edge = noSmallByte;
        edge[at] = 9;
        EXPECT_TRUE(IsPwi(edge.data(), edge.size())) << at;
    }
    Bytes offsetFourteen = noSmallByte;
    offsetFourteen[14] = 0;  // offset 14 is not looked at
    EXPECT_FALSE(IsPwi(offsetFourteen.data(), offsetFourteen.size()));

    Bytes wrongPrefix = fifteen;
    wrongPrefix[1] = 'P';
    EXPECT_FALSE(IsPwi(wrongPrefix.data(), wrongPrefix.size()));
}

TEST(PwiDecoderTest, JoinsTextRunsWithOneBlank) {
    Bytes pwi = Join({Header(), TextRecord(Ascii("Hello")), TextRecord(Ascii("world"))});
    EXPECT_EQ(Text(DecodePwi(pwi.data(), pwi.size())), u"Hello world");
}

TEST(PwiDecoderTest, AnEmptyRunAddsNoBlank) {
    Bytes pwi = Join(
        {Header(), TextRecord({}), TextRecord(Ascii("a")), TextRecord({}), TextRecord(Ascii("b"))});
    EXPECT_EQ(Text(DecodePwi(pwi.data(), pwi.size())), u"a b");
}

TEST(PwiDecoderTest, SkipsOtherRecordsByTheirLengths) {
    Bytes other = Record('Z', 3);  // 6 + 12 bytes
    other[10] = 'Q';               // would be text if the walk were off
    Bytes upper = Record('U', 0, 0);
    Put16(upper, 4, 5);  // U moves on by 6 + 5 bytes, not 6 + 4 * 5
    upper.resize(11, 0);
    Bytes small = Record('o', 0);
    Put16(small, 4, 2);
    small.resize(8, 0);
    Bytes pwi =
        Join({Header(), other, TextRecord(Ascii("one")), upper, small, TextRecord(Ascii("two"))});
    EXPECT_EQ(Text(DecodePwi(pwi.data(), pwi.size())), u"one two");
}

TEST(PwiDecoderTest, UAndOTakeTheHighLengthByte) {
    Bytes big = Record('U', 0, 1);  // 6 + 65536 + 0 bytes
    big.resize(6 + 65536, 'x');
    Bytes pwi = Join({Header(), big, TextRecord(Ascii("after"))});
    EXPECT_EQ(Text(DecodePwi(pwi.data(), pwi.size())), u"after");
}

TEST(PwiDecoderTest, RunCodesDecodeAsTheTableSays) {
    struct Case {
        Bytes run;
        std::u16string text;
        bool ok;
    };
    const Case cases[] = {
        {{'a', 0x7F}, u"a\x7F", true},
        {{0x90, 0x10}, u"\x0410", true},  // (0x90 & 0x3F) + 64 * 0x10
        {{0xBF, 0xFF}, std::u16string(1, static_cast<char16_t>(0x3F + 64 * 0xFF)), true},
        {{0x80}, u"", true},  // no following byte inside the run
        {{0xC0, 0x3A, 0x04}, u"\x043A", true},
        {{0xC0, 0x3A}, u"", true},
        {{0xC1, 0xE9}, u"\xE9", true},
        {{0xC2, 'x', 'x', 'a'}, u"a", true},
        {{0xC3, 'x', 'x', 'a'}, u"a", true},
        {{0xC5, 'x', 'x', 'a'}, u"a", true},
        {{0xC4, 0, 'a'}, u"a", true},
        {{0xC4, 4, 'a'}, u"\ta", true},
        {{0xC4, 25, 'x', 'x', 'a'}, u"a", true},
        {{0xC4, 27, 'x', 'x', 'x', 'x', 'x', 'x', 'a'}, u"a", true},
        {{'a', 0xC4, 5, 'b'}, u"a", false},
        {{0xE5, 'x', 'x', 'a'}, u"a", true},
        {{0xE8, 'x', 'x', 'a'}, u"a", true},
        {{0xE9, 'x', 'a'}, u"a", true},
        {{0xEC, 'x', 'a'}, u"a", true},
        {{0xEF, 'x', 'x', 'x', 'a'}, u"a", true},
        {{0xF1, 'x', 'x', 'x', 'x', 'x', 'x', 'x', 'a'}, u"a", true},
        {{'a', 0xC6, 'b'}, u"a", false},
        {{'a', 0xE4, 'b'}, u"a", false},
        {{'a', 0xED, 'b'}, u"a", false},
        {{'a', 0xEE, 'b'}, u"a", false},
        {{'a', 0xF0, 'b'}, u"a", false},
        {{'a', 0xF2, 'b'}, u"a", false},
        {{'a', 0xFF, 'b'}, u"a", false},
        {{0xF1, 'x'}, u"", true},  // a skip past the run's end just ends it
    };
    for (const Case& c : cases) {
        bool ok = false;
        EXPECT_EQ(DecodeRun(c.run, &ok), c.text) << std::hex << int(c.run[0]);
        EXPECT_EQ(ok, c.ok) << std::hex << int(c.run[0]);
    }
}

TEST(PwiDecoderTest, ARunWithABadCodeKeepsItsTextAndTheWalkGoesOn) {
    Bytes pwi = Join({Header(), TextRecord({'a', 'b', 0xC7, 'c'}), TextRecord(Ascii("next"))});
    EXPECT_EQ(Text(DecodePwi(pwi.data(), pwi.size())), u"ab next");
}

TEST(PwiDecoderTest, ACountPastTheEndIsCutAtTheEnd) {
    Bytes record = TextRecord(Ascii("cut"));
    Put16(record, 8, 60000);
    record.resize(33);  // the record stops right after its text
    Bytes pwi = Join({Header(), record});
    EXPECT_EQ(Text(DecodePwi(pwi.data(), pwi.size())), u"cut");
}

TEST(PwiDecoderTest, LyingLengthsNeverReadOutsideTheBuffer) {
    Bytes record = Record('A', 0xFFFF);
    record.resize(31);
    Put16(record, 8, 0xFFFF);
    record[30] = 'z';
    for (size_t size = 0; size <= 14 + record.size(); ++size) {
        Bytes pwi = Join({Header(), record});
        pwi.resize(size);
        // An exact-size heap copy lets the sanitizers catch any read past the end.
        std::vector<uint8_t> exact(pwi.begin(), pwi.end());
        Str text = DecodePwi(exact.data(), exact.size());
        EXPECT_EQ(Text(text), size == 14 + 31 ? u"z" : u"") << size;
    }
}

TEST(PwiDecoderTest, ARecordMustHaveMoreThanSixBytesLeft) {
    Bytes pwi = Join({Header(), Bytes{'A', 0, 0, 0, 0, 0}});
    EXPECT_EQ(Text(DecodePwi(pwi.data(), pwi.size())), u"");
}

}  // namespace
