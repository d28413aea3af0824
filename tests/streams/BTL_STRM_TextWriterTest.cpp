// SPDX-License-Identifier: MIT
#include "streams/BTL_STRM_TextWriter.h"
#include "support/ChildProgram.h"
#include "support/FileSizeLimit.h"
#include "support/TempFolder.h"

#include <algorithm>
#include <fstream>
#include <iterator>

#include <gtest/gtest.h>

using BTL::CTextWriter;
using BTL::EByteOrderMark;
using BTL::ELineEnd;
using System::UnicodeString;
using Sysutils::TEncoding;

namespace
{

class TextWriterTest : public testing::Test
{
protected:
    UnicodeString Path() const { return System::FromUtf8((mFolder.Path() / "text").string()); }
    /// As another program sees it.
    std::string Content() const
    {
        std::ifstream file(mFolder.Path() / "text", std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

private:
    Support::TempFolder mFolder;
};

TEST_F(TextWriterTest, WritesInEachForm)
{
    struct TRow
    {
        BTL::TTextForm form;
        std::string_view bytes;
    };
    using namespace std::string_view_literals;
    const TRow rows[] = {
        {{}, "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80\n"sv},
        {{.mark = EByteOrderMark::With, .lineEnd = ELineEnd::CRLF},
         "\xEF\xBB\xBF\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80\r\n"sv},
        {{.encoding = TEncoding(1252), .mark = EByteOrderMark::With, .lineEnd = ELineEnd::CR},
         "\xE4\x80?\r"sv},
        {{.encoding = TEncoding(TEncoding::Utf16), .mark = EByteOrderMark::With, .lineEnd = ELineEnd::None},
         "\xFF\xFE\xE4\0\xAC\x20\x3D\xD8\0\xDE"sv},
        {{.encoding = TEncoding(TEncoding::Utf16BigEndian)}, "\0\xE4\x20\xAC\xD8\x3D\xDE\0\0\n"sv},
    };
    for (const TRow& row : rows) {
        Classes::TMemoryStream stream;
        {
            CTextWriter out(&stream, row.form);
            out.WriteLine(u"\u00E4\u20AC\U0001F600");
        }
        EXPECT_EQ(stream.AsView(), row.bytes);
    }
}

TEST_F(TextWriterTest, FilesAreMadeAnewOrGoOn)
{
    const BTL::TTextForm form{.mark = EByteOrderMark::With};
    {
        CTextWriter out(Path(), BTL::fomAppend, form);
        out.Write(u"one");
        out.WriteLine();
    }
    {
        CTextWriter out(Path(), BTL::fomAppend, form);
        out.WriteLine(u"two");
        out.Close();
        EXPECT_EQ(Content(), "\xEF\xBB\xBFone\ntwo\n");
        EXPECT_THROW(out.Write(u"x"), Classes::EStreamError);
        EXPECT_THROW(out.Flush(), Classes::EStreamError);
        out.Close();
    }
    CTextWriter out(Path());
    out.Flush();
    EXPECT_EQ(Content(), "");
    out.Write(u"x");
    out.Flush();
    EXPECT_EQ(Content(), "x");
    EXPECT_THROW(CTextWriter(Path() + u"\\none"), Classes::EFCreateError);
    CTextWriter marked(u"\\dev\\null", form);
    marked.Flush();
}

TEST_F(TextWriterTest, AnEmptyTextHasItsMark)
{
    CTextWriter(Path(), {.mark = EByteOrderMark::With}).Close();
    EXPECT_EQ(Content(), "\xEF\xBB\xBF");
}

TEST_F(TextWriterTest, PairsMayComeInHalves)
{
    Classes::TMemoryStream stream;
    {
        CTextWriter out(&stream);
        out.Write(u"a\xD83D");
        out.Write(u"");
        out.Write(u"\xDE00"
                  u"b\xD83D");
        out.Write(u"c\xD83D");
    }
    EXPECT_EQ(stream.AsView(), "a\xF0\x9F\x98\x80"
                               "b\xEF\xBF\xBD"
                               "c\xEF\xBF\xBD");
}

/// The place and the code of what `write` can't write; 0 and 0 if it can.
template <class Write>
std::pair<int, unsigned> FaultOf(Write write)
{
    try {
        write();
    } catch (const BTL::ECharacterFault& fault) {
        return {fault.getPlace(), static_cast<unsigned>(fault.getCharacter())};
    }
    return {};
}

TEST_F(TextWriterTest, StrictEncodingTellsWhatItLacks)
{
    const struct
    {
        System::CodePage codePage;
        const char16_t* text;
        std::pair<int, unsigned> fault;
    } rows[] = {
        {1252, u"\u00E4\u20AC", {}},
        {1252, u"ab\u2192", {3, 0x2192}},
        {1252, u"a\U0001F600", {2, 0x1F600}},
        {1251, u"\u044F\u00E4", {2, 0xE4}},
        {65001, u"\u2192\U0001F600", {}},
        {65001, u"\xDE00", {1, 0xDE00}},
        {TEncoding::Utf16, u"a\xD83D!", {2, 0xD83D}},
    };
    for (const auto& [codePage, text, fault] : rows) {
        SCOPED_TRACE(UnicodeString(text));
        Classes::TMemoryStream stream;
        CTextWriter out(&stream, {.encoding = TEncoding(codePage), .strictness = BTL::EEncoding::Strict});
        EXPECT_EQ(FaultOf([&, line = text] { out.WriteLine(line); }), fault);
        EXPECT_EQ(stream.getSize() == 0, fault.first != 0) << "all of the text or nothing";
        const System::Int64 size = stream.getSize();
        out.Write(u"!");
        EXPECT_GT(stream.getSize(), size) << "writing goes on";
    }
}

TEST_F(TextWriterTest, StrictEncodingNamesTheCharacter)
{
    Classes::TMemoryStream stream;
    CTextWriter out(&stream, {.encoding = TEncoding(1252), .strictness = BTL::EEncoding::Strict});
    try {
        out.Write(u"1 \u2126");
        FAIL();
    } catch (const BTL::ECharacterFault& fault) {
        EXPECT_EQ(fault.getMessage(), u"Character 3, U+2126: not in the encoding that is written");
        EXPECT_EQ(fault.getReason(), u"U+2126: not in the encoding that is written");
    }
    EXPECT_EQ(BTL::ECharacterFault(1, 0x1F4A1).getReason(), u"U+1F4A1: not in the encoding that is written");
}

TEST_F(TextWriterTest, StrictEncodingGivesUpAHalfWithItsFault)
{
    CTextWriter out(Path(), {.strictness = BTL::EEncoding::Strict});
    out.Write(u"a\xD83D");
    EXPECT_EQ(FaultOf([&] { out.Write(u"b"); }), std::pair(0, 0xD83DU));
    out.Write(u"b\xD83D");
    EXPECT_EQ(FaultOf([&] { out.Write(u"\xDE00\xDE01"); }), std::pair(2, 0xDE01U));
    out.Write(u"\xDE00\xD83D");
    EXPECT_EQ(FaultOf([&] { out.Close(); }), std::pair(0, 0xD83DU));
    EXPECT_EQ(Content(), "ab\xF0\x9F\x98\x80");
    out.Close();
}

/// Takes a few bytes and then none.
class FullStream : public Classes::TMemoryStream
{
public:
    ~FullStream() override = default;
    System::Int64 Write(const void* buffer, System::Int64 count) override
    {
        return Classes::TMemoryStream::Write(buffer, std::min<System::Int64>(count, 5 - getSize()));
    }
};

TEST_F(TextWriterTest, WhatIsntTakenRaises)
{
    FullStream stream;
    CTextWriter out(&stream);
    out.WriteLine(u"1234");
    EXPECT_THROW(out.WriteLine(u"5"), Classes::EWriteError);
}

TEST(TextWriterDiskTest, DISABLED_ChildThatFillsTheDisk)
{
    Support::LimitFileSize(100);
    const Support::TempFolder folder;
    CTextWriter out(System::FromUtf8((folder.Path() / "a").string()));
    out.Write(UnicodeString(std::u16string(99, u'x')));
    try {
        out.Write(u"xx");
    } catch (const Classes::EWriteError&) {
        Support::PrintResult("told");
    }
}

TEST(TextWriterDiskTest, AFullDiskIsTold)
{
    EXPECT_EQ(Support::RunChildTest("TextWriterDiskTest.DISABLED_ChildThatFillsTheDisk"), "told");
}

} // namespace
