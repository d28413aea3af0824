// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace BTL
{

// Numbers of versions.
//
//     unsigned major = 0, minor = 0, release = 0;
//     BTL::VersionStrToVersionNos(u"2.10", major, minor, release);      // 2, 10 and 0

/// Reads up to four version numbers, parted by `.`; the ones that are missing are 0. An empty piece ends the
/// reading, and text behind the digits of a piece is ignored. False if a piece doesn't begin with a digit or
/// a fifth one follows; the numbers in front keep what was read.
TRS8_BTL_API bool VersionStrToVersionNos(const System::UnicodeString& text, unsigned& a, unsigned& b,
                                         unsigned& c, unsigned& d);
/// As the form with four numbers, but the fourth one is dropped.
TRS8_BTL_API bool VersionStrToVersionNos(const System::UnicodeString& text, unsigned& a, unsigned& b,
                                         unsigned& c);

} // namespace BTL
