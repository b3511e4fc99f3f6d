#include "service/NumberIdentity.h"

#include <gtest/gtest.h>

namespace {

struct Case {
    const char16_t* a;
    const char16_t* b;
    bool same;
};

class SameNumberTest : public ::testing::TestWithParam<Case> {};

TEST_P(SameNumberTest, BothDirections) {
    std::u16string a = DigitsOf(GetParam().a);
    std::u16string b = DigitsOf(GetParam().b);
    EXPECT_EQ(SameNumber(a, b), GetParam().same);
    EXPECT_EQ(SameNumber(b, a), GetParam().same);
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, SameNumberTest,
    ::testing::Values(Case{u"+7 912 123-45-67", u"89121234567", true},
                      Case{u"+7 912 123-45-67", u"79121234567", true},
                      Case{u"+44 20 7946 0958", u"020 7946 0958", true},
                      Case{u"+49 30 123456", u"030 123456", true},
                      Case{u"+1 212 555 1234", u"212-555-1234", true},
                      Case{u"0079121234567", u"8 912 123 45 67", true},
                      Case{u"123-4567", u"1234567", true},
                      Case{u"+7 912 123-45-67", u"123-45-67", true},  // seven-digit tail
                      Case{u"+7 912 123-45-67", u"23-45-67", false},  // six digits are not enough
                      Case{u"+1 312 555 1234", u"212-555-1234", false},
                      Case{u"+7 912 123-45-67", u"+7 912 123-45-68", false},
                      Case{u"112", u"112", true}, Case{u"112", u"911", false},
                      Case{u"", u"", false}, Case{u"abc", u"", false}));

TEST(NumberIdentityTest, DigitsOfKeepsOnlyDigits) {
    EXPECT_EQ(DigitsOf(u"+7 (912) 123-45-67 ext. 9"), u"791212345679");
}

}  // namespace
