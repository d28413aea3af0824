// SPDX-License-Identifier: MIT
#include "text/numbers/BTL_NUM_Units.h"

#include "text/numbers/BTL_NUM_FindNumber.h"
#include "text/numbers/BTL_NUM_Floats.h"

#include <algorithm>
#include <array>

namespace BTL
{

using System::AnsiString;
using System::UnicodeString;
using System::WideChar;

namespace
{

struct TPrefix
{
    WideChar letter;
    double factor;
};

constexpr std::array<TPrefix, 16> Prefixes = {{
    {u'a', 1e-18},
    {u'f', 1e-15},
    {u'p', 1e-12},
    {u'n', 1e-9},
    {u'\u00B5', 1e-6},
    {u'm', 1e-3},
    {u'c', 1e-2},
    {u'd', 1e-1},
    {u'h', 100},
    {u'k', 1000},
    {u'K', 1000},
    {u'M', 1e6},
    {u'G', 1e9},
    {u'T', 1e12},
    {u'P', 1e15},
    {u'E', 1e18},
}};

} // namespace

double GetUnitPrefixFactor(const UnicodeString& unit)
{
    const UnicodeString trimmed = unit.TrimLeft();
    const WideChar* const text = trimmed.c_str();
    if (text[0] == 'd' && text[1] == 'a') {
        return 10;
    }
    const auto* const found = std::find_if(
        Prefixes.begin(), Prefixes.end(), [text](const TPrefix& prefix) { return prefix.letter == text[0]; });
    return found == Prefixes.end() ? 1.0 : found->factor;
}

double GetUnitPrefixFactor(const AnsiString& unit)
{
    return GetUnitPrefixFactor(UnicodeString(unit));
}

double GetUnitFactor(const UnicodeString& from, const UnicodeString& to)
{
    return GetUnitPrefixFactor(from) / GetUnitPrefixFactor(to);
}

bool ValueWithUnitToDouble(const UnicodeString& text, double& value)
{
    const UnicodeString trimmed = text.TrimLeft();
    int position = 0;
    const UnicodeString number = Cut1stFloat(trimmed, position);
    double read = 0;
    if (!ToDouble(number, read)) {
        return false;
    }
    value = read * GetUnitPrefixFactor(trimmed.SubString(position + number.Length()));
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
