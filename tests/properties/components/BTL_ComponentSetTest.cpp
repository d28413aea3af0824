// SPDX-License-Identifier: MIT
#include "properties/components/BTL_ComponentSet.h"

#include "platform/runtime/classes/Contnrs_ComponentList.h"
#include "properties/components/ComponentTrees.h"

#include <gtest/gtest.h>

#include <functional>

namespace
{

using BTL::CComponentSet;
using Classes::TComponent;
using ComponentTrees::SortedNames;
using ComponentTrees::TDesk;
using ComponentTrees::TMarked;
using System::ClassOf;

TEST(ComponentSetTest, TakesOneLevel)
{
    const TDesk tree;
    EXPECT_EQ(SortedNames(CComponentSet(tree.desk)), "Marked Plain");
    EXPECT_EQ(SortedNames(CComponentSet(tree.desk, ClassOf<TMarked>())), "Marked");
    EXPECT_EQ(SortedNames(CComponentSet(tree.desk, nullptr)), "");
    EXPECT_EQ(SortedNames(CComponentSet(CComponentSet(tree.desk), ClassOf<TMarked>())), "Marked");
}

TEST(ComponentSetTest, HasEachOnce)
{
    const TDesk tree;
    CComponentSet set(tree.desk);
    set.AddComponents(tree.desk);
    set.AddComponents(CComponentSet(tree.desk->FindComponent(u"Plain")));
    set.AddComponents(set);
    set.AddComponents(set, ClassOf<TMarked>());
    EXPECT_EQ(SortedNames(set), "M1 Marked P1 Plain");
    EXPECT_TRUE(std::ranges::is_sorted(set, std::less<TComponent*>()));
    EXPECT_TRUE(set.Contains(tree.desk->FindComponent(u"Plain")));
    EXPECT_FALSE(set.Contains(tree.desk));
}

TEST(ComponentSetTest, TakesListsOfThePlatform)
{
    const TDesk tree;
    Contnrs::TComponentList list(false);
    list.Add(tree.desk->FindComponent(u"Plain"));
    list.Add(tree.desk->FindComponent(u"Marked"));
    EXPECT_EQ(SortedNames(CComponentSet(&list)), "Marked Plain");
    EXPECT_EQ(SortedNames(CComponentSet(&list, ClassOf<TMarked>())), "Marked");
    EXPECT_EQ(SortedNames(CComponentSet(static_cast<Contnrs::TComponentList*>(nullptr))), "");
}

TEST(ComponentSetTest, NullAddsNothing)
{
    CComponentSet set(static_cast<TComponent*>(nullptr));
    set.AddComponents(static_cast<TComponent*>(nullptr), ClassOf<TComponent>());
    EXPECT_TRUE(set.empty());
    EXPECT_FALSE(set.Contains(nullptr));
}

} // namespace
