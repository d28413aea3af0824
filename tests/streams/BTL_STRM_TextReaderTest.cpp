// SPDX-License-Identifier: MIT
#include "streams/BTL_STRM_TextReader.h"
#include "streams/BTL_STRM_StreamUtilities.h"
#include "streams/ForwardOnlySupport.h"
#include "support/TempFolder.h"

#include <vector>

#include <gtest/gtest.h>

using namespace std::string_literals;

using BTL::CTextReader;
using BTL::EDecoding;
using BTL::ELineEnd;
using System::AnsiString;
using System::Int64;
using System::UnicodeString;
using Sysutils::TEncoding;

namespace
{

using Lines = std::vector<UnicodeString>;

/// A stream that holds `bytes`, at its beginning.
std::unique_ptr<Classes::TStream> Holding(std::string_view bytes)
{
    auto stream = std::make_unique<Classes::TMemoryStream>();
    stream->WriteBuffer(bytes.data(), static_cast<Int64>(bytes.size()));
    stream->setPosition(0);
    return stream;
}

Lines LinesOf(CTextReader& reader)
{
    Lines lines;
    for (const UnicodeString& line : reader) {
        lines.push_back(line);
    }
    return lines;
}

/// The bytes of `text` in UTF-16.
std::string Utf16(std::u16string_view text, System::CodePage codePage = TEncoding::Utf16)
{
    return std::string(TEncoding(codePage).GetBytes(UnicodeString(text)).AsView());
}

TEST(TextReaderTest, LinesEndInEachWay)
{
    struct TRow
    {
        std::string text;
        Lines lines;
        std::vector<ELineEnd> ends;
    };
    const TRow rows[] = {
        {"", {}, {}},
        {"\n", {u""}, {ELineEnd::LF}},
        {"a", {u"a"}, {ELineEnd::None}},
        {"a\n", {u"a"}, {ELineEnd::LF}},
        {"a\r\nb\rc\nd",
         {u"a", u"b", u"c", u"d"},
         {ELineEnd::CRLF, ELineEnd::CR, ELineEnd::LF, ELineEnd::None}},
        {"a\r", {u"a"}, {ELineEnd::CR}},
        {"\r\r\n\n", {u"", u"", u""}, {ELineEnd::CR, ELineEnd::CRLF, ELineEnd::LF}},
        {"a\0b\n"s, {UnicodeString(u"a\0b"s)}, {ELineEnd::LF}},
    };
    for (const TRow& row : rows) {
        SCOPED_TRACE(row.text);
        for (const System::CodePage codePage :
             {System::CP_UTF8, TEncoding::Utf16, TEncoding::Utf16BigEndian, System::CodePage{1252}}) {
            const TEncoding encoding(codePage);
            const auto bytes = encoding.GetBytes(UnicodeString(System::FromUtf8(row.text)));
            CTextReader reader(Holding(bytes.AsView()), encoding);
            UnicodeString line;
            Lines lines;
            std::vector<ELineEnd> ends;
            while (reader.ReadLine(line)) {
                lines.push_back(line);
                ends.push_back(reader.getLineEnd());
                EXPECT_EQ(reader.getLineNumber(), static_cast<Int64>(lines.size()));
            }
            EXPECT_EQ(lines, row.lines);
            EXPECT_EQ(ends, row.ends);
            EXPECT_EQ(line, u"");
            EXPECT_FALSE(reader.ReadLine(line));

            CTextReader whole(Holding(bytes.AsView()), encoding);
            EXPECT_EQ(whole.ReadAll(), System::FromUtf8(row.text));
            CTextReader keeping(Holding(bytes.AsView()), encoding);
            UnicodeString joined;
            while (keeping.ReadLineWithEnd(line)) {
                joined += line;
            }
            EXPECT_EQ(joined, System::FromUtf8(row.text));
        }
    }
}

TEST(TextReaderTest, AMarkTellsTheEncoding)
{
    struct TRow
    {
        std::string bytes;
        System::CodePage given;
        System::CodePage found;
        BTL::EByteOrderMark mark;
        UnicodeString text;
    };
    using enum BTL::EByteOrderMark;
    const TRow rows[] = {
        {"\xC3\xA4", System::CP_UTF8, System::CP_UTF8, Without, u"\u00E4"},
        {"\xEF\xBB\xBF\xC3\xA4", 1252, System::CP_UTF8, With, u"\u00E4"},
        {"\xE4", 1252, 1252, Without, u"\u00E4"},
        {"\xFF\xFE" + Utf16(u"\u00E4"), System::CP_UTF8, TEncoding::Utf16, With, u"\u00E4"},
        {"\xFE\xFF" + Utf16(u"\u00E4", TEncoding::Utf16BigEndian), System::CP_UTF8, TEncoding::Utf16BigEndian,
         With, u"\u00E4"},
        {Utf16(u"\u00E4"), TEncoding::Utf16, TEncoding::Utf16, Without, u"\u00E4"},
        {"\xEF\xBB", 1252, 1252, Without, u"\u00EF\u00BB"},
        {"\xEF\xBB\xBF", 1252, System::CP_UTF8, With, u""},
        {"\xEF\xBB\xBF\xEF\xBB\xBFx", 1252, System::CP_UTF8, With, u"\uFEFFx"},
        {"", 1252, 1252, Without, u""},
    };
    for (const TRow& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.bytes));
        CTextReader reader(Holding(row.bytes), TEncoding(row.given));
        EXPECT_EQ(reader.getEncoding().getCodePage(), row.found);
        EXPECT_EQ(reader.getMark(), row.mark);
        EXPECT_EQ(reader.ReadAll(), row.text);
    }
}

TEST(TextReaderTest, StrictReadingNamesThePlaceOfAFault)
{
    struct TRow
    {
        std::string bytes;
        System::CodePage codePage;
        Int64 line;
        Int64 byteInLine;
        Int64 byte;
    };
    const TRow rows[] = {
        {"good\nb\xC3\xA4"
         "d\xFFline\nrest",
         System::CP_UTF8, 2, 5, 10},
        {"\xEF\xBB\xBF\xC3", System::CP_UTF8, 1, 1, 4},
        {"a\r\n\r\n\xEF\xBFx", System::CP_UTF8, 3, 1, 6},
        {"\xEF\xBF\xBD\xED\xA0\x80", System::CP_UTF8, 1, 4, 4},
        {"ok\n\xC0\x80", System::CP_UTF8, 2, 1, 4},
        {Utf16(u"a\nb") + Utf16({u"\xDC00", 1}), TEncoding::Utf16, 2, 3, 7},
        {Utf16(u"a\n\U0001F600") + "x", TEncoding::Utf16, 2, 5, 9},
        {"a\nx\x83", 932, 2, 2, 4},
        {"a\n\x83\x41\x83\xFF-", 932, 2, 3, 5},
    };
    for (const TRow& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.bytes));
        CTextReader lenient(Holding(row.bytes), TEncoding(row.codePage));
        const Lines lines = LinesOf(lenient);
        CTextReader reader(Holding(row.bytes), TEncoding(row.codePage), EDecoding::Strict);
        try {
            reader.ReadAll();
            ADD_FAILURE();
        } catch (const BTL::ETextFault& fault) {
            EXPECT_EQ(fault.getLine(), row.line);
            EXPECT_EQ(fault.getByteInLine(), row.byteInLine);
            EXPECT_EQ(fault.getByte(), row.byte);
            EXPECT_EQ(fault.getText(), lines.at(static_cast<std::size_t>(row.line) - 1));
            EXPECT_NE(fault.getMessage().Pos(u"Line " + UnicodeString(row.line) + u", byte " +
                                             UnicodeString(row.byteInLine)),
                      0);
        }
    }
}

TEST(TextReaderTest, ReadingGoesOnBehindAFault)
{
    CTextReader reader(Holding("a\nx\xFFy\r\nb\xEF\xBF\xBD"), TEncoding(System::CP_UTF8), EDecoding::Strict);
    UnicodeString line;
    EXPECT_TRUE(reader.ReadLine(line));
    try {
        reader.ReadLineWithEnd(line);
        ADD_FAILURE();
    } catch (const BTL::ETextFault& fault) {
        EXPECT_EQ(fault.getText(), u"x\uFFFDy");
    }
    EXPECT_EQ(reader.getLineNumber(), 2);
    EXPECT_EQ(reader.getLineEnd(), ELineEnd::CRLF);
    EXPECT_TRUE(reader.ReadLine(line));
    EXPECT_EQ(line, u"b\uFFFD") << "a replacement that the text holds is no fault";
    EXPECT_EQ(reader.getLineNumber(), 3);
    EXPECT_EQ(CTextReader(Holding("a\xFF\xC3z")).ReadAll(), u"a\uFFFD\uFFFDz")
        << "where nobody asks for strictness";
}

class TextReaderOfForwardOnlyTest : public Support::ForwardOnlyTest
{
};

INSTANTIATE_TEST_SUITE_P(Kinds, TextReaderOfForwardOnlyTest, Support::EveryForwardKind);

TEST_P(TextReaderOfForwardOnlyTest, LinesCome)
{
    Lines expected;
    std::string content = "\xEF\xBB\xBF";
    for (int i = 0; i < 3000; ++i) {
        expected.push_back(u"\u00E4 " + UnicodeString(i));
        content += "\xC3\xA4 " + std::to_string(i) + "\r\n";
    }
    CTextReader reader(With(content), TEncoding(1252));
    EXPECT_EQ(LinesOf(reader), expected);
}

TEST(TextReaderTest, LinesMayBeLong)
{
    // Each piece of a line that is looked at anew would take a thousand times as long.
    const std::string content = std::string(3'000'000, 'x') + "\n" + std::string(1'000'000, 'y');
    Support::OwnReader source(content);
    CTextReader reader(&source);
    const Lines lines = LinesOf(reader);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0].Length(), 3'000'000);
    EXPECT_EQ(lines[1], UnicodeString(std::u16string(1'000'000, u'y')));
}

TEST(TextReaderTest, AnEndBetweenTwoBlocksIsOne)
{
    for (int length = 0xFFFD; length <= 0x10001; ++length) {
        const std::string content = std::string(static_cast<std::size_t>(length), 'x') + "\r\ny";
        CTextReader reader(Holding(content));
        UnicodeString line;
        EXPECT_TRUE(reader.ReadLine(line));
        EXPECT_EQ(line.Length(), length);
        EXPECT_EQ(reader.getLineEnd(), ELineEnd::CRLF);
        EXPECT_TRUE(reader.ReadLine(line));
        EXPECT_EQ(line, u"y");
    }
}

/// What a person types: nothing more comes before this is read.
TEST(TextReaderTest, ALineThatIsThereIsGivenAtOnce)
{
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe(ends.data()), 0);
    Classes::THandleStream stream(ends[0]);
    CTextReader reader(&stream);
    UnicodeString line;
    for (const std::string_view text : {"a\n", "\n", "b\r\n"}) {
        ASSERT_EQ(write(ends[1], text.data(), text.size()), static_cast<ssize_t>(text.size()));
        EXPECT_TRUE(reader.ReadLine(line));
    }
    EXPECT_EQ(line, u"b");
    close(ends[1]);
    EXPECT_FALSE(reader.ReadLine(line));
    close(ends[0]);
}

TEST(TextReaderTest, FilesAreOpened)
{
    const Support::TempFolder folder;
    const UnicodeString path = System::FromUtf8((folder.Path() / "text").string());
    EXPECT_THROW(CTextReader{path}, Classes::EFOpenError);
    BTL::SaveStringToFile(path, "one\ntwo");
    CTextReader reader(path);
    EXPECT_EQ(LinesOf(reader), (Lines{u"one", u"two"}));
}

} // namespace
