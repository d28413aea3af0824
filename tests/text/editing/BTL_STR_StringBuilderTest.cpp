// SPDX-License-Identifier: MIT
#include "text/editing/BTL_STR_StringBuilder.h"
#include "text/editing/BTL_STR_String.h"

#include <gtest/gtest.h>

namespace
{

using namespace BTL;

TEST(StringBuilderOwnerTest, HoldsABuilder)
{
    const CStringBuilder builder(100);
    EXPECT_GE(builder->getCapacity(), 100);
    builder->Append(kEmptyString).Append(u"x").Append(1);
    EXPECT_EQ(builder->ToString(), u"x1");
}

} // namespace
