// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Set.h"

// How `Graphics::DrawText` lays lines out.

inline constexpr unsigned DT_TOP = 0;
inline constexpr unsigned DT_LEFT = 0;
inline constexpr unsigned DT_CENTER = 1;
inline constexpr unsigned DT_RIGHT = 2;
/// In the middle and at the bottom; of a single line alone.
inline constexpr unsigned DT_VCENTER = 4;
inline constexpr unsigned DT_BOTTOM = 8;
/// Lines break between words where the rectangle ends.
inline constexpr unsigned DT_WORDBREAK = 0x10;
/// Ends of lines count as blanks.
inline constexpr unsigned DT_SINGLELINE = 0x20;
/// Tabulators lead to the next eighth place.
inline constexpr unsigned DT_EXPANDTABS = 0x40;
/// Bits 8 to 15 of the flags are the places of a tabulator; the flags that they are do not count then.
inline constexpr unsigned DT_TABSTOP = 0x80;
/// The text may leave the rectangle.
inline constexpr unsigned DT_NOCLIP = 0x100;
/// A line has the leading between two lines as well.
inline constexpr unsigned DT_EXTERNALLEADING = 0x200;
/// Nothing is drawn; the rectangle becomes what the text takes.
inline constexpr unsigned DT_CALCRECT = 0x400;
/// An ampersand is one, and doesn't underline what follows.
inline constexpr unsigned DT_NOPREFIX = 0x800;
/// A last line that doesn't fit as a whole isn't drawn.
inline constexpr unsigned DT_EDITCONTROL = 0x2000;
/// What doesn't fit gives way to "...": in the middle of a path, at the end of a text, of each line.
inline constexpr unsigned DT_PATH_ELLIPSIS = 0x4000;
inline constexpr unsigned DT_END_ELLIPSIS = 0x8000;
inline constexpr unsigned DT_WORD_ELLIPSIS = 0x40000;
/// The text becomes what was drawn in its place.
inline constexpr unsigned DT_MODIFYSTRING = 0x10000;
/// Right to left.
inline constexpr unsigned DT_RTLREADING = 0x20000;
/// An ampersand is taken out, but underlines nothing.
inline constexpr unsigned DT_HIDEPREFIX = 0x100000;
/// The line below a character that an ampersand stands before is all that is drawn.
inline constexpr unsigned DT_PREFIXONLY = 0x200000;

namespace Graphics
{

/// The flags of `DrawText` as the elements of a set.
enum TTextFormats
{
    tfBottom,
    tfCalcRect,
    tfCenter,
    tfEditControl,
    tfEndEllipsis,
    tfPathEllipsis,
    tfExpandTabs,
    tfExternalLeading,
    tfLeft,
    tfModifyString,
    tfNoClip,
    tfNoPrefix,
    tfRight,
    tfRtlReading,
    tfSingleLine,
    tfTop,
    tfVerticalCenter,
    tfWordBreak,
    tfHidePrefix,
    tfNoFullWidthCharBreak,
    tfPrefixOnly,
    tfTabStop,
    tfWordEllipsis,
    tfComposited
};

/// `TTextFormat() << tfSingleLine << tfVerticalCenter`.
using TTextFormat = System::Set<TTextFormats, tfBottom, tfComposited>;

} // namespace Graphics
