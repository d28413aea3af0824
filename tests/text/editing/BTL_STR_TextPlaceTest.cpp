// SPDX-License-Identifier: MIT
#include "text/editing/BTL_STR_TextPlace.h"

#include "platform/base/System_String.h"

#include <gtest/gtest.h>

#include <climits>

namespace
{

using System::AnsiString;
using System::UnicodeString;

TEST(TextPlaceTest, CountsLinesByAllLineEnds)
{
    const struct
    {
        const char* text;
        int position;
        int line;
        int column;
    } cases[] = {
        {"", 1, 1, 1},         {"", 5, 1, 1},
        {"abc", 1, 1, 1},      {"abc", 3, 1, 3},
        {"abc", 4, 1, 4},      {"abc", INT_MAX, 1, 4},
        {"abc", 0, 1, 1},      {"abc", INT_MIN, 1, 1},
        {"a\nb", 2, 1, 2},     {"a\nb", 3, 2, 1},
        {"a\rb", 2, 1, 2},     {"a\rb", 3, 2, 1},
        {"a\r\nbc", 2, 1, 2},  {"a\r\nbc", 3, 1, 3},
        {"a\r\nbc", 4, 2, 1},  {"a\r\nbc", 5, 2, 2},
        {"a\n\rb", 3, 2, 1},   {"a\n\rb", 4, 3, 1},
        {"a\r\r\nb", 5, 3, 1}, {"\n\n", 3, 3, 1},
        {"x\r", 3, 2, 1},      {"1\n22\r\n333\r4444", 13, 4, 3},
    };
    for (const auto& c : cases) {
        const BTL::TTextPlace expected{c.line, c.column};
        const UnicodeString wide(c.text);
        EXPECT_EQ(BTL::GetTextPlace(wide, c.position), expected) << wide << c.position;
        EXPECT_EQ(BTL::GetTextPlace(AnsiString(c.text), c.position), expected) << wide << c.position;
    }
}

TEST(TextPlaceTest, CountsTheUnitsOfTheText)
{
    EXPECT_EQ(BTL::GetTextPlace(u"\U0001F4A1x", 3), (BTL::TTextPlace{1, 3}));
    EXPECT_EQ(BTL::GetTextPlace(System::UTF8String(UnicodeString(u"\u00B5x")), 3), (BTL::TTextPlace{1, 3}));
}

} // namespace
