#include "phone/KeyHookStamp.h"

#include <gtest/gtest.h>

namespace {

TEST(KeyHookStampTest, EachCallMovesTheStampBackByExactlyTwoThousand) {
    EXPECT_EQ(LoweredKeyStamp(5000), 3000u);
    EXPECT_EQ(LoweredKeyStamp(LoweredKeyStamp(5000)), 1000u);
    EXPECT_EQ(LoweredKeyStamp(2000), 0u);
}

TEST(KeyHookStampTest, StampBelowTwoThousandWrapsAsUnsigned) {
    EXPECT_EQ(LoweredKeyStamp(0), 0xFFFFF830u);
    EXPECT_EQ(LoweredKeyStamp(1999), 0xFFFFFFFFu);
    EXPECT_EQ(LoweredKeyStamp(0xFFFFFFFFu), 0xFFFFF82Fu);
}

}  // namespace
