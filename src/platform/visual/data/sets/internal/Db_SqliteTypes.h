// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/variants/System_Variant.h"
#include "platform/visual/data/sets/Db_Types.h"

namespace Db
{

/// The type of a column by how it was declared, such as `VARCHAR(20)`, which also gives the size;
/// `ftUnknown` for an expression.
TFieldType TypeOfDeclaration(const System::UnicodeString& declaration, int& size);
/// The type of a column without a declaration, by one of its values.
TFieldType TypeOfValue(const System::Variant& value);
/// A value of the database as a field of the type has it, which keeps what it can't be.
System::Variant FromSqlite(const System::Variant& value, TFieldType type);
/// A field's value as the database has it: points in time as text of ISO 8601, such as
/// "2022-02-28 12:30:00". `EDatabaseError` for one that has no date.
System::Variant ToSqlite(const System::Variant& value, TFieldType type);
/// A name in quotes, whatever is in it.
System::UnicodeString QuotedName(const System::UnicodeString& name);

} // namespace Db
