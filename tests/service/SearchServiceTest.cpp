#include "service/SearchService.h"

#include <gtest/gtest.h>

#include "ReplyReading.h"
#include "ServiceTestSupport.h"

namespace {

using search_protocol::kDetails;
using search_protocol::kResultStrings;
using search_protocol::kSearchNumber;
using search_protocol::kSearchText;

class SearchServiceTest : public ::testing::Test {
  protected:
    void SetUp() override {
        ServiceContact fred = MakeContact(10, u"Fred", u"Smith", u"Acme", {u"+7 912 123-45-67"});
        fred.phones.push_back({u"020 7946 0958", u"Home", 1});
        fred.phones.push_back({u"555-0100", u"Dacha", 100});
        service.SetContacts({fred, MakeContact(20, u"Freya", u"Stone", u"", {u"8 912 123 45 67"}),
                             MakeContact(30, u"Ivy", u"Moss", u"Globex", {}),
                             MakeContact(40, u"Zed", u"", u"", {u"+44 1234 999"})});
    }
    SearchService service;
};

TEST_F(SearchServiceTest, FirstCallWithoutBufferReportsSizeAndExactBufferSucceeds) {
    auto request = TextBytes(u"373");
    uint32_t needed = 0;
    EXPECT_FALSE(service.IoControl(kSearchText, request.data(), 6, nullptr, 0, &needed));
    // Two ids, "Fre" and "Fre", each with its terminator, then the empty text.
    EXPECT_EQ(needed, 4u + 8u + 8u + 8u + 2u);
    std::vector<uint8_t> reply(needed);
    uint32_t returned = 0;
    EXPECT_FALSE(
        service.IoControl(kSearchText, request.data(), 6, reply.data(), needed - 1, &returned));
    EXPECT_EQ(returned, needed);
    EXPECT_TRUE(service.IoControl(kSearchText, request.data(), 6, reply.data(), needed, &returned));
    EXPECT_EQ(returned, needed);
    EXPECT_EQ(ReadU32(reply, 0), 2u);
    EXPECT_EQ(ReadU32(reply, 4), 10u);  // "Smith, Fred" before "Stone, Freya"
    EXPECT_EQ(ReadU32(reply, 8), 20u);
    EXPECT_EQ(ReadTexts(reply, 12, false), (std::vector<std::u16string>{u"Fre", u"Fre", u""}));
}

TEST_F(SearchServiceTest, NothingFoundIsCountZeroAndTheEmptyText) {
    bool ok = false;
    auto reply = Call(service, kSearchText, TextBytes(u"0000000"), &ok);
    EXPECT_TRUE(ok);
    EXPECT_EQ(reply, (std::vector<uint8_t>{0, 0, 0, 0, 0, 0}));
}

TEST_F(SearchServiceTest, ResultStringsAndDetailsIndex) {
    // "912" matches both numbers; Fred's company would show only for a name match.
    TextReply found = SearchText(service, u"912");
    ASSERT_EQ(found.oids, (std::vector<uint32_t>{10, 20}));
    auto strings = Call(service, kResultStrings, {});
    EXPECT_EQ(ReadTexts(strings, 0, false),
              (std::vector<std::u16string>{u"+7 912 123-45-67", u"8 912 123 45 67"}));
    uint32_t oid = 20;
    std::vector<uint8_t> request(4);
    std::memcpy(request.data(), &oid, 4);
    auto details = Call(service, kDetails, request);
    EXPECT_EQ(ReadU32(details, 0), 20u);
    EXPECT_EQ(ReadU32(details, 4) >> 16, 2u);

    SearchText(service, u"4");  // Ivy by name, the others by a number holding a 4
    strings = Call(service, kResultStrings, {});
    EXPECT_EQ(ReadTexts(strings, 0, false),
              (std::vector<std::u16string>{u"Globex", u"+7 912 123-45-67", u"8 912 123 45 67",
                                           u"+44 1234 999"}));
}

TEST_F(SearchServiceTest, ResultStringsEmptyWhenNothingToShow) {
    SearchText(service, u"933");  // Zed: no company
    uint32_t needed = 7;
    EXPECT_TRUE(service.IoControl(kResultStrings, nullptr, 0, nullptr, 0, &needed));
    EXPECT_EQ(needed, 0u);
}

TEST_F(SearchServiceTest, DetailsLayoutByteExact) {
    uint32_t oid = 10;
    std::vector<uint8_t> request(4);
    std::memcpy(request.data(), &oid, 4);
    bool ok = false;
    auto details = Call(service, kDetails, request, &ok);
    ASSERT_TRUE(ok);
    std::u16string expected = std::u16string(u"Smith, Fred") + u'\0' + u"+7 912 123-45-67" + u'\0' +
                              u'\x01' + u'\0' + u"020 7946 0958" + u'\0' + u'\x02' + u'\0' +
                              u"555-0100" + u'\0' + u"Dacha" + u'\0' + u'\0' + u"Acme" + u'\0' +
                              u'\0';
    ASSERT_EQ(details.size(), 8 + expected.size() * 2);
    EXPECT_EQ(ReadU32(details, 0), 10u);
    EXPECT_EQ(ReadU32(details, 4), 3u);  // no string index (no search yet), three phones
    EXPECT_EQ(std::memcmp(details.data() + 8, expected.data(), expected.size() * 2), 0);
}

TEST_F(SearchServiceTest, DetailsOfContactWithoutPhonesHasTwoZeros) {
    uint32_t oid = 30;
    std::vector<uint8_t> request(4);
    std::memcpy(request.data(), &oid, 4);
    auto details = Call(service, kDetails, request);
    std::u16string expected =
        std::u16string(u"Moss, Ivy") + u'\0' + u'\0' + u'\0' + u"Globex" + u'\0' + u'\0';
    ASSERT_EQ(details.size(), 8 + expected.size() * 2);
    EXPECT_EQ(std::memcmp(details.data() + 8, expected.data(), expected.size() * 2), 0);
}

TEST_F(SearchServiceTest, SearchByNumberFindsNationalAndInternationalForms) {
    auto reply = Call(service, kSearchNumber, TextBytes(u"+7 (912) 123-45-67"));
    ASSERT_EQ(reply.size(), 12u);
    EXPECT_EQ(ReadU32(reply, 0), 2u);
    EXPECT_EQ(ReadU32(reply, 4), 10u);
    EXPECT_EQ(ReadU32(reply, 8), 20u);
    reply = Call(service, kSearchNumber, TextBytes(u"02079460958"));
    EXPECT_EQ(reply, (std::vector<uint8_t>{1, 0, 0, 0, 10, 0, 0, 0}));
    reply = Call(service, kSearchNumber, TextBytes(u"999"));
    EXPECT_EQ(reply, (std::vector<uint8_t>{0, 0, 0, 0}));
}

TEST_F(SearchServiceTest, MalformedRequestsFailWithZeroSize) {
    uint8_t buffer[64] = {};
    uint8_t in[8] = {'3', 0, '7', 0};
    struct Bad {
        uint32_t code;
        const uint8_t* in;
        uint32_t inBytes;
        uint8_t* out;
        uint32_t outBytes;
    } cases[] = {
        {1, in, 2, buffer, 64},                       // unknown code
        {7, in, 2, buffer, 64},                       // unknown code
        {0xFFFFFFFF, in, 2, buffer, 64},              // unknown code
        {kSearchText, in, 3, buffer, 64},             // odd byte count
        {kSearchNumber, in, 1, buffer, 64},           // odd byte count
        {kSearchText, nullptr, 2, buffer, 64},        // size without a buffer
        {kSearchText, in, 2, nullptr, 64},            // reply size without a buffer
        {kSearchText, in, 0xFFFFFFFE, buffer, 64},    // size near the 32-bit limit
        {kSearchNumber, in, 0x80000000, buffer, 64},  // size near the 32-bit limit
        {kDetails, in, 3, buffer, 64},                // object id not 4 bytes
        {kDetails, in, 8, buffer, 64},
        {kDetails, nullptr, 0, buffer, 64},
        {kDetails, in, 0xFFFFFFFC, buffer, 64},
        {kResultStrings, in, 2, buffer, 64},  // request 8 takes no input
    };
    for (const Bad& bad : cases) {
        uint32_t returned = 123;
        EXPECT_FALSE(
            service.IoControl(bad.code, bad.in, bad.inBytes, bad.out, bad.outBytes, &returned))
            << bad.code << " " << bad.inBytes;
        EXPECT_EQ(returned, 0u) << bad.code << " " << bad.inBytes;
    }
}

TEST_F(SearchServiceTest, UnknownObjectIdFails) {
    uint32_t oid = 99;
    uint8_t out[256];
    uint32_t returned = 5;
    EXPECT_FALSE(
        service.IoControl(kDetails, reinterpret_cast<uint8_t*>(&oid), 4, out, 256, &returned));
    EXPECT_EQ(returned, 0u);
}

TEST_F(SearchServiceTest, NullReturnedSizeIsAllowed) {
    uint8_t out[256];
    auto request = TextBytes(u"3");
    EXPECT_TRUE(service.IoControl(kSearchText, request.data(), 2, out, 256, nullptr));
    EXPECT_FALSE(service.IoControl(kSearchText, request.data(), 2, nullptr, 0, nullptr));
}

TEST_F(SearchServiceTest, TooLongTextFails) {
    std::u16string text(search_protocol::kMaxQueryChars + 1, u'2');
    auto request = TextBytes(text);
    uint32_t returned = 1;
    EXPECT_FALSE(service.IoControl(kSearchText, request.data(),
                                   static_cast<uint32_t>(request.size()), nullptr, 0, &returned));
    EXPECT_EQ(returned, 0u);
    text.pop_back();
    request = TextBytes(text);
    EXPECT_FALSE(service.IoControl(kSearchText, request.data(),
                                   static_cast<uint32_t>(request.size()), nullptr, 0, &returned));
    EXPECT_EQ(returned, 6u);  // a valid text that finds nothing
}

TEST_F(SearchServiceTest, ChangesAreSeenByTheNextSearch) {
    EXPECT_EQ(SearchText(service, u"373").oids.size(), 2u);
    service.RemoveContact(20);
    EXPECT_EQ(SearchText(service, u"373").oids, (std::vector<uint32_t>{10}));
    service.PutContact(MakeContact(50, u"Frank", u"Able"));
    EXPECT_EQ(SearchText(service, u"372").oids, (std::vector<uint32_t>{50}));
    EXPECT_EQ(SearchText(service, u"373").oids, (std::vector<uint32_t>{10}));
}

TEST_F(SearchServiceTest, EmptyTextRunsTheSessionHook) {
    int calls = 0;
    service.SetSessionStartHook([&] { ++calls; });
    SearchText(service, u"");
    EXPECT_GE(calls, 1);
    int before = calls;
    SearchText(service, u"3");
    EXPECT_EQ(calls, before);
}

TEST_F(SearchServiceTest, LayoutChangeTakesEffect) {
    service.PutContact(MakeContact(60, u"Иван", u""));
    EXPECT_TRUE(SearchText(service, u"4225").oids.empty());
    service.SetLayout(LayoutRow(2));
    EXPECT_EQ(SearchText(service, u"4225").oids, (std::vector<uint32_t>{60}));
}

}  // namespace
