// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/typinfo/Typinfo.h"

namespace Buttons
{

/// The side of a button's caption that its picture stands on.
enum TButtonLayout
{
    blGlyphLeft,
    blGlyphRight,
    blGlyphTop,
    blGlyphBottom
};

/// The part of a button's picture for what the button is doing.
enum TButtonState
{
    bsUp,
    bsDisabled,
    bsDown,
    bsExclusive
};

/// What a button is for: its caption, picture and modal result. `bkCustom` leaves them to the program.
enum TBitBtnKind
{
    bkCustom,
    bkOK,
    bkCancel,
    bkHelp,
    bkYes,
    bkNo,
    bkClose,
    bkAbort,
    bkRetry,
    bkIgnore,
    bkAll
};

/// How many parts a picture has, side by side: for `bsUp`, and for each of the other states as far as there
/// are parts.
using TNumGlyphs = int;

} // namespace Buttons

namespace Typinfo
{

// The enumerations of buttons with a picture, by the names of their values.

template <>
struct TRS8_BTL_API GEnumType<Buttons::TButtonLayout>
{
    static TTypeInfo Make();
};
template <>
struct TRS8_BTL_API GEnumType<Buttons::TBitBtnKind>
{
    static TTypeInfo Make();
};

} // namespace Typinfo
