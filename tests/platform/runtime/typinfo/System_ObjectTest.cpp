// SPDX-License-Identifier: MIT
#include "platform/runtime/typinfo/System_Object.h"

#include "platform/runtime/typinfo/System_ObjectSupport.h"

#include <gtest/gtest.h>

using namespace System;
using namespace Support;

namespace
{

TEST(ObjectTest, KnowsItsClassAndItsParents)
{
    const Gauge gauge(1);
    EXPECT_EQ(gauge.ClassName(), u"Gauge");
    EXPECT_EQ(gauge.ClassParent(), ClassOf<Counter>());
    EXPECT_TRUE(gauge.InheritsFrom(ClassOf<TObject>()));
    EXPECT_FALSE(Counter().InheritsFrom(ClassOf<Gauge>()));
    EXPECT_FALSE(gauge.InheritsFrom(nullptr));
    EXPECT_EQ(ClassOf<TObject>()->getParent(), nullptr);
    EXPECT_EQ(gauge.ClassInfo()->ClassType, ClassOf<Gauge>());
    EXPECT_EQ(ClassOf<Gauge>()->ClassName(), u"TMetaClass");
}

TEST(ObjectTest, AppearsAsTheClassThatIsSet)
{
    Counter counter;
    counter.SetClassType(ClassOf<Gauge>());
    EXPECT_EQ(counter.ClassName(), u"Gauge");
    EXPECT_NE(counter.MethodAddress(u"Reset"), nullptr);
    counter.SetClassType(nullptr);
    EXPECT_EQ(counter.ClassType(), ClassOf<Counter>());
}

TEST(ObjectTest, FindsPublishedMethodsByName)
{
    Gauge gauge(1);
    const TMethodAddress count = gauge.MethodAddress(u"COUNT");
    ASSERT_NE(count, nullptr);
    EXPECT_EQ(gauge.MethodName(count), u"Count");
    EXPECT_EQ(gauge.MethodAddress(u"Get"), nullptr);
    EXPECT_EQ(Counter().MethodAddress(u"Reset"), nullptr);
    EXPECT_EQ(gauge.MethodName(nullptr), u"");

    const Classes::TNotifyEvent event(TMethod::Of(count, &gauge));
    event(&gauge);
    EXPECT_EQ(gauge.count, 2);
    EXPECT_EQ(event, Classes::TNotifyEvent(&gauge, &Counter::Count));
}

} // namespace
