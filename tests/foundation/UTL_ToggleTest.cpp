// SPDX-License-Identifier: MIT
#include "foundation/UTL_Toggle.h"

#include <gtest/gtest.h>

namespace
{

TEST(ToggleTest, FlagsComeBackAtTheEndOfTheScope)
{
    bool flag = true;
    {
        const UTL::CToggle toggle(flag);
        EXPECT_FALSE(flag);
        {
            const UTL::CSetBool set(flag, true);
            EXPECT_TRUE(flag);
            flag = true;
        }
        EXPECT_FALSE(flag);
    }
    EXPECT_TRUE(flag);
    {
        const UTL::CToggle toggle(flag);
        flag = true;
    }
    EXPECT_FALSE(flag) << "it flips what it finds";
}

} // namespace
