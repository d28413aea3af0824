// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/data/sets/Db_DataSet.h"

namespace Db
{

/// Records that are held in memory. They stay when the set closes, and go with it. Its columns are those of
/// `FieldDefs`, or if these are none those of the fields of a form's design; a column whose name stays keeps
/// its values when the others change.
///
///     Db::TMemoryDataSet measurements;
///     measurements.getFieldDefs()->Add(u"Channel", Db::ftWideString, 20);
///     measurements.getFieldDefs()->Add(u"Voltage", Db::ftFloat);
///     measurements.Open();
///     const System::Variant first[] = {u"Anode", 12.5};
///     measurements.AppendRecord(first);
class TRS8_BTL_API TMemoryDataSet : public TDataSet
{
    TRS8_BTL_CLASS(TMemoryDataSet, TDataSet)

public:
    explicit TMemoryDataSet(Classes::TComponent* owner = nullptr);
    ~TMemoryDataSet() override;

    /// Destroys all records, whether the set is open or not; a record that is edited is given up.
    void EmptyDataSet();

protected:
    void OpenStore() override;
    TRecords ReadStore() override;
    void CloseStore(TRecords records) noexcept override;
    void InsertIntoStore(TRecord& record) override;
    void UpdateInStore(TRecord& record, const TRecord& before) override;
    void DeleteFromStore(const TRecord& record) override;

private:
    void DefineByFields();
    void FitKeptRecords();

    /// The records while the set is closed, and the columns that they have.
    TRecords mKept;
    std::vector<System::UnicodeString> mColumns;
    System::Int64 mLastKey = 0;
};

} // namespace Db
