// SPDX-License-Identifier: MIT
#include "text/lists/BTL_STR_StrSet.h"

#include "text/lists/BTL_STR_StringList.h"

namespace BTL
{

using Classes::TStringList;
using Classes::TStrings;
using System::UnicodeString;

CStrSet::CStrSet() = default;

CStrSet::CStrSet(std::initializer_list<UnicodeString> texts)
{
    for (const UnicodeString& text : texts) {
        Add(text);
    }
}

CStrSet::CStrSet(const CStrSet& other)
{
    Add(other.mStrings.get());
}

CStrSet& CStrSet::operator=(const CStrSet& other)
{
    if (this == &other) {
        return *this;
    }
    // The list stays the same one: `CreateStrings` gave it out.
    if (mStrings != nullptr) {
        mStrings->Clear();
    }
    Add(other.mStrings.get());
    return *this;
}

CStrSet::~CStrSet() = default;

TStringList* CStrSet::CreateStrings()
{
    if (mStrings == nullptr) {
        mStrings = System::MakeOwner<TStringList>();
        mStrings->setCaseSensitive(true);
        mStrings->setDuplicates(Classes::dupIgnore);
        mStrings->setSorted(true);
    }
    return mStrings.get();
}

void CStrSet::Add(const UnicodeString& text)
{
    CreateStrings()->Add(text);
}

void CStrSet::Add(const TStrings* strings)
{
    if (strings != nullptr && strings->getCount() > 0) {
        CreateStrings()->AddStrings(strings);
    }
}

void CStrSet::AddCommaText(const UnicodeString& text)
{
    if (text.IsEmpty()) {
        return;
    }
    if (mStrings != nullptr && mStrings->getCount() == 0) {
        mStrings->setCommaText(text);
        return;
    }
    CStrSet items;
    items.setCommaText(text);
    if (items.Contains(u"=")) {
        setCommaText(text);
    } else {
        Add(items.mStrings.get());
    }
}

void CStrSet::Remove(const UnicodeString& text)
{
    int index = 0;
    if (mStrings != nullptr && mStrings->Find(text, index)) {
        mStrings->Delete(index);
    }
}

void CStrSet::Remove(const TStrings* strings)
{
    if (strings == nullptr) {
        return;
    }
    if (strings == mStrings.get()) {
        mStrings->Clear();
        return;
    }
    for (int i = 0; i < strings->getCount(); ++i) {
        Remove(strings->getStrings(i));
    }
}

void CStrSet::RemoveCommaText(const UnicodeString& text)
{
    Remove(CStringList(text).getList());
}

void CStrSet::Clear() noexcept
{
    mStrings = nullptr;
}

bool CStrSet::Contains(const UnicodeString& text) const
{
    int index = 0;
    return mStrings != nullptr && mStrings->Find(text, index);
}

bool CStrSet::ContainsAll(const TStrings* strings) const
{
    const int count = strings == nullptr ? 0 : strings->getCount();
    for (int i = 0; i < count; ++i) {
        if (!Contains(strings->getStrings(i))) {
            return false;
        }
    }
    return true;
}

bool CStrSet::ContainsAll(const UnicodeString& commaText) const
{
    return ContainsAll(CStringList(commaText).getList());
}

UnicodeString CStrSet::getCommaText() const
{
    return mStrings == nullptr ? UnicodeString() : mStrings->getCommaText();
}

void CStrSet::setCommaText(const UnicodeString& text)
{
    if (text.IsEmpty()) {
        Clear();
    } else {
        CreateStrings()->setCommaText(text);
    }
}

} // namespace BTL
