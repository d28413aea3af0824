// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/runtime/sysutils/Sysutils_Text.h"
#include "platform/visual/data/sets/Db_DataSet.h"
#include "platform/visual/data/sets/Db_Field.h"
#include "platform/visual/data/sets/internal/Db_StateScope.h"

#include <algorithm>

namespace Db
{

using System::UnicodeString;
using System::Variant;

int TDataSet::getRecordCount() const noexcept
{
    return static_cast<int>(View().size());
}

int TDataSet::GetShownCount() const noexcept
{
    return getRecordCount() + (mState == dsInsert ? 1 : 0);
}

int TDataSet::getRecNo() const
{
    return mState == dsInsert || !IsEmpty() ? mCursor + 1 : 0;
}

std::shared_ptr<TRecord> TDataSet::RecordAt(int shownIndex) const
{
    if (mBuffer != nullptr && shownIndex == mCursor) {
        return mBuffer;
    }
    const int index = mState == dsInsert && shownIndex > mCursor ? shownIndex - 1 : shownIndex;
    return index >= 0 && index < getRecordCount() ? View()[static_cast<std::size_t>(index)] : nullptr;
}

std::shared_ptr<TRecord> TDataSet::RecordToRead() const
{
    return mInspected != nullptr ? mInspected : RecordAt(mReadIndex >= 0 ? mReadIndex : mCursor);
}

std::shared_ptr<TRecord> TDataSet::NewRecord() const
{
    auto record = std::make_shared<TRecord>();
    record->values.resize(static_cast<std::size_t>(mFieldDefs->GetCount()));
    return record;
}

bool TDataSet::MoveCursor(int target, bool isBof, bool isEof)
{
    if (!Tell(BeforeScroll) || mState != dsBrowse) {
        return false;
    }
    mCursor = std::clamp(target, 0, std::max(getRecordCount() - 1, 0));
    mBof = isBof || IsEmpty();
    mEof = isEof || IsEmpty();
    return Notify(deDataSetScroll) && getActive() && Tell(AfterScroll);
}

void TDataSet::First()
{
    if (EndChanges()) {
        MoveCursor(0, true, false);
    }
}

void TDataSet::Last()
{
    if (EndChanges()) {
        MoveCursor(getRecordCount() - 1, false, true);
    }
}

int TDataSet::MoveBy(int distance)
{
    CheckActive();
    if (distance == 0 || !EndChanges() || (distance > 0 ? mEof : mBof)) {
        return 0;
    }
    const int from = mCursor;
    const System::Int64 target = System::Int64{from} + distance;
    const int last = getRecordCount() - 1;
    const int to = static_cast<int>(std::clamp<System::Int64>(target, 0, std::max(last, 0)));
    return MoveCursor(to, target<0, target> last) ? to - from : 0;
}

void TDataSet::setRecNo(int number)
{
    if (!EndChanges()) {
        return;
    }
    if (number < 1 || number > getRecordCount()) {
        RaiseError(u"There is no record " + UnicodeString(number) + u".");
    }
    if (number - 1 != mCursor) {
        MoveCursor(number - 1, false, false);
    }
}

TBookmark TDataSet::GetBookmarkAt(int shownIndex) const
{
    const auto record = getActive() ? RecordAt(shownIndex) : nullptr;
    return {record == nullptr ? 0 : record->key};
}

TBookmark TDataSet::GetBookmark() const
{
    return GetBookmarkAt(mCursor);
}

int TDataSet::FindKey(System::Int64 key) const noexcept
{
    const auto& view = View();
    const auto found =
        std::find_if(view.begin(), view.end(), [&](const auto& record) { return record->key == key; });
    return key == 0 || found == view.end() ? -1 : static_cast<int>(found - view.begin());
}

bool TDataSet::BookmarkValid(TBookmark bookmark) const
{
    return FindKey(bookmark.key) >= 0;
}

int TDataSet::CompareBookmarks(TBookmark first, TBookmark second) const
{
    const int a = FindKey(first.key);
    const int b = FindKey(second.key);
    return a < b ? -1 : a > b ? 1 : 0;
}

void TDataSet::GotoBookmark(TBookmark bookmark)
{
    if (!EndChanges()) {
        return;
    }
    const int index = FindKey(bookmark.key);
    if (index < 0) {
        RaiseError(u"The record of the bookmark isn't there any more.");
    }
    MoveCursor(index, false, false);
}

void TDataSet::PlaceCursor(System::Int64 key)
{
    const int index = FindKey(key);
    mCursor = index >= 0 ? index : std::clamp(mCursor, 0, std::max(getRecordCount() - 1, 0));
    mBof = mEof = IsEmpty();
}

bool TDataSet::IsAccepted(const std::shared_ptr<TRecord>& record)
{
    bool isAccepted = true;
    if (OnFilterRecord) {
        const CStateScope scope(*this, dsFilter, record);
        OnFilterRecord(this, isAccepted);
        scope.CheckAlive();
    }
    return isAccepted;
}

TRecords TDataSet::FilterRecords()
{
    TRecords view;
    if (mFiltered) {
        // A copy, since the handler may do whatever it likes.
        const TRecords records = mRecords;
        std::copy_if(records.begin(), records.end(), std::back_inserter(view),
                     [&](const auto& record) { return IsAccepted(record); });
    }
    return view;
}

namespace
{

bool IsMatch(const Variant& value, const Variant& wanted, const TLocateOptions& options)
{
    if (wanted.IsNull() || value.IsNull()) {
        return wanted.IsNull() && value.IsNull();
    }
    const bool areTexts = wanted.IsText() && value.IsText();
    if (!areTexts || options.empty()) {
        return value == wanted;
    }
    const UnicodeString wish = wanted.As<UnicodeString>();
    UnicodeString text = value.As<UnicodeString>();
    if (options.Contains(loPartialKey)) {
        text = text.SubString(1, wish.Length());
    }
    return options.Contains(loCaseInsensitive) ? Sysutils::AnsiSameText(text, wish) : text == wish;
}

} // namespace

int TDataSet::FindValues(const UnicodeString& keyFields, const Variant& keyValues,
                         const TLocateOptions& options)
{
    const auto fields = GetFieldList(keyFields);
    std::vector<Variant> wanted;
    if (keyValues.IsArray() && keyValues.ArrayDimCount() == 1) {
        for (int i = keyValues.ArrayLowBound(); i <= keyValues.ArrayHighBound(); ++i) {
            wanted.push_back(keyValues.GetElement(i));
        }
    } else {
        wanted.push_back(keyValues.IsEmpty() ? Variant::Null() : keyValues);
    }
    if (fields.empty() || fields.size() != wanted.size()) {
        RaiseError(u"A search needs one value for each field of \"" + keyFields + u"\".");
    }
    const Classes::TComponentWatch watch(this);
    const TRecords view = View();
    const auto found = std::find_if(view.begin(), view.end(), [&](const auto& record) {
        return std::equal(fields.begin(), fields.end(), wanted.begin(),
                          [&](TField* field, const Variant& value) {
                              return IsMatch(ValueIn(record, *field), value, options);
                          });
    });
    return found == view.end() ? -1 : static_cast<int>(found - view.begin());
}

bool TDataSet::Locate(const UnicodeString& keyFields, const Variant& keyValues, const TLocateOptions& options)
{
    if (!EndChanges()) {
        return false;
    }
    const int index = FindValues(keyFields, keyValues, options);
    return index >= 0 && MoveCursor(index, false, false);
}

Variant TDataSet::Lookup(const UnicodeString& keyFields, const Variant& keyValues,
                         const UnicodeString& resultFields)
{
    CheckActive();
    const auto fields = GetFieldList(resultFields);
    const int index = FindValues(keyFields, keyValues, {});
    if (index < 0 || fields.empty()) {
        return Variant::Null();
    }
    const auto record = View()[static_cast<std::size_t>(index)];
    std::vector<Variant> values;
    std::transform(fields.begin(), fields.end(), std::back_inserter(values),
                   [&](TField* field) { return ValueIn(record, *field); });
    return values.size() == 1 ? values.front() : Variant::ArrayOf(values);
}

} // namespace Db
