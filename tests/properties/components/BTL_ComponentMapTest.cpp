// SPDX-License-Identifier: MIT
#include "properties/components/BTL_ComponentMap.h"

#include "properties/components/ComponentTrees.h"

#include <gtest/gtest.h>

namespace
{

using BTL::CComponentMap;
using Classes::TComponent;
using ComponentTrees::Make;
using ComponentTrees::TDesk;
using ComponentTrees::TMarked;
using System::ClassOf;

std::string Keys(const CComponentMap& map)
{
    std::string keys;
    for (const auto& [name, component] : map) {
        keys += (keys.empty() ? "" : " ") + System::ToUtf8(name);
    }
    return keys;
}

TEST(ComponentMapTest, TakesWholeTrees)
{
    const TDesk tree;
    EXPECT_EQ(Keys(CComponentMap(tree.desk, false)), "Desk M1 M2 M3 Marked P1 P2 P3 Plain");
    EXPECT_EQ(Keys(CComponentMap(tree.desk, true)),
              "Desk Desk.Marked Desk.Marked.M2 Desk.Marked.M2.P2 Desk.Marked.P3 Desk.Marked.P3.M3 "
              "Desk.Plain Desk.Plain.M1 Desk.Plain.P1");
}

/// Only the component itself is asked for its class.
TEST(ComponentMapTest, FiltersAtTheTop)
{
    const TDesk tree;
    CComponentMap map(false);
    map.AddComponents(tree.desk, ClassOf<TMarked>());
    EXPECT_EQ(Keys(map), "M1 M2 M3 Marked P1 P2 P3 Plain");
    map.clear();
    map.AddComponents(tree.desk->FindComponent(u"Marked"), ClassOf<TMarked>());
    EXPECT_EQ(Keys(map), "M2 M3 Marked P2 P3");
}

TEST(ComponentMapTest, LastOfANameWins)
{
    const TDesk tree;
    TComponent* const first = Make(tree.desk->FindComponent(u"Plain"), "Twin");
    TComponent* const last = Make(tree.desk->FindComponent(u"Marked"), "Twin");

    const CComponentMap bare(tree.desk, false);
    EXPECT_EQ(bare.Find(u"Twin"), last);
    EXPECT_EQ(bare.Find(first), last);
    EXPECT_EQ(bare.GetNameOf(first), u"Twin");

    const CComponentMap paths(tree.desk, true);
    EXPECT_EQ(paths.Find(u"Desk.Plain.Twin"), first);
    EXPECT_EQ(paths.Find(u"Desk.Marked.Twin"), last);
    EXPECT_EQ(paths.Find(first), first);
    EXPECT_EQ(paths.Find(u"desk.plain.twin"), nullptr) << "case matters";
    EXPECT_EQ(paths.Find(u"Twin"), nullptr);
}

TEST(ComponentMapTest, NullAddsNothing)
{
    CComponentMap map(nullptr, true);
    map.AddComponents(nullptr, ClassOf<TComponent>());
    EXPECT_TRUE(map.empty());
    EXPECT_EQ(map.Find(static_cast<TComponent*>(nullptr)), nullptr);
}

} // namespace
