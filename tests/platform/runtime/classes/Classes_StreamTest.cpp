// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes.h"
#include "support/TempFolder.h"

#include <algorithm>
#include <array>
#include <fstream>

#include <gtest/gtest.h>

#include <unistd.h>

using namespace Classes;
using System::AnsiString;
using System::Byte;
using System::Int64;
using System::UnicodeString;

namespace
{

std::string Content(const TCustomMemoryStream& stream)
{
    return std::string(stream.AsView());
}

/// Takes or gives three bytes at most with each call, and holds no more than ten.
class SlowStream : public TMemoryStream
{
public:
    ~SlowStream() override = default;
    Int64 Read(void* buffer, Int64 count) override
    {
        return TMemoryStream::Read(buffer, std::min<Int64>(count, 3));
    }
    Int64 Write(const void* buffer, Int64 count) override
    {
        return TMemoryStream::Write(buffer, std::min<Int64>({count, 3, 10 - getPosition()}));
    }
};

TEST(StreamTest, MemoryGrowsAndKeepsItsPosition)
{
    TMemoryStream stream;
    EXPECT_EQ(stream.Write("abcdef", 6), 6);
    EXPECT_EQ(stream.Seek(-2, soEnd), 4);
    stream.WriteBuffer("XYZ", 3);
    EXPECT_EQ(Content(stream), "abcdXYZ");
    EXPECT_EQ(stream.Seek(2, soBeginning), 2);
    EXPECT_EQ(stream.Seek(1, soCurrent), 3);
    char byte = 0;
    EXPECT_EQ(stream.Read(&byte, 1), 1);
    EXPECT_EQ(byte, 'd');

    stream.setPosition(9);
    EXPECT_EQ(stream.Read(&byte, 1), 0);
    EXPECT_EQ(stream.getSize(), 7);
    stream.WriteBuffer("!", 1);
    EXPECT_EQ(Content(stream), std::string("abcdXYZ\0\0!", 10));
    stream.setSize(2);
    EXPECT_EQ(stream.getPosition(), 2);
    stream.Clear();
    EXPECT_EQ(stream.getSize(), 0);
    EXPECT_EQ(stream.getPosition(), 0);
}

TEST(StreamTest, MemoryRefusesImpossibleRequests)
{
    TMemoryStream stream;
    stream.WriteBuffer("abc", 3);
    EXPECT_THROW(stream.setSize(INT64_MAX), Sysutils::EOutOfMemory);
    EXPECT_EQ(Content(stream), "abc");
    EXPECT_EQ(stream.Seek(-10, soCurrent), 0);
    EXPECT_EQ(stream.Seek(INT64_MAX, soEnd), INT64_MAX);
    EXPECT_THROW(stream.Write("x", 1), Sysutils::EOutOfMemory);
    EXPECT_EQ(stream.Seek(INT64_MIN, soCurrent), 0);
    EXPECT_EQ(stream.Read(nullptr, 3), 0);
    std::array<char, 4> buffer{};
    EXPECT_EQ(stream.Read(buffer.data(), -1), 0);
    EXPECT_EQ(stream.Write(buffer.data(), -1), 0);
    EXPECT_EQ(stream.Write(nullptr, 1), 0);
    EXPECT_EQ(stream.Read(buffer.data(), INT64_MAX), 3);
    stream.setSize(-5);
    EXPECT_EQ(stream.getSize(), 0);
}

TEST(StreamTest, MemoryTakesItsOwnBytes)
{
    TMemoryStream stream;
    stream.WriteBuffer("abcdefgh", 8);
    for (int i = 0; i < 4; ++i) {
        stream.SaveToStream(&stream);
    }
    EXPECT_EQ(stream.getSize(), 128);
    stream.setPosition(2);
    stream.WriteBuffer(stream.AsView().data(), 8);
    EXPECT_EQ(Content(stream).substr(0, 16), "ababcdefghcdefgh");
    EXPECT_EQ(Content(stream).substr(112), "abcdefghabcdefgh");
}

TEST(StreamTest, GrowsByMoreThanItNeeds)
{
    TMemoryStream stream;
    int moves = 0;
    Int64 capacity = 0;
    for (int i = 0; i < 100'000; ++i) {
        stream.WriteBuffer("x", 1);
        moves += capacity == stream.getCapacity() ? 0 : 1;
        capacity = stream.getCapacity();
    }
    EXPECT_LT(moves, 40);
}

TEST(StreamTest, BuffersAreWholeOrRaise)
{
    SlowStream stream;
    stream.WriteBuffer("abcdefgh", 8);
    EXPECT_THROW(stream.WriteBuffer("123", 3), EWriteError);
    stream.setPosition(1);
    std::string read(7, ' ');
    stream.ReadBuffer(read.data(), 7);
    EXPECT_EQ(read, "bcdefgh");
    EXPECT_THROW(stream.ReadBuffer(read.data(), 7), EReadError);
}

TEST(StreamTest, CopiesAllOrAPart)
{
    TMemoryStream source;
    for (int i = 0; i < 200'000; ++i) {
        source.WriteBuffer(&"abc"[i % 3], 1);
    }
    TMemoryStream target;
    EXPECT_EQ(target.CopyFrom(&source, 0), 200'000);
    EXPECT_EQ(Content(target), Content(source));
    target.Clear();
    source.setPosition(1);
    EXPECT_EQ(target.CopyFrom(&source, 4), 4);
    EXPECT_EQ(Content(target), "bcab");
    EXPECT_EQ(source.getPosition(), 5);
    source.Seek(-2, soEnd);
    EXPECT_THROW(target.CopyFrom(&source, 3), EReadError);
    EXPECT_THROW(target.CopyFrom(nullptr, 0), EReadError);
    TMemoryStream empty;
    EXPECT_EQ(target.CopyFrom(&empty, 0), 0);
    source.setPosition(7);
    target.LoadFromStream(&source);
    EXPECT_EQ(target.getSize(), 200'000);
    EXPECT_EQ(target.getPosition(), 0);
    target.LoadFromStream(&target);
    EXPECT_EQ(target.getSize(), 200'000);
}

TEST(StreamTest, CopiesAPipeToItsEnd)
{
    const auto pipeWith = [](std::string_view text) {
        std::array<int, 2> ends{};
        EXPECT_EQ(pipe(ends.data()), 0);
        EXPECT_EQ(write(ends[1], text.data(), text.size()), static_cast<ssize_t>(text.size()));
        close(ends[1]);
        return ends[0];
    };
    const int first = pipeWith("abc");
    const int second = pipeWith("defg");
    THandleStream source(first);
    TMemoryStream target;
    EXPECT_EQ(target.CopyFrom(&source, 0), 3);
    EXPECT_EQ(Content(target), "abc");
    THandleStream other(second);
    target.LoadFromStream(&other);
    EXPECT_EQ(Content(target), "defg");
    EXPECT_EQ(target.getPosition(), 0);
    close(first);
    close(second);
}

TEST(StreamTest, StringStreamsHoldTextInAnEncoding)
{
    TStringStream western(UnicodeString(u"ä€\u4E2D"));
    EXPECT_EQ(Content(western), "\xE4\x80?");
    TStringStream utf8(UnicodeString(u"ä\u4E2D"), Sysutils::TEncoding::getUTF8());
    EXPECT_EQ(Content(utf8), "\xC3\xA4\xE4\xB8\xAD");
    EXPECT_EQ(utf8.getDataString(), u"ä\u4E2D");
    TStringStream wide(UnicodeString(u"ab"), new Sysutils::TEncoding(Sysutils::TEncoding::Utf16), true);
    EXPECT_EQ(wide.getSize(), 4);
    EXPECT_EQ(wide.ReadString(2), u"a");
    EXPECT_EQ(wide.ReadString(100), u"b");
    EXPECT_EQ(wide.ReadString(-1), u"");
    wide.setPosition(50);
    EXPECT_EQ(wide.ReadString(1), u"");

    TStringStream bytes(AnsiString("a\0b", 3));
    EXPECT_EQ(bytes.getSize(), 3);
    bytes.Seek(0, soEnd);
    bytes.WriteString(u"ß");
    EXPECT_EQ(bytes.getDataString(), UnicodeString(u"a\0bß", 4));
    EXPECT_EQ(bytes.getBytes(), (std::vector<Byte>{'a', 0, 'b', 0xDF}));
}

TEST(StreamTest, MemoryGoesToAFileAndBack)
{
    const Support::TempFolder folder;
    const UnicodeString path = System::FromUtf8((folder.Path() / "memory").string());
    TMemoryStream stream;
    stream.WriteBuffer("a\0b", 3);
    stream.SaveToFile(path);
    TMemoryStream other;
    other.WriteBuffer("longer before", 13);
    other.LoadFromFile(path);
    EXPECT_EQ(Content(other), std::string("a\0b", 3));
    EXPECT_EQ(other.getPosition(), 0);
    EXPECT_THROW(other.LoadFromFile(path + u"x"), EFOpenError);
    EXPECT_EQ(other.getSize(), 3);
}

TEST(StreamTest, ResourcesAreFoundByNameAndType)
{
    static constexpr std::array<Byte, 3> bytes{'T', 'P', 'F'};
    RegisterResource(u"StreamTestForm", bytes);
    RegisterResource(u"StreamTestForm", std::span(bytes).first(1), u"TEXT");
    TResourceStream stream(u"STREAMTESTFORM");
    EXPECT_EQ(Content(stream), "TPF");
    EXPECT_EQ(Content(TResourceStream(u"StreamTestForm", u"text")), "T");
    EXPECT_THROW(stream.Write("x", 1), EStreamError);
    EXPECT_THROW(TResourceStream(u"StreamTestMissing"), EResNotFound);
    EXPECT_FALSE(ResourceExists(u"StreamTestMissing"));
    EXPECT_TRUE(ResourceExists(u"streamtestform"));
}

} // namespace
