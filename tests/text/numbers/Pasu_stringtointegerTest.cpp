// SPDX-License-Identifier: MIT
#include "text/numbers/Pasu_stringtointeger.h"

#include <gtest/gtest.h>

namespace
{

TEST(StringToIntegerTest, TellsTheFirstBadCharacter)
{
    const struct
    {
        const char* text;
        int code;
        int value;
    } cases[] = {{"12", 0, 12}, {"-$1F", 0, -31}, {"12x", 3, 0}, {"", 1, 0}};
    for (const auto& c : cases) {
        int value = 0;
        int code = 99;
        Pasu_stringtointeger::StringToInteger(c.text, value, code);
        EXPECT_EQ(code, c.code) << c.text;
        if (code == 0) {
            EXPECT_EQ(value, c.value) << c.text;
        }
    }
}

} // namespace
