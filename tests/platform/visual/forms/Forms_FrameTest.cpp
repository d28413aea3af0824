// SPDX-License-Identifier: MIT
#include "platform/visual/forms/Forms_Frame.h"

#include "platform/runtime/filer/FilerSupport.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/visual/Forms.h"
#include "platform/visual/stdctrls/Extctrls_Timer.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{

using Classes::TComponent;
using System::GClassBuilder;
using System::TMetaClass;
using System::TObject;

/// A frame with a timer, which a form changes.
class TLampFrame : public Forms::TFrame
{
    TRS8_BTL_CLASS(TLampFrame, Forms::TFrame)

public:
    explicit TLampFrame(TComponent* owner = nullptr) : TFrame(owner) { ReadDesign(); }

    Extctrls::TTimer* Blinker = nullptr;
};

TMetaClass* TLampFrame::ClassRecord()
{
    static TMetaClass* const record =
        GClassBuilder<TLampFrame>(u"TLampFrame").Field(u"Blinker", &TLampFrame::Blinker).Build();
    return record;
}

class TDeskForm : public Forms::TForm
{
    TRS8_BTL_CLASS(TDeskForm, Forms::TForm)

public:
    explicit TDeskForm(TComponent* owner = nullptr) : TForm(owner) { ReadDesign(); }

    void Made(TObject*) { log.push_back("made " + std::to_string(getClientWidth())); }

    Extctrls::TTimer* Clock = nullptr;
    TLampFrame* Lamp = nullptr;
    std::vector<std::string> log;
};

TMetaClass* TDeskForm::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<TDeskForm>(u"TDeskForm")
                                          .Field(u"Clock", &TDeskForm::Clock)
                                          .Field(u"Lamp", &TDeskForm::Lamp)
                                          .Method(u"Made", &TDeskForm::Made)
                                          .Build();
    return record;
}

class TWideDeskForm : public TDeskForm
{
    TRS8_BTL_CLASS(TWideDeskForm, TDeskForm)

public:
    explicit TWideDeskForm(TComponent* owner = nullptr) : TDeskForm(owner) { ReadDesign(); }
};

TMetaClass* TWideDeskForm::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<TWideDeskForm>(u"TWideDeskForm").Build();
    return record;
}

class FrameTest : public testing::Test
{
protected:
    /// Boxes and forms are asked of a script.
    Support::ScriptedBoxes mToolkit;
    FilerTest::CRegisteredDesign mLamp{"TLampFrame",
                                       "object LampFrame: TLampFrame\n  Width = 40\n  Height = 20\n"
                                       "  object Blinker: TTimer\n    Interval = 250\n    Enabled = False\n"
                                       "  end\nend"};
    FilerTest::CRegisteredDesign mDesk{
        "TDeskForm", "object DeskForm: TDeskForm\n  Caption = 'Desk'\n  ClientHeight = 100\n"
                     "  ClientWidth = 200\n  OnCreate = Made\n"
                     "  inline Lamp: TLampFrame\n    Left = 7\n    Width = 50\n"
                     "    inherited Blinker: TTimer\n      Interval = 100\n    end\n  end\n"
                     "  object Clock: TTimer\n    Interval = 500\n    Enabled = False\n  end\nend"};
    FilerTest::CRegisteredDesign mWide{"TWideDeskForm",
                                       "inherited WideDeskForm: TWideDeskForm\n  ClientWidth = 400\n"
                                       "  inherited Clock: TTimer\n    Interval = 50\n  end\nend"};
};

TEST_F(FrameTest, EachConstructorReadsItsOwn)
{
    TDeskForm desk;
    EXPECT_EQ(desk.getName(), u"DeskForm");
    EXPECT_EQ(desk.getCaption(), u"Desk");
    EXPECT_EQ(desk.getClientWidth(), 200);
    ASSERT_NE(desk.Clock, nullptr);
    EXPECT_EQ(desk.Clock->getInterval(), 500U);
    EXPECT_TRUE(desk.log.empty());
    desk.AfterConstruction();
    desk.Show();
    EXPECT_EQ(desk.log, std::vector<std::string>{"made 200"});

    TWideDeskForm wide;
    EXPECT_EQ(wide.getName(), u"WideDeskForm");
    EXPECT_EQ(wide.getCaption(), u"Desk");
    EXPECT_EQ(wide.getClientWidth(), 400);
    EXPECT_EQ(wide.getClientHeight(), 100);
    EXPECT_EQ(wide.Clock->getInterval(), 50U);
    wide.Show();
    EXPECT_EQ(wide.log, std::vector<std::string>{"made 400"});
}

TEST_F(FrameTest, ADerivedDesignPlacesItsControlsInTheTabOrderOfTheOthers)
{
    const FilerTest::CRegisteredDesign desk("TDeskForm", "object DeskForm: TDeskForm\n"
                                                         "  object A: TEdit\n    TabOrder = 1\n  end\n"
                                                         "  object B: TEdit\n    TabOrder = 0\n  end\nend");
    const FilerTest::CRegisteredDesign wide("TWideDeskForm",
                                            "inherited WideDeskForm: TWideDeskForm\n"
                                            "  object C: TEdit\n    TabOrder = 1\n  end\n"
                                            "  object D: TEdit\n    TabOrder = 99\n  end\nend");
    const TWideDeskForm form;
    std::string order(4, ' ');
    for (const char16_t* const name : {u"A", u"B", u"C", u"D"}) {
        const auto& edit = dynamic_cast<const Controls::TWinControl&>(*form.FindComponent(name));
        order.at(static_cast<std::size_t>(edit.getTabOrder())) = static_cast<char>(name[0]);
    }
    EXPECT_EQ(order, "BCAD");
}

TEST_F(FrameTest, AFrameBringsItsOwnAndTheFormChangesIt)
{
    const TLampFrame alone;
    EXPECT_EQ(alone.getWidth(), 40);
    EXPECT_EQ(alone.Blinker->getInterval(), 250U);

    const TDeskForm desk;
    ASSERT_NE(desk.Lamp, nullptr);
    EXPECT_EQ(desk.Lamp->getParent(), &desk);
    EXPECT_EQ(desk.Lamp->getOwner(), &desk);
    EXPECT_EQ(desk.Lamp->getName(), u"Lamp");
    EXPECT_EQ(desk.Lamp->getBoundsRect(), (Types::TRect{7, 0, 57, 20}));
    EXPECT_EQ(desk.Lamp->Blinker->getOwner(), desk.Lamp);
    EXPECT_EQ(desk.Lamp->Blinker->getInterval(), 100U);
}

TEST_F(FrameTest, IsWrittenWithWhatStandsInNoOther)
{
    TLampFrame lamp;
    const std::string text = FilerTest::WrittenText(lamp);
    EXPECT_NE(text.find("object Blinker: TTimer"), std::string::npos) << text;
}

} // namespace
