// The picker's model against the real search service in this process, and against a service
// that answers with garbage or not at all.
#include "picker/PickerModel.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "HostileServiceCalls.h"
#include "base/Locale.h"
#include "contacts/SearchServiceClient.h"
#include "phone/NumberTemplates.h"
#include "service/AddressBookGenerator.h"
#include "service/InProcessServiceCalls.h"
#include "service/SearchService.h"

namespace {

ServiceContact Contact(uint32_t oid, const std::u16string& first, const std::u16string& last,
                       const std::u16string& company, std::vector<ServicePhone> phones) {
    ServiceContact c;
    c.oid = oid;
    c.fields[kFieldFirst] = first;
    c.fields[kFieldLast] = last;
    c.fields[kFieldCompany] = company;
    c.phones = std::move(phones);
    return c;
}

/// The in-process service, counting the requests of each code.
class CountingCalls : public InProcessServiceCalls {
  public:
    using InProcessServiceCalls::InProcessServiceCalls;
    bool IoControl(void* service, uint32_t code, const void* in, uint32_t inBytes, void* out,
                   uint32_t outBytes, uint32_t* returned) override {
        const bool answered =
            InProcessServiceCalls::IoControl(service, code, in, inBytes, out, outBytes, returned);
        // A first request of a kind also asks for the size: only the answers are counted.
        if (answered)
            ++calls[code];
        return answered;
    }
    /// Requests answered, by code.
    std::map<uint32_t, int> calls;
};

std::vector<uint32_t> Ids(const Array<uint32_t>& ids) {
    return std::vector<uint32_t>(ids.begin(), ids.end());
}

std::vector<std::u16string> Texts(const Array<Str>& texts) {
    std::vector<std::u16string> out;
    for (const Str& t : texts)
        out.emplace_back(t.c_str());
    return out;
}

std::vector<std::vector<std::u16string>> RowTexts(const Array<Array<Str>>& rows) {
    std::vector<std::vector<std::u16string>> out;
    for (const Array<Str>& row : rows)
        out.push_back(Texts(row));
    return out;
}

int IndexOf(const PickerModel& model, uint32_t oid) {
    for (int i = 0; i < model.Results().Size(); ++i) {
        if (model.Results()[i] == oid)
            return i;
    }
    return -1;
}

class PickerModelTest : public ::testing::Test {
  protected:
    void SetUp() override {
        service.SetContacts({
            Contact(10, u"Fred", u"Smith", u"Acme",
                    {{u"+7 912 123-45-67", u"", 1},
                     {u"020 7946 0958", u"", 0},
                     {u"555-0100", u"Dacha", 100}}),
            Contact(20, u"Freya", u"Stone", u"", {{u"81234567890", u"", 1}}),
            Contact(30, u"Ivy", u"Moss", u"Globex", {}),
            Contact(40, u"Zed", u"", u"", {{u"+44 1234 999", u"", 3}}),
        });
    }

    SearchService service;
    CountingCalls calls{service};
    SearchServiceClient client{calls};
    PickerModel model{client};
    PickerChoice choice;
};

TEST_F(PickerModelTest, TheOpeningSearchListsEveryContact) {
    model.Search(Str());
    EXPECT_EQ(Ids(model.Results()), (std::vector<uint32_t>{30, 10, 20, 40}))
        << "in the order the service gives (display names)";
    EXPECT_EQ(model.ItemCount(), 4);
    EXPECT_EQ(model.ContactIndex(), -1);
    EXPECT_FALSE(model.InNumbers());
    EXPECT_TRUE(model.LastSearched().IsEmpty());
    ASSERT_EQ(model.Rows().Size(), 4);
    EXPECT_EQ(Texts(model.Rows()[0]), (std::vector<std::u16string>{u"", u""}))
        << "the service's \"+\" for a row with nothing typed";
}

TEST_F(PickerModelTest, TypedDigitsNarrowTheListAndEachTextBecomesARow) {
    model.Search(Str());
    EXPECT_TRUE(model.TypedDigits(Str(u"373")));
    EXPECT_EQ(model.LastSearched(), Str(u"373"));
    EXPECT_EQ(Ids(model.Results()), (std::vector<uint32_t>{10, 20}));
    EXPECT_EQ(RowTexts(model.Rows()),
              (std::vector<std::vector<std::u16string>>{{u"Fre"}, {u"Fre"}}));
    EXPECT_EQ(model.ItemCount(), 2);
}

TEST_F(PickerModelTest, TheSameDigitsDoNotSearchAgain) {
    model.Search(Str());
    ASSERT_TRUE(model.TypedDigits(Str(u"37")));
    const int searches = calls.calls[search_service::kSearchText];
    EXPECT_FALSE(model.TypedDigits(Str(u"37")));
    EXPECT_EQ(calls.calls[search_service::kSearchText], searches);
    EXPECT_TRUE(model.TypedDigits(Str(u"3")));
    EXPECT_EQ(calls.calls[search_service::kSearchText], searches + 1);
    EXPECT_TRUE(model.TypedDigits(Str()));
    EXPECT_EQ(model.ItemCount(), 4);
}

TEST_F(PickerModelTest, ServiceWordsComeOnlyWithResults) {
    model.Search(Str(u"912"));  // both numbers with 912
    EXPECT_EQ(Ids(model.Results()), (std::vector<uint32_t>{10}));
    EXPECT_EQ(Texts(model.ServiceWords()), (std::vector<std::u16string>{u"+7 912 123-45-67"}));
    const int asked = calls.calls[search_service::kResultStrings];
    model.Search(Str(u"0000000"));
    EXPECT_EQ(model.ItemCount(), 0);
    EXPECT_TRUE(model.ServiceWords().IsEmpty());
    EXPECT_EQ(calls.calls[search_service::kResultStrings], asked) << "nothing found, nothing asked";
}

TEST_F(PickerModelTest, AContactLineHasTheNameItsRunsAndTheSecondText) {
    model.Search(Str(u"373"));
    ContactLine line;
    ASSERT_TRUE(model.ContactLineAt(0, locale_text::ToLower, line));
    EXPECT_EQ(line.name, Str(u"Smith, Fred"));
    ASSERT_EQ(line.runs.Size(), 1);
    EXPECT_EQ(line.runs[0], (TextRun{7, 3}));
    EXPECT_EQ(line.second, Str(u"Acme"));
    ASSERT_TRUE(model.ContactLineAt(1, locale_text::ToLower, line));
    EXPECT_EQ(line.name, Str(u"Stone, Freya"));
    EXPECT_TRUE(line.second.IsEmpty());

    model.Search(Str(u"912"));
    ASSERT_TRUE(model.ContactLineAt(0, locale_text::ToLower, line));
    EXPECT_EQ(line.second, Str(u"+7 912 123-45-67")) << "the number that matched";

    EXPECT_FALSE(model.ContactLineAt(-1, locale_text::ToLower, line));
    EXPECT_FALSE(model.ContactLineAt(1, locale_text::ToLower, line));
    EXPECT_TRUE(line.name.IsEmpty());
}

TEST_F(PickerModelTest, ARowsDetailsAreAskedOncePerSearch) {
    model.Search(Str(u"373"));
    ContactLine line;
    const int before = calls.calls[search_service::kDetails];
    ASSERT_TRUE(model.ContactLineAt(0, locale_text::ToLower, line));
    ASSERT_TRUE(model.ContactLineAt(0, locale_text::ToLower, line));
    EXPECT_EQ(calls.calls[search_service::kDetails], before + 1);
    model.Search(Str(u"37"));
    ASSERT_TRUE(model.ContactLineAt(0, locale_text::ToLower, line));
    EXPECT_EQ(calls.calls[search_service::kDetails], before + 2) << "a new search asks again";
}

TEST_F(PickerModelTest, AnEmptyOrOutOfRangeSelectionDoesNothing) {
    EXPECT_EQ(model.Choose(0, true, choice), PickerStep::kStay) << "before any search";
    model.Search(Str());
    for (int selected : {-1, 4, 1000}) {
        EXPECT_EQ(model.Choose(selected, true, choice), PickerStep::kStay);
        EXPECT_EQ(model.ContactIndex(), -1);
    }
    EXPECT_EQ(choice.oid, 0u);
}

TEST_F(PickerModelTest, WithoutWantingANumberTheContactIsChosenAtOnce) {
    model.Search(Str());
    const int details = calls.calls[search_service::kDetails];
    EXPECT_EQ(model.Choose(IndexOf(model, 10), false, choice), PickerStep::kClose);
    EXPECT_EQ(model.CloseCode(), PickerModel::kChosen);
    EXPECT_EQ(choice.oid, 10u);
    EXPECT_TRUE(choice.number.IsEmpty());
    EXPECT_FALSE(model.InNumbers()) << "numbers never shown";
    EXPECT_EQ(calls.calls[search_service::kDetails], details) << "numbers never fetched";
}

TEST_F(PickerModelTest, AContactWithOneNumberIsTakenAtOnce) {
    model.Search(Str());
    EXPECT_EQ(model.Choose(IndexOf(model, 20), true, choice), PickerStep::kClose);
    EXPECT_EQ(model.CloseCode(), PickerModel::kChosen);
    EXPECT_EQ(choice.oid, 20u);
    EXPECT_EQ(choice.number, Str(u"81234567890"));
    EXPECT_EQ(choice.numberLabel, Str(PhoneTypeLabel(1)));
    EXPECT_EQ(choice.numberType, 1);
}

TEST_F(PickerModelTest, AContactWithoutNumbersClosesWithAnEmptyNumber) {
    model.Search(Str());
    choice.number = u"stale";
    EXPECT_EQ(model.Choose(IndexOf(model, 30), true, choice), PickerStep::kClose);
    EXPECT_EQ(choice.oid, 30u);
    EXPECT_TRUE(choice.number.IsEmpty());
    EXPECT_TRUE(choice.numberLabel.IsEmpty());
}

TEST_F(PickerModelTest, SeveralNumbersAreListedAndOneIsChosen) {
    model.Search(Str(u"373"));
    EXPECT_EQ(model.Choose(0, true, choice), PickerStep::kShowNumbers);
    EXPECT_TRUE(model.InNumbers());
    EXPECT_EQ(model.ContactIndex(), 0);
    ASSERT_EQ(model.ItemCount(), 3);
    EXPECT_EQ(model.Numbers()[2].number, Str(u"555-0100"));
    EXPECT_EQ(model.Numbers()[2].label, Str(u"Dacha"));
    EXPECT_EQ(model.Numbers()[2].type, 100);
    EXPECT_EQ(choice.oid, 0u) << "nothing handed back yet";

    for (int selected : {-1, 3})
        EXPECT_EQ(model.Choose(selected, true, choice), PickerStep::kStay);
    EXPECT_EQ(model.Choose(1, true, choice), PickerStep::kClose);
    EXPECT_EQ(choice.oid, 10u);
    EXPECT_EQ(choice.number, Str(u"020 7946 0958"));
    EXPECT_EQ(choice.numberLabel, Str(PhoneTypeLabel(0)));
    EXPECT_EQ(choice.numberType, 0);
}

TEST_F(PickerModelTest, DigitsTypedInStageTwoStartNoSearch) {
    model.Search(Str(u"373"));
    ASSERT_EQ(model.Choose(0, true, choice), PickerStep::kShowNumbers);
    const int searches = calls.calls[search_service::kSearchText];
    EXPECT_FALSE(model.TypedDigits(Str(u"3737")));
    EXPECT_EQ(calls.calls[search_service::kSearchText], searches);
    EXPECT_TRUE(model.InNumbers());
    EXPECT_EQ(model.LastSearched(), Str(u"373"));
}

TEST_F(PickerModelTest, CancelInStageTwoShowsTheSameListAndCancelAgainCloses) {
    model.Search(Str(u"373"));
    const std::vector<uint32_t> results = Ids(model.Results());
    const auto rows = RowTexts(model.Rows());
    const int searches = calls.calls[search_service::kSearchText];
    ASSERT_EQ(model.Choose(0, true, choice), PickerStep::kShowNumbers);
    EXPECT_EQ(model.Cancel(), PickerStep::kShowContacts);
    EXPECT_FALSE(model.InNumbers());
    EXPECT_EQ(model.ContactIndex(), -1);
    EXPECT_EQ(model.LastSearched(), Str(u"373"));
    EXPECT_EQ(Ids(model.Results()), results);
    EXPECT_EQ(RowTexts(model.Rows()), rows);
    EXPECT_EQ(model.ItemCount(), 2);
    EXPECT_EQ(calls.calls[search_service::kSearchText], searches) << "no new search";
    EXPECT_FALSE(model.TypedDigits(Str(u"373"))) << "the same digits still need no search";

    EXPECT_EQ(model.Cancel(), PickerStep::kClose);
    EXPECT_EQ(model.CloseCode(), PickerModel::kCancelled);
}

TEST_F(PickerModelTest, StageTwoNumbersAreFormattedWhenATemplateFits) {
    NumberTemplates templates;
    templates.LoadDefaults();
    service.PutContact(
        Contact(50, u"Olga", u"Ivanova", u"", {{u"81234567890", u"", 1}, {u"555p1", u"", 2}}));
    model.Search(Str());
    ASSERT_EQ(model.Choose(IndexOf(model, 50), true, choice), PickerStep::kShowNumbers);
    NumberLine line;
    ASSERT_TRUE(model.NumberLineAt(0, &templates, line));
    EXPECT_EQ(line.number, Str(u"8 (123) 456-78-90"));
    EXPECT_EQ(line.label, Str(PhoneTypeLabel(1)));
    ASSERT_TRUE(model.NumberLineAt(1, &templates, line));
    EXPECT_EQ(line.number, Str(u"555p1")) << "no template fits: as stored";
    ASSERT_TRUE(model.NumberLineAt(0, nullptr, line));
    EXPECT_EQ(line.number, Str(u"81234567890"));
    EXPECT_FALSE(model.NumberLineAt(2, &templates, line));
    EXPECT_FALSE(model.NumberLineAt(-1, &templates, line));
}

TEST_F(PickerModelTest, AContactDeletedAfterTheSearchHasNoLineAndNoNumber) {
    model.Search(Str());
    const int index = IndexOf(model, 10);
    service.RemoveContact(10);
    ContactLine line;
    EXPECT_FALSE(model.ContactLineAt(index, locale_text::ToLower, line));
    EXPECT_EQ(model.Choose(index, true, choice), PickerStep::kClose);
    EXPECT_EQ(choice.oid, 10u);
    EXPECT_TRUE(choice.number.IsEmpty());
}

TEST_F(PickerModelTest, AGeneratedBookNarrowsAsDigitsAreAdded) {
    service.SetContacts(GenerateAddressBook(2000, 7));
    model.Search(Str());
    EXPECT_EQ(model.ItemCount(), 2000);
    int previous = model.ItemCount();
    for (const char16_t* digits : {u"5", u"56", u"562"}) {
        ASSERT_TRUE(model.TypedDigits(Str(digits)));
        EXPECT_LE(model.ItemCount(), previous) << std::u16string(digits).size();
        EXPECT_EQ(model.Rows().Size(), model.ItemCount());
        previous = model.ItemCount();
    }
    ContactLine line;
    for (int i = 0; i < model.ItemCount() && i < 20; ++i)
        EXPECT_TRUE(model.ContactLineAt(i, locale_text::ToLower, line));
}

// --- A service that is absent or answers with garbage.

class PickerHostileTest : public ::testing::Test {
  protected:
    HostileServiceCalls calls;
    SearchServiceClient client{calls};
    PickerModel model{client};
    PickerChoice choice;
};

TEST_F(PickerHostileTest, WithoutAServiceTheListIsEmptyAndOnlyCancelWorks) {
    calls.absent = true;
    model.Search(Str());
    EXPECT_EQ(model.ItemCount(), 0);
    EXPECT_TRUE(model.ServiceWords().IsEmpty());
    EXPECT_TRUE(model.TypedDigits(Str(u"2")));
    EXPECT_EQ(model.ItemCount(), 0);
    EXPECT_EQ(model.Choose(0, true, choice), PickerStep::kStay);
    ContactLine line;
    EXPECT_FALSE(model.ContactLineAt(0, locale_text::ToLower, line));
    EXPECT_EQ(model.Cancel(), PickerStep::kClose);
    EXPECT_EQ(model.CloseCode(), PickerModel::kCancelled);
}

TEST_F(PickerHostileTest, ACountBeyondTheReplyGivesRowsWithoutFields) {
    // Claims 1000 results and carries two ids, and no texts at all.
    calls.replies[search_service::kSearchText] = ReplyBytes().U32(1000).U32(7).U32(8).bytes;
    model.Search(Str());
    EXPECT_EQ(Ids(model.Results()), (std::vector<uint32_t>{7, 8}));
    ASSERT_EQ(model.Rows().Size(), 2);
    EXPECT_TRUE(model.Rows()[0].IsEmpty());
    EXPECT_TRUE(model.Rows()[1].IsEmpty());
    EXPECT_EQ(model.Choose(2, false, choice), PickerStep::kStay);
    EXPECT_EQ(model.Choose(1, false, choice), PickerStep::kClose);
    EXPECT_EQ(choice.oid, 8u);
}

TEST_F(PickerHostileTest, TextsWithoutPlusAndTooFewTexts) {
    // Two results, one text without any "+".
    calls.replies[search_service::kSearchText] =
        ReplyBytes().U32(2).U32(7).U32(8).Text(u"xyz").Char(0).bytes;
    model.Search(Str());
    EXPECT_EQ(Ids(model.Results()), (std::vector<uint32_t>{7, 8}));
    ASSERT_EQ(model.Rows().Size(), 2);
    EXPECT_EQ(Texts(model.Rows()[0]), (std::vector<std::u16string>{u"xyz"}));
    EXPECT_TRUE(model.Rows()[1].IsEmpty()) << "no text for the second result";
    EXPECT_TRUE(model.ServiceWords().IsEmpty()) << "code 8 unanswered";
    ContactLine line;
    EXPECT_FALSE(model.ContactLineAt(1, locale_text::ToLower, line)) << "no details reply";
    EXPECT_EQ(model.Choose(1, false, choice), PickerStep::kClose);
    EXPECT_EQ(choice.oid, 8u);
}

TEST_F(PickerHostileTest, MoreTextsThanResultsAreIgnored) {
    calls.replies[search_service::kSearchText] =
        ReplyBytes().U32(1).U32(7).Text(u"a+b").Text(u"c").Text(u"d").Char(0).bytes;
    model.Search(Str());
    ASSERT_EQ(model.Rows().Size(), 1);
    EXPECT_EQ(Texts(model.Rows()[0]), (std::vector<std::u16string>{u"a", u"b"}));
}

TEST_F(PickerHostileTest, ANegativeCountFindsNothing) {
    calls.replies[search_service::kSearchText] = ReplyBytes().U32(0xFFFFFFFF).U32(7).bytes;
    calls.replies[search_service::kResultStrings] = ReplyBytes().Text(u"w").bytes;
    model.Search(Str());
    EXPECT_EQ(model.ItemCount(), 0);
    EXPECT_EQ(model.Choose(0, true, choice), PickerStep::kStay);
}

TEST_F(PickerHostileTest, ASizeThatLiesIsNotBelieved) {
    calls.replies[search_service::kSearchText] = ReplyBytes().U32(1).U32(7).Text(u"a").bytes;
    calls.sizeLie = 64;
    model.Search(Str());
    EXPECT_EQ(model.ItemCount(), 0);
    EXPECT_TRUE(model.Rows().IsEmpty());
}

TEST_F(PickerHostileTest, ADetailsReplyPointingPastTheStringsHasNoSecondText) {
    calls.replies[search_service::kSearchText] =
        ReplyBytes().U32(2).U32(7).U32(8).Text(u"an").Text(u"zz").Char(0).bytes;
    calls.replies[search_service::kResultStrings] = ReplyBytes().Text(u"Acme").bytes;
    calls.details[7] = ReplyBytes().U32(7).U32(5u << 16).Text(u"Anna").Char(0).Char(0).bytes;
    calls.details[8] = ReplyBytes().U32(8).U32(1u << 16).Text(u"Bob").Char(0).Char(0).bytes;
    model.Search(Str());
    ASSERT_EQ(Texts(model.ServiceWords()), (std::vector<std::u16string>{u"Acme"}));
    ContactLine line;
    ASSERT_TRUE(model.ContactLineAt(0, locale_text::ToLower, line));
    EXPECT_EQ(line.name, Str(u"Anna"));
    EXPECT_TRUE(line.second.IsEmpty());
    ASSERT_EQ(line.runs.Size(), 1);
    EXPECT_EQ(line.runs[0], (TextRun{0, 2}));
    ASSERT_TRUE(model.ContactLineAt(1, locale_text::ToLower, line));
    EXPECT_EQ(line.second, Str(u"Acme"));
    EXPECT_TRUE(line.runs.IsEmpty()) << "\"zz\" is not in \"Bob\"";
}

TEST_F(PickerHostileTest, AShortDetailsReplyGivesANamelessLineAndNoNumbers) {
    calls.replies[search_service::kSearchText] =
        ReplyBytes().U32(1).U32(7).Text(u"a").Char(0).bytes;
    calls.details[7] = std::vector<uint8_t>(17, 0xAB);  // the values and no texts
    model.Search(Str());
    ContactLine line;
    ASSERT_TRUE(model.ContactLineAt(0, locale_text::ToLower, line));
    EXPECT_TRUE(line.name.IsEmpty());
    EXPECT_TRUE(line.runs.IsEmpty());
    EXPECT_TRUE(line.second.IsEmpty());
    EXPECT_EQ(model.Choose(0, true, choice), PickerStep::kClose);
    EXPECT_EQ(choice.oid, 7u);
    EXPECT_TRUE(choice.number.IsEmpty());
}

TEST_F(PickerHostileTest, AnOddPhonesTextStillGivesWholeNumbers) {
    calls.replies[search_service::kSearchText] =
        ReplyBytes().U32(1).U32(7).Text(u"a").Char(0).bytes;
    // Three numbers, the last without a type, and type texts of every kind.
    calls.details[7] = ReplyBytes()
                           .U32(7)
                           .U32(0)
                           .Text(u"Anna")
                           .Text(u"111")
                           .Text(std::u16string(1, char16_t{6}))
                           .Text(u"222")
                           .Text(std::u16string(1, char16_t{40}))
                           .Text(u"333")
                           .Char(0)
                           .Char(0)
                           .bytes;
    model.Search(Str());
    ASSERT_EQ(model.Choose(0, true, choice), PickerStep::kShowNumbers);
    ASSERT_EQ(model.ItemCount(), 3);
    EXPECT_EQ(model.Numbers()[0].type, 5);
    EXPECT_EQ(model.Numbers()[1].type, 100);
    EXPECT_EQ(model.Numbers()[2].number, Str(u"333"));
    EXPECT_EQ(model.Choose(2, true, choice), PickerStep::kClose);
    EXPECT_EQ(choice.number, Str(u"333"));
}

}  // namespace
