// SPDX-License-Identifier: MIT
#include "text/lists/BTL_STR_StrStrMap.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "text/lists/BTL_STR_StringsUpdate.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <unordered_map>

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

/// The keys of each value, in their order.
struct CStrStrMap::TIndex
{
    /// Not `noexcept`, which the standard library takes for so fast that it hashes a text anew rather than
    /// keep what it found, and so would fetch all the texts that it passes.
    struct THash
    {
        std::size_t operator()(const UnicodeString& text) const { return std::hash<UnicodeString>()(text); }
    };

    void Add(const UnicodeString& value, const UnicodeString& key)
    {
        count += keys[value].insert(key).second ? 1 : 0;
    }
    void Remove(const UnicodeString& value, const UnicodeString& key)
    {
        const auto found = keys.find(value);
        if (found == keys.end()) {
            return;
        }
        count -= found->second.erase(key);
        if (found->second.empty()) {
            keys.erase(found);
        }
    }

    std::unordered_map<UnicodeString, std::set<UnicodeString>, THash> keys;
    std::size_t count = 0;
};

CStrStrMap::TSearches::TSearches() noexcept = default;
CStrStrMap::TSearches& CStrStrMap::TSearches::operator=(TSearches&& other) noexcept = default;
CStrStrMap::TSearches::~TSearches() = default;

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
        CStrStrMap::Add(keys->getStrings(i), values->getStrings(i));
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
    // An exception on the way loses the index.
    System::GOwner<TIndex> index = std::move(mSearches.value.index);
    // Keys often come in their order.
    const auto place = Base::try_emplace(Base::end(), key, value);
    if (index != nullptr) {
        index->Remove(place->second, key);
        index->Add(value, key);
    }
    place->second = value;
    mSearches.value.index = std::move(index);
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
    const auto found = FindValue(value);
    if (found == end()) {
        return false;
    }
    key = found->first;
    return true;
}

CStrStrMap::const_iterator CStrStrMap::FindValue(const UnicodeString& value) const
{
    // So many times as much as one search of all entries has been looked at before an index is made.
    constexpr std::size_t patience = 8;
    TSearches& searches = mSearches.value;
    if (!mHasIterators && searches.index == nullptr && searches.lookedAt > patience * (size() + patience)) {
        searches.index = MakeIndex();
    }
    if (searches.index != nullptr) {
        return FindInIndex(value);
    }
    const auto found =
        std::find_if(begin(), end(), [&](const value_type& entry) { return entry.second == value; });
    searches.lookedAt += static_cast<std::size_t>(std::distance(begin(), found));
    return found;
}

System::GOwner<CStrStrMap::TIndex> CStrStrMap::MakeIndex() const
{
    auto index = System::MakeOwner<TIndex>();
    for (const auto& [key, value] : *this) {
        index->Add(value, key);
    }
    return index;
}

CStrStrMap::const_iterator CStrStrMap::FindInIndex(const UnicodeString& value) const
{
    const TIndex& index = *mSearches.value.index;
    const auto keys = index.keys.find(value);
    const auto found = keys == index.keys.end() ? end() : find(*keys->second.begin());
    const bool isTrue =
        index.count == size() && (found == end() ? keys == index.keys.end() : found->second == value);
    if (isTrue) {
        return found;
    }
    // Somebody went by way of the base class.
    mSearches.Forget();
    return FindValue(value);
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
