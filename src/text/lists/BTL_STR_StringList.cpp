// SPDX-License-Identifier: MIT
#include "text/lists/BTL_STR_StringList.h"

#include "streams/BTL_STRM_StreamUtilities.h"
#include "text/grammar/BTL_STR_Delimited.h"
#include "text/lists/BTL_STR_StringsUpdate.h"

#include <algorithm>

namespace BTL
{

namespace
{

using Classes::TStringList;
using Classes::TStrings;
using System::UnicodeString;

bool HasAll(const TStringList& list, const TStrings& strings)
{
    for (int i = 0; i < strings.getCount(); ++i) {
        if (list.IndexOf(strings[i]) < 0) {
            return false;
        }
    }
    return true;
}

void AddEmptyLines(TStringList& list, int count)
{
    const CStringsUpdate update(&list);
    for (int i = 0; i < count; ++i) {
        list.Add(UnicodeString());
    }
}

void SetText(TStringList& list, const UnicodeString& text, bool asLines)
{
    if (asLines) {
        list.setText(text);
    } else {
        list.setCommaText(text);
    }
}

void Copy(TStringList& list, const TStringList& source)
{
    // An order that the list has already would drop or move lines on their way in.
    if (&list != &source) {
        list.setSorted(false);
        list.Assign(const_cast<TStringList*>(&source));
        list.setSorted(source.getSorted());
        list.setDuplicates(source.getDuplicates());
    }
}

} // namespace

void MStringList::AddCommaText(const UnicodeString& text)
{
    if (mList->getCount() == 0) {
        mList->setCommaText(text);
        return;
    }
    TStringList lines;
    lines.setCommaText(text);
    mList->AddStrings(&lines);
}

void MStringList::AppendToLastLine(const UnicodeString& text)
{
    if (const int last = mList->getCount() - 1; last >= 0) {
        mList->setStrings(last, mList->getStrings(last) + text);
    } else {
        mList->Add(text);
    }
}

template <class Change>
void MStringList::ChangeEachLine(Change change)
{
    const CStringsUpdate update(mList);
    for (int i = 0; i < mList->getCount(); ++i) {
        mList->setStrings(i, change(mList->getStrings(i)));
    }
}

void MStringList::TrimEachLine()
{
    ChangeEachLine([](const UnicodeString& line) { return line.Trim(); });
}

void MStringList::InsertPrefixToEachLine(const UnicodeString& prefix)
{
    ChangeEachLine([&](const UnicodeString& line) { return prefix + line; });
}

void MStringList::AppendSuffixToEachLine(const UnicodeString& suffix)
{
    ChangeEachLine([&](const UnicodeString& line) { return line + suffix; });
}

UnicodeString MStringList::GetDelimitedText(System::WideChar delim) const
{
    return BTL::GetDelimitedText(mList, delim);
}

void MStringList::DeleteLast()
{
    DeleteAllAt(mList->getCount() - 1);
}

void MStringList::DeleteAllAt(int index)
{
    mList->DeleteRange(std::max(index, 0), mList->getCount());
}

void MStringList::DeleteAt(int index, int count)
{
    mList->DeleteRange(index, count);
}

void MStringList::RemoveFirst(const UnicodeString& text)
{
    if (const int index = IndexOf(text); index >= 0) {
        mList->Delete(index);
    }
}

void MStringList::RemoveAll(const UnicodeString& text)
{
    const CStringsUpdate update(mList);
    mList->DeleteAll(text);
}

bool MStringList::ContainsAll(const TStrings* strings) const
{
    if (strings == nullptr || strings->getCount() == 0) {
        return true;
    }
    constexpr int few = 16;
    if (mList->getSorted() || strings->getCount() <= few) {
        return HasAll(*mList, *strings);
    }
    // Sorted, so that many lines aren't each sought through the whole list.
    TStringList sorted;
    sorted.setCaseSensitive(mList->getCaseSensitive());
    sorted.setSorted(true);
    sorted.AddStrings(mList);
    return HasAll(sorted, *strings);
}

bool MStringList::ContainsAll(const UnicodeString& commaText) const
{
    TStringList lines;
    lines.setCommaText(commaText);
    return ContainsAll(&lines);
}

UnicodeString MStringList::GetKeyOf(int index) const
{
    const UnicodeString line = mList->getStrings(index);
    return line.SubString(1, line.Pos(u'=') - 1);
}

UnicodeString MStringList::GetValueOf(int index) const
{
    const UnicodeString line = mList->getStrings(index);
    const int sign = line.Pos(u'=');
    return sign == 0 ? UnicodeString() : line.SubString(sign + 1);
}

void MStringList::LoadFromFile(const UnicodeString& path)
{
    mList->setText(LoadStringFromFile(path));
}

void MStringList::LoadFromFile(const UnicodeString& path, Sysutils::TEncoding* encoding)
{
    mList->LoadFromFile(path, encoding);
}

CStringList::CStringList() : TListPointer{new TStringList}, MStringList(mStrings) {}

CStringList::CStringList(int count) : CStringList()
{
    AddEmptyLines(*mStrings, count);
}

CStringList::CStringList(const UnicodeString& commaText) : CStringList()
{
    mStrings->setCommaText(commaText);
}

CStringList::CStringList(const UnicodeString& text, bool asLines) : CStringList()
{
    SetText(*mStrings, text, asLines);
}

CStringList::CStringList(std::span<const UnicodeString> lines) : CStringList()
{
    const CStringsUpdate update(mStrings);
    for (const UnicodeString& line : lines) {
        mStrings->Add(line);
    }
}

CStringList::CStringList(const CStringList& other) : CStringList()
{
    Copy(*mStrings, *other.mStrings);
}

CStringList& CStringList::operator=(const CStringList& other)
{
    Copy(*mStrings, *other.mStrings);
    return *this;
}

CStringList::~CStringList()
{
    delete mStrings;
}

CStringListHelper::CStringListHelper(TStringList* strings) noexcept
    : TListPointer{strings}, MStringList(mStrings)
{
}

CAutoStringList::CAutoStringList() : TListPointer{new TStringList}, MStringList(mStrings) {}

CAutoStringList::CAutoStringList(int count) : CAutoStringList()
{
    AddEmptyLines(*mStrings, count);
}

CAutoStringList::CAutoStringList(const UnicodeString& commaText) : CAutoStringList()
{
    mStrings->setCommaText(commaText);
}

CAutoStringList::CAutoStringList(const UnicodeString& text, bool asLines) : CAutoStringList()
{
    SetText(*mStrings, text, asLines);
}

CAutoStringList::CAutoStringList(const CAutoStringList& other) : CAutoStringList()
{
    Copy(*mStrings, *other.mStrings);
}

CAutoStringList& CAutoStringList::operator=(const CAutoStringList& other)
{
    Copy(*mStrings, *other.mStrings);
    return *this;
}

CAutoStringList::~CAutoStringList() noexcept(false)
{
    delete mStrings;
}

CSortedStringList::CSortedStringList(Classes::TDuplicates duplicates)
{
    getList()->setDuplicates(duplicates);
    getList()->setSorted(true);
}

int CSortedStringList::Add(const UnicodeString& text)
{
    const int index = Find(text);
    return index >= 0 ? index : getList()->Add(text);
}

bool CSortedStringList::Delete(const UnicodeString& text)
{
    const int index = Find(text);
    if (index < 0) {
        return false;
    }
    getList()->Delete(index);
    return true;
}

int CSortedStringList::Find(const UnicodeString& text) const
{
    int index = -1;
    return getList()->Find(text, index) ? index : -1;
}

} // namespace BTL
