// SPDX-License-Identifier: MIT
#include "platform/visual/data/sets/Db_SqliteDatabase.h"

#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/visual/data/sets/Db_SqliteDataSet.h"
#include "platform/visual/data/sets/internal/Db_Sqlite.h"
#include "platform/visual/data/sets/internal/Db_SqliteTypes.h"

#include <algorithm>

namespace Db
{

using System::UnicodeString;

System::TMetaClass* TSqliteDatabase::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TSqliteDatabase>(u"TSqliteDatabase")
            .Property(u"BusyTimeout", &TSqliteDatabase::getBusyTimeout, &TSqliteDatabase::setBusyTimeout,
                      {.defaultValue = 1000})
            .Property(u"FileName", &TSqliteDatabase::getFileName, &TSqliteDatabase::setFileName)
            .Property(u"ReadOnly", &TSqliteDatabase::getReadOnly, &TSqliteDatabase::setReadOnly,
                      {.defaultValue = 0})
            .Property(u"Connected", &TSqliteDatabase::getConnected, &TSqliteDatabase::setConnected,
                      {.defaultValue = 0})
            .Build();
    return record;
}

ESqliteError::~ESqliteError() = default;

TSqliteDatabase::TSqliteDatabase(Classes::TComponent* owner) : Classes::TComponent(owner) {}

TSqliteDatabase::~TSqliteDatabase()
{
    Destroying();
    for (auto* const dataSet : std::exchange(mDataSets, {})) {
        dataSet->LeaveDatabase();
    }
}

void TSqliteDatabase::CheckClosed() const
{
    if (mConnection != nullptr) {
        throw EDatabaseError(u"This can't be done while the database is open (" + mFileName + u")");
    }
}

void TSqliteDatabase::setFileName(const UnicodeString& fileName)
{
    CheckClosed();
    mFileName = fileName;
}

void TSqliteDatabase::setReadOnly(bool isReadOnly)
{
    CheckClosed();
    mReadOnly = isReadOnly;
}

void TSqliteDatabase::setBusyTimeout(int milliseconds)
{
    mBusyTimeout = std::max(milliseconds, 0);
    if (mConnection != nullptr) {
        mConnection->SetBusyTimeout(mBusyTimeout);
    }
}

void TSqliteDatabase::setConnected(bool isConnected)
{
    if (getComponentState().Contains(Classes::csLoading)) {
        mIsToOpen = isConnected;
    } else if (!isConnected) {
        CloseSets();
        mConnection = nullptr;
    } else {
        NeedConnection();
    }
}

void TSqliteDatabase::Loaded()
{
    TComponent::Loaded();
    if (std::exchange(mIsToOpen, false)) {
        Open();
    }
}

void TSqliteDatabase::CloseSets()
{
    const auto dataSets = mDataSets;
    for (auto* const dataSet : dataSets) {
        // A handler may have destroyed those behind.
        if (std::find(mDataSets.begin(), mDataSets.end(), dataSet) != mDataSets.end()) {
            dataSet->Close();
        }
    }
}

std::shared_ptr<CSqliteConnection> TSqliteDatabase::NeedConnection()
{
    if (mConnection == nullptr) {
        if (mFileName.IsEmpty()) {
            throw EDatabaseError(u"A database without the name of a file can't be opened.");
        }
        mConnection = std::make_shared<CSqliteConnection>(mFileName, mReadOnly, mBusyTimeout);
    }
    return mConnection;
}

System::Int64 TSqliteDatabase::Execute(const UnicodeString& sql, std::span<const System::Variant> values)
{
    const auto connection = NeedConnection();
    std::u16string_view rest = sql.AsView();
    System::Int64 changes = 0;
    while (!rest.empty()) {
        CSqliteStatement statement(connection, rest);
        rest = statement.GetTail();
        if (statement.IsBlank()) {
            continue;
        }
        if (statement.GetParameterCount() != static_cast<int>(values.size())) {
            throw EDatabaseError(u"A statement needs one value for each of its parameters: " +
                                 sql.SubString(1, 100));
        }
        for (std::size_t i = 0; i < values.size(); ++i) {
            statement.Bind(static_cast<int>(i + 1), ToSqlite(values[i], ftDateTime));
        }
        while (statement.Step()) {
        }
        changes = connection->GetChanges();
    }
    return changes;
}

void TSqliteDatabase::StartTransaction()
{
    Execute(u"BEGIN IMMEDIATE");
}

void TSqliteDatabase::Commit()
{
    Execute(u"COMMIT");
}

void TSqliteDatabase::Rollback()
{
    Execute(u"ROLLBACK");
}

bool TSqliteDatabase::getInTransaction() const noexcept
{
    return mConnection != nullptr && mConnection->IsInTransaction();
}

} // namespace Db
