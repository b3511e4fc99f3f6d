#include "phone/ServiceCode.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace {

std::vector<uint8_t> Block(std::u16string_view code) {
    std::vector<uint8_t> block(ServiceCodeBlockSize(code.size()), 0xCC);
    LayOutServiceCodeBlock(code, block.data());
    return block;
}

TEST(ServiceCodeTest, OnlyANumberEndingInHashIsAServiceCode) {
    EXPECT_TRUE(IsServiceCode(u"*100#"));
    EXPECT_TRUE(IsServiceCode(u"#"));
    EXPECT_TRUE(IsServiceCode(u"*#06#"));
    EXPECT_FALSE(IsServiceCode(u"#31#123"));
    EXPECT_FALSE(IsServiceCode(u"+7 912 123-45-67"));
    EXPECT_FALSE(IsServiceCode(u"*100# "));
    EXPECT_FALSE(IsServiceCode(u""));
}

TEST(ServiceCodeTest, BlockSizeFollowsTheRoundedFormula) {
    struct Case {
        size_t length;
        size_t size;
    };
    const Case cases[] = {{0, 24}, {1, 24}, {2, 28}, {3, 28},  {4, 32},
                          {5, 32}, {6, 36}, {7, 36}, {20, 64}, {21, 64}};
    for (const Case& c : cases) {
        EXPECT_EQ(ServiceCodeBlockSize(c.length), c.size) << "length " << c.length;
        // Header, text and terminator always fit.
        EXPECT_GE(ServiceCodeBlockSize(c.length), kServiceCodeTextOffset + 2 * c.length + 2);
    }
}

TEST(ServiceCodeTest, FiveCharacterCodeGivesThirtyTwoExactBytes) {
    const std::vector<uint8_t> expected = {
        1,   0, 0,   0, 20,  0, 0,   0, 0,   0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,  // header
        '*', 0, '1', 0, '0', 0, '0', 0, '#', 0, 0, 0};                         // text, terminator
    EXPECT_EQ(Block(u"*100#"), expected);
}

TEST(ServiceCodeTest, EvenLengthLeavesTwoZeroBytesAfterTheTerminator) {
    const std::vector<uint8_t> expected = {
        1,   0, 0,   0, 20,  0, 0,   0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,  // header
        '*', 0, '2', 0, '1', 0, '#', 0, 0, 0,                                // text, terminator
        0,   0};                                                             // spare
    EXPECT_EQ(Block(u"*21#"), expected);
}

TEST(ServiceCodeTest, TextIsLittleEndianUtf16) {
    const std::vector<uint8_t> block = Block(u"\u0416\u20AC#");
    ASSERT_EQ(block.size(), 28u);
    EXPECT_EQ(block[20], 0x16);
    EXPECT_EQ(block[21], 0x04);
    EXPECT_EQ(block[22], 0xAC);
    EXPECT_EQ(block[23], 0x20);
    EXPECT_EQ(block[24], '#');
    EXPECT_EQ(block[25], 0);
    EXPECT_EQ(block[26], 0);
    EXPECT_EQ(block[27], 0);
}

}  // namespace
