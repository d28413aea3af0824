// SPDX-License-Identifier: MIT
#include "platform/visual/data/sets/Db_DataSet.h"

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/visual/data/sets/Db_DataSource.h"
#include "platform/visual/data/sets/Db_Field.h"
#include "platform/visual/data/sets/internal/Db_StateScope.h"
#include "platform/visual/forms/Forms_Application.h"

#include <algorithm>

namespace Db
{

using System::UnicodeString;

System::TMetaClass* TDataSet::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TDataSet>(u"TDataSet")
            .Property(u"FieldDefs", &TDataSet::getFieldDefs, &TDataSet::setFieldDefs)
            .Property(u"Filtered", &TDataSet::getFiltered, &TDataSet::setFiltered, {.defaultValue = 0})
            .Property(u"ReadOnly", &TDataSet::getReadOnly, &TDataSet::setReadOnly, {.defaultValue = 0})
            .Property(u"AfterCancel", &TDataSet::AfterCancel)
            .Property(u"AfterClose", &TDataSet::AfterClose)
            .Property(u"AfterDelete", &TDataSet::AfterDelete)
            .Property(u"AfterEdit", &TDataSet::AfterEdit)
            .Property(u"AfterInsert", &TDataSet::AfterInsert)
            .Property(u"AfterOpen", &TDataSet::AfterOpen)
            .Property(u"AfterPost", &TDataSet::AfterPost)
            .Property(u"AfterRefresh", &TDataSet::AfterRefresh)
            .Property(u"AfterScroll", &TDataSet::AfterScroll)
            .Property(u"BeforeCancel", &TDataSet::BeforeCancel)
            .Property(u"BeforeClose", &TDataSet::BeforeClose)
            .Property(u"BeforeDelete", &TDataSet::BeforeDelete)
            .Property(u"BeforeEdit", &TDataSet::BeforeEdit)
            .Property(u"BeforeInsert", &TDataSet::BeforeInsert)
            .Property(u"BeforeOpen", &TDataSet::BeforeOpen)
            .Property(u"BeforePost", &TDataSet::BeforePost)
            .Property(u"BeforeRefresh", &TDataSet::BeforeRefresh)
            .Property(u"BeforeScroll", &TDataSet::BeforeScroll)
            .Property(u"OnCalcFields", &TDataSet::OnCalcFields)
            .Property(u"OnDeleteError", &TDataSet::OnDeleteError)
            .Property(u"OnEditError", &TDataSet::OnEditError)
            .Property(u"OnFilterRecord", &TDataSet::OnFilterRecord)
            .Property(u"OnNewRecord", &TDataSet::OnNewRecord)
            .Property(u"OnPostError", &TDataSet::OnPostError)
            // Opens the set, and so comes behind all that this needs.
            .Property(u"Active", &TDataSet::getActive, &TDataSet::setActive, {.defaultValue = 0})
            .Build();
    return record;
}

TDataSet::TDataSet(Classes::TComponent* owner)
    : Classes::TComponent(owner), mFieldDefs(std::make_unique<TFieldDefs>(this))
{
}

TDataSet::~TDataSet()
{
    Destroying();
    for (auto* const field : std::exchange(mFields, {})) {
        field->mDataSet = nullptr;
        if (!field->mIsDefault && field->getOwner() != this) {
            field->mColumn = field->mSlot = -1;
        }
    }
    for (auto* const source : std::exchange(mDataSources, {})) {
        source->ForgetDataSet();
    }
}

void TDataSet::CloseForEnd() noexcept
{
    Destroying();
    CloseQuietly();
}

void TDataSet::CloseQuietly() noexcept
{
    const Classes::TComponentWatch watch(this);
    ReleaseStore();
    // Nobody can stop the end, whatever he raises.
    Forms::Application->RunHandled([this] { Notify(deUpdateState); });
    if (watch.IsAlive() && mState == dsInactive) {
        ReleaseFields();
    }
}

void TDataSet::RaiseError(const UnicodeString& reason) const
{
    throw EDatabaseError(getName().IsEmpty() ? reason : getName() + u": " + reason);
}

bool TDataSet::getActive() const noexcept
{
    return mState != dsInactive && mState != dsOpening;
}

void TDataSet::CheckInactive() const
{
    if (mState != dsInactive) {
        RaiseError(u"This can't be done while the data set is open.");
    }
}

void TDataSet::CheckActive() const
{
    if (!getActive()) {
        RaiseError(u"This can't be done while the data set is closed.");
    }
    if (mState != dsBrowse && !IsEditState(mState)) {
        RaiseError(u"This can't be done while records are calculated or filtered.");
    }
}

void TDataSet::setActive(bool isActive)
{
    if (getComponentState().Contains(Classes::csLoading)) {
        mIsToOpen = isActive;
        return;
    }
    if (isActive == (mState != dsInactive)) {
        return;
    }
    if (isActive) {
        OpenNow();
    } else {
        CheckActive();
        CloseNow();
    }
}

void TDataSet::Loaded()
{
    TComponent::Loaded();
    if (std::exchange(mIsToOpen, false)) {
        Open();
    }
}

void TDataSet::setReadOnly(bool isReadOnly)
{
    if (isReadOnly != mReadOnly) {
        CheckInactive();
        mReadOnly = isReadOnly;
    }
}

bool TDataSet::Tell(const TDataSetNotifyEvent& event)
{
    const Classes::TComponentWatch watch(this);
    if (event) {
        event(this);
    }
    return watch.IsAlive() && getActive();
}

bool TDataSet::Notify(TDataEvent event, TField* field)
{
    const bool isUrgent = event == deUpdateRecord || event == deCheckBrowseMode ||
                          (event == deUpdateState && mState == dsInactive);
    if (mDisableLevel > 0 && !isUrgent) {
        mWasTold = false;
        return true;
    }
    const Classes::TComponentWatch watch(this);
    const auto sources = mDataSources;
    for (auto* const source : sources) {
        if (!watch.IsAlive()) {
            return false;
        }
        if (std::find(mDataSources.begin(), mDataSources.end(), source) != mDataSources.end()) {
            source->DataEvent(event, field);
        }
    }
    return watch.IsAlive();
}

void TDataSet::EnableControls()
{
    if (mDisableLevel == 0 || --mDisableLevel > 0 || std::exchange(mWasTold, true)) {
        return;
    }
    if (Notify(deUpdateState) && getActive()) {
        Notify(deLayoutChange);
    }
}

bool TDataSet::OpenNow()
{
    if (getComponentState().Contains(Classes::csDestroying)) {
        RaiseError(u"A data set that is being destroyed can't be opened.");
    }
    const Classes::TComponentWatch watch(this);
    if (BeforeOpen) {
        BeforeOpen(this);
    }
    if (!watch.IsAlive() || mState != dsInactive) {
        return false;
    }
    mState = dsOpening;
    try {
        OpenStore();
        BindFields();
        mRecords = ReadStore();
        mView = FilterRecords();
        mState = dsBrowse;
    } catch (...) {
        if (watch.IsAlive()) {
            ReleaseStore();
            ReleaseFields();
        }
        throw;
    }
    mCursor = 0;
    mReadIndex = -1;
    mBof = true;
    mEof = View().empty();
    return Notify(deUpdateState) && getActive() && Tell(AfterOpen) && (IsEmpty() || Tell(AfterScroll));
}

void TDataSet::ReleaseStore() noexcept
{
    mState = dsInactive;
    mBuffer = nullptr;
    mBefore = nullptr;
    mInspected = nullptr;
    mView.clear();
    mCursor = 0;
    mReadIndex = -1;
    mBof = mEof = true;
    mModified = false;
    CloseStore(std::exchange(mRecords, {}));
}

bool TDataSet::CloseNow()
{
    if (!Tell(BeforeClose)) {
        return false;
    }
    if (mState != dsBrowse && !IsEditState(mState)) {
        return false;
    }
    ReleaseStore();
    const Classes::TComponentWatch watch(this);
    // Controls let go of the fields before these go.
    try {
        Notify(deUpdateState);
    } catch (...) {
        if (watch.IsAlive() && mState == dsInactive) {
            ReleaseFields();
        }
        throw;
    }
    if (!watch.IsAlive() || mState != dsInactive) {
        return false;
    }
    ReleaseFields();
    return Tell(AfterClose);
}

bool TDataSet::EndChanges()
{
    CheckActive();
    const TDataSetState before = mState;
    if (!Notify(deCheckBrowseMode) || !getActive()) {
        return false;
    }
    if (mState != before || mState == dsBrowse) {
        return mState == dsBrowse;
    }
    if (mState == dsSetKey) {
        return PostNow();
    }
    if (!LetUpdate()) {
        return false;
    }
    return mState == dsBrowse || (mModified ? PostNow() : CancelNow());
}

void TDataSet::CheckBrowseMode()
{
    EndChanges();
}

bool TDataSet::LetUpdate()
{
    if (IsEditState(mState) && !Notify(deUpdateRecord)) {
        return false;
    }
    return getActive();
}

void TDataSet::UpdateRecord()
{
    if (!IsEditState(mState)) {
        RaiseError(u"The record isn't being edited.");
    }
    LetUpdate();
}

bool TDataSet::ReplaceRecords(TRecords records)
{
    const TBookmark place = GetBookmark();
    std::swap(records, mRecords);
    const Classes::TComponentWatch watch(this);
    try {
        mView = FilterRecords();
    } catch (...) {
        if (watch.IsAlive()) {
            std::swap(records, mRecords);
        }
        throw;
    }
    PlaceCursor(place.key);
    return Notify(deDataSetChange) && getActive();
}

void TDataSet::Refresh()
{
    if (EndChanges() && Tell(BeforeRefresh) && mState == dsBrowse && ReplaceRecords(ReadStore())) {
        Tell(AfterRefresh);
    }
}

void TDataSet::setFiltered(bool isOn)
{
    if (isOn == mFiltered) {
        return;
    }
    if (mState == dsInactive) {
        mFiltered = isOn;
        return;
    }
    if (!EndChanges()) {
        return;
    }
    const TBookmark place = GetBookmark();
    mFiltered = isOn;
    const Classes::TComponentWatch watch(this);
    try {
        mView = FilterRecords();
    } catch (...) {
        if (watch.IsAlive()) {
            mFiltered = !isOn;
        }
        throw;
    }
    PlaceCursor(place.key);
    Notify(deDataSetChange);
}

void TDataSet::GetChildren(const Classes::TGetChildProc& proc, Classes::TComponent* root)
{
    for (auto* const field : mFields) {
        if (!field->mIsDefault && field->getOwner() == root) {
            proc(field);
        }
    }
}

} // namespace Db
