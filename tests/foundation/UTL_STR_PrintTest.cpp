// SPDX-License-Identifier: MIT
#include "foundation/UTL_STR_Print.h"

#include <gtest/gtest.h>

#include <string>

namespace
{

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
