#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <sstream>
#include <string>

#include "AlertCapture.h"
#include "TempDir.h"
#include "base/LocaleMemory.h"
#include "base/ModuleMemory.h"
#include "base/Str.h"

namespace {

class StrLoadTest : public testing::Test {
  protected:
    void SetUp() override {
        module_memory::Reset();
        library_ = module_memory::MakeModule();
        SetResourceModule(library_);
        locale_text::SetFixedLogStamp(u"2026.01.02 03:04:05 - ");
    }
    void TearDown() override {
        SetResourceModule(nullptr);
        locale_text::SetFixedLogStamp(nullptr);
    }
    std::string Log() const {
        std::ifstream in(dir_.Path() / "error.log", std::ios::binary);
        std::stringstream text;
        text << in.rdbuf();
        return text.str();
    }

    TempDir dir_;
    ModuleHandle library_ = nullptr;
};

}  // namespace

TEST_F(StrLoadTest, LoadsAShortStringFromTheResourceLibrary) {
    module_memory::SetString(library_, 107, u"Unnamed");
    Str s;
    EXPECT_TRUE(s.LoadString(107));
    EXPECT_EQ(s, Str(u"Unnamed"));
    EXPECT_EQ(module_memory::LoadBufferSizes(), std::vector<int>{256});
}

TEST_F(StrLoadTest, A255CharacterStringIsLoadedAgainInto512) {
    std::u16string text(255, u'w');
    module_memory::SetString(library_, 200, text.c_str());
    Str s;
    EXPECT_TRUE(s.LoadString(200));
    EXPECT_EQ(s.Length(), 255);
    EXPECT_EQ(module_memory::LoadBufferSizes(), (std::vector<int>{256, 512}));
}

TEST_F(StrLoadTest, A254CharacterStringIsLoadedOnce) {
    std::u16string text(254, u'w');
    module_memory::SetString(library_, 201, text.c_str());
    Str s;
    EXPECT_TRUE(s.LoadString(201));
    EXPECT_EQ(s.Length(), 254);
    EXPECT_EQ(module_memory::LoadBufferSizes(), std::vector<int>{256});
}

TEST_F(StrLoadTest, ALongStringGrowsTheBufferBy256EachRound) {
    std::u16string text(700, u'l');
    module_memory::SetString(library_, 202, text.c_str());
    Str s;
    EXPECT_TRUE(s.LoadString(202));
    EXPECT_EQ(s.Length(), 700);
    EXPECT_EQ(module_memory::LoadBufferSizes(), (std::vector<int>{256, 512, 768}));
}

TEST_F(StrLoadTest, AMissingIdGivesEmptyTextOneLogLineAndOneBox) {
    AlertCapture alerts;
    Str s(u"before");
    EXPECT_FALSE(s.LoadString(999));
    EXPECT_TRUE(s.IsEmpty());
    ASSERT_EQ(alerts.Alerts().size(), 1u);
    EXPECT_EQ(alerts.Alerts()[0].text, u"SafeLoadStr failed, resid: 999");
    EXPECT_EQ(alerts.Alerts()[0].caption, u"Contactbook Tracer");
    EXPECT_EQ(alerts.Alerts()[0].flags, kAlertOk);
    std::string log = Log();
    std::string prefix = "2026.01.02 03:04:05 - Resource loading fail (id: 999 hInst: ";
    ASSERT_EQ(log.compare(0, prefix.size(), prefix), 0) << log;
    std::string suffix = ")\t\tStr:  (174)\r\n";
    ASSERT_GE(log.size(), suffix.size());
    EXPECT_EQ(log.substr(log.size() - suffix.size()), suffix);
    EXPECT_EQ(std::count(log.begin(), log.end(), '\n'), 1);
}

TEST_F(StrLoadTest, EveryFailureShowsItsOwnBox) {
    AlertCapture alerts;
    char16_t buffer[8] = u"xyz";
    EXPECT_EQ(SafeLoadStr(1, buffer, 8), 0);
    EXPECT_EQ(buffer[0], 0);
    EXPECT_EQ(SafeLoadStr(1, buffer, 8), 0);
    EXPECT_EQ(alerts.Alerts().size(), 2u);
}

TEST_F(StrLoadTest, WithoutAResourceLibraryTheProgramModuleIsUsedAndRemembered) {
    SetResourceModule(nullptr);
    EXPECT_EQ(ResourceModule(), ProgramModule());
    module_memory::SetString(ProgramModule(), 5, u"own");
    Str s;
    EXPECT_TRUE(s.LoadString(5));
    EXPECT_EQ(s, Str(u"own"));
}

TEST_F(StrLoadTest, AnExplicitModuleWins) {
    ModuleHandle other = module_memory::MakeModule();
    module_memory::SetString(other, 9, u"other");
    char16_t buffer[16];
    EXPECT_EQ(SafeLoadStr(9, buffer, 16, other), 5);
    EXPECT_EQ(std::u16string(buffer), u"other");
}
