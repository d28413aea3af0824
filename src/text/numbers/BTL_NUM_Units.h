// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace BTL
{

/// The factor of the unit prefix that `unit` begins with, behind blanks: from `a` (1e-18) to `E` (1e18), with
/// `da` (10) and both `k` and `K` (1000); case matters. There is no table of units: the first letter alone
/// counts, so `mol` gives 1e-3 and `h` 100. Any other text gives 1.
[[nodiscard]] TRS8_BTL_API double GetUnitPrefixFactor(const System::UnicodeString& unit);
[[nodiscard]] TRS8_BTL_API double GetUnitPrefixFactor(const System::AnsiString& unit);

/// The unit without the prefix that `GetUnitPrefixFactor` sees, and without blanks around: `V` for `kV`. A
/// unit that is nothing but such a letter, as `m`, stays.
[[nodiscard]] TRS8_BTL_API System::UnicodeString CutUnitPrefix(const System::UnicodeString& unit);

/// The factor that turns a value in `from` into one in `to`.
[[nodiscard]] TRS8_BTL_API double GetUnitFactor(const System::UnicodeString& from,
                                                const System::UnicodeString& to);

/// Reads the first float of `text`, times the factor of the unit prefix behind it; what stands in front of
/// the number is ignored. False if there is no number, and `value` is then left alone. A product beyond the
/// range of a `double` is infinite.
TRS8_BTL_API bool ValueWithUnitToDouble(const System::UnicodeString& text, double& value);
TRS8_BTL_API bool ValueWithUnitToDouble(const System::AnsiString& text, double& value);
/// As `ValueWithUnitToDouble` of two arguments, but tells the unit with its prefix too: all behind the
/// number, without blanks around.
TRS8_BTL_API bool ValueWithUnitToDouble(const System::UnicodeString& text, double& value,
                                        System::UnicodeString& unit);
/// As `ValueWithUnitToDouble`, its old name.
TRS8_BTL_API bool ValueWithUnitToDoble(const System::UnicodeString& text, double& value);
TRS8_BTL_API bool ValueWithUnitToDoble(const System::AnsiString& text, double& value);
[[nodiscard]] TRS8_BTL_API double ValueWithUnitToDoubleDef(const System::UnicodeString& text,
                                                           double defaultValue);

} // namespace BTL
