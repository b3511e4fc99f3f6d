#include "contacts/SearchServiceClient.h"

#include <gtest/gtest.h>

#include "FakeServiceCalls.h"
#include "ReplyReading.h"
#include "ServiceTestSupport.h"

namespace {

std::vector<uint8_t> Bytes(std::initializer_list<uint32_t> words, const std::u16string& texts) {
    std::vector<uint8_t> out;
    for (uint32_t w : words) {
        for (int i = 0; i < 4; ++i)
            out.push_back(static_cast<uint8_t>(w >> (8 * i)));
    }
    for (char16_t c : texts) {
        out.push_back(static_cast<uint8_t>(c & 0xFF));
        out.push_back(static_cast<uint8_t>(c >> 8));
    }
    return out;
}

std::vector<std::u16string> Texts(const Array<Str>& array) {
    std::vector<std::u16string> out;
    for (const Str& s : array)
        out.emplace_back(s.c_str());
    return out;
}

std::vector<uint32_t> Ids(const Array<uint32_t>& array) {
    return std::vector<uint32_t>(array.begin(), array.end());
}

class SearchServiceClientTest : public ::testing::Test {
  protected:
    void SetUp() override {
        service.SetContacts({MakeContact(10, u"Fred", u"Smith", u"Acme", {u"+7 912 123-45-67"}),
                             MakeContact(20, u"Freya", u"Stone", u"", {u"8 912 123 45 67"})});
        calls.target = &service;
    }
    SearchService service;
    FakeServiceCalls calls;
    SearchServiceClient client{calls};
};

TEST_F(SearchServiceClientTest, FirstSearchAllocatesExactlyTheReturnedSize) {
    Array<uint32_t> oids;
    Array<Str> texts;
    ASSERT_TRUE(client.SearchText(u"373", oids, texts));
    ASSERT_EQ(calls.calls.size(), 2u);
    EXPECT_FALSE(calls.calls[0].outGiven);
    EXPECT_EQ(calls.calls[0].outBytes, 0u);
    uint32_t needed = 4 + 8 + 8 + 8 + 2;
    EXPECT_EQ(calls.calls[1].outBytes, needed);
    EXPECT_EQ(client.TextBuffer().size, needed);
    EXPECT_EQ(calls.calls[1].in, TextBytes(u"373"));
    EXPECT_EQ(Ids(oids), (std::vector<uint32_t>{10, 20}));
    EXPECT_EQ(Texts(texts), (std::vector<std::u16string>{u"Fre", u"Fre"}));
    // The kept buffer serves the next, smaller reply in one call.
    ASSERT_TRUE(client.SearchText(u"3733", oids, texts));
    EXPECT_EQ(calls.calls.size(), 3u);
    EXPECT_EQ(client.TextBuffer().size, needed);
}

TEST_F(SearchServiceClientTest, BuffersOnlyGrow) {
    Array<uint32_t> oids;
    Array<Str> texts;
    ASSERT_TRUE(client.SearchText(u"373", oids, texts));
    uint32_t big = client.TextBuffer().size;
    ASSERT_TRUE(client.SearchText(u"3733", oids, texts));
    ASSERT_TRUE(client.SearchText(u"", oids, texts));
    EXPECT_EQ(client.TextBuffer().size, big);
}

TEST_F(SearchServiceClientTest, CountZeroWithNonZeroSize) {
    calls.replies[search_service::kSearchText] = Bytes({0}, std::u16string(u"ab") + u'\0' + u'\0');
    calls.replies[search_service::kSearchNumber] = Bytes({0}, u"");
    Array<uint32_t> oids;
    oids.Add(5);
    Array<Str> texts;
    ASSERT_TRUE(client.SearchText(u"1", oids, texts));
    EXPECT_TRUE(Ids(oids).empty());
    EXPECT_EQ(Texts(texts), (std::vector<std::u16string>{u"ab"}));
    oids.Add(5);
    ASSERT_TRUE(client.SearchNumber(u"1", oids));
    EXPECT_TRUE(Ids(oids).empty());
}

TEST_F(SearchServiceClientTest, EmptyReplyIsFailure) {
    calls.replies[search_service::kSearchNumber] = {};
    Array<uint32_t> oids;
    EXPECT_FALSE(client.SearchNumber(u"1", oids));
}

TEST_F(SearchServiceClientTest, FailedTextSearchEmptiesIdsButKeepsTexts) {
    Array<uint32_t> oids;
    Array<Str> texts;
    ASSERT_TRUE(client.SearchText(u"373", oids, texts));
    calls.target = nullptr;  // the service now fails every request with size 0
    EXPECT_FALSE(client.SearchText(u"3", oids, texts));
    EXPECT_TRUE(Ids(oids).empty());
    EXPECT_EQ(Texts(texts), (std::vector<std::u16string>{u"Fre", u"Fre"}));
}

TEST_F(SearchServiceClientTest, SecondFailureFailsTheOperation) {
    // A service that always asks for more than it is given.
    struct Greedy : FakeServiceCalls {
        bool IoControl(void*, uint32_t, const void*, uint32_t, void*, uint32_t outBytes,
                       uint32_t* returned) override {
            ++count;
            *returned = outBytes + 16;
            return false;
        }
        int count = 0;
    } greedy;
    SearchServiceClient greedyClient(greedy);
    Array<uint32_t> oids;
    EXPECT_FALSE(greedyClient.SearchNumber(u"1", oids));
    EXPECT_EQ(greedy.count, 2);
    EXPECT_EQ(greedyClient.NumberBuffer().size, 16u);
}

TEST_F(SearchServiceClientTest, DetailsOfSeventeenBytesGiveValuesOnly) {
    std::vector<uint8_t> reply = Bytes({7, 0x00030002}, u"");
    reply.resize(17, 0x41);
    calls.replies[search_service::kDetails] = reply;
    ServiceDetails details;
    ASSERT_TRUE(client.GetDetails(7, details));
    EXPECT_EQ(details.value1, 7u);
    EXPECT_EQ(details.value2, 0x00030002u);
    EXPECT_EQ(details.text1, nullptr);
    EXPECT_EQ(details.phones, nullptr);
    EXPECT_EQ(details.text2, nullptr);
    EXPECT_EQ(details.text3, nullptr);
}

TEST_F(SearchServiceClientTest, DetailsOfFourBytesReadBothValuesFromZeroedSlack) {
    calls.replies[search_service::kDetails] = Bytes({9}, u"");
    ServiceDetails details;
    details.value2 = 5;
    ASSERT_TRUE(client.GetDetails(9, details));
    EXPECT_EQ(details.value1, 9u);
    EXPECT_EQ(details.value2, 0u);
}

TEST_F(SearchServiceClientTest, DetailsOfBelowFourBytesTakeNothing) {
    calls.replies[search_service::kDetails] = {1, 2, 3};
    ServiceDetails details;
    ASSERT_TRUE(client.GetDetails(9, details));
    EXPECT_EQ(details.value1, 0u);
}

TEST_F(SearchServiceClientTest, PhoneTypesFromTheMultiText) {
    std::u16string phones = std::u16string(u"111") + u'\0' + u'\x06' + u'\0' + u"222" + u'\0' +
                            u'\x01' + u'\x02' + u'\0' + u"333" + u'\0' + u"Dacha" + u'\0' + u"444" +
                            u'\0' + u'\x0D' + u'\0' + u"555" + u'\0' + u'\x0E' + u'\0' + u'\0';
    calls.replies[search_service::kDetails] =
        Bytes({3, 0}, std::u16string(u"Name") + u'\0' + phones + u"Co" + u'\0' + u'\0');
    ServiceDetails details;
    ASSERT_TRUE(client.GetDetails(3, details));
    EXPECT_EQ(std::u16string(details.text1), u"Name");
    EXPECT_EQ(std::u16string(details.text2), u"Co");
    EXPECT_EQ(details.text3, nullptr);
    Array<ContactPhone> list;
    list.Add(ContactPhone());
    details.GetPhones(list);
    ASSERT_EQ(list.Size(), 5);
    EXPECT_EQ(std::u16string(list[0].label.c_str()), u"Pager");
    EXPECT_EQ(list[0].type, 5);
    EXPECT_EQ(std::u16string(list[0].number.c_str()), u"111");
    EXPECT_EQ(std::u16string(list[1].label.c_str()), std::u16string(u"\x01\x02"));
    EXPECT_EQ(list[1].type, 100);
    EXPECT_EQ(std::u16string(list[2].label.c_str()), u"Dacha");
    EXPECT_EQ(list[2].type, 100);
    EXPECT_EQ(std::u16string(list[3].label.c_str()), u"Car");
    EXPECT_EQ(list[3].type, 12);
    EXPECT_EQ(std::u16string(list[4].label.c_str()), std::u16string(u"\x0E"));
    EXPECT_EQ(list[4].type, 100);
}

TEST_F(SearchServiceClientTest, DetailsFromTheServiceRoundTrip) {
    ServiceDetails details;
    ASSERT_TRUE(client.GetDetails(10, details));
    EXPECT_EQ(std::u16string(details.text1), u"Smith, Fred");
    EXPECT_EQ(std::u16string(details.text2), u"Acme");
    Array<ContactPhone> list;
    details.GetPhones(list);
    ASSERT_EQ(list.Size(), 1);
    EXPECT_EQ(std::u16string(list[0].number.c_str()), u"+7 912 123-45-67");
    EXPECT_EQ(std::u16string(list[0].label.c_str()), u"Mobile");
    EXPECT_EQ(list[0].type, 0);
    EXPECT_FALSE(client.GetDetails(12345, details));
}

TEST_F(SearchServiceClientTest, ResultStringsAskForSizeThenExactly) {
    Array<uint32_t> oids;
    Array<Str> texts;
    ASSERT_TRUE(client.SearchText(u"912", oids, texts));
    calls.calls.clear();
    Array<Str> strings;
    ASSERT_TRUE(client.GetResultStrings(strings));
    ASSERT_EQ(calls.calls.size(), 2u);
    EXPECT_FALSE(calls.calls[0].outGiven);
    EXPECT_EQ(calls.calls[1].outBytes, 2u * (16 + 1 + 15 + 1));
    EXPECT_EQ(Texts(strings),
              (std::vector<std::u16string>{u"+7 912 123-45-67", u"8 912 123 45 67"}));
    ServiceDetails details;
    ASSERT_TRUE(client.GetDetails(20, details));
    EXPECT_EQ(details.value2 >> 16, 2u);
}

TEST_F(SearchServiceClientTest, NumberSearch) {
    Array<uint32_t> oids;
    ASSERT_TRUE(client.SearchNumber(u"+7 912 1234567", oids));
    EXPECT_EQ(Ids(oids), (std::vector<uint32_t>{10, 20}));
    EXPECT_EQ(calls.calls.back().code, search_service::kSearchNumber);
}

TEST_F(SearchServiceClientTest, HandleLookedUpForEveryRequestByDeviceName) {
    Array<uint32_t> oids;
    client.SearchNumber(u"1", oids);
    client.SearchNumber(u"2", oids);
    EXPECT_EQ(calls.lookedUp, (std::vector<std::u16string>(calls.calls.size(), u"OPS0:")));
    EXPECT_TRUE(calls.exportCalls.empty());
}

TEST_F(SearchServiceClientTest, RegistersWhenNotRunning) {
    calls.running = false;
    Array<uint32_t> oids;
    ASSERT_TRUE(client.SearchNumber(u"89121234567", oids));
    EXPECT_EQ(calls.exportCalls.front(), u"OrvalisPimServ.dll!MyRegService");
    EXPECT_EQ(calls.registrations.front(), u"OPS|OrvalisPimServ.dll");
    EXPECT_EQ(calls.registeredIndex, 0u);
    EXPECT_EQ(calls.registeredContext, 0u);
}

TEST_F(SearchServiceClientTest, FailedExportOrRegistrationFailsTheRequest) {
    calls.running = false;
    calls.exportSucceeds = false;
    Array<uint32_t> oids;
    EXPECT_FALSE(client.SearchNumber(u"1", oids));
    EXPECT_TRUE(calls.registrations.empty());
    EXPECT_TRUE(calls.calls.empty());
    calls.exportSucceeds = true;
    calls.registrationSucceeds = false;
    EXPECT_FALSE(client.SearchNumber(u"1", oids));
    EXPECT_TRUE(calls.calls.empty());
}

TEST_F(SearchServiceClientTest, ProcessClientWithoutCallsFails) {
    Array<uint32_t> oids;
    EXPECT_FALSE(SearchServiceClient::Get().SearchNumber(u"1", oids));
    SearchServiceClient::SetProcessCalls(&calls);
    EXPECT_TRUE(SearchServiceClient::Get().SearchNumber(u"+7 912 1234567", oids));
    SearchServiceClient::SetProcessCalls(nullptr);
    EXPECT_EQ(Ids(oids), (std::vector<uint32_t>{10, 20}));
}

TEST_F(SearchServiceClientTest, LyingSizesAreNotBelieved) {
    struct Liar : FakeServiceCalls {
        bool IoControl(void*, uint32_t, const void*, uint32_t, void*, uint32_t outBytes,
                       uint32_t* returned) override {
            *returned = outBytes + 1000;  // claims more than the buffer holds
            return outBytes > 0;
        }
    } liar;
    SearchServiceClient liarClient(liar);
    Array<uint32_t> oids;
    EXPECT_FALSE(liarClient.SearchNumber(u"1", oids));
}

}  // namespace
