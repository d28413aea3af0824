// SPDX-License-Identifier: MIT
#include "text/numbers/BTL_NUM_Variants.h"

#include "platform/base/numbers/Sysutils_Number.h"
#include "text/numbers/BTL_NUM_Floats.h"
#include "text/numbers/BTL_NUM_Integers.h"

namespace BTL
{

using System::AnsiString;
using System::Int64;
using System::UnicodeString;
using System::Variant;

namespace
{

template <class S>
Variant BestVariant(const S& text)
{
    Int64 whole = 0;
    if (ToInt(text, whole)) {
        return whole;
    }
    double real = 0;
    if (ToDouble(text, real)) {
        return real;
    }
    return text;
}

template <class S>
S StringOf(const Variant& value)
{
    const bool isFloat = value.Type() == System::varSingle || value.Type() == System::varDouble;
    return isFloat ? S(Sysutils::FloatToStr(value.As<double>())) : value.As<S>();
}

} // namespace

Variant GetVariant(const UnicodeString& text)
{
    return BestVariant(text);
}

Variant GetVariant(const AnsiString& text)
{
    return BestVariant(text);
}

UnicodeString GetStringW(const Variant& value)
{
    return StringOf<UnicodeString>(value);
}

AnsiString GetStringA(const Variant& value)
{
    return StringOf<AnsiString>(value);
}

} // namespace BTL
