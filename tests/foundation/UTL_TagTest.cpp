// SPDX-License-Identifier: MIT
#include "foundation/UTL_Tag.h"

#include <gtest/gtest.h>

namespace
{

TEST(TagTest, CountsOnlyTheLowFiveBitsOfANumber)
{
    UTL::CTag tag(33, true);
    EXPECT_TRUE(tag.GetBit(1));
    EXPECT_FALSE(tag.GetBit(0));
    tag.SetBit(31, true);
    tag.SetBit(1, false);
    EXPECT_FALSE(tag.GetBit(33));
    EXPECT_TRUE(tag.GetBit(63));
    EXPECT_FALSE(UTL::CTag(5, false).GetBit(5));
}

} // namespace
