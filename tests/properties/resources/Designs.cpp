// SPDX-License-Identifier: MIT
#include "properties/resources/Designs.h"

#include "platform/runtime/classes/Classes_Exceptions.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "properties/resources/Paso_creader.h"

namespace Designs
{

using System::GClassBuilder;
using System::TMetaClass;

void TLimits::Assign(Classes::TPersistent* source)
{
    const auto* const other = dynamic_cast<const TLimits*>(source);
    if (other == nullptr) {
        return TPersistent::Assign(source);
    }
    Low = other->Low;
    High = other->High;
}

TMetaClass* TLimits::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<TLimits>(u"TLimits")
                                          .Property(u"Low", &TLimits::Low, {.defaultValue = 0})
                                          .Property(u"High", &TLimits::High, {.defaultValue = 100})
                                          .Build();
    return record;
}

TMetaClass* TRow::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<TRow>(u"TRow").Property(u"Title", &TRow::Title).Build();
    return record;
}

TMetaClass* TRows::ClassRecord()
{
    static TMetaClass* const record =
        GClassBuilder<TRows>(u"TRows")
            .StandIn([]() -> std::unique_ptr<System::TObject> { return std::make_unique<TRows>(nullptr); })
            .Build();
    return record;
}

int TBenchForm::Calls = 0;

TMetaClass* TBenchForm::ClassRecord()
{
    static TMetaClass* const record =
        GClassBuilder<TBenchForm>(u"TBenchForm")
            .Property(u"Level", &TBenchForm::getLevel, &TBenchForm::setLevel, {.defaultValue = 3})
            .Property(u"Ratio", &TBenchForm::Ratio)
            .Property(u"Title", &TBenchForm::Title,
                      {.stored =
                           [](const System::TObject* form) {
                               return dynamic_cast<const TBenchForm&>(*form).getLevel() >= 0;
                           }})
            .Property(u"Extra", &TBenchForm::Extra)
            .Property(u"Shape", &TBenchForm::Shape, {.defaultValue = shFlat})
            .Property(u"Shapes", &TBenchForm::Shapes, {.defaultValue = 0})
            .Property(u"Target", &TBenchForm::Target)
            .Property(u"OnAlarm", &TBenchForm::OnAlarm)
            .Property(u"Lines", &TBenchForm::getLines)
            .Property(u"Limits", &TBenchForm::getLimits)
            .Property(u"Rows", &TBenchForm::getRows)
            // Described anew, with another default.
            .Property(u"KeyPreview", &TBenchForm::getKeyPreview, &TBenchForm::setKeyPreview,
                      {.defaultValue = 1})
            .Method(u"StartButtonClick", &TBenchForm::StartButtonClick)
            .Method(u"Alarm", &TBenchForm::Alarm)
            .Field(u"StartButton", &TBenchForm::StartButton)
            .Build();
    return record;
}

TBenchForm::TBenchForm(Classes::TComponent* owner) : TForm(owner)
{
    ++Calls;
    ReadDesign();
}

TBenchForm::~TBenchForm()
{
    ++Calls;
}

void TBenchForm::setLevel(int level)
{
    if (level < 0) {
        throw Classes::EInvalidOperation(u"A level isn't negative");
    }
    mLevel = level;
}

TMetaClass* TFineForm::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<TFineForm>(u"TFineForm")
                                          .Property(u"Digits", &TFineForm::Digits, {.defaultValue = 2})
                                          .Method(u"FineClick", &TFineForm::FineClick)
                                          .Build();
    return record;
}

TFineForm::TFineForm(Classes::TComponent* owner) : TBenchForm(owner)
{
    ++Calls;
    ReadDesign();
}

TFineForm::~TFineForm()
{
    ++Calls;
}

TMetaClass* TLampFrame::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<TLampFrame>(u"TLampFrame").Build();
    return record;
}

TMetaClass* TStoreModule::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<TStoreModule>(u"TStoreModule")
                                          .Property(u"Depth", &TStoreModule::Depth, {.defaultValue = 5})
                                          .Build();
    return record;
}

DesignTest::DesignTest()
    : mBench("TBenchForm", "object BenchForm: TBenchForm\n"
                           "  Caption = 'Bench'\n  ClientHeight = 200\n  ClientWidth = 300\n"
                           "  Level = 7\n  Ratio = 0.5\n  Title = 'Pressure'\n  Extra = 12\n"
                           "  Shape = shTall\n  Shapes = [shRound, shTall]\n  Target = Input\n"
                           "  OnAlarm = Alarm\n  OnCreate = Alarm\n"
                           "  Lines.Strings = (\n    'one'\n    'two')\n"
                           "  Limits.High = 50\n"
                           "  Rows = <\n    item\n      Title = 'first'\n    end>\n"
                           "  object StartButton: TButton\n    Left = 8\n    Top = 8\n"
                           "    Caption = 'Start'\n    OnClick = StartButtonClick\n  end\n"
                           "  object Input: TEdit\n    Left = 8\n    Top = 40\n    Text = 'abc'\n  end\n"
                           "  object Clock: TTimer\n    Enabled = False\n    Interval = 500\n  end\n"
                           "end"),
      mFine("TFineForm", "inherited FineForm: TFineForm\n  Caption = 'Fine'\n  Level = 9\n"
                         "  Digits = 4\n  Limits.Low = -5\n"
                         "  inherited StartButton: TButton\n    Caption = 'Go'\n    OnClick = FineClick\n"
                         "  end\n"
                         "  object Extra1: TEdit\n    Text = 'new'\n  end\n"
                         "end"),
      mLamp("TLampFrame", "object LampFrame: TLampFrame\n  Width = 90\n  Height = 30\n"
                          "  object Bulb: TEdit\n    Left = 5\n    Text = 'on'\n  end\n"
                          "  object Blinker: TTimer\n    Enabled = False\n    Interval = 250\n  end\n"
                          "end"),
      mStore("TStoreModule", "object StoreModule: TStoreModule\n  Height = 150\n  Depth = 8\n"
                             "  object Pulse: TTimer\n    Enabled = False\n    Interval = 20\n  end\n"
                             "end")
{
    TBenchForm::Calls = 0;
}

DesignTest::~DesignTest()
{
    PASO::CReader::ClearEvents();
}

} // namespace Designs
