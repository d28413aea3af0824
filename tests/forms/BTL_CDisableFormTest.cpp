// SPDX-License-Identifier: MIT
#include "forms/BTL_CDisableForm.h"

#include "platform/visual/Forms.h"
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

TEST(DisableFormTest, OutlivesItsForm)
{
    const Support::ScriptedBoxes toolkit;
    auto form = std::make_unique<Forms::TForm>();
    const BTL::CDisableForm disabled(form.get());
    form.reset();
    EXPECT_EQ(form, nullptr);
}

} // namespace
