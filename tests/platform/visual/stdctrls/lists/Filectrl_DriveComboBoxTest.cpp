// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/lists/Filectrl_DriveComboBox.h"

#include "platform/host/Host_Path.h"
#include "platform/visual/stdctrls/ShownForm.h"
#include "platform/visual/stdctrls/lists/Filectrl_DirectoryListBox.h"
#include "support/TempFolder.h"

namespace
{

using Filectrl::TDirectoryListBox;
using Filectrl::TDriveComboBox;

class DriveComboBoxTest : public Support::ShownForm
{
protected:
    DriveComboBoxTest()
    {
        EXPECT_TRUE(Sysutils::SetDrive(u'X', mFolder.Path().string()));
        mBox = Add<TDriveComboBox>(u"Box");
        mForm.Show();
    }
    ~DriveComboBoxTest() override { EXPECT_TRUE(Sysutils::SetDrive(u'X', "")); }

    Support::TempFolder mFolder;
    TDriveComboBox* mBox = nullptr;
    TDirectoryListBox* mList = Add<TDirectoryListBox>(u"List");
};

TEST_F(DriveComboBoxTest, LeadsItsListAndFollowsIt)
{
    mList->setDirectory(u"\\");
    mBox->setDirList(mList);
    EXPECT_EQ(mBox->getDrive(), u'C');
    EXPECT_EQ(mBox->getItemCount(), 2);
    mBox->OnChange = Note(u"change");
    mDriver.Choose(u"Box", 1);
    EXPECT_EQ(mBox->getDrive(), u'X');
    EXPECT_EQ(mList->getDirectory(), Sysutils::FromHostPath(mFolder.Path().string()));
    mList->setDirectory(u"\\");
    EXPECT_EQ(mBox->getDrive(), u'C');
    EXPECT_EQ(TakeLog(), u"change change ");
    mBox->setDrive(u'Q');
    EXPECT_EQ(mBox->getDrive(), u'C');
}

TEST_F(DriveComboBoxTest, OutlivesItsListAndIsOutlivedByIt)
{
    mBox->setDirList(mList);
    delete mList;
    EXPECT_EQ(mBox->getDirList(), nullptr);
    mBox->setDrive(u'X');
    auto* const list = Add<TDirectoryListBox>(u"Other");
    mBox->setDirList(list);
    delete mBox;
    list->setDirectory(u"\\");
    EXPECT_EQ(list->getDirectory(), u"\\");
}

} // namespace
