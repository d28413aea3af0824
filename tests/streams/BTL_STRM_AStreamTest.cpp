// SPDX-License-Identifier: MIT
#include "streams/BTL_STRM_AStream.h"
#include "foundation/UTL_ASRT_Assert.h"
#include "platform/toolkit/MessageBox.h"
#include "streams/BTL_STRM_InStream.h"
#include "streams/BTL_STRM_OutStream.h"
#include "streams/ForwardOnlySupport.h"
#include "streams/StreamStateSupport.h"
#include "support/ScriptedBoxes.h"

#include <algorithm>
#include <span>

#include <gtest/gtest.h>

using BTL::CInStream;
using BTL::COutStream;
using System::AnsiString;
using System::Int64;

namespace
{

/// Raises behind some bytes.
class BrokenStream : public Classes::TMemoryStream
{
public:
    ~BrokenStream() override = default;
    Int64 Read(void* buffer, Int64 count) override
    {
        if (getPosition() >= 3) {
            throw Classes::EReadError(u"broken");
        }
        return TMemoryStream::Read(buffer, std::min<Int64>(count, 3 - getPosition()));
    }
    Int64 Write(const void* buffer, Int64 count) override
    {
        if (getPosition() + count > 5) {
            throw Classes::EWriteError(u"broken");
        }
        return TMemoryStream::Write(buffer, count);
    }
};

/// Raises at the question whether it is at its end.
class SizelessStream : public Classes::TMemoryStream
{
public:
    ~SizelessStream() override = default;
    Int64 getSize() const override { throw Classes::EStreamError(u"no size"); }
};

TEST(AStreamTest, ExceptionsOfTheStreamSetBad)
{
    const auto reads = {+[](CInStream& stream) { stream.get(); },
                        +[](CInStream& stream) {
                            int value = 0;
                            stream >> value;
                        },
                        +[](CInStream& stream) {
                            AnsiString value;
                            stream >> value;
                        },
                        +[](CInStream& stream) {
                            char buffer[8];
                            stream.getline(buffer, 8);
                        },
                        +[](CInStream& stream) {
                            char buffer[8];
                            stream.read(buffer, 8);
                        }};
    for (const auto& read : reads) {
        BrokenStream broken;
        broken.WriteBuffer("12345", 5);
        CInStream stream(&broken, BTL::ssRewind);
        stream.seekg(3);
        EXPECT_THROW(read(stream), Classes::EReadError);
        EXPECT_EQ(Support::StateOf(stream), "b3");
    }
    // A single character needs no size.
    for (const auto& read : std::span(reads.begin(), reads.end()).subspan(1)) {
        SizelessStream sizeless;
        CInStream stream(&sizeless, BTL::ssKeep);
        EXPECT_THROW(read(stream), Classes::EStreamError);
        EXPECT_TRUE(stream.bad());
    }
    BrokenStream broken;
    COutStream stream(&broken, BTL::ssKeep);
    EXPECT_THROW(stream << "123456", Classes::EWriteError);
    EXPECT_TRUE(stream.bad());
}

TEST(AStreamTest, SurplusReleasesAreInternalFaults)
{
    const Support::ScriptedBoxes boxes{IDYES, IDYES, IDNO};
    COutStream stream;
    stream.Release();
    try {
        stream.Release();
        FAIL();
    } catch (const UTL::XAssert& fault) {
        EXPECT_EQ(fault.getExpression(), u"Unexpected AStream release.");
        EXPECT_EQ(fault.getFile(), "BTL_STRM_AStream.cpp");
        EXPECT_EQ(fault.getLine(), 140);
    }
    EXPECT_THROW(CInStream(nullptr, BTL::ssKeep), UTL::XAssert);
    EXPECT_EQ(CInStream(nullptr, BTL::ssKeep).get(), '\0');
}

class TextOfForwardOnlyTest : public Support::ForwardOnlyTest
{
};

INSTANTIATE_TEST_SUITE_P(Kinds, TextOfForwardOnlyTest, Support::EveryForwardKind);

TEST_P(TextOfForwardOnlyTest, WordsAndNumbersAreRead)
{
    for (const auto sync : {BTL::ssKeep, BTL::ssRewind}) {
        CInStream stream(With("  12 abc -3.5;line one\nline two\n1234567890rest"), sync);
        int integer = 0;
        double real = 0;
        AnsiString word;
        char c = 0;
        EXPECT_TRUE(stream >> integer >> word >> real >> c);
        EXPECT_EQ(integer, 12);
        EXPECT_EQ(word, "abc");
        EXPECT_EQ(real, -3.5);
        EXPECT_EQ(c, ';');
        char line[20];
        stream.getline(line, 20);
        EXPECT_STREQ(line, "line one");
        stream.get(line, 20, '\n');
        EXPECT_STREQ(line, "line two");
        EXPECT_EQ(stream.get(), '\n');
        EXPECT_TRUE(stream.read(line, 10)) << "more than comes at once";
        EXPECT_EQ(std::string(line, 10), "1234567890");
        EXPECT_EQ(stream.tellg(), -1);
        EXPECT_TRUE(stream >> word);
        EXPECT_EQ(word, "rest");
        EXPECT_EQ(Support::StateOf(stream), "-1");
        EXPECT_FALSE(stream >> word);
        EXPECT_EQ(Support::StateOf(stream), "e-1");
        EXPECT_EQ(stream.get(), '\0');
        EXPECT_EQ(Support::StateOf(stream), "ef-1");
    }
}

TEST_P(TextOfForwardOnlyTest, APlaceToGoToIsRefusedAtOnce)
{
    CInStream stream(With("12 13"), BTL::ssKeep);
    EXPECT_THROW(stream.seekg(1), Classes::EStreamError);
    int value = 0;
    EXPECT_TRUE(stream >> value);
    EXPECT_EQ(value, 12);
    EXPECT_THROW(stream.seekg(-1, std::ios_base::cur), Classes::EStreamError);
    EXPECT_EQ(stream.seekoff(0, std::ios_base::cur), -1);
    EXPECT_TRUE(stream >> value);
    EXPECT_EQ(value, 13);
}

std::string Words(int count)
{
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += std::to_string(i) + (i % 10 == 9 ? "\r\n" : " ");
    }
    return text;
}

/// The sum of the numbers of a text of `Words`.
System::Int64 SumOfWords(CInStream& stream)
{
    System::Int64 sum = 0;
    AnsiString word;
    while (stream >> word) {
        sum += std::stoi(word.c_str());
    }
    return sum;
}

TEST_P(TextOfForwardOnlyTest, LongTextsComeWhole)
{
    CInStream stream(With(Words(20'000)), BTL::ssRewind);
    EXPECT_EQ(SumOfWords(stream), 20'000 * 19'999 / 2);
    EXPECT_TRUE(stream.eof());
}

TEST(AStreamTest, AnOwnClassThatOnlyReadsIsReadInBlocks)
{
    const std::string text = Words(20'000);
    Support::OwnReader source(text);
    CInStream stream(&source, BTL::ssRewind);
    EXPECT_EQ(SumOfWords(stream), 20'000 * 19'999 / 2);
    EXPECT_LE(source.reads, static_cast<int>(text.size()) / 7 + 10);
    EXPECT_LE(source.seeks, 10);
}

/// A class of a user's own that can seek, and counts what it is asked for.
class OwnSeeker : public Classes::TMemoryStream
{
public:
    ~OwnSeeker() override = default;
    Int64 Read(void* buffer, Int64 count) override
    {
        ++calls;
        return TMemoryStream::Read(buffer, count);
    }
    Int64 Seek(Int64 offset, Classes::TSeekOrigin origin) override
    {
        ++calls;
        return TMemoryStream::Seek(offset, origin);
    }

    int calls = 0;
};

TEST(AStreamTest, AnOwnClassThatSeeksStandsBehindWhatWasRead)
{
    OwnSeeker source;
    const std::string text = Words(2000);
    source.WriteBuffer(text.data(), static_cast<Int64>(text.size()));
    CInStream stream(&source, BTL::ssRewind);
    source.calls = 0;
    std::size_t expected = 0;
    AnsiString word;
    for (int i = 0; stream >> word; ++i) {
        expected = text.find_first_not_of(" \r\n", expected) + word.AsView().size();
        ASSERT_EQ(source.TMemoryStream::Seek(0, Classes::soCurrent), static_cast<Int64>(expected));
    }
    EXPECT_EQ(stream.tellg(), static_cast<Int64>(text.size()));
    EXPECT_LE(source.calls, 2000 * 8) << "no call for each byte";
}

TEST(AStreamTest, TellsAsAConditionWhetherTheLastOperationWorked)
{
    CInStream words("one two");
    AnsiString word;
    int count = 0;
    while (words >> word) {
        ++count;
    }
    EXPECT_EQ(count, 2);
    EXPECT_EQ(Support::StateOf(words), "e7");
    EXPECT_TRUE(!words);
    words.clear();
    EXPECT_TRUE(words);

    CInStream numbers("1 2 x");
    int value = 0;
    count = 0;
    while (numbers >> value) {
        ++count;
    }
    EXPECT_EQ(count, 2);
    EXPECT_EQ(Support::StateOf(numbers), "f4");

    CInStream last("7");
    EXPECT_TRUE(last >> value) << "the end behind a number is no failure";
    EXPECT_EQ(Support::StateOf(last), "e1");
    EXPECT_FALSE(last >> value);
    COutStream out;
    EXPECT_TRUE(out << "x");
}

} // namespace
