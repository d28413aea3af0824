// SPDX-License-Identifier: MIT
#include "platform/toolkit/Window.h"

#include "platform/toolkit/ModalWindow.h"

namespace Toolkits
{

WindowEvents::~WindowEvents() = default;

Window::~Window() = default;

ModalWindow::~ModalWindow() = default;

} // namespace Toolkits
