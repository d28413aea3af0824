// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "platform/runtime/variants/System_Variant.h"

#include <memory>

struct sqlite3;
struct sqlite3_stmt;

namespace Db
{

/// An open database. Sets hold it as long as they need it.
class CSqliteConnection
{
public:
    /// `ESqliteError` for a file that can't be opened or made, or is no database.
    CSqliteConnection(const System::UnicodeString& fileName, bool isReadOnly, int busyTimeout);
    CSqliteConnection(const CSqliteConnection&) = delete;
    CSqliteConnection& operator=(const CSqliteConnection&) = delete;
    ~CSqliteConnection();

    sqlite3* get() const noexcept { return mDatabase; }
    bool IsInTransaction() const noexcept;
    /// How many records the last statement changed.
    System::Int64 GetChanges() const noexcept;
    System::Int64 GetLastRowId() const noexcept;
    void SetBusyTimeout(int milliseconds) noexcept;
    /// `code` is what SQLite gave; the message has its words, and the name of the file.
    [[noreturn]] void Raise(int code) const;

private:
    sqlite3* mDatabase = nullptr;
    System::UnicodeString mFileName;
};

/// A statement that runs, with values for its parameters.
///
///     CSqliteStatement statement(connection, u"SELECT name FROM channels WHERE rowid = ?");
///     statement.Bind(1, number);
///     if (statement.Step()) { name = statement.GetColumn(0); }
class CSqliteStatement
{
public:
    CSqliteStatement(std::shared_ptr<CSqliteConnection> connection, std::u16string_view sql);
    CSqliteStatement(const CSqliteStatement&) = delete;
    CSqliteStatement& operator=(const CSqliteStatement&) = delete;
    ~CSqliteStatement();

    /// What stands behind the statement.
    std::u16string_view GetTail() const noexcept { return mTail; }
    /// Whether there is no statement but blanks and comments.
    bool IsBlank() const noexcept { return mStatement == nullptr; }
    bool IsReadOnly() const noexcept;

    int GetParameterCount() const noexcept;
    /// Without the sign in front; the number for one without a name.
    System::UnicodeString GetParameterName(int index) const;
    /// Parameters count from 1. `EDatabaseError` for a value that no column can hold.
    void Bind(int index, const System::Variant& value);

    /// False at the end.
    bool Step();
    int GetColumnCount() const noexcept;
    System::UnicodeString GetColumnName(int column) const;
    /// As the column was declared; empty for an expression.
    System::UnicodeString GetDeclaredType(int column) const;
    System::Variant GetColumn(int column) const;

private:
    std::shared_ptr<CSqliteConnection> mConnection;
    sqlite3_stmt* mStatement = nullptr;
    std::u16string_view mTail;
};

} // namespace Db
