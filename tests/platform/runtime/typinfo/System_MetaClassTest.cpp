// SPDX-License-Identifier: MIT
#include "platform/runtime/typinfo/System_MetaClass.h"

#include "platform/runtime/typinfo/System_ObjectSupport.h"

#include <memory>

#include <gtest/gtest.h>

using namespace System;
using namespace Support;

namespace
{

TEST(MetaClassTest, IsMadeByItsClassRecord)
{
    const auto made = ClassOf<Counter>()->Create();
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(made->ClassType(), ClassOf<Counter>());
    EXPECT_EQ(ClassOf<Gauge>()->Create(), nullptr) << "needs an argument";
}

} // namespace
