// SPDX-License-Identifier: MIT
#include "forms/progress/BTL_ProgressInfoDialog.h"

#include "environment/files/BTL_SYS_FileProgress.h"
#include "forms/progress/BTL_Progress64DLG.h"
#include "forms/progress/BTL_ProgressDLG.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/visual/Forms.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

#include <memory>

namespace
{

using BTL::AProgressInfo;
using BTL::CProgressInfoDialog;

/// The dialog among the forms of the program; null if there is none.
TProgress64DLG* FindDialog()
{
    for (int i = 0; i < Forms::Screen->getFormCount(); ++i) {
        if (auto* const dialog = dynamic_cast<TProgress64DLG*>(Forms::Screen->getForms(i))) {
            return dialog;
        }
    }
    return nullptr;
}

class ProgressInfoDialogTest : public testing::Test
{
protected:
    Support::ScriptedBoxes mToolkit;
};

TEST_F(ProgressInfoDialogTest, HandsAllOnToItsDialog)
{
    {
        CProgressInfoDialog info(nullptr);
        const TProgress64DLG* const dialog = FindDialog();
        ASSERT_NE(dialog, nullptr);
        info.Prepare(50, false, true, u"Copy", u"one", u"two", u"a\r\nb", 0);
        EXPECT_FALSE(dialog->getVisible());
        {
            const BTL::CProgressInfoStarter started(&info, 60);
            EXPECT_TRUE(dialog->getVisible());
            info.IncPosition();
            info.IncPosition();
            EXPECT_EQ(info.getPosition(), 2);
            EXPECT_EQ(dialog->getProgressPosition(), 2);
            info.SetProgressEndPosition();
            EXPECT_EQ(info.getPosition(), 60);
            info.setText1(u"three");
            info.setCaption(u"Move");
            info.setTextLines(u"c");
            info.setMessage(u"lost");
        }
        EXPECT_FALSE(dialog->getVisible());
        EXPECT_EQ(info.getMax(), 60);
        EXPECT_EQ(dialog->getCaption(), u"Move");
        EXPECT_EQ(info.getCaption(), u"Move");
        EXPECT_EQ(info.getText1(), u"three");
        EXPECT_EQ(info.getText2(), u"two");
        EXPECT_EQ(dialog->getLines()->getCount(), 1);
        EXPECT_EQ(info.getMessage(), u"");
    }
    EXPECT_EQ(FindDialog(), nullptr);
}

TEST_F(ProgressInfoDialogTest, DoesNothingOnceTheDialogIsGone)
{
    auto owner = std::make_unique<Classes::TComponent>();
    CProgressInfoDialog info(owner.get());
    FindDialog()->setUserCancel(true);
    EXPECT_TRUE(info.getUserCancel());
    delete FindDialog();
    info.Start(5);
    info.IncPosition();
    info.Stop();
    EXPECT_EQ(info.getMax(), 0);
    EXPECT_FALSE(info.getUserCancel());
    info.ResetUserCancel();
    ASSERT_NE(FindDialog(), nullptr);
    info.setMax(7);
    EXPECT_EQ(info.getMax(), 7);
    owner.reset();
    info.ResetUserCancel();
    EXPECT_EQ(FindDialog(), nullptr);
}

TEST_F(ProgressInfoDialogTest, IsOneForTheProgram)
{
    AProgressInfo* const info = AProgressInfo::Get(true);
    ASSERT_NE(info, nullptr);
    FindDialog()->setUserCancel(true);
    info->setText1(u"kept");
    EXPECT_EQ(AProgressInfo::Get(true), info);
    EXPECT_FALSE(info->getUserCancel());
    EXPECT_EQ(info->getText1(), u"kept");
    delete FindDialog();
    AProgressInfo::Get(true)->setText1(u"again");
    EXPECT_EQ(info->getText1(), u"again");
    EXPECT_EQ(AProgressInfo::Get(false), nullptr);
    delete FindDialog();
}

TEST_F(ProgressInfoDialogTest, ModalKeepsTheUserFromTheActiveForm)
{
    Forms::TForm form;
    form.Show();
    CProgressInfoDialog info(nullptr);
    try {
        const BTL::CProgressInfoStarterModal started(&info, 10);
        EXPECT_FALSE(form.getEnabled());
        EXPECT_TRUE(FindDialog()->getVisible());
        EXPECT_TRUE(FindDialog()->getEnabled());
        throw epeUserCancel;
    } catch (EProgressException) {
    }
    EXPECT_TRUE(form.getEnabled());
    EXPECT_FALSE(FindDialog()->getVisible());
    const BTL::CProgressInfoStarterModal nobody(nullptr, 10);
    EXPECT_FALSE(form.getEnabled());
}

TEST_F(ProgressInfoDialogTest, ModalLeavesTheDialogItselfInUse)
{
    CProgressInfoDialog info(nullptr);
    const BTL::CProgressInfoStarterModal outer(&info, 10);
    const TProgress64DLG* const dialog = FindDialog();
    ASSERT_EQ(Forms::Screen->getActiveForm(), dialog);
    const BTL::CProgressInfoStarterModal inner(&info, 5);
    EXPECT_TRUE(dialog->getEnabled());
}

TEST_F(ProgressInfoDialogTest, WalksThroughFoldersTellADialog)
{
    TProgressDLG dialog;
    dialog.Prepare(10, false, true, u"", u"", u"", u"", 0);
    {
        const BTL::CFileProgress progress(&dialog);
        progress.ShowFolder(u"\\data");
        progress.Step();
    }
    EXPECT_EQ(dialog.getText2(), u"\\data");
    EXPECT_EQ(dialog.GetPosition(), 1);
}

} // namespace
