// SPDX-License-Identifier: MIT
#include "properties/classes/BTL_Classes.h"

#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/visual/Forms.h"

#include <gtest/gtest.h>

#include <utility>

namespace
{

using BTL::CClasses;
using Classes::TStringList;
using System::ClassOf;
using System::TMetaClass;

class TBaseForm : public Forms::TForm
{
    TRS8_BTL_CLASS(TBaseForm, Forms::TForm)
};

class TEditForm : public TBaseForm
{
    TRS8_BTL_CLASS(TEditForm, TBaseForm)
};

class TPartFrame : public Forms::TFrame
{
    TRS8_BTL_CLASS(TPartFrame, Forms::TFrame)
};

TMetaClass* TBaseForm::ClassRecord()
{
    static TMetaClass* const record = System::GClassBuilder<TBaseForm>(u"TBaseForm").Build();
    return record;
}

TMetaClass* TEditForm::ClassRecord()
{
    static TMetaClass* const record = System::GClassBuilder<TEditForm>(u"TEditForm").Build();
    return record;
}

TMetaClass* TPartFrame::ClassRecord()
{
    static TMetaClass* const record = System::GClassBuilder<TPartFrame>(u"TPartFrame").Build();
    return record;
}

namespace Other
{

/// Of the name of another class.
class TEditForm : public Forms::TForm
{
    TRS8_BTL_CLASS(TEditForm, Forms::TForm)
};

TMetaClass* TEditForm::ClassRecord()
{
    static TMetaClass* const record = System::GClassBuilder<TEditForm>(u"TEditForm").Build();
    return record;
}

} // namespace Other

System::UnicodeString NamesOf(const CClasses& classes)
{
    TStringList list;
    list.Add(u"former");
    classes.GetClasses(&list);
    return list.getCommaText();
}

TEST(ClassesTest, AParentFollowsUpToTheForm)
{
    constexpr const char* AllOfAFrame = "TComponent,TControl,TCustomControl,TCustomFrame,TFrame,TObject,"
                                        "TPartFrame,TPersistent,TWinControl";
    for (const auto& [type, withParents, names] :
         {std::tuple(ClassOf<TEditForm>(), true, "TBaseForm,TEditForm"),
          {ClassOf<TEditForm>(), false, "TEditForm"},
          {ClassOf<TPartFrame>(), true, AllOfAFrame},
          {static_cast<TMetaClass*>(nullptr), true, ""}}) {
        CClasses classes;
        classes.Add(type, withParents);
        classes.Add(type, withParents);
        EXPECT_EQ(NamesOf(classes), names) << "once each";
    }
}

TEST(ClassesTest, ALaterClassReplacesOneOfItsName)
{
    CClasses classes(u"forms");
    EXPECT_EQ(classes.getName(), u"forms");
    EXPECT_TRUE(classes.CheckClass(ClassOf<TEditForm>()));
    classes.Add(ClassOf<TEditForm>(), false);
    EXPECT_TRUE(classes.CheckClass(ClassOf<TEditForm>()));
    EXPECT_FALSE(classes.CheckClass(ClassOf<Other::TEditForm>()));
    classes.Add(ClassOf<Other::TEditForm>(), false);
    EXPECT_EQ(classes.FindClass(u"TEditForm"), ClassOf<Other::TEditForm>());
    EXPECT_FALSE(classes.CheckClass(ClassOf<TEditForm>()));
    EXPECT_TRUE(classes.CheckClass(nullptr));
    EXPECT_EQ(classes.FindClass(u"teditform"), nullptr) << "case matters";
}

TEST(ClassesTest, ListsBearTheClasses)
{
    CClasses classes;
    classes.Add(ClassOf<TEditForm>(), true);
    TStringList list;
    list.Add(u"former");
    classes.AddClassesTo(&list);
    EXPECT_EQ(list.getCommaText(), u"former,TBaseForm,TEditForm");
    EXPECT_EQ(list.getObjects(2), ClassOf<TEditForm>());
    classes.GetClasses(nullptr);
    classes.AddClassesTo(nullptr);
}

TEST(ClassesTest, ComponentClassesAreKnownByName)
{
    EXPECT_EQ(BTL::GetComponentClass(u"TPartFrame"), nullptr);
    BTL::RegisterComponentClass(ClassOf<TPartFrame>());
    BTL::RegisterComponentClass(nullptr);
    EXPECT_EQ(BTL::GetComponentClass(u"TPartFrame"), ClassOf<TPartFrame>());
    EXPECT_EQ(BTL::GetComponentClass(u"TFrame"), nullptr) << "without parents";
    BTL::RegisterComponentClass(ClassOf<TEditForm>());
    BTL::RegisterComponentClass(ClassOf<Other::TEditForm>());
    EXPECT_EQ(BTL::GetComponentClass(u"TEditForm"), ClassOf<Other::TEditForm>());
}

TEST(ClassesTest, ParentsOfAClassAsAList)
{
    for (const auto& [type, names] :
         {std::pair(ClassOf<TEditForm>(), "TEditForm,TBaseForm"),
          {ClassOf<Forms::TForm>(), ""},
          {ClassOf<Classes::TDataModule>(), ""},
          {ClassOf<Forms::TCustomForm>(),
           "TCustomForm,TCustomControl,TWinControl,TControl,TComponent,TPersistent,TObject"},
          {static_cast<TMetaClass*>(nullptr), ""}}) {
        TStringList list;
        list.Add(u"former");
        BTL::GetClasses(type, &list);
        EXPECT_EQ(list.getCommaText(), names);
        EXPECT_EQ(list.getCount() > 0 ? list.getObjects(0) : nullptr, list.getCount() > 0 ? type : nullptr);
    }
    BTL::GetClasses(ClassOf<TEditForm>(), nullptr);
}

TEST(ClassesTest, AskedForDescent)
{
    for (const auto& [name, isOne] : {std::pair(u"TEditForm", true),
                                      {u"TBaseForm", true},
                                      {u"TObject", true},
                                      {u"tbaseform", false},
                                      {u"TPartFrame", false},
                                      {u"", false}}) {
        EXPECT_EQ(BTL::InheritsFrom(ClassOf<TEditForm>(), name), isOne) << System::ToUtf8(name);
    }
    EXPECT_FALSE(BTL::InheritsFrom(static_cast<TMetaClass*>(nullptr), u"TObject"));

    TEditForm form;
    EXPECT_TRUE(BTL::InheritsFrom(&form, ClassOf<TBaseForm>()));
    EXPECT_FALSE(BTL::InheritsFrom(&form, ClassOf<Other::TEditForm>()));
    EXPECT_FALSE(BTL::InheritsFrom(static_cast<System::TObject*>(nullptr), ClassOf<TBaseForm>()));
}

} // namespace
