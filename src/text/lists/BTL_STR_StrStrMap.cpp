// SPDX-License-Identifier: MIT
#include "text/lists/BTL_STR_StrStrMap.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "text/lists/BTL_STR_StringsUpdate.h"

#include <algorithm>

namespace BTL
{

namespace
{

using Classes::TStringList;
using Classes::TStrings;
using System::UnicodeString;

constexpr UTL::CFaultPlace UnequalCounts{"BTL_STR_StrStrMap", 50};

int CountOf(const TStrings* strings)
{
    return strings == nullptr ? 0 : strings->getCount();
}

/// Calls `set` with the items of both texts.
template <class Set>
void WithItems(const UnicodeString& commaKeys, const UnicodeString& commaValues, Set set)
{
    TStringList keys;
    TStringList values;
    keys.setCommaText(commaKeys);
    values.setCommaText(commaValues);
    set(&keys, &values);
}

template <class Column>
void GetColumn(const CStrStrMap& map, TStrings* strings, Column column)
{
    if (strings == nullptr) {
        return;
    }
    const CStringsUpdate update(strings);
    strings->Clear();
    for (const auto& entry : map) {
        strings->Add(column(entry));
    }
}

} // namespace

CStrStrMap::CStrStrMap(const TStrings* keys, const TStrings* values)
{
    AddPairs(keys, values);
}

CStrStrMap::CStrStrMap(const UnicodeString& commaKeys, const UnicodeString& commaValues)
{
    SetValues(commaKeys, commaValues);
}

bool CStrStrMap::AddPairs(const TStrings* keys, const TStrings* values)
{
    const int count = CountOf(keys);
    if (count != CountOf(values)) {
        UTL::THROW_XAssert(UnequalCounts);
        return false;
    }
    for (int i = 0; i < count; ++i) {
        insert_or_assign(keys->getStrings(i), values->getStrings(i));
    }
    return true;
}

void CStrStrMap::SetValues(const TStrings* keys, const TStrings* values)
{
    AddPairs(keys, values);
}

void CStrStrMap::SetValues(const UnicodeString& commaKeys, const UnicodeString& commaValues)
{
    WithItems(commaKeys, commaValues, [this](TStrings* keys, TStrings* values) { AddPairs(keys, values); });
}

void CStrStrMap::Add(const UnicodeString& key, const UnicodeString& value)
{
    insert_or_assign(key, value);
}

UnicodeString CStrStrMap::GetValue(const UnicodeString& key) const
{
    UnicodeString value;
    GetValue(key, value);
    return value;
}

bool CStrStrMap::GetValue(const UnicodeString& key, UnicodeString& value) const
{
    const auto found = find(key);
    if (found == end()) {
        return false;
    }
    value = found->second;
    return true;
}

UnicodeString CStrStrMap::Get1stKey(const UnicodeString& value) const
{
    UnicodeString key;
    Get1stKey(value, key);
    return key;
}

bool CStrStrMap::Get1stKey(const UnicodeString& value, UnicodeString& key) const
{
    const auto found =
        std::find_if(begin(), end(), [&](const value_type& entry) { return entry.second == value; });
    if (found == end()) {
        return false;
    }
    key = found->first;
    return true;
}

void CStrStrMap::GetValues(TStrings* strings) const
{
    GetColumn(*this, strings, [](const value_type& entry) { return entry.second; });
}

void CStrStrMap::GetKeys(TStrings* strings) const
{
    GetColumn(*this, strings, [](const value_type& entry) { return entry.first; });
}

UnicodeString CStrStrMap::getDebugInfo() const
{
    UnicodeString text;
    for (const auto& [key, value] : *this) {
        if (!text.IsEmpty()) {
            text += u' ';
        }
        text += u" [" + key + u"]='" + value + u"' ";
    }
    return text;
}

CStrStrMapEx::CStrStrMapEx(std::initializer_list<value_type> entries)
{
    for (const auto& [key, value] : entries) {
        Add(key, value);
    }
}

void CStrStrMapEx::Add(const UnicodeString& key, const UnicodeString& value)
{
    CStrStrMap::Add(key, value);
    mKeys.push_back(key);
}

void CStrStrMapEx::SetValues(const TStrings* keys, const TStrings* values)
{
    if (!AddPairs(keys, values)) {
        return;
    }
    mKeys.clear();
    for (int i = 0; i < CountOf(keys); ++i) {
        mKeys.push_back(keys->getStrings(i));
    }
}

void CStrStrMapEx::SetValues(const UnicodeString& commaKeys, const UnicodeString& commaValues)
{
    WithItems(commaKeys, commaValues, [this](TStrings* keys, TStrings* values) { SetValues(keys, values); });
}

void CStrStrMapEx::Clear() noexcept
{
    clear();
    mKeys.clear();
}

} // namespace BTL
