// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Component.h"
#include "platform/visual/data/sets/Db_Types.h"

#include <memory>
#include <vector>

namespace Db
{

class TDataLink;
class TDataSource;

/// A field is told with it, or null for all.
using TDataChangeEvent = System::TClosure<void(System::TObject* sender, TField* field)>;

/// Where controls get their data from: it stands between them and a data set, so that both can be exchanged.
///
///     auto* const source = new Db::TDataSource(form);
///     source->setDataSet(measurements);
///     edit->setDataSource(source);
///     edit->setDataField(u"Voltage");
class TRS8_BTL_API TDataSource : public Classes::TComponent
{
    TRS8_BTL_CLASS(TDataSource, Classes::TComponent)

public:
    explicit TDataSource(Classes::TComponent* owner = nullptr);
    ~TDataSource() override;

    /// Not owned; null at first.
    TDataSet* getDataSet() const noexcept { return mDataSet; }
    void setDataSet(TDataSet* dataSet);
    /// Whether controls see the data; on at first. If not, they show nothing.
    bool getEnabled() const noexcept { return mEnabled; }
    void setEnabled(bool isEnabled);
    /// That of the data set, `dsInactive` without one and while it isn't enabled.
    TDataSetState getState() const noexcept { return mState; }
    /// Whether the record is edited as soon as the user changes what a control shows; on at first.
    bool getAutoEdit() const noexcept { return mAutoEdit; }
    void setAutoEdit(bool isOn) noexcept { mAutoEdit = isOn; }
    /// Has the record edited, if `AutoEdit` allows it and it is only shown.
    void Edit();

    void Notification(Classes::TComponent* component, Classes::TOperation operation) override;

    TDataChangeEvent OnDataChange;
    Classes::TNotifyEvent OnStateChange;
    /// What controls hold goes into the fields, because the record is to be posted.
    Classes::TNotifyEvent OnUpdateData;

private:
    friend class TDataLink;
    friend class TDataSet;

    bool UpdateState();
    bool TellLinks(TDataEvent event, TField* field);
    void DataEvent(TDataEvent event, TField* field);
    void ForgetDataSet() noexcept { mDataSet = nullptr; }

    std::vector<TDataLink*> mLinks;
    TDataSet* mDataSet = nullptr;
    TDataSetState mState = dsInactive;
    bool mEnabled = true;
    bool mAutoEdit = true;
};

/// What a control has to hear of its data source. It shows one record, or as many as its buffer holds from
/// one on. The control owns it; its source, and the set, may be destroyed at any time.
class TRS8_BTL_API TDataLink
{
public:
    TDataLink();
    TDataLink(const TDataLink&) = delete;
    TDataLink& operator=(const TDataLink&) = delete;
    virtual ~TDataLink();

    TDataSource* getDataSource() const noexcept { return mDataSource; }
    void setDataSource(TDataSource* dataSource);
    /// Null without a source, or if that has none.
    TDataSet* getDataSet() const noexcept;
    /// Whether the source is enabled and its set open.
    bool getActive() const noexcept { return mActive; }
    /// Whether the record is edited and the control may change it.
    bool getEditing() const noexcept { return mEditing; }
    bool getReadOnly() const noexcept { return mReadOnly; }
    void setReadOnly(bool isReadOnly);
    /// Has the record edited for the control, as the source allows it; whether it is then.
    bool Edit();
    /// Has the control bring what it holds into its field, without being told of that field.
    void UpdateRecord();

    // The records that it shows, from 0.

    /// How many it shows at most; 1 at first, and at least.
    int getBufferCount() const noexcept { return mBufferCount; }
    void setBufferCount(int count);
    /// How many it shows.
    int getRecordCount() const noexcept;
    /// The place of the record at hand among them.
    int getActiveRecord() const noexcept;
    /// The number of the first one within the set, from 0.
    int getFirstRecord() const noexcept { return mFirst; }
    /// As `TDataSet::MoveBy`; 0 without an open set.
    int MoveBy(int distance);
    bool getBof() const noexcept;
    bool getEof() const noexcept;

protected:
    virtual void ActiveChanged() {}
    virtual void CheckBrowseMode() {}
    virtual void DataSetChanged() { RecordChanged(nullptr); }
    /// The records shown moved by so many.
    virtual void DataSetScrolled(int) { DataSetChanged(); }
    virtual void EditingChanged() {}
    virtual void LayoutChanged() { DataSetChanged(); }
    virtual void RecordChanged(TField*) {}
    /// What the control holds has to go into its field.
    virtual void UpdateData() {}

    /// Ends with the link, for those who call what may end it.
    std::weak_ptr<const bool> GetLife() const noexcept { return mLife; }

private:
    friend class TDataSource;

    void UpdateState();
    void DataEvent(TDataEvent event, TField* field);
    /// Has the record at hand among those shown; how far they moved for that.
    int FollowCursor() noexcept;

    TDataSource* mDataSource = nullptr;
    std::shared_ptr<const bool> mLife = std::make_shared<const bool>(true);
    int mBufferCount = 1;
    int mFirst = 0;
    bool mActive = false;
    bool mEditing = false;
    bool mReadOnly = false;
    bool mIsUpdating = false;
};

/// A field of a data set by its name, found anew whenever the set's fields are others.
class TRS8_BTL_API CFieldReference
{
public:
    const System::UnicodeString& getName() const noexcept { return mName; }
    void setName(const System::UnicodeString& name);
    /// Null if the set, which may be null, has no such field.
    TField* Find(const TDataSet* dataSet) const;

private:
    System::UnicodeString mName;
    mutable const TDataSet* mDataSet = nullptr;
    mutable System::Int64 mVersion = -1;
    mutable TField* mField = nullptr;
};

} // namespace Db
