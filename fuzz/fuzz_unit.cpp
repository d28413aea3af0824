// SPDX-License-Identifier: MIT
#include "foundation/UTL_STR_Utilities.h"
#include "platform/base/Sysutils_Exception.h"
#include "support/Fuzz.h"
#include "text/numbers/BTL_NUM_Limits.h"
#include "text/numbers/BTL_NUM_Numbers.h"
#include "text/numbers/BTL_NUM_Units.h"
#include "text/numbers/BTL_NUM_Version.h"

#include <climits>
#include <cstdint>

namespace
{

using Fuzz::Require;
using System::AnsiString;
using System::Int64;
using System::UnicodeString;

/// A piece that is found lies in its text.
void RequireInside(Int64 start, Int64 length, Int64 textLength)
{
    Require(start >= 0 && length > 0 && start + length <= textLength);
}

template <class S>
void ReadText(const S& text)
{
    const auto* const plain = text.c_str();
    const auto plainLength = static_cast<Int64>(typename S::View(plain).size());

    unsigned offset = 0;
    unsigned wordLength = 0;
    if (UTL::GetWord(plain, offset, wordLength)) {
        RequireInside(offset, wordLength, plainLength);
    }
    if (UTL::GetWords(plain, INT_MAX, offset, wordLength) > 0) {
        RequireInside(offset, wordLength, plainLength);
    }
    int position = 0;
    int length = 0;
    if (UTL::FindSQLParam(plain, position, length)) {
        RequireInside(position, length, plainLength);
    }
    long number = 0;
    double value = 0;
    if (UTL::GetLong(plain, number)) {
        Require(UTL::GetDouble(plain, value));
    }
    UTL::ToInt(plain);
    UTL::ToFloat(plain);

    const S trimmed = BTL::TrimFloat(text);
    Require(trimmed.Length() <= text.Length() + 2);
    Require(BTL::GetDigits(text) <= BTL::GetPrecision(text) + 1);
    int integer = 0;
    Int64 wideInteger = 0;
    Require(BTL::ToInt(text, integer) == BTL::ToInt(text, wideInteger));
    BTL::HexToInt(text, integer);
    static_cast<void>(BTL::IsInt(text));
    if (BTL::IsDouble(text)) {
        Require(BTL::ToDouble(text, value) && BTL::ToDouble(text) == value);
    }
    BTL::ValueWithUnitToDouble(text, value);
    static_cast<void>(BTL::ClearPrefix(text));
}

/// Limits that are read have their order; both forms refuse the same texts.
void ReadLimits(const UnicodeString& text)
{
    BTL::TLimits limits;
    UnicodeString unit;
    if (!BTL::ParseLimits(text, limits, unit)) {
        try {
            BTL::ParseLimits(text);
            Require(false);
        } catch (const Sysutils::EConvertError&) {
        }
        return;
    }
    Require(BTL::ParseLimits(text) == limits);
    Require(!limits.lower || !limits.upper || *limits.lower <= *limits.upper);
    for (const auto& limit : {limits.lower, limits.upper}) {
        Require(!limit || !BTL::ValueWithUnitToStr(*limit, unit).IsEmpty());
    }
}

} // namespace

/// Reads any text, in both widths, as words, numbers, values with units, limits and versions.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const AnsiString narrow(Fuzz::Bytes(data, size));
    const UnicodeString wide(narrow);
    ReadText(narrow);
    ReadText(wide);

    int position = 0;
    int length = 0;
    if (BTL::Find1stFloat(wide, position, length)) {
        RequireInside(position - 1, length, wide.Length());
        Require(BTL::Cut1stFloat(wide).Length() == length);
    }
    BTL::TFoundValue found;
    for (int start = 1, former = 1; BTL::FindValueWithUnit(wide, found, start); former = start) {
        RequireInside(found.position - 1, found.length, wide.Length());
        Require(found.position >= former && start == found.position + found.length);
        double value = 0;
        UnicodeString unit;
        Require(BTL::ToValueWithUnit(wide.SubString(found.position, found.length), value, unit));
        Require(value == found.value && unit == found.unit);
    }
    ReadLimits(wide);
    double narrowValue = 0;
    double wideValue = 0;
    Require(BTL::ValueWithUnitToDouble(narrow, narrowValue) == BTL::ValueWithUnitToDouble(wide, wideValue));
    unsigned a = 0;
    unsigned b = 0;
    unsigned c = 0;
    unsigned d = 0;
    BTL::VersionStrToVersionNos(wide, a, b, c, d);
    return 0;
}
