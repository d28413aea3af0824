// SPDX-License-Identifier: MIT
#include "text/variants/BTL_VARI_SqlValue.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "text/dates/BTL_DT_Texts.h"
#include "text/grammar/BTL_SQL_Text.h"
#include "text/variants/internal/BTL_VARI_Codes.h"

#include <optional>

namespace BTL
{

using System::TDateTime;
using System::UnicodeString;
using System::Variant;
using System::Word;

namespace
{

constexpr UTL::CFaultPlace NoSqlForm{"BTL_VARI_Utilities", 558};

std::optional<UnicodeString> SqlText(const Variant& value)
{
    if (Detail::HasNoValue(value)) {
        return u"NULL";
    }
    if (value.IsText()) {
        return u"'" + SQLValueDelim(Detail::TextOf(value)) + u"'";
    }
    const Word code = Detail::CodeOf(value);
    if (Detail::IsFloatCode(code)) {
        return Detail::PointFloatText(value.As<double>());
    }
    return code == System::varDate ? GetSQLDateString(value.As<TDateTime>(), true)
                                   : Detail::IntegerText(value);
}

} // namespace

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

} // namespace BTL
