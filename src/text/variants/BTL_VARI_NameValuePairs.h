// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/variants/System_Variant.h"

#include <vector>

namespace Classes
{
class TStrings;
} // namespace Classes

namespace BTL
{

/// A value and its name.
struct TNameValuePair
{
    System::UnicodeString name;
    System::Variant value;
};

/// Values with names, in the order they were added; names may repeat.
class TRS8_BTL_API CNameValuePairs : public std::vector<TNameValuePair>
{
public:
    /// Appends an entry, also where one of this name is there.
    void Add(const System::UnicodeString& name, const System::Variant& value);
    /// Makes this the only entry.
    void Assign(const System::UnicodeString& name, const System::Variant& value);

    /// A line `name=value` for each entry, the values and failures as of `VarToSqlValue`; names stand as they
    /// are. Null does nothing.
    void AddSqlUpdateAssignTo(Classes::TStrings* strings) const;
    /// The lines of `AddSqlUpdateAssignTo` with commas between, for the `SET` of an SQL statement.
    System::UnicodeString GetSqlUpdateAssign() const;

    /// The entries as a comma text for a log.
    System::UnicodeString _getDebugInfo() const;
};

} // namespace BTL
