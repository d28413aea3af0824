// SPDX-License-Identifier: MIT
#include "platform/toolkit/Window.h"

#include "platform/toolkit/ModalWindow.h"
#include "platform/toolkit/WindowContents.h"

namespace Toolkits
{

WindowEvents::~WindowEvents() = default;

Window::~Window() = default;

// Only windows of forms know of states.

void WindowEvents::StateChanged(EWindowState) {}

void WindowEvents::ColorsChanged() {}

void Window::SetState(EWindowState) {}

bool Window::Grab(Pixels&)
{
    return false;
}

// Only windows that paint by themselves look at it.

void Window::SetLook(const TWindowLook&) {}

void Window::SetLabel(const System::UnicodeString&) {}

// Only windows of text know of it.

void Window::SetSelection(int, int) {}

void Window::SetEditTraits(const TEditTraits&) {}

WindowItems::~WindowItems() = default;

WindowCells::~WindowCells() = default;

WindowContents::~WindowContents() = default;

ECheck WindowItems::GetItemCheck(int) const
{
    return ECheck::Unchecked;
}

bool WindowItems::IsItemEnabled(int) const
{
    return true;
}

bool WindowItems::IsItemHeader(int) const
{
    return false;
}

// Only windows of lists tell of these.

void WindowEvents::ItemChecked(int) {}

void WindowEvents::DropChanged(bool) {}

// Only windows of buttons, boxes and lists know of these.

void Window::SetCheck(ECheck) {}

void Window::SetDefaultButton(bool) {}

void Window::ShowItems(const WindowItems&) {}

void Window::ShowItem(int) {}

void Window::SelectItem(int) {}

void Window::SetComboTraits(const TComboTraits&) {}

void Window::SetDropped(bool) {}

ModalWindow::~ModalWindow() = default;

TTimerId NewTimerId() noexcept
{
    static TTimerId last = 0;
    return ++last;
}

TFrameMargins UsualFrameMargins(EFrame frame)
{
    if (frame == EFrame::None) {
        return {};
    }
    const bool isSizeable = frame == EFrame::Sizeable || frame == EFrame::SizeableToolWindow;
    const int side = isSizeable ? 8 : 3;
    return {side, side + 23, side, side};
}

} // namespace Toolkits
