// SPDX-License-Identifier: MIT
#include "text/numbers/BTL_NUM_Units.h"

#include "text/numbers/BTL_NUM_FindNumber.h"
#include "text/numbers/BTL_NUM_Floats.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace BTL
{

using System::AnsiString;
using System::UnicodeString;
using System::WideChar;

namespace
{

struct TPrefix
{
    std::u16string_view name;
    double factor;
};

// `da` stands in front of `d`, which it begins with.
constexpr std::array Prefixes = {
    TPrefix{u"a", 1e-18},     TPrefix{u"f", 1e-15}, TPrefix{u"p", 1e-12}, TPrefix{u"n", 1e-9},
    TPrefix{u"\u00B5", 1e-6}, TPrefix{u"m", 1e-3},  TPrefix{u"c", 1e-2},  TPrefix{u"da", 10},
    TPrefix{u"d", 1e-1},      TPrefix{u"h", 100},   TPrefix{u"k", 1000},  TPrefix{u"K", 1000},
    TPrefix{u"M", 1e6},       TPrefix{u"G", 1e9},   TPrefix{u"T", 1e12},  TPrefix{u"P", 1e15},
    TPrefix{u"E", 1e18},
};

/// The prefix that `unit`, which has no blanks in front, begins with; one without a name if it has none.
TPrefix PrefixOf(const UnicodeString& unit)
{
    const auto* const found = std::ranges::find_if(
        Prefixes, [&](const TPrefix& prefix) { return unit.AsView().starts_with(prefix.name); });
    return found == Prefixes.end() ? TPrefix{u"", 1.0} : *found;
}

} // namespace

double GetUnitPrefixFactor(const UnicodeString& unit)
{
    return PrefixOf(unit.TrimLeft()).factor;
}

double GetUnitPrefixFactor(const AnsiString& unit)
{
    return GetUnitPrefixFactor(UnicodeString(unit));
}

double GetUnitFactor(const UnicodeString& from, const UnicodeString& to)
{
    return GetUnitPrefixFactor(from) / GetUnitPrefixFactor(to);
}

UnicodeString CutUnitPrefix(const UnicodeString& unit)
{
    const UnicodeString trimmed = unit.Trim();
    const auto length = static_cast<int>(PrefixOf(trimmed).name.size());
    return length < trimmed.Length() ? trimmed.SubString(length + 1) : trimmed;
}

bool ValueWithUnitToDouble(const UnicodeString& text, double& value)
{
    UnicodeString unit;
    return ValueWithUnitToDouble(text, value, unit);
}

bool ValueWithUnitToDouble(const UnicodeString& text, double& value, UnicodeString& unit)
{
    const UnicodeString trimmed = text.TrimLeft();
    int position = 0;
    const UnicodeString number = Cut1stFloat(trimmed, position);
    double read = 0;
    if (!ToDouble(number, read)) {
        return false;
    }
    unit = trimmed.SubString(position + number.Length()).Trim();
    value = read * GetUnitPrefixFactor(unit);
    return true;
}

bool ValueWithUnitToDouble(const AnsiString& text, double& value)
{
    return ValueWithUnitToDouble(UnicodeString(text), value);
}

bool ValueWithUnitToDoble(const UnicodeString& text, double& value)
{
    return ValueWithUnitToDouble(text, value);
}

bool ValueWithUnitToDoble(const AnsiString& text, double& value)
{
    return ValueWithUnitToDouble(text, value);
}

double ValueWithUnitToDoubleDef(const UnicodeString& text, double defaultValue)
{
    double value = defaultValue;
    ValueWithUnitToDouble(text, value);
    return value;
}

} // namespace BTL
