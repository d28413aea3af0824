// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace BTL
{
class CStringList;
} // namespace BTL

namespace System
{
class TObject;
} // namespace System

namespace Typinfo
{
struct TTypeInfo;
} // namespace Typinfo

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

/// The names of a path; one without points is a name as it is.
BTL::CStringList NamesOfPath(const System::UnicodeString& path);

/// Whether it is the declared type that counts as a list of lines; one that derives from it doesn't.
bool IsLines(const Typinfo::TTypeInfo& type);

/// The code of the text's first character in the code page, 0 for an empty text; one that the code page lacks
/// stays beyond all codes.
System::Int64 CharCodeOf(const System::UnicodeString& text);

/// The text without one pair of `[` and `]` around it; without both of them as it is.
System::UnicodeString WithoutBrackets(const System::UnicodeString& text);
/// The text with a pair of them around it.
System::UnicodeString InBrackets(const System::UnicodeString& text);

} // namespace PROP
