// SPDX-License-Identifier: MIT
#include "platform/runtime/filer/Classes_FormCheck.h"

#include "platform/runtime/filer/FilerSupport.h"

#include <gmock/gmock.h>

using namespace Classes;
using namespace FilerTest;
using testing::HasSubstr;

namespace
{

std::string Told(const std::vector<TFormFault>& faults)
{
    std::string told;
    for (const TFormFault& fault : faults) {
        told += std::to_string(fault.Line) + ":" + std::to_string(fault.Column) + " " +
                System::ToUtf8(fault.Message) + "\n";
    }
    return told;
}

class FormCheckTest : public testing::Test
{
protected:
    void SetUp() override { RegisterClasses(); }
    void TearDown() override { EXPECT_EQ(BoxCount(), 0); }
};

TEST_F(FormCheckTest, FindsNothingInARightForm)
{
    EXPECT_EQ(Told(CheckFormText(R"(object Main: TSheet
  Anything = <item end>
  object A: TBox
    Width = 1
    Caption = 'x'
    Kind = bkRound
    Marks = [bkTall]
    Visible = True
    Ratio = 1
    Share = 1.5
    Letter = 'x'
    Colour = clRed
    Extra = ('a' (1) {00})
    Buddy = B
    OnClick = BoxClick
    Font.Size = 1
    Lines.Strings = ('a')
    Columns = <item Title = 'x' end item end>
    Inner = 1
    Blob = {00}
    Left = 3
  end
  inline P: TPart
    inherited A: TBox
    end
  end
  object B: TUnknown
    Nonsense = 1
  end
end)")),
              "");
}

TEST_F(FormCheckTest, TellsEachFaultWithItsPlace)
{
    const struct
    {
        const char* line;
        const char* told;
    } cases[] = {
        {"Nonsense = 1", "3:5 Main.A.Nonsense (TBox): there is no property Nonsense in a TBox"},
        {"Font.Weight = 1", "3:5 Main.A.Font.Weight (TBox): there is no property Weight in a TLetters"},
        {"Fant.Size = 1", "3:5 Main.A.Fant.Size (TBox): there is no property Fant with parts"},
        {"Width = 'x'", "3:13 Main.A.Width (TBox): a text doesn't fit"},
        {"Width = 5000000000", "3:13 Main.A.Width (TBox): the number isn't within"},
        {"Width = clRed", "3:13 Main.A.Width (TBox): 'clRed' is no value of the property"},
        {"Colour = clPink", "'clPink' is no value"},
        {"Kind = bkSquare", "3:12 Main.A.Kind (TBox): 'bkSquare' is no value"},
        {"Kind = 1", "an integer doesn't fit"},
        {"Marks = [bkTall, bkSquare]", "3:22 Main.A.Marks (TBox): 'bkSquare' is no element"},
        {"Marks = bkTall", "'bkTall' is no value"},
        {"Visible = 1", "an integer doesn't fit"},
        {"Visible = nil", "nil doesn't fit"},
        {"Letter = 'ab'", "the property holds one character"},
        {"Caption = True", "'True' is no value"},
        {"Ratio = 'x'", "a text doesn't fit"},
        {"Caption = 1.5", "a float doesn't fit"},
        {"Caption = {00}", "a row of bytes doesn't fit"},
        {"Caption = Null", "Null doesn't fit"},
        {"Caption = ('a')", "a list doesn't fit"},
        {"Caption = [a]", "a set doesn't fit"},
        {"Font = <item end>", "the property has no collection"},
        {"Font = B", "'B' is no value"},
        {"OnClick = Nobody", "'Nobody' is no value"},
        {"Columns = <item Titel = 'x' end>",
         "3:21 Main.A.Columns[0].Titel (TBox): there is no property Titel in a TColumn"},
        {"ChildCount = 1", "the property is read-only"},
        {"Caption = 'a' caption = 'b'", "3:19 Main.A.caption (TBox): the property is there twice"},
        {"object B: TBox end object b: TBox end",
         "3:31 Main.A.b (TBox): there is another component of this name"},
        {"object B: TLetters end", "3:12 Main.A.B (TLetters): the class TLetters is unknown"},
        {"inherited B: TBox end", "3:15 Main.A.B (TBox): nothing is inherited here"},
        {"Caption = 'x", "3:15 Main.A.Caption (TBox): a text has no closing quote"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.line);
        const std::string text =
            "object Main: TSheet\n  object A: TBox\n    " + std::string(row.line) + "\n  end\nend";
        EXPECT_THAT(Told(CheckFormText(text, fcAll)), HasSubstr(row.told));
    }
}

TEST_F(FormCheckTest, InheritedFormsMayChangeWhatTheyInherit)
{
    EXPECT_EQ(Told(CheckFormText(
                  "inherited Main: TSheet\n  inherited A: TBox\n    object B: TBox\n    end\n  end\n  "
                  "inherited P: TPart\n    inherited A: TBox\n    end\n  end\nend")),
              "");
    EXPECT_THAT(Told(CheckFormText(
                    "inherited Main: TSheet\n  inherited A: TBox\n  end\n  inherited A: TBox\n  end\nend")),
                HasSubstr("4:13"));
}

TEST_F(FormCheckTest, EndsBehindAHundredFaults)
{
    std::string text = "object Main: TSheet\n  object A: TBox\n";
    for (int i = 0; i < 1000; ++i) {
        text += "    Bad" + std::to_string(i) + " = 1\n";
    }
    EXPECT_EQ(CheckFormText(text + "  end\nend").size(), 100U);
}

TEST_F(FormCheckTest, AClassThatCannotBeMadeShowsNothing)
{
    EXPECT_EQ(Told(CheckFormText("object Main: TSheet\n  object A: TBroken\n    Nonsense = 1\n  end\nend")),
              "");
}

} // namespace
