// SPDX-License-Identifier: MIT
#include "platform/runtime/filer/internal/Classes_FormFloat.h"

#include "platform/base/internal/System_Ascii.h"
#include "platform/base/numbers/System_Currency.h"
#include "platform/runtime/filer/internal/Classes_FormSink.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>

namespace Classes::Form
{

using System::Extended;
using System::Int64;
using System::UInt64;
using System::Detail::AsciiHexValue;
using System::Detail::IsAsciiDigit;

namespace
{

constexpr std::size_t ExtendedSize = FloatSize(vaExtended);

template <class T>
T FromBytes(std::string_view bytes)
{
    T value{};
    std::memcpy(&value, bytes.data(), std::min(bytes.size(), sizeof value));
    return value;
}

template <class T>
std::string BytesOf(T value, std::size_t size = sizeof(T))
{
    return {reinterpret_cast<const char*>(&value), size};
}

/// Whether the bytes are a number as a processor makes them: zero, or with its leading bit.
bool IsExtendedNumber(std::string_view bytes)
{
    const auto mantissa = FromBytes<UInt64>(bytes);
    const unsigned exponent = FromBytes<System::Word>(bytes.substr(8)) & 0x7FFF;
    const bool hasLeadingBit = mantissa >> 63 != 0;
    return exponent != 0x7FFF && hasLeadingBit == (exponent != 0);
}

char SuffixOf(TValueType type)
{
    switch (type) {
    case vaSingle:
        return 's';
    case vaCurrency:
        return 'c';
    case vaDate:
        return 'd';
    case vaExtended:
        return 'x';
    default:
        return '\0';
    }
}

TValueType TypeOfSuffix(char suffix)
{
    constexpr std::array types{vaSingle, vaCurrency, vaDate, vaExtended};
    const auto found = std::ranges::find(types, System::Detail::AsciiLower(suffix), SuffixOf);
    return found == types.end() ? vaDouble : *found;
}

void AppendBits(std::string& out, std::string_view bytes)
{
    constexpr std::string_view digits = "0123456789ABCDEF";
    out += '%';
    for (std::size_t i = bytes.size(); i-- > 0;) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        out += digits[byte >> 4];
        out += digits[byte & 15];
    }
}

void AppendCurrency(std::string& out, Int64 units)
{
    const bool isNegative = units < 0;
    const UInt64 size = isNegative ? UInt64{0} - static_cast<UInt64>(units) : static_cast<UInt64>(units);
    std::string decimals = std::to_string(size % System::Currency::Scale + System::Currency::Scale).substr(1);
    decimals.erase(decimals.find_last_not_of('0') + 1);
    out += (isNegative ? "-" : "") + std::to_string(size / System::Currency::Scale);
    out += (decimals.empty() ? "" : ".") + decimals;
}

template <class T>
void AppendNumber(std::string& out, T value)
{
    std::array<char, 64> buffer;
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr;
    out.append(buffer.data(), end);
}

/// Whether a float of a processor's own type is a number that a decimal text gives again.
bool HasDecimals(TValueType type, std::string_view bytes)
{
    switch (type) {
    case vaSingle:
        return std::isfinite(FromBytes<float>(bytes));
    case vaExtended:
        return IsExtendedNumber(bytes);
    default:
        return std::isfinite(FromBytes<double>(bytes));
    }
}

void AppendDecimals(std::string& out, TValueType type, std::string_view bytes)
{
    const std::size_t start = out.size();
    switch (type) {
    case vaSingle:
        return AppendNumber(out, FromBytes<float>(bytes));
    case vaExtended:
        return AppendNumber(out, FromBytes<Extended>(bytes));
    default:
        AppendNumber(out, FromBytes<double>(bytes));
    }
    // Without a suffix it would read as an integer.
    if (type == vaDouble && out.find_first_of(".e", start) == std::string::npos) {
        out += ".0";
    }
}

/// The bytes of the number that all of `text` is.
template <class T>
std::optional<std::string> NumberBytes(std::string_view text, std::size_t size = sizeof(T))
{
    T value = 0;
    const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (fault != std::errc() || end != text.data() + text.size()) {
        return {};
    }
    return BytesOf(value, size);
}

std::optional<std::string> CurrencyBytes(std::string_view text)
{
    const bool isNegative = text.starts_with('-');
    text.remove_prefix(isNegative ? 1 : 0);
    const std::string_view whole = text.substr(0, text.find('.'));
    std::string_view decimals = text.substr(std::min(whole.size() + 1, text.size()));
    constexpr std::size_t count = 4;
    if (whole.empty() || decimals.size() > count) {
        return {};
    }
    std::string digits = isNegative ? "-" : "";
    digits.append(whole).append(decimals).append(count - decimals.size(), '0');
    return NumberBytes<Int64>(digits);
}

std::optional<std::string> DecimalBytes(TValueType type, std::string_view text)
{
    switch (type) {
    case vaSingle:
        return NumberBytes<float>(text);
    case vaCurrency:
        return CurrencyBytes(text);
    case vaExtended:
        return NumberBytes<Extended>(text, ExtendedSize);
    default:
        return NumberBytes<double>(text);
    }
}

std::optional<TFloatValue> ParseBits(std::string_view text)
{
    for (const TValueType type : {vaDouble, vaSingle, vaDate, vaExtended}) {
        const std::size_t digits = 2 * FloatSize(type);
        const std::size_t suffix = SuffixOf(type) == '\0' ? 0 : 1;
        if (text.size() != digits + suffix || (suffix != 0 && TypeOfSuffix(text.back()) != type)) {
            continue;
        }
        if (!std::ranges::all_of(text.substr(0, digits), [](char c) { return AsciiHexValue(c) >= 0; })) {
            return {};
        }
        std::string bytes;
        for (std::size_t i = digits; i > 0; i -= 2) {
            bytes += static_cast<char>(AsciiHexValue(text[i - 2]) << 4 | AsciiHexValue(text[i - 1]));
        }
        return TFloatValue{type, std::move(bytes)};
    }
    return {};
}

} // namespace

void AppendFloat(std::string& out, TValueType type, std::string_view bytes)
{
    if (type == vaCurrency) {
        AppendCurrency(out, FromBytes<Int64>(bytes));
    } else if (HasDecimals(type, bytes)) {
        AppendDecimals(out, type, bytes);
    } else {
        AppendBits(out, bytes);
    }
    if (const char suffix = SuffixOf(type); suffix != '\0') {
        out += suffix;
    }
}

std::optional<TFloatValue> ParseFloat(std::string_view text)
{
    if (text.starts_with('%')) {
        return ParseBits(text.substr(1));
    }
    // Only what begins as a number is one: the standard library would take names too.
    const std::string_view digits = text.substr(text.starts_with('-') ? 1 : 0);
    if (digits.empty() || !IsAsciiDigit(digits.front())) {
        return {};
    }
    const TValueType type = TypeOfSuffix(text.back());
    text.remove_suffix(type == vaDouble ? 0 : 1);
    std::optional<std::string> bytes = DecimalBytes(type, text);
    if (!bytes) {
        return {};
    }
    return TFloatValue{type, std::move(*bytes)};
}

TFloatValue FloatValueOf(Extended value)
{
    const auto rounded = static_cast<double>(value);
    if (static_cast<Extended>(rounded) == value || std::isnan(value)) {
        return {vaDouble, BytesOf(rounded)};
    }
    return {vaExtended, BytesOf(value, ExtendedSize)};
}

std::optional<Extended> FloatOf(TValueType type, std::string_view bytes)
{
    switch (type) {
    case vaSingle:
        return FromBytes<float>(bytes);
    case vaCurrency:
        return System::Currency::OfUnits(FromBytes<Int64>(bytes)).AsExtended();
    case vaExtended: {
        const bool isInfinite = FromBytes<UInt64>(bytes) == UInt64{1} << 63;
        if (!IsExtendedNumber(bytes) && !isInfinite) {
            return {};
        }
        return FromBytes<Extended>(bytes);
    }
    default:
        return FromBytes<double>(bytes);
    }
}

} // namespace Classes::Form
