// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/panels/Extctrls_Panel.h"

#include "platform/runtime/filer/FilerSupport.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/toolkit/PaintRecording.h"
#include "platform/visual/Forms.h"
#include "platform/visual/controls/ProbeControl.h"

#include <gtest/gtest.h>

#include <functional>

namespace
{

using Extctrls::TPanel;
using Types::TRect;

/// A form with a panel on it, as a design has it.
class TPanelForm : public Forms::TForm
{
    TRS8_BTL_CLASS(TPanelForm, Forms::TForm)

public:
    explicit TPanelForm(Classes::TComponent* owner = nullptr) : TForm(owner) { ReadDesign(); }

    TPanel* Panel = nullptr;
};

System::TMetaClass* TPanelForm::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TPanelForm>(u"TPanelForm").Field(u"Panel", &TPanelForm::Panel).Build();
    return record;
}

class PanelTest : public testing::Test
{
protected:
    PanelTest()
    {
        mPanel.setParent(&mForm);
        mPanel.SetBounds(10, 10, 100, 40);
    }

    Support::ScriptedBoxes mToolkit;
    Forms::TForm mForm;
    TPanel mPanel{&mForm};
};

TEST_F(PanelTest, KeepsWhatIsAlignedClearOfItsEdges)
{
    Support::TProbe probe(&mForm);
    probe.setParent(&mPanel);
    probe.setAlign(Controls::alClient);
    const struct
    {
        const char* name;
        std::function<void()> change;
        TRect bounds;
    } cases[] = {
        {"raised at first", [] {}, {1, 1, 99, 39}},
        {"two bevels", [&] { mPanel.setBevelInner(Controls::bvLowered); }, {2, 2, 98, 38}},
        {"wide bevels", [&] { mPanel.setBevelWidth(3); }, {6, 6, 94, 34}},
        {"and a border between", [&] { mPanel.setBorderWidth(2); }, {8, 8, 92, 32}},
        {"no bevels",
         [&] {
             mPanel.setBevelInner(Controls::bvNone);
             mPanel.setBevelOuter(Controls::bvNone);
         },
         {2, 2, 98, 38}},
        {"a frame", [&] { mPanel.setBorderStyle(Forms::bsSingle); }, {4, 4, 96, 36}},
        {"a flat frame", [&] { mPanel.setCtl3D(false); }, {3, 3, 97, 37}},
        {"a bevel of less than a pixel", [&] { mPanel.setBevelWidth(-5); }, {3, 3, 97, 37}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        c.change();
        EXPECT_EQ(probe.getBoundsRect(), c.bounds);
    }
    EXPECT_EQ(mPanel.getBevelWidth(), 1);
}

TEST_F(PanelTest, DrawsItsEdgesAndItsCaption)
{
    Toolkits::PaintRecording recording;
    const auto painted = [&] {
        recording.Clear();
        mPanel.PaintTo(&recording, 0, 0);
        return System::ToUtf8(recording.AsText());
    };
    mPanel.setCaption(u"Ofen");
    EXPECT_NE(painted().find("Ofen"), std::string::npos) << painted();
    mPanel.setShowCaption(false);
    EXPECT_EQ(painted().find("Ofen"), std::string::npos);
    const std::string raised = painted();
    mPanel.setBevelOuter(Controls::bvLowered);
    EXPECT_NE(painted(), raised);
    mPanel.setBevelOuter(Controls::bvNone);
    EXPECT_LT(painted().size(), raised.size());
    mPanel.setBorderStyle(Forms::bsSingle);
    EXPECT_GT(painted().size(), raised.size());
    mPanel.SetBounds(0, 0, 1, 0);
    EXPECT_NO_THROW(painted());
}

TEST_F(PanelTest, TakesTheSizeOfWhatItHolds)
{
    Support::TProbe probe(&mForm);
    probe.SetBounds(5, 6, 20, 30);
    probe.setParent(&mPanel);
    mPanel.setAutoSize(true);
    EXPECT_EQ(mPanel.getBoundsRect(), (TRect{10, 10, 36, 47}));
}

TEST_F(PanelTest, NamesItself)
{
    TPanel panel;
    panel.setName(u"fPanel");
    EXPECT_EQ(panel.getCaption(), u"fPanel");
    EXPECT_FALSE(panel.getParentColor());
    EXPECT_EQ(panel.getColor(), Graphics::clBtnFace);
}

TEST_F(PanelTest, StandsInADesignAndIsWrittenAsItWasRead)
{
    const std::string design = "object PanelForm: TPanelForm\n  ClientHeight = 100\n  ClientWidth = 200\n"
                               "  object Panel: TPanel\n    Left = 3\n    Top = 4\n    Width = 50\n"
                               "    Height = 30\n    Align = alBottom\n    Alignment = taRightJustify\n"
                               "    BevelInner = bvLowered\n    BevelOuter = bvNone\n    BevelWidth = 2\n"
                               "    BorderStyle = bsSingle\n    BorderWidth = 5\n    Caption = 'Werte'\n"
                               "    FullRepaint = False\n    Locked = True\n    ParentBackground = False\n"
                               "    ParentColor = True\n    TabOrder = 0\n  end\nend";
    const FilerTest::CRegisteredDesign registered("TPanelForm", design);
    TPanelForm form;
    ASSERT_NE(form.Panel, nullptr);
    EXPECT_EQ(form.Panel->getBoundsRect(), (TRect{0, 70, 200, 100}));
    EXPECT_EQ(form.Panel->getAlignment(), Classes::taRightJustify);
    EXPECT_EQ(form.Panel->getBorderStyle(), Forms::bsSingle);
    EXPECT_EQ(form.Panel->getBorderWidth(), 5);
    EXPECT_FALSE(form.Panel->getFullRepaint());
    EXPECT_TRUE(form.Panel->getLocked());
    EXPECT_FALSE(form.Panel->getParentBackground());
    EXPECT_TRUE(form.Panel->getParentColor());
    const std::string written = FilerTest::WrittenText(form);
    for (const char* line : {"Alignment = taRightJustify", "BevelInner = bvLowered", "BevelOuter = bvNone",
                             "BevelWidth = 2", "BorderStyle = bsSingle", "Caption = 'Werte'", "Locked = True",
                             "ParentBackground = False", "ParentColor = True"}) {
        EXPECT_NE(written.find(line), std::string::npos) << line << "\n" << written;
    }
    EXPECT_EQ(written.find("VerticalAlignment"), std::string::npos) << written;
}

} // namespace
