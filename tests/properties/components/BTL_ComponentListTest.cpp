// SPDX-License-Identifier: MIT
#include "properties/components/BTL_ComponentList.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "platform/runtime/classes/Contnrs_ComponentList.h"
#include "properties/components/ComponentTrees.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

namespace
{

using BTL::CComponentList;
using Classes::TComponent;
using ComponentTrees::Names;
using ComponentTrees::TDesk;
using ComponentTrees::TMarked;
using System::ClassOf;

/// The plain form has one level, the one with a class has all.
TEST(ComponentListTest, FiltersOnAllLevels)
{
    const TDesk tree;
    EXPECT_EQ(Names(CComponentList(tree.desk)), "Plain Marked");
    EXPECT_EQ(Names(CComponentList(tree.desk, ClassOf<TComponent>())), "Plain M1 P1 Marked M2 P2 P3 M3");
    EXPECT_EQ(Names(CComponentList(tree.desk, ClassOf<TMarked>())), "M1 Marked M2 M3");
    EXPECT_EQ(Names(CComponentList(tree.desk, nullptr)), "");
}

TEST(ComponentListTest, TakesOtherLists)
{
    const TDesk tree;
    const CComponentList owned(tree.desk);
    EXPECT_EQ(Names(CComponentList(owned, ClassOf<TMarked>())), "M1 Marked M2 M3");

    CComponentList list = owned;
    list.AddComponents(owned);
    EXPECT_EQ(Names(list), "Plain Marked Plain Marked");
    list = owned;
    list.AddComponents(list, ClassOf<TMarked>());
    EXPECT_EQ(Names(list), "Plain Marked M1 Marked M2 M3");
    list = owned;
    list.AddComponents(list);
    EXPECT_EQ(list.getComponentCount(), 4);
    EXPECT_EQ(list.getComponent(3), owned.getComponent(1));
}

TEST(ComponentListTest, TakesListsOfThePlatform)
{
    const TDesk tree;
    Contnrs::TComponentList list(false);
    list.Add(tree.desk->FindComponent(u"Plain"));
    list.Add(tree.desk->FindComponent(u"Marked"));
    EXPECT_EQ(Names(CComponentList(&list)), "Plain Marked");
    EXPECT_EQ(Names(CComponentList(&list, ClassOf<TMarked>())), "M1 Marked M2 M3");
    EXPECT_EQ(Names(CComponentList(static_cast<Contnrs::TComponentList*>(nullptr))), "");
}

/// An owner takes what it owns along, and nothing is destroyed twice.
TEST(ComponentListTest, DestroysEachOnce)
{
    const TDesk tree;
    CComponentList list(tree.desk, ClassOf<TComponent>());
    list.AddComponents(tree.desk);
    list.push_back(nullptr);
    auto* const loose = new TComponent;
    list.push_back(loose);
    list.DeleteComponents();
    EXPECT_TRUE(list.empty());
    EXPECT_EQ(tree.desk->GetComponentCount(), 0);
    list.DeleteComponents();
}

TEST(ComponentListTest, NullAddsNothing)
{
    CComponentList list(static_cast<TComponent*>(nullptr));
    list.AddComponents(static_cast<TComponent*>(nullptr), ClassOf<TComponent>());
    EXPECT_TRUE(list.empty());
    const Support::ScriptedBoxes boxes({6});
    EXPECT_THROW(list.getComponent(0), UTL::XAssert);
}

} // namespace
