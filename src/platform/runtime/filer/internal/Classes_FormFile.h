// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <string_view>

namespace Classes
{

class TStream;

namespace Form
{

/// What a form begins with where it is a resource in a file: the mark of a resource, and its type.
inline constexpr std::string_view ResourceMark{"\xFF\x0A\0", 3};

/// Writes the bytes of a form as a resource of that name. `EWriteError` for a name that can't be one.
void WriteResource(TStream& output, const System::UnicodeString& name, std::string_view form);

} // namespace Form

} // namespace Classes
