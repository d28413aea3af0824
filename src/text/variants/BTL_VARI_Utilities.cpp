// SPDX-License-Identifier: MIT
#include "text/variants/BTL_VARI_Utilities.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "platform/base/Sysutils_Exception.h"
#include "platform/base/numbers/Sysutils_Currency.h"
#include "platform/runtime/variants/Variants.h"
#include "platform/runtime/variants/internal/System_VariantValue.h"
#include "text/bytes/BTL_BIN_BinaryData.h"
#include "text/dates/BTL_DT_Texts.h"
#include "text/grammar/BTL_SQL_Text.h"
#include "text/numbers/BTL_NUM_Floats.h"
#include "text/numbers/BTL_NUM_Integers.h"
#include "text/numbers/BTL_NUM_SetDecimalSeparator.h"
#include "text/numbers/BTL_NUM_Units.h"

#include <algorithm>
#include <array>
#include <limits>
#include <optional>

namespace BTL
{

using System::AnsiString;
using System::Currency;
using System::Int64;
using System::TDateTime;
using System::UInt64;
using System::UnicodeString;
using System::Variant;
using System::Word;
using Sysutils::EConvertError;

namespace
{

constexpr UTL::CFaultPlace NoSqlForm{"BTL_VARI_Utilities", 558};

/// The code of an array stays apart from that of its elements.
Word CodeOf(const Variant& value)
{
    return value.IsArray() ? System::varArray : value.Type();
}

bool HasNoValue(const Variant& value)
{
    return value.IsEmpty() || value.IsNull();
}

bool IsFloatCode(Word code)
{
    return code == System::varSingle || code == System::varDouble || code == System::varCurrency;
}

bool IsIntCode(Word code)
{
    return code == System::varSmallint || code == System::varInteger || code == System::varDecimal ||
           code == System::varInt64;
}

UnicodeString TextOf(const Variant& value)
{
    return value.As<UnicodeString>();
}

/// The platform's cast; nothing if it can't be done.
template <class T>
std::optional<T> TryCast(const Variant& value)
{
    try {
        return value.As<T>();
    } catch (const Sysutils::EVariantError&) {
        return std::nullopt;
    }
}

/// The bits of a `varDecimal`.
UInt64 PayloadOf(const Variant& decimal)
{
    return decimal.As<UInt64>();
}

template <class T>
std::optional<T> ReadInteger(const Variant& value)
{
    if (HasNoValue(value)) {
        return T{0};
    }
    if (value.IsText()) {
        T result = 0;
        return ToInt(TextOf(value), result) ? std::optional(result) : std::nullopt;
    }
    switch (CodeOf(value)) {
    case System::varSmallint:
    case System::varInteger:
    case System::varSingle:
    case System::varDouble:
    case System::varCurrency:
    case System::varBoolean:
    case System::varByte:
    case System::varLongWord:
        return TryCast<int>(value);
    case System::varInt64:
    case System::varUInt64:
        if (const auto whole = TryCast<Int64>(value)) {
            return static_cast<T>(*whole);
        }
        return std::nullopt;
    case System::varDecimal:
        return static_cast<T>(PayloadOf(value));
    default:
        return std::nullopt;
    }
}

template <class T>
bool Take(const std::optional<T>& source, T& target)
{
    if (source) {
        target = *source;
    }
    return source.has_value();
}

/// The decimal text of a number that is an integer.
std::optional<UnicodeString> IntegerText(const Variant& value)
{
    switch (CodeOf(value)) {
    case System::varInt64:
        return Sysutils::IntToStr(value.As<Int64>());
    case System::varUInt64:
        return Sysutils::UIntToStr(value.As<UInt64>());
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
UnicodeString PointFloatText(double value)
{
    std::array<System::WideChar, Sysutils::FloatBufferSize> buffer;
    const std::size_t length = Sysutils::FloatToBuffer(value, u'.', buffer.data());
    return {buffer.data(), static_cast<int>(length)};
}

std::optional<UnicodeString> SqlText(const Variant& value)
{
    if (HasNoValue(value)) {
        return u"NULL";
    }
    if (value.IsText()) {
        return u"'" + SQLValueDelim(TextOf(value)) + u"'";
    }
    const Word code = CodeOf(value);
    if (IsFloatCode(code)) {
        return PointFloatText(value.As<double>());
    }
    return code == System::varDate ? GetSQLDateString(value.As<TDateTime>(), true) : IntegerText(value);
}

std::optional<Variant> ReadNumber(const UnicodeString& text)
{
    if (IsInt(text)) {
        Int64 whole = 0;
        int code = 0;
        // It skips blanks only, where `IsInt` skips tabs and line ends too.
        System::Val(text.TrimLeft(), whole, code);
        using Limits = std::numeric_limits<int>;
        const bool isShort = whole >= Limits::min() && whole <= Limits::max();
        if (code == 0) {
            return isShort ? Variant(static_cast<int>(whole)) : Variant(whole);
        }
    }
    double real = 0;
    if (ToDouble(text, real)) {
        return real;
    }
    return std::nullopt;
}

UnicodeString StoredValue(const Variant& value)
{
    switch (CodeOf(value)) {
    case System::varEmpty:
    case System::varNull:
        return {};
    case System::varSmallint:
    case System::varInteger:
    case System::varBoolean:
    case System::varByte:
        return Sysutils::IntToStr(value.As<int>());
    case System::varSingle:
    case System::varDouble:
        return Sysutils::FloatToStr(value.As<double>());
    case System::varCurrency: {
        const CSetDecimalSeparator guard('.');
        return Sysutils::CurrToStr(value.As<Currency>());
    }
    case System::varDate:
        return PointFloatText(value.As<TDateTime>().Val);
    case System::varDecimal:
        return Sysutils::IntToStr(static_cast<Int64>(PayloadOf(value)));
    case System::varInt64:
    case System::varUInt64:
        return Sysutils::IntToStr(value.As<Int64>());
    default:
        return BinaryDataToStringW(value.As<AnsiString>());
    }
}

Variant ReadStored(int code, const UnicodeString& text)
{
    switch (code) {
    case System::varEmpty:
        return {};
    case System::varNull:
        return Variant::Null();
    case System::varSmallint:
    case System::varInteger:
    case System::varBoolean:
    case System::varByte:
        return Sysutils::StrToInt(text);
    case System::varSingle:
    case System::varDouble:
        return Sysutils::StrToFloat(text);
    case System::varCurrency: {
        const CSetDecimalSeparator guard('.');
        return Sysutils::StrToCurr(text);
    }
    case System::varDate: {
        const CSetDecimalSeparator guard('.');
        return TDateTime(Sysutils::StrToFloat(text));
    }
    case System::varDecimal:
    case System::varInt64:
    case System::varUInt64:
        return Sysutils::StrToInt64(text);
    default:
        return StringToBinaryData(text);
    }
}

} // namespace

bool Detail::IsIntVariant(const Variant& value)
{
    return value.IsText() ? IsIntType(TextOf(value)) : IsIntCode(CodeOf(value));
}

bool Detail::VariantToInt(const Variant& value, int& result)
{
    return Take(ReadInteger<int>(value), result);
}

bool IsFloatType(const Variant& value)
{
    const Word code = CodeOf(value);
    return value.IsText() ? IsDouble(TextOf(value)) : IsIntCode(code) || IsFloatCode(code);
}

bool IsStringType(const Variant& value)
{
    return value.IsText();
}

int Compare(const Variant& a, const Variant& b)
{
    if (a.IsNull() || b.IsNull()) {
        return static_cast<int>(b.IsNull()) - static_cast<int>(a.IsNull());
    }
    if (Variants::VarSameValue(a, b)) {
        return 0;
    }
    return a > b ? 1 : -1;
}

bool AreEqual(const Variant& a, const Variant& b)
{
    if (&a == &b) {
        return true;
    }
    return a.IsArray() && b.IsArray() ? System::Detail::AreArraysEqual(a, b, AreEqual)
                                      : Variants::VarSameValue(a, b);
}

bool ToBool(const Variant& value, bool& result)
{
    const auto whole = ReadInteger<int>(value);
    if (whole) {
        result = *whole != 0;
    }
    return whole.has_value();
}

bool ToBoolDef(const Variant& value, bool defaultValue)
{
    ToBool(value, defaultValue);
    return defaultValue;
}

int ToInt(const Variant& value)
{
    const auto result = ReadInteger<int>(value);
    if (!result) {
        throw EConvertError(UnicodeString(u"Variant-To-Int-Convert-Error, invalid type."));
    }
    return *result;
}

int ToIntDef(const Variant& value, int defaultValue)
{
    return ReadInteger<int>(value).value_or(defaultValue);
}

bool ToInt64(const Variant& value, Int64& result)
{
    return Take(ReadInteger<Int64>(value), result);
}

Int64 ToInt64(const Variant& value)
{
    const auto result = ReadInteger<Int64>(value);
    if (!result) {
        throw EConvertError(UnicodeString(u"Variant-To-Int64-Convert-Error, invalid type."));
    }
    return *result;
}

Int64 ToInt64Def(const Variant& value, Int64 defaultValue)
{
    return ReadInteger<Int64>(value).value_or(defaultValue);
}

int ToPropertyIntDef(const Variant& value, int defaultValue)
{
    return ToIntDef(value.IsText() ? StringToBestPropertyValue(TextOf(value)) : value, defaultValue);
}

bool VarToDouble(const Variant& value, double& result)
{
    if (value.IsText()) {
        return ToDouble(TextOf(value), result);
    }
    const Word code = CodeOf(value);
    if (IsIntCode(code) || IsFloatCode(code) || code == System::varBoolean || code == System::varByte ||
        code == System::varUInt64) {
        result = value.As<double>();
        return true;
    }
    return false;
}

double VarToDoubleDef(const Variant& value, double defaultValue)
{
    VarToDouble(value, defaultValue);
    return defaultValue;
}

bool VarWithUnitToDouble(const Variant& value, double& result)
{
    return value.IsText() ? ValueWithUnitToDouble(TextOf(value), result) : VarToDouble(value, result);
}

bool VarToStr(const Variant& value, UnicodeString& result)
{
    if (value.IsText()) {
        result = TextOf(value);
        return true;
    }
    if (IsFloatCode(CodeOf(value))) {
        result = Sysutils::FloatToStr(value.As<double>());
        return true;
    }
    return Take(IntegerText(value), result);
}

UnicodeString VarToStrDef(const Variant& value, const UnicodeString& defaultValue)
{
    UnicodeString result = defaultValue;
    VarToStr(value, result);
    return result;
}

UnicodeString ToStrDef(const Variant& value, const UnicodeString& defaultValue)
{
    return VarToStrDef(value, defaultValue);
}

bool VarToSqlValue(const Variant& value, UnicodeString& result)
{
    const auto text = SqlText(value);
    result = text.value_or(UnicodeString());
    return text.has_value();
}

UnicodeString VarToSqlValue(const Variant& value)
{
    UnicodeString result;
    if (!VarToSqlValue(value, result)) {
        UTL::THROW_XAssert(NoSqlForm);
    }
    return result;
}

UnicodeString VarToVStr(const Variant& value)
{
    return Sysutils::IntToStr(value.Type() & System::varTypeMask) + u':' + StoredValue(value);
}

Variant VStrToVar(const UnicodeString& text)
{
    const int colon = text.Pos(u':');
    if (colon == 0) {
        return Variant::Null();
    }
    const int code = ToIntDef(text.SubString(1, colon - 1), System::varNull);
    return ReadStored(code, text.SubString(colon + 1, text.Length() - colon));
}

System::DynamicArray<unsigned char> VarToBytes(const Variant& value)
{
    System::DynamicArray<unsigned char> result;
    if (value.Type() == (System::varArray | System::varByte) && value.ArrayDimCount() == 1) {
        const auto bytes = value.ArrayBytes();
        result.set_length(static_cast<int>(bytes.size()));
        std::ranges::copy(bytes, result.begin());
    }
    return result;
}

Variant BytesToVar(const System::DynamicArray<unsigned char>& bytes)
{
    if (bytes.Length() == 0) {
        return Variant::Null();
    }
    Variant result({0, bytes.High()}, System::varByte);
    std::ranges::copy(bytes, result.ArrayBytes().begin());
    return result;
}

Variant ForEeachVar_Sum(const Variant& value)
{
    if (value.ArrayDimCount() != 1) {
        return value;
    }
    const Int64 low = value.ArrayLowBound();
    const Int64 high = value.ArrayHighBound();
    if (low > high) {
        return 0;
    }
    Variant sum = value.GetElement(static_cast<int>(low));
    for (Int64 i = low + 1; i <= high; ++i) {
        sum += value.GetElement(static_cast<int>(i));
    }
    return sum;
}

Variant StringToBestVariant(const UnicodeString& text)
{
    if (const auto number = ReadNumber(text)) {
        return *number;
    }
    return text.IsEmpty() ? Variant::Null() : Variant(text);
}

Variant StringToBestPropertyValue(const UnicodeString& text)
{
    if (text == u"false") {
        return 0;
    }
    if (text == u"true") {
        return 1;
    }
    return text == u"null" ? Variant::Null() : StringToBestVariant(text);
}

} // namespace BTL
