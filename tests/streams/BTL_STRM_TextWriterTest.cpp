// SPDX-License-Identifier: MIT
#include "streams/BTL_STRM_TextWriter.h"
#include "support/ChildProgram.h"
#include "support/TempFolder.h"

#include <algorithm>
#include <csignal>
#include <fstream>
#include <iterator>

#include <gtest/gtest.h>
#include <sys/resource.h>

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
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{100, 100};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
    const Support::TempFolder folder;
    const auto path = [&](const char* name) { return System::FromUtf8((folder.Path() / name).string()); };
    const UnicodeString text(std::u16string(110, u'x'));
    CTextWriter flushed(path("a"));
    flushed.Write(text);
    CTextWriter closed(path("b"));
    closed.Write(text);
    std::string told;
    try {
        flushed.Flush();
    } catch (const Classes::EWriteError&) {
        told += "flush ";
    }
    try {
        closed.Close();
    } catch (const Classes::EWriteError&) {
        told += "close";
    }
    Support::PrintResult(told);
}

TEST(TextWriterDiskTest, AFullDiskIsTold)
{
    EXPECT_EQ(Support::RunChildTest("TextWriterDiskTest.DISABLED_ChildThatFillsTheDisk"), "flush close");
}

} // namespace
