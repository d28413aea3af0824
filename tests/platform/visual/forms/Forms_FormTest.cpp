// SPDX-License-Identifier: MIT
#include "platform/visual/forms/Forms_Form.h"

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/toolkit/Dialogs.h"
#include "platform/toolkit/Toolkit.h"
#include "platform/visual/Forms.h"
#include "platform/visual/controls/ProbeControl.h"
#include "platform/visual/menus/Menus.h"
#include "support/ShowPainted.h"
#include "testing/FormDriver.h"

#include <gtest/gtest.h>

#include <memory>
#include <thread>
#include <utility>

namespace
{

using Forms::TForm;
using System::TObject;
using System::UnicodeString;
using Types::TRect;

/// Boxes and forms of a test, and what was heard of a form.
class FormTest : public testing::Test
{
protected:
    Classes::TNotifyEvent Note(const UnicodeString& what)
    {
        return [this, what](TObject*) { mLog += what + u" "; };
    }

    Support::ScriptedBoxes mToolkit;
    UnicodeString mLog;
};

TEST_F(FormTest, ComesAndGoesInItsOrder)
{
    {
        TForm form;
        form.OnCreate = Note(u"create");
        form.OnShow = Note(u"show");
        form.OnActivate = Note(u"activate");
        form.OnDeactivate = Note(u"deactivate");
        form.OnHide = Note(u"hide");
        form.OnDestroy = Note(u"destroy");
        EXPECT_FALSE(form.getVisible());
        form.Show();
        EXPECT_TRUE(form.getShowing());
        EXPECT_EQ(Forms::Screen->getActiveForm(), &form);
        form.Hide();
        EXPECT_FALSE(form.getShowing());
        form.Show();
        form.Hide();
    }
    EXPECT_EQ(mLog, u"create show activate deactivate hide show activate deactivate hide destroy ");
    EXPECT_EQ(Forms::Screen->getActiveForm(), nullptr);
}

/// What it owns is destroyed with it, and the user may have worked in that.
TEST_F(FormTest, IsNotEnteredWhileItEnds)
{
    for (const bool hasOther : {false, true}) {
        TForm other;
        if (hasOther) {
            other.Show();
        }
        auto form = std::make_unique<TForm>();
        form->Show();
        auto* const owned = new TForm(form.get());
        owned->Show();
        form->OnActivate = Note(u"activate");
        form->OnDeactivate = Note(u"deactivate");
        form->OnDestroy = Note(u"destroy");
        form.reset();
        EXPECT_EQ(Forms::Screen->getActiveCustomForm(), hasOther ? &other : nullptr);
        auto active = std::make_unique<TForm>();
        active->Show();
        active->OnDeactivate = Note(u"deactivate");
        active.reset();
        EXPECT_EQ(Forms::Screen->getActiveCustomForm(), hasOther ? &other : nullptr);
    }
    EXPECT_EQ(mLog, u"destroy destroy ");
}

TEST_F(FormTest, GoesToTheFrontAndToTheBack)
{
    TForm forms[4];
    for (TForm& form : forms) {
        form.Show();
    }
    forms[0].BringToFront();
    forms[2].SendToBack();
    EXPECT_TRUE(forms[3].getActive()) << "the user stays where he is";
    for (const int next : {0, 1, 2}) {
        Forms::Screen->getActiveForm()->Hide();
        EXPECT_EQ(Forms::Screen->getActiveForm(), &forms[next]) << next;
    }
}

TEST_F(FormTest, FillsTheScreenAndComesBack)
{
    const TRect desktop = Forms::Screen->getDesktopRect();
    const TRect usual{20, 30, 340, 270};
    for (const bool isSetBefore : {true, false}) {
        TForm form;
        form.setBoundsRect(usual);
        if (isSetBefore) {
            form.setWindowState(Forms::wsMaximized);
            EXPECT_EQ(form.getBoundsRect(), usual) << "it isn't shown yet";
        }
        EXPECT_TRUE(Support::ShowPainted(form));
        form.setWindowState(Forms::wsMaximized);
        EXPECT_TRUE(Support::RunUntil([&] {
            return form.getClientWidth() >= desktop.Width() / 2 && form.getLeft() <= 0;
        })) << form.getLeft()
            << ' ' << form.getClientWidth();
        EXPECT_EQ(form.getWindowState(), Forms::wsMaximized);
        form.setWindowState(Forms::wsNormal);
        EXPECT_TRUE(Support::RunUntil([&] { return form.getBoundsRect() == usual; }));
        form.setWindowState(Forms::wsMinimized);
        Forms::Application->ProcessMessages();
        EXPECT_EQ(form.getWindowState(), Forms::wsMinimized);
        form.GetWindowEvents().StateChanged(Toolkits::EWindowState::Maximized);
        EXPECT_EQ(form.getWindowState(), Forms::wsMaximized) << "the user's doing";
    }
}

TEST_F(FormTest, MayGoWhereItsStateIsShown)
{
    auto* form = new TForm;
    form->setWindowState(Forms::wsMaximized);
    form->OnResize = [&](TObject*) { delete std::exchange(form, nullptr); };
    form->Show();
    EXPECT_TRUE(Support::RunUntil([&] { return form == nullptr; }));
}

TEST_F(FormTest, OfOneWindowOnlyInputAndPaintRun)
{
    Toolkits::Toolkit& toolkit = Toolkits::CurrentToolkit();
    TForm form;
    auto* const other = new TForm(&form);
    EXPECT_TRUE(Support::ShowPainted(form));
    EXPECT_TRUE(Support::ShowPainted(*other));
    std::string log;
    toolkit.Post([&] { log += "posted "; });
    toolkit.PostInput(*other->GetWindow(), [&] { log += "other "; });
    toolkit.PostInput(*form.GetWindow(), [&] { log += "form "; });
    form.OnPaint = [&](TObject*) { log += "paint "; };
    form.Invalidate();
    while (toolkit.ProcessInput(*form.GetWindow())) {
    }
    EXPECT_EQ(log, "form paint ");
    toolkit.PostInput(*form.GetWindow(), [&] { delete other; });
    while (toolkit.ProcessInput(*form.GetWindow())) {
    }
    Forms::Application->ProcessMessages();
    EXPECT_EQ(log, "form paint posted ");
}

/// A form with a menu.
class FormMenuTest : public FormTest
{
protected:
    FormMenuTest()
    {
        Menus::TMenuItem* const file = Add(mMenu->getItems(), u"&File");
        Add(file, u"&Open");
        Add(file, u"&Close")->setEnabled(false);
        mForm.setMenu(mMenu);
        mForm.Show();
    }

    Menus::TMenuItem* Add(Menus::TMenuItem* parent, const UnicodeString& caption)
    {
        auto* const item = new Menus::TMenuItem(&mForm);
        item->setCaption(caption);
        item->OnClick = Note(caption);
        parent->Add(item);
        return item;
    }

    TForm mForm;
    Menus::TMainMenu* mMenu = new Menus::TMainMenu(&mForm);
    Testing::CFormDriver mDriver{mForm};
};

/// Where no window has the menu in a bar, the script chooses in it.
class ScriptedFormMenuTest : public FormMenuTest
{
};

TEST_F(ScriptedFormMenuTest, IsOpenedByItsMarks)
{
    mToolkit.AnswerMenu(u"Open");
    mDriver.Press('F', {Classes::ssAlt});
    EXPECT_EQ(mLog, u"&File &Open ");
    mDriver.Press('F');
    mDriver.Press(VK_F10);
    EXPECT_EQ(mLog, u"&File &Open ");
}

TEST_F(FormMenuTest, IsChosenFrom)
{
    mDriver.ChooseMenu(u"File|Open");
    EXPECT_EQ(mLog, u"&Open ");
    EXPECT_THROW(mDriver.ChooseMenu(u"File|Close"), std::logic_error);
    EXPECT_THROW(mDriver.ChooseMenu(u"File|Print"), std::invalid_argument);
}

TEST_F(FormMenuTest, LetsGoOfItsMenuAndThatOfIt)
{
    const int height = mForm.getClientHeight();
    auto* const other = new Menus::TMainMenu(&mForm);
    mForm.setMenu(other);
    Add(mMenu->getItems(), u"&Later");
    delete other;
    EXPECT_EQ(mForm.getMenu(), nullptr);
    EXPECT_EQ(mForm.getClientHeight(), height);
    Menus::TMainMenu lasting;
    {
        TForm form;
        form.setMenu(&lasting);
        form.Show();
    }
    lasting.getItems()->Add(new Menus::TMenuItem(&lasting));
}

TEST_F(FormTest, AsksBeforeItCloses)
{
    TForm form;
    form.Show();
    bool canClose = false;
    Forms::TCloseAction action = Forms::caNone;
    form.OnCloseQuery = [&](TObject*, bool& result) { result = canClose; };
    form.OnClose = [&](TObject*, Forms::TCloseAction& result) { result = action; };
    form.Close();
    EXPECT_TRUE(form.getVisible());
    canClose = true;
    form.Close();
    EXPECT_TRUE(form.getVisible());
    action = Forms::caHide;
    form.Close();
    EXPECT_FALSE(form.getVisible());
}

TEST_F(FormTest, FreesItselfFromTheMessageLoop)
{
    auto* const form = new TForm;
    const Classes::TComponentWatch watch(form);
    form->Show();
    form->OnClose = [](TObject*, Forms::TCloseAction& action) { action = Forms::caFree; };
    form->Close();
    form->Release();
    EXPECT_TRUE(watch.IsAlive());
    Forms::Application->ProcessMessages();
    EXPECT_FALSE(watch.IsAlive());
}

TEST_F(FormTest, StandsWhereItsPositionSays)
{
    struct TCase
    {
        Forms::TPosition position;
        TRect expected;
    };
    const TRect desktop = Forms::Screen->getDesktopRect();
    const int left = (desktop.Width() - 320) / 2;
    const int top = (desktop.Height() - 240) / 2;
    const TCase cases[] = {
        {Forms::poDesigned, {5000, 10, 5320, 250}},
        {Forms::poScreenCenter, {left, top, left + 320, top + 240}},
    };
    for (const TCase& row : cases) {
        TForm form;
        form.SetBounds(5000, 10, 320, 240);
        form.setPosition(row.position);
        form.Show();
        EXPECT_EQ(form.getBoundsRect(), row.expected);
        form.MakeFullyVisible();
        EXPECT_LE(form.getBoundsRect().Right, desktop.Right);
        EXPECT_GE(form.getBoundsRect().Left, 0);
    }
}

TEST_F(FormTest, HasAClientAreaWithinItsFrame)
{
    TForm form;
    for (const Forms::TFormBorderStyle style : {Forms::bsSizeable, Forms::bsDialog, Forms::bsNone}) {
        form.setBorderStyle(style);
        form.setClientWidth(400);
        form.setClientHeight(69);
        EXPECT_EQ(form.getClientRect(), (TRect{0, 0, 400, 69}));
        EXPECT_EQ(form.getWidth() > 400, style != Forms::bsNone);
    }
    form.SetBounds(0, 0, 2, 2);
    EXPECT_EQ(form.getClientRect(), (TRect{0, 0, 2, 2}));
}

TEST_F(FormTest, ShowsAndSurvivesWhatHandlersRaise)
{
    TForm form;
    form.SetBounds(0, 0, 100, 100);
    auto* const probe = new Support::TProbe(&form, u"A");
    probe->SetBounds(0, 0, 50, 50);
    probe->setParent(&form);
    form.Show();
    const auto fail = [](TObject*) { throw Sysutils::Exception(u"click failed"); };
    probe->OnClick = fail;
    Testing::CFormDriver driver(form);
    driver.Click(u"A");
    driver.Click(u"A");
    auto shown = mToolkit.TakeShown();
    ASSERT_EQ(shown.size(), 2U);
    EXPECT_EQ(shown[1].box.text, u"click failed");

    UnicodeString heard;
    Forms::Application->OnException = [&](TObject* sender, const std::exception& fault) {
        heard = sender == probe ? Sysutils::MessageOf(fault) : UnicodeString(u"another sender");
    };
    driver.Click(u"A");
    Forms::Application->OnException = nullptr;
    EXPECT_EQ(heard, u"click failed");

    probe->OnClick = [](TObject*) { throw Sysutils::EAbort(u"silent"); };
    driver.Click(u"A");
    EXPECT_TRUE(mToolkit.TakeShown().empty());
}

/// Raises where it hears of an end.
class TGrumbler : public Classes::TComponent
{
public:
    using TComponent::TComponent;

protected:
    void Notification(Classes::TComponent*, Classes::TOperation operation) override
    {
        if (operation == Classes::opRemove) {
            throw Sysutils::Exception(u"missed");
        }
    }
};

TEST_F(FormTest, MayEndWhileAFaultAtAnotherEndIsTold)
{
    for (const bool isOwned : {false, true}) {
        auto* form = new TForm;
        new TGrumbler(form);
        auto* const last = new Classes::TComponent(form);
        TGrumbler outside;
        outside.FreeNotification(isOwned ? last : form);
        int told = 0;
        Forms::Application->OnException = [&](TObject*, const std::exception&) {
            ++told;
            delete (isOwned ? std::exchange(form, nullptr) : nullptr);
        };
        delete (isOwned ? last : static_cast<Classes::TComponent*>(form));
        Forms::Application->OnException = nullptr;
        EXPECT_EQ(Forms::Screen->getFormCount(), 0);
        EXPECT_EQ(told, isOwned ? 2 : 1);
    }
}

TEST_F(FormTest, BearsAClickThatDestroysWhatWasClicked)
{
    for (const char16_t* victim : {u"control", u"panel", u"form"}) {
        auto* const form = new TForm;
        auto* const panel = new Support::TProbe(form, u"Panel");
        panel->SetBounds(0, 0, 100, 100);
        panel->setParent(form);
        auto* const graphic = new Controls::TGraphicControl(form);
        graphic->setName(u"Graphic");
        graphic->SetBounds(0, 0, 50, 50);
        graphic->setParent(panel);
        graphic->OnClick = [&](TObject*) {
            const UnicodeString name(victim);
            delete (name == u"control" ? static_cast<Classes::TComponent*>(graphic)
                    : name == u"panel" ? static_cast<Classes::TComponent*>(panel)
                                       : form);
        };
        form->Show();
        const Classes::TComponentWatch watch(form);
        Testing::CFormDriver(*form).Click(u"Graphic");
        if (watch.IsAlive()) {
            EXPECT_EQ(form->FindComponent(u"Graphic"), nullptr);
            delete form;
        }
    }
    EXPECT_EQ(Controls::GetCaptureControl(), nullptr);
    EXPECT_EQ(Controls::GetMouseControl(), nullptr);
}

TEST_F(FormTest, KeepsItsStateWhereItsWindowIsMadeAnew)
{
    TForm form;
    auto* const probe = new Support::TProbe(&form, u"A");
    probe->SetBounds(0, 0, 50, 50);
    probe->setParent(&form);
    form.OnShow = Note(u"show");
    form.OnActivate = Note(u"activate");
    form.Show();
    form.setBorderStyle(Forms::bsDialog);
    EXPECT_TRUE(probe->HandleAllocated());
    EXPECT_TRUE(probe->Focused());
    Testing::CFormDriver(form).Type(u"x");
    EXPECT_EQ(probe->getText(), u"Ax");
    EXPECT_EQ(mLog, u"show activate ");
}

TEST_F(FormTest, PrintsItself)
{
    TForm form;
    form.setName(u"Settings");
    form.SetBounds(1, 2, 300, 200);
    auto* const probe = new Support::TProbe(&form, u"A");
    probe->SetBounds(3, 4, 50, 20);
    probe->setParent(&form);
    auto* const inner = new Controls::TGraphicControl(&form);
    inner->setParent(probe);
    inner->setEnabled(false);
    inner->setVisible(false);
    form.setPosition(Forms::poDesigned);
    form.Show();
    EXPECT_EQ(Testing::CFormDriver(form).Print(), "TForm Settings 1,2 300x200 \"Settings\"\n"
                                                  "  TCustomControl A 3,4 50x20 \"A\" focused\n"
                                                  "    TGraphicControl - 0,0 0x0 \"\" hidden disabled\n");
}

TEST_F(FormTest, BelongsToTheMainThread)
{
    TForm form;
    bool wasRefused = false;
    std::thread([&] {
        try {
            form.setCaption(u"no");
        } catch (const Sysutils::Exception&) {
            wasRefused = true;
        }
    }).join();
    EXPECT_TRUE(wasRefused);
    EXPECT_EQ(form.getCaption(), u"");
}

} // namespace
