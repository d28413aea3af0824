// SPDX-License-Identifier: MIT
#include "properties/resources/Pasu_buildobject.h"

#include "properties/resources/Designs.h"

namespace
{

using namespace Designs;
using PasuBuildObjectTest = DesignTest;
using Pasu_buildobject::BuildObject;
using System::ClassOf;

TEST_F(PasuBuildObjectTest, AnObjectIsBuiltAsAProgramDoes)
{
    Classes::TComponent owner;
    Classes::TComponent* const form = BuildObject(ClassOf<TBenchForm>(), &owner);
    ASSERT_NE(dynamic_cast<TBenchForm*>(form), nullptr);
    EXPECT_EQ(form->getOwner(), &owner);
    EXPECT_EQ(TBenchForm::Calls, 2) << "the constructor, and OnCreate behind it";

    Classes::TComponent* const frame = BuildObject(ClassOf<TLampFrame>(), &owner);
    EXPECT_NE(frame->FindComponent(u"Bulb"), nullptr);
    EXPECT_NE(BuildObject(ClassOf<TStoreModule>(), &owner), nullptr);
}

TEST_F(PasuBuildObjectTest, WhatIsNoComponentIsNotBuilt)
{
    EXPECT_EQ(BuildObject(nullptr, nullptr), nullptr);
    EXPECT_EQ(BuildObject(ClassOf<TLimits>(), nullptr), nullptr);
}

} // namespace
