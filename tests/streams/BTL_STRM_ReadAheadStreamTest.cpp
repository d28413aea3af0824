// SPDX-License-Identifier: MIT
#include "streams/BTL_STRM_ReadAheadStream.h"
#include "streams/BTL_STRM_StreamUtilities.h"
#include "streams/ForwardOnlySupport.h"

#include <gtest/gtest.h>

using BTL::CReadAheadStream;
using System::Int64;

namespace
{

class ReadAheadStreamTest : public Support::ForwardOnlyTest
{
};

INSTANTIATE_TEST_SUITE_P(Kinds, ReadAheadStreamTest, Support::EveryForwardKind);

TEST_P(ReadAheadStreamTest, LooksAheadWhereTheSourceCant)
{
    CReadAheadStream stream(With("one;22xthree"));
    EXPECT_FALSE(BTL::Eof(&stream));
    EXPECT_EQ(BTL::PeekChar(&stream), 'o');
    EXPECT_EQ(BTL::ReadStringUntil(&stream, ';'), "one");
    EXPECT_EQ(BTL::ReadIntegerUnget(&stream, 0), 22);
    EXPECT_EQ(BTL::ReadChar(&stream), 'x');
    EXPECT_EQ(stream.getPosition(), -1);
    EXPECT_EQ(stream.getSize(), -1);
    EXPECT_EQ(BTL::ReadBytes(&stream, 100), "three");
    EXPECT_TRUE(BTL::Eof(&stream));
}

TEST(ReadAheadTest, ReadsInBlocks)
{
    const std::string content(100'000, 'x');
    Support::OwnReader source(content);
    CReadAheadStream stream(&source);
    int count = 0;
    while (!BTL::Eof(&stream)) {
        ASSERT_EQ(BTL::ReadChar(&stream), 'x');
        ++count;
    }
    EXPECT_EQ(count, 100'000);
    EXPECT_LE(source.reads, 100'000 / 7 + 10);
}

TEST(ReadAheadTest, KeepsTheOrderWithASourceThatSeeks)
{
    Classes::TMemoryStream memory;
    memory.WriteBuffer("0123456789", 10);
    memory.setPosition(0);
    {
        CReadAheadStream stream(&memory);
        EXPECT_EQ(BTL::PeekChar(&stream), '0');
        EXPECT_EQ(BTL::ReadBytes(&stream, 3), "012");
        EXPECT_EQ(stream.getPosition(), 3);
        EXPECT_EQ(stream.getSize(), 10);
        EXPECT_EQ(stream.Seek(2, Classes::soCurrent), 5);
        EXPECT_EQ(BTL::PeekChar(&stream), '5');
        EXPECT_EQ(stream.Seek(-4, Classes::soCurrent), 1);
        EXPECT_EQ(BTL::PeekChar(&stream), '1');
        EXPECT_EQ(stream.Write("ab", 2), 2);
        EXPECT_EQ(BTL::PeekChar(&stream), '3');
    }
    EXPECT_EQ(memory.getPosition(), 3);
    EXPECT_EQ(memory.AsView(), "0ab3456789");
}

/// Tells its position, but can't go back.
class Counter : public Support::OwnReader
{
public:
    using OwnReader::OwnReader;
    ~Counter() override = default;
    Int64 Read(void* buffer, Int64 count) override
    {
        const Int64 done = OwnReader::Read(buffer, count);
        mCount += done;
        return done;
    }
    Int64 Seek(Int64 offset, Classes::TSeekOrigin origin) override
    {
        return origin == Classes::soCurrent && offset == 0 ? mCount : -1;
    }

private:
    Int64 mCount = 0;
};

/// Answers each seek with 0.
class Mute : public Support::OwnReader
{
public:
    using OwnReader::OwnReader;
    ~Mute() override = default;
    Int64 Seek(Int64, Classes::TSeekOrigin) override { return 0; }
};

TEST(ReadAheadTest, LosesNothingOfASourceThatOnlySeemsToSeek)
{
    const std::string content = "the quick brown fox";
    Counter counter(content);
    Mute mute(content);
    for (Classes::TStream* const source :
         {static_cast<Classes::TStream*>(&counter), static_cast<Classes::TStream*>(&mute)}) {
        CReadAheadStream stream(source);
        EXPECT_EQ(BTL::PeekChar(&stream), 't');
        stream.GiveBack();
        EXPECT_EQ(BTL::ReadStringUntil(&stream, ' '), "the");
        stream.GiveBack();
        EXPECT_EQ(BTL::ReadBytes(&stream, 100), "quick brown fox");
        EXPECT_TRUE(BTL::Eof(&stream));
    }
}

TEST(ReadAheadTest, OwnsItsSourceOnRequest)
{
    bool isGone = false;
    class Witness : public Support::OwnReader
    {
    public:
        Witness(std::string_view content, bool& gone) : OwnReader(content), mGone(gone) {}
        ~Witness() override { mGone = true; }

    private:
        bool& mGone;
    };
    {
        CReadAheadStream stream(std::make_unique<Witness>("x", isGone));
        EXPECT_EQ(BTL::ReadChar(&stream), 'x');
        EXPECT_FALSE(isGone);
    }
    EXPECT_TRUE(isGone);
}

} // namespace
