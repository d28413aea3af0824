// SPDX-License-Identifier: MIT
#include "platform/visual/data/sets/Db_SqliteDataSet.h"

#include "platform/runtime/typinfo/Typinfo.h"
#include "platform/visual/data/sets/Db_FieldTypes.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <fstream>

namespace
{

using namespace Db;
using System::TDateTime;
using System::UnicodeString;
using System::Variant;

class SqliteDataSetTest : public testing::Test
{
protected:
    SqliteDataSetTest()
    {
        mDatabase.setFileName(mFile);
        mDatabase.setBusyTimeout(0);
        mDatabase.Execute(u"CREATE TABLE samples (name VARCHAR(10) NOT NULL, taken DATETIME, voltage REAL, "
                          u"count INT, big INTEGER DEFAULT 7, ok BOOLEAN, raw BLOB, note CLOB);"
                          u"INSERT INTO samples (name, voltage) VALUES ('Anode', 1.5), ('Grid', NULL);");
        mSet.setDatabase(&mDatabase);
        mSet.setTableName(u"Samples");
    }

    Variant Query(const UnicodeString& sql)
    {
        TSqliteDatabase other;
        other.setFileName(mFile);
        TSqliteDataSet set;
        set.setDatabase(&other);
        set.setSQL(sql);
        set.Open();
        return set.getFields(0)->getValue();
    }
    UnicodeString MessageOfOpen()
    {
        try {
            mSet.Open();
        } catch (const EDatabaseError& error) {
            return error.getMessage();
        }
        return u"opened";
    }

    Support::TempFolder mFolder;
    UnicodeString mFile = System::FromUtf8((mFolder.Path() / "measured \u00fc.db").string());
    TSqliteDatabase mDatabase;
    TSqliteDataSet mSet;
};

TEST_F(SqliteDataSetTest, ShowsColumnsByTheirDeclarations)
{
    mSet.Open();
    UnicodeString types;
    for (int i = 0; i < mSet.getFieldCount(); ++i) {
        types +=
            Typinfo::GetEnumName(Typinfo::TypeInfoOf<TFieldType>(), mSet.getFields(i)->getDataType()) + u" ";
    }
    EXPECT_EQ(types, u"ftWideString ftDateTime ftFloat ftInteger ftLargeint ftBoolean ftBlob ftWideMemo ");
    EXPECT_EQ(mSet.getRecordCount(), 2);
    EXPECT_EQ(mSet.FieldByName(u"name")->getSize(), 10);
    EXPECT_EQ(mSet.FieldByName(u"voltage")->getAsFloat(), 1.5);
    mSet.Next();
    EXPECT_TRUE(mSet.FieldByName(u"voltage")->getIsNull());
}

TEST_F(SqliteDataSetTest, StoresWhatIsPosted)
{
    mSet.Open();
    mSet.Append();
    mSet.FieldByName(u"name")->setAsString(u"x'); --");
    mSet.FieldByName(u"taken")->setAsDateTime(TDateTime(2022, 2, 28) + 0.5);
    mSet.FieldByName(u"ok")->setAsBoolean(true);
    mSet.FieldByName(u"raw")->setAsString(u"\u00e4");
    mSet.Post();
    EXPECT_EQ(mSet.FieldByName(u"big")->getAsInteger(), 7);
    EXPECT_EQ(Query(u"SELECT count(*) FROM samples"), Variant(3));
    EXPECT_EQ(Query(u"SELECT taken || '' FROM samples WHERE rowid = 3"), Variant(u"2022-02-28 12:00:00"));
    EXPECT_EQ(Query(u"SELECT name || typeof(raw) || typeof(ok) FROM samples WHERE rowid = 3"),
              Variant(u"x'); --blobinteger"));
    mSet.Edit();
    mSet.FieldByName(u"voltage")->setAsFloat(2.25);
    mSet.Post();
    EXPECT_EQ(Query(u"SELECT voltage FROM samples WHERE rowid = 3"), Variant(2.25));
    mSet.Delete();
    EXPECT_EQ(Query(u"SELECT count(*) FROM samples"), Variant(2));
    mSet.Close();
    mSet.Open();
    EXPECT_EQ(mSet.getRecordCount(), 2);
}

TEST_F(SqliteDataSetTest, ComesBackWithEachValueAsItWas)
{
    mDatabase.Execute(u"DELETE FROM samples");
    mSet.Open();
    const TDateTime time = TDateTime(1850, 12, 31) - 0.25;
    mSet.Append();
    mSet.FieldByName(u"name")->setValue(UnicodeString(u"a\0b", 3));
    mSet.FieldByName(u"taken")->setAsDateTime(time);
    mSet.FieldByName(u"voltage")->setAsFloat(0.1);
    mSet.FieldByName(u"big")->setAsLargeInt(std::numeric_limits<System::Int64>::min());
    mSet.FieldByName(u"raw")->setAsString(u"");
    mSet.FieldByName(u"note")->setAsString(u"\U0001F600");
    mSet.Post();
    mSet.Refresh();
    EXPECT_EQ(mSet.FieldByName(u"name")->getAsString(), UnicodeString(u"a\0b", 3));
    EXPECT_EQ(mSet.FieldByName(u"taken")->getAsDateTime(), time);
    EXPECT_EQ(mSet.FieldByName(u"voltage")->getAsFloat(), 0.1);
    EXPECT_EQ(mSet.FieldByName(u"big")->getAsLargeInt(), std::numeric_limits<System::Int64>::min());
    EXPECT_FALSE(mSet.FieldByName(u"raw")->getIsNull());
    EXPECT_EQ(mSet.FieldByName(u"note")->getAsString(), u"\U0001F600");
    EXPECT_TRUE(mSet.FieldByName(u"ok")->getIsNull());
}

TEST_F(SqliteDataSetTest, KeepsValuesThatArentWhatTheirColumnSays)
{
    mDatabase.Execute(u"UPDATE samples SET count = 'many', taken = 'someday', ok = 'yes', voltage = x'00' "
                      u"WHERE rowid = 1");
    mSet.Open();
    for (const char16_t* name : {u"count", u"taken", u"ok"}) {
        SCOPED_TRACE(UnicodeString(name));
        EXPECT_NE(mSet.FieldByName(name)->getDisplayText(), u"");
    }
    EXPECT_EQ(mSet.FieldByName(u"count")->getAsString(), u"many");
    EXPECT_THROW(mSet.FieldByName(u"count")->getAsInteger(), EDatabaseError);
    EXPECT_THROW(mSet.FieldByName(u"taken")->getAsDateTime(), EDatabaseError);
    EXPECT_THROW(mSet.FieldByName(u"voltage")->getAsFloat(), EDatabaseError);
    mSet.Edit();
    mSet.FieldByName(u"name")->setAsString(u"new");
    mSet.Post();
    EXPECT_EQ(Query(u"SELECT count || taken || ok FROM samples WHERE name = 'new'"),
              Variant(u"manysomedayyes"));
}

TEST_F(SqliteDataSetTest, ShowsQueriesWithParameters)
{
    mSet.setTableName(u"");
    mSet.setSQL(u"SELECT name, 2 * voltage, count(*) AS name FROM samples WHERE name = :who");
    EXPECT_EQ(MessageOfOpen(), u"There is no value for the parameter \"who\".");
    mSet.setParam(u"who", u"Anode");
    mSet.Open();
    EXPECT_EQ(mSet.FieldByName(u"2 * voltage")->getDataType(), ftFloat);
    EXPECT_EQ(mSet.FieldByName(u"name_1")->getDataType(), ftLargeint);
    EXPECT_FALSE(mSet.getCanModify());
    EXPECT_THROW(mSet.Edit(), EDatabaseError);
    EXPECT_THROW(mSet.Delete(), EDatabaseError);
}

TEST_F(SqliteDataSetTest, RefusesStatementsThatAreNoQueries)
{
    mSet.setTableName(u"");
    for (const char16_t* sql : {u"DELETE FROM samples RETURNING name", u"SELECT 1; DELETE FROM samples", u"",
                                u"-- x", u"BEGIN", u"SELEC"}) {
        SCOPED_TRACE(UnicodeString(sql));
        mSet.setSQL(sql);
        EXPECT_NE(MessageOfOpen(), u"opened");
        EXPECT_FALSE(mSet.getActive());
    }
    EXPECT_EQ(Query(u"SELECT count(*) FROM samples"), Variant(2));
}

TEST_F(SqliteDataSetTest, NamesTheTableThatIsMissing)
{
    mSet.setTableName(u"no\"thing");
    EXPECT_EQ(MessageOfOpen(), u"There is no table \"no\"thing\" (" + mFile + u")");
    Classes::TComponent form;
    auto* const field = new TFloatField(&form);
    field->setFieldName(u"current");
    field->setDataSet(&mSet);
    mSet.setTableName(u"samples");
    EXPECT_EQ(MessageOfOpen(), u"There is no column \"current\" for the field of that name.");
    field->setFieldName(u"name");
    EXPECT_EQ(MessageOfOpen(), u"Field \"name\" is of the type ftFloat, but its column of ftWideString.");
    field->setFieldName(u"voltage");
    EXPECT_EQ(MessageOfOpen(), u"opened");
    mSet.Close();
}

TEST_F(SqliteDataSetTest, TellsThatSomebodyElseHasTheDatabase)
{
    mSet.Open();
    TSqliteDatabase other;
    other.setFileName(mFile);
    other.StartTransaction();
    other.Execute(u"UPDATE samples SET count = 1");
    mSet.Edit();
    mSet.FieldByName(u"count")->setAsInteger(5);
    try {
        mSet.Post();
        ADD_FAILURE();
    } catch (const ESqliteError& error) {
        EXPECT_EQ(error.getErrorCode() & 0xFF, 5);
        EXPECT_EQ(error.getMessage(), u"database is locked (" + mFile + u")");
    }
    EXPECT_EQ(mSet.getState(), dsEdit);
    other.Rollback();
    mSet.Post();
    EXPECT_EQ(Query(u"SELECT count FROM samples WHERE rowid = 1"), Variant(5));
    other.Execute(u"DELETE FROM samples WHERE rowid = 1");
    mSet.Edit();
    mSet.FieldByName(u"count")->setAsInteger(6);
    EXPECT_THROW(mSet.Post(), EDatabaseError);
    mSet.Cancel();
    EXPECT_THROW(mSet.Delete(), EDatabaseError);
    mSet.Refresh();
    EXPECT_EQ(mSet.getRecordCount(), 1);
}

TEST_F(SqliteDataSetTest, TellsWhatTheDatabaseRefuses)
{
    mSet.Open();
    mSet.Append();
    mSet.FieldByName(u"voltage")->setAsFloat(1);
    UnicodeString told;
    mSet.OnPostError = [&](TDataSet*, const EDatabaseError& error, TDataAction&) {
        told = error.getMessage();
    };
    EXPECT_THROW(mSet.Post(), ESqliteError);
    EXPECT_EQ(told, u"NOT NULL constraint failed: samples.name (" + mFile + u")");
    mSet.FieldByName(u"name")->setAsString(u"New");
    mSet.Post();
    EXPECT_EQ(mSet.getRecordCount(), 3);
}

TEST_F(SqliteDataSetTest, OpensNoFileThatIsNoDatabase)
{
    const auto bad = mFolder.Path() / "bad.db";
    std::ofstream(bad) << std::string(5000, 'x');
    struct TCase
    {
        UnicodeString file;
        bool isReadOnly;
        const char16_t* message;
    };
    const UnicodeString missing = System::FromUtf8((mFolder.Path() / "missing.db").string());
    for (const auto& [file, isReadOnly, message] :
         {TCase{System::FromUtf8(bad.string()), false, u"file is not a database"},
          {missing, true, u"unable to open database file"},
          {System::FromUtf8(mFolder.Path().string()), false, u"unable to open database file"}}) {
        SCOPED_TRACE(file);
        TSqliteDatabase database;
        database.setFileName(file);
        database.setReadOnly(isReadOnly);
        try {
            database.Open();
            ADD_FAILURE();
        } catch (const ESqliteError& error) {
            EXPECT_EQ(error.getMessage(), message + (u" (" + file + u")"));
        }
        EXPECT_FALSE(database.getConnected());
    }
    EXPECT_THROW(TSqliteDatabase().Open(), EDatabaseError);
}

TEST_F(SqliteDataSetTest, TellsOfADamagedFile)
{
    mDatabase.Execute(u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 2000) "
                      u"INSERT INTO samples (name) SELECT 'row ' || i FROM n");
    mDatabase.Close();
    const auto path = mFolder.Path() / "measured \u00fc.db";
    std::fstream file(path, std::ios::in | std::ios::out | std::ios::binary);
    file.seekp(8192);
    file << std::string(static_cast<std::size_t>(std::filesystem::file_size(path)) - 8192, '\x5A');
    file.close();
    EXPECT_EQ(MessageOfOpen(), u"database disk image is malformed (" + mFile + u")");
    EXPECT_EQ(mSet.getState(), dsInactive);
}

TEST_F(SqliteDataSetTest, MakesOneChangeOfATransaction)
{
    mSet.Open();
    mDatabase.StartTransaction();
    EXPECT_TRUE(mDatabase.getInTransaction());
    EXPECT_THROW(mDatabase.StartTransaction(), ESqliteError);
    mSet.Delete();
    mDatabase.Rollback();
    EXPECT_FALSE(mDatabase.getInTransaction());
    mSet.Refresh();
    EXPECT_EQ(mSet.getRecordCount(), 2);
    mDatabase.StartTransaction();
    mSet.Delete();
    mDatabase.Commit();
    EXPECT_EQ(Query(u"SELECT count(*) FROM samples"), Variant(1));
    EXPECT_THROW(mDatabase.Commit(), ESqliteError);
}

TEST_F(SqliteDataSetTest, KnowsTablesByTheirRowNumbers)
{
    mDatabase.Execute(
        u"CREATE TABLE keyed (id INTEGER PRIMARY KEY, rowid TEXT);"
        u"INSERT INTO keyed VALUES (0, 'zero'), (-3, 'minus');"
        u"CREATE TABLE pairs (a TEXT PRIMARY KEY) WITHOUT ROWID; CREATE VIEW seen AS SELECT * FROM keyed;"
        u"INSERT INTO pairs VALUES ('only');");
    mSet.setTableName(u"keyed");
    mSet.Open();
    EXPECT_EQ(mSet.FieldByName(u"rowid")->getAsString(), u"minus");
    mSet.Last();
    mSet.Edit();
    mSet.FieldByName(u"id")->setAsInteger(40);
    mSet.Post();
    mSet.Edit();
    mSet.FieldByName(u"rowid")->setAsString(u"forty");
    mSet.Post();
    EXPECT_EQ(Query(u"SELECT rowid FROM keyed WHERE id = 40"), Variant(u"forty"));
    mSet.Close();
    for (const char16_t* name : {u"pairs", u"seen"}) {
        SCOPED_TRACE(UnicodeString(name));
        mSet.setTableName(name);
        mSet.Open();
        EXPECT_FALSE(mSet.IsEmpty());
        EXPECT_FALSE(mSet.getCanModify());
        mSet.Close();
    }
}

TEST_F(SqliteDataSetTest, EndsWithItsDatabase)
{
    auto* const memory = new TSqliteDatabase;
    memory->setFileName(u":memory:");
    memory->Execute(u"CREATE TABLE t (a)");
    TSqliteDataSet set;
    set.setDatabase(memory);
    set.setTableName(u"t");
    set.Open();
    EXPECT_THROW(memory->setFileName(u"x"), EDatabaseError);
    memory->Close();
    EXPECT_FALSE(set.getActive());
    EXPECT_THROW(set.Open(), EDatabaseError); // another database in memory, without the table
    memory->Execute(u"CREATE TABLE t (a)");
    set.Open();
    set.Append();
    delete memory;
    EXPECT_FALSE(set.getActive());
    EXPECT_EQ(set.getDatabase(), nullptr);
    EXPECT_THROW(set.Open(), EDatabaseError);
}

} // namespace
