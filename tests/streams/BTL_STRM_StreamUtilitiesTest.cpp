// SPDX-License-Identifier: MIT
#include "streams/BTL_STRM_StreamUtilities.h"
#include "streams/AnyStreamSupport.h"
#include "streams/BTL_STRM_FileOutStream.h"
#include "streams/BTL_STRM_StdIOStream.h"
#include "streams/BTL_STRM_Stream.h"
#include "streams/BTL_STRM_TextWriter.h"
#include "streams/ForwardOnlySupport.h"
#include "support/ChildProgram.h"
#include "support/FileSizeLimit.h"
#include "support/TempFolder.h"
#include "text/lists/BTL_STR_IntSet.h"

#include <array>
#include <climits>
#include <functional>
#include <type_traits>

#include <gtest/gtest.h>

#include <unistd.h>

using System::AnsiString;
using System::Int64;
using System::UTF8String;

namespace
{

class StreamUtilitiesTest : public Support::AnyStreamTest
{
};

INSTANTIATE_TEST_SUITE_P(Kinds, StreamUtilitiesTest, Support::EveryStreamKind);

TEST_P(StreamUtilitiesTest, UtilitiesReadPieces)
{
    using Classes::TStream;
    const auto until = [](const AnsiString& delimiter) {
        return [=](TStream* stream) { return BTL::ReadStringUntil(stream, delimiter); };
    };
    const auto untilComma = [](TStream* stream) { return BTL::ReadStringUntil(stream, ','); };
    const auto untilEither = [](TStream* stream) { return BTL::ReadStringUntil2(stream, ',', ';'); };
    const auto line = [](TStream* stream) { return BTL::ReadLine(stream); };
    const auto bytes = [](int count) {
        return [=](TStream* stream) { return BTL::ReadBytes(stream, count); };
    };
    using TResult = std::pair<AnsiString, Int64>;
    EXPECT_EQ(After("ab,cd", untilComma), TResult("ab", 3));
    EXPECT_EQ(After("abcd", untilComma), TResult("abcd", 4));
    EXPECT_EQ(After("ab;c,d", untilEither), TResult("ab", 3));
    EXPECT_EQ(After("a;" + AnsiString::StringOfChar('x', 300) + ",", untilEither), TResult("a", 2));
    for (const int length : {0, 254, 255, 256, 257, 511, 512, 513, 5000}) {
        const AnsiString piece = AnsiString::StringOfChar('x', length);
        EXPECT_EQ(After(piece + ";b,", untilEither), TResult(piece, length + 1));
        EXPECT_EQ(After(piece + ",b;", untilEither), TResult(piece, length + 1));
        EXPECT_EQ(After(piece, untilEither), TResult(piece, length));
        EXPECT_EQ(After(piece + "\r\nb", line), TResult(piece, length + 2));
    }
    EXPECT_EQ(After("a--->b", until("-->")), TResult("a-", 5));
    EXPECT_EQ(After("a--b", until("-->")), TResult("a--b", 4));
    EXPECT_EQ(After("ab", until("")), TResult("ab", 2));
    EXPECT_EQ(After("ab\r\ncd", line), TResult("ab", 4));
    EXPECT_EQ(After("ab\rx\ncd", line), TResult("ab", 5));
    EXPECT_EQ(After("ab\rx\r\ncd", line), TResult("ab", 6));
    EXPECT_EQ(After("ab\r", line), TResult("ab", 3));
    EXPECT_EQ(After("ab\ncd", line), TResult("ab\ncd", 5));
    EXPECT_EQ(After("abc", bytes(2)), TResult("ab", 2));
    EXPECT_EQ(After("abc", bytes(INT_MAX)), TResult("abc", 3));
    EXPECT_EQ(After("abc", bytes(-1)), TResult("", 0));
    EXPECT_EQ(BTL::ReadUTF8StringUntil(With("\xC3\xA4,"), ','), UTF8String("\xC3\xA4"));
    EXPECT_EQ(BTL::LoadStringFromStream(With("all")), "all");
}

TEST_P(StreamUtilitiesTest, UtilitiesMoveThePosition)
{
    Classes::TStream* const stream = With("a b\nc;d\ne");
    EXPECT_EQ(BTL::ReadChar(stream), 'a');
    EXPECT_EQ(BTL::PeekChar(stream), ' ');
    EXPECT_EQ(stream->getPosition(), 1);
    BTL::SkipLine(stream);
    EXPECT_EQ(stream->getPosition(), 4);
    BTL::SkipUntil(stream, ';');
    EXPECT_EQ(BTL::GetCurrStrLine(stream), "c;d\ne");
    EXPECT_EQ(stream->getPosition(), 6);
    BTL::SkipBytes(stream, -3);
    EXPECT_EQ(stream->getPosition(), 3);
    BTL::SkipBytes(stream, 100);
    EXPECT_EQ(stream->getPosition(), 8);
    BTL::SkipBytes(stream, -100);
    EXPECT_EQ(stream->getPosition(), 0);
    BTL::SkipWhitespaces(stream);
    EXPECT_EQ(stream->getPosition(), 2);
    BTL::ReadUntil(stream, 'x');
    EXPECT_TRUE(BTL::Eof(stream));
    EXPECT_EQ(BTL::ReadChar(stream), '\0');
    EXPECT_EQ(BTL::PeekChar(stream), '\0');
    EXPECT_EQ(BTL::CountLines(stream, -1), 2);
    EXPECT_EQ(BTL::CountLines(stream, 4), 1);
    EXPECT_EQ(stream->getPosition(), 4);
    EXPECT_EQ(BTL::GetSize(stream), 9);

    Classes::TStream* const lines = With("first\r\n" + std::string(2000, 'x') + "\r\nlast");
    lines->setPosition(1500);
    EXPECT_EQ(BTL::GetCurrStrLine(lines), AnsiString::StringOfChar('x', 2000));
    EXPECT_EQ(lines->getPosition(), 1500);
}

TEST_P(StreamUtilitiesTest, UtilitiesReadIntegers)
{
    using Classes::TStream;
    const auto read = [](TStream* stream) { return BTL::ReadIntegerDef(stream, 7); };
    const auto unget = [](TStream* stream) { return BTL::ReadIntegerUnget(stream, 7); };
    using TResult = std::pair<int, Int64>;
    EXPECT_EQ(After("12;", read), TResult(12, 3));
    EXPECT_EQ(After("-12", read), TResult(-12, 3));
    EXPECT_EQ(After("abc", read), TResult(7, 1));
    EXPECT_EQ(After("", read), TResult(7, 0));
    EXPECT_EQ(After("1-2", read), TResult(1, 2));
    EXPECT_EQ(After("99999999999,", read), TResult(7, 12));
    EXPECT_EQ(After("12;", unget), TResult(12, 2));
    EXPECT_EQ(After("x", unget), TResult(7, 0));
    EXPECT_EQ(After("12", unget), TResult(12, 2));
    EXPECT_EQ(BTL::ReadInteger(With("5 ")), 5);
    EXPECT_THROW(BTL::ReadInteger(With("")), Sysutils::EConvertError);
    EXPECT_EQ(BTL::ReadInt64(With("-99999999999,")), -99'999'999'999);
    EXPECT_EQ(BTL::ReadInt64Def(With("-"), 3), 3);
    EXPECT_EQ(BTL::ReadInt64Unget(With("12x"), 3), 12);
}

TEST(StreamModelTest, StreamsWithoutASizeAreReadToTheirEnd)
{
    using Classes::TStream;
    const auto reads = {
        +[](TStream* stream) { return BTL::LoadStringFromStream(stream); },
        +[](TStream* stream) { return BTL::MStream(stream).ReadAll(); },
        +[](TStream* stream) { return BTL::ReadBytes(stream, INT_MAX); },
        +[](TStream* stream) { return BTL::ReadStringUntil(stream, ';'); },
    };
    for (const auto& read : reads) {
        std::array<int, 2> ends{};
        ASSERT_EQ(pipe(ends.data()), 0);
        ASSERT_EQ(write(ends[1], "abc", 3), 3);
        close(ends[1]);
        Classes::THandleStream stream(ends[0]);
        EXPECT_EQ(read(&stream), "abc");
        close(ends[0]);
    }
    // The host makes this file up while it is read, and tells no size.
    EXPECT_GT(BTL::LoadStringFromFile(u"\\proc\\self\\status").Length(), 10);
}

TEST(StreamModelTest, AFileIsLoadedWhileOthersWriteIt)
{
    const Support::TempFolder folder;
    const System::UnicodeString path(folder.Path() / "log");
    BTL::CTextWriter out(path);
    out.WriteLine(u"so far");
    EXPECT_EQ(BTL::LoadStringFromFile(path), "so far\n");
}

class UtilitiesOfForwardOnlyTest : public Support::ForwardOnlyTest
{
};

INSTANTIATE_TEST_SUITE_P(Kinds, UtilitiesOfForwardOnlyTest, Support::EveryForwardKind);

TEST_P(UtilitiesOfForwardOnlyTest, PiecesAreRead)
{
    Classes::TStream* const stream = With("a\xC3\xA4;b|c<->line\r\n12;skipped\nxyz w rest");
    EXPECT_EQ(BTL::ReadUTF8StringUntil(stream, ';'), System::UTF8String("a\xC3\xA4"));
    EXPECT_EQ(BTL::ReadStringUntil2(stream, '|', '!'), "b");
    EXPECT_EQ(BTL::ReadStringUntil(stream, AnsiString("<->")), "c");
    EXPECT_EQ(BTL::ReadLine(stream), "line");
    EXPECT_EQ(BTL::ReadInteger(stream), 12);
    BTL::SkipLine(stream);
    BTL::SkipBytes(stream, 2);
    EXPECT_EQ(BTL::ReadChar(stream), 'z');
    BTL::SkipWhitespaces(stream);
    BTL::SkipUntil(stream, ' ');
    EXPECT_EQ(BTL::LoadStringFromStream(stream), "rest");
    EXPECT_EQ(BTL::ReadChar(stream), '\0');
    BTL::SkipBytes(stream, 5);
    EXPECT_EQ(BTL::ReadStringUntil(stream, ';'), "");
}

TEST_P(UtilitiesOfForwardOnlyTest, TheEndIsKnownOrRefusedAtOnce)
{
    Classes::TStream* const stream = With("one\r\n22;end");
    if (IsOwnClass()) {
        EXPECT_THROW(BTL::Eof(stream), Classes::EStreamError);
        EXPECT_THROW(BTL::PeekChar(stream), Classes::EStreamError);
        EXPECT_THROW(BTL::ReadIntegerUnget(stream, 0), Classes::EStreamError);
        EXPECT_EQ(BTL::LoadStringFromStream(stream), "one\r\n22;end") << "nothing was read before";
        return;
    }
    std::vector<AnsiString> lines;
    for (int i = 0; !BTL::Eof(stream); ++i) {
        lines.push_back(i == 1 ? AnsiString(BTL::ReadIntegerUnget(stream, 0)) : BTL::ReadLine(stream));
        lines.emplace_back(BTL::PeekChar(stream));
    }
    EXPECT_EQ(lines, (std::vector<AnsiString>{"one", "2", "22", ";", ";end", AnsiString('\0')}));
}

TEST_P(UtilitiesOfForwardOnlyTest, PlacesAreRefused)
{
    Classes::TStream* const stream = With("a\nb");
    EXPECT_THROW(BTL::CountLines(stream, -1), Classes::EStreamError);
    EXPECT_THROW(BTL::GetCurrStrLine(stream), Classes::EStreamError);
    EXPECT_THROW(BTL::SkipBytes(stream, -1), Classes::EStreamError);
    EXPECT_EQ(BTL::ReadBytes(stream, 10), "a\nb") << "nothing was read before";
}

/// Tells a size that is none.
class OddStream : public Classes::TMemoryStream
{
public:
    explicit OddStream(Int64 size) : mSize(size) { WriteBuffer("abc", 3); }
    Int64 getSize() const override { return mSize; }

private:
    Int64 mSize;
};

TEST(StreamModelTest, StreamsMayTellAnySize)
{
    for (const Int64 size : {Int64{INT64_MIN}, Int64{INT64_MIN + 1}, Int64{-1}, Int64{0}}) {
        OddStream stream(size);
        stream.setPosition(1);
        EXPECT_EQ(BTL::LoadStringFromStream(&stream), "bc") << size;
        for (const int count : {1, 0, -1, INT_MAX, INT_MIN}) {
            stream.setPosition(2);
            BTL::SkipBytes(&stream, count);
            EXPECT_EQ(stream.getPosition(), 0) << size;
        }
        std::string bytes(2, ' ');
        stream.setPosition(1);
        BTL::CStdInStream in(&stream, BTL::ssSync);
        in.read(bytes.data(), 2);
        EXPECT_EQ(bytes, "bc") << size;
    }
    OddStream large(INT64_MAX);
    BTL::SkipBytes(&large, INT_MAX);
    EXPECT_EQ(large.getPosition(), Int64{INT_MAX} + 3);
    large.setPosition(1);
    large.WriteBuffer("xyz", 3);
    EXPECT_EQ(large.AsView(), "axyz");
}

TEST(StreamModelTest, AHandleThatOthersUseLosesOneByteAtMost)
{
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe(ends.data()), 0);
    ASSERT_EQ(write(ends[1], "abcdef", 6), 6);
    Classes::THandleStream stream(ends[0]);
    EXPECT_EQ(BTL::ReadStringUntil(&stream, 'b'), "a");
    char c = 0;
    EXPECT_EQ(read(ends[0], &c, 1), 1);
    EXPECT_EQ(c, 'c');
    EXPECT_EQ(BTL::PeekChar(&stream), 'd');
    EXPECT_EQ(read(ends[0], &c, 1), 1);
    EXPECT_EQ(c, 'e');
    EXPECT_EQ(BTL::ReadChar(&stream), 'd');
    EXPECT_EQ(BTL::ReadChar(&stream), 'f');
    close(ends[0]);
    close(ends[1]);
}

/// How many of the functions that write bytes take a `Text`.
template <class Text, class... Writers>
constexpr int CountTaking(Writers...)
{
    return (0 + ... + static_cast<int>(std::is_invocable_v<Writers, BTL::MStream&, const Text&>));
}

template <class Text>
constexpr int ByteWritersTaking()
{
    return CountTaking<Text>(
        [](auto&, auto& text) -> decltype(BTL::SaveStringToFile(u"x", text)) {},
        [](auto& binary, auto& text) -> decltype(BTL::SaveStringToStream(binary.getStream(), text)) {},
        [](auto& binary, auto& text) -> decltype(BTL::WriteString(binary.getStream(), text)) {},
        [](auto& binary, auto& text) -> decltype(BTL::WriteAnsiString(binary.getStream(), text)) {},
        [](auto& binary, auto& text) -> decltype(binary.WriteString(text)) {},
        [](auto& binary, auto& text) -> decltype(binary.WriteBuffer(text)) {},
        [](auto& binary, auto& text) -> decltype(binary.WriteLine(text)) {},
        [](auto& binary, auto& text) -> decltype(binary.WriteAll(text)) {},
        [](auto& binary, auto& text) -> decltype(binary.Write(text)) { return 0; });
}

static_assert(ByteWritersTaking<AnsiString>() == 9);
static_assert(ByteWritersTaking<System::RawByteString>() == 9);
static_assert(ByteWritersTaking<char[4]>() == 9);
static_assert(ByteWritersTaking<System::UnicodeString>() == 9);
static_assert(ByteWritersTaking<char16_t[4]>() == 9);
static_assert(ByteWritersTaking<std::u16string_view>() == 9);

TEST(StreamUtilitiesTest, WriteWideTextWholeOrNotAtAll)
{
    const Support::TempFolder folder;
    const System::UnicodeString path = System::FromUtf8((folder.Path() / "file").string());
    BTL::SaveStringToFile(path, u"5 \u00B5, 2 \u20AC");
    EXPECT_EQ(BTL::LoadStringFromFile(path), "5 \xB5, 2 \x80");
    try {
        BTL::SaveStringToFile(path, u"2 \u03A9");
        ADD_FAILURE();
    } catch (const BTL::ECharacterFault& fault) {
        EXPECT_EQ(fault.getPlace(), 3);
        EXPECT_EQ(fault.getCharacter(), 0x3A9U);
    }
    EXPECT_EQ(BTL::LoadStringFromFile(path), "5 \xB5, 2 \x80");

    Classes::TMemoryStream stream;
    BTL::MStream binary(&stream);
    const std::function<void(const System::UnicodeString&)> writers[] = {
        [&](const auto& text) { BTL::SaveStringToStream(&stream, text); },
        [&](const auto& text) { BTL::WriteString(&stream, text); },
        [&](const auto& text) { BTL::WriteAnsiString(&stream, text); },
        [&](const auto& text) { binary.WriteBuffer(text); },
        [&](const auto& text) { binary.Write(text); },
        [&](const auto& text) { binary.WriteAll(text); },
    };
    for (const auto& write : writers) {
        stream.Clear();
        EXPECT_THROW(write(u"2 \u03A9"), BTL::ECharacterFault);
        EXPECT_EQ(stream.getSize(), 0);
        write(u"2 \u00B5");
        EXPECT_EQ(binary.ReadAll(), "2 \xB5");
    }
}

TEST(StreamUtilitiesTest, KeepTheBytesOfAnyCodePage)
{
    const Support::TempFolder folder;
    const System::UnicodeString path = System::FromUtf8((folder.Path() / "file").string());
    const UTF8String text = System::UnicodeString(u"5 \u00B5m \u2192 2 \u03A9");
    BTL::SaveStringToFile(path, text);
    EXPECT_EQ(BTL::LoadStringFromFile(path).AsView(), text.AsView());
    BTL::SaveStringToFile(path, AnsiString(u"5 \u00B5"));
    EXPECT_EQ(BTL::LoadStringFromFile(path), "5 \xB5");
    Classes::TMemoryStream stream;
    BTL::WriteString(&stream, text);
    BTL::SaveStringToStream(&stream, text);
    BTL::WriteUTF8String(&stream, System::UnicodeString(text));
    stream.setPosition(0);
    EXPECT_EQ(BTL::LoadStringFromStream(&stream).AsView(), (text + text + text).AsView());
}

/// In a child in which no file can grow beyond 100 bytes, as if the disk were full.
TEST(FullDiskTest, DISABLED_Child)
{
    const Support::TempFolder folder;
    const System::UnicodeString path = System::FromUtf8((folder.Path() / "file").string());
    const System::AnsiString text(std::string(101, 'x'));
    Classes::TStringList list;
    list.setText(text);
    Classes::TMemoryStream memory;
    memory.WriteBuffer(text.c_str(), text.Length());
    BTL::CIntSet numbers;
    for (int i = 0; i < 60; ++i) {
        numbers.insert(i);
    }
    const std::pair<const char*, std::function<void()>> savers[] = {
        {"list", [&] { list.SaveToFile(path); }},
        {"memory", [&] { memory.SaveToFile(path); }},
        {"text", [&] { BTL::SaveStringToFile(path, text); }},
        {"numbers", [&] { numbers.SaveToFile(path); }},
        {"stream", [&] { Classes::TFileStream(path, Classes::fmCreate).CopyFrom(&memory, 0); }},
    };
    Support::LimitFileSize(100);
    for (const auto& [name, save] : savers) {
        SCOPED_TRACE(name);
        EXPECT_THROW(save(), Classes::EWriteError);
    }
    BTL::CFileOutStream words(path);
    for (int i = 0; i < 101 && words.good(); ++i) {
        words << 'x';
    }
    EXPECT_TRUE(words.fail());
    Support::PrintResult(HasFailure() ? "lost" : "told");
}

TEST(FullDiskTest, WhateverSavesTellsOfIt)
{
    EXPECT_EQ(Support::RunChildTest("FullDiskTest.DISABLED_Child"), "told");
}

} // namespace
