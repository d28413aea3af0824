// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/visual/Forms.h"
#include "platform/visual/controls/ProbeControl.h"
#include "testing/FormDriver.h"

#include <gtest/gtest.h>

#include <memory>

namespace
{

using namespace Controls;
using Support::TProbe;
using System::TObject;
using System::UnicodeString;

class FormFocusTest : public testing::Test
{
protected:
    FormFocusTest()
    {
        for (const char16_t* name : {u"A", u"B", u"C"}) {
            Add(name, &mForm);
        }
    }

    TProbe* Add(const UnicodeString& name, TWinControl* parent)
    {
        auto* const probe = new TProbe(&mForm, name);
        probe->setText(UnicodeString());
        probe->SetBounds(10 * mForm.GetComponentCount(), 10, 10, 10);
        probe->setParent(parent);
        const auto note = [this](const UnicodeString& what) {
            return [this, what](TObject* sender) {
                mLog += what + dynamic_cast<TComponent*>(sender)->getName() + u" ";
            };
        };
        probe->OnEnter = note(u"+");
        probe->OnExit = note(u"-");
        return probe;
    }

    using TComponent = Classes::TComponent;

    Support::ScriptedBoxes mToolkit;
    UnicodeString mLog;
    Forms::TForm mForm;
    Testing::CFormDriver mDriver{mForm};
};

TEST_F(FormFocusTest, FollowsTheTabKeyRoundTheFormAndPassesOverWhatCantBeUsed)
{
    mForm.Show();
    EXPECT_EQ(mDriver.Focused(), u"A");
    mDriver.Press(VK_TAB);
    EXPECT_EQ(mDriver.Focused(), u"B");
    mDriver.Press(VK_TAB, {Classes::ssShift});
    mDriver.Press(VK_TAB, {Classes::ssShift});
    EXPECT_EQ(mDriver.Focused(), u"C");
    mDriver.Find(u"A").setEnabled(false);
    mDriver.Press(VK_TAB);
    EXPECT_EQ(mDriver.Focused(), u"B");
    EXPECT_EQ(mLog, u"+A -A +B -B +A -A +C -C +B ");
}

TEST_F(FormFocusTest, OrdersByTabOrder)
{
    dynamic_cast<TProbe&>(mDriver.Find(u"C")).setTabOrder(0);
    dynamic_cast<TProbe&>(mDriver.Find(u"A")).setTabOrder(99);
    mForm.Show();
    UnicodeString order;
    for (int i = 0; i < 3; ++i) {
        order += mDriver.Focused();
        mDriver.Press(VK_TAB);
    }
    EXPECT_EQ(order, u"CBA");
}

TEST_F(FormFocusTest, EntersAndLeavesParentsFromOutsideInAndFromInsideOut)
{
    TProbe* const panel = Add(u"P", &mForm);
    panel->setTabStop(false);
    Add(u"D", panel);
    Add(u"E", panel);
    mForm.Show();
    mLog = {};
    mDriver.Focus(u"D");
    mDriver.Focus(u"E");
    mDriver.Focus(u"A");
    EXPECT_EQ(mLog, u"-A +P +D -D +E -E -P +A ");
}

TEST_F(FormFocusTest, GivesThePressedKeysToTheFocusedControlAfterTheForm)
{
    mForm.Show();
    mDriver.Type(u"x");
    mForm.setKeyPreview(true);
    mForm.OnKeyPress = [](TObject*, System::WideChar& key) {
        key = key == u'y' ? u'z' : key == u'q' ? 0 : key;
    };
    mDriver.Type(u"yq");
    EXPECT_EQ(mDriver.Find(u"A").getText(), u"xz");
    mDriver.Click(u"B");
    mDriver.Type(u"1");
    EXPECT_EQ(mDriver.Find(u"B").getText(), u"1");
}

TEST_F(FormFocusTest, KeepsItsPlaceWhileTheFormIsHidden)
{
    mForm.Show();
    mDriver.Focus(u"B");
    mLog = {};
    mForm.Hide();
    EXPECT_EQ(mForm.getActiveControl(), &mDriver.Find(u"B"));
    EXPECT_EQ(Controls::GetFocusedControl(), nullptr);
    mForm.Show();
    EXPECT_EQ(mDriver.Focused(), u"B");
    EXPECT_EQ(mLog, u"") << "it was never left";
}

TEST_F(FormFocusTest, LeavesWhatIsHiddenDisabledMovedOrDestroyed)
{
    mForm.Show();
    mDriver.Find(u"A").setVisible(false);
    EXPECT_EQ(mForm.getActiveControl(), nullptr);
    mDriver.Focus(u"B");
    mDriver.Find(u"B").setEnabled(false);
    EXPECT_EQ(mForm.getActiveControl(), nullptr);
    mDriver.Focus(u"C");
    Forms::TForm other;
    mDriver.Find(u"C").setParent(&other);
    EXPECT_EQ(mForm.getActiveControl(), nullptr);
    EXPECT_EQ(mDriver.Focused(), u"");
    TProbe* const last = Add(u"F", &mForm);
    mDriver.Focus(u"F");
    delete last;
    EXPECT_EQ(mForm.getActiveControl(), nullptr);
    EXPECT_EQ(GetFocusedControl(), nullptr);
}

TEST_F(FormFocusTest, StaysWhereAHandlerRefusesToBeLeft)
{
    mForm.Show();
    auto& first = dynamic_cast<TProbe&>(mDriver.Find(u"A"));
    first.OnExit = [](TObject*) { throw Sysutils::Exception(u"not a number"); };
    mDriver.Press(VK_TAB);
    EXPECT_EQ(mDriver.Focused(), u"A");
    const auto shown = mToolkit.TakeShown();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0].box.text, u"not a number");
}

TEST_F(FormFocusTest, BearsAnyDestructionFromWithinAnEvent)
{
    // Each handler destroys one of them; the events are those of a step to the next control.
    for (const bool isExit : {true, false}) {
        for (const char16_t* victim : {u"A", u"B", u"form"}) {
            auto* const form = new Forms::TForm;
            auto* const a = new TProbe(form, u"A");
            auto* const b = new TProbe(form, u"B");
            a->setParent(form);
            b->setParent(form);
            form->Show();
            const auto destroy = [&](TObject*) {
                a->OnExit = nullptr;
                const UnicodeString name(victim);
                delete (name == u"A" ? a : name == u"B" ? static_cast<TComponent*>(b) : form);
            };
            (isExit ? a->OnExit : b->OnEnter) = destroy;
            const Classes::TComponentWatch watch(form);
            Testing::CFormDriver(*form).Press(VK_TAB);
            EXPECT_EQ(watch.IsAlive(), UnicodeString(victim) != u"form");
            if (watch.IsAlive()) {
                EXPECT_EQ(form->GetControlCount(), 1);
                delete form;
            }
        }
    }
}

TEST_F(FormFocusTest, RefusesWhatCantHaveIt)
{
    mForm.Show();
    TProbe outside(nullptr);
    EXPECT_THROW(outside.SetFocus(), Classes::EInvalidOperation);
    EXPECT_THROW(mForm.setActiveControl(&outside), Classes::EInvalidOperation);
    mDriver.Find(u"B").setVisible(false);
    EXPECT_THROW(mDriver.Focus(u"B"), Classes::EInvalidOperation);
    EXPECT_EQ(mDriver.Focused(), u"A");
}

} // namespace
