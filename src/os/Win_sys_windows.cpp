// SPDX-License-Identifier: MIT
#include "os/Win_sys_windows.h"

#include "platform/runtime/classes/Classes_Strings.h"
#include "platform/visual/controls/Controls_DropFiles.h"
#include "platform/visual/forms/Forms_Foreground.h"

namespace WIN
{

bool SetForegroundWindowEx(HWND window)
{
    return ::SetForegroundWindow(window);
}

void DragQueryFiles(HDROP drop, Classes::TStrings* list)
{
    // Taken at once: what hears of the list's lines may raise, or give the handle up.
    const std::vector<System::UnicodeString> files =
        drop == nullptr ? std::vector<System::UnicodeString>() : drop->files;
    ::DragFinish(drop);
    if (list == nullptr) {
        return;
    }
    list->Clear();
    for (const System::UnicodeString& file : files) {
        list->Add(file);
    }
}

} // namespace WIN
