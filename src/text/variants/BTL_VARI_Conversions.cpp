// SPDX-License-Identifier: MIT
#include "text/variants/BTL_VARI_Conversions.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/base/numbers/Sysutils_Number.h"
#include "text/numbers/BTL_NUM_Floats.h"
#include "text/numbers/BTL_NUM_Integers.h"
#include "text/numbers/BTL_NUM_Units.h"
#include "text/variants/BTL_VARI_BestValue.h"
#include "text/variants/internal/BTL_VARI_Codes.h"

#include <optional>

namespace BTL
{

using Detail::CodeOf;
using Detail::HasNoValue;
using Detail::IntegerText;
using Detail::IsFloatCode;
using Detail::PayloadOf;
using Detail::TextOf;
using Detail::TryCast;
using System::Int64;
using System::UnicodeString;
using System::Variant;
using System::Word;
using Sysutils::EConvertError;

namespace
{

bool IsIntCode(Word code)
{
    return code == System::varSmallint || code == System::varInteger || code == System::varDecimal ||
           code == System::varInt64;
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

} // namespace BTL
