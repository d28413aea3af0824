// SPDX-License-Identifier: MIT
#include "properties/resources/Paso_setclasstype.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "properties/resources/Designs.h"

#include <utility>

namespace
{

using PasoSetClassTypeTest = Designs::DesignTest;
using System::ClassOf;

TEST_F(PasoSetClassTypeTest, AClassIsReplacedAndNothingElse)
{
    Forms::TForm form;
    form.setCaption(u"before");
    PASO::SetClassType(&form, ClassOf<Designs::TFineForm>());
    EXPECT_EQ(form.ClassType(), ClassOf<Designs::TFineForm>());
    EXPECT_EQ(form.ClassName(), u"TFineForm");
    EXPECT_EQ(form.getCaption(), u"before");
    PASO::SetClassType(&form, ClassOf<Forms::TForm>());
    EXPECT_EQ(form.ClassName(), u"TForm");
}

TEST_F(PasoSetClassTypeTest, ANullArgumentIsAnInternalFault)
{
    System::TObject object;
    for (const auto& [target, type] :
         {std::pair<System::TObject*, System::TMetaClass*>{nullptr, ClassOf<Forms::TForm>()},
          {&object, nullptr}}) {
        Support::ScriptedBoxes boxes({6, 7});
        EXPECT_THROW(PASO::SetClassType(target, type), UTL::XAssert);
        const auto shown = boxes.TakeShown();
        ASSERT_EQ(shown.size(), 1U);
        EXPECT_NE(shown[0].box.text.Pos(u"PASO_SetClassType"), 0);
        PASO::SetClassType(target, type);
    }
    EXPECT_FALSE(object.HasSetClass()) << "the fault was let pass";
}

} // namespace
