// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/typinfo/Typinfo.h"

namespace PROP
{

// Numbers of properties as texts.

/// The whole number, of a colour or mouse pointer its name; empty if that has none.
System::UnicodeString IntegerText(const Typinfo::TTypeInfo& type, System::Int64 value);
/// The float with as many digits as its type has.
System::UnicodeString FloatText(const Typinfo::TTypeInfo& type, System::Extended value);

/// What the text is as such a property; `Sysutils::EConvertError` for a text that is no number.
System::Int64 IntegerOf(const Typinfo::TTypeInfo& type, const System::UnicodeString& text);
/// As `IntegerOf`, for a float; `Typinfo::EPropertyConvertError` for one that the type can't hold.
System::Extended FloatOf(const Typinfo::TTypeInfo& type, const System::UnicodeString& text);

// For one who only asks. `value` is left alone where the text is no number.

/// The whole number, or what a colour's or mouse pointer's name stands for; it may be beyond the type.
bool TryReadInteger(const Typinfo::TTypeInfo& type, const System::UnicodeString& text, System::Int64& value);

/// The float in the width of the type; a number beyond that width is none.
bool TryReadFloat(const Typinfo::TTypeInfo& type, const System::UnicodeString& text, System::Extended& value);
/// Whether the type, which may be narrower than what reads it, can hold the float.
bool IsInRange(const Typinfo::TTypeInfo& type, System::Extended value);

} // namespace PROP
