// SPDX-License-Identifier: MIT
#include "platform/visual/data/sets/Db_DataSource.h"

#include "platform/visual/data/sets/Db_Field.h"
#include "platform/visual/data/sets/Db_MemoryDataSet.h"

#include <gtest/gtest.h>

namespace
{

using namespace Db;
using System::UnicodeString;
using System::Variant;

/// Writes down what it is told.
class TNotingLink : public TDataLink
{
public:
    explicit TNotingLink(UnicodeString& log) : mLog(log) {}

    CFieldReference mField;
    UnicodeString mText;

protected:
    void ActiveChanged() override { mLog += getActive() ? u"open " : u"closed "; }
    void EditingChanged() override { mLog += getEditing() ? u"edit " : u"browse "; }
    void DataSetChanged() override { mLog += u"set "; }
    void DataSetScrolled(int distance) override { mLog += u"by" + UnicodeString(distance) + u" "; }
    void RecordChanged(TField* field) override
    {
        mLog += field == nullptr ? UnicodeString(u"record ") : field->getFieldName() + u" ";
    }
    void UpdateData() override
    {
        mLog += u"update ";
        if (!mText.IsEmpty()) {
            mField.Find(getDataSet())->setText(mText);
        }
    }

private:
    UnicodeString& mLog;
};

class DataSourceTest : public testing::Test
{
protected:
    DataSourceTest()
    {
        mSet->getFieldDefs()->Add(u"Count", ftInteger);
        mSet->Open();
        for (int i = 0; i < 5; ++i) {
            const Variant values[] = {i};
            mSet->AppendRecord(values);
        }
        mSet->First();
        mLink.mField.setName(u"Count");
    }
    ~DataSourceTest() override
    {
        delete mSource;
        delete mSet;
    }
    void Connect()
    {
        mSource->setDataSet(mSet);
        mLink.setDataSource(mSource);
        mLog = UnicodeString();
    }

    UnicodeString mLog;
    TMemoryDataSet* mSet = new TMemoryDataSet;
    TDataSource* mSource = new TDataSource;
    TNotingLink mLink{mLog};
};

TEST_F(DataSourceTest, TellsItsLinksWhatHappens)
{
    Connect();
    mSet->Next();
    mSet->Edit();
    mSet->FieldByName(u"Count")->setAsInteger(9);
    mSet->Post();
    mSet->Close();
    mSet->Open();
    EXPECT_EQ(mLog, u"by0 edit record Count update browse set closed open ");
}

TEST_F(DataSourceTest, ShowsNothingWhileItIsntEnabled)
{
    Connect();
    int changes = 0;
    mSource->OnStateChange = [&](System::TObject*) { ++changes; };
    mSource->setEnabled(false);
    EXPECT_FALSE(mLink.getActive());
    EXPECT_EQ(mSource->getState(), dsInactive);
    mSet->Next();
    mSource->setEnabled(true);
    EXPECT_EQ(mLog, u"closed open ");
    EXPECT_EQ(changes, 2);
}

TEST_F(DataSourceTest, HasTheRecordEditedForAControl)
{
    Connect();
    mSource->setAutoEdit(false);
    EXPECT_FALSE(mLink.Edit());
    mSource->setAutoEdit(true);
    mLink.setReadOnly(true);
    EXPECT_FALSE(mLink.Edit());
    EXPECT_EQ(mSet->getState(), dsBrowse);
    mLink.setReadOnly(false);
    EXPECT_TRUE(mLink.Edit());
    mLink.mText = u"77";
    mLog = UnicodeString();
    mSet->UpdateRecord();
    EXPECT_EQ(mSet->FieldByName(u"Count")->getAsInteger(), 77);
    EXPECT_EQ(mLog, u"update ");
    mLink.mText = u"x";
    EXPECT_THROW(mSet->Next(), EDatabaseError);
    EXPECT_EQ(mSet->getState(), dsEdit);
}

TEST_F(DataSourceTest, KeepsTheRecordAtHandAmongThoseShown)
{
    Connect();
    mLink.setBufferCount(3);
    EXPECT_EQ(mLink.getRecordCount(), 3);
    mSet->MoveBy(3);
    EXPECT_EQ(mLink.getFirstRecord(), 1);
    EXPECT_EQ(mLink.getActiveRecord(), 2);
    mSet->First();
    EXPECT_EQ(mLink.getActiveRecord(), 0);
    EXPECT_EQ(mLog, u"by-1 by1 ");
    mLink.setBufferCount(INT_MAX);
    EXPECT_EQ(mLink.getRecordCount(), 5);
    mSet->Append();
    EXPECT_EQ(mLink.getRecordCount(), 6);
    EXPECT_EQ(mLink.getActiveRecord(), 5);
}

TEST_F(DataSourceTest, CatchesUpWhenControlsAreEnabledAgain)
{
    Connect();
    mSet->DisableControls();
    mSet->DisableControls();
    mSet->Next();
    mSet->Edit();
    mSet->EnableControls();
    EXPECT_EQ(mLog, u"");
    mSet->EnableControls();
    EXPECT_EQ(mLog, u"edit set ");
    mSet->EnableControls();
    EXPECT_FALSE(mSet->ControlsDisabled());
}

TEST_F(DataSourceTest, LetsEitherSideGoFirst)
{
    Connect();
    TField* const field = mLink.mField.Find(mSet);
    EXPECT_NE(field, nullptr);
    delete std::exchange(mSet, nullptr);
    EXPECT_EQ(mLog, u"closed ");
    EXPECT_EQ(mSource->getDataSet(), nullptr);
    EXPECT_EQ(mLink.getDataSet(), nullptr);
    delete std::exchange(mSource, nullptr);
    EXPECT_EQ(mLink.getDataSource(), nullptr);
    EXPECT_FALSE(mLink.Edit());
    EXPECT_EQ(mLink.MoveBy(1), 0);
}

TEST_F(DataSourceTest, FindsAFieldAnewWhenTheSetHasOthers)
{
    Connect();
    TField* const field = mLink.mField.Find(mSet);
    mSet->Close();
    EXPECT_EQ(mLink.mField.Find(mSet), nullptr);
    mSet->Open();
    EXPECT_EQ(mLink.mField.Find(mSet), mSet->FieldByName(u"Count"));
    delete mSet->FieldByName(u"Count");
    EXPECT_EQ(mLink.mField.Find(mSet), nullptr);
    EXPECT_EQ(mSet->getFieldCount(), 0);
    static_cast<void>(field);
}

TEST_F(DataSourceTest, OutlivesHandlersThatDestroyIt)
{
    Connect();
    mSource->OnDataChange = [&](System::TObject*, TField*) { delete std::exchange(mSource, nullptr); };
    mSet->Next();
    EXPECT_EQ(mSource, nullptr);
    mSource = new TDataSource;
    Connect();
    mSource->OnStateChange = [&](System::TObject*) { delete std::exchange(mSet, nullptr); };
    mSet->Edit();
    EXPECT_EQ(mSource->getDataSet(), nullptr);
    EXPECT_FALSE(mLink.getActive());
}

} // namespace
