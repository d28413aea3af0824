// SPDX-License-Identifier: MIT
#include "foundation/UTL_ASRT_Assert.h"
#include "platform/base/Sysutils_Locale.h"
#include "platform/toolkit/MessageBox.h"
#include "streams/BTL_STRM_FileInStream.h"
#include "streams/BTL_STRM_FileOutStream.h"
#include "streams/BTL_STRM_StreamLists.h"
#include "streams/BTL_STRM_StreamUtilities.h"
#include "support/FormatSettingsGuard.h"
#include "support/ScriptedBoxes.h"
#include "support/TempFolder.h"

#include <climits>
#include <limits>
#include <span>

#include <gtest/gtest.h>

using BTL::CInStream;
using BTL::COutStream;
using System::AnsiString;
using System::Int64;
using System::UnicodeString;

namespace
{

/// The bits of the state as letters, and the position.
std::string StateOf(const BTL::AStream& stream)
{
    std::string text;
    text += stream.eof() ? "e" : "";
    text += stream.fail() ? "f" : "";
    text += stream.bad() ? "b" : "";
    return text + std::to_string(stream.GetPosition());
}

/// Reads one value: its text, the state and the position.
template <class T>
std::string ReadOne(const char* text)
{
    CInStream stream{AnsiString(text)};
    T value = T(1);
    stream >> value;
    COutStream out;
    out << value;
    return std::string(out.str(0).c_str()) + " " + StateOf(stream);
}

TEST(InStreamTest, ReadsNumbers)
{
    EXPECT_EQ(ReadOne<int>("12 abc"), "12 2");
    EXPECT_EQ(ReadOne<int>(" \t\xE4-12"), "-12 e6") << "codes from 128 on are white space";
    EXPECT_EQ(ReadOne<int>("  \n"), "0 ef3");
    EXPECT_EQ(ReadOne<int>("x"), "0 f0");
    EXPECT_EQ(ReadOne<int>("1-2;"), "0 f3");
    EXPECT_EQ(ReadOne<int>("4294967297,"), "1 10") << "cut to the target";
    EXPECT_EQ(ReadOne<short>("65537,"), "1 5");
    EXPECT_EQ(ReadOne<Int64>("9223372036854775807,"), "9223372036854775807 19");
    EXPECT_EQ(ReadOne<Int64>("9223372036854775808,"), "0 f19");
    EXPECT_EQ(ReadOne<unsigned>("-1 "), "0 f2");
    EXPECT_EQ(ReadOne<System::UInt64>("+5 "), "5 2");
    EXPECT_EQ(ReadOne<bool>("2"), "1 e1");
    EXPECT_EQ(ReadOne<double>("3.5e2,"), "350 5");
    EXPECT_EQ(ReadOne<double>("3,5"), "3 1");
    EXPECT_EQ(ReadOne<double>("1e999 "), "0 f5");
    EXPECT_EQ(ReadOne<float>("-.5 "), "-0.5 3");
    EXPECT_EQ(ReadOne<long double>("1e2"), "100 e3");
    EXPECT_EQ(ReadOne<double>((std::string(200, '0') + "7 ").c_str()), "7 201");
    EXPECT_EQ(ReadOne<char>("  x"), "x 3");
}

TEST(InStreamTest, PointersComeBack)
{
    const int target = 0;
    for (const void* const written : {static_cast<const void*>(&target), static_cast<const void*>(nullptr)}) {
        COutStream out;
        out << written;
        void* read = &out;
        CInStream(out.str(0)) >> read;
        EXPECT_EQ(read, written);
    }
}

TEST(InStreamTest, LongDoublesHaveTheirOwnRangeAndPrecision)
{
    const struct
    {
        long double value;
        const char* text;
        const char* state;
    } cases[] = {
        {0.1L, "0.1 ", "3"},     {-123456789.0123456789L, "-123456789.0123456789 ", "21"},
        {1e400L, "1e400 ", "5"}, {3.5e-4000L, "+3.5e-4000 ", "10"},
        {0, "1e-5000 ", "7"},    {0, "1e5000 ", "f6"},
        {0, "1-1 ", "f3"},       {0, "inf ", "f0"},
    };
    for (const auto& [value, text, state] : cases) {
        CInStream stream{AnsiString(text)};
        long double read = 1;
        stream >> read;
        EXPECT_EQ(read, value) << text;
        EXPECT_EQ(StateOf(stream), state) << text;
    }
    EXPECT_EQ(ReadOne<long double>("1E400"), "1E400 e5");
    EXPECT_EQ(ReadOne<double>("1e400 "), "0 f5");
}

TEST(InStreamTest, ASignFailsWhateverTheStateWas)
{
    CInStream stream("-1");
    int before = 0;
    stream >> before;
    EXPECT_EQ(StateOf(stream), "e2");
    stream.seekg(0);
    unsigned value = 1;
    stream >> value;
    EXPECT_EQ(value, 0U);
    EXPECT_EQ(StateOf(stream), "ef2");
}

/// Opens what the library has no use for itself.
class UntilStream : public CInStream
{
public:
    using CInStream::CInStream;
    std::string ReadUntil(Int64 count, bool stopAtLineFeed)
    {
        std::string buffer(8, '~');
        DoReadUntil(buffer.data(), count, ';', stopAtLineFeed);
        return buffer.substr(0, static_cast<std::size_t>(gcount()) + 1) + " " + StateOf(*this);
    }
};

TEST(InStreamTest, ReadsUntilADelimiterOrALineFeed)
{
    UntilStream stream("ab;c\nde\nf", 9);
    EXPECT_EQ(stream.ReadUntil(7, true), "ab~ 3");
    EXPECT_EQ(stream.ReadUntil(7, true), "c\n~ 5");
    EXPECT_EQ(stream.ReadUntil(1, true), "d~ 6");
    EXPECT_EQ(stream.ReadUntil(0, true), "~ 6");
    EXPECT_EQ(stream.ReadUntil(7, false), "e\nf~ e9");
    stream.seekg(0);
    EXPECT_EQ(stream.ReadUntil(7, true), "~ e0") << "only while the state is good";
}

TEST(InStreamTest, ReadsInARow)
{
    CInStream stream("12 3.5 ab \xE4wort");
    int integer = 0;
    double real = 0;
    AnsiString word;
    UnicodeString last = u"x";
    stream >> integer >> real >> word;
    EXPECT_EQ(integer, 12);
    EXPECT_EQ(real, 3.5);
    EXPECT_EQ(word, "ab");
    stream >> last;
    EXPECT_EQ(last, u"wort");
    EXPECT_TRUE(stream.good());
    stream >> word;
    EXPECT_EQ(word, "");
    EXPECT_EQ(StateOf(stream), "e15");
    stream >> integer;
    EXPECT_EQ(integer, 0);
    EXPECT_EQ(StateOf(stream), "ef15");
    stream.clear();
    stream.seekg(0).seekg(3, std::ios_base::cur);
    stream >> real;
    EXPECT_EQ(real, 3.5);
}

TEST(InStreamTest, NumbersDontFollowTheLocale)
{
    const Support::FormatSettingsGuard guard;
    Sysutils::DecimalSeparator = u',';
    COutStream out;
    out << 1 << ' ' << 2.5 << ' ' << 2.5F << ' ' << 2.5L;
    EXPECT_EQ(out.str(0), "1 2.5 2.5 2.5");
    EXPECT_EQ(ReadOne<double>("2.5 "), "2.5 3");
    EXPECT_EQ(Sysutils::DecimalSeparator, u',');
}

/// Runs a read of a text into a buffer of `count` bytes; gives the buffer (`~` for what is untouched and `0`
/// for zeros), the count told and the state.
template <class Read>
std::string ReadInto(const AnsiString& content, Int64 count, Read read)
{
    CInStream stream(content);
    std::string buffer(8, '~');
    read(stream, buffer.data(), count);
    std::replace(buffer.begin(), buffer.end(), '\0', '0');
    return buffer + " " + std::to_string(stream.gcount()) + " " + StateOf(stream);
}

TEST(InStreamTest, GetsTextsInFrontOfADelimiter)
{
    const auto get = [](CInStream& stream, char* buffer, Int64 count) { stream.get(buffer, count, ';'); };
    EXPECT_EQ(ReadInto("ab;c", 8, get), "ab0~~~~~ 2 2");
    EXPECT_EQ(ReadInto(";", 8, get), "0~~~~~~~ 0 f0");
    EXPECT_EQ(ReadInto("ab\nc", 8, get), "ab\nc0~~~ 4 e4");
    EXPECT_EQ(ReadInto("abcd", 3, get), "ab0~~~~~ 2 2");
    EXPECT_EQ(ReadInto(AnsiString("a\0b", 3), 8, get), "a00~~~~~ 2 f2");
    EXPECT_EQ(ReadInto("", 8, get), "0~~~~~~~ 0 ef0");
    EXPECT_EQ(ReadInto("ab", 1, get), "~~~~~~~~ 0 f0");
    EXPECT_EQ(ReadInto("ab", -1, get), "~~~~~~~~ 0 f0");

    const auto getLine = [](CInStream& stream, char* buffer, Int64 count) { stream.get(buffer, count); };
    EXPECT_EQ(ReadInto("ab\nc", 8, getLine), "ab00~~~~ 3 3") << "the line feed counts as a zero";
    EXPECT_EQ(ReadInto("\n", 8, getLine), "00~~~~~~ 1 1");
}

TEST(InStreamTest, GetsLinesWithTheirDelimiter)
{
    const auto getline = [](CInStream& stream, char* buffer, Int64 count) { stream.getline(buffer, count); };
    EXPECT_EQ(ReadInto("ab\nc", 8, getline), "ab0~~~~~ 3 3");
    EXPECT_EQ(ReadInto("\n", 8, getline), "0~~~~~~~ 1 1");
    EXPECT_EQ(ReadInto("ab", 8, getline), "ab0~~~~~ 2 e2");
    EXPECT_EQ(ReadInto("abcd", 3, getline), "ab0~~~~~ 2 2");
    EXPECT_EQ(ReadInto("ab", 3, getline), "ab0~~~~~ 2 e2");
    EXPECT_EQ(ReadInto("", 8, getline), "0~~~~~~~ 0 ef0");
    EXPECT_EQ(ReadInto(AnsiString("a\0b", 3), 8, getline), "a00~~~~~ 2 f2");
    EXPECT_EQ(ReadInto("ab", 0, getline), "~~~~~~~~ 0 f0");
    EXPECT_EQ(
        ReadInto("a;b", 8,
                 [](CInStream& stream, char* buffer, Int64 count) { stream.getline(buffer, count, ';'); }),
        "a0~~~~~~ 2 2");
    EXPECT_EQ(
        ReadInto("abc", 2, [](CInStream& stream, char* buffer, Int64 count) { stream.read(buffer, count); }),
        "ab~~~~~~ 2 2");
    EXPECT_EQ(
        ReadInto("abc", 5, [](CInStream& stream, char* buffer, Int64 count) { stream.read(buffer, count); }),
        "abc~~~~~ 3 ef3");
}

TEST(InStreamTest, SingleCharactersAndPositions)
{
    CInStream stream("abc", 2);
    EXPECT_EQ(stream.peek(), 0);
    EXPECT_EQ(stream.get(), 'a');
    EXPECT_EQ(stream.tellg(), 1);
    EXPECT_EQ(stream.seekoff(0, std::ios_base::cur), 1);
    EXPECT_EQ(stream.seekoff(-1, std::ios_base::end), 1);
    EXPECT_EQ(stream.seekoff(7, static_cast<std::ios_base::seekdir>(77)), 0);
    EXPECT_EQ(stream.seekoff(INT64_MIN, std::ios_base::end), 0);
    EXPECT_EQ(stream.seekpos(2), 2);
    char c = 'x';
    stream.get(c);
    EXPECT_EQ(c, '\0');
    EXPECT_EQ(StateOf(stream), "ef2");
}

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

TEST(InStreamTest, ExceptionsOfTheStreamSetBad)
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
        EXPECT_EQ(StateOf(stream), "b3");
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

TEST(OutStreamTest, WritesEachType)
{
    COutStream out;
    out << 'c' << true << static_cast<short>(-3) << static_cast<unsigned short>(4) << -5 << 6U << -7L << 8UL
        << Int64{-9} << System::UInt64{10} << ' ' << reinterpret_cast<const void*>(255) << ' '
        << static_cast<const char*>(nullptr) << "text" << u"ä€\u4E2D" << AnsiString("narrow")
        << UnicodeString(u"wide");
    EXPECT_EQ(out.str(0), "c1-34-56-78-910 255 text\xE4\x80?narrowwide");
    COutStream numbers;
    numbers << 0.1 << ' ' << 1e300 << ' ' << std::numeric_limits<Int64>::min() << ' ' << 0.1F;
    EXPECT_EQ(numbers.str(0), "0.1 1E300 -9223372036854775808 0.100000001490116");
}

TEST(OutStreamTest, WritesFormatsAndGivesTheTextBack)
{
    COutStream out;
    out.Write_VA("%d-%s", 5, "x").Write_VA(u"|%3d", 7).put('!').write("ab", 2).write("ab", -1);
    EXPECT_EQ(out.str(0), "5-x|  7!ab");
    EXPECT_EQ(out.str(8), "ab");
    EXPECT_EQ(out.str(10), "");
    EXPECT_EQ(out.str(-4), "5-x|  7!ab");
    EXPECT_EQ(out.tellp(), 10);
    out.seekp(1).put('+');
    out.seekp(0, std::ios_base::end) << AnsiString("a\4b", 3) << '\xFF';
    EXPECT_EQ(out.str(0), "5+x|  7!aba");
    EXPECT_EQ(out.str(12), "b\xFF");
    EXPECT_EQ(COutStream().str(0), "");
}

TEST(OutStreamTest, ShortWritesFail)
{
    const Support::TempFolder folder;
    const UnicodeString path = System::FromUtf8((folder.Path() / "file").string());
    BTL::SaveStringToFile(path, "abc");
    COutStream out(path, BTL::fomRead, BTL::fsmDenyNone);
    out << 5;
    EXPECT_EQ(StateOf(out), "f0");
}

TEST(FileStreamsTest, WriteAndReadLines)
{
    const Support::TempFolder folder;
    const UnicodeString path = System::FromUtf8((folder.Path() / "file").string());
    {
        BTL::CFileOutStream out(path);
        out.WriteLine("x");
        out.WriteLine(u"ä");
        out.WriteLine(AnsiString("z"));
        out.WriteLine(UnicodeString(u"w"));
        EXPECT_EQ(BTL::LoadStringFromStream(std::make_unique<Classes::TFileStream>(path, 64).get()),
                  "x\r\n\xE4\r\nz\r\nw\r\n");
    }
    BTL::CFileOutStream(path, Classes::fmOpenWrite | Classes::fmShareDenyNone) << "12 ";
    BTL::CFileOutStreamEx(path).WriteLine("12 3");
    BTL::CFileInStream in(path);
    int value = 0;
    in >> value;
    EXPECT_EQ(value, 12);
    EXPECT_EQ(in.getFileStream()->getFileName(), path);
}

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
    EXPECT_EQ(file.ReadInt64Unget(3), 3);
    EXPECT_TRUE(file.good());
}

class Witness : public COutStream
{
public:
    explicit Witness(int& alive) : mAlive(alive) { ++mAlive; }
    ~Witness() override { --mAlive; }

private:
    int& mAlive;
};

TEST(StreamListsTest, StreamsLiveAsLongAsAListHoldsThem)
{
    int alive = 0;
    Classes::TMemoryStream memory;
    BTL::COutStreams first;
    {
        BTL::COutStreams second;
        auto* const stream = new Witness(alive);
        first.Add(stream);
        second.Add(stream);
        second.Add(nullptr);
        second.Add(&memory, BTL::ssKeep);
        *second[2] << "kept";
        const BTL::COutStreams copy(second);
        second.Clear();
        EXPECT_EQ(second.size(), 0U);
        first.Clear();
        EXPECT_EQ(alive, 1);
        first = copy;
    }
    EXPECT_EQ(alive, 1);
    EXPECT_EQ(first.size(), 3U);
    first.Clear();
    EXPECT_EQ(alive, 0);
    EXPECT_EQ(memory.AsView(), "kept");
}

TEST(StreamListsTest, SurplusReleasesAreInternalFaults)
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

} // namespace
