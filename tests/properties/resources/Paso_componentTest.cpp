// SPDX-License-Identifier: MIT
#include "properties/resources/Paso_component.h"

#include "platform/runtime/classes/Classes_ClassRegister.h"
#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/runtime/classes/Classes_Exceptions.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "properties/classes/BTL_Classes.h"
#include "properties/resources/Designs.h"
#include "properties/resources/Paso_creader.h"

namespace
{

using namespace Designs;
using PasoComponentTest = DesignTest;
using Classes::TComponent;
using PASO::BuildComponent;
using PASO::DeleteComponent;
using System::ClassOf;
using System::TMetaClass;

/// What a test builds, to its end.
class CBuilt
{
public:
    explicit CBuilt(TMetaClass* type, bool designing = false) : mComponent(BuildComponent(type, designing)) {}
    CBuilt(const CBuilt&) = delete;
    CBuilt& operator=(const CBuilt&) = delete;
    ~CBuilt() { DeleteComponent(mComponent); }

    TComponent* Get() const { return mComponent; }
    TComponent* operator->() const { return mComponent; }

private:
    TComponent* mComponent;
};

bool IsDesigned(const TComponent* component)
{
    return component->getComponentState().Contains(Classes::csDesigning);
}

/// A timer whose event can't be emptied.
class TStubbornTimer : public TComponent
{
    TRS8_BTL_CLASS(TStubbornTimer, TComponent)

public:
    using TComponent::TComponent;
    const Classes::TNotifyEvent& getOnTick() const { return mOnTick; }
    void setOnTick(const Classes::TNotifyEvent&) { throw Classes::EInvalidOperation(u"It stays"); }

private:
    Classes::TNotifyEvent mOnTick;
};

TMetaClass* TStubbornTimer::ClassRecord()
{
    static TMetaClass* const record =
        System::GClassBuilder<TStubbornTimer>(u"TStubbornTimer")
            .Property(u"OnTick", &TStubbornTimer::getOnTick, &TStubbornTimer::setOnTick)
            .Build();
    return record;
}

/// Raises where it hears of an end.
class TGrumbler : public TComponent
{
public:
    using TComponent::TComponent;
    ~TGrumbler() override { mIsHearing = false; }

protected:
    void Notification(TComponent* component, Classes::TOperation operation) override
    {
        if (mIsHearing && operation == Classes::opRemove) {
            throw Classes::EInvalidOperation(component->getName() + u" is missed");
        }
    }

private:
    bool mIsHearing = true;
};

/// Publishes a text of all controls, which forms don't publish.
class TToldForm : public Forms::TForm
{
    TRS8_BTL_CLASS(TToldForm, Forms::TForm)
};

TMetaClass* TToldForm::ClassRecord()
{
    static TMetaClass* const record = System::GClassBuilder<TToldForm>(u"TToldForm")
                                          .Property(u"Text", &TToldForm::getText, &TToldForm::setText)
                                          .Build();
    return record;
}

TEST_F(PasoComponentTest, OnlyDerivedClassesAreBuilt)
{
    for (TMetaClass* const type :
         {static_cast<TMetaClass*>(nullptr), ClassOf<Forms::TForm>(), ClassOf<Forms::TFrame>(),
          ClassOf<Classes::TDataModule>(), ClassOf<Stdctrls::TButton>(), ClassOf<Forms::TCustomForm>()}) {
        EXPECT_EQ(BuildComponent(type, true), nullptr);
    }
}

TEST_F(PasoComponentTest, AFormHasItsDesignAndNoneOfItsCodeRuns)
{
    {
        const CBuilt form(ClassOf<TBenchForm>());
        EXPECT_EQ(form->ClassType(), ClassOf<TBenchForm>());
        EXPECT_EQ(dynamic_cast<TBenchForm*>(form.Get()), nullptr);
        EXPECT_EQ(form->getName(), u"BenchForm");
        EXPECT_EQ(form->getOwner(), nullptr);
        EXPECT_EQ(form->GetComponentCount(), 3);
        const auto& plain = dynamic_cast<Forms::TForm&>(*form.Get());
        EXPECT_EQ(plain.getCaption(), u"Bench");
        EXPECT_EQ(plain.getClientWidth(), 300);
        EXPECT_EQ(plain.GetControlCount(), 2);
        const auto& button = dynamic_cast<Stdctrls::TButton&>(*form->FindComponent(u"StartButton"));
        EXPECT_EQ(button.getCaption(), u"Start");
        EXPECT_EQ(form->MethodName(button.OnClick.AsMethod().Code), u"StartButtonClick");
        button.OnClick(nullptr);
        plain.OnCreate(nullptr);
    }
    EXPECT_EQ(TBenchForm::Calls, 0);
}

TEST_F(PasoComponentTest, DerivedPropertiesHoldWhatTheDesignSays)
{
    using namespace Typinfo;
    const CBuilt form(ClassOf<TFineForm>());
    TComponent* const root = form.Get();
    EXPECT_EQ(GetOrdProp(root, u"Level"), 9);
    EXPECT_EQ(GetOrdProp(root, u"Digits"), 4);
    EXPECT_EQ(GetFloatProp(root, u"Ratio"), 0.5);
    EXPECT_EQ(GetStrProp(root, u"Title"), u"Pressure");
    EXPECT_EQ(GetVariantProp(root, u"Extra"), System::Variant(12));
    EXPECT_EQ(GetOrdProp(root, u"Shape"), shTall);
    EXPECT_EQ(GetOrdProp(root, u"Shapes"), 5);
    EXPECT_EQ(root->MethodName(GetMethodProp(root, u"OnAlarm").Code), u"Alarm");
    EXPECT_EQ(GetObjectProp(root, u"Target"), root->FindComponent(u"Input"));
    EXPECT_EQ(dynamic_cast<Classes::TStrings&>(*GetObjectProp(root, u"Lines")).getCommaText(), u"one,two");
    const auto& limits = dynamic_cast<TLimits&>(*GetObjectProp(root, u"Limits"));
    EXPECT_EQ(limits.Low, -5);
    EXPECT_EQ(limits.High, 50);
    EXPECT_EQ(dynamic_cast<TRows&>(*GetObjectProp(root, u"Rows")).GetCount(), 1);

    delete root->FindComponent(u"Input");
    EXPECT_EQ(GetObjectProp(root, u"Target"), nullptr) << "it has gone";
}

TEST_F(PasoComponentTest, ThePropertyOfAClassThatIsThereIsThatOne)
{
    const Support::CRegisteredDesign design("TBenchForm", "object F: TBenchForm\n  KeyPreview = True\nend");
    const CBuilt form(ClassOf<TBenchForm>());
    EXPECT_TRUE(dynamic_cast<Forms::TForm&>(*form.Get()).getKeyPreview());
    Typinfo::SetOrdProp(form.Get(), u"KeyPreview", 0);
    EXPECT_FALSE(dynamic_cast<Forms::TForm&>(*form.Get()).getKeyPreview());
}

TEST_F(PasoComponentTest, WhatADerivedClassPublishesOfItsParentIsDone)
{
    const Support::CRegisteredDesign design("TToldForm", "object F: TToldForm\n  Text = 'Told'\nend");
    const CBuilt form(ClassOf<TToldForm>());
    EXPECT_EQ(dynamic_cast<Forms::TForm&>(*form.Get()).getCaption(), u"Told");
}

TEST_F(PasoComponentTest, TheLastClassOfAChainHolds)
{
    const CBuilt form(ClassOf<TFineForm>());
    EXPECT_EQ(dynamic_cast<Forms::TForm&>(*form.Get()).getCaption(), u"Fine");
    const auto& button = dynamic_cast<Stdctrls::TButton&>(*form->FindComponent(u"StartButton"));
    EXPECT_EQ(button.getCaption(), u"Go");
    EXPECT_EQ(button.getTop(), 8);
    EXPECT_EQ(form->MethodName(button.OnClick.AsMethod().Code), u"FineClick");
    EXPECT_EQ(form->GetComponentCount(), 4);
}

TEST_F(PasoComponentTest, FramesAndModulesAreBuiltToo)
{
    const CBuilt frame(ClassOf<TLampFrame>());
    EXPECT_EQ(dynamic_cast<Forms::TFrame&>(*frame.Get()).getWidth(), 90);
    EXPECT_NE(frame->FindComponent(u"Bulb"), nullptr);
    const CBuilt module(ClassOf<TStoreModule>());
    EXPECT_EQ(dynamic_cast<Classes::TDataModule&>(*module.Get()).getDesignSize().Y, 150);
    EXPECT_EQ(Typinfo::GetOrdProp(module.Get(), u"Depth"), 8);
    EXPECT_NE(module->FindComponent(u"Pulse"), nullptr);
}

TEST_F(PasoComponentTest, ItIsDesignedWhileItIsReadAndAfterwardsIfWanted)
{
    const TMetaClass* read = nullptr;
    bool wasDesigned = false;
    PASO::CReader::SetAfterReadEvent([&](System::TObject* root) {
        read = root->ClassType();
        wasDesigned = IsDesigned(dynamic_cast<TComponent*>(root));
    });
    const CBuilt run(ClassOf<TBenchForm>(), false);
    EXPECT_EQ(read, ClassOf<Forms::TForm>());
    EXPECT_TRUE(wasDesigned);
    EXPECT_FALSE(IsDesigned(run.Get()));
    EXPECT_FALSE(IsDesigned(run->FindComponent(u"Clock")));
    const CBuilt designed(ClassOf<TBenchForm>(), true);
    EXPECT_TRUE(IsDesigned(designed.Get()));
    EXPECT_TRUE(IsDesigned(designed->FindComponent(u"Clock")));
}

TEST_F(PasoComponentTest, AFaultInTheMiddleLeavesNothing)
{
    BTL::RegisterComponentClass(ClassOf<TStubbornTimer>());
    const int forms = Forms::Screen->getFormCount();
    for (const char* const text :
         {"object F: TBenchForm\n  object Clock: TTimer\n    Interval = 5\n    Wrong = 1\n  end\nend",
          "object F: TBenchForm\n  object Clock: TNowhere\n  end\nend",
          "object F: TBenchForm\n  OnAlarm = Nowhere\nend", "object F: TBenchForm\n  Level = 'text'\nend",
          "object F: TBenchForm\n  Limits.Middle = 1\nend",
          "object F: TBenchForm\n  object T: TStubbornTimer\n    OnTick = Alarm\n  end\nend"}) {
        const Support::CRegisteredDesign design("TBenchForm", text);
        EXPECT_THROW(static_cast<void>(BuildComponent(ClassOf<TBenchForm>(), false)), Sysutils::Exception)
            << text;
    }
    EXPECT_EQ(Forms::Screen->getFormCount(), forms);
    EXPECT_EQ(TBenchForm::Calls, 0);
}

TEST_F(PasoComponentTest, AFormMayGoWhileItIsRead)
{
    for (const bool isAtEnd : {false, true}) {
        const auto destroy = [](TComponent* root) { delete root; };
        if (isAtEnd) {
            PASO::CReader::SetAfterReadEvent(
                [&](System::TObject* root) { destroy(dynamic_cast<TComponent*>(root)); });
        } else {
            PASO::CReader::SetCreateComponentEvent(
                [&](Classes::TReader* reader, TMetaClass*, TComponent*&) { destroy(reader->getRoot()); });
        }
        EXPECT_THROW(static_cast<void>(BuildComponent(ClassOf<TFineForm>(), false)), Classes::EReadError);
        PASO::CReader::ClearEvents();
    }
}

TEST_F(PasoComponentTest, ADesignWithItsOwnClassInItIsAFault)
{
    const Support::CRegisteredDesign design("TLampFrame",
                                            "object F: TLampFrame\n  inline Inner: TLampFrame\n  end\nend");
    Classes::RegisterClass(ClassOf<TLampFrame>());
    EXPECT_THROW(static_cast<void>(BuildComponent(ClassOf<TLampFrame>(), false)), Classes::EReadError);
    Classes::UnRegisterClass(ClassOf<TLampFrame>());
}

TEST_F(PasoComponentTest, AParentThatChangedIsAFault)
{
    const Support::CRegisteredDesign design("TBenchForm", "object F: TBenchForm\n  Level = 1\nend");
    EXPECT_THROW(static_cast<void>(BuildComponent(ClassOf<TFineForm>(), false)), Classes::EReadError)
        << "the button is gone";
}

TEST_F(PasoComponentTest, DeletingRunsNoCodeOfTheProgram)
{
    DeleteComponent(nullptr);
    DeleteComponent(nullptr, nullptr);
    auto* const real = new TBenchForm;
    real->AfterConstruction();
    real->OnDestroy = {real, &TBenchForm::Alarm};
    TBenchForm::Calls = 0;
    DeleteComponent(real, BuildComponent(ClassOf<TFineForm>(), false));
    EXPECT_EQ(TBenchForm::Calls, 1) << "its own destructor, and no event";
    EXPECT_TRUE(mToolkit.TakeShown().empty());
}

TEST_F(PasoComponentTest, AFaultOnTheWayIsShownAndTheComponentStays)
{
    TComponent* const form = BuildComponent(ClassOf<TBenchForm>(), false);
    auto* const timer = new TStubbornTimer(form);
    Support::ScriptedBoxes boxes({1});
    DeleteComponent(form);
    const auto shown = boxes.TakeShown();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0].box.text, u"It stays\nClass: TBenchForm");
    EXPECT_EQ(form->ClassType(), ClassOf<TBenchForm>());
    delete timer;
    DeleteComponent(form);
    EXPECT_TRUE(boxes.TakeShown().empty());
}

TEST_F(PasoComponentTest, AFaultAtTheEndIsShownAndTheEndTakesPlace)
{
    TComponent* const form = BuildComponent(ClassOf<TBenchForm>(), false);
    (new TGrumbler(form))->SetComponentIndex(0);
    form->FindComponent(u"Clock")->FreeNotification(form->FindComponent(u"Input"));
    TGrumbler outside;
    outside.FreeNotification(form);
    const Classes::TComponentWatch watch(form);
    Support::ScriptedBoxes boxes({1, 1, 1});
    DeleteComponent(form);
    EXPECT_FALSE(watch.IsAlive());
    const auto shown = boxes.TakeShown();
    ASSERT_EQ(shown.size(), 3U);
    EXPECT_EQ(shown[0].box.text, u"Clock is missed");
    EXPECT_EQ(shown[1].box.text, u"Input is missed");
    EXPECT_EQ(shown[2].box.text, u"BenchForm is missed");
}

TEST_F(PasoComponentTest, SetDesigningReachesTheChildrenIfWanted)
{
    TComponent owner;
    TComponent child(&owner);
    PASO::SetDesigning(&owner, true, false);
    EXPECT_TRUE(IsDesigned(&owner));
    EXPECT_FALSE(IsDesigned(&child));
    PASO::SetDesigning(&owner, true, true);
    EXPECT_TRUE(IsDesigned(&child));
    PASO::SetDesigning(nullptr, true, true);
}

} // namespace
