// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/internal/UTL_CVariantForms.h"
#include "platform/base/dates/Sysutils_DateText.h"
#include "platform/base/numbers/Sysutils_Number.h"

#include <array>
#include <charconv>
#include <concepts>
#include <limits>
#include <type_traits>

namespace UTL::Detail
{

/// The whole part of `value`; the nearest limit for one beyond the range, 0 for NaN.
template <class Int>
Int CutToInteger(double value)
{
    // The highest limit itself may be no float, but the power of two behind it is.
    constexpr double end = -static_cast<double>(std::numeric_limits<Int>::min());
    if (value >= end) {
        return std::numeric_limits<Int>::max();
    }
    if (value <= -end) {
        return std::numeric_limits<Int>::min();
    }
    return value == value ? static_cast<Int>(value) : 0;
}

/// All that is a number in `Member` of the payload.
template <class Derived, auto Member>
class GNumberImp : public GTextForms<Derived>
{
public:
    using GTextForms<Derived>::GTextForms;

    bool ToBool(const UVariantData& data, bool& value) const override
    {
        value = data.*Member != 0;
        return true;
    }
    bool ToInt(const UVariantData& data, int& value) const override { return ToWhole(data, value); }
    bool ToInt64(const UVariantData& data, System::Int64& value) const override
    {
        return ToWhole(data, value);
    }
    bool ToDouble(const UVariantData& data, double& value) const override
    {
        value = static_cast<double>(data.*Member);
        return true;
    }
    bool ToDateTime(const UVariantData& data, System::TDateTime& value) const override
    {
        value = static_cast<double>(data.*Member);
        return true;
    }
    void WriteTo(const UVariantData& data, BTL::COutStream& stream) const override
    {
        WriteLinked(stream, Derived::template Text<System::AnsiString>(data).AsView());
    }

private:
    template <class Int>
    static bool ToWhole(const UVariantData& data, Int& value)
    {
        if constexpr (std::floating_point<std::remove_cvref_t<decltype(data.*Member)>>) {
            value = CutToInteger<Int>(data.*Member);
        } else {
            value = static_cast<Int>(data.*Member);
        }
        return true;
    }
};

/// An integer or a bool.
template <auto Member>
class GIntegerImp : public GNumberImp<GIntegerImp<Member>, Member>
{
public:
    using GNumberImp<GIntegerImp, Member>::GNumberImp;

    template <class S>
    static S Text(const UVariantData& data)
    {
        std::array<char, 24> text;
        const System::Int64 value = data.*Member;
        const char* const end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
        return S(text.data(), static_cast<int>(end - text.data()));
    }
};

class CBoolImp : public GIntegerImp<&UVariantData::Bool>
{
public:
    using GIntegerImp::GIntegerImp;

    bool ToDateTime(const UVariantData&, System::TDateTime&) const override { return false; }
};

class CDoubleImp : public GNumberImp<CDoubleImp, &UVariantData::Double>
{
public:
    using GNumberImp::GNumberImp;

    template <class S>
    static S Text(const UVariantData& data)
    {
        return Sysutils::FloatToStr(data.Double);
    }
    void WriteTo(const UVariantData& data, BTL::COutStream& stream) const override
    {
        std::array<char, Sysutils::FloatBufferSize> text;
        WriteLinked(stream, {text.data(), Sysutils::FloatToBuffer(data.Double, '.', text.data())});
    }
};

class CDateTimeImp : public GNumberImp<CDateTimeImp, &UVariantData::Days>
{
public:
    using GNumberImp::GNumberImp;

    template <class S>
    static S Text(const UVariantData& data)
    {
        return Sysutils::DateTimeToStr(data.Days);
    }
};

} // namespace UTL::Detail
