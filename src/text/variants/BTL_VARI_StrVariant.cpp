// SPDX-License-Identifier: MIT
#include "text/variants/BTL_VARI_StrVariant.h"

#include "platform/base/dates/Sysutils_DateReading.h"
#include "platform/base/dates/Sysutils_DateText.h"
#include "platform/base/numbers/Sysutils_Currency.h"
#include "text/numbers/BTL_NUM_Floats.h"
#include "text/numbers/BTL_NUM_Integers.h"
#include "text/variants/BTL_VARI_Conversions.h"

namespace BTL
{

using System::AnsiString;
using System::Currency;
using System::Int64;
using System::TDateTime;
using System::UnicodeString;
using System::Variant;

CStrVariant::CStrVariant(const Variant& value) : UnicodeString(VarToStrDef(value, UnicodeString())) {}

CStrVariant::CStrVariant(Currency value) : UnicodeString(Sysutils::CurrToStr(value)) {}

CStrVariant::CStrVariant(TDateTime value) : UnicodeString(Sysutils::DateTimeToStr(value)) {}

CStrVariant::CStrVariant(Int64 value) : UnicodeString(Sysutils::IntToStr(value)) {}

CStrVariant::operator Int64() const
{
    return Sysutils::StrToInt64(*this);
}

CStrVariant::operator float() const
{
    return static_cast<float>(ToDouble(static_cast<const UnicodeString&>(*this)));
}

CStrVariant::operator double() const
{
    return ToDouble(static_cast<const UnicodeString&>(*this));
}

CStrVariant::operator Currency() const
{
    return Sysutils::StrToCurr(*this);
}

CStrVariant::operator TDateTime() const
{
    return Sysutils::StrToDateTime(*this);
}

CAStrVariant::CAStrVariant(const Variant& value) : AnsiString(CStrVariant(value)) {}

CAStrVariant::CAStrVariant(Currency value) : AnsiString(CStrVariant(value)) {}

CAStrVariant::CAStrVariant(TDateTime value) : AnsiString(CStrVariant(value)) {}

CAStrVariant::CAStrVariant(Int64 value) : AnsiString(CStrVariant(value)) {}

CAStrVariant::operator Int64() const
{
    return StrToInt64Def(static_cast<const AnsiString&>(*this), 0);
}

CAStrVariant::operator float() const
{
    return static_cast<float>(ToDouble(static_cast<const AnsiString&>(*this)));
}

CAStrVariant::operator double() const
{
    return ToDouble(static_cast<const AnsiString&>(*this));
}

CAStrVariant::operator Currency() const
{
    return Sysutils::StrToCurr(*this);
}

CAStrVariant::operator TDateTime() const
{
    return Sysutils::StrToDateTime(*this);
}

} // namespace BTL
