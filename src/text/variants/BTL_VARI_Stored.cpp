// SPDX-License-Identifier: MIT
#include "text/variants/BTL_VARI_Stored.h"

#include "platform/base/numbers/Sysutils_Currency.h"
#include "platform/base/numbers/Sysutils_Number.h"
#include "text/bytes/BTL_BIN_BinaryData.h"
#include "text/numbers/BTL_NUM_SetDecimalSeparator.h"
#include "text/variants/BTL_VARI_Conversions.h"
#include "text/variants/internal/BTL_VARI_Codes.h"

namespace BTL
{

using System::AnsiString;
using System::Currency;
using System::Int64;
using System::TDateTime;
using System::UnicodeString;
using System::Variant;

namespace
{

UnicodeString StoredValue(const Variant& value)
{
    switch (Detail::CodeOf(value)) {
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
        return Detail::PointFloatText(value.As<TDateTime>().Val);
    case System::varDecimal:
        return Sysutils::IntToStr(static_cast<Int64>(Detail::PayloadOf(value)));
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

} // namespace BTL
