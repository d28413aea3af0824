// SPDX-License-Identifier: MIT
#include "properties/resources/Paso_readcomponentres.h"

#include "platform/runtime/classes/Classes_Exceptions.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "properties/resources/Designs.h"
#include "properties/resources/Paso_creader.h"

#include <vector>

namespace
{

using namespace Designs;
using PasoReadComponentResTest = DesignTest;
using PASO::ReadComponentRes;
using System::ClassOf;

/// Without a design, between two that have one.
class TMiddleForm : public TBenchForm
{
    TRS8_BTL_CLASS(TMiddleForm, TBenchForm)
};

System::TMetaClass* TMiddleForm::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TMiddleForm>(u"TMiddleForm").Build();
    return record;
}

TEST_F(PasoReadComponentResTest, TheOutermostClassIsReadFirst)
{
    std::vector<System::UnicodeString> captions;
    PASO::CReader::SetAfterReadEvent([&captions](System::TObject* root) {
        captions.push_back(dynamic_cast<Forms::TForm&>(*root).getCaption());
    });
    Forms::TForm form;
    form.SetClassType(ClassOf<Forms::TForm>());
    EXPECT_EQ(ReadComponentRes(&form, ClassOf<TFineForm>()), &form);
    EXPECT_EQ(captions, (std::vector<System::UnicodeString>{u"Bench", u"Fine"}));
    EXPECT_EQ(dynamic_cast<Stdctrls::TButton&>(*form.FindComponent(u"StartButton")).getCaption(), u"Go");
}

TEST_F(PasoReadComponentResTest, TheLibrarysOwnClassesHaveNothingToRead)
{
    Forms::TForm form;
    for (System::TMetaClass* const type : {static_cast<System::TMetaClass*>(nullptr), ClassOf<Forms::TForm>(),
                                           ClassOf<Forms::TFrame>(), ClassOf<Classes::TDataModule>()}) {
        EXPECT_EQ(ReadComponentRes(&form, type), &form);
    }
    EXPECT_EQ(form.GetComponentCount(), 0);
}

TEST_F(PasoReadComponentResTest, AClassWithoutResourceEndsTheReading)
{
    Forms::TForm form;
    form.SetClassType(ClassOf<Forms::TForm>());
    EXPECT_THROW(ReadComponentRes(&form, ClassOf<TMiddleForm>()), Classes::EResNotFound);
    EXPECT_EQ(form.getCaption(), u"Bench") << "what stood above it was read";
}

} // namespace
