// SPDX-License-Identifier: MIT
#include "properties/components/BTL_Components.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "properties/components/ComponentTrees.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

namespace
{

using BTL::CComponents;
using Classes::TComponent;
using ComponentTrees::Names;
using ComponentTrees::TDesk;
using ComponentTrees::TMarked;
using System::ClassOf;

constexpr const char* WholeDesk = "Plain M1 P1 Marked M2 P2 P3 M3";

TEST(ComponentsTest, WalksWholeTreesDepthFirst)
{
    const TDesk tree;
    const CComponents below(tree.desk);
    EXPECT_EQ(Names(below), WholeDesk);
    EXPECT_EQ(below.getOwner(), tree.desk);
    EXPECT_EQ(below.capacity(), 18u) << "two components of its own, and a step of 16";
    EXPECT_EQ(below.getComponentCount(), 8);
    EXPECT_EQ(below.getComponent(0)->getName(), u"Plain");

    EXPECT_EQ(Names(CComponents(tree.desk, true)), std::string("Desk ") + WholeDesk);
    EXPECT_EQ(Names(CComponents(tree.desk, false)), WholeDesk);
}

/// The filter tells where the walk goes on; what it meets is kept, of any class.
TEST(ComponentsTest, FollowsBranchesOfAClass)
{
    const TDesk tree;
    EXPECT_EQ(Names(CComponents(tree.desk, ClassOf<TMarked>())), "Plain Marked M2 P2 P3");
    EXPECT_EQ(Names(CComponents(tree.desk, ClassOf<TComponent>())), WholeDesk);
    EXPECT_EQ(Names(CComponents(tree.desk, nullptr)), "Plain Marked");

    CComponents added;
    added.AddComponents(tree.desk, ClassOf<TMarked>());
    EXPECT_EQ(Names(added), "") << "the desk isn't marked";
    added.AddComponents(tree.desk->FindComponent(u"Marked"), ClassOf<TMarked>());
    EXPECT_EQ(Names(added), "M2 P2 P3");
    EXPECT_EQ(added.getOwner(), nullptr);
}

TEST(ComponentsTest, KeepsThoseOfAClass)
{
    const TDesk tree;
    const CComponents all(tree.desk);
    const CComponents marked(all, ClassOf<TMarked>());
    EXPECT_EQ(Names(marked), "M1 Marked M2 M3");
    EXPECT_EQ(marked.getOwner(), tree.desk);

    CComponents out(tree.desk->FindComponent(u"Plain"));
    all.AddComponentsTo(out, ClassOf<TMarked>());
    EXPECT_EQ(Names(out), "M1 P1 M1 Marked M2 M3");
    all.GetComponents(out, ClassOf<TMarked>());
    EXPECT_EQ(Names(out), "M1 Marked M2 M3");
    out.AddComponentsTo(out, ClassOf<TMarked>());
    EXPECT_EQ(out.size(), 8u);
    out.GetComponents(out, ClassOf<TMarked>());
    EXPECT_EQ(Names(out), "M1 Marked M2 M3 M1 Marked M2 M3");
}

TEST(ComponentsTest, FollowsItsOwner)
{
    const TDesk tree;
    CComponents below(tree.desk);
    delete tree.desk->FindComponent(u"Marked");
    ComponentTrees::Make(tree.desk, "New");
    below.SynchronizeWithOwner();
    EXPECT_EQ(Names(below), "Plain M1 P1 New");

    below.AddComponents(tree.desk->FindComponent(u"Plain"));
    EXPECT_EQ(Names(below), "Plain M1 P1 New M1 P1");

    CComponents ownerless;
    ownerless.AddComponents(tree.desk);
    ownerless.SynchronizeWithOwner();
    EXPECT_TRUE(ownerless.empty());
}

TEST(ComponentsTest, NullOwnsNothing)
{
    CComponents none(nullptr, true);
    none.AddComponents(nullptr);
    none.AddComponents(nullptr, ClassOf<TComponent>());
    none.push_back(nullptr);
    EXPECT_EQ(Names(CComponents(none, ClassOf<TComponent>())), "") << "null is of no class";

    const Support::ScriptedBoxes boxes({6, 6});
    EXPECT_THROW(none.getComponent(1), UTL::XAssert);
    EXPECT_THROW(none.getComponent(-1), UTL::XAssert);
}

TEST(ComponentsTest, TreesMayBeDeep)
{
    ComponentTrees::CChain chain(20'000);
    EXPECT_EQ(CComponents(chain.Root()).size(), 20'000u);
}

} // namespace
