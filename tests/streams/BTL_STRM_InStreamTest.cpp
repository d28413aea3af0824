// SPDX-License-Identifier: MIT
#include "streams/BTL_STRM_InStream.h"
#include "platform/base/Sysutils_Locale.h"
#include "streams/BTL_STRM_InStream.h"
#include "streams/BTL_STRM_OutStream.h"
#include "streams/StreamStateSupport.h"
#include "support/FormatSettingsGuard.h"

#include <algorithm>
#include <gtest/gtest.h>

using BTL::CInStream;
using BTL::COutStream;
using System::AnsiString;
using System::Int64;
using System::UnicodeString;

namespace
{

/// Reads one value: its text, the state and the position.
template <class T>
std::string ReadOne(const char* text)
{
    CInStream stream{AnsiString(text)};
    T value = T(1);
    stream >> value;
    COutStream out;
    out << value;
    return std::string(out.str(0).c_str()) + " " + Support::StateOf(stream);
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
    EXPECT_EQ(ReadOne<float>("1e39 "), "0 f4");
    EXPECT_EQ(ReadOne<float>("-1e39 "), "0 f5");
    EXPECT_EQ(ReadOne<float>("1e400 "), "0 f5");
    EXPECT_EQ(ReadOne<float>("1e-60 "), "0 5");
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
        EXPECT_EQ(Support::StateOf(stream), state) << text;
    }
    EXPECT_EQ(ReadOne<long double>("1E400"), "1E400 e5");
    EXPECT_EQ(ReadOne<double>("1e400 "), "0 f5");
}

TEST(InStreamTest, ASignFailsWhateverTheStateWas)
{
    CInStream stream("-1");
    int before = 0;
    stream >> before;
    EXPECT_EQ(Support::StateOf(stream), "e2");
    stream.seekg(0);
    unsigned value = 1;
    stream >> value;
    EXPECT_EQ(value, 0U);
    EXPECT_EQ(Support::StateOf(stream), "ef2");
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
        return buffer.substr(0, static_cast<std::size_t>(gcount()) + 1) + " " + Support::StateOf(*this);
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
    EXPECT_EQ(stream.ReadUntil(7, true), "~ e9") << "only while the state is good";
    stream.seekg(0);
    EXPECT_EQ(stream.ReadUntil(7, true), "ab~ 3") << "a seek takes eof back";
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
    EXPECT_EQ(Support::StateOf(stream), "e15");
    stream >> integer;
    EXPECT_EQ(integer, 0);
    EXPECT_EQ(Support::StateOf(stream), "ef15");
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
    return buffer + " " + std::to_string(stream.gcount()) + " " + Support::StateOf(stream);
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
    EXPECT_EQ(Support::StateOf(stream), "ef2");
}

} // namespace
