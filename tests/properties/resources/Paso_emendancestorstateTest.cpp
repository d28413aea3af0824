// SPDX-License-Identifier: MIT
#include "properties/resources/Paso_emendancestorstate.h"

#include "properties/resources/Designs.h"

namespace
{

using namespace Designs;
using Classes::TComponent;

TComponent* Add(TComponent& owner, const char16_t* name)
{
    auto* const added = new TComponent(&owner);
    added->setName(name);
    return added;
}

bool IsInherited(const TComponent* component)
{
    return component->getComponentState().Contains(Classes::csAncestor);
}

TEST(PasoEmendAncestorStateTest, MarksWhatBothHaveByTheirPaths)
{
    TComponent ancestor;
    Add(*Add(ancestor, u"Panel"), u"Edit");
    TComponent component;
    TComponent* const panel = Add(component, u"Panel");
    TComponent* const edit = Add(*panel, u"Edit");
    TComponent* const bare = Add(component, u"Edit");
    TComponent* const added = Add(component, u"New");

    PASO::EmendAncestorState(&component, &ancestor);
    EXPECT_TRUE(IsInherited(panel));
    EXPECT_TRUE(IsInherited(edit));
    EXPECT_FALSE(IsInherited(bare)) << "another path";
    EXPECT_FALSE(IsInherited(added));
    EXPECT_FALSE(IsInherited(&component));
}

TEST(PasoEmendAncestorStateTest, WithoutAnAncestorNothingHappens)
{
    TComponent component;
    TComponent* const part = Add(component, u"Part");
    PASO::EmendAncestorState(&component, nullptr);
    EXPECT_FALSE(IsInherited(part));
    PASO::EmendAncestorState(nullptr, &component);
}

} // namespace
