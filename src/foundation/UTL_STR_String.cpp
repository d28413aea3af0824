// SPDX-License-Identifier: MIT
#include "foundation/UTL_STR_String.h"

#include "foundation/UTL_STR_Numbers.h"

#include <algorithm>
#include <cstring>

namespace UTL
{

using System::AnsiString;

CString::CString(const char* text) : std::string(System::Detail::SafeView(text)) {}

CString::CString(const char* text, int count)
{
    if (text != nullptr && count > 0) {
        assign(text, strnlen(text, static_cast<std::size_t>(count)));
    }
}

CString::CString(const std::string& text, int start)
    : std::string(text, std::min(static_cast<std::size_t>(std::max(start, 0)), text.size()))
{
}

CString& CString::operator=(const AnsiString& text)
{
    assign(text.AsView());
    return *this;
}

CString& CString::operator+=(const AnsiString& text)
{
    append(text.AsView());
    return *this;
}

bool CString::GetLong(long& value) const
{
    return UTL::GetLong(c_str(), value);
}

bool CString::GetDouble(double& value) const
{
    return UTL::GetDouble(c_str(), value);
}

int CString::ToInt() const
{
    return UTL::ToInt(c_str());
}

float CString::ToFloat() const
{
    return UTL::ToFloat(c_str());
}

bool CString::IsDigitString(bool sign, bool blanks) const
{
    return UTL::IsDigitString(c_str(), sign, blanks);
}

CString CString::UpperCase() const
{
    const AnsiString text = *this;
    return text.UpperCase();
}

CString CString::TrimLeft() const
{
    const AnsiString text = *this;
    return text.TrimLeft();
}

CString CString::TrimRight() const
{
    const AnsiString text = *this;
    return text.TrimRight();
}

CString CString::Trim() const
{
    const AnsiString text = *this;
    return text.Trim();
}

} // namespace UTL
