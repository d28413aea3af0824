// SPDX-License-Identifier: MIT
#include "forms/progress/BTL_ProgressDialog.h"

#include "platform/visual/Forms.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

#include <limits>

namespace
{

template <class Dialog>
class ProgressDialogTest : public testing::Test
{
protected:
    Support::ScriptedBoxes mToolkit;
};

using TDialogs = testing::Types<BTL::CProgressDialog, BTL::CProgress64Dialog>;
TYPED_TEST_SUITE(ProgressDialogTest, TDialogs);

TYPED_TEST(ProgressDialogTest, DoesNothingWithoutAForm)
{
    TypeParam dialog(false);
    EXPECT_EQ(dialog.getForm(), nullptr);
    dialog.Prepare(5, true, true, u"", u"", u"", nullptr, 0);
    dialog.Start(5);
    dialog.IncPosition(1);
    dialog.setUserCancel(true);
    dialog.ThrowIfUserCancel();
    dialog.Stop();
    EXPECT_FALSE(dialog.getUserCancel());
    EXPECT_EQ(dialog.getMax(), 2147483647);
    EXPECT_EQ(dialog.getPosition(), std::numeric_limits<decltype(dialog.getPosition())>::max());
    EXPECT_EQ(dialog.getText1(), u"");
    dialog.CreateForm();
    EXPECT_NE(dialog.getForm(), nullptr);
}

TYPED_TEST(ProgressDialogTest, DrivesItsForm)
{
    int before = Forms::Screen->getFormCount();
    {
        TypeParam dialog;
        EXPECT_EQ(Forms::Screen->getFormCount(), before + 1);
        dialog.Prepare(5, true, true, u"Copy", u"one", u"two", nullptr, 300);
        EXPECT_EQ(dialog.getWidth(), 300);
        dialog.Start(0);
        EXPECT_TRUE(dialog.getForm()->getVisible());
        dialog.IncPosition(2);
        EXPECT_EQ(dialog.getPosition(), 2);
        EXPECT_EQ(dialog.getMax(), 5);
        dialog.SetText_VA(2, "%i", 7);
        EXPECT_EQ(dialog.getText2(), u"7");
        dialog.UserCancelClick();
        EXPECT_TRUE(dialog.getUserCancel());
        EXPECT_THROW(dialog.ThrowIfUserCancel(), EProgressException);
        EXPECT_THROW(dialog.setPosition(3), EProgressException);
    }
    EXPECT_EQ(Forms::Screen->getFormCount(), before);
}

} // namespace
