// SPDX-License-Identifier: MIT
#include "platform/runtime/sysutils/Character.h"
#include "platform/base/Sysutils_Exception.h"

#include <climits>
#include <string>
#include <utility>

#include <gtest/gtest.h>

using Character::TCharacter;
using System::UnicodeString;
using System::WideChar;

namespace
{

/// A letter for each class of a character, which is given itself or by a text and its place.
template <class... Where>
std::string ClassesOf(const Where&... where)
{
    const std::pair<char, bool> classes[] = {
        {'L', TCharacter::IsLetter(where...)},        {'D', TCharacter::IsDigit(where...)},
        {'N', TCharacter::IsNumber(where...)},        {'A', TCharacter::IsLetterOrDigit(where...)},
        {'U', TCharacter::IsUpper(where...)},         {'l', TCharacter::IsLower(where...)},
        {'W', TCharacter::IsWhiteSpace(where...)},    {'P', TCharacter::IsPunctuation(where...)},
        {'C', TCharacter::IsControl(where...)},       {'S', TCharacter::IsSymbol(where...)},
        {'Z', TCharacter::IsSeparator(where...)},     {'s', TCharacter::IsSurrogate(where...)},
        {'h', TCharacter::IsHighSurrogate(where...)}, {'t', TCharacter::IsLowSurrogate(where...)},
    };
    std::string result;
    for (const auto& [name, holds] : classes) {
        if (holds) {
            result += name;
        }
    }
    return result;
}

} // namespace

TEST(CharacterTest, ClassifiesUnits)
{
    const struct
    {
        WideChar c;
        const char* classes;
    } cases[] = {
        {u'a', "LAl"},     {u'Ä', "LAU"},   {u'ß', "LAl"},      {u'ª', "LA"},  {u'\u01C5', "LA"},
        {u'\u4E2D', "LA"}, {u'7', "DNA"},   {u'\u0663', "DNA"}, {u'½', "N"},   {u'\u2167', "N"},
        {u' ', "WZ"},      {u'\xA0', "WZ"}, {u'\u2029', "WZ"},  {u'\t', "WC"}, {u'\x85', "WC"},
        {0, "C"},          {u'_', "P"},     {u'\u00AB', "P"},   {u'+', "S"},   {u'€', "S"},
        {u'\u200B', ""},   {0xD800, "sh"},  {0xDFFF, "st"},     {0xFFFF, ""},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(ClassesOf(test.c), test.classes) << static_cast<int>(test.c);
        EXPECT_EQ(ClassesOf(u"x" + UnicodeString(test.c), 2), test.classes) << static_cast<int>(test.c);
    }
}

TEST(CharacterTest, TakesAPairForOneCharacter)
{
    const UnicodeString capital = u"\U00010400";
    EXPECT_EQ(ClassesOf(capital, 1), "LAUsh");
    EXPECT_EQ(ClassesOf(capital, 2), "st");
    EXPECT_EQ(ClassesOf(UnicodeString(u"\U0001D7D8"), 1), "DNAsh");
    EXPECT_EQ(ClassesOf(capital.SubString(1, 1) + u"a", 1), "sh");
    EXPECT_TRUE(TCharacter::IsSurrogatePair(capital, 1));
    EXPECT_FALSE(TCharacter::IsSurrogatePair(capital, 2));
    EXPECT_EQ(TCharacter::ToLower(capital), u"\U00010428");
}

TEST(CharacterTest, MapsCase)
{
    EXPECT_EQ(TCharacter::ToUpper(u'ä'), u'Ä');
    EXPECT_EQ(TCharacter::ToUpper(u'ß'), u'ß');
    EXPECT_EQ(TCharacter::ToLower(u'Ä'), u'ä');
    EXPECT_EQ(TCharacter::ToLower(WideChar(0xD800)), WideChar(0xD800));
    EXPECT_EQ(TCharacter::ToUpper(u"aä1"), u"AÄ1");
}

TEST(CharacterTest, ConvertsCodes)
{
    for (const char32_t code : {U'\0', U'a', U'\uFFFF', U'\U00010000', U'\U0010FFFF'}) {
        const UnicodeString text = TCharacter::ConvertFromUtf32(code);
        int length = 0;
        EXPECT_EQ(TCharacter::ConvertToUtf32(u"x" + text, 2, length), code);
        EXPECT_EQ(length, text.Length());
        EXPECT_EQ(length, code > 0xFFFF ? 2 : 1);
    }
    EXPECT_EQ(TCharacter::ConvertToUtf32(WideChar(0xD83D), WideChar(0xDE00)), U'\U0001F600');
}

TEST(CharacterTest, RefusesWhatIsOutside)
{
    const UnicodeString text = u"a\U0001F600";
    for (const int index : {INT_MIN, -1, 0, 4, INT_MAX}) {
        EXPECT_THROW(TCharacter::IsLetter(text, index), Sysutils::EArgumentOutOfRangeException) << index;
        EXPECT_THROW(TCharacter::IsSurrogatePair(text, index), Sysutils::EArgumentOutOfRangeException)
            << index;
        EXPECT_THROW(TCharacter::ConvertToUtf32(text, index), Sysutils::EArgumentOutOfRangeException)
            << index;
    }
    EXPECT_THROW(TCharacter::IsDigit(UnicodeString(), 1), Sysutils::EArgumentOutOfRangeException);
    EXPECT_THROW(TCharacter::ConvertToUtf32(text, 3), Sysutils::EArgumentException);
    EXPECT_THROW(TCharacter::ConvertToUtf32(u'a', WideChar(0xDE00)), Sysutils::EArgumentOutOfRangeException);
    for (const char32_t code : {char32_t(0xD800), char32_t(0xDFFF), char32_t(0x110000), char32_t(-1)}) {
        EXPECT_THROW(TCharacter::ConvertFromUtf32(code), Sysutils::EArgumentOutOfRangeException);
    }
}
