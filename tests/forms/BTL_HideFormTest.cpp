// SPDX-License-Identifier: MIT
#include "forms/BTL_HideForm.h"

#include "platform/visual/Forms.h"
#include "platform/visual/data/Dbctrls_DBEdit.h"
#include "platform/visual/data/sets/Db_FieldTypes.h"
#include "platform/visual/data/sets/Db_MemoryDataSet.h"
#include "support/ScriptedBoxes.h"
#include "testing/FormDriver.h"

#include <gtest/gtest.h>

namespace
{

using System::UnicodeString;
using System::Variant;

class HideFormTest : public testing::Test
{
protected:
    HideFormTest()
    {
        mSet->getFieldDefs()->Add(u"Voltage", Db::ftFloat);
        mSet->Open();
        const Variant values[] = {1.5};
        mSet->AppendRecord(values);
        mSource->setDataSet(mSet);
        mOff->setEnabled(false);
        mEdit->setName(u"Edit");
        mEdit->setParent(mForm);
        mEdit->setDataSource(mSource);
        mEdit->setDataField(u"Voltage");
    }
    ~HideFormTest() override { delete mForm; }

    double Voltage() const { return mSet->FieldByName(u"Voltage")->getAsFloat(); }

    Support::ScriptedBoxes mToolkit;
    Forms::TForm* mForm = new Forms::TForm;
    Testing::CFormDriver mDriver{*mForm};
    Classes::TComponent* mModule = new Classes::TComponent(mForm);
    Db::TMemoryDataSet* mSet = new Db::TMemoryDataSet(mModule);
    Db::TDataSource* mSource = new Db::TDataSource(mModule);
    Db::TDataSource* mOff = new Db::TDataSource(mForm);
    Dbctrls::TDBEdit* mEdit = new Dbctrls::TDBEdit(mForm);
};

TEST_F(HideFormTest, HidesTheFormAndItsDataForAScope)
{
    for (const bool enabled : {false, true}) {
        SCOPED_TRACE(enabled);
        mForm->Show();
        {
            const BTL::CHideForm hidden(mForm, enabled);
            EXPECT_FALSE(mForm->getVisible());
            EXPECT_EQ(mForm->getEnabled(), enabled);
            EXPECT_FALSE(mSource->getEnabled());
            EXPECT_FALSE(mOff->getEnabled());
        }
        EXPECT_TRUE(mForm->getVisible());
        EXPECT_TRUE(mForm->getEnabled());
        EXPECT_TRUE(mSource->getEnabled());
        EXPECT_FALSE(mOff->getEnabled());
    }
}

TEST_F(HideFormTest, LeavesAnInvisibleFormAlone)
{
    mForm->setEnabled(false);
    {
        const BTL::CHideForm hidden(mForm, true);
        const BTL::CHideForm none(nullptr, true);
        EXPECT_FALSE(mForm->getEnabled());
        EXPECT_TRUE(mSource->getEnabled());
    }
    EXPECT_FALSE(mForm->getVisible());
    EXPECT_FALSE(mForm->getEnabled());
}

TEST_F(HideFormTest, TakesTheActiveForm)
{
    mForm->Show();
    const BTL::CHideForm hidden(false);
    EXPECT_FALSE(mForm->getVisible());
}

TEST_F(HideFormTest, StoresWhatWasTypedAndLetsTheFocusBeTakenAnew)
{
    mForm->Show();
    mDriver.Focus(u"Edit");
    mDriver.Type(u"7");
    EXPECT_EQ(Voltage(), 1.5);
    UnicodeString log;
    mEdit->OnEnter = [&](System::TObject*) { log += u"enter "; };
    mEdit->OnExit = [&](System::TObject*) { log += u"exit "; };
    {
        const BTL::CHideForm hidden(mForm, true);
        EXPECT_EQ(mSet->getState(), Db::dsEdit);
        EXPECT_EQ(Voltage(), 7.0);
        log = UnicodeString();
    }
    EXPECT_NE(log.Pos(u"exit enter"), 0);
    EXPECT_EQ(mForm->getActiveControl(), mEdit);
    EXPECT_EQ(mEdit->getText(), u"7");
}

TEST_F(HideFormTest, HidesNothingIfAFieldRefuses)
{
    mForm->Show();
    mDriver.Focus(u"Edit");
    mDriver.Type(u"e");
    EXPECT_THROW(BTL::CHideForm(mForm, false), Db::EDatabaseError);
    EXPECT_TRUE(mForm->getVisible());
    EXPECT_TRUE(mForm->getEnabled());
    EXPECT_TRUE(mSource->getEnabled());
    mSet->Cancel();
    mSource->OnStateChange = [&](System::TObject*) {
        mSource->OnStateChange = nullptr;
        throw Sysutils::Exception(u"no");
    };
    EXPECT_THROW(BTL::CHideForm(mForm, false), Sysutils::Exception);
    EXPECT_TRUE(mForm->getVisible());
    EXPECT_TRUE(mSource->getEnabled());
}

TEST_F(HideFormTest, OutlivesTheFormAndItsSources)
{
    mForm->Show();
    {
        BTL::CHideForm hidden(mForm, true);
        delete mSource;
        hidden.EnableDataSources();
        hidden.DisableDataSources();
        delete std::exchange(mForm, nullptr);
        hidden.DisableDataSources();
    }
    EXPECT_EQ(mForm, nullptr);
}

} // namespace
