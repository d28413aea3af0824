// SPDX-License-Identifier: MIT
#include "text/variants/BTL_VARI_NameValuePairs.h"

#include "text/lists/BTL_STR_StringList.h"
#include "text/lists/BTL_STR_StringsUpdate.h"
#include "text/variants/BTL_VARI_Conversions.h"
#include "text/variants/BTL_VARI_SqlValue.h"

#include <utility>

namespace BTL
{

using System::UnicodeString;
using System::Variant;

void CNameValuePairs::Add(const UnicodeString& name, const Variant& value)
{
    push_back({name, value});
}

void CNameValuePairs::Assign(const UnicodeString& name, const Variant& value)
{
    // The arguments may be of an entry that goes.
    TNameValuePair pair = {name, value};
    clear();
    push_back(std::move(pair));
}

void CNameValuePairs::AddSqlUpdateAssignTo(Classes::TStrings* strings) const
{
    if (strings == nullptr) {
        return;
    }
    const CStringsUpdate update(strings);
    for (const auto& [name, value] : *this) {
        strings->Add(name + u"=" + VarToSqlValue(value));
    }
}

UnicodeString CNameValuePairs::GetSqlUpdateAssign() const
{
    CStringList lines;
    AddSqlUpdateAssignTo(lines.getList());
    return lines.GetDelimitedText(u',');
}

UnicodeString CNameValuePairs::_getDebugInfo() const
{
    CStringList lines;
    for (const auto& [name, value] : *this) {
        lines.Add(name + u"=" + VarToStrDef(value, UnicodeString()));
    }
    return lines.getCommaText();
}

} // namespace BTL
