// SPDX-License-Identifier: MIT
#include "platform/visual/Stdctrls.h"

#include "platform/runtime/classes/Classes_ClassRegister.h"
#include "platform/runtime/classes/Classes_Stream.h"
#include "platform/runtime/filer/Classes_FormText.h"
#include "platform/runtime/filer/Classes_Reader.h"
#include "platform/runtime/filer/Classes_Writer.h"
#include "platform/visual/stdctrls/ShownForm.h"
#include "platform/visual/stdctrls/buttons/Buttons_BitBtn.h"
#include "platform/visual/stdctrls/buttons/Buttons_SpeedButton.h"
#include "platform/visual/stdctrls/buttons/Extctrls_RadioGroup.h"
#include "platform/visual/stdctrls/lists/Checklst_CheckListBox.h"

// What a form's design says of buttons, boxes and lists.

namespace
{

constexpr const char* Design = R"(object Form1: TForm
  Left = 0
  Top = 0
  Width = 300
  Height = 300
  object Ok: TBitBtn
    Width = 90
    Kind = bkOK
    Spacing = 9
  end
  object Pen: TSpeedButton
    Down = True
    GroupIndex = 3
  end
  object Log: TCheckBox
    Caption = 'Log'
    AllowGrayed = True
    State = cbGrayed
  end
  object Slow: TRadioButton
    Caption = 'Slow'
    Checked = True
  end
  object Speed: TRadioGroup
    Width = 100
    Caption = 'Speed'
    Columns = 2
    ItemIndex = 1
    Items.Strings = (
      'One'
      'Two')
  end
  object Fruits: TListBox
    Columns = 2
    ItemIndex = 0
    Items.Strings = (
      'pear'
      'apple')
    Sorted = True
  end
  object Channels: TCheckListBox
    ItemIndex = 1
    Items.Strings = (
      'a'
      'b')
  end
  object Typed: TComboBox
    Text = 'free'
    Items.Strings = (
      'Volt')
  end
  object Unit_: TComboBox
    ItemIndex = 1
    Items.Strings = (
      'Volt'
      'Ampere')
    Style = csDropDownList
  end
end
)";

class StdctrlsTest : public testing::Test
{
protected:
    template <class... T>
    static void Register()
    {
        (Classes::RegisterClass(System::ClassOf<T>()), ...);
    }

    static void SetUpTestSuite()
    {
        Register<Forms::TForm, Buttons::TBitBtn, Buttons::TSpeedButton, Stdctrls::TCheckBox,
                 Stdctrls::TRadioButton, Extctrls::TRadioGroup, Stdctrls::TListBox, Checklst::TCheckListBox,
                 Stdctrls::TComboBox>();
    }

    static void Read(Classes::TStream& binary, Forms::TForm& form)
    {
        binary.setPosition(0);
        Classes::TReader(&binary).ReadRootComponent(&form);
    }

    Support::ScriptedBoxes mToolkit;
};

/// Of a program's own class, without a description of its own.
class TWitness : public Stdctrls::TButton
{
public:
    using TButton::TButton;

    void Notification(Classes::TComponent* component, Classes::TOperation operation) override
    {
        TButton::Notification(component, operation);
        cameCount += operation == Classes::opInsert && component != this ? 1 : 0;
    }

    int cameCount = 0;
};

TEST_F(StdctrlsTest, ADerivedClassHearsOfOtherControls)
{
    Forms::TForm form;
    auto* const witness = new TWitness(&form);
    for (int i = 1; i <= 3; ++i) {
        new Stdctrls::TCheckBox(&form);
        EXPECT_EQ(witness->cameCount, i);
    }
}

TEST_F(StdctrlsTest, IsReadAndWrittenAsItIs)
{
    Classes::TStringStream text(System::UTF8String{Design});
    Classes::TMemoryStream binary;
    Classes::ObjectTextToBinary(&text, &binary);
    Forms::TForm form;
    Read(binary, form);
    const std::string print = Testing::CFormDriver(form).Print();
    for (const char* line :
         {"TBitBtn Ok 0,0 90x25 \"OK\" default\n", "TSpeedButton Pen 0,0 23x22 \"\" down\n",
          "\"Log\" grayed\n", "\"Slow\" checked\n", "\"Speed\" items 2 index 1\n",
          "TListBox Fruits 0,0 121x97 \"\" items 2 index 0\n",
          "TCheckListBox Channels 0,0 121x97 \"\" items 2 index 1\n",
          "TComboBox Typed 0,0 145x21 \"free\" items 1\n",
          "TComboBox Unit_ 0,0 145x21 \"Ampere\" items 2 index 1\n"}) {
        EXPECT_NE(print.find(line), std::string::npos) << line << " in\n" << print;
    }
    Classes::TMemoryStream written;
    Classes::TWriter(&written).WriteRootComponent(&form);
    form.setName({});
    Forms::TForm copy;
    Read(written, copy);
    EXPECT_EQ(Testing::CFormDriver(copy).Print(), print);
}

} // namespace
