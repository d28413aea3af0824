// SPDX-License-Identifier: MIT
#include "properties/values/PROP_Filter.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "platform/runtime/typinfo/System_MetaClass.h"
#include "platform/runtime/typinfo/Typinfo.h"
#include "platform/visual/forms/Forms_Form.h"
#include "platform/visual/stdctrls/buttons/Stdctrls_Button.h"

#include <gtest/gtest.h>

namespace
{

using PROP::CFilter;
using System::ClassOf;

TEST(FilterTest, TakesTheClassesThatAreNamed)
{
    struct TCase
    {
        const char16_t* classes;
        const char16_t* notClasses;
        const char16_t* name;
        bool isTaken;
    };
    for (const auto& [classes, notClasses, name, isTaken] : {
             TCase{u"", u"", u"TButton", true},
             {u"TButton", u"", u"TButton", true},
             {u"TButton", u"", u"tbutton", false},
             {u"TButton", u"", u"TEdit", false},
             {u"", u"TButton", u"TButton", false},
             {u"", u"TButton", u"TEdit", true},
             {u"TButton", u"TButton", u"TButton", false},
             {u"TButton", u"", u"", false},
         }) {
        SCOPED_TRACE(System::UnicodeString(classes) + u"/" + notClasses + u"/" + name);
        CFilter filter;
        filter.getClasses().setCommaText(classes);
        filter.getNotClasses().setCommaText(notClasses);
        EXPECT_EQ(filter.IsObjectValid(name), isTaken);
    }
}

TEST(FilterTest, AsksForTheNameOfTheClassItself)
{
    CFilter filter;
    filter.getClasses() << u"TCustomForm";
    Forms::TForm form;
    EXPECT_FALSE(filter.IsObjectValid(&form));
    EXPECT_FALSE(filter.IsObjectValid(ClassOf<Forms::TForm>()));
    filter.getClasses() << u"TForm";
    EXPECT_TRUE(filter.IsObjectValid(&form));
    EXPECT_TRUE(filter.IsObjectValid(ClassOf<Forms::TForm>()));
}

TEST(FilterTest, RefusesOnFormsAlone)
{
    CFilter filter;
    filter.getProperties().setCommaText(u"Visible,Caption");
    filter.getNotOnForms() << u"Visible" << u"Left";
    Forms::TForm form;
    Stdctrls::TButton button;
    EXPECT_FALSE(filter.IsPropertyValid(&form, u"Visible"));
    EXPECT_TRUE(filter.IsPropertyValid(&form, u"Caption"));
    EXPECT_TRUE(filter.IsPropertyValid(&button, u"Visible"));
    EXPECT_FALSE(filter.IsPropertyValid(&button, u"Left"));
    EXPECT_FALSE(filter.IsPropertyValid(&button, u"visible"));
    EXPECT_TRUE(filter.IsPropertyValid(u"Visible"));

    const auto isTaken = [&](System::TMetaClass* type) {
        return filter.IsPropertyValid(type, Typinfo::GetPropInfo(type, u"Visible"));
    };
    EXPECT_FALSE(isTaken(ClassOf<Forms::TForm>()));
    EXPECT_TRUE(isTaken(ClassOf<Stdctrls::TButton>()));
}

TEST(FilterTest, ClearsAllSets)
{
    CFilter filter;
    const auto sets = {&filter.getProperties(), &filter.getNotOnForms(), &filter.getClasses(),
                       &filter.getNotClasses(), &filter.getItemProperties()};
    for (BTL::CStringSet* const set : sets) {
        *set << u"TButton";
    }
    filter.Clear();
    for (const BTL::CStringSet* const set : sets) {
        EXPECT_TRUE(set->empty());
    }
}

TEST(FilterTest, TakesNoNull)
{
    const CFilter filter;
    EXPECT_THROW(filter.IsObjectValid(static_cast<System::TObject*>(nullptr)), UTL::XAssert);
    EXPECT_THROW(filter.IsObjectValid(static_cast<System::TMetaClass*>(nullptr)), UTL::XAssert);
    EXPECT_FALSE(filter.IsPropertyValid(ClassOf<Forms::TForm>(), static_cast<Typinfo::TPropInfo*>(nullptr)));
}

} // namespace
