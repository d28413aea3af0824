// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/typinfo/Typinfo.h"

namespace Classes
{
class TCollection;
} // namespace Classes

// Published properties by name, as texts that files hold and as variants.
//
//     PROP::SetPropValueFromString(edit, u"Color", u"clYellow");
//     PROP::SetPropPathValueFromString(form, u"Font.Name", u"Arial");
//     const UnicodeString text = PROP::GetPropPathValueAsString(form, u"Font.Name", false);
//     PROP::GetItemPropValuesAsString(columns, u"Caption", text);    // "[Time,Value]"
//
// A path is names with points between, each but the last one of a property that holds an object. A name with
// a comma, a quote or a blank can't be addressed by a path.
//
// A null object or record, where it isn't told otherwise, is an internal fault; if the user lets that pass,
// it counts as an object without properties. What a setter raises passes, as does `EPropertyError` for a
// property that can't be read or written.

namespace PROP
{

/// The record of the property of that name, case aside; null if the object has none.
[[nodiscard]] TRS8_BTL_API Typinfo::TPropInfo* GetPropInfo(System::TObject* object,
                                                           const System::UnicodeString& name);
[[nodiscard]] TRS8_BTL_API bool HasProp(System::TObject* object, const System::UnicodeString& name);
/// The property's type; null if the object has no such property.
[[nodiscard]] TRS8_BTL_API const Typinfo::TTypeInfo* GetPropType(System::TObject* object,
                                                                 const System::UnicodeString& name);
/// The kind of the property; `tkUnknown` if the object has none of that name.
[[nodiscard]] TRS8_BTL_API Typinfo::TTypeKind GetPropTypeKind(System::TObject* object,
                                                              const System::UnicodeString& name);

/// The object that the property holds; null if it holds none, isn't there or is of another kind.
[[nodiscard]] TRS8_BTL_API System::TObject* GetPropObject(System::TObject* object,
                                                          const System::UnicodeString& name);
/// The object at the end of a path of properties that hold objects; null from the first gap on.
[[nodiscard]] TRS8_BTL_API System::TObject* GetPropPathObject(System::TObject* object,
                                                              const System::UnicodeString& path);

/// The value as text:
/// - integers: the number; colours and mouse pointers the name, or nothing if the value has none
/// - an enumeration's name; a character of the code page
/// - floats: `Sysutils::FloatToStrF` in the general form, with 7 digits for a `float`, 15 for a `double` or a
///   date, 18 for what is wider, in the separators of `Sysutils::FormatSettings`
/// - texts as they are
/// - lists of lines, by the declared type `TStrings` or `TStringList`: `[` and `]` around the comma text
/// - with `showNames`: the type's name for other objects, the property's own name for events
/// - else nothing: other objects, events, sets, wide characters, variants, 64-bit integers.
///
/// So these don't come back from their text: what is nothing above, colours and mouse pointers without a
/// name, floats with more digits, those that are infinite or no number, the largest ones, whose text is
/// rounded to more than their type holds, and lines with a NUL.
[[nodiscard]] TRS8_BTL_API System::UnicodeString
GetPropValueAsString(System::TObject* object, const Typinfo::TPropInfo* info, bool showNames);
/// As with the record; empty if the object has no such property.
[[nodiscard]] TRS8_BTL_API System::UnicodeString
GetPropValueAsString(System::TObject* object, const System::UnicodeString& name, bool showNames);

/// Takes the value from the text that `GetPropValueAsString` gives:
/// - integers, and colours and mouse pointers without a name, also with `$` or `0x` in front of hexadecimal
///   digits. `Sysutils::EConvertError` for another text, an empty one among them;
///   `Typinfo::EPropertyConvertError` for a number beyond the type
/// - an enumeration's name in any case; any other text leaves the property as it is
/// - a character: the text's first one, code 0 for an empty text. One that neither has a code up to 255 nor
///   is in the code page raises `Typinfo::EPropertyConvertError`
/// - floats as `Sysutils::StrToFloat` reads them, which raises `Sysutils::EConvertError`;
///   `Typinfo::EPropertyConvertError` for one beyond a `float` or an amount of money
/// - lists of lines: an empty text clears; the brackets go if both are there; the rest is comma text
/// - what is nothing as a text isn't written.
TRS8_BTL_API void SetPropValueFromString(System::TObject* object, const Typinfo::TPropInfo* info,
                                         const System::UnicodeString& value);
/// As with the record; nothing happens if the object has no such property.
TRS8_BTL_API void SetPropValueFromString(System::TObject* object, const System::UnicodeString& name,
                                         const System::UnicodeString& value);

/// The value as a variant: integers and enumerations as 32-bit, a character as signed 8-bit, floats as
/// `double`, texts and variants as they are. Null for all other kinds.
[[nodiscard]] TRS8_BTL_API System::Variant GetPropValueAsVariant(System::TObject* object,
                                                                 const Typinfo::TPropInfo* info);
/// As with the record; Null if the object has no such property.
[[nodiscard]] TRS8_BTL_API System::Variant GetPropValueAsVariant(System::TObject* object,
                                                                 const System::UnicodeString& name);

/// The value of the last property of the path, as `GetPropValueAsString` gives it. Empty if the last object
/// isn't there; a gap before that one is an internal fault.
[[nodiscard]] TRS8_BTL_API System::UnicodeString
GetPropPathValueAsString(System::TObject* object, const System::UnicodeString& path, bool showNames);
/// Writes the last property of the path, as `SetPropValueFromString` does. Nothing happens if the last object
/// isn't there; a gap before that one is an internal fault.
TRS8_BTL_API void SetPropPathValueFromString(System::TObject* object, const System::UnicodeString& path,
                                             const System::UnicodeString& value);

/// Sets `out` to the values of the property of all items, as comma text in `[` and `]`. False, and `out` as
/// it was, if the items' class publishes no such property.
TRS8_BTL_API bool GetItemPropValuesAsString(Classes::TCollection* collection,
                                            const System::UnicodeString& name, System::UnicodeString& out);
/// Writes such a text to the items' property, one value after the other, until either the items or the values
/// end. False if the items' class publishes no such property.
TRS8_BTL_API bool SetItemPropValuesFromString(Classes::TCollection* collection,
                                              const System::UnicodeString& name,
                                              const System::UnicodeString& value);

} // namespace PROP
