// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/sysutils/System_VarArgs.h"

namespace System
{

// Formats of the C library's printf family over arguments that know their type. Flags `-+ #0`, width and
// precision, also as `*`; the size modifiers `hh h l ll L I64 q j z t w` change nothing, since an argument
// knows its size. `%s`, `%S` and their modified forms take any text of either width; `%c` takes a character
// or its code. The decimal point is `.` in every locale. Width and precision end at 65535, and what they
// make in all at 16 million characters. A conversion that doesn't fit its argument, a missing argument, `%n`
// and an unknown conversion raise `Sysutils::EConvertError`; surplus arguments don't matter.
//
//     Printf(u"%-5s|%04d|%.2f", "ab", 42, 1.5);                   // "ab   |0042|1.50"
//     PrintfA("%x", 255);                                         // "ff"

TRS8_BTL_API UnicodeString Printf(const UnicodeString& format, TVarArgs arguments);
TRS8_BTL_API AnsiString PrintfA(const AnsiString& format, TVarArgs arguments);

/// As `Printf` of a `TVarArgs`, with the arguments one by one.
template <class... Arguments>
requires(sizeof...(Arguments) > 0 &&
         (std::constructible_from<TVarRec, const Arguments&> && ...)) UnicodeString
    Printf(const UnicodeString& format, const Arguments&... arguments)
{
    return Printf(format, TVarArgs{TVarRec(arguments)...});
}

/// As `PrintfA` of a `TVarArgs`, with the arguments one by one.
template <class... Arguments>
requires(sizeof...(Arguments) > 0 && (std::constructible_from<TVarRec, const Arguments&> && ...)) AnsiString
    PrintfA(const AnsiString& format, const Arguments&... arguments)
{
    return PrintfA(format, TVarArgs{TVarRec(arguments)...});
}

} // namespace System
