// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Component.h"
#include "platform/runtime/variants/System_Variant.h"
#include "platform/visual/data/sets/Db_FieldDefs.h"
#include "platform/visual/data/sets/Db_Types.h"

#include <memory>
#include <span>
#include <vector>

namespace Db
{

class TDataSource;

/// A record as a data set holds it.
struct TRecord
{
    /// Its own within its set, not 0.
    System::Int64 key = 0;
    /// One for each of the set's field definitions; Empty where none was ever given.
    std::vector<System::Variant> values;
    /// The values of calculated fields, once they are asked for.
    std::vector<System::Variant> calculated;
    bool isCalculated = false;
};

/// The records of a data set, in their order. What is in the list is changed by putting another record in its
/// place.
using TRecords = std::vector<std::shared_ptr<TRecord>>;

/// Records with fields, one of which is at hand: it is shown, and can be changed. All records are read when
/// the set opens. A change is made in a copy of the record, which `Post` brings into the store; going to
/// another record posts it too, or cancels it if nothing was changed.
///
/// What needs an open set, one with records, one that can be changed or one that is being changed, raises
/// `EDatabaseError` without. The handler of an event may raise, close the set or destroy it: the operation
/// then ends where it is. `Before...` events that raise keep it from being done.
///
///     for (dataSet->First(); !dataSet->getEof(); dataSet->Next()) {
///         total += dataSet->FieldByName(u"Voltage")->getAsFloat();
///     }
///     dataSet->Append();
///     dataSet->FieldByName(u"Voltage")->setAsFloat(12.5);
///     dataSet->Post();
class TRS8_BTL_API TDataSet : public Classes::TComponent
{
    TRS8_BTL_CLASS(TDataSet, Classes::TComponent)

public:
    explicit TDataSet(Classes::TComponent* owner = nullptr);
    /// Closes; what isn't posted is lost.
    ~TDataSet() override;

    /// Opening reads the fields and records, and goes to the first one; what fails leaves the set closed.
    /// Closing gives up what isn't posted. Nothing happens if it is so already.
    void Open() { setActive(true); }
    void Close() { setActive(false); }
    bool getActive() const noexcept;
    /// While a form's design is read, the set opens at its end.
    void setActive(bool isActive);
    TDataSetState getState() const noexcept { return mState; }
    /// Whether the record at hand was changed since it is edited.
    bool getModified() const noexcept { return mModified; }
    /// Whether records can be changed; false while closed.
    bool getCanModify() const { return getActive() && !mReadOnly && IsStoreWritable(); }
    /// Keeps records from being changed; off at first.
    bool getReadOnly() const noexcept { return mReadOnly; }
    void setReadOnly(bool isReadOnly);

    // Going from record to record.

    void First();
    void Last();
    /// Beyond the last record, or in front of the first, only `Eof`, or `Bof`, becomes true.
    void Next() { MoveBy(1); }
    void Prior() { MoveBy(-1); }
    /// How far it went, which is less at the ends.
    int MoveBy(int distance);
    /// Whether one tried to go beyond; also after `First`, or `Last`, and where there are no records.
    bool getBof() const noexcept { return mBof; }
    bool getEof() const noexcept { return mEof; }
    /// From 1; 0 without a record. A new one that isn't posted has the number that it would get.
    int getRecNo() const;
    /// Goes there; `EDatabaseError` out of range.
    void setRecNo(int number);
    /// How many can be seen; 0 while closed. A new one that isn't posted isn't counted.
    int getRecordCount() const noexcept;
    bool IsEmpty() const noexcept { return getRecordCount() == 0; }

    /// The record at hand, to come back to; none without a record.
    TBookmark GetBookmark() const;
    /// `EDatabaseError` if the record can't be seen any more.
    void GotoBookmark(TBookmark bookmark);
    bool BookmarkValid(TBookmark bookmark) const;
    /// Below, above or 0 as the first stands in front of the second, behind it, or is the same.
    int CompareBookmarks(TBookmark first, TBookmark second) const;

    /// Goes to the first record whose fields, named with `;` between them, have these values: one for one
    /// field, an array for several. False if there is none, and then it stays.
    bool Locate(const System::UnicodeString& keyFields, const System::Variant& keyValues,
                const TLocateOptions& options = {});
    /// The values of `resultFields` in the record that `Locate` would find; Null if there is none.
    System::Variant Lookup(const System::UnicodeString& keyFields, const System::Variant& keyValues,
                           const System::UnicodeString& resultFields);
    /// Has the fields take the values of a search, which begin empty; `GotoKey` goes to the first record with
    /// those that were given, and is false if there is none. `Cancel` ends it.
    void SetKey();
    bool GotoKey();

    // Changing records.

    /// A new record in front of the one at hand, or behind all.
    void Insert();
    void Append();
    /// Without records, makes a new one.
    void Edit();
    /// Brings the record into the store; fields that are required need a value.
    void Post();
    void Cancel();
    /// Deletes the record at hand, or cancels a new one.
    void Delete();
    /// As `Append` and `Post`, with these values for the first fields.
    void AppendRecord(std::span<const System::Variant> values);
    /// Lets controls bring what the user typed into the fields, if the record is being changed.
    void UpdateRecord();
    /// Posts or cancels what is being changed.
    void CheckBrowseMode();
    /// Reads the records anew and stays at the one at hand. What fails leaves those that there are.
    void Refresh();
    /// Takes the values of all fields away; the record must be in edit.
    void ClearFields();

    // Fields.

    int getFieldCount() const noexcept { return static_cast<int>(mFields.size()); }
    /// The field at the 0-based index; `Classes::EListError` for one out of range.
    TField* getFields(int index) const;
    /// The field of that name, case aside; null if there is none.
    TField* FindField(const System::UnicodeString& name) const;
    /// As `FindField`, but raises `EDatabaseError` if there is none.
    TField* FieldByName(const System::UnicodeString& name) const;
    /// The fields named with `;` between them; `EDatabaseError` if one is missing.
    std::vector<TField*> GetFieldList(const System::UnicodeString& names) const;
    System::Variant getFieldValues(const System::UnicodeString& name) const;
    void setFieldValues(const System::UnicodeString& name, const System::Variant& value);
    /// The columns of the store.
    TFieldDefs* getFieldDefs() const noexcept { return mFieldDefs.get(); }
    void setFieldDefs(TFieldDefs* defs) { mFieldDefs->Assign(defs); }
    /// Another number whenever fields come or go, so that nobody holds one that is gone.
    System::Int64 getFieldsVersion() const noexcept { return mFieldsVersion; }

    // What controls see.

    /// Between the two, controls aren't told of anything; the last `EnableControls` has them catch up. They
    /// may be nested.
    void DisableControls() noexcept { ++mDisableLevel; }
    void EnableControls();
    bool ControlsDisabled() const noexcept { return mDisableLevel > 0; }
    /// Whether only those records are seen that `OnFilterRecord` accepts; off at first.
    bool getFiltered() const noexcept { return mFiltered; }
    void setFiltered(bool isOn);
    /// As `getRecordCount` and `getRecNo`, from 0, but with a new record that isn't posted.
    int GetShownCount() const noexcept;
    int GetShownIndex() const noexcept { return mCursor; }
    /// Has the fields give the values of another record to be shown; -1 for the one at hand.
    void SetReadIndex(int shownIndex) noexcept { mReadIndex = shownIndex; }
    int GetReadIndex() const noexcept { return mReadIndex; }
    /// The bookmark of a record to be shown; none for a new one or out of range.
    TBookmark GetBookmarkAt(int shownIndex) const;

    void Loaded() override;

    TDataSetNotifyEvent BeforeOpen;
    TDataSetNotifyEvent AfterOpen;
    TDataSetNotifyEvent BeforeClose;
    TDataSetNotifyEvent AfterClose;
    TDataSetNotifyEvent BeforeInsert;
    TDataSetNotifyEvent AfterInsert;
    TDataSetNotifyEvent BeforeEdit;
    TDataSetNotifyEvent AfterEdit;
    TDataSetNotifyEvent BeforePost;
    TDataSetNotifyEvent AfterPost;
    TDataSetNotifyEvent BeforeCancel;
    TDataSetNotifyEvent AfterCancel;
    TDataSetNotifyEvent BeforeDelete;
    TDataSetNotifyEvent AfterDelete;
    TDataSetNotifyEvent BeforeRefresh;
    TDataSetNotifyEvent AfterRefresh;
    TDataSetNotifyEvent BeforeScroll;
    TDataSetNotifyEvent AfterScroll;
    /// Sets the values of calculated fields, and no others.
    TDataSetNotifyEvent OnCalcFields;
    /// Gives a new record its first values, which don't count as a change.
    TDataSetNotifyEvent OnNewRecord;
    TFilterRecordEvent OnFilterRecord;
    TDataSetErrorEvent OnEditError;
    TDataSetErrorEvent OnPostError;
    TDataSetErrorEvent OnDeleteError;

protected:
    // The store. Each of these raises `EDatabaseError` for what it can't do.

    /// Connects to the store and describes its columns in `FieldDefs`.
    virtual void OpenStore() = 0;
    /// All records; called with the set open also by `Refresh`.
    virtual TRecords ReadStore() = 0;
    /// Lets the store go; `records` are those that there were. Called for a store that failed to open, too.
    virtual void CloseStore(TRecords records) noexcept = 0;
    virtual bool IsStoreWritable() const { return true; }
    /// Brings a new record in; gives it its key, and the values that the store sets itself.
    virtual void InsertIntoStore(TRecord& record) = 0;
    /// Changes what `before` was.
    virtual void UpdateInStore(TRecord& record, const TRecord& before) = 0;
    virtual void DeleteFromStore(const TRecord& record) = 0;

    /// Closes without asking or telling anybody but the controls.
    void CloseQuietly() noexcept;
    /// To be called by the destructor of a class with a store.
    void CloseForEnd() noexcept;
    const TRecords& GetRecords() const noexcept { return mRecords; }
    /// Shows other records than those that there are; false if the set is closed or gone then.
    bool ReplaceRecords(TRecords records);
    void CheckInactive() const;
    /// Raises unless records can be gone through, read and changed.
    void CheckActive() const;
    /// Tells the data sources; false if the set is gone then.
    bool Notify(TDataEvent event, TField* field = nullptr);
    void GetChildren(const Classes::TGetChildProc& proc, Classes::TComponent* root) override;
    [[noreturn]] void RaiseError(const System::UnicodeString& reason) const;

private:
    friend class TDataSource;
    friend class TField;

    class CStateScope;

    // What a handler may have ended gives false: the caller then leaves everything alone.

    bool Tell(const TDataSetNotifyEvent& event);
    bool OpenNow();
    bool CloseNow();
    void ReleaseStore() noexcept;
    bool EndChanges();
    bool LetUpdate();
    bool MoveCursor(int target, bool isBof, bool isEof);
    bool PostNow();
    bool CancelNow();
    bool StartChange(TDataSetState state, const TDataSetNotifyEvent& before);
    bool FinishChange();
    bool AddRecord(bool atEnd);
    template <class Action>
    bool Attempt(const Action& action, const TDataSetErrorEvent& onError);
    bool EnterBrowse();
    void StorePosted();
    void RemoveCurrent();
    void CheckRequired() const;
    void CheckCanModify() const;

    // Fields.

    void BindFields();
    void BindField(TField& field);
    void AddDefaultFields();
    void ReleaseFields() noexcept;
    void AttachField(TField& field);
    void DetachField(TField& field) noexcept;
    int IndexOfField(const TField& field) const noexcept;
    void MoveField(TField& field, int index);
    System::Variant ReadValue(const TField& field);
    System::Variant ReadOldValue(const TField& field);
    void CheckSettable(const TField& field) const;
    void WriteValue(TField& field, const System::Variant& value);
    System::Variant ValueIn(const std::shared_ptr<TRecord>& record, const TField& field);
    void Calculate(const std::shared_ptr<TRecord>& record);

    // Records.

    TRecords& View() noexcept { return mFiltered ? mView : mRecords; }
    const TRecords& View() const noexcept { return mFiltered ? mView : mRecords; }
    std::shared_ptr<TRecord> RecordAt(int shownIndex) const;
    std::shared_ptr<TRecord> RecordToRead() const;
    std::shared_ptr<TRecord> NewRecord() const;
    bool IsAccepted(const std::shared_ptr<TRecord>& record);
    TRecords FilterRecords();
    int FindKey(System::Int64 key) const noexcept;
    int FindValues(const System::UnicodeString& keyFields, const System::Variant& keyValues,
                   const TLocateOptions& options);
    void PlaceCursor(System::Int64 key);

    std::vector<TField*> mFields;
    std::vector<TDataSource*> mDataSources;
    std::unique_ptr<TFieldDefs> mFieldDefs;
    TRecords mRecords;
    /// Those of them that the filter accepts, while it is on.
    TRecords mView;
    /// The record that is edited, and what it was.
    std::shared_ptr<TRecord> mBuffer;
    std::shared_ptr<TRecord> mBefore;
    /// The record that is calculated or filtered.
    std::shared_ptr<TRecord> mInspected;
    System::Int64 mFieldsVersion = 0;
    TDataSetState mState = dsInactive;
    int mCursor = 0;
    int mReadIndex = -1;
    int mCalculatedCount = 0;
    int mDisableLevel = 0;
    bool mBof = true;
    bool mEof = true;
    bool mModified = false;
    bool mReadOnly = false;
    bool mFiltered = false;
    bool mIsToOpen = false;
    bool mWasTold = true;
};

} // namespace Db
