// SPDX-License-Identifier: MIT
#include "text/numbers/BTL_NUM_SetDecimalSeparator.h"

#include "platform/base/Sysutils_Locale.h"
#include "text/numbers/internal/BTL_NUM_ActiveSeparator.h"

namespace BTL
{

using System::AnsiString;
using System::UnicodeString;
using System::WideChar;

namespace
{

template <class S>
S WithSeparator(const S& text, typename S::CharType separator)
{
    int position = text.Pos(static_cast<typename S::CharType>('.'));
    if (position == 0) {
        position = text.Pos(static_cast<typename S::CharType>(','));
    }
    if (position == 0 || text[position] == separator) {
        return text;
    }
    S result = text;
    result[position] = separator;
    return result;
}

} // namespace

CSetDecimalSeparator::CSetDecimalSeparator(char separator) : mFormer(Sysutils::DecimalSeparator)
{
    Sysutils::DecimalSeparator = UnicodeString(separator)[1];
}

CSetDecimalSeparator::~CSetDecimalSeparator()
{
    Sysutils::DecimalSeparator = mFormer;
}

UnicodeString SetDecimalSeparator(const UnicodeString& text, WideChar separator)
{
    return WithSeparator(text, separator);
}

AnsiString SetDecimalSeparator(const AnsiString& text, char separator)
{
    return WithSeparator(text, separator);
}

UnicodeString AdaptDecimalSeparator(const UnicodeString& text)
{
    return WithSeparator(text, Detail::ActiveSeparator<UnicodeString>());
}

AnsiString AdaptDecimalSeparator(const AnsiString& text)
{
    return WithSeparator(text, Detail::ActiveSeparator<AnsiString>());
}

} // namespace BTL
