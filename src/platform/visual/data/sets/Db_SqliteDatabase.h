// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Component.h"
#include "platform/runtime/variants/System_Variant.h"
#include "platform/visual/data/sets/Db_Types.h"

#include <memory>
#include <span>
#include <vector>

namespace Db
{

class CSqliteConnection;
class CSqliteStatement;
class TSqliteDataSet;

/// What SQLite refuses; the message has its words, and the name of the file.
class TRS8_BTL_API ESqliteError : public EDatabaseError
{
public:
    ESqliteError(const System::UnicodeString& message, int code) : EDatabaseError(message), mCode(code) {}
    ~ESqliteError() override;

    /// SQLite's extended code; its lowest 8 bits are 5 for a database that somebody else has locked, and 19
    /// for what a constraint refuses.
    int getErrorCode() const noexcept { return mCode; }

private:
    int mCode;
};

/// A database of SQLite, in a file or in memory, for data sets on its tables. Foreign keys are enforced.
///
///     auto* const database = new Db::TSqliteDatabase(form);
///     database->setFileName(path);
///     database->Open();
///     database->Execute(u"CREATE TABLE IF NOT EXISTS samples (time DATETIME, voltage REAL)");
///     const System::Variant values[] = {System::TDateTime(2022, 2, 28), 12.5};
///     database->Execute(u"INSERT INTO samples VALUES (?, ?)", values);
class TRS8_BTL_API TSqliteDatabase : public Classes::TComponent
{
    TRS8_BTL_CLASS(TSqliteDatabase, Classes::TComponent)

public:
    explicit TSqliteDatabase(Classes::TComponent* owner = nullptr);
    /// Closes its data sets; what isn't committed is lost.
    ~TSqliteDatabase() override;

    /// The host's path of the file, which is made if it is missing; ":memory:" for a database that ends when
    /// it closes. `EDatabaseError` while it is open.
    const System::UnicodeString& getFileName() const noexcept { return mFileName; }
    void setFileName(const System::UnicodeString& fileName);
    /// Whether nothing can be changed, and the file must be there; off at first.
    bool getReadOnly() const noexcept { return mReadOnly; }
    void setReadOnly(bool isReadOnly);
    /// For how many milliseconds a database that somebody else has locked is tried again; 1000 at first.
    int getBusyTimeout() const noexcept { return mBusyTimeout; }
    void setBusyTimeout(int milliseconds);

    /// `ESqliteError` for a file that can't be opened, or is no database.
    void Open() { setConnected(true); }
    /// Closes its data sets first; what isn't committed is lost.
    void Close() { setConnected(false); }
    bool getConnected() const noexcept { return mConnection != nullptr; }
    /// While a form's design is read, it opens at its end.
    void setConnected(bool isConnected);

    /// All changes up to `Commit` are one. What is refused on the way raises `ESqliteError`. Data sets show
    /// what was rolled back until they are refreshed.
    void StartTransaction();
    void Commit();
    void Rollback();
    bool getInTransaction() const noexcept;

    /// Runs one statement, whose parameters have these values, or without values several with `;` between
    /// them; opens the database for it. How many records the last one changed. Points in time are stored as
    /// `TSqliteDataSet` does.
    System::Int64 Execute(const System::UnicodeString& sql, std::span<const System::Variant> values = {});

    void Loaded() override;

private:
    friend class TSqliteDataSet;

    std::shared_ptr<CSqliteConnection> NeedConnection();
    void CheckClosed() const;
    void CloseSets();

    System::UnicodeString mFileName;
    std::shared_ptr<CSqliteConnection> mConnection;
    std::vector<TSqliteDataSet*> mDataSets;
    int mBusyTimeout = 1000;
    bool mReadOnly = false;
    bool mIsToOpen = false;
};

} // namespace Db
