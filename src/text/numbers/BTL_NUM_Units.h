// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <span>
#include <string_view>

namespace BTL
{

// Values with units.
//
//     double volts = 0;
//     BTL::ValueWithUnitToDouble(u"1,5 kV", volts);            // 1500
//     UnicodeString unit;
//     double factor = 0;
//     BTL::FindUnit(u"mmol", factor, unit);                    // 1e-3 and "mol"
//     BTL::ValueWithUnitToStr(5e-6, u"V");                     // "5 µV"

struct TUnitPrefix
{
    std::u16string_view symbol;
    double factor;
};

/// A unit by its symbol, such as `V`, and its name.
struct TUnit
{
    std::u16string_view symbol;
    std::u16string_view name;
    /// Whether prefixes stand in front of it: `kV`, but no `kmin`.
    bool takesPrefix;
};

/// The prefixes that are read, one that begins like a shorter one in front of it.
[[nodiscard]] TRS8_BTL_API std::span<const TUnitPrefix> GetUnitPrefixes() noexcept;
/// The units that `FindUnit` knows: those of the SI, and those of time, volume, pressure, data and ratios
/// that are used beside them. A unit with several symbols stands there with each.
[[nodiscard]] TRS8_BTL_API std::span<const TUnit> GetUnits() noexcept;

/// Reads `text`, without blanks around, as a unit of `GetUnits`, alone or behind a prefix, and tells the
/// prefix's factor and the symbol without it: `mol` is 1 and `mol`, `mmol` 1e-3 and `mol`. False if there is
/// no such unit, which leaves the targets alone. Case matters.
TRS8_BTL_API bool FindUnit(std::u16string_view text, double& factor, System::UnicodeString& unit);

/// The factor of the unit prefix that `unit` begins with, behind blanks: from `a` (1e-18) to `E` (1e18), with
/// `da` (10), both `k` and `K` (1000) and both signs of micro (U+00B5 and the Greek letter U+03BC); case
/// matters. The first letter alone counts, so `mol` gives 1e-3 and `h` 100; `FindUnit` knows better. Any
/// other text gives 1.
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
/// number, without blanks around. `ToValueWithUnit` refuses what is no unit, and `FindValueWithUnit` finds
/// values within a text.
TRS8_BTL_API bool ValueWithUnitToDouble(const System::UnicodeString& text, double& value,
                                        System::UnicodeString& unit);
/// As `ValueWithUnitToDouble`, its old name.
TRS8_BTL_API bool ValueWithUnitToDoble(const System::UnicodeString& text, double& value);
TRS8_BTL_API bool ValueWithUnitToDoble(const System::AnsiString& text, double& value);
[[nodiscard]] TRS8_BTL_API double ValueWithUnitToDoubleDef(const System::UnicodeString& text,
                                                           double defaultValue);

/// The text of a value in `unit` with the prefix that suits it: 5E-6 in `V` is "5 µV", 1500 is "1.5 kV",
/// and so is 1.5 in `kV`. The prefixes are those in steps of 1000, from `a` to `E`; there are one to three
/// digits in front of the separator, which is the active one. `precision` is the count of significant digits
/// (1 to 15); zeros at the end are left out. 0, a value beyond the prefixes and one that is no number have
/// none. A unit that takes no prefix or that `FindUnit` doesn't know stays as it is, and its number is that
/// of `Sysutils::FloatToStrF` in the general form. `ToValueWithUnit` reads the text if `FindUnit` knows the
/// unit.
[[nodiscard]] TRS8_BTL_API System::UnicodeString
ValueWithUnitToStr(double value, const System::UnicodeString& unit, int precision = 6);

// A literal of 8-bit text; null counts as the empty text.

[[nodiscard]] inline double GetUnitPrefixFactor(const char* unit)
{
    return GetUnitPrefixFactor(System::AnsiString(unit));
}
inline bool ValueWithUnitToDouble(const char* text, double& value)
{
    return ValueWithUnitToDouble(System::AnsiString(text), value);
}
inline bool ValueWithUnitToDoble(const char* text, double& value)
{
    return ValueWithUnitToDouble(System::AnsiString(text), value);
}

} // namespace BTL
