// SPDX-License-Identifier: MIT
#include "text/lists/BTL_STR_StringSet.h"

#include "text/grammar/BTL_STR_Delimited.h"
#include "text/lists/BTL_STR_StringList.h"
#include "text/lists/BTL_STR_StringsUpdate.h"

#include <algorithm>

namespace BTL
{

using Classes::TStrings;
using System::UnicodeString;

CStringSet::CStringSet(const UnicodeString& commaText)
{
    setCommaText(commaText);
}

CStringSet::CStringSet(std::span<const UnicodeString> texts) : set(texts.begin(), texts.end()) {}

CStringSet& CStringSet::operator<<(const UnicodeString& text)
{
    insert(text);
    return *this;
}

CStringSet& CStringSet::operator<<(const CStringSet& other)
{
    insert(other.begin(), other.end());
    return *this;
}

CStringSet& CStringSet::operator<<(const TStrings* strings)
{
    const int count = strings == nullptr ? 0 : strings->getCount();
    for (int i = 0; i < count; ++i) {
        insert(strings->getStrings(i));
    }
    return *this;
}

CStringSet& CStringSet::operator>>(const UnicodeString& text)
{
    erase(text);
    return *this;
}

CStringSet& CStringSet::operator>>(const CStringSet& other)
{
    if (this == &other) {
        clear();
        return *this;
    }
    for (const UnicodeString& text : other) {
        erase(text);
    }
    return *this;
}

CStringSet& CStringSet::operator>>(const TStrings* strings)
{
    const int count = strings == nullptr ? 0 : strings->getCount();
    for (int i = 0; i < count; ++i) {
        erase(strings->getStrings(i));
    }
    return *this;
}

void CStringSet::AddCommaText(const UnicodeString& text)
{
    *this << CStringList(text).getList();
}

bool CStringSet::ContainsAll(const CStringSet& other) const
{
    return std::includes(begin(), end(), other.begin(), other.end());
}

bool CStringSet::ContainsAll(const TStrings* strings) const
{
    const int count = strings == nullptr ? 0 : strings->getCount();
    for (int i = 0; i < count; ++i) {
        if (!contains(strings->getStrings(i))) {
            return false;
        }
    }
    return true;
}

bool CStringSet::ContainsAll(const UnicodeString& commaText) const
{
    return ContainsAll(CStringList(commaText).getList());
}

void CStringSet::AddStringsTo(TStrings* strings) const
{
    if (strings == nullptr) {
        return;
    }
    const CStringsUpdate update(strings);
    for (const UnicodeString& text : *this) {
        strings->Add(text);
    }
}

void CStringSet::GetStrings(TStrings* strings) const
{
    if (strings == nullptr) {
        return;
    }
    const CStringsUpdate update(strings);
    strings->Clear();
    AddStringsTo(strings);
}

void CStringSet::SetStrings(const TStrings* strings)
{
    clear();
    *this << strings;
}

UnicodeString CStringSet::GetDelimitedText(System::WideChar delim) const
{
    const CStringList list;
    AddStringsTo(list.getList());
    return list.GetDelimitedText(delim);
}

UnicodeString CStringSet::getCommaText() const
{
    const CStringList list;
    AddStringsTo(list.getList());
    return list.getCommaText();
}

void CStringSet::setCommaText(const UnicodeString& text)
{
    SetStrings(CStringList(text).getList());
}

} // namespace BTL
