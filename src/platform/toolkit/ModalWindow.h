// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace Toolkits
{

/// A form that is shown modally, as a toolkit knows it that answers forms from a script.
class TRS8_BTL_API ModalWindow
{
public:
    virtual ~ModalWindow();

    /// What it calls itself to the user.
    virtual System::UnicodeString ModalCaption() const = 0;
    /// Nobody attends: closes the form by way of its close query with the result 2, and ends it all the same
    /// if that refuses.
    virtual void CloseUnattended() = 0;
};

} // namespace Toolkits
