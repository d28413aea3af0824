// SPDX-License-Identifier: MIT
#include "platform/toolkit/MessageBox.h"

#include "platform/toolkit/Toolkit.h"

int MessageBoxW(void* owner, const System::WideChar* text, const System::WideChar* caption, unsigned flags)
{
    return Toolkits::CurrentToolkit().ShowBox(
        {.owner = owner, .text = text, .caption = caption == nullptr ? u"Error" : caption, .flags = flags});
}
