// SPDX-License-Identifier: MIT
#include "platform/base/Sysutils_Exception.h"
#include "platform/runtime/variants/Variants.h"
#include "support/Fuzz.h"
#include "text/numbers/BTL_NUM_Numbers.h"
#include "text/variants/BTL_VARI_Utilities.h"

#include <cmath>
#include <cstdint>
#include <string_view>

namespace
{

using Fuzz::Require;
using System::AnsiString;
using System::UnicodeString;
using System::Variant;

/// Whether only decimal digits make the text an integer.
bool IsDecimal(const UnicodeString& text)
{
    return BTL::IsInt(text) && text.AsView().find_first_of(u"$xX") == std::u16string_view::npos;
}

/// Whether 15 digits of a float may be beyond its range.
bool IsAtLimit(const Variant& value)
{
    const bool isReal = value.Type() == System::varDouble || value.Type() == System::varDate;
    return isReal && std::abs(value.As<double>()) > 1.7976931348623e308;
}

void CheckStored(const Variant& value)
{
    const UnicodeString text = BTL::VarToVStr(value);
    const Variant again = BTL::VStrToVar(text);
    Require(again.Type() == value.Type());
    Require(BTL::VarToVStr(again) == text);
}

} // namespace

/// Reads any text as a typed variant, and as the best variant.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const UnicodeString text(AnsiString(Fuzz::Bytes(data, size)));
    Fuzz::Try<Sysutils::EConvertError>([&] {
        const Variant value = BTL::VStrToVar(text);
        if (!IsAtLimit(value)) {
            CheckStored(value);
        }
        UnicodeString sql;
        Require(BTL::VarToSqlValue(value, sql) != sql.IsEmpty());
    });

    if (IsDecimal(text)) {
        // What `IsInt` skips at the front is not all white space.
        const UnicodeString digits = text.TrimLeft();
        Require(BTL::ToIntDef(BTL::StringToBestVariant(text), 1) == BTL::ToIntDef(Variant(digits), 2));
    }

    const Variant best = BTL::StringToBestPropertyValue(text);
    int whole = 0;
    Require(!BTL::ToInt(best, whole) || BTL::ToIntDef(best, ~whole) == whole);
    Require(BTL::AreEqual(best, BTL::StringToBestPropertyValue(text)));
    Require(BTL::Compare(best, best) == 0);
    return 0;
}
