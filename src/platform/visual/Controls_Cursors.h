// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace Controls
{

/// The number of a mouse cursor; those above 0 are the program's own.
using TCursor = std::int16_t;

/// That of the control under the mouse, or the arrow.
inline constexpr TCursor crDefault = 0;
inline constexpr TCursor crNone = -1;
inline constexpr TCursor crArrow = -2;
inline constexpr TCursor crCross = -3;
inline constexpr TCursor crIBeam = -4;
inline constexpr TCursor crSizeNESW = -6;
inline constexpr TCursor crSizeNS = -7;
inline constexpr TCursor crSizeNWSE = -8;
inline constexpr TCursor crSizeWE = -9;
inline constexpr TCursor crUpArrow = -10;
/// The program is busy.
inline constexpr TCursor crHourGlass = -11;
inline constexpr TCursor crDrag = -12;
inline constexpr TCursor crNoDrop = -13;
inline constexpr TCursor crHSplit = -14;
inline constexpr TCursor crVSplit = -15;
inline constexpr TCursor crMultiDrag = -16;
/// A database is busy.
inline constexpr TCursor crSQLWait = -17;
inline constexpr TCursor crNo = -18;
/// The program is busy, and yet takes input.
inline constexpr TCursor crAppStart = -19;
inline constexpr TCursor crHelp = -20;
inline constexpr TCursor crHandPoint = -21;
inline constexpr TCursor crSizeAll = -22;

} // namespace Controls
