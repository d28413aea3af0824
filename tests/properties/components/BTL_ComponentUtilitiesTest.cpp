// SPDX-License-Identifier: MIT
#include "properties/components/BTL_ComponentUtilities.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "properties/components/ComponentTrees.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

namespace
{

using BTL::GetNamePath;
using Classes::TComponent;
using ComponentTrees::Make;

TEST(ComponentUtilitiesTest, APathBeginsAtTheForm)
{
    TComponent application;
    application.setName(u"Program");
    auto* const form = Make(&application, "FormMain");
    auto* const frame = Make(form, "FrameData");
    auto* const edit = Make(frame, "EditName");
    EXPECT_EQ(GetNamePath(edit), u"FormMain.FrameData.EditName");
    EXPECT_EQ(GetNamePath(form), u"FormMain");
    EXPECT_EQ(GetNamePath(&application), u"Program");

    frame->setName(u"");
    EXPECT_EQ(GetNamePath(edit), u".EditName");
    EXPECT_EQ(GetNamePath(frame), u"");
}

TEST(ComponentUtilitiesTest, NullIsAFault)
{
    const Support::ScriptedBoxes boxes({6, 7});
    EXPECT_THROW(static_cast<void>(GetNamePath(nullptr)), UTL::XAssert);
    EXPECT_EQ(GetNamePath(nullptr), u"") << "the fault was let pass";
}

} // namespace
