#include "app/StartupRules.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::u16string Text(const Str& s) {
    return s.c_str();
}

TEST(StartupRulesTest, SkinFolderSitsBesideTheProgram) {
    EXPECT_EQ(Text(SkinFolderFor(u"\\Program Files\\Dialdeck\\Dialdeck.exe")),
              u"\\Program Files\\Dialdeck\\DialdeckSkin");
    EXPECT_EQ(Text(SkinFolderFor(u"C:\\a\\b.exe")), u"C:\\a\\DialdeckSkin");
}

TEST(StartupRulesTest, SkinFolderCutsAtTheLastBackslashOnly) {
    EXPECT_EQ(Text(SkinFolderFor(u"C:\\x.y\\z\\")), u"C:\\x.y\\z\\DialdeckSkin");
    EXPECT_EQ(Text(SkinFolderFor(u"\\Dialdeck.exe")), u"\\DialdeckSkin");
}

TEST(StartupRulesTest, PathWithoutBackslashIsDroppedWhole) {
    EXPECT_EQ(Text(SkinFolderFor(u"Dialdeck.exe")), u"\\DialdeckSkin");
    EXPECT_EQ(Text(SkinFolderFor(u"C:/a/b.exe")), u"\\DialdeckSkin");
}

TEST(StartupRulesTest, UnreadablePathGivesNoSkinFolder) {
    EXPECT_TRUE(SkinFolderFor(nullptr).IsEmpty());
    EXPECT_TRUE(SkinFolderFor(u"").IsEmpty());
}

TEST(StartupRulesTest, ResourceLibraryFollowsResolution) {
    EXPECT_EQ(std::u16string(ResourceLibraryName(true)), u"DialdeckResVga.dll");
    EXPECT_EQ(std::u16string(ResourceLibraryName(false)), u"DialdeckRes.dll");
}

struct CommandLineCase {
    const char16_t* commandLine;
    bool preload;
};

class PreloadCases : public ::testing::TestWithParam<CommandLineCase> {};

TEST_P(PreloadCases, OnlyExactlyPreIsPreload) {
    EXPECT_EQ(IsPreloadCommandLine(GetParam().commandLine), GetParam().preload);
}

INSTANTIATE_TEST_SUITE_P(
    CommandLines, PreloadCases,
    ::testing::Values(CommandLineCase{u"pre", true}, CommandLineCase{u"PRE", false},
                      CommandLineCase{u"Pre", false}, CommandLineCase{u" pre", false},
                      CommandLineCase{u"pre ", false}, CommandLineCase{u"pre\t", false},
                      CommandLineCase{u"pr", false}, CommandLineCase{u"prel", false},
                      CommandLineCase{u"\"pre\"", false}, CommandLineCase{u"", false},
                      CommandLineCase{nullptr, false}));

struct ArgumentsCase {
    const char16_t* full;
    const char16_t* arguments;
};

class ArgumentsCases : public ::testing::TestWithParam<ArgumentsCase> {};

TEST_P(ArgumentsCases, ProgramNameAndOneSeparatorAreSkipped) {
    EXPECT_EQ(std::u16string(CommandLineArguments(GetParam().full)),
              std::u16string(GetParam().arguments));
}

INSTANTIATE_TEST_SUITE_P(
    CommandLines, ArgumentsCases,
    ::testing::Values(ArgumentsCase{u"Dialdeck.exe pre", u"pre"},
                      ArgumentsCase{u"\"C:\\Program Files\\Dialdeck.exe\" pre", u"pre"},
                      ArgumentsCase{u"\"C:\\Program Files\\Dialdeck.exe\"  pre", u" pre"},
                      ArgumentsCase{u"Dialdeck.exe pre ", u"pre "},
                      ArgumentsCase{u"Dialdeck.exe\tPRE", u"PRE"},
                      ArgumentsCase{u"Dialdeck.exe", u""}, ArgumentsCase{u"\"Dialdeck.exe\"", u""},
                      ArgumentsCase{u"\"Dialdeck.exe\"pre", u"pre"},
                      ArgumentsCase{u"\"unterminated pre", u""}, ArgumentsCase{u"", u""},
                      ArgumentsCase{nullptr, u""}));

}  // namespace
