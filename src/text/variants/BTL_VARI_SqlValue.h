// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/variants/System_Variant.h"

namespace BTL
{

// Values in statements of SQL.
//
//     const auto sql = u"UPDATE t SET a=" + BTL::VarToSqlValue(u"it's"); // a='it''s'
//     UnicodeString text;
//     if (!BTL::VarToSqlValue(true, text)) { ... }                       // booleans have no form

/// The value as an SQL literal: NULL for Empty and Null, text in apostrophes, numbers with `.`, dates as
/// `GetSQLDateString` quotes them. Booleans, `varByte`, `varLongWord` and arrays have none: `result` is then
/// empty.
TRS8_BTL_API bool VarToSqlValue(const System::Variant& value, System::UnicodeString& result);
/// A value that has none is an internal fault, and the result empty if the user lets that pass.
TRS8_BTL_API System::UnicodeString VarToSqlValue(const System::Variant& value);

} // namespace BTL
