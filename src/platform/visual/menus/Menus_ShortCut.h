// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "platform/runtime/typinfo/Typinfo.h"
#include "platform/toolkit/Input.h"

namespace Classes
{

/// A key with what is held: the key in the lower 8 bits, scShift, scCtrl and scAlt above; 0 for none.
enum TShortCut : System::Word
{
};

/// What is held, as bits of a shortcut.
inline constexpr System::Word scShift = 0x2000;
inline constexpr System::Word scCtrl = 0x4000;
inline constexpr System::Word scAlt = 0x8000;
/// No shortcut.
inline constexpr TShortCut scNone{};

} // namespace Classes

namespace Menus
{

/// The shortcut of a key with what is held of Shift, Ctrl and Alt; none for a key beyond 255.
TRS8_BTL_API Classes::TShortCut ShortCut(System::Word key, const Classes::TShiftState& shift);
/// The key and what is held.
TRS8_BTL_API void ShortCutToKey(Classes::TShortCut shortCut, System::Word& key, Classes::TShiftState& shift);

/// A shortcut as a menu shows it, "Shift+Ctrl+F2"; empty for none and for a key without a name.
///
///     ShortCutToText(ShortCut('S', {Classes::ssCtrl}));           // "Ctrl+S"
TRS8_BTL_API System::UnicodeString ShortCutToText(Classes::TShortCut shortCut);
/// The shortcut of such a text, case aside, the parts in any order; none for any other text.
TRS8_BTL_API Classes::TShortCut TextToShortCut(const System::UnicodeString& text);

} // namespace Menus

namespace Typinfo
{

/// An integer named "TShortCut".
template <>
struct TRS8_BTL_API GEnumType<Classes::TShortCut>
{
    static TTypeInfo Make();
};

} // namespace Typinfo
