#include "base/Str.h"

#include <gtest/gtest.h>

#include <string>

namespace {
Str Repeat(char16_t c, int n) {
    Str s;
    for (int i = 0; i < n; ++i)
        s.Append(c);
    return s;
}
}  // namespace

TEST(StrTest, DefaultSharesTheProcessWideEmptyBlock) {
    Str a;
    Str b;
    EXPECT_TRUE(a.IsSharedEmptyBlock());
    EXPECT_TRUE(a.SharesBlockWith(b));
    EXPECT_EQ(a.RefCount(), 100);
    EXPECT_EQ(a.Capacity(), 64u);
    EXPECT_EQ(a.Length(), 0);
    EXPECT_EQ(a.c_str()[0], 0);
}

TEST(StrTest, EmptyBlockCountStaysAt100WhenCopied) {
    Str a;
    Str b(a);
    Str c = b;
    EXPECT_EQ(a.RefCount(), 100);
    c = u"x";
    c = a;
    EXPECT_EQ(a.RefCount(), 100);
}

TEST(StrTest, AssigningEmptyOrNullCStringYieldsTheSharedEmptyBlock) {
    Str s(u"text");
    s = u"";
    EXPECT_TRUE(s.IsSharedEmptyBlock());
    EXPECT_EQ(s.Length(), 0);
    s = u"again";
    s = static_cast<const char16_t*>(nullptr);
    EXPECT_TRUE(s.IsSharedEmptyBlock());
    EXPECT_EQ(std::u16string(s.c_str()), u"");
}

TEST(StrTest, AssigningACStringTakesABlockOfExactlyItsLength) {
    Str s(u"hello");
    EXPECT_EQ(s.Length(), 5);
    EXPECT_EQ(s.RefCount(), 1);
    EXPECT_EQ(s.Capacity(), 64u);
}

TEST(StrTest, AssigningOwnTextDoesNothing) {
    Str s(u"hello");
    const char16_t* before = s.c_str();
    s = s.c_str();
    EXPECT_EQ(s.c_str(), before);
    EXPECT_EQ(s, Str(u"hello"));
}

TEST(StrTest, AssigningATailOfOwnTextIsSafe) {
    Str s(u"hello world");
    s = s.c_str() + 6;
    EXPECT_EQ(s, Str(u"world"));
}

TEST(StrTest, CopySharesAndWriteMakesPrivate) {
    Str a(u"shared");
    Str b(a);
    EXPECT_TRUE(a.SharesBlockWith(b));
    EXPECT_EQ(a.RefCount(), 2);
    b.Append(u'!');
    EXPECT_FALSE(a.SharesBlockWith(b));
    EXPECT_EQ(a.RefCount(), 1);
    EXPECT_EQ(a, Str(u"shared"));
    EXPECT_EQ(b, Str(u"shared!"));
}

TEST(StrTest, AppendingEmptyOrNullLeavesTheBlockUntouched) {
    Str a(u"abc");
    Str b(a);
    const char16_t* block = a.c_str();
    a.Append(u"");
    a.Append(static_cast<const char16_t*>(nullptr));
    a.Append(Str());
    EXPECT_EQ(a.c_str(), block);
    EXPECT_EQ(a.RefCount(), 2);
    EXPECT_TRUE(a.SharesBlockWith(b));
}

TEST(StrTest, AppendGrowsInPlaceWhileTheSizeClassHolds) {
    Str s(u"a");
    const char16_t* block = s.c_str();
    s.Append(u"bcdefghij");  // 10 characters: (10 + 7) * 2 = 34 bytes, still the 64-byte class
    EXPECT_EQ(s.c_str(), block);
    EXPECT_EQ(s, Str(u"abcdefghij"));
}

TEST(StrTest, AppendToItselfDoublesTheText) {
    Str s(u"ab");
    s.Append(s);
    EXPECT_EQ(s, Str(u"abab"));
    Str t(Repeat(u'x', 30));
    t.Append(t);
    EXPECT_EQ(t.Length(), 60);
}

TEST(StrTest, AppendOneCharacterTerminates) {
    Str s;
    s.Append(u'z');
    EXPECT_EQ(s.Length(), 1);
    EXPECT_EQ(s.c_str()[1], 0);
}

TEST(StrTest, SizeClasses) {
    EXPECT_EQ(Str::BlockBytesFor(0), 64u);
    EXPECT_EQ(Str::BlockBytesFor(24), 64u);   // 62 bytes
    EXPECT_EQ(Str::BlockBytesFor(25), 128u);  // 64 bytes is not below 64
    EXPECT_EQ(Str::BlockBytesFor(57), 256u);  // 128 bytes falls in the next class
    EXPECT_EQ(Str::BlockBytesFor(56), 128u);
    EXPECT_EQ(Str::BlockBytesFor(248), 512u);
    EXPECT_EQ(Str::BlockBytesFor(249), 512u);  // exactly (249 + 7) * 2
    EXPECT_EQ(Str::BlockBytesFor(300), 614u);
}

TEST(StrTest, FiftySevenCharactersGetA256ByteBlock) {
    Str s = Repeat(u'q', 57);
    Str copy;
    copy = s.c_str();
    EXPECT_EQ(copy.Capacity(), 256u);
    Str big;
    big = Repeat(u'q', 249).c_str();
    EXPECT_EQ(big.Capacity(), 512u);
}

TEST(StrTest, MakeEmptyReleasesUnlessAlreadyZeroLength) {
    Str s(u"abc");
    s.Empty();
    EXPECT_TRUE(s.IsSharedEmptyBlock());
    Str t(u"abc");
    t.GetBuffer(0);
    t.ReleaseBuffer(0);  // a private zero-length block
    const char16_t* block = t.c_str();
    EXPECT_FALSE(t.IsSharedEmptyBlock());
    t.Empty();
    EXPECT_EQ(t.c_str(), block);
}

TEST(StrTest, EqualityByBlockThenLengthThenCharacters) {
    Str a(u"same");
    Str b(u"same");
    EXPECT_FALSE(a.SharesBlockWith(b));
    EXPECT_TRUE(a == b);
    EXPECT_FALSE(a == Str(u"samE"));
    EXPECT_FALSE(a == Str(u"sam"));
    Str c(a);
    EXPECT_TRUE(a == c);
}

TEST(StrTest, LeftAndRightEdgeCases) {
    Str s(u"abcdef");
    EXPECT_TRUE(s.Left(-5).IsSharedEmptyBlock());
    EXPECT_TRUE(s.Left(0).IsSharedEmptyBlock());
    {
        Str whole = s.Left(6);
        EXPECT_TRUE(whole.SharesBlockWith(s));
        EXPECT_EQ(s.RefCount(), 2);
        Str more = s.Left(7);
        EXPECT_TRUE(more.SharesBlockWith(s));
        EXPECT_EQ(s.RefCount(), 3);
    }
    EXPECT_EQ(s.Left(2), Str(u"ab"));
    EXPECT_EQ(s.Right(2), Str(u"ef"));
    EXPECT_TRUE(s.Right(-1).IsEmpty());
    EXPECT_TRUE(s.Right(10).SharesBlockWith(s));
}

TEST(StrTest, MidAndFind) {
    Str s(u"Phone: 123, 456");
    EXPECT_EQ(s.Mid(7, 3), Str(u"123"));
    EXPECT_EQ(s.Mid(12, 100), Str(u"456"));
    EXPECT_EQ(s.Find(u','), 10);
    EXPECT_EQ(s.Find(u"456"), 12);
    EXPECT_EQ(s.Find(u'x'), -1);
    EXPECT_EQ(s.Find(u"1", 9), -1);
}

TEST(StrTest, TrimsUseTheWideWhiteSpaceClass) {
    Str s(u" \t\n\v\f\rtext \r\n");
    s.TrimLeft();
    EXPECT_EQ(s, Str(u"text \r\n"));
    s.TrimRight();
    EXPECT_EQ(s, Str(u"text"));
    Str shared(u"  x");
    Str other(shared);
    shared.TrimLeft();
    EXPECT_EQ(other, Str(u"  x"));
    EXPECT_EQ(shared, Str(u"x"));
}

TEST(StrTest, TrimOfNothingKeepsTheSharedBlock) {
    Str s(u"x");
    Str t(s);
    s.TrimLeft();
    s.TrimRight();
    EXPECT_TRUE(s.SharesBlockWith(t));
}

TEST(StrTest, GetBufferAndReleaseBuffer) {
    Str s(u"ab");
    char16_t* buffer = s.GetBuffer(40);
    EXPECT_EQ(buffer[0], u'a');
    for (int i = 0; i < 40; ++i)
        buffer[i] = static_cast<char16_t>(u'A' + i % 26);
    buffer[40] = 0;
    s.ReleaseBuffer();
    EXPECT_EQ(s.Length(), 40);
    s.GetBuffer(0)[3] = 0;
    s.ReleaseBuffer(-1);
    EXPECT_EQ(s, Str(u"ABC"));
}

TEST(StrTest, GetBufferOnASharedBlockCopiesFirst) {
    Str a(u"abc");
    Str b(a);
    b.GetBuffer(2)[0] = u'X';
    b.ReleaseBuffer(3);
    EXPECT_EQ(a, Str(u"abc"));
    EXPECT_EQ(b, Str(u"Xbc"));
}

TEST(StrTest, AssigningFromALockedBlockCopiesTheCharacters) {
    Str source(u"locked");
    source.LockBuffer();
    EXPECT_LT(source.RefCount(), 0);
    Str target;
    target = source;
    EXPECT_FALSE(target.SharesBlockWith(source));
    EXPECT_EQ(target, Str(u"locked"));
    EXPECT_EQ(target.RefCount(), 1);
    source.UnlockBuffer();
    EXPECT_EQ(source.RefCount(), 1);
}

TEST(StrTest, AssigningIntoALockedBlockKeepsItWhenTheCapacityTestPasses) {
    Str target(u"0123456789");
    char16_t* locked = target.LockBuffer();
    target = Str(u"short");
    EXPECT_EQ(target.c_str(), locked);
    EXPECT_EQ(target, Str(u"short"));
    target.UnlockBuffer();
}

TEST(StrTest, LockedAssignmentComparesCharactersWithBytes) {
    // 40 characters pass the test against a 64-byte capacity (characters against bytes) but do
    // not fit the 25 characters such a block holds: the block is replaced, never overrun.
    Str target(u"x");
    target.LockBuffer();
    Str source = Repeat(u'y', 40);
    target = source;
    EXPECT_EQ(target, source);
    EXPECT_FALSE(target.SharesBlockWith(source));
    // More characters than the capacity figure: a fresh block, as the test says.
    Str big = Repeat(u'z', 70);
    Str lockedTarget(u"x");
    lockedTarget.LockBuffer();
    lockedTarget = big;
    EXPECT_EQ(lockedTarget, big);
    EXPECT_EQ(lockedTarget.RefCount(), 1);
}

TEST(StrTest, CopyOfALockedStrGetsItsOwnBlock) {
    Str s(u"abc");
    s.LockBuffer();
    Str copy(s);
    EXPECT_FALSE(copy.SharesBlockWith(s));
    EXPECT_EQ(copy, Str(u"abc"));
}

TEST(StrTest, MoveLeavesTheSourceEmpty) {
    Str a(u"moved");
    Str b(static_cast<Str&&>(a));
    EXPECT_TRUE(a.IsSharedEmptyBlock());
    EXPECT_EQ(b, Str(u"moved"));
    EXPECT_EQ(b.RefCount(), 1);
}
