// SPDX-License-Identifier: MIT
#include "text/lists/BTL_STR_I64StrMap.h"

#include "text/lists/BTL_STR_StringsUpdate.h"
#include "text/lists/internal/BTL_STR_TextIndex.h"

namespace BTL
{

using Classes::TStringList;
using Classes::TStrings;
using System::Int64;
using System::UnicodeString;

CI64StrMap::CI64StrMap() = default;

CI64StrMap::CI64StrMap(std::initializer_list<value_type> entries) : mTexts(entries) {}

CI64StrMap::CI64StrMap(const CI64StrMap& other) : mTexts(other.mTexts) {}

CI64StrMap::CI64StrMap(const CI64StrMap* other)
{
    *this = other;
}

CI64StrMap& CI64StrMap::operator=(const CI64StrMap& other)
{
    if (this != &other) {
        mTexts = other.mTexts;
        mKeys = nullptr;
    }
    return *this;
}

CI64StrMap& CI64StrMap::operator=(const CI64StrMap* other)
{
    if (other == nullptr) {
        Clear();
    } else {
        *this = *other;
    }
    return *this;
}

CI64StrMap::~CI64StrMap() = default;

void CI64StrMap::Add(Int64 key, const UnicodeString& value)
{
    // Keys mostly come in their order.
    mTexts.insert_or_assign(mTexts.end(), key, value);
    if (mKeys != nullptr) {
        mKeys->Set(value, key);
    }
}

void CI64StrMap::Clear() noexcept
{
    mTexts.clear();
    mKeys = nullptr;
}

UnicodeString CI64StrMap::GetString(Int64 key) const
{
    const auto found = mTexts.find(key);
    return found == mTexts.end() ? UnicodeString() : found->second;
}

bool CI64StrMap::GetKey(Int64& key, const UnicodeString& value) const
{
    if (mKeys == nullptr) {
        auto keys = System::MakeOwner<CTextIndex>();
        for (const auto& [textKey, text] : mTexts) {
            keys->Set(text, textKey);
        }
        mKeys = std::move(keys);
    }
    const Int64* const found = mKeys->Find(value);
    if (found == nullptr) {
        return false;
    }
    key = *found;
    return true;
}

void CI64StrMap::AddStringsTo(TStrings* strings) const
{
    if (strings == nullptr) {
        return;
    }
    const CStringsUpdate update(strings);
    for (const auto& [key, text] : mTexts) {
        strings->Add(text);
    }
}

void CI64StrMap::GetStrings(TStrings* strings) const
{
    if (strings == nullptr) {
        return;
    }
    const CStringsUpdate update(strings);
    strings->Clear();
    AddStringsTo(strings);
}

void CI64StrMap::AddStringIdPairsTo(TStringList* list) const
{
    if (list == nullptr) {
        return;
    }
    const CStringsUpdate update(list);
    for (const auto& [key, text] : mTexts) {
        AddStringIdPair(list, text, key);
    }
}

void CI64StrMap::GetStringIdPairs(TStringList* list) const
{
    if (list == nullptr) {
        return;
    }
    const CStringsUpdate update(list);
    list->Clear();
    AddStringIdPairsTo(list);
}

void CI64StrMap::SetStringIdPairs(const TStrings* list, Int64 excludedId)
{
    Clear();
    const int count = list == nullptr ? 0 : list->getCount();
    for (int i = 0; i < count; ++i) {
        if (const Int64 id = GetIdAt(list, i); id != excludedId) {
            Add(id, list->getStrings(i));
        }
    }
}

UnicodeString CI64StrMap::GetCommaText() const
{
    TStringList list;
    AddStringsTo(&list);
    return list.getCommaText();
}

} // namespace BTL
