// SPDX-License-Identifier: MIT
#include "text/numbers/BTL_NUM_Version.h"

#include <gtest/gtest.h>

#include <climits>

namespace
{

TEST(VersionTest, ReadsVersions)
{
    const struct
    {
        const char* text;
        bool expected;
        unsigned numbers[4];
    } cases[] = {
        {"", true, {0, 0, 0, 0}},
        {"1", true, {1, 0, 0, 0}},
        {"1.2", true, {1, 2, 0, 0}},
        {" 1.2.3.4 ", true, {1, 2, 3, 4}},
        {"1.2.3.4.5", false, {1, 2, 3, 4}},
        {"1a.2", true, {1, 2, 0, 0}},
        {"1..2", true, {1, 0, 0, 0}},
        {".1", true, {0, 0, 0, 0}},
        {"1.x.2", false, {1, 0, 0, 0}},
        {"1.2.3.4.", true, {1, 2, 3, 4}},
        {"-1", false, {0, 0, 0, 0}},
        {"1.2.", true, {1, 2, 0, 0}},
        {"99999999999", true, {UINT_MAX, 0, 0, 0}},
    };
    for (const auto& c : cases) {
        unsigned a = 9;
        unsigned b = 9;
        unsigned d = 9;
        unsigned e = 9;
        EXPECT_EQ(BTL::VersionStrToVersionNos(c.text, a, b, d, e), c.expected) << c.text;
        EXPECT_TRUE(a == c.numbers[0] && b == c.numbers[1] && d == c.numbers[2] && e == c.numbers[3])
            << c.text;
        a = b = d = 9;
        EXPECT_EQ(BTL::VersionStrToVersionNos(c.text, a, b, d), c.expected) << c.text;
        EXPECT_TRUE(a == c.numbers[0] && b == c.numbers[1] && d == c.numbers[2]) << c.text;
    }
}

} // namespace
