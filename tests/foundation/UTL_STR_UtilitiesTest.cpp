// SPDX-License-Identifier: MIT
#include "foundation/UTL_STR_Utilities.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "platform/host/Host_Path.h"
#include "platform/toolkit/MessageBox.h"
#include "support/ScriptedBoxes.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <clocale>
#include <cmath>
#include <fstream>
#include <limits>
#include <memory>
#include <string>
#include <type_traits>

namespace
{

using System::AnsiString;
using System::UnicodeString;
using System::WideChar;

template <class S>
class StringPrimitivesTest : public testing::Test
{
protected:
    static constexpr bool IsWide = std::is_same_v<typename S::CharType, WideChar>;
    static constexpr const typename S::CharType* Null = nullptr;

    /// `text` in the width under test.
    static S T(const char* text) { return S(text); }
};

using Widths = testing::Types<UnicodeString, AnsiString>;
TYPED_TEST_SUITE(StringPrimitivesTest, Widths);

TYPED_TEST(StringPrimitivesTest, GetLongReadsTheWholeText)
{
    const struct
    {
        const char* text;
        bool isWhole;
        long value;
    } cases[] = {
        {"12", true, 12},
        {" 12", true, 12},
        {"\t\r\n\v\f-7", true, -7},
        {"+5", true, 5},
        {"12 ", false, 12},
        {"12x", false, 12},
        {"x", false, 0},
        {"-", false, 0},
        {"--1", false, 0},
        {"   ", false, 0},
        {"0x10", false, 0},
        {"007", true, 7},
        {"9223372036854775807", true, LONG_MAX},
        {"9223372036854775808", true, LONG_MAX},
        {"-9223372036854775808", true, LONG_MIN},
        {"-99999999999999999999999", true, LONG_MIN},
        {"99999999999999999999999x", false, LONG_MAX},
    };
    for (const auto& c : cases) {
        long value = 4711;
        EXPECT_EQ(UTL::GetLong(this->T(c.text).c_str(), value), c.isWhole) << c.text;
        EXPECT_EQ(value, c.value) << c.text;
    }
    long untouched = 4711;
    EXPECT_FALSE(UTL::GetLong(this->Null, untouched));
    EXPECT_FALSE(UTL::GetLong(this->T("").c_str(), untouched));
    EXPECT_EQ(untouched, 4711);
}

TYPED_TEST(StringPrimitivesTest, GetDoubleReadsTheWholeText)
{
    const double infinity = std::numeric_limits<double>::infinity();
    const struct
    {
        const char* text;
        bool isWhole;
        double value;
    } cases[] = {
        {"1.5", true, 1.5},        {" -1.5e3", true, -1500},  {"1,5", false, 1},   {"1.5 ", false, 1.5},
        {".5", true, 0.5},         {"5.", true, 5},           {"1e", false, 1},    {"x", false, 0},
        {"--1", false, 0},         {"1e999", true, infinity}, {"1e-999", true, 0}, {"0x1p4", true, 16},
        {"-inf", true, -infinity},
    };
    for (const auto& c : cases) {
        double value = 4711;
        EXPECT_EQ(UTL::GetDouble(this->T(c.text).c_str(), value), c.isWhole) << c.text;
        EXPECT_EQ(value, c.value) << c.text;
    }
    double value = 4711;
    EXPECT_FALSE(UTL::GetDouble(this->Null, value));
    EXPECT_FALSE(UTL::GetDouble(this->T("").c_str(), value));
    EXPECT_EQ(value, 4711);
    EXPECT_TRUE(UTL::GetDouble(this->T("nan").c_str(), value));
    EXPECT_TRUE(std::isnan(value));
}

TYPED_TEST(StringPrimitivesTest, NumbersDoNotFollowTheLocaleOfTheProcess)
{
    const std::string former = std::setlocale(LC_ALL, nullptr);
    for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "C.UTF-8"}) {
        if (std::setlocale(LC_ALL, name) != nullptr) {
            break;
        }
    }
    double value = 0;
    EXPECT_TRUE(UTL::GetDouble(this->T("1.5").c_str(), value));
    EXPECT_EQ(UTL::ToFloat(this->T("2.5").c_str()), 2.5F);
    EXPECT_EQ(UTL::FloatToString(2.5F), "2.5");
    std::setlocale(LC_ALL, former.c_str());
}

TYPED_TEST(StringPrimitivesTest, LongNumbersFitNoBufferButAreRead)
{
    const auto zero = static_cast<typename TypeParam::CharType>('0');
    const TypeParam text = TypeParam::StringOfChar(zero, 1'000'000) + this->T("12.5");
    double value = 0;
    EXPECT_TRUE(UTL::GetDouble(text.c_str(), value));
    EXPECT_EQ(value, 12.5);
    EXPECT_EQ(UTL::ToInt(text.c_str()), 12);
}

TYPED_TEST(StringPrimitivesTest, ToIntAndToFloatTakeWhatFits)
{
    const struct
    {
        const char* text;
        int integer;
        float number;
    } cases[] = {
        {"12x", 12, 12},
        {"x", 0, 0},
        {"", 0, 0},
        {" \t-3.25e1z", -3, -32.5F},
        {"+5", 5, 5},
        {"1,5", 1, 1},
        {"- 1", 0, 0},
        {"99999999999", INT_MAX, 99999999999.0F},
        {"-99999999999", INT_MIN, -99999999999.0F},
        {"12eV", 12, 12},
        {"1.5e+", 1, 1.5F},
        {"2E-1E5", 2, 0.2F},
        {"1.5.2", 1, 1.5F},
        {".5", 0, 0.5F},
        {"0x10", 0, 0},
        {"nan", 0, 0},
        {"inf", 0, 0},
        {"--1", 0, 0},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(UTL::ToInt(this->T(c.text).c_str()), c.integer) << c.text;
        EXPECT_EQ(UTL::ToFloat(this->T(c.text).c_str()), c.number) << c.text;
    }
    EXPECT_EQ(UTL::ToInt(this->Null), 0);
    EXPECT_EQ(UTL::ToFloat(this->Null), 0);
    EXPECT_EQ(UTL::ToFloat(this->T("1e999").c_str()), std::numeric_limits<float>::max());
}

TYPED_TEST(StringPrimitivesTest, IsDigitStringNeedsNoDigit)
{
    const struct
    {
        const char* text;
        bool sign;
        bool blanks;
        bool expected;
    } cases[] = {
        {"12", false, false, true},    {"+12", false, false, false},  {"+12", true, false, true},
        {" +12 ", true, true, true},   {" +12 ", true, false, false}, {"-", true, false, true},
        {"   ", false, true, true},    {"   ", false, false, false},  {"1 2", true, true, false},
        {"--1", true, true, false},    {"1.5", true, true, false},    {"", true, true, false},
        {"\xB2", false, false, false},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(UTL::IsDigitString(this->T(c.text).c_str(), c.sign, c.blanks), c.expected) << c.text;
    }
    EXPECT_FALSE(UTL::IsDigitString(this->Null, true, true));
}

TYPED_TEST(StringPrimitivesTest, ComparesTextsAndNulls)
{
    const struct
    {
        const char* a;
        const char* b;
        int count;
        bool equal;
        bool equalIgnoringCase;
        bool less;
    } cases[] = {
        {"abc", "abd", 2, true, true, false},     {"abc", "abd", 3, false, false, true},
        {"abc", "ABD", 2, false, true, false},    {"abc", "ab", 9, false, false, false},
        {"ab", "abc", 9, false, false, true},     {"abc", "xyz", 0, true, true, false},
        {"abc", "ABC", -1, false, true, false},   {"z", "\xE4", 1, false, false, true},
        {"\xE4", "\xC4", 1, false, false, false}, {"[", "{", 1, false, false, true},
    };
    for (const auto& c : cases) {
        const TypeParam a = this->T(c.a);
        const TypeParam b = this->T(c.b);
        EXPECT_EQ(UTL::IsEqual(a.c_str(), b.c_str(), c.count), c.equal) << c.a << ' ' << c.b;
        EXPECT_EQ(UTL::IsIEqual(a.c_str(), b.c_str(), c.count), c.equalIgnoringCase) << c.a << ' ' << c.b;
        EXPECT_EQ(UTL::IsLess(a.c_str(), b.c_str(), c.count), c.less) << c.a << ' ' << c.b;
    }
    const TypeParam empty = this->T("");
    const TypeParam text = this->T("x");
    EXPECT_TRUE(UTL::IsEqual(text.c_str(), this->T("x").c_str()));
    EXPECT_FALSE(UTL::IsEqual(text.c_str(), this->T("xy").c_str()));
    EXPECT_TRUE(UTL::IsLess(text.c_str(), this->T("xy").c_str()));
    EXPECT_FALSE(UTL::IsEqual(this->Null, empty.c_str()));
    EXPECT_TRUE(UTL::IsEqual(this->Null, this->Null));
    EXPECT_TRUE(UTL::IsEqual(this->Null, this->Null, 3));
    EXPECT_FALSE(UTL::IsIEqual(empty.c_str(), this->Null, 0));
    EXPECT_TRUE(UTL::IsLess(this->Null, this->Null));
    EXPECT_TRUE(UTL::IsLess(this->Null, empty.c_str(), 1));
    EXPECT_FALSE(UTL::IsLess(empty.c_str(), this->Null));
}

TYPED_TEST(StringPrimitivesTest, FindsCharactersFromAStart)
{
    using Char = typename TypeParam::CharType;
    const TypeParam text = this->T("aabca");
    const struct
    {
        int start;
        int a;
        int notA;
        int bOrC;
    } cases[] = {{0, 0, 2, 2},   {1, 1, 2, 2},    {2, 4, 2, 2},    {3, 4, 3, 3},
                 {4, 4, -1, -1}, {5, -1, -1, -1}, {6, -1, -1, -1}, {INT_MAX, -1, -1, -1}};
    for (const auto& c : cases) {
        EXPECT_EQ(UTL::find_first_of(Char('a'), text.c_str(), c.start), c.a) << c.start;
        EXPECT_EQ(UTL::find_first_not_of(Char('a'), text.c_str(), c.start), c.notA) << c.start;
        EXPECT_EQ(UTL::find_first_of2(Char('c'), Char('b'), text.c_str(), c.start), c.bOrC) << c.start;
    }
    EXPECT_EQ(UTL::find_first_of(Char('x'), this->Null, 0), -1);
    EXPECT_EQ(UTL::find_first_not_of(Char('x'), this->Null, 0), -1);
    EXPECT_EQ(UTL::find_first_of(Char(0), text.c_str(), 0), -1);
}

TYPED_TEST(StringPrimitivesTest, NegativeStartRaisesAnAssertion)
{
    using Char = typename TypeParam::CharType;
    const TypeParam text = this->T("aa");
    const auto expectLine = [](int line, auto find) {
        {
            const Support::ScriptedBoxes boxes({IDYES});
            try {
                find();
                FAIL() << "nothing was raised";
            } catch (const UTL::XAssert& fault) {
                EXPECT_EQ(fault.getLine(), line);
                EXPECT_EQ(fault.getFile(),
                          TestFixture::IsWide ? "UTL_STR_UtilitiesW.cpp" : "UTL_STR_UtilitiesA.cpp");
                EXPECT_TRUE(fault.getExpression().IsEmpty());
            }
        }
        const Support::ScriptedBoxes boxes({IDNO});
        EXPECT_EQ(find(), -1);
    };
    expectLine(158, [&] { return UTL::find_first_of(Char('a'), text.c_str(), -1); });
    expectLine(173, [&] { return UTL::find_first_not_of(Char('b'), text.c_str(), INT_MIN); });
    expectLine(188, [&] { return UTL::find_first_of2(Char('a'), Char('b'), text.c_str(), -1); });
}

TYPED_TEST(StringPrimitivesTest, FindSQLParamTriesTheFirstColon)
{
    const struct
    {
        const char* text;
        bool found;
        int position;
        int length;
    } cases[] = {
        {"a=:name and", true, 2, 5}, {"a::b", false, 1, 1},  {":", false, 0, 1},
        {":_1;", true, 0, 3},        {"none", false, -1, 0}, {"", false, -1, 0},
    };
    for (const auto& c : cases) {
        int position = 99;
        int length = 99;
        EXPECT_EQ(UTL::FindSQLParam(this->T(c.text).c_str(), position, length), c.found) << c.text;
        EXPECT_EQ(position, c.position) << c.text;
        EXPECT_EQ(length, c.length) << c.text;
    }
    int position = 0;
    int length = 0;
    EXPECT_FALSE(UTL::FindSQLParam(this->Null, position, length));
}

TYPED_TEST(StringPrimitivesTest, StrnewdupMakesRoom)
{
    using Char = typename TypeParam::CharType;
    const TypeParam text = this->T("abc");
    const std::unique_ptr<Char[]> same(UTL::strnewdup(text.c_str(), 2));
    EXPECT_EQ(TypeParam(same.get()), text);
    const std::unique_ptr<Char[]> roomy(UTL::strnewdup(text.c_str(), 100));
    EXPECT_EQ(TypeParam(roomy.get()), text);
    EXPECT_TRUE(std::all_of(roomy.get() + 3, roomy.get() + 100, [](Char c) { return c == 0; }));
    const std::unique_ptr<Char[]> empty(UTL::strnewdup(this->Null, 0));
    EXPECT_EQ(empty[0], 0);
}

TYPED_TEST(StringPrimitivesTest, GetWordsSpansUpToCountWords)
{
    const struct
    {
        const char* text;
        int count;
        int found;
        unsigned offset;
        unsigned length;
    } cases[] = {
        {"aa bb cc", 2, 2, 0, 5}, {"aa bb cc", 9, 3, 0, 8},      {"  aa, bb  ", 5, 2, 2, 6},
        {"aa bb", 1, 1, 0, 2},    {"aa bb", INT_MIN, 1, 0, 2},   {" 12 ", 3, 0, 4, 0},
        {"", 3, 0, 0, 0},         {"a1 2b c", INT_MAX, 3, 0, 7},
    };
    for (const auto& c : cases) {
        unsigned offset = 99;
        unsigned length = 99;
        EXPECT_EQ(UTL::GetWords(this->T(c.text).c_str(), c.count, offset, length), c.found) << c.text;
        EXPECT_EQ(offset, c.offset) << c.text;
        EXPECT_EQ(length, c.length) << c.text;
    }
    unsigned offset = 99;
    unsigned length = 99;
    EXPECT_EQ(UTL::GetWords(this->Null, 3, offset, length), 0);
    EXPECT_EQ(offset + length, 0U);
}

TYPED_TEST(StringPrimitivesTest, GetWordsOfAMillionWordsIsLinear)
{
    const auto blank = static_cast<typename TypeParam::CharType>(' ');
    TypeParam text = TypeParam::StringOfChar(blank, 2'000'000);
    auto* const characters = text.UniqueData();
    for (int i = 0; i < text.Length(); i += 2) {
        characters[i] = 'a';
    }
    unsigned offset = 0;
    unsigned length = 0;
    EXPECT_EQ(UTL::GetWords(text.c_str(), INT_MAX, offset, length), 1'000'000);
    EXPECT_EQ(length, 1'999'999U);
}

struct TWord
{
    bool found;
    unsigned offset;
    unsigned length;

    friend bool operator==(const TWord&, const TWord&) = default;
};

template <class Char, class... Tables>
TWord WordOf(const Char* text, Tables... tables)
{
    TWord word = {false, 99, 99};
    word.found = UTL::GetWord(text, word.offset, word.length, tables...);
    return word;
}

TEST(GetWordTest, WidthsDifferInTheirWordCharacters)
{
    EXPECT_EQ(WordOf("  2ab cd"), (TWord{true, 3, 2}));
    EXPECT_EQ(WordOf(u"  2ab cd"), (TWord{true, 3, 2}));
    EXPECT_EQ(WordOf("_ab"), (TWord{true, 0, 3}));
    EXPECT_EQ(WordOf(u"_ab"), (TWord{true, 1, 2}));
    EXPECT_EQ(WordOf("1 2"), (TWord{false, 3, 0}));
    EXPECT_EQ(WordOf("\xF7\xE4\x9E"
                     "1-"),
              (TWord{true, 1, 3}));
    EXPECT_EQ(WordOf(u"÷Жä1-"), (TWord{true, 1, 3}));
    EXPECT_EQ(WordOf(u"\xD800"
                     u"a\xDC00"),
              (TWord{true, 1, 1}));
    EXPECT_EQ(WordOf(static_cast<const char*>(nullptr)), (TWord{false, 0, 0}));
    EXPECT_EQ(WordOf(static_cast<const WideChar*>(nullptr)), (TWord{false, 0, 0}));
}

TEST(GetWordTest, TakesTablesOfTheCaller)
{
    unsigned char digits[256] = {};
    std::fill_n(&digits[int{'0'}], 10, static_cast<unsigned char>(1));
    const unsigned char* const none = nullptr;
    EXPECT_EQ(WordOf("ab 12c", static_cast<const unsigned char*>(digits)), (TWord{true, 3, 2}));
    EXPECT_EQ(WordOf("1ab12c-", UTL::GetWordCharsA(), static_cast<const unsigned char*>(digits)),
              (TWord{true, 0, 3}));
    EXPECT_EQ(WordOf("ab", none), (TWord{false, 2, 0}));
    EXPECT_EQ(WordOf("ab", none, UTL::GetWordCharsA()), (TWord{true, 0, 1}));
}

TEST(WordTableTest, HoldsTheLettersOfTheCodePage)
{
    const auto members = [](const unsigned char* table) {
        std::string result;
        for (int code = 0; code < 256; ++code) {
            EXPECT_LE(table[code], 1);
            if (table[code] == 1) {
                result.push_back(static_cast<char>(code));
            }
        }
        return result;
    };
    std::string expected = "ABCDEFGHIJKLMNOPQRSTUVWXYZ_abcdefghijklmnopqrstuvwxyz\x8E\x9E\x9F";
    for (int code = 192; code < 256; ++code) {
        if (code != 247) {
            expected.push_back(static_cast<char>(code));
        }
    }
    EXPECT_EQ(members(UTL::GetWordCharsA()), expected);
    EXPECT_EQ(members(UTL::GetWordCharsW()), expected);
    EXPECT_EQ(members(UTL::GetWordChars2A()), "0123456789" + expected);
    EXPECT_EQ(members(UTL::GetWordChars2W()), "0123456789" + expected);
}

TEST(NumberTextTest, HasTheFormOfAStream)
{
    EXPECT_EQ(UTL::IntToString(INT_MIN), "-2147483648");
    const struct
    {
        float value;
        const char* expected;
    } cases[] = {{0, "0"},
                 {1.5F, "1.5"},
                 {1234567, "1.23457e+06"},
                 {-1e-5F, "-1e-05"},
                 {0.1F, "0.1"},
                 {100000, "100000"},
                 {std::numeric_limits<float>::infinity(), "inf"}};
    for (const auto& c : cases) {
        EXPECT_EQ(UTL::FloatToString(c.value), c.expected);
    }
}

TEST(FileExistsTest, FindsFilesOnly)
{
    const Support::TempFolder folder;
    const auto path = [](const std::filesystem::path& host) { return Sysutils::FromHostPath(host.string()); };
    std::ofstream(folder.Path() / "a.txt") << "a";
    EXPECT_TRUE(UTL::FileExists(path(folder.Path() / "a.txt")));
    EXPECT_FALSE(UTL::FileExists(path(folder.Path() / "b.txt")));
    EXPECT_FALSE(UTL::FileExists(path(folder.Path())));
    EXPECT_FALSE(UTL::FileExists(u""));
}

TEST(SPrintfTest, IsBoundedAndChecked)
{
    EXPECT_EQ(UTL::SPrintf("%d-%s-%5.2f", 7, "ab", 1.5), "7-ab- 1.50");
    EXPECT_EQ(UTL::SPrintf("plain"), "plain");
    const std::string text(600, 'x');
    EXPECT_EQ(UTL::SPrintf("%s", text.c_str()), std::string(511, 'x'));
    EXPECT_EQ(UTL::SPrintf("%s!", std::string(510, 'x').c_str()).size(), 511U);
    EXPECT_EQ(UTL::SPrintf(u"%d %s", 7, u"ä→"), "7 \xE4?");
}

} // namespace
