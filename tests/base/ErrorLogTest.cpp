#include "base/ErrorLog.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "TempDir.h"
#include "base/LocaleMemory.h"
#include "base/ModuleMemory.h"

namespace {

std::string ReadFile(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::stringstream text;
    text << in.rdbuf();
    return text.str();
}

class ErrorLogTest : public testing::Test {
  protected:
    void SetUp() override {
        module_memory::Reset();
        locale_text::SetFixedLogStamp(u"2026.11.22 10:20:30 - ");
    }
    void TearDown() override {
        locale_text::SetFixedLogStamp(nullptr);
        SetErrorLogModule(nullptr);
    }
    TempDir dir_;
};

}  // namespace

TEST_F(ErrorLogTest, WritesOneLineInTheFixedLayout) {
    ErrorLog(u"\\log.txt", u"Something failed", u"Skin", u"Load", 42);
    EXPECT_EQ(ReadFile(dir_.Path() / "log.txt"),
              "2026.11.22 10:20:30 - Something failed\t\tSkin: Load (42)\r\n");
}

TEST_F(ErrorLogTest, AppendsToTheEnd) {
    ErrorLog(u"\\log.txt", u"one", u"A", u"f", 1);
    ErrorLog(u"\\log.txt", u"two", u"B", u"", 2);
    EXPECT_EQ(ReadFile(dir_.Path() / "log.txt"),
              "2026.11.22 10:20:30 - one\t\tA: f (1)\r\n2026.11.22 10:20:30 - two\t\tB:  (2)\r\n");
}

TEST_F(ErrorLogTest, EachPieceIsOneBytePerCharacterInTheAnsiCodePage) {
    ErrorLog(u"\\log.txt", u"caf\u00e9 \u0416", u"S", u"F", 3);
    std::string line = ReadFile(dir_.Path() / "log.txt");
    std::string expected = "2026.11.22 10:20:30 - caf\xe9 ?\t\tS: F (3)\r\n";
    EXPECT_EQ(line, expected);
}

TEST_F(ErrorLogTest, AnUnopenableFileLosesTheLineSilently) {
    ErrorLog(u"\\missing-folder\\log.txt", u"lost", u"S", u"F", 1);
    EXPECT_FALSE(std::filesystem::exists(dir_.Path() / "missing-folder"));
}

TEST_F(ErrorLogTest, PathIsTheRootErrorLogUnlessALogModuleIsSet) {
    EXPECT_EQ(std::u16string(ErrorLogPath()), u"\\error.log");
    ModuleHandle module = module_memory::MakeModule();
    module_memory::SetFileName(module, u"\\Program Files\\Dialdeck\\Dialdeck.exe");
    SetErrorLogModule(module);
    EXPECT_EQ(std::u16string(ErrorLogPath()), u"\\Program Files\\Dialdeck\\Dialdeck.exe.log");
    module_memory::SetFileName(module, u"");
    EXPECT_EQ(std::u16string(ErrorLogPath()), u"\\error.log");
}

TEST_F(ErrorLogTest, LogErrorWritesToTheRootLog) {
    LogError(u"Memory allocation failed", u"Str", u"", 23);
    EXPECT_EQ(ReadFile(dir_.Path() / "error.log"),
              "2026.11.22 10:20:30 - Memory allocation failed\t\tStr:  (23)\r\n");
}
