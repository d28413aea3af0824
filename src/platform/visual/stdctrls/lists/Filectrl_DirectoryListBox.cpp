// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/lists/Filectrl_DirectoryListBox.h"

#include "platform/host/Host_Path.h"
#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/runtime/classes/Classes_Update.h"
#include "platform/runtime/sysutils/Sysutils_File.h"
#include "platform/runtime/sysutils/Sysutils_FileName.h"
#include "platform/runtime/sysutils/Sysutils_FindFile.h"
#include "platform/runtime/sysutils/Sysutils_Text.h"
#include "platform/visual/controls/Controls_Publish.h"
#include "platform/visual/stdctrls/lists/Filectrl_DriveComboBox.h"

#include <algorithm>

namespace Filectrl
{

using System::UnicodeString;

namespace
{

/// The folders of a path, the root first, which has the separator as its name.
std::vector<UnicodeString> PartsOf(const UnicodeString& path)
{
    std::vector<UnicodeString> parts{u"\\"};
    std::u16string_view rest = path.AsView();
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find(u'\\'), rest.size());
        if (end > 0) {
            parts.emplace_back(rest.substr(0, end));
        }
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return parts;
}

/// The names of the folders in a folder, in their order.
std::vector<UnicodeString> FoldersIn(const UnicodeString& directory)
{
    std::vector<UnicodeString> names;
    Sysutils::TSearchRec found;
    const UnicodeString mask = Sysutils::IncludeTrailingPathDelimiter(directory) + u"*";
    for (int error = Sysutils::FindFirst(mask, Sysutils::faDirectory, found); error == 0;
         error = Sysutils::FindNext(found)) {
        if ((found.Attr & Sysutils::faDirectory) != 0 && found.Name != u"." && found.Name != u"..") {
            names.push_back(found.Name);
        }
    }
    std::ranges::sort(names, [](const UnicodeString& a, const UnicodeString& b) {
        return Sysutils::AnsiCompareText(a, b) < 0;
    });
    return names;
}

/// The folder of the host that the drive is, as the library's text; empty for no drive.
UnicodeString RootOf(System::WideChar drive)
{
    const std::string root = Sysutils::GetDrive(drive);
    return root.empty() ? UnicodeString() : Sysutils::FromHostPath(root);
}

bool LiesIn(const UnicodeString& directory, const UnicodeString& root)
{
    const UnicodeString begin = Sysutils::IncludeTrailingPathDelimiter(root);
    return Sysutils::IncludeTrailingPathDelimiter(directory).AsView().starts_with(begin.AsView());
}

} // namespace

System::TMetaClass* TDirectoryListBox::ClassRecord()
{
    using T = TDirectoryListBox;
    static System::TMetaClass* const record =
        Controls::PublishFocus(
            Controls::PublishColoredControl(System::GClassBuilder<T>(u"TDirectoryListBox")))
            .Property(u"Columns", &T::getColumns, &T::setColumns, {.defaultValue = 0})
            .Property(u"Ctl3D", &T::getCtl3D, &T::setCtl3D)
            .Property(u"IntegralHeight", &T::getIntegralHeight, &T::setIntegralHeight, {.defaultValue = 0})
            .Property(u"ItemHeight", &T::getItemHeight, &T::setItemHeight)
            .Property(u"ParentCtl3D", &T::getParentCtl3D, &T::setParentCtl3D, {.defaultValue = 1})
            .Property(u"OnChange", &T::OnChange)
            .Build();
    return record;
}

TDirectoryListBox::TDirectoryListBox(Classes::TComponent* owner)
    : TCustomListBox(owner), mDirectory(Sysutils::ExpandFileName(Sysutils::GetCurrentDir()))
{
    SetBounds(0, 0, 145, 97);
    BuildList();
}

TDirectoryListBox::~TDirectoryListBox() = default;

void TDirectoryListBox::setDirectory(const UnicodeString& directory)
{
    if (directory.IsEmpty()) {
        return;
    }
    // By way of the host, so that a drive becomes what it stands for.
    const UnicodeString whole =
        Sysutils::FromHostPath(Sysutils::HostPath(Sysutils::ExpandFileName(directory)));
    if (!Sysutils::DirectoryExists(whole)) {
        throw Sysutils::EInOutError(u"There is no folder '" + directory + u"'");
    }
    const std::u16string_view view = whole.AsView();
    const bool hasEnd = view.size() > 1 && view.back() == u'\\';
    const UnicodeString named = hasEnd ? UnicodeString(view.substr(0, view.size() - 1)) : whole;
    if (named != mDirectory) {
        mDirectory = named;
        BuildList();
        Change();
    }
}

void TDirectoryListBox::BuildList()
{
    const std::vector<UnicodeString> parts = PartsOf(mDirectory);
    mPathCount = static_cast<int>(parts.size());
    {
        const Classes::GUpdateScope scope(*getItems());
        getItems()->Clear();
        getItems()->AddStrings(parts);
        getItems()->AddStrings(FoldersIn(mDirectory));
    }
    setItemIndex(mPathCount - 1);
}

UnicodeString TDirectoryListBox::GetItemText(int index) const
{
    const int level = std::min(index, mPathCount);
    return UnicodeString(std::u16string(static_cast<std::size_t>(std::max(level, 0)) * 2, u' ')) +
           TCustomListBox::GetItemText(index);
}

UnicodeString TDirectoryListBox::GetItemPath(int index) const
{
    CheckIndex(index);
    if (index >= mPathCount) {
        return Sysutils::IncludeTrailingPathDelimiter(mDirectory) + getItems()->getStrings(index);
    }
    UnicodeString path = u"\\";
    for (int i = 1; i <= index; ++i) {
        path = Sysutils::IncludeTrailingPathDelimiter(path) + getItems()->getStrings(i);
    }
    return path;
}

void TDirectoryListBox::OpenCurrent()
{
    if (getItemIndex() >= 0) {
        setDirectory(GetItemPath(getItemIndex()));
    }
}

System::WideChar TDirectoryListBox::getDrive() const
{
    System::WideChar nearest = 0;
    int length = -1;
    for (System::WideChar drive = u'A'; drive <= u'Z'; ++drive) {
        const UnicodeString root = RootOf(drive);
        if (!root.IsEmpty() && root.Length() > length && LiesIn(mDirectory, root)) {
            nearest = drive;
            length = root.Length();
        }
    }
    return nearest;
}

void TDirectoryListBox::setDrive(System::WideChar drive)
{
    const UnicodeString letter = Sysutils::AnsiUpperCase(UnicodeString(drive));
    if (letter != UnicodeString(getDrive())) {
        setDirectory(RootOf(drive));
    }
}

void TDirectoryListBox::Change()
{
    const Classes::TComponentWatch watch(this);
    if (mDriveBox != nullptr) {
        mDriveBox->FollowList();
    }
    if (watch.IsAlive() && OnChange) {
        OnChange(this);
    }
}

void TDirectoryListBox::DblClick()
{
    const Classes::TComponentWatch watch(this);
    TCustomListBox::DblClick();
    if (watch.IsAlive()) {
        OpenCurrent();
    }
}

void TDirectoryListBox::KeyPress(System::WideChar& key)
{
    const Classes::TComponentWatch watch(this);
    TCustomListBox::KeyPress(key);
    if (watch.IsAlive() && key == VK_RETURN) {
        OpenCurrent();
    }
}

void TDirectoryListBox::Notification(Classes::TComponent* component, Classes::TOperation operation)
{
    TCustomListBox::Notification(component, operation);
    if (operation == Classes::opRemove && component == mDriveBox) {
        mDriveBox = nullptr;
    }
}

} // namespace Filectrl
