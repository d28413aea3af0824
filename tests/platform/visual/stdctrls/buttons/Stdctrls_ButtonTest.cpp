// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/buttons/Stdctrls_Button.h"

#include "platform/runtime/typinfo/Typinfo.h"
#include "platform/visual/controls/ProbeControl.h"
#include "platform/visual/stdctrls/ShownForm.h"

#include <stdexcept>

namespace
{

using Stdctrls::TButton;
using Support::TProbe;
using System::TObject;
using System::UnicodeString;
using Toolkits::EMouseAction;

class ButtonTest : public Support::ShownForm
{
protected:
    ButtonTest()
    {
        mEdit->SetBounds(100, 0, 50, 20);
        mEdit->setParent(&mForm);
        mOk->setCaption(u"&Ok");
        mOk->setDefault(true);
        mOk->OnClick = Note(u"ok");
        mCancel->setCaption(u"Ca&ncel");
        mCancel->setCancel(true);
        mCancel->OnClick = Note(u"cancel");
        mForm.Show();
        mDriver.Focus(u"Edit");
    }

    TProbe* mEdit = new TProbe(&mForm, u"Edit");
    TButton* mOk = Add<TButton>(u"Ok");
    TButton* mCancel = Add<TButton>(u"Cancel");
};

TEST_F(ButtonTest, IsPressedByMouseAndKeys)
{
    struct TRow
    {
        const char* trace;
        void (*use)(Testing::CFormDriver& driver);
        const char16_t* log;
    };
    using TDriver = Testing::CFormDriver;
    for (const auto& [trace, use, log] :
         {TRow{"mouse", [](TDriver& driver) { driver.Click(u"Ok"); }, u"ok "},
          {"two clicks", [](TDriver& driver) { driver.DoubleClick(u"Ok"); }, u"ok ok "},
          {"space bar",
           [](TDriver& driver) {
               driver.Focus(u"Cancel");
               driver.Press(VK_SPACE);
           },
           u"cancel "},
          {"Enter in the default button's form", [](TDriver& driver) { driver.Press(VK_RETURN); }, u"ok "},
          {"Enter on another button",
           [](TDriver& driver) {
               driver.Focus(u"Cancel");
               driver.Press(VK_RETURN);
           },
           u"cancel "},
          {"Escape", [](TDriver& driver) { driver.Press(VK_ESCAPE); }, u"cancel "},
          {"Shift+Enter", [](TDriver& driver) { driver.Press(VK_RETURN, {Classes::ssShift}); }, u""},
          {"Alt and the mark", [](TDriver& driver) { driver.Press('N', {Classes::ssAlt}); }, u"cancel "},
          {"the mark alone in an edit", [](TDriver& driver) { driver.Type(u"n"); }, u""},
          {"the mark alone on a button",
           [](TDriver& driver) {
               driver.Focus(u"Ok");
               driver.Type(u"n");
           },
           u"cancel "}}) {
        SCOPED_TRACE(trace);
        mDriver.Focus(u"Edit");
        use(mDriver);
        EXPECT_EQ(TakeLog(), log);
    }
    EXPECT_EQ(mEdit->getText(), u"Edit\rn");
}

TEST_F(ButtonTest, LeavesEnterToOthersWhileItCantBeUsed)
{
    mOk->setEnabled(false);
    mDriver.Press(VK_RETURN);
    mOk->setEnabled(true);
    mOk->setVisible(false);
    mDriver.Press(VK_RETURN);
    mDriver.Press('O', {Classes::ssAlt});
    EXPECT_EQ(TakeLog(), u"");
    mOk->setVisible(true);
    mCancel->setDefault(true);
    EXPECT_EQ(mDriver.Focused(), u"Edit");
    EXPECT_TRUE(mOk->getActive());
    mDriver.Focus(u"Cancel");
    EXPECT_FALSE(mOk->getActive());
}

TEST_F(ButtonTest, TellsOfFocusPressClickAndReleaseInThisOrder)
{
    mOk->OnEnter = Note(u"enter");
    mOk->OnMouseDown = [this](auto&&...) { mLog += u"down "; };
    mOk->OnMouseUp = [this](auto&&...) { mLog += u"up "; };
    mDriver.Click(u"Ok");
    EXPECT_EQ(TakeLog(), u"enter down ok up ");
}

TEST_F(ButtonTest, IsntPressedWhereTheMouseIsLetGoOutside)
{
    Toolkits::TMouseInput mouse{.action = EMouseAction::Down, .shift = {Classes::ssLeft}, .place = {5, 5}};
    mDriver.Mouse(u"Ok", mouse);
    mouse.action = EMouseAction::Move;
    mouse.place = {5, 500};
    mDriver.Mouse(u"Ok", mouse);
    mouse.action = EMouseAction::Up;
    mDriver.Mouse(u"Ok", mouse);
    EXPECT_EQ(TakeLog(), u"");
    EXPECT_EQ(Controls::GetCaptureControl(), nullptr);
}

TEST_F(ButtonTest, EndsAModalFormWithItsResult)
{
    mForm.Hide();
    mOk->setModalResult(1);
    mOk->OnClick = [this](TObject*) { mLog += UnicodeString(mForm.getModalResult()); };
    mToolkit.AnswerForm([this](Toolkits::ModalWindow&) { mDriver.Press(VK_RETURN); });
    EXPECT_EQ(mForm.ShowModal(), 1);
    EXPECT_EQ(TakeLog(), u"1");
}

TEST_F(ButtonTest, MayBeDestroyedByItsOwnClick)
{
    mOk->OnClick = [](TObject* sender) { delete sender; };
    mDriver.Click(u"Ok");
    EXPECT_EQ(mForm.FindComponent(u"Ok"), nullptr);
    mCancel->OnClick = [](TObject* sender) { delete sender; };
    mDriver.Focus(u"Cancel");
    mDriver.Press(VK_SPACE);
    EXPECT_EQ(mForm.FindComponent(u"Cancel"), nullptr);
}

TEST_F(ButtonTest, SurvivesAHandlerThatThrows)
{
    mOk->OnClick = [](TObject*) { throw std::runtime_error("no"); };
    mDriver.Click(u"Ok");
    EXPECT_EQ(mToolkit.TakeShown().size(), 1U);
    mOk->OnClick = Note(u"ok");
    mDriver.Click(u"Ok");
    EXPECT_EQ(TakeLog(), u"ok ");
}

TEST_F(ButtonTest, IsntPressedWhereTheFocusIsRefused)
{
    mEdit->OnExit = [](TObject*) { throw std::runtime_error("not yet"); };
    mDriver.Click(u"Ok");
    EXPECT_EQ(TakeLog(), u"");
    EXPECT_EQ(mDriver.Focused(), u"Edit");
    EXPECT_EQ(mToolkit.TakeShown().size(), 1U);
}

TEST_F(ButtonTest, IsPrintedWithWhatTheKeysDo)
{
    EXPECT_NE(mDriver.Print().find("TButton Ok 0,60 75x25 \"&Ok\" default\n"), std::string::npos)
        << mDriver.Print();
    EXPECT_NE(mDriver.Print().find("\"Ca&ncel\" cancel\n"), std::string::npos);
}

TEST_F(ButtonTest, PublishesWhatAFormSets)
{
    for (const char16_t* name :
         {u"Default", u"Cancel", u"ModalResult", u"WordWrap", u"TabStop", u"Enabled"}) {
        SCOPED_TRACE(System::ToUtf8(name));
        Typinfo::SetOrdProp(mOk, name, 0);
        Typinfo::SetOrdProp(mOk, name, 1);
        EXPECT_EQ(Typinfo::GetOrdProp(mOk, name), 1);
    }
    Typinfo::SetStrProp(mOk, u"caption", u"Go");
    EXPECT_EQ(mOk->getCaption(), u"Go");
}

} // namespace
