// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Contnrs_ComponentList.h"

#include "platform/runtime/classes/Classes_Component.h"

#include <gtest/gtest.h>

#include <memory>

namespace
{

using Classes::TComponent;
using Contnrs::TComponentList;

TEST(ComponentListTest, LetsGoOfWhatIsDestroyedElsewhere)
{
    TComponentList list(false);
    TComponent owner;
    auto* const first = new TComponent(&owner);
    auto* const second = new TComponent(&owner);
    list.Add(first);
    list.Add(second);
    list.Add(first);
    delete first;
    EXPECT_EQ(list.getCount(), 1);
    EXPECT_EQ(list.IndexOf(second), 0);
    owner.DestroyComponents();
    EXPECT_EQ(list.getCount(), 0);
}

TEST(ComponentListTest, DestroysWhatItOwnsAndWhatThatOwns)
{
    auto list = std::make_unique<TComponentList>();
    auto* const outer = new TComponent;
    auto* const inner = new TComponent(outer);
    TComponentList watching(false);
    for (TComponent* component : {inner, outer}) {
        list->Add(component);
        watching.Add(component);
    }
    list->Insert(0, new TComponent);
    list.reset();
    EXPECT_EQ(watching.getCount(), 0);
}

TEST(ComponentListTest, ForgetsWhatLeft)
{
    auto component = std::make_unique<TComponent>();
    auto other = std::make_unique<TComponent>();
    TComponentList list(false);
    list.Add(component.get());
    list.Add(component.get());
    EXPECT_EQ(list.Extract(component.get()), component.get());
    // Its second place is still known.
    component.reset();
    EXPECT_EQ(list.getCount(), 0);
    list.Add(other.get());
    list.setItems(0, nullptr);
    other.reset();
    EXPECT_EQ(list.getCount(), 1);
    EXPECT_EQ(list.getItems(0), nullptr);
}

TEST(ComponentListTest, MayEndBeforeItsComponents)
{
    TComponent component;
    {
        TComponentList list(false);
        list.Add(&component);
    }
    EXPECT_EQ(component.GetComponentCount(), 0);
    EXPECT_FALSE(component.getComponentState().Contains(Classes::csDestroying));
}

} // namespace
