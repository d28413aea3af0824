// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/stdctrls/lists/Stdctrls_ListBox.h"

namespace Filectrl
{

class TDriveComboBox;

/// A list of a folder: the folders that it lies in, from the root on, itself, and those in it. A double click
/// or Enter goes to the chosen one.
///
///     auto* const list = new Filectrl::TDirectoryListBox(form);
///     list->setParent(form);
///     list->setDirectory(u"\\home");
///     list->OnChange = Classes::TNotifyEvent(this, &TMainForm::FolderChanged);
class TRS8_BTL_API TDirectoryListBox : public Stdctrls::TCustomListBox
{
    TRS8_BTL_CLASS(TDirectoryListBox, Stdctrls::TCustomListBox)

public:
    /// Begins with the current folder.
    explicit TDirectoryListBox(Classes::TComponent* owner = nullptr);
    ~TDirectoryListBox() override;

    /// The folder, whole, without a final separator unless it is the root.
    const System::UnicodeString& getDirectory() const noexcept { return mDirectory; }
    /// The empty text changes nothing. `Sysutils::EInOutError` for what is no folder.
    void setDirectory(const System::UnicodeString& directory);
    /// The letter of the drive that the folder lies in; 0 if it lies in none. Another one goes to its root.
    System::WideChar getDrive() const;
    void setDrive(System::WideChar drive);
    /// Goes to the chosen folder.
    void OpenCurrent();
    /// The path of an item. `Classes::EListError` for an index that isn't there.
    System::UnicodeString GetItemPath(int index) const;
    /// Reads the folders anew.
    void BuildList();
    /// The name, behind two blanks for each folder above.
    System::UnicodeString GetItemText(int index) const override;

    void Notification(Classes::TComponent* component, Classes::TOperation operation) override;

    /// The folder changed.
    Classes::TNotifyEvent OnChange;

protected:
    /// Tells the drive box, and calls `OnChange`.
    virtual void Change();
    void DblClick() override;
    void KeyPress(System::WideChar& key) override;

private:
    friend class TDriveComboBox;

    System::UnicodeString mDirectory;
    TDriveComboBox* mDriveBox = nullptr;
    /// How many of the items are the folder and those that it lies in.
    int mPathCount = 0;
};

} // namespace Filectrl
