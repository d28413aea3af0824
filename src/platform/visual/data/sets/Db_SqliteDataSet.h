// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/data/sets/Db_DataSet.h"
#include "platform/visual/data/sets/Db_SqliteDatabase.h"

#include <map>

namespace Db
{

/// The records of a table of a `TSqliteDatabase`, or of a query. Those of a table can be changed, unless it
/// is a view or has no row numbers; each change is stored as it is posted. Names and values are never pasted
/// into statements.
///
/// Columns are shown by how they were declared: `DATE`, `TIME`, `DATETIME`, `BOOLEAN`, `INT`, `INTEGER`,
/// `BIGINT`, `VARCHAR(20)`, `TEXT`, `CLOB`, `BLOB`, `REAL` and the like, and expressions by the value in the
/// first record. Points in time are stored as text such as "2022-02-28 12:30:00"; numbers are read as Julian
/// days, or as seconds since 1970 if they are whole. A value that isn't what its column says is kept as it
/// is.
///
///     auto* const samples = new Db::TSqliteDataSet(form);
///     samples->setDatabase(database);
///     samples->setTableName(u"samples");
///     samples->Open();
class TRS8_BTL_API TSqliteDataSet : public TDataSet
{
    TRS8_BTL_CLASS(TSqliteDataSet, TDataSet)

public:
    explicit TSqliteDataSet(Classes::TComponent* owner = nullptr);
    ~TSqliteDataSet() override;

    /// Opened with the set; not owned, null at first. None of these can be changed while the set is open.
    TSqliteDatabase* getDatabase() const noexcept { return mDatabase; }
    void setDatabase(TSqliteDatabase* database);
    const System::UnicodeString& getTableName() const noexcept { return mTableName; }
    void setTableName(const System::UnicodeString& name);
    /// One statement that only reads, which counts where there is no table.
    const System::UnicodeString& getSQL() const noexcept { return mSQL; }
    void setSQL(const System::UnicodeString& sql);
    /// The value for `:name` in the statement, or for the parameter without a name of that number, as "1".
    void setParam(const System::UnicodeString& name, const System::Variant& value);

protected:
    void OpenStore() override;
    TRecords ReadStore() override;
    void CloseStore(TRecords records) noexcept override;
    bool IsStoreWritable() const override;
    void InsertIntoStore(TRecord& record) override;
    void UpdateInStore(TRecord& record, const TRecord& before) override;
    void DeleteFromStore(const TRecord& record) override;

private:
    friend class TSqliteDatabase;

    void LeaveDatabase();
    void FindRowId();
    System::UnicodeString GetStatement() const;
    std::shared_ptr<CSqliteStatement> Prepare() const;
    void DefineColumns();
    void ReadValues(const CSqliteStatement& statement, TRecord& record) const;
    void ReadBack(TRecord& record, System::Int64 rowId) const;
    System::UnicodeString NameOf(std::size_t column) const;
    System::Variant StoredValue(const TRecord& record, std::size_t column) const;
    void RunFor(const System::UnicodeString& sql, const TRecord& record,
                const std::vector<std::size_t>& columns, const System::Int64* rowId) const;

    TSqliteDatabase* mDatabase = nullptr;
    std::shared_ptr<CSqliteConnection> mConnection;
    System::UnicodeString mTableName;
    System::UnicodeString mSQL;
    std::map<System::UnicodeString, System::Variant> mParams;
    /// The name by which the table gives its row numbers; empty if it has none.
    System::UnicodeString mRowIdName;
    /// The column that is the row number itself; -1 for none.
    int mRowIdColumn = -1;
};

} // namespace Db
