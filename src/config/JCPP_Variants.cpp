// SPDX-License-Identifier: MIT
#include "config/JCPP_Variants.h"

#include "platform/runtime/variants/Variants.h"

#include <json/value.h>

namespace JCPP
{

using System::UnicodeString;
using System::Variant;

Variant JsonValueToVariant(const Json::Value& value)
{
    if (value.isNull()) {
        return Variants::Null();
    }
    if (value.isBool()) {
        return value.asBool();
    }
    if (value.isInt()) {
        return value.asInt();
    }
    if (value.isInt64()) {
        return System::Int64{value.asInt64()};
    }
    if (value.isUInt()) {
        return value.asUInt();
    }
    if (value.isUInt64()) {
        return static_cast<System::Int64>(value.asUInt64());
    }
    if (value.isString()) {
        return System::FromUtf8(value.asString());
    }
    return Variants::Unassigned();
}

Json::Value VariantToJsonValue(const Variant& value)
{
    switch (Variants::VarType(value) & ~(System::varArray | System::varByRef)) {
    case System::varSmallint:
    case System::varInteger:
    case System::varByte:
        return value.As<int>();
    case System::varSingle:
    case System::varDouble:
    case System::varCurrency:
        return value.As<double>();
    case System::varOleStr:
    case System::varString:
    case System::varUString:
        return System::ToUtf8(value.As<UnicodeString>());
    case System::varBoolean:
        return value.As<bool>();
    case System::varDecimal:
        return Json::UInt64{value.As<unsigned long long>()};
    case System::varUInt64:
        return static_cast<Json::Int64>(value.As<unsigned long long>());
    case System::varLongWord:
    case System::varInt64:
        return Json::Int64{value.As<System::Int64>()};
    default:
        return Json::Value();
    }
}

} // namespace JCPP
