// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/typinfo/Typinfo.h"

namespace Controls
{

/// The shape of the mouse pointer by its number. The names of the shapes are in `CursorToIdent`; a positive
/// number is a shape of the program's own.
///
///     screen->setCursor(crHourGlass);
///     control->setCursor(TCursor(5));
enum TCursor : short
{
    crDefault = 0,
    crNone = -1,
    crArrow = -2,
    crCross = -3,
    crIBeam = -4,
    crSizeNESW = -6,
    crSizeNS = -7,
    crSizeNWSE = -8,
    crSizeWE = -9,
    crUpArrow = -10,
    crHourGlass = -11,
    crDrag = -12,
    crNoDrop = -13,
    crHSplit = -14,
    crVSplit = -15,
    crMultiDrag = -16,
    crSQLWait = -17,
    crNo = -18,
    crAppStart = -19,
    crHelp = -20,
    crHandPoint = -21,
    crSizeAll = -22,
    crSize = -22
};

/// The name of a shape, such as "crHourGlass"; false, and `ident` stays, for one without a name.
TRS8_BTL_API bool CursorToIdent(int cursor, System::UnicodeString& ident);
/// The shape of a name, case aside; false, and `cursor` stays, for an unknown name.
TRS8_BTL_API bool IdentToCursor(const System::UnicodeString& ident, int& cursor);
/// The name of the shape, or its number where it has none.
TRS8_BTL_API System::UnicodeString CursorToString(TCursor cursor);
/// The shape of a name or of an integer's text. `Sysutils::EConvertError` for any other, and for a number
/// beyond 16 bits.
TRS8_BTL_API TCursor StringToCursor(const System::UnicodeString& text);
/// Calls `call` with each name.
TRS8_BTL_API void GetCursorValues(const System::TClosure<void(const System::UnicodeString&)>& call);

} // namespace Controls

namespace Typinfo
{

/// An integer named "TCursor", with names in form resources. All modules have one record of it, by which
/// these are found.
template <>
struct TRS8_BTL_API GEnumType<Controls::TCursor>
{
    static TTypeInfo Make();
};

template <>
struct TRS8_BTL_API GPropTraits<Controls::TCursor>
{
    static const TTypeInfo* TypeInfo();
    static TPropValue ToValue(Controls::TCursor value) { return System::Int64{value}; }
    static Controls::TCursor FromValue(const TPropValue& value)
    {
        return Controls::TCursor(std::get<System::Int64>(value));
    }
};

} // namespace Typinfo
