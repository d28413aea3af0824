// SPDX-License-Identifier: MIT
#include "platform/visual/data/sets/Db_SqliteDataSet.h"

#include "platform/runtime/sysutils/Sysutils_Text.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/visual/data/sets/internal/Db_Sqlite.h"
#include "platform/visual/data/sets/internal/Db_SqliteTypes.h"

#include <algorithm>
#include <limits>

namespace Db
{

using System::Int64;
using System::UnicodeString;
using System::Variant;

namespace
{

/// The key of a record by its row number, and back: 0, which no key is, changes places with the lowest one.
Int64 KeyOfRow(Int64 row) noexcept
{
    constexpr Int64 Lowest = std::numeric_limits<Int64>::min();
    return row == 0 ? Lowest : row == Lowest ? 0 : row;
}

/// "a, b" of the names; `each` makes one of a column.
template <class Each>
UnicodeString Join(const std::vector<std::size_t>& columns, Each each)
{
    UnicodeString text;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        text += (i == 0 ? UnicodeString() : UnicodeString(u", ")) + each(columns[i]);
    }
    return text;
}

bool IsSame(const Variant& a, const Variant& b)
{
    return a.Type() == b.Type() && a == b;
}

} // namespace

System::TMetaClass* TSqliteDataSet::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TSqliteDataSet>(u"TSqliteDataSet")
            .Property(u"Database", &TSqliteDataSet::getDatabase, &TSqliteDataSet::setDatabase)
            .Property(u"SQL", &TSqliteDataSet::getSQL, &TSqliteDataSet::setSQL)
            .Property(u"TableName", &TSqliteDataSet::getTableName, &TSqliteDataSet::setTableName)
            .Build();
    return record;
}

TSqliteDataSet::TSqliteDataSet(Classes::TComponent* owner) : TDataSet(owner) {}

TSqliteDataSet::~TSqliteDataSet()
{
    CloseForEnd();
    if (mDatabase != nullptr) {
        std::erase(mDatabase->mDataSets, this);
    }
}

void TSqliteDataSet::setDatabase(TSqliteDatabase* database)
{
    CheckInactive();
    if (mDatabase != nullptr) {
        std::erase(mDatabase->mDataSets, this);
    }
    mDatabase = database;
    if (database != nullptr) {
        database->mDataSets.push_back(this);
    }
}

void TSqliteDataSet::LeaveDatabase()
{
    mDatabase = nullptr;
    // Nobody can keep the database from its end.
    CloseQuietly();
}

void TSqliteDataSet::setTableName(const UnicodeString& name)
{
    CheckInactive();
    mTableName = name;
}

void TSqliteDataSet::setSQL(const UnicodeString& sql)
{
    CheckInactive();
    mSQL = sql;
}

void TSqliteDataSet::setParam(const UnicodeString& name, const Variant& value)
{
    CheckInactive();
    mParams[name] = value;
}

bool TSqliteDataSet::IsStoreWritable() const
{
    return !mRowIdName.IsEmpty() && mDatabase != nullptr && !mDatabase->getReadOnly();
}

UnicodeString TSqliteDataSet::GetStatement() const
{
    if (mTableName.IsEmpty()) {
        return mSQL;
    }
    const UnicodeString table = QuotedName(mTableName);
    return mRowIdName.IsEmpty() ? u"SELECT * FROM " + table
                                : u"SELECT *, " + mRowIdName + u" FROM " + table + u" ORDER BY " + mRowIdName;
}

void TSqliteDataSet::FindRowId()
{
    mRowIdName = UnicodeString();
    mRowIdColumn = -1;
    CSqliteStatement kind(mConnection,
                          u"SELECT type, wr FROM pragma_table_list WHERE name = ? COLLATE NOCASE");
    kind.Bind(1, mTableName);
    if (!kind.Step()) {
        RaiseError(u"There is no table \"" + mTableName + u"\" (" + mDatabase->getFileName() + u")");
    }
    const bool hasRows = kind.GetColumn(0).As<UnicodeString>() == u"table" && !kind.GetColumn(1).As<bool>();
    if (!hasRows) {
        return;
    }
    // A column of that name hides the row number.
    std::vector<UnicodeString> names{u"rowid", u"_rowid_", u"oid"};
    CSqliteStatement columns(mConnection, u"SELECT name, type, pk FROM pragma_table_info(?)");
    columns.Bind(1, mTableName);
    int keyCount = 0;
    for (int i = 0; columns.Step(); ++i) {
        const UnicodeString name = columns.GetColumn(0).As<UnicodeString>();
        std::erase_if(names, [&](const UnicodeString& other) { return Sysutils::SameText(name, other); });
        if (columns.GetColumn(2).As<int>() > 0) {
            ++keyCount;
            mRowIdColumn = Sysutils::SameText(columns.GetColumn(1).As<UnicodeString>(), u"INTEGER") ? i : -1;
        }
    }
    mRowIdColumn = keyCount == 1 ? mRowIdColumn : -1;
    mRowIdName = names.empty() ? UnicodeString() : names.front();
}

std::shared_ptr<CSqliteStatement> TSqliteDataSet::Prepare() const
{
    const UnicodeString sql = GetStatement();
    auto statement = std::make_shared<CSqliteStatement>(mConnection, sql.AsView());
    const bool isOne = Sysutils::Trim(UnicodeString(statement->GetTail())).IsEmpty();
    if (statement->IsBlank() || !isOne || !statement->IsReadOnly() || statement->GetColumnCount() == 0) {
        RaiseError(u"A data set needs one statement that only reads: " + sql.SubString(1, 100));
    }
    for (int i = 1; i <= statement->GetParameterCount(); ++i) {
        const auto found = mParams.find(statement->GetParameterName(i));
        if (found == mParams.end()) {
            RaiseError(u"There is no value for the parameter \"" + statement->GetParameterName(i) + u"\".");
        }
        statement->Bind(i, ToSqlite(found->second, ftDateTime));
    }
    return statement;
}

void TSqliteDataSet::DefineColumns()
{
    const auto statement = Prepare();
    const int count = statement->GetColumnCount() - (mRowIdName.IsEmpty() ? 0 : 1);
    bool isAtFirst = false;
    bool hasFirst = false;
    getFieldDefs()->Clear();
    for (int i = 0; i < count; ++i) {
        int size = 0;
        TFieldType type = TypeOfDeclaration(statement->GetDeclaredType(i), size);
        if (type == ftUnknown) {
            hasFirst = isAtFirst ? hasFirst : statement->Step();
            isAtFirst = true;
            type = hasFirst ? TypeOfValue(statement->GetColumn(i)) : ftWideString;
        }
        // A query may give a name twice.
        const UnicodeString given = statement->GetColumnName(i);
        UnicodeString name = given.IsEmpty() ? UnicodeString(u"Column") : given;
        for (int number = 1; getFieldDefs()->IndexOf(name) >= 0; ++number) {
            name = given + u"_" + UnicodeString(number);
        }
        getFieldDefs()->Add(name, type, size);
    }
}

void TSqliteDataSet::OpenStore()
{
    if (mDatabase == nullptr) {
        RaiseError(u"The data set has no database.");
    }
    mConnection = mDatabase->NeedConnection();
    mRowIdName = UnicodeString();
    if (!mTableName.IsEmpty()) {
        FindRowId();
    }
    DefineColumns();
}

void TSqliteDataSet::ReadValues(const CSqliteStatement& statement, TRecord& record) const
{
    const int count = getFieldDefs()->GetCount();
    record.values.clear();
    for (int i = 0; i < count; ++i) {
        record.values.push_back(
            FromSqlite(statement.GetColumn(i), getFieldDefs()->getItems(i)->getDataType()));
    }
}

TRecords TSqliteDataSet::ReadStore()
{
    const auto statement = Prepare();
    const int columns = getFieldDefs()->GetCount();
    if (statement->GetColumnCount() != columns + (mRowIdName.IsEmpty() ? 0 : 1)) {
        RaiseError(u"The columns were changed since the data set was opened.");
    }
    TRecords records;
    while (statement->Step()) {
        auto record = std::make_shared<TRecord>();
        ReadValues(*statement, *record);
        record->key = mRowIdName.IsEmpty() ? static_cast<Int64>(records.size()) + 1
                                           : KeyOfRow(statement->GetColumn(columns).As<Int64>());
        records.push_back(std::move(record));
    }
    return records;
}

void TSqliteDataSet::CloseStore(TRecords) noexcept
{
    mConnection = nullptr;
}

UnicodeString TSqliteDataSet::NameOf(std::size_t column) const
{
    return QuotedName(getFieldDefs()->getItems(static_cast<int>(column))->getName());
}

Variant TSqliteDataSet::StoredValue(const TRecord& record, std::size_t column) const
{
    return ToSqlite(record.values[column], getFieldDefs()->getItems(static_cast<int>(column))->getDataType());
}

void TSqliteDataSet::RunFor(const UnicodeString& sql, const TRecord& record,
                            const std::vector<std::size_t>& columns, const Int64* rowId) const
{
    CSqliteStatement statement(mConnection, sql.AsView());
    int parameter = 0;
    for (const std::size_t column : columns) {
        statement.Bind(++parameter, StoredValue(record, column));
    }
    if (rowId != nullptr) {
        statement.Bind(++parameter, *rowId);
    }
    statement.Step();
    if (mConnection->GetChanges() == 0) {
        RaiseError(u"The record isn't in the table any more: somebody else changed or deleted it.");
    }
}

void TSqliteDataSet::ReadBack(TRecord& record, Int64 rowId) const
{
    record.key = KeyOfRow(rowId);
    // The change is stored; what the database made of it is seen later if it can't be read now.
    try {
        const UnicodeString sql =
            u"SELECT * FROM " + QuotedName(mTableName) + u" WHERE " + mRowIdName + u" = ?";
        CSqliteStatement statement(mConnection, sql.AsView());
        statement.Bind(1, rowId);
        if (statement.Step()) {
            ReadValues(statement, record);
        }
    } catch (const EDatabaseError&) {
    }
}

void TSqliteDataSet::InsertIntoStore(TRecord& record)
{
    std::vector<std::size_t> given;
    for (std::size_t i = 0; i < record.values.size(); ++i) {
        if (!record.values[i].IsEmpty()) {
            given.push_back(i);
        }
    }
    const UnicodeString table = u"INSERT INTO " + QuotedName(mTableName);
    const UnicodeString names = Join(given, [&](std::size_t column) { return NameOf(column); });
    const UnicodeString marks = Join(given, [](std::size_t) { return UnicodeString(u"?"); });
    RunFor(given.empty() ? table + u" DEFAULT VALUES" : table + u" (" + names + u") VALUES (" + marks + u")",
           record, given, nullptr);
    ReadBack(record, mConnection->GetLastRowId());
}

void TSqliteDataSet::UpdateInStore(TRecord& record, const TRecord& before)
{
    std::vector<std::size_t> changed;
    for (std::size_t i = 0; i < record.values.size(); ++i) {
        if (!IsSame(record.values[i], before.values[i])) {
            changed.push_back(i);
        }
    }
    if (changed.empty()) {
        return;
    }
    const Int64 rowId = KeyOfRow(before.key);
    const UnicodeString sets = Join(changed, [&](std::size_t column) { return NameOf(column) + u" = ?"; });
    RunFor(u"UPDATE " + QuotedName(mTableName) + u" SET " + sets + u" WHERE " + mRowIdName + u" = ?", record,
           changed, &rowId);
    const bool isMoved =
        mRowIdColumn >= 0 && std::find(changed.begin(), changed.end(), mRowIdColumn) != changed.end();
    ReadBack(record, isMoved ? record.values[static_cast<std::size_t>(mRowIdColumn)].As<Int64>() : rowId);
}

void TSqliteDataSet::DeleteFromStore(const TRecord& record)
{
    const Int64 rowId = KeyOfRow(record.key);
    RunFor(u"DELETE FROM " + QuotedName(mTableName) + u" WHERE " + mRowIdName + u" = ?", record, {}, &rowId);
}

} // namespace Db
