// SPDX-License-Identifier: MIT
#include "platform/visual/data/Dbctrls_LookupControl.h"

#include "platform/visual/Forms.h"
#include "platform/visual/data/sets/Db_FieldTypes.h"
#include "platform/visual/data/sets/Db_MemoryDataSet.h"
#include "support/ScriptedBoxes.h"
#include "testing/FormDriver.h"

#include <gtest/gtest.h>

namespace
{

using System::UnicodeString;
using System::Variant;

class LookupControlTest : public testing::Test
{
protected:
    LookupControlTest()
    {
        mChannels->getFieldDefs()->Add(u"Number", Db::ftInteger);
        mChannels->getFieldDefs()->Add(u"Name", Db::ftWideString);
        mChannels->Open();
        for (const auto& [number, name] : {std::pair(3, u"Anode"), {5, u"Grid"}, {9, u"Heater"}}) {
            const Variant values[] = {number, name};
            mChannels->AppendRecord(values);
        }
        mChannels->First();
        mList->setDataSet(mChannels);
        for (auto* const control : {static_cast<Dbctrls::TDBLookupControl*>(mBox),
                                    static_cast<Dbctrls::TDBLookupControl*>(mListBox)}) {
            control->setParent(&mForm);
            control->setListSource(mList);
            control->setKeyField(u"Number");
            control->setListField(u"Name");
        }
        mBox->setName(u"Box");
        mListBox->setName(u"List");
        mListBox->setTop(50);
        mForm.Show();
    }

    Support::ScriptedBoxes mToolkit;
    Forms::TForm mForm;
    Testing::CFormDriver mDriver{mForm};
    Db::TMemoryDataSet* mChannels = new Db::TMemoryDataSet(&mForm);
    Db::TDataSource* mList = new Db::TDataSource(&mForm);
    Dbctrls::TDBLookupComboBox* mBox = new Dbctrls::TDBLookupComboBox(&mForm);
    Dbctrls::TDBLookupListBox* mListBox = new Dbctrls::TDBLookupListBox(&mForm);
};

TEST_F(LookupControlTest, ShowsTheRecordOfItsKey)
{
    EXPECT_TRUE(mBox->getKeyValue().IsNull());
    EXPECT_EQ(mBox->getText(), u"");
    mBox->setKeyValue(5);
    EXPECT_EQ(mBox->getText(), u"Grid");
    mBox->setKeyValue(7);
    EXPECT_EQ(mBox->getText(), u"");
    EXPECT_EQ(mBox->getKeyValue(), Variant(7));
    const Variant values[] = {7, u"Screen"};
    mChannels->AppendRecord(values);
    EXPECT_EQ(mBox->getText(), u"Screen");
    mChannels->Close();
    EXPECT_EQ(mBox->getText(), u"");
    EXPECT_EQ(mBox->getKeyValue(), Variant(7));
    mBox->setKeyValue(Variant::Null());
    EXPECT_TRUE(mBox->getKeyValue().IsNull());
}

TEST_F(LookupControlTest, LetsTheUserChoose)
{
    int clicks = 0;
    mBox->OnClick = [&](System::TObject*) { ++clicks; };
    mDriver.Focus(u"Box");
    mDriver.Press(VK_DOWN);
    mDriver.Press(VK_DOWN);
    EXPECT_EQ(mBox->getKeyValue(), Variant(5));
    EXPECT_EQ(clicks, 2);
    mDriver.Press(VK_END);
    EXPECT_EQ(mBox->getText(), u"Heater");
    mDriver.Click(u"List", {5, 1});
    EXPECT_EQ(mListBox->getSelectedItem(), u"Anode");
    mDriver.Click(u"List", {5, 95});
    EXPECT_EQ(mListBox->getSelectedItem(), u"Anode");
    EXPECT_FALSE(mBox->Choose(3));
    EXPECT_EQ(mChannels->getRecNo(), 1);
}

TEST_F(LookupControlTest, HoldsTheKeyInAField)
{
    Db::TMemoryDataSet samples;
    samples.getFieldDefs()->Add(u"Channel", Db::ftInteger);
    samples.Open();
    const Variant values[] = {9};
    samples.AppendRecord(values);
    Db::TDataSource source;
    source.setDataSet(&samples);
    mBox->setDataField(u"Channel");
    mBox->setDataSource(&source);
    EXPECT_EQ(mBox->getText(), u"Heater");
    mDriver.Focus(u"Box");
    mDriver.Press(VK_UP);
    EXPECT_EQ(samples.getState(), Db::dsEdit);
    EXPECT_EQ(samples.FieldByName(u"Channel")->getAsInteger(), 5);
    EXPECT_EQ(mBox->getText(), u"Grid");
    samples.Cancel();
    EXPECT_EQ(mBox->getText(), u"Heater");
    mBox->setReadOnly(true);
    EXPECT_FALSE(mBox->Choose(0));
    EXPECT_EQ(samples.getState(), Db::dsBrowse);
}

TEST_F(LookupControlTest, OutlivesItsList)
{
    mListBox->setKeyValue(3);
    delete mChannels;
    EXPECT_EQ(mListBox->getText(), u"");
    delete mList;
    mListBox->Repaint();
    mDriver.Focus(u"List");
    mDriver.Press(VK_DOWN);
    EXPECT_EQ(mListBox->GetListCount(), 0);
    EXPECT_EQ(mListBox->GetListText(-1), u"");
}

} // namespace
