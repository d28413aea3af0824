// SPDX-License-Identifier: MIT
#include "platform/visual/data/sets/Db_DataSource.h"

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/visual/data/sets/Db_DataSet.h"
#include "platform/visual/forms/Forms_Application.h"

#include <algorithm>

namespace Db
{

System::TMetaClass* TDataSource::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TDataSource>(u"TDataSource")
            .Property(u"AutoEdit", &TDataSource::getAutoEdit, &TDataSource::setAutoEdit, {.defaultValue = 1})
            .Property(u"DataSet", &TDataSource::getDataSet, &TDataSource::setDataSet)
            .Property(u"Enabled", &TDataSource::getEnabled, &TDataSource::setEnabled, {.defaultValue = 1})
            .Property(u"OnDataChange", &TDataSource::OnDataChange)
            .Property(u"OnStateChange", &TDataSource::OnStateChange)
            .Property(u"OnUpdateData", &TDataSource::OnUpdateData)
            .Build();
    return record;
}

TDataSource::TDataSource(Classes::TComponent* owner) : Classes::TComponent(owner) {}

TDataSource::~TDataSource()
{
    Destroying();
    OnStateChange = nullptr;
    // What shows the data may tell handlers that raise.
    Forms::Application->RunHandled([this] { setDataSet(nullptr); });
    while (!mLinks.empty()) {
        Forms::Application->RunHandled([this] { mLinks.back()->setDataSource(nullptr); });
    }
}

void TDataSource::setDataSet(TDataSet* dataSet)
{
    if (dataSet == mDataSet) {
        return;
    }
    if (mDataSet != nullptr) {
        std::erase(mDataSet->mDataSources, this);
        mDataSet->RemoveFreeNotification(this);
        mDataSet = nullptr;
        // What showed the old set must not take the new one for it.
        if (!UpdateState()) {
            return;
        }
    }
    if (dataSet != nullptr) {
        mDataSet = dataSet;
        dataSet->mDataSources.push_back(this);
        dataSet->FreeNotification(this);
        UpdateState();
    }
}

void TDataSource::setEnabled(bool isEnabled)
{
    mEnabled = isEnabled;
    UpdateState();
}

void TDataSource::Edit()
{
    if (mAutoEdit && mState == dsBrowse) {
        mDataSet->Edit();
    }
}

void TDataSource::Notification(Classes::TComponent* component, Classes::TOperation operation)
{
    TComponent::Notification(component, operation);
    if (operation == Classes::opRemove && component == mDataSet) {
        // Its sources are told when it closes, so that it isn't asked for anything here.
        mDataSet = nullptr;
        UpdateState();
    }
}

bool TDataSource::TellLinks(TDataEvent event, TField* field)
{
    const Classes::TComponentWatch watch(this);
    const auto links = mLinks;
    for (auto* const link : links) {
        if (!watch.IsAlive()) {
            return false;
        }
        if (std::find(mLinks.begin(), mLinks.end(), link) != mLinks.end()) {
            link->DataEvent(event, field);
        }
    }
    return watch.IsAlive();
}

bool TDataSource::UpdateState()
{
    const TDataSetState state = mEnabled && mDataSet != nullptr ? mDataSet->getState() : dsInactive;
    if (state == mState) {
        return true;
    }
    mState = state;
    if (!TellLinks(deUpdateState, nullptr)) {
        return false;
    }
    const Classes::TComponentWatch watch(this);
    if (OnStateChange) {
        OnStateChange(this);
    }
    return watch.IsAlive();
}

void TDataSource::DataEvent(TDataEvent event, TField* field)
{
    if (event == deUpdateState) {
        UpdateState();
        return;
    }
    if (mState == dsInactive || !TellLinks(event, field) || mState == dsInactive) {
        return;
    }
    if (event == deUpdateRecord) {
        if (OnUpdateData) {
            OnUpdateData(this);
        }
    } else if (event != deCheckBrowseMode && OnDataChange) {
        OnDataChange(this, field);
    }
}

TDataLink::TDataLink() = default;

TDataLink::~TDataLink()
{
    if (mDataSource != nullptr) {
        std::erase(mDataSource->mLinks, this);
    }
}

TDataSet* TDataLink::getDataSet() const noexcept
{
    return mDataSource == nullptr ? nullptr : mDataSource->getDataSet();
}

void TDataLink::setDataSource(TDataSource* dataSource)
{
    if (dataSource == mDataSource) {
        return;
    }
    if (mDataSource != nullptr) {
        std::erase(mDataSource->mLinks, this);
        mDataSource = nullptr;
        const std::weak_ptr<const bool> life = mLife;
        UpdateState();
        if (life.expired()) {
            return;
        }
    }
    if (dataSource != nullptr) {
        mDataSource = dataSource;
        dataSource->mLinks.push_back(this);
        UpdateState();
    }
}

void TDataLink::setReadOnly(bool isReadOnly)
{
    mReadOnly = isReadOnly;
    UpdateState();
}

bool TDataLink::Edit()
{
    const std::weak_ptr<const bool> life = mLife;
    if (!mEditing && !mReadOnly && mDataSource != nullptr) {
        mDataSource->Edit();
    }
    return !life.expired() && mEditing;
}

void TDataLink::UpdateRecord()
{
    const std::weak_ptr<const bool> life = mLife;
    mIsUpdating = true;
    const auto finish = [&] {
        if (!life.expired()) {
            mIsUpdating = false;
        }
    };
    try {
        UpdateData();
    } catch (...) {
        finish();
        throw;
    }
    finish();
}

void TDataLink::setBufferCount(int count)
{
    mBufferCount = std::max(count, 1);
    FollowCursor();
}

int TDataLink::getRecordCount() const noexcept
{
    return mActive ? std::clamp(getDataSet()->GetShownCount() - mFirst, 0, mBufferCount) : 0;
}

int TDataLink::getActiveRecord() const noexcept
{
    return mActive ? std::clamp(getDataSet()->GetShownIndex() - mFirst, 0, mBufferCount - 1) : 0;
}

int TDataLink::MoveBy(int distance)
{
    return mActive ? getDataSet()->MoveBy(distance) : 0;
}

bool TDataLink::getBof() const noexcept
{
    return !mActive || getDataSet()->getBof();
}

bool TDataLink::getEof() const noexcept
{
    return !mActive || getDataSet()->getEof();
}

int TDataLink::FollowCursor() noexcept
{
    if (!mActive) {
        return 0;
    }
    const int cursor = getDataSet()->GetShownIndex();
    const int last = std::max(getDataSet()->GetShownCount() - mBufferCount, 0);
    const int first = std::min(std::clamp(mFirst, cursor - mBufferCount + 1, cursor), std::max(last, 0));
    return std::exchange(mFirst, first) - first;
}

void TDataLink::UpdateState()
{
    const TDataSetState state = mDataSource == nullptr ? dsInactive : mDataSource->getState();
    const std::weak_ptr<const bool> life = mLife;
    const bool isActive = state != dsInactive && state != dsOpening;
    const bool isEditing = IsEditState(state) && !mReadOnly;
    const bool wasEditing = std::exchange(mEditing, isEditing);
    if (isActive != mActive) {
        mActive = isActive;
        mFirst = 0;
        FollowCursor();
        ActiveChanged();
    }
    if (!life.expired() && isEditing != wasEditing) {
        EditingChanged();
    }
}

void TDataLink::DataEvent(TDataEvent event, TField* field)
{
    if (event == deUpdateState) {
        return UpdateState();
    }
    if (!mActive) {
        return;
    }
    const int moved = FollowCursor();
    switch (event) {
    case deFieldChange:
    case deRecordChange:
        if (!mIsUpdating) {
            RecordChanged(field);
        }
        break;
    case deDataSetChange:
        DataSetChanged();
        break;
    case deDataSetScroll:
        DataSetScrolled(moved);
        break;
    case deLayoutChange:
        LayoutChanged();
        break;
    case deUpdateRecord:
        UpdateRecord();
        break;
    case deCheckBrowseMode:
        CheckBrowseMode();
        break;
    case deUpdateState:
        break;
    }
}

void CFieldReference::setName(const System::UnicodeString& name)
{
    mName = name;
    mVersion = -1;
}

TField* CFieldReference::Find(const TDataSet* dataSet) const
{
    if (dataSet == nullptr || mName.IsEmpty()) {
        return nullptr;
    }
    if (dataSet != mDataSet || dataSet->getFieldsVersion() != mVersion) {
        mDataSet = dataSet;
        mVersion = dataSet->getFieldsVersion();
        mField = dataSet->FindField(mName);
    }
    return mField;
}

} // namespace Db
