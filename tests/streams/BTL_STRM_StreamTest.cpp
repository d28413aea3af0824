// SPDX-License-Identifier: MIT
#include "streams/BTL_STRM_Stream.h"
#include "foundation/UTL_ASRT_Assert.h"
#include "platform/toolkit/MessageBox.h"
#include "streams/AnyStreamSupport.h"
#include "streams/BTL_STRM_StreamUtilities.h"
#include "streams/ForwardOnlySupport.h"
#include "support/ScriptedBoxes.h"
#include "support/TempFolder.h"
#include "text/bytes/BTL_BIN_BinaryData.h"

#include <climits>

#include <gtest/gtest.h>

using Classes::TMemoryStream;
using System::AnsiString;
using System::Int64;
using System::UnicodeString;

namespace
{

class StreamTest : public Support::AnyStreamTest
{
};

INSTANTIATE_TEST_SUITE_P(Kinds, StreamTest, Support::EveryStreamKind);

TEST_P(StreamTest, BinaryValuesAreLittleEndian)
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

TEST_P(StreamTest, BytesComeAsArrays)
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

TEST_P(StreamTest, DamagedLengthsRaise)
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

TEST_P(StreamTest, AllIsReadAndReplaced)
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

TEST_P(StreamTest, LinesEndAtDelimitersAndLineFeeds)
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

TEST_P(StreamTest, WordsAreFoundWithTheirPlaces)
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

TEST_P(StreamTest, CopiesUpToAMark)
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
    Classes::TFileStream zeros(u"\\dev\\zero", Classes::fmOpenRead | Classes::fmShareDenyNone);
    EXPECT_THROW(copy.LoadRest(&zeros), Classes::EReadError);
    EXPECT_EQ(copy.LoadTill(&zeros, '\0'), 1);
    EXPECT_THROW(copy.LoadTill(&target, 'a'), Classes::EReadError);
}

TEST_P(StreamTest, SearchesFromAPlace)
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

class BinaryOfForwardOnlyTest : public Support::ForwardOnlyTest
{
};

INSTANTIATE_TEST_SUITE_P(Kinds, BinaryOfForwardOnlyTest, Support::EveryForwardKind);

TEST_P(BinaryOfForwardOnlyTest, ValuesLinesAndWordsAreRead)
{
    using namespace std::string_literals;
    BTL::CStream stream(With("\1\0\0\0\3\0\0\0abcline one\r\nline two\n 2word;rest"s));
    EXPECT_EQ(stream.ReadInteger(), 1);
    EXPECT_EQ(stream.ReadString(), "abc");
    EXPECT_EQ(stream.ReadLine(), "line one");
    EXPECT_EQ(stream.ReadUntil('\n'), "line two");
    int position = 5;
    EXPECT_EQ(stream.ReadWord(position), "word");
    EXPECT_EQ(position, -1);
    EXPECT_EQ(stream.ReadAll(), "rest");
    EXPECT_EQ(stream.ReadWord(position), "");
    EXPECT_EQ(stream.ReadLine(), "");
    EXPECT_THROW(stream.ReadInteger(), Classes::EReadError);
}

TEST_P(BinaryOfForwardOnlyTest, CopiesComeWhole)
{
    const std::string content = "head;" + std::string(100'000, 'x');
    Classes::TStream* const source = With(content);
    BTL::CMemoryStream target;
    EXPECT_EQ(target.LoadTill(source, ';'), 5);
    EXPECT_EQ(target.CopyFrom(source, 10), 10);
    EXPECT_EQ(target.LoadRest(source), 99'990);
    EXPECT_EQ(target.ReadAll().AsView(), content);
    EXPECT_EQ(target.CopyFrom(With(content), 0), 100'005);
    Classes::TMemoryStream loaded;
    loaded.LoadFromStream(With(content));
    EXPECT_EQ(loaded.AsView(), content);
    EXPECT_EQ(loaded.getPosition(), 0);
}

TEST_P(BinaryOfForwardOnlyTest, SearchesNeedAPlace)
{
    Classes::TStream* const stream = With("abc");
    EXPECT_THROW(BTL::Search("b", stream, 0), Classes::EStreamError);
    EXPECT_THROW(BTL::Search("b", stream, -1), Classes::EStreamError);
    EXPECT_EQ(BTL::ReadBytes(stream, 3), "abc") << "nothing was read before";
}

} // namespace
