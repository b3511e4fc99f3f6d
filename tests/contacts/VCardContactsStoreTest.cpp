#include "contacts/VCardContactsStore.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include "TempDir.h"
#include "TestBytes.h"
#include "base/FileMemory.h"
#include "base/ModuleMemory.h"
#include "base/Registry.h"
#include "base/RegistryMemory.h"
#include "base/SettingsStore.h"
#include "contacts/ContactsSession.h"

namespace {

using namespace contact_props;
using test_bytes::U16;

class NoticeLog : public ContactsNoticeTarget {
  public:
    void PostNotice(uint32_t message, uint32_t oid) override { notices.emplace_back(message, oid); }
    std::vector<std::pair<uint32_t, uint32_t>> notices;
};

class RecordingListener : public ContactsListener {
  public:
    void ItemChanged(int kind, uint32_t oid) override { notices.emplace_back(kind, oid); }
    void Timer() override {}
    std::vector<std::pair<int, uint32_t>> notices;
};

std::string Card(const std::string& uid, const std::string& name, const std::string& tel) {
    return "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:" + uid + "\r\nN:" + name +
           "\r\nTEL;TYPE=CELL:" + tel + "\r\nEND:VCARD\r\n";
}

void SetContactsFileSetting(const char16_t* value) {
    std::u16string path = std::u16string(settings::kRoot) + settings::kSettingsKey;
    registry::KeyHolder key(registry::Create(path.c_str()));
    ASSERT_TRUE(key);
    std::u16string text = value;
    registry::Set(key.get(), kContactsFileSetting, registry::kTypeString, text.c_str(),
                  static_cast<uint32_t>((text.size() + 1) * 2));
}

class VCardContactsStoreTest : public ::testing::Test {
  protected:
    void SetUp() override {
        registry::memory::Reset();
        module_memory::Reset();
    }

    /// Writes the file and moves its time stamp on, as a save by another program does.
    void Write(const std::string& text) {
        std::filesystem::path path = directory_.Path() / "contacts.vcf";
        bool existed = std::filesystem::exists(path);
        auto before = existed ? std::filesystem::last_write_time(path)
                              : std::filesystem::file_time_type::clock::now();
        std::ofstream(path, std::ios::binary | std::ios::trunc) << text;
        std::filesystem::last_write_time(path, before + std::chrono::seconds(++saves_));
    }

    TempDir directory_;
    int saves_ = 0;
};

TEST_F(VCardContactsStoreTest, TheFileIsBesideTheExecutableByDefault) {
    module_memory::SetFileName(ProgramModule(), u"C:\\Apps\\Dialdeck\\Dialdeck.exe");
    EXPECT_EQ(U16(DefaultContactsFilePath()), u"C:\\Apps\\Dialdeck\\Contacts.vcf");
}

TEST_F(VCardContactsStoreTest, TheSettingChoosesTheFile) {
    module_memory::SetFileName(ProgramModule(), u"C:\\Apps\\Dialdeck\\Dialdeck.exe");
    SetContactsFileSetting(u"D:\\Data\\people.vcf");
    EXPECT_EQ(U16(DefaultContactsFilePath()), u"D:\\Data\\people.vcf");
    SetContactsFileSetting(u"\\Storage Card\\people.vcf");
    EXPECT_EQ(U16(DefaultContactsFilePath()), u"\\Storage Card\\people.vcf");
    SetContactsFileSetting(u"demo\\people.vcf");
    EXPECT_EQ(U16(DefaultContactsFilePath()), u"C:\\Apps\\Dialdeck\\demo\\people.vcf");
    SetContactsFileSetting(u"");
    EXPECT_EQ(U16(DefaultContactsFilePath()), u"C:\\Apps\\Dialdeck\\Contacts.vcf");
}

TEST_F(VCardContactsStoreTest, LogonReadsTheFile) {
    Write(Card("a", "Alpha;Ann", "111") + Card("b", "Beta;Bob", "222"));
    VCardContactsStore store(u"contacts.vcf");
    ASSERT_TRUE(store.Logon(nullptr));
    std::vector<uint32_t> oids;
    ASSERT_TRUE(store.EnumerateOids(oids));
    ASSERT_EQ(oids.size(), 2u);
    auto item = store.GetItemFromOid(oids[1]);
    ASSERT_NE(item, nullptr);
    const uint32_t ids[] = {kLastName, kMobilePhone};
    std::vector<PropertyValue> values;
    ASSERT_TRUE(item->GetProps(ids, 2, values));
    EXPECT_EQ(U16(values[0].text), u"Beta");
    EXPECT_EQ(U16(values[1].text), u"222");
}

TEST_F(VCardContactsStoreTest, AMissingFileIsAnEmptyStore) {
    VCardContactsStore store(u"contacts.vcf");
    ASSERT_TRUE(store.Logon(nullptr));
    std::vector<uint32_t> oids{1};
    ASSERT_TRUE(store.EnumerateOids(oids));
    EXPECT_TRUE(oids.empty());
}

TEST_F(VCardContactsStoreTest, ChangesOnDiskPostExactlyTheirNotices) {
    Write(Card("a", "Alpha;Ann", "111") + Card("b", "Beta;Bob", "222") +
          Card("c", "Gamma;Cy", "333"));
    VCardContactsStore store(u"contacts.vcf");
    NoticeLog log;
    ASSERT_TRUE(store.Logon(&log));
    store.SetFolderNotifications(kNotifyLocal | kNotifyRemote);
    std::vector<uint32_t> oids;
    store.EnumerateOids(oids);
    ASSERT_EQ(oids.size(), 3u);

    store.Refresh();
    EXPECT_TRUE(log.notices.empty());  // nothing changed

    Write(Card("a", "Alpha;Ann", "111") + Card("b", "Beta;Bob", "999") +
          Card("c", "Gamma;Cy", "333"));
    store.Refresh();
    EXPECT_EQ(log.notices, (std::vector<std::pair<uint32_t, uint32_t>>{{0x8107, oids[1]}}));

    log.notices.clear();
    Write(Card("b", "Beta;Bob", "999") + Card("c", "Gamma;Cy", "333") + Card("d", "Delta;Di", "4"));
    store.Refresh();
    std::vector<uint32_t> now;
    store.EnumerateOids(now);
    ASSERT_EQ(now.size(), 3u);
    EXPECT_EQ(log.notices,
              (std::vector<std::pair<uint32_t, uint32_t>>{{0x8106, oids[0]}, {0x8105, now[2]}}));

    log.notices.clear();
    Write(Card("b", "Beta;Bob", "999") + Card("c", "Gamma;Cy", "333") + Card("d", "Delta;Di", "4"));
    store.Refresh();
    EXPECT_TRUE(log.notices.empty());  // saved again unchanged

    std::filesystem::remove(directory_.Path() / "contacts.vcf");
    store.Refresh();
    EXPECT_EQ(log.notices.size(), 3u);
    store.EnumerateOids(now);
    EXPECT_TRUE(now.empty());
}

/// The portable platform on a contacts file of the test's own.
class FilePlatform : public ContactsPlatform {
  public:
    std::unique_ptr<ContactsStore> CreateStore() override {
        return std::make_unique<VCardContactsStore>(u"contacts.vcf");
    }
};

TEST_F(VCardContactsStoreTest, AnEditWhileASessionIsOpenGivesOneChangedNotice) {
    Write(Card("a", "Alpha;Ann", "111") + Card("b", "Beta;Bob", "222"));
    FilePlatform platform;
    ContactsSession session(platform);
    RecordingListener listener;
    session.SetListener(&listener);
    ASSERT_TRUE(session.Open());
    std::vector<uint32_t> oids;
    ASSERT_TRUE(session.Store()->EnumerateOids(oids));
    ContactRecord record;
    ASSERT_TRUE(session.ReadContact(oids[0], record, 35, 0, 0));
    EXPECT_EQ(U16(record.phones[0].number), u"111");

    Write(Card("a", "Alpha;Annie", "112") + Card("b", "Beta;Bob", "222"));
    session.Store()->Refresh();
    EXPECT_EQ(listener.notices, (std::vector<std::pair<int, uint32_t>>{{kItemChanged, oids[0]}}));
    ASSERT_TRUE(session.ReadContact(oids[0], record, 35, 0, 0));
    EXPECT_EQ(U16(record.firstName), u"Annie");
    ASSERT_EQ(record.phones.Size(), 1);
    EXPECT_EQ(U16(record.phones[0].number), u"112");
    EXPECT_EQ(record.phones[0].type, 0);
    EXPECT_EQ(listener.notices.size(), 1u);  // the read saw no further change
}

TEST_F(VCardContactsStoreTest, AReadCatchesUpWithTheFile) {
    Write(Card("a", "Alpha;Ann", "111"));
    FilePlatform platform;
    ContactsSession session(platform);
    ASSERT_TRUE(session.Open());
    std::vector<uint32_t> oids;
    session.Store()->EnumerateOids(oids);
    Write(Card("a", "Alpha;Ann", "555"));
    ContactRecord record;
    ASSERT_TRUE(session.ReadContact(oids[0], record, read_flags::kPhones, 0, 0));
    EXPECT_EQ(U16(record.phones[0].number), u"555");
}

}  // namespace
