// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Export.h"

namespace Json
{
class Value;
} // namespace Json

namespace System
{
class Variant;
} // namespace System

namespace JCPP
{

// Values of jsoncpp as variants and back, whatever else is done with jsoncpp.
//
//     Json::Value limits;
//     limits["upper"] = JCPP::VariantToJsonValue(2.5);
//     const System::Variant name = JCPP::JsonValueToVariant(limits["name"]);   // Null: there is none

/// Null, a boolean, an integer or a text. A whole number is the first of `int`, `__int64` and `unsigned` that
/// it fits; one above those is the `__int64` of the same bits. All else, as a number with a fraction, an
/// array or an object, is unassigned.
TRS8_BTL_API System::Variant JsonValueToVariant(const Json::Value& value);

/// Integers, floats, money, texts and booleans; an unsigned integer above those of 64 bits with a sign
/// becomes the negative one of the same bits, but that of `varDecimal`, which stays. Of 8 and 16 bits, only
/// `varByte` and `varSmallint` count. All else, as a date or an unassigned variant, is null.
/// `Sysutils::EVariantError` for an array of what would be converted.
TRS8_BTL_API Json::Value VariantToJsonValue(const System::Variant& value);

} // namespace JCPP
