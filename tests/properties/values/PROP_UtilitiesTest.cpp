// SPDX-License-Identifier: MIT
#include "properties/values/PROP_Utilities.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/toolkit/MessageBox.h"
#include "platform/visual/forms/Forms_Form.h"
#include "platform/visual/stdctrls/Extctrls_Timer.h"
#include "platform/visual/stdctrls/Stdctrls_Label.h"
#include "platform/visual/stdctrls/panels/Extctrls_Panel.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

namespace
{

using Classes::TComponent;
using PROP::GetComponentName;
using Support::ScriptedBoxes;

template <class T>
T* Make(TComponent* owner, const char* name)
{
    auto* const made = new T(owner);
    made->setName(name);
    return made;
}

TEST(PropUtilitiesTest, NamesComponentsAsDocumentsDo)
{
    const ScriptedBoxes boxes({IDYES});
    TComponent application;
    auto* const form = Make<TComponent>(&application, "Main");
    auto* const frame = Make<TComponent>(form, "Frame");
    auto* const edit = Make<TComponent>(frame, "Edit");
    EXPECT_EQ(GetComponentName(form), u"Main") << "the application has no owner";
    EXPECT_EQ(GetComponentName(frame), u"Frame") << "the application has no name";
    EXPECT_EQ(GetComponentName(edit), u"Main.Frame.Edit");
    application.setName(u"App");
    EXPECT_EQ(GetComponentName(form), u"Main");
    EXPECT_EQ(GetComponentName(frame), u"Main.Frame");
    auto* const nameless = Make<TComponent>(frame, "");
    EXPECT_EQ(GetComponentName(nameless), u"");
    EXPECT_EQ(GetComponentName(Make<TComponent>(nameless, "Below")), u"Below");
    EXPECT_THROW(static_cast<void>(GetComponentName(nullptr)), UTL::XAssert);
}

/// What windowed controls own is found too; what others own isn't.
TEST(PropUtilitiesTest, ListsChildrenOfAClass)
{
    const ScriptedBoxes boxes({IDYES});
    Forms::TForm form(nullptr);
    auto* const panel = Make<Extctrls::TPanel>(&form, "Panel");
    auto* const timer = Make<Extctrls::TTimer>(&form, "Timer");
    auto* const inside = Make<Stdctrls::TLabel>(panel, "Inside");
    Make<Stdctrls::TLabel>(timer, "Hidden");
    Make<Stdctrls::TLabel>(&form, "Last");

    Classes::TStringList list;
    list.Add(u"kept");
    PROP::GetChildNames(&form, System::ClassOf<Stdctrls::TLabel>(), &list);
    EXPECT_EQ(list.getCommaText(), u"kept,Inside,Last");
    EXPECT_EQ(list.getObjects(1), inside);
    EXPECT_THROW(PROP::GetChildNames(nullptr, System::ClassOf<Stdctrls::TLabel>(), &list), UTL::XAssert);
}

} // namespace
