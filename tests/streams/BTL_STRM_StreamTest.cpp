// SPDX-License-Identifier: MIT
#include "streams/BTL_STRM_Stream.h"
#include "foundation/UTL_ASRT_Assert.h"
#include "platform/toolkit/MessageBox.h"
#include "streams/BTL_STRM_StreamUtilities.h"
#include "support/ScriptedBoxes.h"
#include "support/TempFolder.h"
#include "text/bytes/BTL_BIN_BinaryData.h"

#include <climits>

#include <gtest/gtest.h>

#include <unistd.h>

using Classes::TMemoryStream;
using System::AnsiString;
using System::Int64;
using System::UnicodeString;
using System::UTF8String;

namespace
{

/// Every way in which a stream can come to its bytes: all in memory, from a file, or only by its own `Read`.
class ReadOnlyByRead : public TMemoryStream
{
public:
    ~ReadOnlyByRead() override = default;
    Int64 Read(void* buffer, Int64 count) override
    {
        return TMemoryStream::Read(buffer, std::min<Int64>(count, 2));
    }
};

enum class EKind
{
    Memory,
    File,
    Handle,
    Read
};

class AnyStreamTest : public testing::TestWithParam<EKind>
{
protected:
    Classes::TStream* With(std::string_view content)
    {
        auto stream = Make();
        stream->WriteBuffer(content.data(), static_cast<Int64>(content.size()));
        stream->setPosition(0);
        mStreams.push_back(std::move(stream));
        return mStreams.back().get();
    }

    /// What `read` gives on a stream, and where the position then is.
    template <class Read>
    auto After(std::string_view content, Read read)
    {
        Classes::TStream* const stream = With(content);
        auto result = read(stream);
        return std::pair(result, stream->getPosition());
    }

private:
    std::unique_ptr<Classes::TStream> Make()
    {
        switch (GetParam()) {
        case EKind::Memory:
            return std::make_unique<TMemoryStream>();
        case EKind::Read:
            return std::make_unique<ReadOnlyByRead>();
        default:
            break;
        }
        const UnicodeString path =
            System::FromUtf8((mFolder.Path() / std::to_string(mStreams.size())).string());
        auto file = std::make_unique<Classes::TFileStream>(path, Classes::fmCreate);
        if (GetParam() == EKind::Handle) {
            auto handle = std::make_unique<Classes::THandleStream>(file->getHandle());
            mStreams.push_back(std::move(file));
            return handle;
        }
        return file;
    }

    Support::TempFolder mFolder;
    std::vector<std::unique_ptr<Classes::TStream>> mStreams;
};

INSTANTIATE_TEST_SUITE_P(Kinds, AnyStreamTest,
                         testing::Values(EKind::Memory, EKind::File, EKind::Handle, EKind::Read));

TEST_P(AnyStreamTest, BinaryValuesAreLittleEndian)
{
    Classes::TStream* const stream = With("");
    BTL::MStream binary(stream);
    binary.WriteChar('\xE4');
    binary.WriteUChar(200);
    binary.WriteBool(true);
    binary.WriteInteger(-2);
    binary.WriteDouble(-0.5);
    binary.WriteString(AnsiString("a\0b", 3));
    binary.WriteString("");
    EXPECT_EQ(binary.ReadAll(),
              AnsiString("\xE4\xC8\x01\xFE\xFF\xFF\xFF\0\0\0\0\0\0\xE0\xBF\x03\0\0\0a\0b\0\0\0\0", 26));
    stream->setPosition(0);
    EXPECT_EQ(binary.ReadChar(), '\xE4');
    EXPECT_EQ(binary.ReadUChar(), 200);
    EXPECT_TRUE(binary.ReadBool());
    EXPECT_EQ(binary.ReadInteger(), -2);
    EXPECT_EQ(binary.ReadDouble(), -0.5);
    EXPECT_EQ(binary.ReadString(), AnsiString("a\0b", 3));
    EXPECT_EQ(binary.ReadString(), "");
    EXPECT_THROW(binary.ReadChar(), Classes::EReadError);
}

TEST_P(AnyStreamTest, BytesComeAsArrays)
{
    using TBytes = System::DynamicArray<unsigned char>;
    Classes::TStream* const stream = With("");
    BTL::MStream binary(stream);
    binary.WriteBytes(TBytes{0, 1, 255});
    binary.WriteBytes(TBytes());
    EXPECT_EQ(binary.ReadBytes(5).Length(), 0);
    stream->setPosition(1);
    EXPECT_EQ(binary.ReadBytes(-1).Length(), 0);
    EXPECT_TRUE(BTL::IsEqual(binary.ReadBytes(1), TBytes{1}));
    EXPECT_TRUE(BTL::IsEqual(binary.ReadBytes(INT64_MAX), TBytes{255}));
}

TEST_P(AnyStreamTest, DamagedLengthsRaise)
{
    for (const int length : {-1, INT_MIN, INT_MAX, 4}) {
        Classes::TStream* const stream = With("");
        BTL::MStream binary(stream);
        binary.WriteInteger(length);
        binary.WriteBuffer("abc");
        stream->setPosition(0);
        EXPECT_THROW(binary.ReadString(), Classes::EReadError) << length;
    }
    BTL::MStream binary(With("abc"));
    EXPECT_EQ(binary.ReadBuffer(-5), "");
    EXPECT_EQ(binary.ReadBuffer(2), "ab");
    EXPECT_THROW(binary.ReadBuffer(2), Classes::EReadError);
}

TEST_P(AnyStreamTest, AllIsReadAndReplaced)
{
    Classes::TStream* const stream = With("content");
    BTL::MStream binary(stream);
    stream->setPosition(3);
    EXPECT_EQ(binary.ReadAll(), "content");
    EXPECT_EQ(stream->getPosition(), 7);
    binary.WriteAll("new");
    EXPECT_EQ(binary.ReadAll(), "new");
    binary.WriteAll("");
    EXPECT_EQ(binary.ReadAll(), "");
    EXPECT_EQ(binary.Write("xy"), 2);
    EXPECT_EQ(binary.Write("xyz", -1), 0);
    binary.WriteLine("a\r\n");
    binary.WriteLine("b");
    binary.WriteEOL();
    EXPECT_EQ(binary.ReadAll(), "xya\r\nb\r\n\r\n");
}

TEST_P(AnyStreamTest, LinesEndAtDelimitersAndLineFeeds)
{
    const struct
    {
        const char* content;
        const char* line;
        Int64 position;
        char delimiter;
        bool newLine;
    } cases[] = {
        {"a\r\nb", "a", 3, 'x', true},   {"axb\n", "a", 2, 'x', false}, {"\ra\rb\r\nc", "ab", 6, '\n', true},
        {"abc", "abc", 3, 'x', false},   {"", "", 0, 'x', false},       {"x\n", "", 1, 'x', false},
        {"a\rb\n", "a", 2, '\r', false}, {"\r", "", 1, 'x', false},
    };
    for (const auto& [content, line, position, delimiter, newLine] : cases) {
        Classes::TStream* const stream = With(content);
        bool found = !newLine;
        EXPECT_EQ(BTL::MStream(stream).ReadLineUntil(delimiter, found), line) << content;
        EXPECT_EQ(found, newLine) << content;
        EXPECT_EQ(stream->getPosition(), position) << content;
    }
    std::string longLine(100'000, 'x');
    BTL::MStream lines(With(longLine + "\r\n" + longLine));
    EXPECT_EQ(lines.ReadLine().Length(), 100'000);
    EXPECT_EQ(lines.ReadLineUntil('y').Length(), 100'000);
    EXPECT_EQ(BTL::MStream(With("ab,cd")).ReadUntil(','), "ab");
}

TEST_P(AnyStreamTest, WordsAreFoundWithTheirPlaces)
{
    const struct
    {
        const char* content;
        const char* word;
        int place;
        Int64 position;
    } cases[] = {
        {"  2ab c", "ab", 3, 6}, {"x", "x", 0, 1}, {"a1_b", "a1_b", 0, 4},
        {"12 3", "", -1, 4},     {"", "", 0, 0},   {"\xE4z.", "\xE4z", 0, 3},
    };
    for (const auto& [content, word, place, position] : cases) {
        int found = -1;
        const auto [result, after] =
            After(content, [&](Classes::TStream* stream) { return BTL::MStream(stream).ReadWord(found); });
        EXPECT_EQ(result, word) << content;
        EXPECT_EQ(found, place) << content;
        EXPECT_EQ(after, position) << content;
    }
    std::array<unsigned char, 256> onlyX{};
    onlyX['x'] = 1;
    std::array<unsigned char, 256> onlyY{};
    onlyY['y'] = 1;
    int place = 0;
    EXPECT_EQ(BTL::MStream(With("yxxy")).ReadWord(place, onlyX.data(), nullptr), "xx");
    EXPECT_EQ(BTL::MStream(With("yxyyx")).ReadWord(place, onlyX.data(), onlyY.data()), "xyy");
    EXPECT_EQ(place, 1);
}

TEST_P(AnyStreamTest, CopiesUpToAMark)
{
    TMemoryStream target;
    BTL::MStream copy(&target);
    Classes::TStream* const source = With("ab;cd;ef");
    EXPECT_EQ(copy.LoadTill(source, ';'), 3);
    EXPECT_EQ(source->getPosition(), 3);
    EXPECT_EQ(copy.LoadTill(source, 'x'), 5);
    EXPECT_EQ(target.AsView(), "ab;cd;ef");
    source->setPosition(6);
    EXPECT_EQ(copy.LoadRest(source), 2);
    EXPECT_EQ(copy.CopyFrom(source, 0), 8);
    EXPECT_EQ(copy.ReadAll(), "ab;cd;efefab;cd;ef");
    using TBytes = System::DynamicArray<unsigned char>;
    Classes::TStream* const pattern = With("aaab-aab+");
    copy.WriteAll("");
    EXPECT_EQ(copy.LoadTill(pattern, TBytes{'a', 'a', 'b'}), 4);
    EXPECT_EQ(pattern->getPosition(), 4);
    EXPECT_EQ(copy.LoadTill(pattern, TBytes{'a', 'a', 'a'}), 5);
    pattern->setPosition(8);
    EXPECT_EQ(copy.LoadTill(pattern, TBytes()), 1);
    EXPECT_EQ(target.AsView(), "aaab-aab++");
    EXPECT_THROW(copy.LoadRest(nullptr), Classes::EReadError);
    EXPECT_THROW(copy.LoadTill(&target, 'a'), Classes::EReadError);
}

TEST_P(AnyStreamTest, SearchesFromAPlace)
{
    const struct
    {
        const char* content;
        const char* text;
        int start;
        Int64 found;
        Int64 position;
    } cases[] = {
        {"aaab", "aab", 0, 1, 4},   {"abababc", "ababc", 0, 2, 7}, {"abc", "c", 0, 2, 3},
        {"abcabc", "abc", 1, 3, 6}, {"abc", "abd", 0, -1, 3},      {"aabaabaaab", "aabaaa", 0, 3, 9},
        {"abc", "abc", -1, 0, 3},   {"abc", "", 1, -1, 1},         {"", "a", 0, -1, 0},
        {"abc", "a", 7, -1, 7},     {"abcd", "bcde", 0, -1, 4},
    };
    for (const auto& [content, text, start, found, position] : cases) {
        Classes::TStream* const stream = With(content);
        EXPECT_EQ(BTL::MStream(stream).Search(text, start), found) << content << ' ' << text;
        EXPECT_EQ(stream->getPosition(), position) << content << ' ' << text;
    }
    // A match across the pieces in which a file is read.
    for (const std::size_t place : {4090U, 4095U, 4096U, 12'280U, 65'530U}) {
        const std::string content = std::string(place, 'a') + "aab" + std::string(9, 'a');
        EXPECT_EQ(BTL::Search("aaab", With(content), 0), static_cast<Int64>(place) - 1);
    }
}

TEST_P(AnyStreamTest, UtilitiesReadPieces)
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
    EXPECT_EQ(After("a--->b", until("-->")), TResult("a-", 5));
    EXPECT_EQ(After("a--b", until("-->")), TResult("a--b", 4));
    EXPECT_EQ(After("ab", until("")), TResult("ab", 2));
    EXPECT_EQ(After("ab\r\ncd", line), TResult("ab", 4));
    EXPECT_EQ(After("ab\rx\ncd", line), TResult("ab", 5));
    EXPECT_EQ(After("ab\ncd", line), TResult("ab\ncd", 5));
    EXPECT_EQ(After("abc", bytes(2)), TResult("ab", 2));
    EXPECT_EQ(After("abc", bytes(INT_MAX)), TResult("abc", 3));
    EXPECT_EQ(After("abc", bytes(-1)), TResult("", 0));
    EXPECT_EQ(BTL::ReadUTF8StringUntil(With("\xC3\xA4,"), ','), UTF8String("\xC3\xA4"));
    EXPECT_EQ(BTL::LoadStringFromStream(With("all")), "all");
}

TEST_P(AnyStreamTest, UtilitiesMoveThePosition)
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

TEST_P(AnyStreamTest, UtilitiesReadIntegers)
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

TEST(StreamModelTest, FilesOpenInTheirModes)
{
    const Support::TempFolder folder;
    const UnicodeString path = System::FromUtf8((folder.Path() / "file").string());
    EXPECT_THROW(BTL::CFileStream{path}, Classes::EFOpenError);
    BTL::CFileStream(path, BTL::fomAppend, BTL::fsmDenyNone).WriteBuffer("one ");
    {
        BTL::CFileStream append(path, BTL::fomAppend, BTL::fsmDenyNone);
        EXPECT_EQ(append.getStream()->getPosition(), 4);
        append.WriteBuffer("two");
        EXPECT_EQ(append.ReadAll(), "one two");
    }
    BTL::CFileStream(path, BTL::fomWrite, BTL::fsmDenyNone).WriteBuffer("ONE");
    EXPECT_EQ(BTL::CMemoryStream(path).ReadAll(), "ONE two");
    EXPECT_THROW(BTL::CFileStream(path, BTL::fomRead, BTL::fsmDenyNone).WriteBuffer("x"),
                 Classes::EWriteError);
    BTL::CFileStream(path, BTL::fomReadWrite, BTL::fsmExclusive).WriteAll("x");
    EXPECT_EQ(BTL::LoadStringFromFile(path), "x");
    {
        const BTL::CFileStream exclusive(path, BTL::fomRead, BTL::fsmExclusive);
        EXPECT_THROW(BTL::CFileStream{path}, Classes::EFOpenError);
    }
    {
        const BTL::CFileStream emptied(path, BTL::fomCreate, BTL::fsmDenyWrite);
    }
    EXPECT_EQ(BTL::LoadStringFromFile(path), "");
    BTL::SaveStringToFile(path, AnsiString("a\0b", 3));
    EXPECT_EQ(BTL::LoadStringFromFile(path), AnsiString("a\0b", 3));
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

TEST(StreamModelTest, StringStreamsAreCopiedAsText)
{
    BTL::CStringStream utf8(u"ä\u4E2D", Sysutils::TEncoding::getUTF8(), false);
    const BTL::CStringStream copy(utf8);
    utf8.WriteAll("");
    EXPECT_EQ(copy.getStream()->getDataString(), u"ä\u4E2D");
    EXPECT_EQ(BTL::CStringStream("abc").ReadAll(), "abc");
}

TEST(StreamModelTest, AListOwnsItsStreams)
{
    class Witness : public TMemoryStream
    {
    public:
        explicit Witness(int& count) : mCount(count) { ++mCount; }
        ~Witness() override { --mCount; }

    private:
        int& mCount;
    };
    int alive = 0;
    {
        BTL::CStreams streams;
        streams.Add(new Witness(alive));
        streams.Add(nullptr);
        EXPECT_EQ(streams[1], nullptr);
        EXPECT_EQ(streams.size(), 2U);
        streams.Clear();
        EXPECT_EQ(alive, 0);
        EXPECT_TRUE(streams.empty());
        streams.Add(new Witness(alive));
    }
    EXPECT_EQ(alive, 0);
}

TEST(StreamModelTest, ANullStreamIsAnInternalFault)
{
    const Support::ScriptedBoxes boxes{IDYES, IDYES, IDNO, IDNO, IDNO};
    try {
        BTL::Search("a", nullptr, 0);
        FAIL();
    } catch (const UTL::XAssert& fault) {
        EXPECT_EQ(fault.getFile(), "BTL_STRM_Stream.cpp");
        EXPECT_EQ(fault.getLine(), 520);
    }
    try {
        BTL::ReadChar(nullptr);
        FAIL();
    } catch (const UTL::XAssert& fault) {
        EXPECT_EQ(fault.getFile(), "BTL_STRM_StreamUtilities.cpp");
    }
    EXPECT_EQ(BTL::ReadChar(nullptr), '\0');
    EXPECT_EQ(BTL::Search("a", nullptr, 0), -1);
    EXPECT_EQ(BTL::ReadStringUntil(nullptr, "ab"), "");
}

} // namespace
