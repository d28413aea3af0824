// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Sysutils_Exception.h"
#include "platform/base/numbers/Sysutils_Number.h"
#include "platform/runtime/variants/System_Variant.h"

#include <array>
#include <cstddef>
#include <optional>

namespace BTL::Detail
{

/// The code of an array stays apart from that of its elements.
[[nodiscard]] inline System::Word CodeOf(const System::Variant& value)
{
    return value.IsArray() ? System::varArray : value.Type();
}

[[nodiscard]] inline bool HasNoValue(const System::Variant& value)
{
    return value.IsEmpty() || value.IsNull();
}

[[nodiscard]] inline bool IsFloatCode(System::Word code)
{
    return code == System::varSingle || code == System::varDouble || code == System::varCurrency;
}

[[nodiscard]] inline System::UnicodeString TextOf(const System::Variant& value)
{
    return value.As<System::UnicodeString>();
}

/// The platform's cast; nothing if it can't be done.
template <class T>
[[nodiscard]] std::optional<T> TryCast(const System::Variant& value)
{
    try {
        return value.As<T>();
    } catch (const Sysutils::EVariantError&) {
        return std::nullopt;
    }
}

/// The bits of a `varDecimal`.
[[nodiscard]] inline System::UInt64 PayloadOf(const System::Variant& decimal)
{
    return decimal.As<System::UInt64>();
}

/// The decimal text of a number that is an integer.
[[nodiscard]] inline std::optional<System::UnicodeString> IntegerText(const System::Variant& value)
{
    switch (CodeOf(value)) {
    case System::varInt64:
        return Sysutils::IntToStr(value.As<System::Int64>());
    case System::varUInt64:
        return Sysutils::UIntToStr(value.As<System::UInt64>());
    case System::varSmallint:
    case System::varInteger:
    case System::varDecimal:
        if (const auto whole = TryCast<int>(value)) {
            return Sysutils::IntToStr(*whole);
        }
        return std::nullopt;
    default:
        return std::nullopt;
    }
}

/// With a point, whatever the locale.
[[nodiscard]] inline System::UnicodeString PointFloatText(double value)
{
    std::array<System::WideChar, Sysutils::FloatBufferSize> buffer;
    const std::size_t length = Sysutils::FloatToBuffer(value, u'.', buffer.data());
    return {buffer.data(), static_cast<int>(length)};
}

} // namespace BTL::Detail
