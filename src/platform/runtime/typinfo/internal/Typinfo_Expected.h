// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/typinfo/Typinfo.h"

namespace Typinfo::Detail
{

/// What a property of this type holds, behind a colon, for the message that something else was given: the
/// names of an enumeration, the range of an integer, the form of a float or a date by
/// `Sysutils::FormatSettings`. Empty for a type that takes anything.
[[nodiscard]] System::UnicodeString ExpectedText(const TTypeInfo& type);

} // namespace Typinfo::Detail
