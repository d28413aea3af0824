// SPDX-License-Identifier: MIT
#pragma once

#include "config/BTL_INI_Texts.h"
#include "platform/base/Sysutils_Exception.h"
#include "platform/runtime/sysutils/System_Printf.h"

namespace BTL::Detail
{

/// How the stores tell that a file can't be written.
template <class Fault = Sysutils::Exception>
[[noreturn]] void ThrowUnwritable(const System::UnicodeString& file)
{
    throw Fault(System::Printf(GetIniText(EIniText::CannotWrite), file));
}

} // namespace BTL::Detail
