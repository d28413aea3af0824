// SPDX-License-Identifier: MIT
#include "platform/visual/data/Dbctrls_DBEdit.h"

#include "platform/runtime/typinfo/Typinfo.h"
#include "platform/visual/Forms.h"
#include "platform/visual/data/sets/Db_FieldTypes.h"
#include "platform/visual/data/sets/Db_MemoryDataSet.h"
#include "support/ScriptedBoxes.h"
#include "testing/FormDriver.h"

#include <gtest/gtest.h>

namespace
{

using namespace Db;
using System::UnicodeString;
using System::Variant;

class DBEditTest : public testing::Test
{
protected:
    DBEditTest()
    {
        mSet->getFieldDefs()->Add(u"Name", ftWideString, 8);
        mSet->getFieldDefs()->Add(u"Voltage", ftFloat);
        mSet->Open();
        Add(u"Anode", 1.5);
        Add(u"Grid", 2.25);
        mSet->First();
        mSource->setDataSet(mSet);
        mName = MakeEdit(u"Name");
        mVoltage = MakeEdit(u"Voltage");
        mForm.Show();
    }

    void Add(const char16_t* name, double voltage)
    {
        const Variant values[] = {name, voltage};
        mSet->AppendRecord(values);
    }
    Dbctrls::TDBEdit* MakeEdit(const UnicodeString& field)
    {
        auto* const edit = new Dbctrls::TDBEdit(&mForm);
        edit->setName(field);
        edit->setParent(&mForm);
        edit->setDataSource(mSource);
        edit->setDataField(field);
        return edit;
    }

    Support::ScriptedBoxes mToolkit;
    Forms::TForm mForm;
    Testing::CFormDriver mDriver{mForm};
    TMemoryDataSet* mSet = new TMemoryDataSet(&mForm);
    TDataSource* mSource = new TDataSource(&mForm);
    Dbctrls::TDBEdit* mName;
    Dbctrls::TDBEdit* mVoltage;
};

TEST_F(DBEditTest, ShowsTheRecordAtHand)
{
    EXPECT_EQ(mName->getText(), u"Anode");
    EXPECT_EQ(mName->getMaxLength(), 8);
    EXPECT_EQ(mVoltage->getAlignment(), Classes::taRightJustify);
    mSet->Next();
    EXPECT_EQ(mName->getText(), u"Grid");
    EXPECT_FALSE(mName->getModified());
    mSource->setEnabled(false);
    EXPECT_EQ(mName->getText(), u"");
    mSource->setEnabled(true);
    mSet->Close();
    EXPECT_EQ(mName->getText(), u"");
    EXPECT_EQ(mName->getField(), nullptr);
}

TEST_F(DBEditTest, EditsTheRecordByTypingAndStoresOnLeaving)
{
    mDriver.Focus(u"Name");
    mDriver.Type(u"Heater");
    EXPECT_EQ(mSet->getState(), dsEdit);
    EXPECT_TRUE(mName->getModified());
    EXPECT_EQ(mSet->FieldByName(u"Name")->getAsString(), u"Anode");
    mDriver.Press(VK_TAB);
    EXPECT_EQ(mSet->FieldByName(u"Name")->getAsString(), u"Heater");
    mDriver.Focus(u"Name");
    mDriver.Type(u"Other");
    mSet->Post();
    EXPECT_EQ(mSet->FieldByName(u"Name")->getAsString(), u"Other");
    EXPECT_FALSE(mName->getModified());
}

TEST_F(DBEditTest, LetsNobodyTypeWhatCantBeChanged)
{
    mDriver.Focus(u"Name");
    mSource->setAutoEdit(false);
    mDriver.Type(u"x");
    EXPECT_EQ(mName->getText(), u"Anode");
    EXPECT_EQ(mSet->getState(), dsBrowse);
    mSource->setAutoEdit(true);
    mSet->FieldByName(u"Name")->setReadOnly(true);
    mDriver.Type(u"x");
    EXPECT_EQ(mSet->getState(), dsBrowse);
    mSet->FieldByName(u"Name")->setReadOnly(false);
    mName->setReadOnly(true);
    mDriver.Type(u"x");
    EXPECT_EQ(mName->getText(), u"Anode");
    mDriver.Focus(u"Voltage");
    mDriver.Type(u"q");
    EXPECT_EQ(mVoltage->getText(), u"1.5");
    mSet->Close();
    mDriver.Type(u"7");
    EXPECT_EQ(mVoltage->getText(), u"");
}

TEST_F(DBEditTest, KeepsTheFocusWhereTheFieldRefuses)
{
    UnicodeString shown;
    mDriver.Focus(u"Voltage");
    mDriver.Type(u"1e-e");
    EXPECT_THROW(mSet->Post(), EDatabaseError);
    Forms::Application->OnException = [&](System::TObject*, const std::exception& error) {
        shown = Sysutils::MessageOf(error);
    };
    mDriver.Press(VK_TAB);
    Forms::Application->OnException = nullptr;
    EXPECT_EQ(shown, u"\"1e-e\" is no number for field \"Voltage\".");
    EXPECT_EQ(mDriver.Focused(), u"Voltage");
    EXPECT_EQ(mVoltage->getText(), u"1e-e");
    mDriver.Press(VK_ESCAPE);
    EXPECT_EQ(mVoltage->getText(), u"1.5");
    mDriver.Press(VK_TAB);
    EXPECT_NE(mDriver.Focused(), u"Voltage");
}

TEST_F(DBEditTest, EditsTheTextToEditAndShowsTheOther)
{
    dynamic_cast<TFloatField*>(mSet->FieldByName(u"Voltage"))->setDisplayFormat(u"0.0 'V'");
    EXPECT_EQ(mVoltage->getText(), u"1.5 V");
    mDriver.Focus(u"Voltage");
    EXPECT_EQ(mVoltage->getText(), u"1.5");
    mDriver.Press(VK_TAB);
    EXPECT_EQ(mVoltage->getText(), u"1.5 V");
}

TEST_F(DBEditTest, TakesTheMaskOfItsField)
{
    mSet->FieldByName(u"Name")->setEditMask(u"LL-99;1;_");
    EXPECT_TRUE(mName->getIsMasked());
    mSet->FieldByName(u"Name")->setEditMask(u"");
    EXPECT_FALSE(mName->getIsMasked());
    EXPECT_EQ(mName->getText(), u"Anode");
}

TEST_F(DBEditTest, OutlivesItsSourceAndSetAndHandlersThatDestroyIt)
{
    delete mSet;
    EXPECT_EQ(mName->getText(), u"");
    delete mSource;
    EXPECT_EQ(mName->getDataSource(), nullptr);
    mDriver.Focus(u"Name");
    mDriver.Type(u"x");
    EXPECT_EQ(mName->getText(), u"");

    TMemoryDataSet set;
    set.getFieldDefs()->Add(u"Name", ftWideString);
    set.Open();
    TDataSource source;
    source.setDataSet(&set);
    mName->OnChange = [&](System::TObject*) { delete std::exchange(mName, nullptr); };
    mName->setDataSource(&source);
    const Variant values[] = {u"new"};
    set.AppendRecord(values);
    EXPECT_EQ(mName, nullptr);
    mVoltage->setDataSource(&source);
    mVoltage->setDataField(u"Name");
    set.FieldByName(u"Name")->OnChange = [&](TField*) { delete std::exchange(mVoltage, nullptr); };
    mDriver.Focus(u"Voltage");
    mDriver.Type(u"y");
    set.Post();
    EXPECT_EQ(mVoltage, nullptr);
    EXPECT_EQ(set.FieldByName(u"Name")->getAsString(), u"y");
}

TEST_F(DBEditTest, IsReachedByItsPublishedProperties)
{
    Typinfo::SetStrProp(mName, u"DataField", u"Voltage");
    EXPECT_EQ(mName->getText(), u"1.5");
    EXPECT_EQ(Typinfo::GetObjectProp(mName, u"DataSource"), mSource);
    Typinfo::SetObjectProp(mName, u"DataSource", nullptr);
    EXPECT_EQ(mName->getText(), u"");
}

} // namespace
