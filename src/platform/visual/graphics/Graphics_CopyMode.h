// SPDX-License-Identifier: MIT
#pragma once

namespace Graphics
{

/// What a drawn picture makes of what is there. The third byte is its table: bit 4 * brush + 2 * picture +
/// there of the result, for each bit of the colours.
using TCopyMode = int;

// The modes with names: the picture itself, its union, meeting or difference with what is there, and so on.

inline constexpr TCopyMode cmBlackness = 0x00000042;
inline constexpr TCopyMode cmDstInvert = 0x00550009;
inline constexpr TCopyMode cmMergeCopy = 0x00C000CA;
inline constexpr TCopyMode cmMergePaint = 0x00BB0226;
inline constexpr TCopyMode cmNotSrcCopy = 0x00330008;
inline constexpr TCopyMode cmNotSrcErase = 0x001100A6;
inline constexpr TCopyMode cmPatCopy = 0x00F00021;
inline constexpr TCopyMode cmPatInvert = 0x005A0049;
inline constexpr TCopyMode cmPatPaint = 0x00FB0A09;
inline constexpr TCopyMode cmSrcAnd = 0x008800C6;
inline constexpr TCopyMode cmSrcCopy = 0x00CC0020;
inline constexpr TCopyMode cmSrcErase = 0x00440328;
inline constexpr TCopyMode cmSrcInvert = 0x00660046;
inline constexpr TCopyMode cmSrcPaint = 0x00EE0086;
inline constexpr TCopyMode cmWhiteness = 0x00FF0062;

} // namespace Graphics
