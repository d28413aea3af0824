// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_ComponentLink.h"

#include <gtest/gtest.h>

#include <memory>

namespace
{

using Classes::TComponent;
using Classes::TComponentLink;

TEST(ComponentLinkTest, KnowsAComponentUntilItIsGone)
{
    int gone = 0;
    auto first = std::make_unique<TComponent>();
    auto second = std::make_unique<TComponent>();
    TComponentLink link(first.get(), [&] { ++gone; });
    EXPECT_EQ(link.getComponent(), first.get());
    link.setComponent(second.get());
    first.reset();
    EXPECT_EQ(gone, 0) << "it was given up before";
    EXPECT_EQ(link.getComponent(), second.get());
    second.reset();
    EXPECT_EQ(gone, 1);
    EXPECT_EQ(link.getComponent(), nullptr);
    link.setComponent(nullptr);
    EXPECT_EQ(gone, 1);
}

TEST(ComponentLinkTest, MayGoFirst)
{
    TComponent component;
    {
        const TComponentLink link(&component);
        const TComponentLink none;
        EXPECT_EQ(none.getComponent(), nullptr);
    }
}

} // namespace
