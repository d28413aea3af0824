// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/stdctrls/lists/Stdctrls_ComboBox.h"

namespace Filectrl
{

class TDirectoryListBox;

/// A box with the drives of the program, see `Sysutils::SetDrive`. The list of folders that it is bound to
/// goes to the drive that is chosen, and chooses here the drive of its folder.
class TRS8_BTL_API TDriveComboBox : public Stdctrls::TCustomComboBox
{
    TRS8_BTL_CLASS(TDriveComboBox, Stdctrls::TCustomComboBox)

public:
    /// Begins with the drive of the current folder.
    explicit TDriveComboBox(Classes::TComponent* owner = nullptr);
    ~TDriveComboBox() override;

    /// The letter of the chosen drive, a capital; 0 for none. One that there isn't changes nothing.
    System::WideChar getDrive() const;
    void setDrive(System::WideChar drive);
    /// The list of folders that follows; not owned, null at first.
    TDirectoryListBox* getDirList() const noexcept { return mDirList; }
    void setDirList(TDirectoryListBox* list);
    /// Looks up the drives anew.
    void BuildList();
    /// Chooses the drive of the list's folder.
    void FollowList();

    void Click() override;
    void Notification(Classes::TComponent* component, Classes::TOperation operation) override;

protected:
    /// A choice is told once, by the drive that changes.
    void Select() override {}

private:
    TDirectoryListBox* mDirList = nullptr;
};

} // namespace Filectrl
