// Module names and string resources through the platform's loader, and the text loading of Str
// built on them: strings come from this test program's own string table.
#include "base/Module.h"

#include <windows.h>
// <windows.h> maps LoadString to LoadStringW; Str's member keeps its own name.
#undef LoadString

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "WinTempFolder.h"
#include "base/Alert.h"
#include "base/Str.h"

namespace {

constexpr uint32_t kText255 = 200;
constexpr uint32_t kText300 = 201;
constexpr uint32_t kText600 = 202;
constexpr uint32_t kHello = 203;
constexpr uint32_t kText254 = 204;
constexpr uint32_t kMissing = 999;

// The resource texts: the digits 0-9 repeated and cut to length.
std::u16string Digits(size_t n) {
    std::u16string text;
    for (size_t i = 0; i < n; ++i)
        text += static_cast<char16_t>(u'0' + i % 10);
    return text;
}

struct Box {
    std::u16string text;
    std::u16string caption;
    uint32_t flags;
};

std::vector<Box>& Boxes() {
    static std::vector<Box> boxes;
    return boxes;
}

int CaptureBox(const char16_t* text, const char16_t* caption, uint32_t flags) {
    Boxes().push_back({text, caption, flags});
    return kAlertAnswerOk;
}

// Loads texts from this program's module, captures the boxes and works in a temp folder on the
// Windows drive, so the root-relative log "\error.log" lands at that drive's root.
class ModuleWinTest : public ::testing::Test {
  protected:
    void SetUp() override {
        Boxes().clear();
        previousHandler_ = SetAlertHandler(&CaptureBox);
        previousModule_ = ResourceModule();
        SetResourceModule(GetModuleHandleW(nullptr));
        DeleteFileW(L"\\error.log");
    }
    void TearDown() override {
        DeleteFileW(L"\\error.log");
        SetResourceModule(previousModule_);
        SetAlertHandler(previousHandler_);
    }
    static std::string LogContents() {
        HANDLE log = CreateFileW(L"\\error.log", GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                 nullptr, OPEN_EXISTING, 0, nullptr);
        if (log == INVALID_HANDLE_VALUE)
            return std::string();
        std::string text(65536, '\0');
        DWORD read = 0;
        ReadFile(log, text.data(), static_cast<DWORD>(text.size()), &read, nullptr);
        CloseHandle(log);
        text.resize(read);
        return text;
    }

    WinTempFolder folder_{true};

  private:
    AlertHandler previousHandler_ = nullptr;
    void* previousModule_ = nullptr;
};

TEST_F(ModuleWinTest, ProgramModuleIsTheExecutable) {
    EXPECT_EQ(ProgramModule(), GetModuleHandleW(nullptr));
}

TEST_F(ModuleWinTest, ModuleFileNameIsTheFullPath) {
    char16_t name[MAX_PATH];
    int n = ModuleFileName(ProgramModule(), name, MAX_PATH);
    ASSERT_GT(n, 0);
    std::u16string path(name, static_cast<size_t>(n));
    EXPECT_EQ(path.size(), std::u16string(name).size());
    EXPECT_NE(path.find(u"platform_win_tests.exe"), std::u16string::npos);
    EXPECT_NE(path.find(u'\\'), std::u16string::npos);
}

TEST_F(ModuleWinTest, ModuleFileNameThatDoesNotFitIsNotRead) {
    char16_t name[8];
    EXPECT_EQ(ModuleFileName(ProgramModule(), name, 8), 0);
    EXPECT_EQ(name[0], 0);
}

TEST_F(ModuleWinTest, LoadsAStringAndCutsItToTheBuffer) {
    char16_t text[16];
    EXPECT_EQ(LoadResourceText(ProgramModule(), kHello, text, 16), 5);
    EXPECT_EQ(std::u16string(text), u"Hello");
    EXPECT_EQ(LoadResourceText(ProgramModule(), kHello, text, 3), 2);
    EXPECT_EQ(std::u16string(text), u"He");
    EXPECT_EQ(LoadResourceText(ProgramModule(), kMissing, text, 16), 0);
}

TEST_F(ModuleWinTest, SafeLoadStrLoadsWithoutComplaint) {
    char16_t text[16];
    EXPECT_EQ(SafeLoadStr(kHello, text, 16), 5);
    EXPECT_EQ(std::u16string(text), u"Hello");
    EXPECT_TRUE(Boxes().empty());
    EXPECT_TRUE(LogContents().empty());
}

TEST_F(ModuleWinTest, MissingTextLogsOneLineAndShowsOneBox) {
    char16_t text[16] = u"old";
    EXPECT_EQ(SafeLoadStr(kMissing, text, 16), 0);
    EXPECT_EQ(text[0], 0);
    ASSERT_EQ(Boxes().size(), 1u);
    EXPECT_EQ(Boxes()[0].text, u"SafeLoadStr failed, resid: 999");
    EXPECT_EQ(Boxes()[0].caption, u"Contactbook Tracer");
    EXPECT_EQ(Boxes()[0].flags, kAlertOk);
    std::string log = LogContents();
    ASSERT_GE(log.size(), 2u);
    EXPECT_EQ(log.find("\r\n"), log.size() - 2);  // exactly one line
    EXPECT_EQ(log.substr(log.size() - 7), "(174)\r\n");
    EXPECT_NE(log.find(" - Resource loading fail (id: 999 hInst: "), std::string::npos);
    EXPECT_NE(log.find(")\t\tStr:  (174)"), std::string::npos);
}

TEST_F(ModuleWinTest, EveryMissingTextShowsItsOwnBox) {
    char16_t text[16];
    SafeLoadStr(kMissing, text, 16);
    SafeLoadStr(kMissing + 1, text, 16);
    ASSERT_EQ(Boxes().size(), 2u);
    EXPECT_EQ(Boxes()[1].text, u"SafeLoadStr failed, resid: 1000");
    std::string log = LogContents();
    size_t first = log.find("\r\n");
    ASSERT_NE(first, std::string::npos);
    EXPECT_EQ(log.find("\r\n", first + 2), log.size() - 2);
}

TEST_F(ModuleWinTest, StrLoadsShortTexts) {
    Str text;
    EXPECT_TRUE(text.LoadString(kHello));
    EXPECT_EQ(std::u16string(text.c_str()), u"Hello");
    Str nearlyFull;
    EXPECT_TRUE(nearlyFull.LoadString(kText254));
    EXPECT_EQ(std::u16string(nearlyFull.c_str()), Digits(254));
}

TEST_F(ModuleWinTest, StrLoadsATextOf255CharactersWhole) {
    Str text;
    EXPECT_TRUE(text.LoadString(kText255));
    EXPECT_EQ(text.Length(), 255);
    EXPECT_EQ(std::u16string(text.c_str()), Digits(255));
    EXPECT_TRUE(Boxes().empty());
}

TEST_F(ModuleWinTest, StrReloadsLongTextsUntilTheyFit) {
    Str text;
    EXPECT_TRUE(text.LoadString(kText300));
    EXPECT_EQ(std::u16string(text.c_str()), Digits(300));
    EXPECT_TRUE(text.LoadString(kText600));
    EXPECT_EQ(text.Length(), 600);
    EXPECT_EQ(std::u16string(text.c_str()), Digits(600));
}

TEST_F(ModuleWinTest, StrOfAMissingTextIsEmpty) {
    Str text(u"before");
    EXPECT_FALSE(text.LoadString(kMissing));
    EXPECT_TRUE(text.IsEmpty());
    EXPECT_EQ(Boxes().size(), 1u);
}

}  // namespace
