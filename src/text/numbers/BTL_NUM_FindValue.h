// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace BTL
{

// Values with units that `FindUnit` knows, within a text or as all of it. Where `ValueWithUnitToDouble` takes
// all behind the first number for its unit, these tell what is a unit from what is none.
//
//     BTL::TFoundValue found;
//     int start = 1;
//     while (BTL::FindValueWithUnit(u"12,5 kV and 30 mA.", found, start)) { ... }    // 12500 V, 0.03 A
//     double volts = 0;
//     UnicodeString unit;
//     if (BTL::ToValueWithUnit(edit, volts, unit) && unit == u"V") { ... }

/// A value with its unit within a text.
struct TFoundValue
{
    /// The 1-based place of the number, with its sign.
    int position = 0;
    /// From the number to the end of the unit.
    int length = 0;
    /// In `unit`, which has no prefix: 12500 for "12,5 kV".
    double value = 0;
    System::UnicodeString unit;
};

/// Finds the next number with a unit behind it, from the 1-based place `start` on, and moves `start` behind
/// it. The unit is one of `GetUnits`, with a prefix or without; blanks may stand in front of it, and behind
/// it anything but a letter, a digit or what makes another unit of it, as in "m/s" and "m^2". A number may
/// have `.` or `,` and an exponent. It isn't looked for within a word, nor in what has several separators, as
/// a time or "1.000,5". A minus sign behind a letter or digit is a dash. False if there is none; `found` and
/// `start` are then left alone.
TRS8_BTL_API bool FindValueWithUnit(std::u16string_view text, TFoundValue& found, int& start);

/// Reads a text that is nothing but a number and a unit of `GetUnits`, with blanks around them at most.
/// `value` is in `unit`, which has no prefix. False for any other text, also one without a unit; the targets
/// are then left alone.
TRS8_BTL_API bool ToValueWithUnit(std::u16string_view text, double& value, System::UnicodeString& unit);

} // namespace BTL
