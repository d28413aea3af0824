// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/typinfo/Typinfo.h"

namespace BTL
{

// The texts of published properties for files: in one line, the same in every locale, and exact.
//
//     out.WriteLine(info->getName() + u"=" + BTL::GetStoredProp(gauge, info));
//     ...
//     BTL::SetStoredProp(gauge, u"Limit", u"0.30000000000000004");
//
// What a user reads and types goes by `Typinfo::GetPropText` and `Typinfo::SetPropText`, or by
// `Typinfo::SetPropValue` of a number that `BTL::ToDouble` has read.

/// The value as text. A float has as many digits as bring it back, behind `.`, or is `inf` or `nan`. A date
/// is that of ISO 8601 to the millisecond, or its days as a float if no calendar has it. Texts and characters
/// are by `EscapeText`. A variant has the code of its type and a colon in front. All else is as
/// `Typinfo::GetPropText` gives it. `Typinfo::EPropertyError` for objects and methods, and if there is no
/// such property or it can't be read, `Typinfo::EPropertyConvertError` for a variant array.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetStoredProp(const System::TObject* object,
                                                               const Typinfo::TPropInfo* info);
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetStoredProp(const System::TObject* object,
                                                               const System::UnicodeString& name);
/// Reads what `GetStoredProp` gives; integers, enumerations and sets also as `Typinfo::SetPropText` does.
/// `Typinfo::EPropertyConvertError`, which names the text and the property, for one that the type can't hold.
/// What the setter raises passes.
TRS8_BTL_API void SetStoredProp(System::TObject* object, const Typinfo::TPropInfo* info,
                                const System::UnicodeString& text);
TRS8_BTL_API void SetStoredProp(System::TObject* object, const System::UnicodeString& name,
                                const System::UnicodeString& text);

} // namespace BTL
