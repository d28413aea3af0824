// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/lists/Filectrl_DirectoryListBox.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/host/Host_Path.h"
#include "platform/visual/stdctrls/ShownForm.h"
#include "support/TempFolder.h"

namespace
{

using Filectrl::TDirectoryListBox;
using System::UnicodeString;

class DirectoryListBoxTest : public Support::ShownForm
{
protected:
    DirectoryListBoxTest()
    {
        for (const char* name : {"beta", "Alpha", "beta/inner"}) {
            std::filesystem::create_directory(mFolder.Path() / name);
        }
        mList->setDirectory(Path(""));
        mList->OnChange = Note(u"change");
        mForm.Show();
        mDriver.Focus(u"List");
    }

    UnicodeString Path(const char* name) const
    {
        return Sysutils::FromHostPath((mFolder.Path() / name).string());
    }

    /// The names of the items behind the folder itself.
    UnicodeString FoldersBelow() const
    {
        UnicodeString names;
        for (int i = mList->getItemIndex() + 1; i < mList->getCount(); ++i) {
            names += mList->getItems()->getStrings(i) + u" ";
        }
        return names;
    }

    Support::TempFolder mFolder;
    TDirectoryListBox* mList = Add<TDirectoryListBox>(u"List");
};

TEST_F(DirectoryListBoxTest, ShowsTheWayToTheFolderAndThoseInIt)
{
    EXPECT_EQ(mList->getItems()->getStrings(0), u"\\");
    EXPECT_EQ(mList->GetItemPath(0), u"\\");
    EXPECT_EQ(mList->GetItemPath(mList->getItemIndex()), mList->getDirectory());
    EXPECT_EQ(FoldersBelow(), u"Alpha beta ");
    EXPECT_EQ(mList->GetItemPath(mList->getCount() - 1), Path("beta"));
    EXPECT_EQ(mList->GetItemText(1).SubString(1, 2), u"  ");
}

TEST_F(DirectoryListBoxTest, GoesWhereTheUserChooses)
{
    mDriver.Press(VK_END);
    mDriver.Press(VK_RETURN);
    EXPECT_EQ(mList->getDirectory(), Path("beta"));
    EXPECT_EQ(FoldersBelow(), u"inner ");
    mDriver.Press(VK_UP);
    mDriver.Press(VK_RETURN);
    EXPECT_EQ(FoldersBelow(), u"Alpha beta ");
    EXPECT_EQ(TakeLog(), u"change change ");
}

TEST_F(DirectoryListBoxTest, RefusesWhatIsNoFolder)
{
    EXPECT_THROW(mList->setDirectory(Path("missing")), Sysutils::EInOutError);
    mList->setDirectory({});
    mList->setDirectory(mList->getDirectory() + u"\\");
    EXPECT_EQ(FoldersBelow(), u"Alpha beta ");
    EXPECT_EQ(TakeLog(), u"");
    EXPECT_EQ(mList->getDrive(), u'C');
}

} // namespace
