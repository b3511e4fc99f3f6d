#include "base/File.h"

#include <gtest/gtest.h>

#include <string>

#include "WinTempFolder.h"

namespace {

void Append(const std::u16string& path, const std::string& text) {
    file::Appender out(path.c_str());
    ASSERT_TRUE(out.IsOpen());
    ASSERT_TRUE(out.Write(text.data(), text.size()));
}

std::string Contents(const std::u16string& path) {
    std::vector<uint8_t> bytes;
    if (!file::ReadAll(path.c_str(), bytes))
        return "<unreadable>";
    return std::string(bytes.begin(), bytes.end());
}

TEST(FileWinTest, ExistsForFilesAndFolders) {
    WinTempFolder folder;
    std::u16string name = folder.File(L"a.txt");
    EXPECT_FALSE(file::Exists(name.c_str()));
    Append(name, "x");
    EXPECT_TRUE(file::Exists(name.c_str()));
    EXPECT_TRUE(file::Exists(folder.File(L"").c_str()));
    EXPECT_FALSE(file::Exists(folder.File(L"missing\\b.txt").c_str()));
    EXPECT_FALSE(file::Exists(u""));
    EXPECT_FALSE(file::Exists(nullptr));
}

TEST(FileWinTest, AppenderCreatesThenAppendsAtTheEnd) {
    WinTempFolder folder;
    std::u16string name = folder.File(L"log.txt");
    Append(name, "first\r\n");
    Append(name, "second\r\n");
    EXPECT_EQ(Contents(name), "first\r\nsecond\r\n");
}

TEST(FileWinTest, AppendedFileStaysReadableAndWritableByOthers) {
    WinTempFolder folder;
    std::u16string name = folder.File(L"shared.txt");
    file::Appender first(name.c_str());
    ASSERT_TRUE(first.IsOpen());
    ASSERT_TRUE(first.Write("ab", 2));
    file::Appender second(name.c_str());
    ASSERT_TRUE(second.IsOpen());
    ASSERT_TRUE(second.Write("cd", 2));
    EXPECT_EQ(Contents(name), "abcd");
}

TEST(FileWinTest, AppenderThatCannotOpenWritesNothing) {
    WinTempFolder folder;
    std::u16string name = folder.File(L"no\\such\\folder\\log.txt");
    file::Appender out(name.c_str());
    EXPECT_FALSE(out.IsOpen());
    EXPECT_FALSE(out.Write("x", 1));
    EXPECT_FALSE(file::Exists(name.c_str()));
}

TEST(FileWinTest, ReadAllOfAMissingFileFails) {
    WinTempFolder folder;
    std::vector<uint8_t> bytes{1, 2};
    EXPECT_FALSE(file::ReadAll(folder.File(L"missing").c_str(), bytes));
    EXPECT_TRUE(bytes.empty());
}

TEST(FileWinTest, ReadAllOfAnEmptyFile) {
    WinTempFolder folder;
    std::u16string name = folder.File(L"empty");
    { file::Appender create(name.c_str()); }
    std::vector<uint8_t> bytes{1};
    EXPECT_TRUE(file::ReadAll(name.c_str(), bytes));
    EXPECT_TRUE(bytes.empty());
}

TEST(FileWinTest, StampFollowsTheFile) {
    WinTempFolder folder;
    std::u16string name = folder.File(L"stamped");
    uint64_t time = 0;
    uint64_t size = 0;
    EXPECT_FALSE(file::Stamp(name.c_str(), time, size));
    Append(name, "12345");
    ASSERT_TRUE(file::Stamp(name.c_str(), time, size));
    EXPECT_EQ(size, 5u);
    EXPECT_NE(time, 0u);
    Append(name, "678");
    ASSERT_TRUE(file::Stamp(name.c_str(), time, size));
    EXPECT_EQ(size, 8u);
    EXPECT_FALSE(file::Stamp(folder.File(L"").c_str(), time, size));  // a folder has none
}

}  // namespace
