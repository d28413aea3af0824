// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "serial/WIN_ComValues.h"

#include <map>

namespace WIN
{

/// The names of the devices behind the ports.
///
///     WIN::CComTypeNameList names;
///     WIN::ReadComTypeNames(names);
///     for (const auto& [port, name] : names) { ... }              // COM1, "Serial0"
class CComTypeNameList : public std::map<ECom, System::AnsiString>
{
public:
    /// Sets the name of a port.
    void Add(ECom port, const System::AnsiString& name) { insert_or_assign(port, name); }
};

/// Adds what the registry's list of serial devices tells. What goes wrong there is shown in a box, and the
/// list has what there was.
TRS8_BTL_API void ReadComTypeNames(CComTypeNameList& list);

/// The kind of the device behind the port, with its number ("Serial0") or without ("Serial"); empty for a
/// port that isn't listed.
[[nodiscard]] TRS8_BTL_API System::AnsiString GetComTypeName(ECom port, bool withNumber);

} // namespace WIN
