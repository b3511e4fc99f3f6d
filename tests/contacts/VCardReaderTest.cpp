#include "contacts/VCardReader.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "TestBytes.h"

namespace {

using test_bytes::U16;

std::vector<VCard> Read(const std::string& text) {
    return ReadVCards(reinterpret_cast<const uint8_t*>(text.data()), text.size());
}

std::u16string Text(const VCard& card, const char* name) {
    const VCardProperty* property = card.Find(name);
    return property == nullptr ? u"<none>" : U16(UnescapeVCardText(DecodeVCardText(*property)));
}

std::vector<std::u16string> Parts(const VCard& card, const char* name, char16_t separator) {
    std::vector<std::u16string> parts;
    for (const Str& part : SplitVCardValue(DecodeVCardText(*card.Find(name)), separator)) {
        parts.push_back(U16(part));
    }
    return parts;
}

TEST(VCardReaderTest, ReadsCardsAndTheirVersions) {
    auto cards = Read(
        "BEGIN:VCARD\r\nVERSION:2.1\r\nN:One;A\r\nEND:VCARD\r\n"
        "begin:vcard\nversion:3.0\nn:Two;B\nend:vcard\n"
        "BEGIN:VCARD\rVERSION:4.0\rN:Three;C\rEND:VCARD");
    ASSERT_EQ(cards.size(), 3u);
    EXPECT_EQ(cards[0].version, "2.1");
    EXPECT_EQ(cards[1].version, "3.0");
    EXPECT_EQ(cards[2].version, "4.0");
    EXPECT_EQ(Text(cards[1], "N"), u"Two;B");
}

TEST(VCardReaderTest, UnfoldsLinesThatStartWithABlankOrATab) {
    auto cards = Read(
        "BEGIN:VCARD\r\nVERSION:3.0\r\nNOTE:This is a lo\r\n ng note\r\n\tcontinued\r\n"
        "TEL;TYPE=VOICE,M\r\n\tSG,WORK:123\r\nEND:VCARD\r\n");
    ASSERT_EQ(cards.size(), 1u);
    EXPECT_EQ(Text(cards[0], "NOTE"), u"This is a long notecontinued");
    const VCardProperty* tel = cards[0].Find("TEL");
    EXPECT_TRUE(tel->HasType("MSG"));
    EXPECT_TRUE(tel->HasType("work"));
}

TEST(VCardReaderTest, CrCrLfIsOneLineBreak) {
    auto cards = Read(
        "BEGIN:VCARD\r\r\nN:Doe;Jo\r\r\nPHOTO;ENCODING=b:QUJD\r\r\n REVG\r\r\nEND:VCARD\r\r\n");
    ASSERT_EQ(cards.size(), 1u);
    std::vector<uint8_t> photo;
    ASSERT_TRUE(DecodeVCardBinary(*cards[0].Find("PHOTO"), photo));
    EXPECT_EQ(std::string(photo.begin(), photo.end()), "ABCDEF");
}

TEST(VCardReaderTest, QuotedPrintableWithSoftBreaksAndCharset) {
    auto cards = Read(
        "BEGIN:VCARD\r\nVERSION:2.1\r\n"
        "N;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:=D0=9F=D0=B5=D1=82=D1=80=D0=BE=\r\n"
        "=D0=B2;=D0=98=D0=B2=D0==\r\nB0=D0=BD\r\n"
        "NOTE;QUOTED-PRINTABLE:Line one=0D=0ALine two=\r\n and a blank\r\n"
        "FN;CHARSET=windows-1251:\xCF\xE5\xF2\xF0\xEE\xE2\r\n"
        "END:VCARD\r\n");
    ASSERT_EQ(cards.size(), 1u);
    EXPECT_EQ(Text(cards[0], "N"),
              u"\x041F\x0435\x0442\x0440\x043E\x0432;\x0418\x0432\x0430\x043D");
    EXPECT_EQ(Text(cards[0], "NOTE"), u"Line one\r\nLine two and a blank");
    EXPECT_EQ(Text(cards[0], "FN"), u"\x041F\x0435\x0442\x0440\x043E\x0432");
}

TEST(VCardReaderTest, ASoftBreakDoesNotSwallowTheEndLine) {
    auto cards = Read(
        "BEGIN:VCARD\nVERSION:2.1\nADR;HOME;ENCODING=QUOTED-PRINTABLE:;;Street 1=0A=\n "
        "\nEND:VCARD\n"
        "BEGIN:VCARD\nN:Next;Card\nEND:VCARD\n");
    ASSERT_EQ(cards.size(), 2u);
    EXPECT_EQ(Text(cards[1], "N"), u"Next;Card");
}

TEST(VCardReaderTest, ALiteralEqualsSignOutsideQuotedPrintableIsText) {
    auto cards = Read("BEGIN:VCARD\nVERSION:3.0\nNOTE:ends with=\nN:A;B\nEND:VCARD\n");
    ASSERT_EQ(cards.size(), 1u);
    EXPECT_EQ(Text(cards[0], "NOTE"), u"ends with=");
    EXPECT_EQ(Text(cards[0], "N"), u"A;B");
}

TEST(VCardReaderTest, UnindentedBase64InVersionTwoOneRunsToTheBlankLine) {
    auto cards = Read(
        "BEGIN:VCARD\r\nVERSION:2.1\r\nPHOTO;ENCODING=BASE64;TYPE=JPEG:QUJD\r\nREVG\r\nR0g=\r\n\r\n"
        "N:After;Photo\r\nEND:VCARD\r\n");
    ASSERT_EQ(cards.size(), 1u);
    std::vector<uint8_t> photo;
    ASSERT_TRUE(DecodeVCardBinary(*cards[0].Find("PHOTO"), photo));
    EXPECT_EQ(std::string(photo.begin(), photo.end()), "ABCDEFGH");
    EXPECT_EQ(Text(cards[0], "N"), u"After;Photo");
}

TEST(VCardReaderTest, DataUriPhotos) {
    auto cards = Read(
        "BEGIN:VCARD\nVERSION:4.0\nPHOTO:data:image/png;base64,QUJD\n  REVG\n"
        "LOGO:data:text/plain,a%20b\nEND:VCARD\n");
    std::vector<uint8_t> bytes;
    ASSERT_TRUE(DecodeVCardBinary(*cards[0].Find("PHOTO"), bytes));
    EXPECT_EQ(std::string(bytes.begin(), bytes.end()), "ABCDEF");
    ASSERT_TRUE(DecodeVCardBinary(*cards[0].Find("LOGO"), bytes));
    EXPECT_EQ(std::string(bytes.begin(), bytes.end()), "a b");
}

TEST(VCardReaderTest, UrlPhotosAndEmptyDataHoldNoBytes) {
    auto cards = Read(
        "BEGIN:VCARD\nPHOTO;VALUE=URI:http://example.com/a.jpg\nLOGO;ENCODING=b:\n"
        "SOUND:data:audio/basic\nEND:VCARD\n");
    std::vector<uint8_t> bytes;
    EXPECT_FALSE(DecodeVCardBinary(*cards[0].Find("PHOTO"), bytes));
    EXPECT_FALSE(DecodeVCardBinary(*cards[0].Find("LOGO"), bytes));
    EXPECT_FALSE(DecodeVCardBinary(*cards[0].Find("SOUND"), bytes));
}

TEST(VCardReaderTest, GroupsAndParameters) {
    auto cards = Read(
        "BEGIN:VCARD\nVERSION:3.0\nitem1.TEL;type=pref;TYPE=\"work,voice\":555\n"
        "item1.X-ABLabel:Desk\nTEL;CELL;PREF:666\nX-GOOGLE TALK:someone\nEND:VCARD\n");
    const VCard& card = cards[0];
    ASSERT_EQ(card.properties.size(), 5u);
    const VCardProperty& tel = card.properties[1];
    EXPECT_EQ(tel.group, "item1");
    EXPECT_EQ(tel.name, "TEL");
    EXPECT_TRUE(tel.HasType("PREF"));
    EXPECT_TRUE(tel.HasType("WORK"));
    EXPECT_TRUE(tel.HasType("voice"));
    EXPECT_EQ(card.properties[2].group, "item1");
    EXPECT_EQ(card.properties[2].name, "X-ABLABEL");
    EXPECT_TRUE(card.properties[3].HasType("CELL"));
    EXPECT_EQ(card.properties[4].name, "X-GOOGLE TALK");
}

TEST(VCardReaderTest, QuotedParameterValuesMayHoldColonsAndSemicolons) {
    auto cards = Read(
        "BEGIN:VCARD\nVERSION:4.0\nADR;LABEL=\"1 Main St; Town: North\":;;1 Main St\n"
        "N;SORT-AS=\"Doe;J\":Doe;J\nEND:VCARD\n");
    EXPECT_EQ(*cards[0].Find("ADR")->Param("LABEL"), "1 Main St; Town: North");
    EXPECT_EQ(Text(cards[0], "N"), u"Doe;J");
}

TEST(VCardReaderTest, EscapesAreUndoneWhenSplitting) {
    auto cards = Read("BEGIN:VCARD\nN:O\\;Brien;Ann\\, Jr\\\\x;A\\nB;;\nEND:VCARD\n");
    EXPECT_EQ(Parts(cards[0], "N", u';'),
              (std::vector<std::u16string>{u"O;Brien", u"Ann, Jr\\x", u"A\nB", u"", u""}));
    std::vector<Str> raw = SplitVCardRaw(u"a\\;b;c", u';');
    ASSERT_EQ(raw.size(), 2u);
    EXPECT_EQ(U16(raw[0]), u"a\\;b");
    EXPECT_EQ(U16(UnescapeVCardText(u"x\\N\\q\\")), u"x\n\\q\\");
}

TEST(VCardReaderTest, NestedCardsAreCardsOfTheirOwn) {
    auto cards = Read(
        "BEGIN:VCARD\nN:parent\nBEGIN:VCARD\nN:child1\nEND:VCARD\nBEGIN:VCARD\nN:child2\n"
        "END:VCARD\nTEL:1\nEND:VCARD\n");
    ASSERT_EQ(cards.size(), 3u);
    EXPECT_EQ(Text(cards[0], "N"), u"child1");
    EXPECT_EQ(Text(cards[1], "N"), u"child2");
    EXPECT_EQ(Text(cards[2], "N"), u"parent");
    EXPECT_EQ(Text(cards[2], "TEL"), u"1");
}

TEST(VCardReaderTest, BrokenFilesKeepWhatIsSound) {
    auto noBegin = Read("VERSION:3.0\nN:Doe;Jo\nEND:VCARD\nBEGIN:VCARD\nN:Two\nEND:VCARD\n");
    ASSERT_EQ(noBegin.size(), 2u);
    EXPECT_EQ(Text(noBegin[0], "N"), u"Doe;Jo");
    auto noEnd = Read("BEGIN:VCARD\nN:Doe;Jo\nTEL:1\n");
    ASSERT_EQ(noEnd.size(), 1u);
    EXPECT_EQ(Text(noEnd[0], "TEL"), u"1");
    auto truncated = Read("BEGIN:VCARD\nN:Doe;Jo\nE");
    ASSERT_EQ(truncated.size(), 1u);
    EXPECT_EQ(truncated[0].properties.size(), 1u);
    auto badEnd = Read("BEGIN:VCARD\nN:Doe;Jo\nEND:VCARD.\nBEGIN:VCARD\nN:Next\nEND:VCARD\n");
    ASSERT_EQ(badEnd.size(), 2u);
    EXPECT_TRUE(Read("").empty());
    EXPECT_TRUE(Read("no content lines here\n\n#comment\n").empty());
}

TEST(VCardReaderTest, LinesThatAreNotContentLinesAreSkipped) {
    auto cards =
        Read("BEGIN:VCARD\n# a comment: with a colon\nFN\n:empty name\nN:Kept;Card\n\nEND:VCARD\n");
    ASSERT_EQ(cards.size(), 1u);
    ASSERT_EQ(cards[0].properties.size(), 1u);
    EXPECT_EQ(cards[0].properties[0].name, "N");
}

TEST(VCardReaderTest, Utf16FilesAreRead) {
    std::u16string text = u"BEGIN:VCARD\r\nN:\x0416\x0443\x043A;\r\nEND:VCARD\r\n";
    for (bool mark : {true, false}) {
        std::vector<uint8_t> bytes =
            mark ? std::vector<uint8_t>{0xFF, 0xFE} : std::vector<uint8_t>{};
        bytes = test_bytes::Utf16Le(text, bytes);
        auto cards = ReadVCards(bytes.data(), bytes.size());
        ASSERT_EQ(cards.size(), 1u);
        EXPECT_EQ(Text(cards[0], "N"), u"\x0416\x0443\x043A;");
    }
    std::vector<uint8_t> big = {0xFE, 0xFF};
    for (char16_t c : std::u16string(u"BEGIN:VCARD\nN:Big\nEND:VCARD\n")) {
        big.push_back(static_cast<uint8_t>(c >> 8));
        big.push_back(static_cast<uint8_t>(c));
    }
    auto cards = ReadVCards(big.data(), big.size());
    ASSERT_EQ(cards.size(), 1u);
    EXPECT_EQ(Text(cards[0], "N"), u"Big");
}

TEST(VCardReaderTest, AUtf8MarkIsSkipped) {
    auto cards = Read(
        "\xEF\xBB\xBF"
        "BEGIN:VCARD\nN:Mark\nEND:VCARD\n");
    ASSERT_EQ(cards.size(), 1u);
    EXPECT_EQ(Text(cards[0], "N"), u"Mark");
}

TEST(VCardReaderTest, UndeclaredEightBitTextIsGuessed) {
    auto cards = Read(
        "BEGIN:VCARD\nVERSION:3.0\nN:T\xF6\x63ken;Frida\nORG:\xCE\xEE\xEE\xEE "
        "\xD0\xEE\xEC\xE0\xF8\xEA\xE0\n"
        "FN:J\xC3\xBCrgen\nEND:VCARD\n");
    EXPECT_EQ(Text(cards[0], "N"),
              u"T\x00F6"
              u"cken;Frida");
    EXPECT_EQ(Text(cards[0], "ORG"),
              u"\x041E\x043E\x043E\x043E \x0420\x043E\x043C\x0430\x0448\x043A\x0430");
    EXPECT_EQ(Text(cards[0], "FN"), u"J\x00FCrgen");
}

TEST(VCardReaderTest, AnUnknownCharsetFallsBackToTheGuess) {
    auto cards = Read("BEGIN:VCARD\nN;CHARSET=X-UNKNOWN:Caf\xC3\xA9\nEND:VCARD\n");
    EXPECT_EQ(Text(cards[0], "N"), u"Caf\x00E9");
}

}  // namespace
