// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_ComponentWatch.h"

#include <gtest/gtest.h>

#include <memory>

namespace
{

using Classes::TComponent;
using Classes::TComponentWatch;

TEST(ComponentWatchTest, TellsOfTheEndInWhateverOrderWatchesEnd)
{
    auto* component = new TComponent;
    const TComponentWatch first(component);
    auto second = std::make_unique<TComponentWatch>(component);
    const TComponentWatch third(component);
    {
        const TComponentWatch inner(component);
        EXPECT_TRUE(inner.IsAlive());
    }
    second.reset();
    EXPECT_TRUE(first.IsAlive() && third.IsAlive());
    delete component;
    EXPECT_FALSE(first.IsAlive());
    EXPECT_FALSE(third.IsAlive());
}

TEST(ComponentWatchTest, HearsOfAnEndByTheOwner)
{
    auto owner = std::make_unique<TComponent>();
    const TComponentWatch watch(new TComponent(owner.get()));
    owner.reset();
    EXPECT_FALSE(watch.IsAlive());
}

} // namespace
