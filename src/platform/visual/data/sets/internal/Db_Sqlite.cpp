// SPDX-License-Identifier: MIT
#include "platform/visual/data/sets/internal/Db_Sqlite.h"

#include "platform/visual/data/sets/Db_SqliteDatabase.h"

#include <sqlite3.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <span>

namespace Db
{

using System::UnicodeString;
using System::Variant;

namespace
{

UnicodeString WideOf(const void* text)
{
    return {static_cast<const char16_t*>(text)};
}

} // namespace

CSqliteConnection::CSqliteConnection(const UnicodeString& fileName, bool isReadOnly, int busyTimeout)
    : mFileName(fileName)
{
    const int flags = isReadOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
    const int result = sqlite3_open_v2(System::ToUtf8(fileName).c_str(), &mDatabase, flags, nullptr);
    const auto fail = [&](int code) {
        // Nobody calls the destructor of what wasn't made.
        const std::unique_ptr<sqlite3, decltype(&sqlite3_close)> closer(mDatabase, sqlite3_close);
        Raise(code);
    };
    if (result != SQLITE_OK) {
        fail(result);
    }
    sqlite3_extended_result_codes(mDatabase, 1);
    SetBusyTimeout(busyTimeout);
    // The file is only looked at when something is read.
    const int read = sqlite3_exec(mDatabase, "PRAGMA foreign_keys = ON; SELECT count(*) FROM sqlite_master",
                                  nullptr, nullptr, nullptr);
    if (read != SQLITE_OK) {
        fail(read);
    }
}

CSqliteConnection::~CSqliteConnection()
{
    sqlite3_close(mDatabase);
}

bool CSqliteConnection::IsInTransaction() const noexcept
{
    return sqlite3_get_autocommit(mDatabase) == 0;
}

System::Int64 CSqliteConnection::GetChanges() const noexcept
{
    return sqlite3_changes64(mDatabase);
}

System::Int64 CSqliteConnection::GetLastRowId() const noexcept
{
    return sqlite3_last_insert_rowid(mDatabase);
}

void CSqliteConnection::SetBusyTimeout(int milliseconds) noexcept
{
    sqlite3_busy_timeout(mDatabase, milliseconds);
}

void CSqliteConnection::Raise(int code) const
{
    const bool hasWords = mDatabase != nullptr && sqlite3_extended_errcode(mDatabase) != SQLITE_OK;
    const UnicodeString words =
        hasWords ? WideOf(sqlite3_errmsg16(mDatabase)) : System::FromUtf8(sqlite3_errstr(code));
    throw ESqliteError(words + u" (" + mFileName + u")", code);
}

CSqliteStatement::CSqliteStatement(std::shared_ptr<CSqliteConnection> connection, std::u16string_view sql)
    : mConnection(std::move(connection))
{
    // A zero would end the statement where nobody sees it.
    const auto limit = static_cast<std::size_t>(std::numeric_limits<int>::max()) / sizeof(char16_t);
    if (sql.size() > limit || sql.find(u'\0') != std::u16string_view::npos) {
        throw EDatabaseError(u"A statement has a zero in it, or is too long.");
    }
    const void* tail = nullptr;
    const int result = sqlite3_prepare16_v2(
        mConnection->get(), sql.data(), static_cast<int>(sql.size() * sizeof(char16_t)), &mStatement, &tail);
    if (result != SQLITE_OK) {
        mConnection->Raise(result);
    }
    if (tail != nullptr) {
        mTail = sql.substr(static_cast<std::size_t>(static_cast<const char16_t*>(tail) - sql.data()));
    }
}

CSqliteStatement::~CSqliteStatement()
{
    sqlite3_finalize(mStatement);
}

bool CSqliteStatement::IsReadOnly() const noexcept
{
    return sqlite3_stmt_readonly(mStatement) != 0;
}

int CSqliteStatement::GetParameterCount() const noexcept
{
    return sqlite3_bind_parameter_count(mStatement);
}

UnicodeString CSqliteStatement::GetParameterName(int index) const
{
    const char* const name = sqlite3_bind_parameter_name(mStatement, index);
    return name == nullptr ? UnicodeString(index) : System::FromUtf8(name + 1);
}

void CSqliteStatement::Bind(int index, const Variant& value)
{
    int result = SQLITE_OK;
    const System::Word type = value.Type();
    if (value.IsNull() || value.IsEmpty()) {
        result = sqlite3_bind_null(mStatement, index);
    } else if (type == (System::varArray | System::varByte)) {
        const auto bytes = value.ArrayBytes();
        result = bytes.empty()
                     ? sqlite3_bind_zeroblob(mStatement, index, 0)
                     : sqlite3_bind_blob64(mStatement, index, bytes.data(), bytes.size(), SQLITE_TRANSIENT);
    } else if (value.IsArray()) {
        throw EDatabaseError(u"An array can't be stored in a column.");
    } else if (value.IsText()) {
        const UnicodeString text = value.As<UnicodeString>();
        const auto units = text.AsView();
        result = sqlite3_bind_text64(mStatement, index, reinterpret_cast<const char*>(units.data()),
                                     units.size() * sizeof(char16_t), SQLITE_TRANSIENT, SQLITE_UTF16);
    } else if (type == System::varDouble || type == System::varSingle || type == System::varDate ||
               type == System::varCurrency) {
        const double number =
            type == System::varDate ? value.As<System::TDateTime>().Val : value.As<double>();
        if (std::isnan(number)) {
            throw EDatabaseError(u"What is no number can't be stored in a column.");
        }
        result = sqlite3_bind_double(mStatement, index, number);
    } else {
        const System::Int64 number =
            type == System::varBoolean ? System::Int64{value.As<bool>()} : value.As<System::Int64>();
        result = sqlite3_bind_int64(mStatement, index, number);
    }
    if (result != SQLITE_OK) {
        mConnection->Raise(result);
    }
}

bool CSqliteStatement::Step()
{
    const int result = sqlite3_step(mStatement);
    if (result != SQLITE_ROW && result != SQLITE_DONE) {
        mConnection->Raise(result);
    }
    return result == SQLITE_ROW;
}

int CSqliteStatement::GetColumnCount() const noexcept
{
    return sqlite3_column_count(mStatement);
}

UnicodeString CSqliteStatement::GetColumnName(int column) const
{
    return WideOf(sqlite3_column_name16(mStatement, column));
}

UnicodeString CSqliteStatement::GetDeclaredType(int column) const
{
    return WideOf(sqlite3_column_decltype16(mStatement, column));
}

Variant CSqliteStatement::GetColumn(int column) const
{
    switch (sqlite3_column_type(mStatement, column)) {
    case SQLITE_INTEGER:
        return System::Int64{sqlite3_column_int64(mStatement, column)};
    case SQLITE_FLOAT:
        return sqlite3_column_double(mStatement, column);
    case SQLITE_TEXT: {
        const auto* const text = static_cast<const char16_t*>(sqlite3_column_text16(mStatement, column));
        const int bytes = sqlite3_column_bytes16(mStatement, column);
        return UnicodeString(text, bytes / static_cast<int>(sizeof(char16_t)));
    }
    case SQLITE_BLOB: {
        const auto* const data = static_cast<const System::Byte*>(sqlite3_column_blob(mStatement, column));
        const int size = sqlite3_column_bytes(mStatement, column);
        const int bounds[] = {0, size - 1};
        Variant value = Variant::CreateArray(bounds, System::varByte);
        std::copy_n(data, size, value.ArrayBytes().begin());
        return value;
    }
    default:
        return Variant::Null();
    }
}

} // namespace Db
