// SPDX-License-Identifier: MIT
#include "platform/visual/forms/Forms_Foreground.h"

#include "platform/host/Host_Error.h"
#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/visual/controls/Controls_Handle.h"
#include "platform/visual/forms/Forms_Form.h"
#include "platform/visual/forms/Forms_Screen.h"

HWND GetForegroundWindow()
{
    Forms::TCustomForm* const form =
        Forms::Screen == nullptr ? nullptr : Forms::Screen->getActiveCustomForm();
    return form == nullptr || !form->getActive() ? nullptr : Controls::GetHandle(*form);
}

bool SetForegroundWindow(HWND window)
{
    Forms::TCustomForm* const form = Forms::GetParentForm(Controls::FindControl(window));
    if (form == nullptr) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return false;
    }
    if (!form->getShowing() || !form->getEnabled()) {
        SetLastError(ERROR_ACCESS_DENIED);
        return false;
    }
    const Classes::TComponentWatch watch(form);
    form->SetFocus();
    if (!watch.IsAlive() || !form->getActive()) {
        SetLastError(ERROR_ACCESS_DENIED);
        return false;
    }
    form->BringToFront();
    return true;
}
