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
    if (list != nullptr) {
        list->Clear();
        const unsigned count = ::DragQueryFileW(drop, 0xFFFFFFFF, nullptr, 0);
        for (unsigned i = 0; i < count; ++i) {
            list->Add(drop->files[i]);
        }
    }
    ::DragFinish(drop);
}

} // namespace WIN
