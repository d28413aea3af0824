// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/typinfo/Typinfo.h"

// Properties by name as values and as texts, whatever their kind.
//
//     SetPropText(gauge, u"Value", u"12");
//     SetPropValue(gauge, u"Kind", u"gkRound");       // an enumeration by its name
//     for (const TPropInfo* info : GetPropList(gauge)) {
//         std::cout << info->getName() << '=' << GetPropText(gauge, info) << '\n';
//     }
//
// As a value, integers are whole numbers and booleans are booleans; a character is a text of one; an
// enumeration is the name of its value, or the number of one without a name; a set is the names of its
// elements as in "[akTop,akLeft]"; floats, dates and money are that; a variant is itself. All raise
// `EPropertyError` if there is no such property or it can't be read or written, and for objects and methods,
// which `GetObjectProp` and `GetMethodProp` give.

namespace Typinfo
{

/// The value of a property of any kind but objects and methods, see above.
TRS8_BTL_API System::Variant GetPropValue(const System::TObject* object, const TPropInfo* info);
TRS8_BTL_API System::Variant GetPropValue(const System::TObject* object, const System::UnicodeString& name);
/// Takes the value that `GetPropValue` gives, and all that a variant converts to the property's type: numbers
/// as text, enumerations and sets by number, names in any case, a set also without its brackets.
/// A number is rounded for an integer; a text with a fraction isn't one. Texts of floats and dates have the
/// form of `Sysutils::FormatSettings` alone. `EPropertyConvertError`, which names the value, the property and
/// what that holds, for one that the type can't hold. What the setter raises passes.
TRS8_BTL_API void SetPropValue(System::TObject* object, const TPropInfo* info, const System::Variant& value);
TRS8_BTL_API void SetPropValue(System::TObject* object, const System::UnicodeString& name,
                               const System::Variant& value);

/// The value of `GetPropValue` as text by `Sysutils::FormatSettings`; Null is the empty text. It is for
/// people: `BTL::GetStoredProp` gives texts for files, exact and the same in every locale.
TRS8_BTL_API System::UnicodeString GetPropText(const System::TObject* object, const TPropInfo* info);
TRS8_BTL_API System::UnicodeString GetPropText(const System::TObject* object,
                                               const System::UnicodeString& name);
/// As `SetPropValue`, with what `GetPropText` gives.
TRS8_BTL_API void SetPropText(System::TObject* object, const TPropInfo* info,
                              const System::UnicodeString& text);
TRS8_BTL_API void SetPropText(System::TObject* object, const System::UnicodeString& name,
                              const System::UnicodeString& text);

} // namespace Typinfo
