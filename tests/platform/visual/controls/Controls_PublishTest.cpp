// SPDX-License-Identifier: MIT
#include "platform/visual/controls/Controls_Publish.h"

#include "platform/runtime/classes/Classes_ClassRegister.h"
#include "platform/runtime/typinfo/Typinfo.h"
#include "platform/visual/Forms.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace
{

using System::TMetaClass;

/// What a component made of the class differs in from what a writer leaves out.
std::string Differences(TMetaClass* type)
{
    Forms::TForm form;
    Classes::TComponent* const made = type->Create(&form);
    std::string names;
    for (const Typinfo::TPropInfo* const info : Typinfo::GetPropList(made)) {
        if (info->getDefault().has_value() && !Typinfo::IsDefaultProp(made, info)) {
            names += System::ToUtf8(info->getName()) + " ";
        }
    }
    return names;
}

constexpr const char16_t* ControlClasses[] = {
    u"TAnimate",
    u"TBevel",
    u"TBitBtn",
    u"TButton",
    u"TCheckBox",
    u"TCheckListBox",
    u"TComboBox",
    u"TDBEdit",
    u"TDBGrid",
    u"TDBLookupComboBox",
    u"TDBLookupListBox",
    u"TDirectoryListBox",
    u"TDrawGrid",
    u"TDriveComboBox",
    u"TEdit",
    u"TGridPanel",
    u"TGroupBox",
    u"TImage",
    u"TLabel",
    u"TListBox",
    u"TMainMenu",
    u"TMaskEdit",
    u"TMemo",
    u"TMenuItem",
    u"TOpenDialog",
    u"TPageControl",
    u"TPanel",
    u"TPopupMenu",
    u"TProgressBar",
    u"TRadioButton",
    u"TRadioGroup",
    u"TRichEdit",
    u"TShape",
    u"TSpeedButton",
    u"TStringGrid",
    u"TTabSheet",
    u"TTimer",
};

/// A value that isn't written comes back only if a new component has it.
TEST(PublishTest, WhatIsLeftOutIsWhatANewComponentHas)
{
    const Support::ScriptedBoxes boxes;
    EXPECT_EQ(Differences(System::ClassOf<Forms::TForm>()), "");
    EXPECT_EQ(Differences(System::ClassOf<Forms::TFrame>()), "");
    for (const char16_t* const name : ControlClasses) {
        EXPECT_EQ(Differences(Classes::FindClass(name)), "") << System::UnicodeString(name);
    }
}

/// A colour or a stop of the Tab key that a new component has by itself isn't a part of a design.
TEST(PublishTest, ANewControlWritesNoColorAndNoTabStop)
{
    const Support::ScriptedBoxes boxes;
    for (const char16_t* const name : ControlClasses) {
        Forms::TForm form;
        Classes::TComponent* const made = Classes::FindClass(name)->Create(&form);
        for (const char16_t* const property : {u"Color", u"ParentColor", u"TabStop"}) {
            const Typinfo::TPropInfo* const info = Typinfo::GetPropInfo(made, property);
            EXPECT_FALSE(info != nullptr && Typinfo::IsStoredProp(made, info) &&
                         !Typinfo::IsDefaultProp(made, info))
                << System::UnicodeString(name) << "." << System::UnicodeString(property);
        }
    }
}

TEST(PublishTest, APropertyThatIsDescribedAgainIsThereOnce)
{
    const auto list = Typinfo::GetPropList(System::ClassOf<Forms::TForm>());
    for (const char16_t* const name : {u"ParentColor", u"ParentFont", u"Visible"}) {
        EXPECT_EQ(std::ranges::count(list, name, &Typinfo::TPropInfo::getName), 1)
            << System::UnicodeString(name);
        EXPECT_EQ(Typinfo::GetPropInfo(System::ClassOf<Forms::TForm>(), name)->getDefault(), 0);
    }
}

} // namespace
