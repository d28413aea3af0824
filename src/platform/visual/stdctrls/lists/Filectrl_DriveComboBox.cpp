// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/lists/Filectrl_DriveComboBox.h"

#include "platform/host/Host_Path.h"
#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/runtime/classes/Classes_Update.h"
#include "platform/runtime/sysutils/Sysutils_Text.h"
#include "platform/visual/controls/Controls_Publish.h"
#include "platform/visual/stdctrls/lists/Filectrl_DirectoryListBox.h"

namespace Filectrl
{

using System::UnicodeString;
using System::WideChar;

System::TMetaClass* TDriveComboBox::ClassRecord()
{
    using T = TDriveComboBox;
    static System::TMetaClass* const record =
        Controls::PublishFocus(Controls::PublishColoredControl(System::GClassBuilder<T>(u"TDriveComboBox")))
            .Property(u"Ctl3D", &T::getCtl3D, &T::setCtl3D)
            .Property(u"DirList", &T::getDirList, &T::setDirList)
            .Property(u"ParentCtl3D", &T::getParentCtl3D, &T::setParentCtl3D, {.defaultValue = 1})
            .Property(u"OnChange", &T::OnChange)
            .Property(u"OnDropDown", &T::OnDropDown)
            .Build();
    return record;
}

TDriveComboBox::TDriveComboBox(Classes::TComponent* owner) : TCustomComboBox(owner)
{
    setStyle(Stdctrls::csDropDownList);
    BuildList();
    const TDirectoryListBox current;
    const WideChar drive = current.getDrive();
    for (int i = 0; i < getItemCount(); ++i) {
        if (getItems()->getStrings(i)[1] == drive) {
            setItemIndex(i);
        }
    }
}

TDriveComboBox::~TDriveComboBox() = default;

void TDriveComboBox::BuildList()
{
    const WideChar drive = getDrive();
    {
        const Classes::GUpdateScope scope(*getItems());
        getItems()->Clear();
        for (WideChar letter = u'A'; letter <= u'Z'; ++letter) {
            const std::string root = Sysutils::GetDrive(letter);
            if (!root.empty()) {
                getItems()->Add(UnicodeString(letter) + u": [" + Sysutils::FromHostPath(root) + u"]");
            }
        }
    }
    setDrive(drive);
}

WideChar TDriveComboBox::getDrive() const
{
    const int index = getItemIndex();
    return index < 0 ? u'\0' : getItems()->getStrings(index)[1];
}

void TDriveComboBox::setDrive(WideChar drive)
{
    const UnicodeString letter = Sysutils::AnsiUpperCase(UnicodeString(drive));
    if (drive == 0 || letter == UnicodeString(getDrive())) {
        return;
    }
    for (int i = 0; i < getItemCount(); ++i) {
        if (UnicodeString(getItems()->getStrings(i)[1]) == letter) {
            setItemIndex(i);
            Click();
            return;
        }
    }
}

void TDriveComboBox::setDirList(TDirectoryListBox* list)
{
    if (mDirList != nullptr) {
        mDirList->mDriveBox = nullptr;
    }
    mDirList = list;
    if (list != nullptr) {
        list->mDriveBox = this;
        list->FreeNotification(this);
        FreeNotification(list);
        FollowList();
    }
}

void TDriveComboBox::FollowList()
{
    if (mDirList != nullptr) {
        setDrive(mDirList->getDrive());
    }
}

void TDriveComboBox::Click()
{
    const Classes::TComponentWatch watch(this);
    if (mDirList != nullptr && getDrive() != 0) {
        mDirList->setDrive(getDrive());
    }
    if (watch.IsAlive()) {
        TCustomComboBox::Click();
    }
    if (watch.IsAlive()) {
        Change();
    }
}

void TDriveComboBox::Notification(Classes::TComponent* component, Classes::TOperation operation)
{
    TCustomComboBox::Notification(component, operation);
    if (operation == Classes::opRemove && component == mDirList) {
        mDirList = nullptr;
    }
}

} // namespace Filectrl
