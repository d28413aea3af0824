// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/visual/data/sets/Db_DataSet.h"
#include "platform/visual/data/sets/Db_Field.h"

#include <algorithm>

namespace Db
{

using System::Variant;

void TDataSet::CheckCanModify() const
{
    if (!getCanModify()) {
        RaiseError(u"The data set is read-only.");
    }
}

template <class Action>
bool TDataSet::Attempt(const Action& action, const TDataSetErrorEvent& onError)
{
    const Classes::TComponentWatch watch(this);
    const TDataSetState before = mState;
    for (;;) {
        try {
            action();
            return true;
        } catch (const EDatabaseError& error) {
            TDataAction reaction = daFail;
            if (onError) {
                onError(this, error, reaction);
            }
            if (!watch.IsAlive() || mState != before) {
                return false;
            }
            if (reaction == daFail) {
                throw;
            }
            if (reaction == daAbort) {
                throw Sysutils::EAbort(u"Operation aborted");
            }
        }
    }
}

bool TDataSet::StartChange(TDataSetState state, const TDataSetNotifyEvent& before)
{
    if (!EndChanges()) {
        return false;
    }
    const auto check = [&] { CheckCanModify(); };
    return Attempt(check, OnEditError) && Tell(before) && mState == dsBrowse &&
           (state != dsEdit || !IsEmpty());
}

bool TDataSet::FinishChange()
{
    mModified = false;
    return Notify(deUpdateState) && getActive() && Notify(deDataSetChange) && getActive();
}

void TDataSet::Edit()
{
    CheckActive();
    if (mState == dsEdit || mState == dsInsert) {
        return;
    }
    if (mState == dsBrowse && IsEmpty()) {
        return Insert();
    }
    if (!StartChange(dsEdit, BeforeEdit)) {
        return;
    }
    mBefore = RecordAt(mCursor);
    mBuffer = std::make_shared<TRecord>(*mBefore);
    mState = dsEdit;
    mModified = false;
    if (Notify(deUpdateState) && getActive() && Notify(deRecordChange) && getActive()) {
        Tell(AfterEdit);
    }
}

bool TDataSet::AddRecord(bool atEnd)
{
    if (!StartChange(dsInsert, BeforeInsert)) {
        return false;
    }
    mBefore = nullptr;
    mBuffer = NewRecord();
    if (atEnd) {
        mCursor = getRecordCount();
    }
    mState = dsInsert;
    mBof = !atEnd && mCursor == 0;
    mEof = atEnd;
    if (!Tell(OnNewRecord) || mState != dsInsert) {
        return false;
    }
    return FinishChange() && Tell(AfterInsert);
}

void TDataSet::Insert()
{
    AddRecord(false);
}

void TDataSet::Append()
{
    AddRecord(true);
}

void TDataSet::AppendRecord(std::span<const Variant> values)
{
    if (values.size() > mFields.size()) {
        RaiseError(u"There are more values than fields.");
    }
    if (!AddRecord(true)) {
        return;
    }
    const Classes::TComponentWatch watch(this);
    for (std::size_t i = 0; i < values.size(); ++i) {
        mFields[i]->setValue(values[i]);
        if (!watch.IsAlive() || mState != dsInsert || i + 1 > mFields.size()) {
            return;
        }
    }
    Post();
}

void TDataSet::ClearFields()
{
    if (mState != dsEdit && mState != dsInsert) {
        RaiseError(u"The record isn't being edited.");
    }
    std::fill(mBuffer->values.begin(), mBuffer->values.end(), Variant::Null());
    mBuffer->isCalculated = false;
    mModified = true;
    Notify(deRecordChange);
}

void TDataSet::CheckRequired() const
{
    const auto missing = std::find_if(mFields.begin(), mFields.end(), [](const TField* field) {
        return field->getRequired() && !field->getReadOnly() && !field->getCalculated() && field->getIsNull();
    });
    if (missing != mFields.end()) {
        RaiseError(u"Field \"" + (*missing)->getDisplayName() + u"\" must have a value.");
    }
}

void TDataSet::StorePosted()
{
    // A copy, so that what fails on the way changes nothing.
    auto record = std::make_shared<TRecord>(*mBuffer);
    record->isCalculated = false;
    if (mState == dsEdit) {
        UpdateInStore(*record, *mBefore);
        std::replace(mRecords.begin(), mRecords.end(), mBefore, record);
        std::replace(mView.begin(), mView.end(), mBefore, record);
    } else {
        InsertIntoStore(*record);
        const bool isLast = mCursor >= getRecordCount();
        const auto place =
            isLast ? mRecords.end()
                   : std::find(mRecords.begin(), mRecords.end(), View()[static_cast<std::size_t>(mCursor)]);
        if (mFiltered) {
            mView.insert(mView.begin() + mCursor, record);
        }
        mRecords.insert(place, record);
    }
    mBuffer = record;
}

bool TDataSet::EnterBrowse()
{
    mBuffer = nullptr;
    mBefore = nullptr;
    mState = dsBrowse;
    mCursor = std::clamp(mCursor, 0, std::max(getRecordCount() - 1, 0));
    mBof = mEof = IsEmpty();
    return FinishChange() && mState == dsBrowse;
}

bool TDataSet::PostNow()
{
    const TDataSetState before = mState;
    if (!IsEditState(before)) {
        RaiseError(u"The record isn't being edited.");
    }
    if (!LetUpdate() || mState != before) {
        return mState == dsBrowse;
    }
    if (mState == dsSetKey) {
        return EnterBrowse();
    }
    if (!Tell(BeforePost) || mState != before) {
        return false;
    }
    CheckRequired();
    if (!Attempt([&] { StorePosted(); }, OnPostError)) {
        return false;
    }
    const auto posted = mBuffer;
    mBuffer = nullptr;
    mBefore = nullptr;
    mState = dsBrowse;
    // A record that the filter doesn't accept as it is now is in the store all the same.
    if (mFiltered && !IsAccepted(posted)) {
        std::erase(mView, posted);
    }
    return EnterBrowse() && Tell(AfterPost) && mState == dsBrowse;
}

void TDataSet::Post()
{
    CheckActive();
    PostNow();
}

bool TDataSet::CancelNow()
{
    if (mState == dsSetKey) {
        return EnterBrowse();
    }
    const TDataSetState before = mState;
    if (!Tell(BeforeCancel) || mState != before) {
        return false;
    }
    return EnterBrowse() && Tell(AfterCancel) && mState == dsBrowse;
}

void TDataSet::Cancel()
{
    CheckActive();
    if (IsEditState(mState)) {
        CancelNow();
    }
}

void TDataSet::RemoveCurrent()
{
    const auto record = mState == dsEdit ? mBefore : RecordAt(mCursor);
    DeleteFromStore(*record);
    std::erase(mView, record);
    std::erase(mRecords, record);
}

void TDataSet::Delete()
{
    CheckActive();
    if (mState == dsInsert) {
        return Cancel();
    }
    if (mState == dsSetKey && !EndChanges()) {
        return;
    }
    if (IsEmpty()) {
        RaiseError(u"There is no record to delete.");
    }
    CheckCanModify();
    if (!Tell(BeforeDelete) || !getActive() || IsEmpty() || mState == dsInsert) {
        return;
    }
    if (!Attempt([&] { RemoveCurrent(); }, OnDeleteError)) {
        return;
    }
    const bool wasLast = mCursor >= getRecordCount();
    if (EnterBrowse() && Tell(AfterDelete) && wasLast && mState == dsBrowse && !IsEmpty()) {
        Tell(AfterScroll);
    }
}

void TDataSet::SetKey()
{
    if (!EndChanges()) {
        return;
    }
    mBuffer = NewRecord();
    mState = dsSetKey;
    FinishChange();
}

bool TDataSet::GotoKey()
{
    if (mState != dsSetKey) {
        RaiseError(u"No search was begun.");
    }
    if (!LetUpdate() || mState != dsSetKey) {
        return false;
    }
    const auto wanted = mBuffer;
    const auto fits = [&](const Variant& wish, const Variant& value) {
        return wish.IsEmpty() || wish == value;
    };
    const auto& view = View();
    const auto found = std::find_if(view.begin(), view.end(), [&](const std::shared_ptr<TRecord>& record) {
        return std::equal(wanted->values.begin(), wanted->values.end(), record->values.begin(), fits);
    });
    const bool isFound = found != view.end();
    const int target = static_cast<int>(found - view.begin());
    return EnterBrowse() && isFound && MoveCursor(target, false, false);
}

} // namespace Db
