// SPDX-License-Identifier: MIT
#include "streams/BTL_STRM_FileInStream.h"
#include "streams/BTL_STRM_StdIOStream.h"
#include "streams/BTL_STRM_StdStreamUtilities.h"
#include "streams/BTL_STRM_StreamUtilities.h"
#include "streams/ForwardOnlySupport.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <concepts>
#include <random>
#include <string>
#include <string_view>

using System::UnicodeString;

namespace
{

TEST(FileStreamsTest, ReadADataFile)
{
    const Support::TempFolder folder;
    const UnicodeString path = System::FromUtf8((folder.Path() / "file").string());
    BTL::SaveStringToFile(path, "head\nT;*N;12;-34 x56;text,until<>rest\nlast line\n99");
    BTL::CFileInStreamEx file(path);
    file.SkipLine();
    EXPECT_EQ(file.getCurrLine(), 1);
    EXPECT_EQ(file.ReadTypeChar(), 'T');
    char type = 0;
    EXPECT_TRUE(file.ReadTypeCharEx(type, '*'));
    EXPECT_EQ(type, 'N');
    EXPECT_EQ(file.ReadInteger(';'), 12);
    EXPECT_EQ(file.ReadInteger(), -34);
    EXPECT_FALSE(file.ReadTypeCharEx(type, '*')) << type;
    EXPECT_EQ(file.ReadInteger(), 6);
    EXPECT_EQ(file.ReadUntil(','), "text");
    EXPECT_EQ(file.ReadUntil("<>"), "until");
    EXPECT_EQ(file.ReadString(), "rest");
    file.SkipUntil('\n');
    EXPECT_EQ(file.ReadBytes(4), "last");
    EXPECT_EQ(file.ReadIntegerUnget(5), 5);
    file.SkipBytes(1);
    EXPECT_EQ(file.ReadOpChar(), 'l');
    EXPECT_THROW(file.ReadInt64('\n'), Sysutils::EConvertError);
    EXPECT_EQ(file.ReadInt64(), 99);
    EXPECT_EQ(file.getPosition(), file.getSize());
    EXPECT_TRUE(file.eof() && !file.fail());
    EXPECT_EQ(file.ReadInt64Unget(3), 3);
    EXPECT_TRUE(file.fail());
}

class FileOfForwardOnlyTest : public Support::ForwardOnlyTest
{
};

INSTANTIATE_TEST_SUITE_P(NamedPipe, FileOfForwardOnlyTest, testing::Values(Support::EForwardKind::NamedPipe));

TEST_P(FileOfForwardOnlyTest, ADataFileMayBeANamedPipe)
{
    BTL::CFileInStreamEx file(NamedPipe("t,12,word rest;of\nlast"));
    EXPECT_EQ(file.ReadTypeChar(), 't');
    EXPECT_EQ(file.ReadInteger(','), 12);
    EXPECT_EQ(file.ReadString(), "word");
    EXPECT_EQ(file.ReadUntil(';'), " rest");
    file.SkipLine();
    System::AnsiString word;
    EXPECT_TRUE(file >> word);
    EXPECT_EQ(word, "last");
    EXPECT_FALSE(file >> word);
    EXPECT_EQ(file.getPosition(), -1);
    EXPECT_THROW(file.getCurrLine(), Classes::EStreamError);
}

/// The bits of the state as letters, and whether the stream as a condition is true.
template <class Stream>
std::string StateOf(const Stream& stream)
{
    return std::string(stream.eof() ? "e" : "") + (stream.fail() ? "f" : "") + (stream.bad() ? "b" : "") +
           (stream ? "+" : "-");
}

/// A reading operation on streams of two kinds, and the states that it leaves.
template <class Own, class Standard>
struct GStateRow
{
    const char* what;
    const char* content;
    void (*read)(Own&);
    void (*readStandard)(Standard&);
    std::string state;
    /// Where the own stream leaves another one.
    std::string ownState;
};

template <class Own, class Standard, class Read>
GStateRow<Own, Standard> Row(const char* what, const char* content, Read read, const char* state,
                             const char* ownState = nullptr)
{
    return {what, content, read, read, state, ownState == nullptr ? state : ownState};
}

class FileStateTest : public testing::Test
{
protected:
    UnicodeString FileWith(const char* content) const
    {
        BTL::SaveStringToFile(mPath, content);
        return mPath;
    }

    template <class Stream>
    void ExpectState(Stream&& stream, void (*read)(std::remove_reference_t<Stream>&),
                     const std::string& state)
    {
        read(stream);
        EXPECT_EQ(StateOf(stream), state);
    }

private:
    Support::TempFolder mFolder;
    UnicodeString mPath = System::FromUtf8((mFolder.Path() / "file").string());
};

TEST_F(FileStateTest, OneRuleHoldsForAllFiles)
{
    using BTL::operator>>;
    const auto getOne = [](auto& in) {
        char c = 0;
        in.get(c);
    };
    const auto getTwo = [](auto& in) {
        char c = 0;
        in.get(c);
        in.get(c);
    };
    const auto readTwo = [](auto& in) {
        char bytes[2];
        in.read(bytes, 2);
    };
    const auto getLine = [](auto& in) {
        char line[10];
        in.getline(line, 10);
    };
    const auto takeInt = [](auto& in) {
        int value = 0;
        in >> value;
    };
    const auto takeDouble = [](auto& in) {
        double value = 0;
        in >> value;
    };
    const auto takeWord = [](auto& in) {
        System::AnsiString word;
        in >> word;
    };
    const auto seekBehindEnd = [](auto& in) {
        char line[10];
        in.getline(line, 10);
        in.seekg(0);
    };
    const auto row = []<class Read>(const char* what, const char* content, Read read, const char* state,
                                    const char* ownState = nullptr) {
        return Row<BTL::CInStream, std::istream>(what, content, read, state, ownState);
    };
    const GStateRow<BTL::CInStream, std::istream> rows[] = {
        row("the last byte", "a", getOne, "+"),      row("a byte too many", "a", getTwo, "ef-"),
        row("all bytes", "ab", readTwo, "+"),        row("fewer bytes", "a", readTwo, "ef-"),
        row("a line", "ab\n", getLine, "+"),         row("a line without an end", "ab", getLine, "e+"),
        row("no line", "", getLine, "ef-"),          row("a number", "12 ", takeInt, "+"),
        row("the last number", "12", takeInt, "e+"), row("the last float", "1.5", takeDouble, "e+"),
        row("no number", " \n", takeInt, "ef-"),     row("what is no number", "x", takeInt, "f-"),
        row("a word", "ab ", takeWord, "+"),         row("the last word", "ab", takeWord, "e+", "+"),
        row("no word", " ", takeWord, "ef-", "e-"),  row("a seek", "ab", seekBehindEnd, "+"),
    };
    for (const auto& c : rows) {
        SCOPED_TRACE(c.what);
        const UnicodeString path = FileWith(c.content);
        ExpectState<BTL::CInStream>(BTL::CInStream(path, BTL::fomRead, BTL::fsmDenyNone), c.read, c.ownState);
        ExpectState<BTL::CInStream>(BTL::CFileInStream(path), c.read, c.ownState);
        ExpectState<BTL::CInStream>(BTL::CFileInStreamEx(path), c.read, c.ownState);
        ExpectState<std::istream>(BTL::CStdInFileStream(path), c.readStandard, c.state);
        ExpectState<std::istream>(BTL::CStdFileInStreamEx(path), c.readStandard, c.state);
        BTL::CFileStream file(path);
        ExpectState<std::istream>(BTL::CStdInStream(file.getStream(), BTL::ssSync), c.readStandard, c.state);
    }
}

TEST_F(FileStateTest, ItHoldsForDataFilesToo)
{
    using TRow = GStateRow<BTL::CFileInStreamEx, BTL::CStdFileInStreamEx>;
    const auto until = [](auto& in) { in.ReadUntil(';'); };
    const auto untilText = [](auto& in) { in.ReadUntil(System::AnsiString(";")); };
    const auto skipLine = [](auto& in) { in.SkipLine(); };
    const auto number = [](auto& in) { in.ReadIntegerDef(0); };
    const auto numberUnget = [](auto& in) { in.ReadInt64Unget(0); };
    const auto bytes = [](auto& in) { in.ReadBytes(2); };
    const auto type = [](auto& in) { in.ReadTypeChar(); };
    const auto raising = [](auto& in) { EXPECT_THROW(in.ReadInteger(), Sysutils::EConvertError); };
    const auto row = []<class Read>(const char* what, const char* content, Read read, const char* state,
                                    const char* ownState = nullptr) {
        return Row<BTL::CFileInStreamEx, BTL::CStdFileInStreamEx>(what, content, read, state, ownState);
    };
    // A standard stream counts a piece without its end as a failure.
    const TRow rows[] = {
        row("a piece", "ab;", until, "+"),
        row("an empty piece", ";", until, "+"),
        row("the last piece", "ab", until, "ef-", "e+"),
        row("no piece", "", until, "ef-"),
        row("a piece in front of a text", "ab;", untilText, "+"),
        row("the last piece, without that text", "ab", untilText, "ef-", "e+"),
        row("a line", "ab\n", skipLine, "+"),
        row("a line without an end", "ab", skipLine, "ef-", "e+"),
        row("no line", "", skipLine, "ef-"),
        row("a number", "12;", number, "+"),
        row("the last number", "12", number, "ef-", "e+"),
        row("no number", "", number, "ef-"),
        row("a number that is kept apart", "12;", numberUnget, "+"),
        row("the last such number", "12", numberUnget, "ef-", "e+"),
        row("no such number", "", numberUnget, "ef-"),
        row("no number, raising", "", raising, "ef-"),
        row("all bytes", "ab", bytes, "+"),
        row("fewer bytes", "a", bytes, "ef-", "e+"),
        row("no bytes", "", bytes, "ef-"),
        row("a type", "a;", type, "+"),
        row("a type without a byte behind it", "a", type, "ef-"),
    };
    for (const TRow& c : rows) {
        SCOPED_TRACE(c.what);
        const UnicodeString path = FileWith(c.content);
        ExpectState<BTL::CFileInStreamEx>(BTL::CFileInStreamEx(path), c.read, c.ownState);
        ExpectState<BTL::CStdFileInStreamEx>(BTL::CStdFileInStreamEx(path), c.readStandard, c.state);
    }
}

TEST_F(FileStateTest, PiecesAreReadToTheLast)
{
    BTL::CFileInStreamEx file(FileWith("a;;bc"));
    System::AnsiString pieces;
    for (System::AnsiString piece = file.ReadUntil(';'); file; piece = file.ReadUntil(';')) {
        pieces += "[" + piece + "]";
    }
    EXPECT_EQ(pieces, "[a][][bc]");
    file.clear();
    file.ReadUntil(';');
    file.clear();
    file.seekg(0);
    file.SkipLine();
    EXPECT_EQ(file.gcount(), 5);
    EXPECT_TRUE(file.eof());
    file.SkipBytes(-2);
    EXPECT_TRUE(file.good()) << "a move takes eof back";
    EXPECT_EQ(file.get(), 'b');
    EXPECT_FALSE(BTL::Eof(file.getStream()));
    EXPECT_EQ(file.get(), 'c');
    EXPECT_TRUE(BTL::Eof(file.getStream())) << "looks ahead";
    EXPECT_FALSE(file.eof()) << "no operation wanted more";
}

template <class File>
class CurrLineTest : public testing::Test
{
};

using DataFiles = testing::Types<BTL::CFileInStreamEx, BTL::CStdFileInStreamEx>;
TYPED_TEST_SUITE(CurrLineTest, DataFiles);

TYPED_TEST(CurrLineTest, IsThatOfThePositionHoweverItMoves)
{
    const Support::TempFolder folder;
    const UnicodeString path = System::FromUtf8((folder.Path() / "file").string());
    std::mt19937 random(1);
    std::string text;
    for (int i = 0; i < 20'000; ++i) {
        text += random() % 8 == 0 ? '\n' : 'x';
    }
    BTL::SaveStringToFile(path, System::AnsiString(std::string_view(text)));
    TypeParam file(path);
    for (int step = 0; step < 500; ++step) {
        switch (random() % 4) {
        case 0:
            file.SkipBytes(static_cast<int>(random() % 6'000));
            break;
        case 1:
            file.ReadBytes(5);
            break;
        case 2:
            if constexpr (std::same_as<TypeParam, BTL::CFileInStreamEx>) {
                file.getStream()->setPosition(static_cast<System::Int64>(random() % 20'000));
            } else {
                file.clear();
                file.seekg(static_cast<std::streamoff>(random() % 20'000));
            }
            break;
        default:
            file.SkipLine();
        }
        const System::Int64 position = file.getPosition();
        const auto inside = std::min(position, static_cast<System::Int64>(text.size()));
        ASSERT_EQ(file.getCurrLine(), std::count(text.begin(), text.begin() + inside, '\n')) << position;
        ASSERT_EQ(std::min(file.getPosition(), file.getSize()), inside);
    }
}

TYPED_TEST(CurrLineTest, IsAskedForBehindEachLine)
{
    const Support::TempFolder folder;
    const UnicodeString path = System::FromUtf8((folder.Path() / "file").string());
    constexpr int count = 30'000;
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += "12;13;14;15;16;17;18;19\n";
    }
    BTL::SaveStringToFile(path, System::AnsiString(std::string_view(text)));
    TypeParam file(path);
    for (int i = 1; i <= count; ++i) {
        file.SkipLine();
        ASSERT_EQ(file.getCurrLine(), i);
    }
}

} // namespace
