// SPDX-License-Identifier: MIT
#include "forms/BTL_CDisableForm.h"

#include "platform/visual/Forms.h"
#include "platform/visual/stdctrls/edits/Stdctrls_Edit.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

#include <memory>

namespace
{

TEST(DisableFormTest, DisablesAFormForAScope)
{
    const Support::ScriptedBoxes toolkit;
    Forms::TForm form;
    {
        const BTL::CDisableForm outer(&form);
        EXPECT_FALSE(form.getEnabled());
        {
            const BTL::CDisableForm inner(&form);
            const BTL::CDisableForm none(nullptr);
        }
        EXPECT_FALSE(form.getEnabled());
    }
    EXPECT_TRUE(form.getEnabled());
    form.Show();
    {
        const BTL::CDisableForm active;
        EXPECT_FALSE(form.getEnabled());
    }
    EXPECT_TRUE(form.getEnabled());
}

TEST(DisableFormTest, DisablesNothingIfAHandlerRaises)
{
    const Support::ScriptedBoxes toolkit;
    Forms::TForm form;
    auto* const edit = new Stdctrls::TEdit(&form);
    edit->setParent(&form);
    form.Show();
    edit->SetFocus();
    edit->OnExit = [](System::TObject*) { throw Sysutils::Exception(u"no"); };
    EXPECT_THROW(const BTL::CDisableForm disabled(&form), Sysutils::Exception);
    EXPECT_TRUE(form.getEnabled());
}

TEST(DisableFormTest, OutlivesItsForm)
{
    const Support::ScriptedBoxes toolkit;
    auto form = std::make_unique<Forms::TForm>();
    const BTL::CDisableForm disabled(form.get());
    form.reset();
    EXPECT_EQ(form, nullptr);
}

} // namespace
