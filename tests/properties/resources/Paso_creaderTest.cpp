// SPDX-License-Identifier: MIT
#include "properties/resources/Paso_creader.h"

#include "platform/runtime/classes/Classes_ClassRegister.h"
#include "platform/runtime/classes/Classes_Exceptions.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "properties/classes/BTL_Classes.h"
#include "properties/resources/Designs.h"

namespace
{

using namespace Designs;
using PasoCReaderTest = DesignTest;
using Classes::TComponent;
using PASO::CReader;
using System::ClassOf;
using System::GClassBuilder;
using System::TMetaClass;

/// A timer that tells who made it.
class TMadeTimer : public Extctrls::TTimer
{
    TRS8_BTL_CLASS(TMadeTimer, Extctrls::TTimer)

public:
    using TTimer::TTimer;
};

TMetaClass* TMadeTimer::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<TMadeTimer>(u"TMadeTimer").Build();
    return record;
}

/// Makes its timers itself, by a method that needs an object of the class.
class TOwnMakerForm : public Forms::TForm
{
    TRS8_BTL_CLASS(TOwnMakerForm, Forms::TForm)

public:
    explicit TOwnMakerForm(TComponent* owner = nullptr) : TForm(owner) {}

    void CreateComponentByDesigner(Classes::TReader* reader, TMetaClass* type, TComponent*& component)
    {
        if (type == ClassOf<Extctrls::TTimer>()) {
            component = new TMadeTimer(reader->getOwner());
            component->setTag(mTag);
        }
    }

private:
    int mTag = 11;
};

TMetaClass* TOwnMakerForm::ClassRecord()
{
    static TMetaClass* const record =
        GClassBuilder<TOwnMakerForm>(u"TOwnMakerForm")
            .Method(u"CreateComponentByDesigner", &TOwnMakerForm::CreateComponentByDesigner)
            .Build();
    return record;
}

/// Makes its timers by a function, which runs for any form.
class TMakerForm : public Forms::TForm
{
    TRS8_BTL_CLASS(TMakerForm, Forms::TForm)

public:
    static void CreateComponentByDesigner(Forms::TForm* root, Classes::TReader*, TMetaClass* type,
                                          TComponent*& component)
    {
        if (type == ClassOf<Extctrls::TTimer>()) {
            component = new TMadeTimer(root);
        }
    }
};

TMetaClass* TMakerForm::ClassRecord()
{
    static TMetaClass* const record =
        GClassBuilder<TMakerForm>(u"TMakerForm")
            .Method(u"CreateComponentByDesigner", &TMakerForm::CreateComponentByDesigner)
            .Build();
    return record;
}

/// Publishes something else under the name.
class TWrongMakerForm : public Forms::TForm
{
    TRS8_BTL_CLASS(TWrongMakerForm, Forms::TForm)

public:
    void MakeNothing(TObject*) {}
};

TMetaClass* TWrongMakerForm::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<TWrongMakerForm>(u"TWrongMakerForm")
                                          .Method(u"CreateComponentByDesigner", &TWrongMakerForm::MakeNothing)
                                          .Build();
    return record;
}

/// Passes over what goes wrong.
class CPatientReader : public CReader
{
public:
    using CReader::CReader;
    std::vector<System::UnicodeString> messages;

protected:
    void Error(Classes::TReader*, const System::UnicodeString& message, bool& handled) override
    {
        messages.push_back(message);
        handled = true;
    }
};

constexpr const char* ClockOnly = "object F: TF\n  object Clock: TTimer\n    Interval = 5\n  end\nend";

/// A form that what is read may find properties of derived classes on.
std::unique_ptr<Forms::TForm> PlainForm()
{
    auto form = std::make_unique<Forms::TForm>();
    form->SetClassType(ClassOf<Forms::TForm>());
    return form;
}

TEST_F(PasoCReaderTest, ReadsOneLevelAndTellsOfIt)
{
    std::vector<System::TObject*> read;
    CReader::SetAfterReadEvent([&read](System::TObject* root) { read.push_back(root); });
    const auto form = PlainForm();
    CReader reader(ClassOf<TBenchForm>());
    EXPECT_EQ(reader.ReadComponentRes(form.get()), form.get());
    EXPECT_EQ(read, std::vector<System::TObject*>{form.get()});
    EXPECT_EQ(form->getCaption(), u"Bench");

    const auto other = PlainForm();
    reader.ReadComponentRes(other.get());
    EXPECT_EQ(other->GetComponentCount(), 3) << "a second time";
}

TEST_F(PasoCReaderTest, AMethodIsThatOfTheClassHeld)
{
    const auto form = PlainForm();
    CReader(ClassOf<TBenchForm>()).ReadComponentRes(form.get());
    const auto& button = dynamic_cast<Stdctrls::TButton&>(*form->FindComponent(u"StartButton"));
    const System::TMethod& click = button.OnClick.AsMethod();
    ASSERT_TRUE(click);
    EXPECT_EQ(ClassOf<TBenchForm>()->FindMethodName(click.Code), u"StartButtonClick");
    button.OnClick(form.get());
    EXPECT_EQ(TBenchForm::Calls, 0) << "the form is none that has the method";
}

TEST_F(PasoCReaderTest, AMethodThatTheClassLacksIsAFault)
{
    const Support::CRegisteredDesign design("TBenchForm", "object F: TBenchForm\n  OnCreate = Nowhere\nend");
    const auto form = PlainForm();
    EXPECT_THROW(CReader(ClassOf<TBenchForm>()).ReadComponentRes(form.get()), Classes::EReadError);
}

TEST_F(PasoCReaderTest, OwnMakersComeFirst)
{
    const Support::CRegisteredDesign own("TOwnMakerForm", ClockOnly);
    const Support::CRegisteredDesign maker("TMakerForm", ClockOnly);
    int asked = 0;
    CReader::SetCreateComponentEvent([&asked](Classes::TReader* reader, TMetaClass*, TComponent*& component) {
        ++asked;
        component = new TMadeTimer(reader->getOwner());
        component->setTag(22);
    });

    TOwnMakerForm real;
    CReader(ClassOf<TOwnMakerForm>()).ReadComponentRes(&real);
    EXPECT_EQ(real.FindComponent(u"Clock")->getTag(), 11);
    EXPECT_EQ(asked, 0);

    const auto form = PlainForm();
    CReader(ClassOf<TMakerForm>()).ReadComponentRes(form.get());
    EXPECT_NE(dynamic_cast<TMadeTimer*>(form->FindComponent(u"Clock")), nullptr);
    EXPECT_EQ(asked, 0);

    const auto other = PlainForm();
    CReader(ClassOf<TOwnMakerForm>()).ReadComponentRes(other.get());
    EXPECT_EQ(other->FindComponent(u"Clock")->getTag(), 22) << "the method can't run on a plain form";

    CReader::ClearEvents();
    const auto last = PlainForm();
    CReader(ClassOf<TOwnMakerForm>()).ReadComponentRes(last.get());
    EXPECT_EQ(dynamic_cast<TMadeTimer*>(last->FindComponent(u"Clock")), nullptr) << "the reader made it";
}

TEST_F(PasoCReaderTest, ARootThatIsMadeMakesItsComponents)
{
    const Support::CRegisteredDesign own(
        "TOwnMakerForm", "object Made: TOwnMakerForm\n  object Clock: TTimer\n    Interval = 5\n  end\nend");
    Classes::RegisterClass(ClassOf<TOwnMakerForm>());
    const std::unique_ptr<TComponent> made(CReader(ClassOf<TOwnMakerForm>()).ReadComponentRes(nullptr));
    Classes::UnRegisterClass(ClassOf<TOwnMakerForm>());
    EXPECT_EQ(made->ClassType(), ClassOf<TOwnMakerForm>());
    EXPECT_EQ(made->FindComponent(u"Clock")->getTag(), 11);
}

TEST_F(PasoCReaderTest, AMakerOfOtherArgumentsIsRefused)
{
    EXPECT_THROW(CReader(ClassOf<TWrongMakerForm>()), Sysutils::EInvalidCast);
}

TEST_F(PasoCReaderTest, AnUnknownClassIsAFaultUntilItIsRegistered)
{
    const Support::CRegisteredDesign design(
        "TBenchForm", "object F: TBenchForm\n  object Clock: TMadeTimer\n    Interval = 5\n  end\nend");
    const auto form = PlainForm();
    EXPECT_THROW(CReader(ClassOf<TBenchForm>()).ReadComponentRes(form.get()), Classes::EClassNotFound);
    EXPECT_EQ(form->GetComponentCount(), 0);
    BTL::RegisterComponentClass(ClassOf<TMadeTimer>());
    CReader(ClassOf<TBenchForm>()).ReadComponentRes(form.get());
    EXPECT_NE(dynamic_cast<TMadeTimer*>(form->FindComponent(u"Clock")), nullptr);
}

TEST_F(PasoCReaderTest, WithoutAResourceItRaises)
{
    const auto form = PlainForm();
    EXPECT_THROW(CReader(ClassOf<TMakerForm>()).ReadComponentRes(form.get()), Classes::EResNotFound);
    EXPECT_THROW(CReader(nullptr).ReadComponentRes(form.get()), Classes::EResNotFound);
}

TEST_F(PasoCReaderTest, AHandledFaultIsPassedOver)
{
    const Support::CRegisteredDesign design("TBenchForm",
                                            "object F: TBenchForm\n  Wrong = 1\n  Caption = 'read'\nend");
    int told = 0;
    CReader::SetAfterReadEvent([&told](System::TObject*) { ++told; });
    const auto form = PlainForm();
    CPatientReader reader(ClassOf<TBenchForm>());
    reader.ReadComponentRes(form.get());
    EXPECT_EQ(form->getCaption(), u"read");
    ASSERT_EQ(reader.messages.size(), 1U);
    EXPECT_NE(reader.messages[0].Pos(u"Wrong"), 0);
    EXPECT_EQ(told, 1);

    CPatientReader none(ClassOf<TMakerForm>());
    EXPECT_EQ(none.ReadComponentRes(form.get()), form.get());
    EXPECT_EQ(none.messages.size(), 1U);
    EXPECT_EQ(told, 2);
}

} // namespace
