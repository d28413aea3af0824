// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/lists/internal/Stdctrls_ListItems.h"

#include "platform/runtime/classes/Classes_Update.h"
#include "platform/runtime/sysutils/Sysutils_Text.h"

#include <memory>

namespace Stdctrls
{

using Classes::TStringItem;
using System::TObject;
using System::UnicodeString;

namespace
{

/// Two characters that are the same but for the case of ASCII; any beyond that may be.
bool MayBeSame(System::WideChar a, System::WideChar b)
{
    constexpr auto lower = [](System::WideChar c) -> unsigned {
        return c >= u'A' && c <= u'Z' ? c + 32U : c;
    };
    return a > 127 || b > 127 || lower(a) == lower(b);
}

} // namespace

bool BeginsWith(const UnicodeString& text, const UnicodeString& prefix)
{
    const std::u16string_view begin = text.AsView().substr(0, prefix.AsView().size());
    if (begin.size() < prefix.AsView().size() ||
        (!begin.empty() && !MayBeSame(begin[0], prefix.AsView()[0]))) {
        return false;
    }
    return Sysutils::AnsiSameText(UnicodeString(begin), prefix);
}

CListItem::~CListItem()
{
    if (mList.mCurrent == this) {
        mList.mCurrent = nullptr;
    }
}

CListItems::CListItems() : TStringList(true)
{
    setDuplicates(Classes::dupAccept);
}

CListItems::~CListItems()
{
    // They go while this still knows them.
    setOnChange({});
    setOnChanging({});
    TStringList::Clear();
}

int CListItems::getCurrent() const
{
    if (mCurrent == nullptr) {
        return -1;
    }
    const int count = GetCount();
    const auto isIt = [&](int index) { return index >= 0 && index < count && &ItemAt(index) == mCurrent; };
    // Most changes move it by one at most.
    for (const int near : {mCurrentPlace, mCurrentPlace + 1, mCurrentPlace - 1}) {
        if (isIt(near)) {
            mCurrentPlace = near;
            return near;
        }
    }
    mCurrentPlace = FindRound(count, mCurrentPlace, isIt);
    return mCurrentPlace;
}

void CListItems::setCurrent(int index)
{
    const bool isThere = index >= 0 && index < GetCount();
    mCurrent = isThere ? &ItemAt(index) : nullptr;
    mCurrentPlace = isThere ? index : 0;
}

int CListItems::FindPrefix(const UnicodeString& prefix, int start) const
{
    return FindRound(GetCount(), start, [&](int index) { return BeginsWith(At(index), prefix); });
}

int CListItems::FindExact(const UnicodeString& text) const
{
    return FindRound(GetCount(), 0, [&](int index) { return At(index) == text; });
}

int CListItems::FindText(const UnicodeString& text) const
{
    const int exact = FindExact(text);
    return exact >= 0 ? exact : FindRound(GetCount(), 0, [&](int index) {
        return At(index).Length() == text.Length() && BeginsWith(At(index), text);
    });
}

int CListItems::AddObject(const UnicodeString& text, TObject* object)
{
    auto item = std::make_unique<CListItem>(*this, object);
    return TStringList::AddObject(text, item.release());
}

void CListItems::InsertObject(int index, const UnicodeString& text, TObject* object)
{
    CheckIndex(index, GetCount() + 1);
    if (getSorted()) {
        AddObject(text, object);
        return;
    }
    auto item = std::make_unique<CListItem>(*this, object);
    TStringList::InsertObject(index, text, item.release());
}

void CListItems::Put(int index, const UnicodeString& text)
{
    ItemAt(index).height = 0;
    if (!getSorted()) {
        TStringList::Put(index, text);
        return;
    }
    const Classes::GUpdateScope scope(*this);
    TObject* const object = GetObject(index);
    const bool isCurrent = getCurrent() == index;
    Delete(index);
    const int place = AddObject(text, object);
    if (isCurrent) {
        setCurrent(place);
    }
}

void CListItems::AppendItems(std::vector<TStringItem>&& items)
{
    for (TStringItem& item : items) {
        item.Object = new CListItem(*this, item.Object);
    }
    TStringList::AppendItems(std::move(items));
}

} // namespace Stdctrls
