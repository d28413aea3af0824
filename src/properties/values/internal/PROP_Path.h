// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace System
{
class TObject;
} // namespace System

namespace PROP
{

/// The end of a path of properties: the object whose property the last name is, null if it isn't there, and
/// that name. The name is a piece of the path, or of what is kept of it here.
struct CPathEnd
{
    System::TObject* object = nullptr;
    std::u16string_view name;
    System::UnicodeString kept;
};

/// Follows all names of `path` but the last. A null on the way to the last object is an internal fault.
CPathEnd ResolvePropPath(System::TObject* object, const System::UnicodeString& path);

/// The text without one pair of `[` and `]` around it; without both of them as it is.
System::UnicodeString WithoutBrackets(const System::UnicodeString& text);

} // namespace PROP
