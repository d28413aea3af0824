// SPDX-License-Identifier: MIT
#include "text/variants/BTL_VARI_BestValue.h"

#include "platform/base/numbers/Sysutils_Number.h"
#include "text/numbers/BTL_NUM_Floats.h"
#include "text/numbers/BTL_NUM_Integers.h"
#include "text/numbers/internal/BTL_NUM_Sign.h"

#include <limits>
#include <optional>

namespace BTL
{

using System::Int64;
using System::UnicodeString;
using System::Variant;

namespace
{

std::optional<Variant> ReadNumber(const UnicodeString& text)
{
    if (IsInt(text)) {
        Int64 whole = 0;
        int code = 0;
        // It skips blanks only, where `IsInt` skips tabs and line ends too.
        System::Val(Detail::WithHyphens(text.TrimLeft()), whole, code);
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

} // namespace

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
