// SPDX-License-Identifier: MIT
#include "streams/BTL_STRM_StdStreamUtilities.h"
#include "streams/BTL_STRM_Stream.h"
#include "streams/BTL_STRM_StreamUtilities.h"
#include "support/TempFolder.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>
#include <streambuf>
#include <string>
#include <utility>

#include <gtest/gtest.h>

using System::AnsiString;
using System::UnicodeString;

namespace
{

TEST(StdStreamUtilitiesTest, ReadPieces)
{
    std::istringstream stream("ab;cd,x\n12;-7x-y;99999999999 word");
    EXPECT_EQ(BTL::ReadStringUntil(stream, ",;"), "ab");
    EXPECT_EQ(stream.peek(), 'c');
    EXPECT_EQ(BTL::ReadStringUntil(stream, ','), "cd");
    BTL::SkipLine(stream);
    EXPECT_EQ(BTL::ReadInteger(stream), 12);
    EXPECT_EQ(BTL::ReadIntegerUnget(stream, 1), -7);
    EXPECT_EQ(BTL::ReadIntegerUnget(stream, 1), 1) << "only a sign";
    EXPECT_EQ(stream.get(), 'y');
    EXPECT_EQ(BTL::ReadIntegerDef(stream, 5), 5);
    EXPECT_EQ(BTL::ReadInt64(stream), 99'999'999'999);
    AnsiString word;
    BTL::operator>>(stream, word);
    EXPECT_EQ(word, "word");
    EXPECT_EQ(BTL::ReadInt64Def(stream, 8), 8);
    EXPECT_EQ(BTL::ReadInt64Unget(stream, 9), 9);
    EXPECT_THROW(BTL::ReadInteger(stream), Sysutils::EConvertError);

    std::istringstream bytes("abcdef");
    EXPECT_EQ(BTL::ReadBytes(bytes, 3), AnsiString("abc\0", 4));
    EXPECT_EQ(BTL::ReadBytes(bytes, 0), "");
    BTL::SkipBytes(bytes, 1);
    EXPECT_EQ(BTL::ReadBytes(bytes, 4), AnsiString("ef\0\0\0", 5));
    std::istringstream longWord(std::string(600, 'x').append(" y"));
    BTL::operator>>(longWord, word);
    EXPECT_EQ(word.Length(), 511);
    BTL::operator>>(longWord, word);
    EXPECT_EQ(word.Length(), 89);
}

/// Gives a text in pieces, or without any buffer for a size of 0, and fails at the end if told.
class PieceStreambuf : public std::streambuf
{
public:
    PieceStreambuf(std::string text, std::size_t pieceSize, bool fails)
        : mText(std::move(text)), mPieceSize(pieceSize), mFails(fails)
    {
    }

protected:
    int_type underflow() override
    {
        if (mNext == mText.size()) {
            if (mFails) {
                throw std::domain_error("the cable is out");
            }
            return traits_type::eof();
        }
        if (mPieceSize > 0) {
            const std::size_t size = std::min(mPieceSize, mText.size() - mNext);
            char* const piece = mText.data() + mNext;
            setg(piece, piece, piece + size);
            mNext += size;
            return traits_type::to_int_type(*piece);
        }
        return traits_type::to_int_type(mText[mNext]);
    }
    int_type uflow() override
    {
        if (mPieceSize > 0) {
            return std::streambuf::uflow();
        }
        const int_type c = underflow();
        mNext += c == traits_type::eof() ? 0 : 1;
        return c;
    }

private:
    std::string mText;
    std::size_t mPieceSize;
    std::size_t mNext = 0;
    bool mFails;
};

TEST(StdStreamUtilitiesTest, ReadFromBuffersOfAnySize)
{
    for (const std::size_t size : {0U, 1U, 2U, 3U, 5U, 100U}) {
        SCOPED_TRACE(size);
        PieceStreambuf buffer("ab;c,-12x--;rest", size, false);
        std::istream stream(&buffer);
        EXPECT_EQ(BTL::ReadStringUntil(stream, ';'), "ab");
        EXPECT_EQ(stream.gcount(), 1);
        EXPECT_EQ(BTL::ReadStringUntil(stream, ";,"), "c");
        EXPECT_EQ(BTL::ReadInteger(stream), -12);
        EXPECT_EQ(BTL::ReadIntegerDef(stream, 7), 7) << "only a sign";
        EXPECT_EQ(stream.get(), ';');
        EXPECT_EQ(stream.rdstate(), std::ios_base::goodbit);
        EXPECT_EQ(BTL::ReadStringUntil(stream, ';'), "rest");
        EXPECT_EQ(stream.rdstate(), std::ios_base::eofbit | std::ios_base::failbit);
        EXPECT_EQ(BTL::ReadStringUntil(stream, ';'), "");

        PieceStreambuf failing("ab;cd", size, true);
        std::istream broken(&failing);
        BTL::SkipUntil(broken, ';');
        EXPECT_EQ(BTL::ReadStringUntil(broken, ';'), "cd");
        EXPECT_TRUE(broken.bad());

        PieceStreambuf raising("ab;cd", size, true);
        std::istream loud(&raising);
        loud.exceptions(std::ios_base::badbit);
        BTL::SkipUntil(loud, ';');
        EXPECT_THROW(BTL::ReadStringUntil(loud, ';'), std::domain_error);
    }
    std::istream none(nullptr);
    EXPECT_EQ(BTL::ReadStringUntil(none, ';'), "");
    EXPECT_TRUE(none.bad());
}

TEST(StdStreamUtilitiesTest, KnowPlacesAndLines)
{
    std::istringstream stream("one\n\n" + std::string(3000, 'x') + "\nlast");
    EXPECT_EQ(BTL::CountLines(stream, -1), 3);
    EXPECT_EQ(BTL::CountLines(stream, 5), 2);
    EXPECT_EQ(BTL::GetReadPosition(stream), 6) << "the byte behind the limit is read too";
    EXPECT_EQ(BTL::GetSize(stream), 3010);
    EXPECT_EQ(stream.tellg(), 6);
    const struct
    {
        int position;
        AnsiString line;
    } cases[] = {{0, "one"},     {3, "one"},     {4, ""},
                 {3006, "last"}, {3010, "last"}, {2000, AnsiString::StringOfChar('x', 1023)}};
    for (const auto& [position, line] : cases) {
        stream.clear();
        stream.seekg(position);
        EXPECT_EQ(BTL::GetCurrStrLine(stream), line) << position;
        EXPECT_EQ(stream.tellg(), position);
    }
    stream.seekg(0);
    BTL::SkipUntil(stream, '\n');
    BTL::SkipWhitespaces(stream);
    EXPECT_EQ(stream.tellg(), 5);
}

TEST(StdStreamUtilitiesTest, ReadADataFile)
{
    const Support::TempFolder folder;
    const UnicodeString path = System::FromUtf8((folder.Path() / "file").string());
    BTL::CStdFileInStreamEx missing(path);
    EXPECT_TRUE(missing.fail());
    EXPECT_EQ(missing.getCurrLine(), 0);
    EXPECT_EQ(missing.getCurrStrLine(), "");
    EXPECT_TRUE(missing.fail()) << "stays so";
    EXPECT_TRUE(BTL::CStdFileInStreamEx(System::FromUtf8(folder.Path().string())).fail());
    {
        BTL::CStdFileOutStreamEx out(path);
        out << "head\nT;*N;12;7 text a,b;\n";
    }
    Classes::TFileStream append(path, Classes::fmOpenReadWrite | Classes::fmShareDenyNone);
    append.Seek(0, Classes::soEnd);
    append.WriteBuffer("end", 3);
    BTL::CStdFileInStreamEx file(path);
    EXPECT_EQ(file.getSize(), 28) << "what is written is there to read";
    file.SkipLine();
    EXPECT_EQ(file.getCurrLine(), 1);
    EXPECT_EQ(file.ReadTypeChar(), 'T');
    char type = 0;
    EXPECT_TRUE(file.ReadTypeCharEx(type, '*'));
    EXPECT_EQ(type, 'N');
    EXPECT_EQ(file.ReadInteger(';'), 12);
    EXPECT_EQ(file.ReadInt64(), 7);
    EXPECT_EQ(file.ReadString(), "text");
    EXPECT_EQ(file.getCurrStrLine(), "T;*N;12;7 text a,b;");
    EXPECT_EQ(file.ReadUntil(",;"), " a");
    EXPECT_EQ(file.ReadUntil('\n'), "b;");
    EXPECT_EQ(file.ReadBytes(2), AnsiString("en\0", 3));
    EXPECT_EQ(file.getPosition(), 27);
    EXPECT_EQ(file.ReadOpChar(), 'd');
    EXPECT_TRUE(file.eof());
    EXPECT_EQ(file.getCurrLine(), 2);
    EXPECT_EQ(file.tellg(), 28);
    EXPECT_EQ(file.get(), std::char_traits<char>::eof());
    EXPECT_EQ(file.getCurrStrLine(), "end");
    EXPECT_EQ(file.tellg(), 28);
}

TEST(StdStreamUtilitiesTest, WhatTheyWriteIsReadAnew)
{
    const Support::TempFolder folder;
    const UnicodeString path = System::FromUtf8((folder.Path() / "file").string());
    BTL::SaveStringToFile(path, "old content");
    BTL::CFileStream reader(path);
    EXPECT_EQ(reader.ReadAll(), "old content");
    BTL::CStdFileOutStreamEx(path) << "new";
    EXPECT_EQ(reader.ReadAll(), "new");
}

TEST(StdStreamUtilitiesTest, AFileThatGoesBadRaises)
{
    BTL::CStdFileOutStreamEx out(u"\\dev\\full");
    EXPECT_THROW(out << "x" << std::flush, std::ios_base::failure);
}

} // namespace
