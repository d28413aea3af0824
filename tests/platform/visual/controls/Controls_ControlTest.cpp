// SPDX-License-Identifier: MIT
#include "platform/visual/controls/Controls_Control.h"

#include "platform/visual/ControlKinds.h"
#include "testing/FormDriver.h"

#include <gtest/gtest.h>

#include <limits>

// Sizes, texts and depths beyond reason, in each class of controls.

namespace
{

using Controls::TControl;
using Support::TKind;
using System::UnicodeString;

constexpr int Most = std::numeric_limits<int>::max();
constexpr int Least = std::numeric_limits<int>::min();

class HostileValuesTest : public testing::Test
{
protected:
    /// Calls `work(form, control)` for each class of controls, on a form that is shown.
    template <class Work>
    void ForEachKind(Work work)
    {
        for (const TKind& kind : Support::Kinds::All) {
            SCOPED_TRACE(kind.name);
            Forms::TForm form;
            TControl& control = *kind.make(form);
            if (&control != &form) {
                control.setParent(&form);
            }
            form.Show();
            work(form, control);
        }
    }

    Support::ScriptedBoxes mToolkit;
};

TEST(ControlHintTest, IsThatOfTheControlUnderTheMouseOrOfWhatItIsIn)
{
    const Support::ScriptedBoxes toolkit;
    Forms::TForm form;
    auto* const panel = new Extctrls::TPanel(&form);
    panel->setParent(&form);
    panel->SetBounds(0, 0, 100, 100);
    panel->setHint(u"panel");
    auto* const label = new Stdctrls::TLabel(&form);
    label->setParent(panel);
    label->setAutoSize(false);
    label->SetBounds(10, 10, 20, 20);
    Toolkits::WindowEvents& events = panel->GetWindowEvents();
    EXPECT_EQ(events.HintAt({15, 15}), u"");
    form.setShowHint(true);
    EXPECT_EQ(events.HintAt({15, 15}), u"panel");
    label->setHint(u"short|long");
    EXPECT_EQ(events.HintAt({15, 15}), u"short");
    EXPECT_EQ(events.HintAt({50, 50}), u"panel");
    label->setShowHint(false);
    EXPECT_EQ(events.HintAt({15, 15}), u"");
    EXPECT_EQ(form.GetWindowEvents().HintAt({-5, -5}), u"");
}

TEST_F(HostileValuesTest, AnySizeIsTaken)
{
    ForEachKind([](Forms::TForm& form, TControl& control) {
        for (const int left : {0, -1, Least, Most}) {
            for (const int width : {0, 1, -1, Least, Most}) {
                control.SetBounds(left, left, width, width);
                EXPECT_GE(control.getWidth(), 0);
                EXPECT_GE(control.getHeight(), 0);
                EXPECT_GE(control.getClientWidth(), 0);
                EXPECT_GE(control.getClientHeight(), 0);
                control.ClientToScreen({left, left});
                control.Repaint();
                form.Repaint();
            }
        }
        control.setClientWidth(Most);
        control.setClientHeight(Least);
        for (const Controls::TAlign align : {Controls::alTop, Controls::alRight, Controls::alClient}) {
            control.setAlign(align);
            form.SetBounds(Least, Most, Most, Least);
            form.SetBounds(0, 0, Most, Most);
            form.SetBounds(0, 0, 100, 100);
        }
    });
}

TEST_F(HostileValuesTest, TextsOfTenMegabytesAreTaken)
{
    constexpr int length = 5'000'000;
    const UnicodeString text = UnicodeString::StringOfChar(u'x', length);
    ForEachKind([&](Forms::TForm& form, TControl& control) {
        control.setText(text);
        control.setHint(text);
        EXPECT_EQ(control.getHint().Length(), length);
        control.Repaint();
        form.Repaint();
    });
}

TEST_F(HostileValuesTest, PanelsAreNestedAThousandDeep)
{
    constexpr int levels = 1000;
    Forms::TForm form;
    Controls::TWinControl* innermost = &form;
    for (int i = 0; i < levels; ++i) {
        // Its parent destroys it.
        auto* const panel = new Extctrls::TPanel;
        panel->setParent(innermost);
        panel->setAlign(Controls::alClient);
        innermost = panel;
    }
    auto* const probe = new Support::TProbe(&form, u"fProbe");
    probe->setParent(innermost);
    form.Show();
    EXPECT_TRUE(probe->getShowing());
    probe->SetFocus();
    Testing::CFormDriver driver(form);
    EXPECT_EQ(driver.Focused(), u"fProbe");
    driver.Press(VK_TAB);
    EXPECT_EQ(driver.Focused(), u"fProbe");
    driver.Type(u"x");
    EXPECT_EQ(probe->getText(), u"fProbex");
    form.Repaint();
    Forms::Application->ProcessMessages();
    EXPECT_FALSE(driver.Print().empty());
    form.setEnabled(false);
    form.Hide();
    EXPECT_FALSE(probe->getShowing());
}

} // namespace
