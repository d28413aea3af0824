// SPDX-License-Identifier: MIT
#include "foundation/UTL_STR_Words.h"

#include "foundation/PlainTextSupport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <string>

namespace
{

using System::WideChar;

template <class S>
using StringWordsTest = Support::PlainText<S>;
TYPED_TEST_SUITE(StringWordsTest, Support::PlainTextWidths);

TYPED_TEST(StringWordsTest, GetWordsSpansUpToCountWords)
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

TYPED_TEST(StringWordsTest, GetWordsOfAMillionWordsIsLinear)
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

TYPED_TEST(StringWordsTest, FindSQLParamTriesTheFirstColon)
{
    const struct
    {
        const char* text;
        bool found;
        int position;
        int length;
    } cases[] = {
        {"a=:name and", true, 2, 5}, {"a::b", false, 1, 1}, {":", false, 0, 1},     {":_1;", true, 0, 3},
        {"none", false, -1, 0},      {"", false, -1, 0},    {":a\xE4", true, 0, 2}, {":\xE4", false, 0, 1},
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

} // namespace
