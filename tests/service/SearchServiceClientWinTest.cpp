// The client's Windows calls end to end: client, service host, the real OrvalisPimServ.dll and
// its contacts store over a vCard file that the test writes.
#include "contacts/SearchServiceClientWin.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "base/Registry.h"
#include "base/SettingsStore.h"
#include "contacts/VCardContactsStore.h"
#include "platform/ServiceHost.h"

namespace {

const char kCard[] =
    "BEGIN:VCARD\r\nVERSION:3.0\r\nN:Smith;Fred;;;\r\nFN:Fred Smith\r\nORG:Acme\r\n"
    "TEL;TYPE=CELL:+7 912 123-45-67\r\nTEL;TYPE=HOME:020 7946 0958\r\nEND:VCARD\r\n"
    "BEGIN:VCARD\r\nVERSION:3.0\r\nN:M\xC3\xBCller;Zo\xC3\xAB;;;\r\nFN:Zo\xC3\xAB M\xC3\xBCller\r\n"
    "TEL;TYPE=WORK:+49 30 5550100\r\nEND:VCARD\r\n"
    "BEGIN:VCARD\r\nVERSION:3.0\r\nN:\xD0\x9F\xD0\xB5\xD1\x82\xD1\x80\xD0\xBE\xD0\xB2;"
    "\xD0\x98\xD0\xB2\xD0\xB0\xD0\xBD;;;\r\nFN:Ivan\r\nTEL;TYPE=CELL:8 (495) 111-22-33\r\n"
    "END:VCARD\r\n";

const char kExtraCard[] =
    "BEGIN:VCARD\r\nVERSION:3.0\r\nN:Nash;Olga;;;\r\nFN:Olga Nash\r\n"
    "TEL;TYPE=CELL:+1 555 0199 77\r\nEND:VCARD\r\n";

std::wstring TempFile(const wchar_t* name) {
    wchar_t dir[MAX_PATH];
    GetTempPathW(MAX_PATH, dir);
    return std::wstring(dir) + name;
}

void WriteFile(const std::wstring& path, const std::string& bytes) {
    FILE* f = _wfopen(path.c_str(), L"wb");
    ASSERT_NE(f, nullptr);
    fwrite(bytes.data(), 1, bytes.size(), f);
    fclose(f);
}

void SetString(const char16_t* subkey, const char16_t* name, const std::wstring& value) {
    registry::KeyHolder key(settings::OpenKey(subkey, true));
    registry::Set(key.get(), name, registry::kTypeString, value.c_str(),
                  static_cast<uint32_t>((value.size() + 1) * 2));
}

void SetNumber(const char16_t* subkey, const char16_t* name, uint32_t value) {
    registry::KeyHolder key(settings::OpenKey(subkey, true));
    registry::Set(key.get(), name, registry::kTypeDword, &value, 4);
}

void DeleteValue(const char16_t* subkey, const char16_t* name) {
    registry::KeyHolder key(settings::OpenKey(subkey, true));
    registry::DeleteValue(key.get(), name);
}

std::u16string U16(const Str& s) {
    return std::u16string(s.c_str());
}

class SearchServiceClientWinTest : public ::testing::Test {
  protected:
    void SetUp() override {
        HANDLE running = service_host::GetServiceHandle(L"OPS0:", nullptr, nullptr);
        if (running != INVALID_HANDLE_VALUE)
            service_host::DeregisterService(running);
        path = TempFile(L"dd_search_contacts.vcf");
        WriteFile(path, kCard);
        SetString(settings::kSettingsKey, kContactsFileSetting, path);
        SetNumber(settings::kKeypadKey, u"Type", 3);  // Cyrillic with the Latin letters
    }
    void TearDown() override {
        HANDLE running = service_host::GetServiceHandle(L"OPS0:", nullptr, nullptr);
        if (running != INVALID_HANDLE_VALUE)
            service_host::DeregisterService(running);
        DeleteValue(settings::kSettingsKey, kContactsFileSetting);
        DeleteValue(settings::kKeypadKey, u"Type");
        DeleteFileW(path.c_str());
    }
    WinServiceCalls calls;
    SearchServiceClient client{calls};
    std::wstring path;
};

TEST_F(SearchServiceClientWinTest, RegistersTheServiceAndFindsContactsByTypedDigits) {
    Array<uint32_t> oids;
    Array<Str> texts;
    ASSERT_TRUE(client.SearchText(u"37337", oids, texts));
    EXPECT_NE(service_host::GetServiceHandle(L"OPS0:", nullptr, nullptr), INVALID_HANDLE_VALUE);
    ASSERT_EQ(oids.Size(), 1);
    EXPECT_EQ(U16(texts[0]), u"Fred+S");
    ServiceDetails details;
    ASSERT_TRUE(client.GetDetails(oids[0], details));
    EXPECT_EQ(std::u16string(details.text1), u"Smith, Fred");
    EXPECT_EQ(std::u16string(details.text2), u"Acme");
    Array<ContactPhone> phones;
    details.GetPhones(phones);
    ASSERT_EQ(phones.Size(), 2);
    EXPECT_EQ(U16(phones[0].number), u"+7 912 123-45-67");
    EXPECT_EQ(U16(phones[0].label), u"Mobile");
    EXPECT_EQ(phones[0].type, 0);
    EXPECT_EQ(U16(phones[1].label), u"Home");
    EXPECT_EQ(phones[1].type, 1);

    ASSERT_TRUE(client.SearchText(u"685", oids, texts));  // accented: Müller
    ASSERT_EQ(oids.Size(), 1);
    EXPECT_EQ(U16(texts[0]), u"Mül");
    ASSERT_TRUE(client.SearchText(u"4225", oids, texts));  // Cyrillic: Иван
    ASSERT_EQ(oids.Size(), 1);
    EXPECT_EQ(U16(texts[0]), u"Иван");
}

TEST_F(SearchServiceClientWinTest, FindsContactsByNumberAndShowsTheMatchedNumber) {
    Array<uint32_t> byNumber;
    ASSERT_TRUE(client.SearchNumber(u"89121234567", byNumber));
    ASSERT_EQ(byNumber.Size(), 1);
    Array<uint32_t> oids;
    Array<Str> texts;
    ASSERT_TRUE(client.SearchText(u"1112233", oids, texts));
    ASSERT_EQ(oids.Size(), 1);
    Array<Str> strings;
    ASSERT_TRUE(client.GetResultStrings(strings));
    ASSERT_EQ(strings.Size(), 1);
    EXPECT_EQ(U16(strings[0]), u"8 (495) 111-22-33");
    ServiceDetails details;
    ASSERT_TRUE(client.GetDetails(oids[0], details));
    EXPECT_EQ(details.value2 >> 16, 1u);
    EXPECT_NE(oids[0], byNumber[0]);
    ASSERT_TRUE(client.SearchNumber(u"+44 20 7946 0958", oids));
    EXPECT_EQ(oids.Size(), 1);
    EXPECT_EQ(oids[0], byNumber[0]);
}

TEST_F(SearchServiceClientWinTest, SeesContactsAddedToTheFileAtTheNextPickerOpening) {
    Array<uint32_t> oids;
    Array<Str> texts;
    ASSERT_TRUE(client.SearchText(u"", oids, texts));
    EXPECT_EQ(oids.Size(), 3);
    WriteFile(path, std::string(kCard) + kExtraCard);
    ASSERT_TRUE(client.SearchText(u"", oids, texts));
    EXPECT_EQ(oids.Size(), 4);
    ASSERT_TRUE(client.SearchText(u"6542", oids, texts));
    ASSERT_EQ(oids.Size(), 1);
    EXPECT_EQ(U16(texts[0]), u"Olga");
}

TEST_F(SearchServiceClientWinTest, FindsTheDemoContacts) {
    std::string demo = DD_DEMO_CONTACTS;
    std::wstring windowsPath = L"Z:";
    for (char c : demo)
        windowsPath.push_back(c == '/' ? L'\\' : static_cast<wchar_t>(c));
    SetString(settings::kSettingsKey, kContactsFileSetting, windowsPath);
    Array<uint32_t> oids;
    Array<Str> texts;
    ASSERT_TRUE(client.SearchText(u"", oids, texts));
    EXPECT_GE(oids.Size(), 20);
    ASSERT_TRUE(client.SearchText(u"685537", oids, texts));  // Müller
    ASSERT_GE(oids.Size(), 1);
    EXPECT_EQ(U16(texts[0]), u"Müller");
    ASSERT_TRUE(client.SearchText(u"536", oids, texts));  // Петров (Cyrillic keys)
    ASSERT_GE(oids.Size(), 1);
    EXPECT_EQ(U16(texts[0]), u"Пет");
    // The contact that owns the found contact's first number is that contact.
    ServiceDetails details;
    ASSERT_TRUE(client.GetDetails(oids[0], details));
    ASSERT_NE(details.text1, nullptr);
    Array<ContactPhone> phones;
    details.GetPhones(phones);
    ASSERT_GE(phones.Size(), 1);
    Array<uint32_t> byNumber;
    ASSERT_TRUE(client.SearchNumber(phones[0].number, byNumber));
    bool owner = false;
    for (uint32_t oid : byNumber)
        owner = owner || oid == oids[0];
    EXPECT_TRUE(owner);
}

TEST_F(SearchServiceClientWinTest, MissingLibraryFailsEveryRequest) {
    struct ElsewhereCalls : WinServiceCalls {
        bool CallRegistrationExport(const char16_t*, const char* exportName) override {
            return WinServiceCalls::CallRegistrationExport(u"NoSuchLibrary.dll", exportName);
        }
    } elsewhere;
    SearchServiceClient lost(elsewhere);
    Array<uint32_t> oids;
    EXPECT_FALSE(lost.SearchNumber(u"1", oids));
    EXPECT_EQ(service_host::GetServiceHandle(L"OPS0:", nullptr, nullptr), INVALID_HANDLE_VALUE);
}

}  // namespace
