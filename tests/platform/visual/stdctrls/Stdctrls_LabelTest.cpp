// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/Stdctrls_Label.h"

#include "platform/toolkit/PaintRecording.h"
#include "platform/visual/Forms.h"
#include "platform/visual/graphics/Graphics_Font.h"
#include "platform/visual/stdctrls/edits/Stdctrls_Edit.h"
#include "support/ScriptedBoxes.h"
#include "testing/FormDriver.h"

#include <gtest/gtest.h>

namespace
{

using namespace Stdctrls;
using System::UnicodeString;

class LabelTest : public testing::Test
{
protected:
    LabelTest()
    {
        label->setParent(&form);
        form.Show();
    }

    UnicodeString Painted()
    {
        Toolkits::PaintRecording recording;
        label->Perform(WM_PAINT,
                       reinterpret_cast<std::uintptr_t>(static_cast<Toolkits::PaintDevice*>(&recording)));
        return recording.AsText();
    }

    Support::ScriptedBoxes toolkit;
    Forms::TForm form;
    TLabel* label = new TLabel(&form);
};

TEST_F(LabelTest, TakesItsNameUntilItHasACaption)
{
    label->setName(u"Label1");
    EXPECT_EQ(label->getCaption(), u"Label1");
    label->setName(u"Label2");
    EXPECT_EQ(label->getCaption(), u"Label2");
    label->setCaption(u"Pressure");
    label->setName(u"Label3");
    EXPECT_EQ(label->getCaption(), u"Pressure");
}

TEST_F(LabelTest, TakesTheSizeOfItsText)
{
    label->setCaption(u"iii");
    const int width = label->getWidth();
    const int height = label->getHeight();
    label->setCaption(u"iiiiii");
    EXPECT_EQ(label->getWidth(), 2 * width);
    label->setCaption(u"&iii");
    EXPECT_EQ(label->getWidth(), width);
    label->setShowAccelChar(false);
    EXPECT_GT(label->getWidth(), width);
    label->setShowAccelChar(true);
    const int right = label->getLeft() + label->getWidth();
    label->setAlignment(Classes::taRightJustify);
    label->setCaption(u"iiiiii");
    EXPECT_EQ(label->getLeft() + label->getWidth(), right);
    label->setWordWrap(true);
    label->setAutoSize(false);
    label->setWidth(40);
    label->setCaption(u"several words");
    label->setAutoSize(true);
    EXPECT_EQ(label->getHeight(), 2 * height);
    label->setAutoSize(false);
    label->getFont()->setSize(30);
    EXPECT_EQ(label->getHeight(), 2 * height);
}

TEST_F(LabelTest, LeadsToItsControlByItsAccelerator)
{
    auto* const first = new TEdit(&form);
    auto* const second = new TEdit(&form);
    first->setParent(&form);
    second->setParent(&form);
    first->SetFocus();
    label->setCaption(u"&Name");
    label->setFocusControl(second);
    Testing::CFormDriver driver(form);
    driver.Press('N', {Classes::ssAlt});
    EXPECT_TRUE(second->Focused());
    first->SetFocus();
    for (const auto& [name, change] :
         {std::pair<const char*, void (*)(TLabel&)>{"off", [](TLabel& l) { l.setEnabled(false); }},
          {"hidden", [](TLabel& l) { l.setVisible(false); }},
          {"plain", [](TLabel& l) { l.setShowAccelChar(false); }}}) {
        change(*label);
        driver.Press('N', {Classes::ssAlt});
        EXPECT_TRUE(first->Focused()) << name;
        label->setEnabled(true);
        label->setVisible(true);
    }
    delete second;
    EXPECT_EQ(label->getFocusControl(), nullptr);
}

TEST_F(LabelTest, PaintsByItsLayout)
{
    label->setAutoSize(false);
    label->SetBounds(0, 0, 200, 100);
    label->setCaption(u"x");
    EXPECT_GT(Painted().Pos(u"text 0,0 \"x\""), 0);
    EXPECT_GT(Painted().Pos(u"fill"), 0) << Painted();
    label->setTransparent(true);
    EXPECT_EQ(Painted().Pos(u"fill"), 0) << Painted();
    label->setLayout(tlBottom);
    EXPECT_EQ(Painted().Pos(u"text 0,0"), 0);
    label->setEnabled(false);
    const UnicodeString disabled = Painted();
    EXPECT_NE(disabled.SubString(disabled.Pos(u"\"x\"") + 3).Pos(u"\"x\""), 0);
    label->setEnabled(true);
    label->setEllipsisPosition(epEndEllipsis);
    label->setWidth(40);
    label->setCaption(u"far too long for that");
    EXPECT_GT(Painted().Pos(u"..."), 0);
}

} // namespace
