// SPDX-License-Identifier: MIT
#include "foundation/UTL_STR_SimpleString.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "foundation/UTL_Links.h"
#include "platform/toolkit/MessageBox.h"
#include "support/FormatSettingsGuard.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

#include <climits>
#include <limits>
#include <random>
#include <sstream>
#include <string>
#include <utility>

namespace
{

using System::AnsiString;
using System::UnicodeString;
using System::WideChar;
using UTL::CSimpleString;

/// Null and an empty array print alike; only the comparison tells them apart.
bool IsNull(const CSimpleString& text)
{
    return text == CSimpleString();
}

TEST(SimpleStringTest, NullAndEmptyAreTwoStates)
{
    static_assert(sizeof(CSimpleString) == sizeof(char*));
    for (const CSimpleString& null :
         {CSimpleString(), CSimpleString(nullptr), CSimpleString(static_cast<const char*>(nullptr)),
          CSimpleString(static_cast<const WideChar*>(nullptr)), CSimpleString(CSimpleString())}) {
        EXPECT_STREQ(null.c_str(), "");
        EXPECT_EQ(null.length(), 0);
        EXPECT_TRUE(IsNull(null));
        EXPECT_FALSE(null == "");
    }
    for (const CSimpleString& empty : {CSimpleString(""), CSimpleString(u""), CSimpleString(AnsiString()),
                                       CSimpleString(UnicodeString()), CSimpleString(CSimpleString(""))}) {
        EXPECT_EQ(empty.Length(), 0);
        EXPECT_FALSE(IsNull(empty));
        EXPECT_TRUE(empty == "");
    }
    CSimpleString text("abc");
    text.clear();
    EXPECT_TRUE(IsNull(text));
    text = "";
    EXPECT_FALSE(IsNull(text));
    text._assign("", 0);
    EXPECT_TRUE(IsNull(text));
    text = "x";
    text = nullptr;
    EXPECT_TRUE(IsNull(text));
}

TEST(SimpleStringTest, StartsAtAnOffset)
{
    const struct
    {
        int offset;
        const char* expected;
    } cases[] = {{0, "abc"},   {1, "bc"},          {2, "c"},    {3, nullptr},
                 {4, nullptr}, {INT_MAX, nullptr}, {-1, "abc"}, {INT_MIN, "abc"}};
    for (const auto& c : cases) {
        EXPECT_TRUE(CSimpleString("abc", c.offset) == c.expected) << c.offset;
        EXPECT_TRUE(CSimpleString(u"abc", c.offset) == c.expected) << c.offset;
        EXPECT_TRUE(CSimpleString(CSimpleString("abc"), c.offset) == c.expected) << c.offset;
    }
    EXPECT_TRUE(IsNull(CSimpleString(static_cast<const char*>(nullptr), 1)));
    EXPECT_TRUE(IsNull(CSimpleString(static_cast<const WideChar*>(nullptr), 1)));
}

TEST(SimpleStringTest, SurvivesItsOwnTextAsArgument)
{
    CSimpleString text("abcdef");
    const char* const before = text.c_str();
    text = text.c_str();
    EXPECT_EQ(text.c_str(), before);
    const CSimpleString& same = text;
    text = same;
    EXPECT_EQ(text.c_str(), before);
    text._assign(text, 2);
    EXPECT_STREQ(text.c_str(), "cdef");
    text._assign(text.c_str() + 1, 1);
    EXPECT_STREQ(text.c_str(), "ef");
    text += text.c_str();
    EXPECT_STREQ(text.c_str(), "efef");
    text = text.c_str() + 1;
    EXPECT_STREQ(text.c_str(), "fef");
    text._assign(text, 3);
    EXPECT_TRUE(IsNull(text));
}

TEST(SimpleStringTest, CopiesOwnTheirText)
{
    CSimpleString first("abc");
    CSimpleString second = first;
    second[0] = 'X';
    EXPECT_STREQ(first.c_str(), "abc");
    CSimpleString moved = std::move(second);
    EXPECT_STREQ(moved.c_str(), "Xbc");
    first = std::move(moved);
    EXPECT_STREQ(first.c_str(), "Xbc");
}

TEST(SimpleStringTest, MakesTextOfNumbers)
{
    const Support::FormatSettingsGuard guard;
    Sysutils::DecimalSeparator = u',';
    EXPECT_STREQ(CSimpleString(42).c_str(), "42");
    EXPECT_STREQ(CSimpleString(0).c_str(), "0");
    EXPECT_STREQ(CSimpleString(-1LL).c_str(), "-1");
    EXPECT_STREQ(CSimpleString(static_cast<short>(-32768)).c_str(), "-32768");
    EXPECT_STREQ(CSimpleString(static_cast<unsigned short>(65535)).c_str(), "65535");
    EXPECT_STREQ(CSimpleString(UINT_MAX).c_str(), "4294967295");
    EXPECT_STREQ(CSimpleString(LONG_MIN).c_str(), "-9223372036854775808");
    EXPECT_STREQ(CSimpleString(ULONG_MAX).c_str(), "18446744073709551615");
    EXPECT_STREQ(CSimpleString(ULLONG_MAX).c_str(), "18446744073709551615");
    EXPECT_STREQ(CSimpleString(1.5).c_str(), "1,5");
    EXPECT_STREQ(CSimpleString(1.5L).c_str(), "1,5");
    CSimpleString text;
    text = 1.25F;
    EXPECT_STREQ(text.c_str(), "1,25");
    text = static_cast<System::Int64>(LLONG_MIN);
    EXPECT_STREQ(text.c_str(), "-9223372036854775808");
}

TEST(SimpleStringTest, JoinsAndNarrows)
{
    CSimpleString text;
    text += static_cast<const char*>(nullptr);
    text += static_cast<const WideChar*>(nullptr);
    EXPECT_TRUE(IsNull(text));
    text += "";
    EXPECT_FALSE(IsNull(text));
    text += "a";
    text += u"ä→";
    EXPECT_STREQ(text.c_str(), "a\xE4?");
    EXPECT_STREQ((text + "b").c_str(), "a\xE4?b");
    EXPECT_STREQ((text + u"€").c_str(), "a\xE4?\x80");
    EXPECT_TRUE(IsNull(CSimpleString() + static_cast<const char*>(nullptr)));
    text = UnicodeString(u"ö");
    const UnicodeString wide = text;
    const AnsiString narrow = text;
    EXPECT_EQ(wide, u"ö");
    EXPECT_EQ(narrow, "\xF6");
    std::ostringstream stream;
    stream << CSimpleString("ab") << CSimpleString() << '.';
    EXPECT_EQ(stream.str(), "ab.");
}

TEST(SimpleStringTest, ComparesThroughNull)
{
    const CSimpleString null;
    const CSimpleString text("abc");
    EXPECT_TRUE(text == "abc" && text == u"abc" && text == AnsiString("abc") && text == UnicodeString("abc"));
    EXPECT_FALSE(text == "abd" || text == u"ab" || text == AnsiString() || text == null);
    EXPECT_TRUE(CSimpleString("?") == u"→");
    EXPECT_TRUE(text < "abd" && text < u"b" && text < AnsiString("abcd") && text < UnicodeString("b"));
    EXPECT_FALSE(text < text || text < u"" || text < static_cast<const char*>(nullptr));
    EXPECT_TRUE(null < null);
    EXPECT_TRUE(null < text);
    EXPECT_TRUE(null < AnsiString());
    EXPECT_FALSE(text < null);
    EXPECT_FALSE(null == AnsiString());
    EXPECT_TRUE(null == static_cast<const WideChar*>(nullptr));
}

TEST(SimpleStringTest, IndexOutsideRaisesAnAssertion)
{
    CSimpleString text("abc");
    const CSimpleString& constant = text;
    EXPECT_EQ(constant[2], 'c');
    text[1] = 'X';
    EXPECT_STREQ(text.c_str(), "aXc");
    const auto lineOf = [](auto access) {
        const Support::ScriptedBoxes boxes({IDYES});
        try {
            access();
        } catch (const UTL::XAssert& fault) {
            EXPECT_EQ(fault.getFile(), "UTL_STR_SimpleString.cpp");
            return fault.getLine();
        }
        return 0;
    };
    for (const int bad : {-1, 3, INT_MIN, INT_MAX}) {
        EXPECT_EQ(lineOf([&] { text[bad] = 'Y'; }), 363) << bad;
        EXPECT_EQ(lineOf([&] { return constant[bad]; }), 369) << bad;
    }
    CSimpleString null;
    EXPECT_EQ(lineOf([&] { null[0] = 'Y'; }), 363);

    const Support::ScriptedBoxes boxes({IDNO, IDNO, IDNO});
    text[99] = 'Y';
    EXPECT_EQ(text[-1], 0);
    EXPECT_EQ(constant[3], 0);
    EXPECT_STREQ(text.c_str(), "aXc");
}

TEST(SimpleStringTest, ReadsNumbers)
{
    const Support::FormatSettingsGuard guard;
    Sysutils::DecimalSeparator = u',';
    long integer = 7;
    double number = 7;
    EXPECT_FALSE(CSimpleString().GetLong(integer));
    EXPECT_FALSE(CSimpleString("").GetDouble(number));
    EXPECT_EQ(integer, 7);
    EXPECT_EQ(number, 7);
    EXPECT_TRUE(CSimpleString("12").GetLong(integer));
    EXPECT_TRUE(CSimpleString("1.5").GetDouble(number));
    EXPECT_EQ(integer, 12);
    EXPECT_EQ(number, 1.5);
    EXPECT_EQ(CSimpleString("12").ToIntDef(3), 12);
    EXPECT_EQ(CSimpleString("12x").ToIntDef(3), 3);
    EXPECT_EQ(CSimpleString().ToIntDef(3), 3);
    EXPECT_EQ(CSimpleString(" 1.5 ").ToDoubleDef(3), 1.5);
    EXPECT_EQ(CSimpleString("1,5").ToDoubleDef(3), 1.5);
    EXPECT_EQ(CSimpleString("1,5x").ToDoubleDef(3), 3);
    EXPECT_EQ(CSimpleString().ToDoubleDef(3), 3);
}

TEST(SimpleStringTest, ReadsFloatsWithoutTheLayerAbove)
{
    const auto former = std::exchange(UTL::Links().Narrow.ToDouble, nullptr);
    EXPECT_EQ(CSimpleString("1.5").ToDoubleDef(3), 1.5);
    EXPECT_EQ(CSimpleString("1.5x").ToDoubleDef(3), 3);
    EXPECT_EQ(CSimpleString().ToDoubleDef(3), 3);
    UTL::Links().Narrow.ToDouble = former;
}

TEST(SimpleStringTest, GrowsByPieces)
{
    std::mt19937 random(1);
    for (int round = 0; round < 30; ++round) {
        CSimpleString text;
        std::string model;
        for (int step = 0; step < 300; ++step) {
            const std::string piece(random() % 40, static_cast<char>('a' + random() % 26));
            const auto place = model.empty() ? 0 : static_cast<int>(random() % model.size());
            switch (random() % 40) {
            case 0:
                text += text.c_str() + place;
                model += model.substr(static_cast<std::size_t>(place));
                break;
            case 1:
                if (!model.empty()) {
                    text[place] = '-';
                    model[static_cast<std::size_t>(place)] = '-';
                }
                break;
            case 2:
                if (!model.empty()) {
                    text[place] = 0;
                    model.resize(static_cast<std::size_t>(place));
                }
                break;
            case 3:
                text = CSimpleString(text);
                break;
            case 4:
                text = text.c_str() + place;
                model.erase(0, static_cast<std::size_t>(place));
                break;
            case 5:
                text = CSimpleString(std::move(text));
                break;
            case 6:
                text += static_cast<const char*>(nullptr);
                break;
            default:
                text += piece.c_str();
                model += piece;
            }
            ASSERT_EQ(text.length(), static_cast<int>(model.size()));
            ASSERT_EQ(text.c_str(), model);
        }
        const CSimpleString copy = text;
        text.clear();
        EXPECT_TRUE(IsNull(text));
        EXPECT_EQ(copy.c_str(), model);
    }
}

TEST(SimpleStringTest, ManyPiecesMakeALongText)
{
    constexpr int count = 2'000'000;
    CSimpleString text;
    for (int i = 0; i < count; ++i) {
        text += "0123456789";
    }
    EXPECT_EQ(text.length(), 10 * count);
    EXPECT_EQ(text[10 * count - 1], '9');
}

} // namespace
