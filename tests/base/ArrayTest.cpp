#include "base/Array.h"

#include <gtest/gtest.h>

#include <string>

#include "AlertCapture.h"

TEST(ArrayTest, GetAtMinusOneOnEmptyShowsTheTrapWithIndexAndSize) {
    AlertCapture alerts(/*throwOnAlert=*/true);
    Array<int> empty;
    volatile int index = -1;  // out of range on purpose; the throwing capture stops the read
    EXPECT_THROW((void)empty.GetAt(index), AlertShown);
    ASSERT_EQ(alerts.Alerts().size(), 1u);
    EXPECT_EQ(alerts.Alerts()[0].text, u"Array::GetAt index (-1) out of range (0)");
    EXPECT_EQ(alerts.Alerts()[0].caption, u"Contactbook Tracer");
    EXPECT_EQ(alerts.Alerts()[0].flags, kAlertOk);
}

TEST(ArrayTest, SetAtPastTheEndShowsItsOwnTrap) {
    AlertCapture alerts(true);
    Array<int> a;
    a.Add(1);
    EXPECT_THROW(a.SetAt(1, 5), AlertShown);
    ASSERT_EQ(alerts.Alerts().size(), 1u);
    EXPECT_EQ(alerts.Alerts()[0].text, u"Array::SetAt index (1) out of range (1)");
}

TEST(ArrayTest, SetAtChecksOnlyTheUpperBound) {
    AlertCapture alerts(true);
    Array<int> a;
    a.SetSize(3);
    a.SetAt(2, 7);
    EXPECT_EQ(a.GetAt(2), 7);
    EXPECT_TRUE(alerts.Alerts().empty());
}

TEST(ArrayTest, TheTrapDoesNotChangeControlFlow) {
    // With a box that simply returns, the access still happens after it.
    AlertCapture alerts(false);
    Array<int> a;
    a.SetSize(8);
    a.SetSize(2);  // capacity stays 8: index 2 is inside the allocation
    a.Data()[2] = 0;
    a.SetAt(2, 42);
    EXPECT_EQ(alerts.Alerts().size(), 1u);
    EXPECT_EQ(a.Data()[2], 42);
    EXPECT_EQ(a.GetAt(2), 42);
    EXPECT_EQ(alerts.Alerts().size(), 2u);
}

struct GrowthCase {
    int size;
    int expectedStep;
};

class ArrayGrowthTest : public testing::TestWithParam<GrowthCase> {};

TEST_P(ArrayGrowthTest, AutomaticStepIsAnEighthClampedToFourAnd1024) {
    Array<int> a;
    a.SetSize(GetParam().size);
    ASSERT_EQ(a.Capacity(), GetParam().size);
    a.Add(1);
    EXPECT_EQ(a.Capacity(), GetParam().size + GetParam().expectedStep);
}

INSTANTIATE_TEST_SUITE_P(Sizes, ArrayGrowthTest,
                         testing::Values(GrowthCase{100, 12}, GrowthCase{10, 4},
                                         GrowthCase{20000, 1024}, GrowthCase{1, 4},
                                         GrowthCase{64, 8}));

TEST(ArrayTest, ExplicitGrowthStepIsUsed) {
    Array<int> a;
    a.SetSize(10, 50);
    a.Add(1);
    EXPECT_EQ(a.Capacity(), 60);
}

TEST(ArrayTest, GrowingToMoreThanOneStepTakesExactlyN) {
    Array<int> a;
    a.SetSize(10);
    a.SetSize(100);
    EXPECT_EQ(a.Capacity(), 100);
}

TEST(ArrayTest, SetSizeZeroFreesAndTheNextAddAllocatesExactlyOne) {
    Array<int> a;
    a.SetSize(40);
    a.SetSize(0);
    EXPECT_EQ(a.Capacity(), 0);
    EXPECT_EQ(a.Data(), nullptr);
    a.Add(9);
    EXPECT_EQ(a.Capacity(), 1);
    EXPECT_EQ(a.Size(), 1);
    EXPECT_EQ(a[0], 9);
}

TEST(ArrayTest, ElementsSurviveTheBitwiseMoveOnGrowth) {
    Array<Str> names;
    for (int i = 0; i < 100; ++i) {
        Str s;
        s.Format(u"name %d", i);
        names.Add(s);
    }
    EXPECT_EQ(names.Size(), 100);
    for (int i = 0; i < 100; ++i) {
        Str expected;
        expected.Format(u"name %d", i);
        EXPECT_EQ(names[i], expected);
        EXPECT_EQ(names[i].RefCount(), 1);
    }
}

TEST(ArrayTest, ShrinkingDestroysTheTailAndGrowingInsideCapacityConstructsIt) {
    Array<Str> a;
    a.SetSize(4);
    a[3] = u"tail";
    a.SetSize(2);
    a.SetSize(4);
    EXPECT_TRUE(a[3].IsEmpty());
    EXPECT_EQ(a.Capacity(), 4);
}

TEST(ArrayTest, CopyAssignsElementWise) {
    Array<Str> a;
    a.Add(u"one");
    a.Add(u"two");
    Array<Str> b;
    b.Copy(a);
    ASSERT_EQ(b.Size(), 2);
    EXPECT_TRUE(b[1].SharesBlockWith(a[1]));
    EXPECT_EQ(a[1].RefCount(), 2);
}

TEST(ArrayTest, RemoveAtAndInsertAtKeepOrder) {
    Array<int> a;
    for (int i = 0; i < 5; ++i)
        a.Add(i);
    a.RemoveAt(1, 2);
    ASSERT_EQ(a.Size(), 3);
    EXPECT_EQ(a[0], 0);
    EXPECT_EQ(a[1], 3);
    a.InsertAt(1, 9);
    EXPECT_EQ(a[1], 9);
    EXPECT_EQ(a[2], 3);
    a.InsertAt(4, a[0]);
    EXPECT_EQ(a[4], 0);
}
