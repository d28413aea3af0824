// SPDX-License-Identifier: MIT
#include "platform/toolkit/Window.h"

#include "platform/toolkit/ModalWindow.h"

namespace Toolkits
{

WindowEvents::~WindowEvents() = default;

Window::~Window() = default;

// Only windows of text know of it.

void Window::SetSelection(int, int) {}

void Window::SetEditTraits(const TEditTraits&) {}

ModalWindow::~ModalWindow() = default;

} // namespace Toolkits
