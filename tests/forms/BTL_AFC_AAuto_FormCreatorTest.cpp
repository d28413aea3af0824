// SPDX-License-Identifier: MIT
#include "forms/BTL_AFC_AAuto_FormCreator.h"

#include "forms/BTL_AFC_AAuto_FormCreatorStd.h"
#include "foundation/UTL_ASRT_Assert.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/toolkit/Dialogs.h"
#include "platform/toolkit/MessageBox.h"
#include "platform/visual/Forms.h"
#include "progress/BTL_WaitSplash.h"
#include "properties/classes/BTL_ClassModules.h"
#include "support/ScriptedBoxes.h"
#include "support/SecondProcess.h"

#include <gtest/gtest.h>

namespace
{

using BTL::GAuto_FormCreator;

/// Tells what was around it as it was made, and how many there are.
class TMadeForm : public Forms::TForm
{
    TRS8_BTL_CLASS(TMadeForm, Forms::TForm)

public:
    explicit TMadeForm(Classes::TComponent* owner = nullptr)
        : TForm(owner),
          hadSplash(BTL::CWaitSplash::GetSplash() != nullptr),
          cursor(Forms::Screen->getCursor())
    {
        ++count;
    }
    ~TMadeForm() override { --count; }

    static inline int count = 0;
    bool hadSplash;
    Controls::TCursor cursor;
};

System::TMetaClass* TMadeForm::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TMadeForm>(u"TMadeForm").Build();
    return record;
}

/// Raises as it is made, or destroys itself.
class TFailingForm : public Forms::TForm
{
    TRS8_BTL_CLASS(TFailingForm, Forms::TForm)

public:
    explicit TFailingForm(Classes::TComponent* owner = nullptr) : TForm(owner)
    {
        OnCreate = [this](System::TObject*) {
            if (!isRaising) {
                delete this;
                return;
            }
            throw Sysutils::Exception(u"no");
        };
    }

    static inline bool isRaising = true;
};

System::TMetaClass* TFailingForm::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TFailingForm>(u"TFailingForm").Build();
    return record;
}

class FormCreatorTest : public testing::Test
{
protected:
    /// The program has a main form, whose end would be that of the program.
    static void SetUpTestSuite()
    {
        static Forms::TForm* main = nullptr;
        Forms::Application->CreateForm(main);
    }

    Support::ScriptedBoxes mBoxes{IDYES, IDNO};
    TMadeForm* mForm = nullptr;
};

TEST_F(FormCreatorTest, MakesAFormOnce)
{
    for (const bool withSplash : {true, false}) {
        GAuto_FormCreator<TMadeForm> creator(mForm, withSplash, true);
        EXPECT_EQ(mForm, nullptr);
        creator.CreateForm();
        const auto* const made = mForm;
        ASSERT_NE(made, nullptr);
        EXPECT_EQ(made->getOwner(), nullptr);
        EXPECT_EQ(made->hadSplash, withSplash);
        // The hourglass gives way to the splash, which has its own.
        EXPECT_EQ(made->cursor, withSplash ? Controls::crDefault : Controls::crHourGlass);
        EXPECT_EQ(BTL::CWaitSplash::GetSplash(), nullptr);
        EXPECT_EQ(Forms::Screen->getCursor(), Controls::crDefault);
        creator.CreateForm(!withSplash);
        EXPECT_EQ(mForm, made);
        creator.Free();
        EXPECT_EQ(mForm, nullptr);
        creator.Free();
        creator.CreateForm(!withSplash);
        EXPECT_EQ(mForm->hadSplash, !withSplash);
    }
    EXPECT_EQ(TMadeForm::count, 0) << "the creator took it along";
    EXPECT_EQ(mForm, nullptr);
}

TEST_F(FormCreatorTest, TheApplicationOwnsWhatTheCreatorDoesNot)
{
    {
        GAuto_FormCreator<TMadeForm> creator(mForm, false, false);
        creator.CreateForm();
        EXPECT_EQ(mForm->getOwner(), Forms::Application);
        EXPECT_FALSE(creator.getOwned());
    }
    EXPECT_EQ(TMadeForm::count, 1);
    delete mForm;
}

TEST_F(FormCreatorTest, WithoutAMainFormTheCreatorOwnsTheForm)
{
    const Support::SecondProcess program([](int tell) {
        delete Forms::Application->getMainForm();
        TMadeForm* form = nullptr;
        {
            GAuto_FormCreator<TMadeForm> creator(form, false, false);
            creator.CreateForm();
            if (!creator.getOwned() || form->getOwner() != nullptr ||
                Forms::Application->getMainForm() != nullptr) {
                return;
            }
        }
        if (form == nullptr && TMadeForm::count == 0) {
            Support::SecondProcess::Tell(tell);
        }
    });
    EXPECT_TRUE(program.Await());
}

TEST_F(FormCreatorTest, TheVariableHearsOfTheEndOfTheForm)
{
    GAuto_FormCreator<TMadeForm> creator(mForm, false, true);
    creator.CreateForm();
    delete mForm;
    EXPECT_EQ(mForm, nullptr);
    creator.CreateForm();
    EXPECT_EQ(TMadeForm::count, 1);
}

TEST_F(FormCreatorTest, TheVariableIsTrueAlsoIfTheCreationFails)
{
    TFailingForm* form = nullptr;
    GAuto_FormCreator<TFailingForm> creator(form, false, false);
    EXPECT_THROW(creator.CreateForm(), Sysutils::Exception);
    ASSERT_NE(form, nullptr) << "its handler raised, but it is there";
    delete form;
    EXPECT_EQ(form, nullptr);
    TFailingForm::isRaising = false;
    creator.CreateForm();
    EXPECT_EQ(form, nullptr);
    TFailingForm::isRaising = true;
}

TEST_F(FormCreatorTest, ShowsTheFormModally)
{
    GAuto_FormCreator<TMadeForm> creator(mForm, false, true);
    Forms::TForm under;
    under.Show();
    for (Forms::TForm* const over : {&under, static_cast<Forms::TForm*>(nullptr)}) {
        mBoxes.AnswerForm([&](Toolkits::ModalWindow&) {
            EXPECT_TRUE(mForm->getVisible());
            EXPECT_EQ(under.getVisible(), over == nullptr) << "it gives way to the form over it";
            mForm->setModalResult(mrYes);
        });
        EXPECT_EQ(creator.ShowModal(over), mrYes);
        EXPECT_TRUE(under.getVisible());
        EXPECT_TRUE(under.getEnabled());
    }
}

TEST_F(FormCreatorTest, CreationMayBeForbidden)
{
    GAuto_FormCreator<TMadeForm> creator(mForm, false, true);
    creator.setCanCreate(false);
    EXPECT_THROW(creator.CreateForm(), UTL::XAssert);
    EXPECT_EQ(mForm, nullptr);
    creator.CreateForm();
    EXPECT_NE(mForm, nullptr) << "the fault was let pass";
}

TEST_F(FormCreatorTest, TellsTheRegisterOfItsClass)
{
    const GAuto_FormCreator<TMadeForm> creator(mForm, false, true);
    Classes::TStringList classes;
    BTL::GetClasses(&classes);
    EXPECT_GE(classes.IndexOf(u"TMadeForm"), 0);
}

/// One that makes something else than a form.
class Maker : public BTL::AAuto_FormCreatorStd
{
public:
    explicit Maker(Classes::TComponent*& made) : AAuto_FormCreatorStd(made, nullptr, false, true), mMade(made)
    {
    }

protected:
    void DoCreateForm(bool) override { mMade = new Classes::TComponent; }

private:
    Classes::TComponent*& mMade;
};

TEST_F(FormCreatorTest, WhatIsNoFormIsNotShown)
{
    Classes::TComponent* made = nullptr;
    {
        Maker maker(made);
        EXPECT_EQ(maker.ShowModal(nullptr), 0);
        EXPECT_NE(made, nullptr);
    }
    EXPECT_EQ(made, nullptr);
}

} // namespace
