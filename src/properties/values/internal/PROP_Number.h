// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/typinfo/Typinfo.h"

namespace PROP
{

// How a property takes a number from its text, for the one who sets it and the one who only asks. `value` is
// left alone where the text is no number.

/// The whole number, or what a colour's or mouse pointer's name stands for; it may be beyond the type.
bool TryReadInteger(const Typinfo::TTypeInfo& type, const System::UnicodeString& text, System::Int64& value);

/// The float in the width of the type; a number beyond that width is none.
bool TryReadFloat(const Typinfo::TTypeInfo& type, const System::UnicodeString& text, System::Extended& value);
/// Whether the type, which may be narrower than what reads it, can hold the float.
bool IsInRange(const Typinfo::TTypeInfo& type, System::Extended value);

} // namespace PROP
