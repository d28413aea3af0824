// SPDX-License-Identifier: MIT
#include "properties/resources/Paso_savecomponent.h"

#include "platform/runtime/classes/Classes_Exceptions.h"
#include "platform/runtime/filer/Classes_Reader.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "properties/resources/Designs.h"
#include "properties/resources/Paso_component.h"
#include "support/TempFolder.h"

#include <fstream>
#include <sstream>

namespace
{

using namespace Designs;
using PasoSaveComponentTest = DesignTest;
using Classes::TComponent;
using PASO::BuildComponent;
using PASO::DeleteComponent;
using System::ClassOf;

/// What makes a component differ from its class's parent, as text.
std::string DifferenceOf(TComponent& component)
{
    Classes::TMemoryStream stream;
    PASO::SaveComponentToStream(&component, &stream, true);
    return std::string(stream.AsView());
}

/// What makes a component differ from another one, or all of it.
std::string TextOf(TComponent& component, TComponent* ancestor)
{
    Classes::TMemoryStream stream;
    PASO::SaveComponentToStream(&component, ancestor, &stream, true);
    return std::string(stream.AsView());
}

bool Has(const std::string& text, std::string_view part)
{
    return text.find(part) != std::string::npos;
}

/// A form of the class with a design of its own and no code.
class TPlainFineForm : public TFineForm
{
    TRS8_BTL_CLASS(TPlainFineForm, TFineForm)

public:
    explicit TPlainFineForm(TComponent* owner = nullptr) : TFineForm(owner) { ReadDesign(); }
};

System::TMetaClass* TPlainFineForm::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TPlainFineForm>(u"TPlainFineForm").Build();
    return record;
}

/// A form with a frame on it, in the design that the test gives.
class TDeskForm : public Forms::TForm
{
    TRS8_BTL_CLASS(TDeskForm, Forms::TForm)

public:
    explicit TDeskForm(TComponent* owner = nullptr) : TForm(owner) { ReadDesign(); }

    TLampFrame* Lamp = nullptr;
};

System::TMetaClass* TDeskForm::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TDeskForm>(u"TDeskForm").Field(u"Lamp", &TDeskForm::Lamp).Build();
    return record;
}

class TWideDeskForm : public TDeskForm
{
    TRS8_BTL_CLASS(TWideDeskForm, TDeskForm)

public:
    explicit TWideDeskForm(TComponent* owner = nullptr) : TDeskForm(owner) { ReadDesign(); }
};

System::TMetaClass* TWideDeskForm::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TWideDeskForm>(u"TWideDeskForm").Build();
    return record;
}

TEST_F(PasoSaveComponentTest, AFormOfNoAncestorIsWrittenWhole)
{
    TBenchForm form;
    const std::string text = DifferenceOf(form);
    EXPECT_TRUE(text.starts_with("object BenchForm: TBenchForm\n")) << text;
    for (const char* const part : {"Caption = 'Bench'", "Level = 7", "Target = Input", "OnAlarm = Alarm",
                                   "Limits.High = 50", "Title = 'first'", "object Clock: TTimer"}) {
        EXPECT_TRUE(Has(text, part)) << part << '\n' << text;
    }
}

TEST_F(PasoSaveComponentTest, AnUnchangedFormWritesOnlyThatItIsHidden)
{
    const Support::CRegisteredDesign design("TPlainFineForm", "inherited PlainFineForm: TPlainFineForm\nend");
    TPlainFineForm form;
    EXPECT_EQ(DifferenceOf(form), "inherited PlainFineForm: TPlainFineForm\n  Visible = False\nend\n");
}

/// As the application owns the forms of a program.
TEST_F(PasoSaveComponentTest, AnOwnerMakesNoDifference)
{
    std::string expected;
    {
        TFineForm form;
        expected = DifferenceOf(form);
    }
    TComponent application;
    EXPECT_EQ(DifferenceOf(*new TFineForm(&application)), expected);
}

TEST_F(PasoSaveComponentTest, WhatDiffersOfEachKindIsWritten)
{
    TFineForm form;
    const std::string design = DifferenceOf(form);
    const std::string_view inherited = "inherited FineForm: TFineForm\n"
                                       "  Visible = False\n"
                                       "  Caption = 'Fine'\n"
                                       "  Level = 9\n"
                                       "  Limits.Low = -5\n"
                                       "  Digits = 4\n"
                                       "  inherited StartButton: TButton\n"
                                       "    OnClick = FineClick\n"
                                       "    Caption = 'Go'\n"
                                       "  end\n"
                                       "  object Extra1: TEdit";
    EXPECT_TRUE(design.starts_with(inherited)) << design;
    EXPECT_TRUE(Has(design, "    Width = 121\n")) << "a new component is written whole";
    EXPECT_TRUE(design.ends_with("    Text = 'new'\n  end\nend\n")) << design;

    form.setLevel(3);
    form.Ratio = 0.25;
    form.Title = u"";
    form.Extra = u"text";
    form.Shape = shFlat;
    form.Shapes = {};
    form.Target = nullptr;
    form.OnAlarm = nullptr;
    form.getLines()->Clear();
    form.getRows()->Clear();
    form.getLimits()->High = 100;
    const std::string text = DifferenceOf(form);
    for (const char* const part :
         {"Level = 3", "Ratio = 0.25", "Title = ''", "Extra = 'text'", "Shape = shFlat", "Shapes = []",
          "Target = nil", "OnAlarm = nil", "Rows = <>", "Limits.High = 100"}) {
        EXPECT_TRUE(Has(text, std::string("  ") + part + '\n')) << part << '\n' << text;
    }
}

TEST_F(PasoSaveComponentTest, ADesignUnderAFalseClassIsWrittenAsARealFormIs)
{
    TFineForm real;
    TComponent* const built = BuildComponent(ClassOf<TFineForm>(), false);
    EXPECT_EQ(DifferenceOf(*built), DifferenceOf(real));
    EXPECT_EQ(TextOf(*built, nullptr), TextOf(real, nullptr));
    DeleteComponent(built);
}

TEST_F(PasoSaveComponentTest, TextAndBinaryCompileBackToTheSame)
{
    TFineForm form;
    form.setLevel(1);
    form.getLimits()->Low = 2;
    form.StartButton->setCaption(u"It's \u00B5");
    Classes::TMemoryStream binary;
    PASO::SaveComponentToStream(&form, &binary, false);
    const std::string text = DifferenceOf(form);
    EXPECT_EQ(Support::Compiled(text), binary.AsView());

    const Support::CRegisteredDesign written("TFineForm", text);
    TFineForm other;
    other.setName(u"FineForm");
    EXPECT_EQ(DifferenceOf(other), text);
    EXPECT_EQ(other.getLevel(), 1);
    EXPECT_EQ(other.StartButton->getCaption(), u"It's \u00B5");
}

TEST_F(PasoSaveComponentTest, ChildrenThatMovedAreWrittenInTheirOrder)
{
    const Support::CRegisteredDesign design("TPlainFineForm", "inherited PlainFineForm: TPlainFineForm\nend");
    TPlainFineForm form;
    dynamic_cast<Stdctrls::TEdit&>(*form.FindComponent(u"Extra1")).SendToBack();
    const std::string text = DifferenceOf(form);
    EXPECT_TRUE(Has(text, "inherited Extra1: TEdit [0]")) << text;

    TPlainFineForm other;
    const std::string bytes = Support::Compiled(text);
    Classes::TReader(Support::StreamOf(bytes).get()).ReadRootComponent(&other);
    EXPECT_EQ(other.GetControl(0)->getName(), u"Extra1");
}

TEST_F(PasoSaveComponentTest, AnInheritedComponentThatIsGoneComesBack)
{
    const Support::CRegisteredDesign design("TPlainFineForm", "inherited PlainFineForm: TPlainFineForm\nend");
    TPlainFineForm form;
    delete form.FindComponent(u"Clock");
    const std::string text = DifferenceOf(form);
    EXPECT_FALSE(Has(text, "Clock")) << text;
    TPlainFineForm other;
    Classes::TReader(Support::StreamOf(Support::Compiled(text)).get()).ReadRootComponent(&other);
    EXPECT_NE(other.FindComponent(u"Clock"), nullptr);
}

TEST_F(PasoSaveComponentTest, AVisibleAncestorIsAsked)
{
    TDeskForm ancestor;
    TDeskForm form;
    EXPECT_FALSE(Has(TextOf(form, nullptr), "Visible"));
    EXPECT_TRUE(Has(TextOf(form, &ancestor), "Visible = False"));
    form.setVisible(true);
    EXPECT_TRUE(Has(TextOf(form, nullptr), "Visible = True"));
    EXPECT_FALSE(Has(TextOf(form, &ancestor), "Visible"));
}

TEST_F(PasoSaveComponentTest, InheritedComponentsAreMarked)
{
    TFineForm form;
    DifferenceOf(form);
    const auto isInherited = [&form](const char16_t* name) {
        return form.FindComponent(name)->getComponentState().Contains(Classes::csAncestor);
    };
    EXPECT_TRUE(isInherited(u"StartButton"));
    EXPECT_FALSE(isInherited(u"Extra1"));
}

TEST_F(PasoSaveComponentTest, WhatCannotBeWrittenRaises)
{
    Classes::TMemoryStream stream;
    EXPECT_THROW(PASO::SaveComponentToStream(nullptr, &stream, true), Classes::EWriteError);
    EXPECT_EQ(stream.getSize(), 0);
    TBenchForm form;
    EXPECT_THROW(PASO::SaveComponentToStream(&form, nullptr, false), Classes::EStreamError);
    form.Shape = shNameless;
    EXPECT_THROW(PASO::SaveComponentToStream(&form, &stream, false), Classes::EWriteError);
    EXPECT_EQ(stream.getSize(), 0);
}

TEST_F(PasoSaveComponentTest, AFileIsReplacedByWhatIsWhole)
{
    const Support::TempFolder folder;
    const auto path = folder.Path() / "form.form";
    const auto content = [&path] {
        std::ostringstream text;
        text << std::ifstream(path).rdbuf();
        return text.str();
    };
    TFineForm form;
    const std::string text = DifferenceOf(form);
    PASO::SaveComponentToFile(&form, path, true);
    EXPECT_EQ(content(), text);
    PASO::SaveComponentToFile(&form, path, false);
    EXPECT_EQ(content(), Support::Compiled(text));
    PASO::SaveComponentToFile(&form, nullptr, path, true);
    EXPECT_EQ(content(), TextOf(form, nullptr));

    form.Shape = shNameless;
    EXPECT_THROW(PASO::SaveComponentToFile(&form, path, true), Classes::EWriteError);
    EXPECT_EQ(content().substr(0, 6), "object");
    EXPECT_THROW(PASO::SaveComponentToFile(&form, path / "below", true), Sysutils::Exception);
}

// Frames

constexpr const char* DeskWithLamp = "object DeskForm: TDeskForm\n"
                                     "  inline Lamp: TLampFrame\n    Left = 7\n    Width = 95\n"
                                     "    inherited Bulb: TEdit\n      Text = 'desk'\n    end\n  end\nend";

TEST_F(PasoSaveComponentTest, ANewFrameIsComparedWithOneOfItsClass)
{
    const Support::CRegisteredDesign design("TDeskForm", DeskWithLamp);
    TDeskForm desk;
    EXPECT_TRUE(Has(DifferenceOf(desk), "  inline Lamp: TLampFrame\n"
                                        "    Left = 7\n"
                                        "    Width = 95\n"
                                        "    TabOrder = 0\n"
                                        "    inherited Bulb: TEdit\n"
                                        "      Text = 'desk'\n"
                                        "    end\n"
                                        "  end\n"
                                        "end\n"))
        << DifferenceOf(desk);
}

TEST_F(PasoSaveComponentTest, AnInheritedFrameIsComparedWithTheAncestors)
{
    const Support::CRegisteredDesign desk("TDeskForm", DeskWithLamp);
    const Support::CRegisteredDesign wide(
        "TWideDeskForm", "inherited WideDeskForm: TWideDeskForm\n"
                         "  inherited Lamp: TLampFrame\n    Left = 9\n"
                         "    inherited Blinker: TTimer\n      Interval = 10\n    end\n  end\nend");
    TWideDeskForm form;
    EXPECT_EQ(DifferenceOf(form), "inherited WideDeskForm: TWideDeskForm\n  Visible = False\n"
                                  "  inherited Lamp: TLampFrame\n    Left = 9\n"
                                  "    inherited Blinker: TTimer\n      Interval = 10\n    end\n"
                                  "  end\nend\n");
}

/// A frame with a frame on it.
class TRackFrame : public Forms::TFrame
{
    TRS8_BTL_CLASS(TRackFrame, Forms::TFrame)

public:
    explicit TRackFrame(TComponent* owner = nullptr) : TFrame(owner) { ReadDesign(); }

    TLampFrame* Lamp = nullptr;
};

System::TMetaClass* TRackFrame::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TRackFrame>(u"TRackFrame").Field(u"Lamp", &TRackFrame::Lamp).Build();
    return record;
}

class TRackForm : public Forms::TForm
{
    TRS8_BTL_CLASS(TRackForm, Forms::TForm)

public:
    explicit TRackForm(TComponent* owner = nullptr) : TForm(owner) { ReadDesign(); }

    TRackFrame* Rack = nullptr;
};

System::TMetaClass* TRackForm::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TRackForm>(u"TRackForm").Field(u"Rack", &TRackForm::Rack).Build();
    return record;
}

TEST_F(PasoSaveComponentTest, AFrameInAFrameIsComparedWithThatInTheOuterOnesDesign)
{
    const Support::CRegisteredDesign frame("TRackFrame",
                                           "object RackFrame: TRackFrame\n  Width = 200\n"
                                           "  inline Lamp: TLampFrame\n    Left = 3\n"
                                           "    inherited Bulb: TEdit\n      Text = 'rack'\n    end\n"
                                           "  end\nend");
    const std::string text = "object RackForm: TRackForm\n  Left = 0\n  Top = 0\n"
                             "  inline Rack: TRackFrame\n    Left = 1\n    TabOrder = 0\n"
                             "    inherited Lamp: TLampFrame\n"
                             "      inherited Bulb: TEdit\n        Text = 'on'\n      end\n"
                             "    end\n  end\nend\n";
    const Support::CRegisteredDesign form("TRackForm", text);
    TRackForm rack;
    const std::string written = DifferenceOf(rack);
    EXPECT_TRUE(Has(written, text.substr(text.find("  inline Rack")))) << written;

    TRackForm again;
    dynamic_cast<Stdctrls::TEdit&>(*again.Rack->Lamp->FindComponent(u"Bulb")).setText(u"other");
    Classes::TReader(Support::StreamOf(Support::Compiled("inherited RackForm: TRackForm\n"
                                                         "  inherited Rack: TRackFrame\n"
                                                         "    inherited Lamp: TLampFrame\n"
                                                         "      inherited Bulb: TEdit\n"
                                                         "        Text = 'on'\n      end\n"
                                                         "    end\n  end\nend"))
                         .get())
        .ReadRootComponent(&again);
    again.setName(u"RackForm");
    EXPECT_EQ(DifferenceOf(again), written);
}

TEST_F(PasoSaveComponentTest, AFormWithANewFrameComesBack)
{
    const Support::CRegisteredDesign design("TDeskForm", DeskWithLamp);
    const TDeskForm desk;
    std::string text;
    {
        TDeskForm changed;
        changed.Lamp->setTop(33);
        changed.Lamp->FindComponent(u"Blinker")->setTag(5);
        text = DifferenceOf(changed);
    }
    const Support::CRegisteredDesign written("TDeskForm", text);
    TDeskForm again;
    EXPECT_EQ(again.Lamp->getTop(), 33);
    EXPECT_EQ(again.Lamp->getLeft(), 7);
    EXPECT_EQ(again.Lamp->FindComponent(u"Blinker")->getTag(), 5);
    EXPECT_EQ(dynamic_cast<Stdctrls::TEdit&>(*again.Lamp->FindComponent(u"Bulb")).getText(), u"desk");
}

/// Derived from a module with a design.
class TDeepModule : public TStoreModule
{
    TRS8_BTL_CLASS(TDeepModule, TStoreModule)

public:
    explicit TDeepModule(TComponent* owner = nullptr) : TStoreModule(owner) { ReadDesign(); }
};

System::TMetaClass* TDeepModule::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TDeepModule>(u"TDeepModule").Build();
    return record;
}

TEST_F(PasoSaveComponentTest, ADataModuleIsWrittenAsADifferenceToo)
{
    const std::string text = "inherited DeepModule: TDeepModule\n  Depth = 9\n  Height = 160\n"
                             "  inherited Pulse: TTimer\n    Interval = 30\n  end\nend\n";
    const Support::CRegisteredDesign design("TDeepModule", text);
    TDeepModule module;
    EXPECT_EQ(DifferenceOf(module), text);
}

} // namespace
