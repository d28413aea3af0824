// SPDX-License-Identifier: MIT
#include "platform/toolkit/Window.h"

#include "platform/toolkit/DrawnItems.h"
#include "platform/toolkit/MenuEntry.h"
#include "platform/toolkit/ModalWindow.h"
#include "platform/toolkit/WindowContents.h"

namespace Toolkits
{

WindowEvents::~WindowEvents() = default;

Window::~Window() = default;

// Only windows of forms know of states.

void WindowEvents::StateChanged(EWindowState) {}

void WindowEvents::ColorsChanged() {}

void WindowEvents::MenuOpening(int) {}

void WindowEvents::MenuChosen(int) {}

std::vector<TMenuEntry> WindowEvents::MenuAsked()
{
    return {};
}

void Window::SetState(EWindowState) {}

bool Window::Grab(Pixels&)
{
    return false;
}

void Window::ShowMenuBar(bool) {}

bool Window::OpenMenu(int)
{
    return false;
}

System::UnicodeString WindowEvents::HintAt(Types::TPoint)
{
    return {};
}

// Only windows that paint by themselves look at it.

void Window::SetLook(const TWindowLook&) {}

void Window::Scroll(const Types::TRect& part, const Types::TSize&)
{
    Invalidate(&part);
}

void Window::SetLabel(const System::UnicodeString&) {}

// Only windows of text know of it.

void Window::SetSelection(int, int) {}

void Window::SetEditTraits(const TEditTraits&) {}

void Window::ShowFormats(const TTextFormats&) {}

WindowItems::~WindowItems() = default;

DrawnItems::~DrawnItems() = default;

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

bool WindowItems::IsItemChosen(int) const
{
    return false;
}

// Only windows of lists and pages tell of these.

void WindowEvents::ItemChecked(int) {}

void WindowEvents::DropChanged(bool) {}

void WindowEvents::Scrolled(int) {}

// Only windows of buttons, boxes, lists, bars and pages know of these.

void Window::SetCheck(ECheck) {}

void Window::SetDefaultButton(bool) {}

void Window::ShowItems(const WindowItems&) {}

void Window::ShowItem(int) {}

void Window::SelectItem(int) {}

void Window::SetComboTraits(const TComboTraits&) {}

void Window::SetDropped(bool) {}

void Window::SetListTraits(const TListTraits&) {}

void Window::SetTopItem(int) {}

void Window::ShowChoice() {}

void Window::SetProgress(const TProgress&) {}

void Window::SetTabs(const TTabs&) {}

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
