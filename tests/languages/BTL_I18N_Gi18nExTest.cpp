// SPDX-License-Identifier: MIT
#include "languages/BTL_I18N_Gi18nEx.h"

#include "languages/LanguageFile.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/toolkit/MessageBox.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

namespace
{

using System::UnicodeString;

enum class EText
{
    Format,
    Names,
    Numbers,
    Caption
};

constexpr int Ids[] = {100, 101, 102, 103, -1};

struct TTextFile : BTL::AIDSFile
{
    TTextFile() : AIDSFile(Ids) {}
};

using Texts = BTL::Gi18nEx<EText, TTextFile>;

class Gi18nExTest : public testing::Test
{
protected:
    void SetUp() override { Texts::Init(u"IDS", u"new 100%d.ids", mFile.Path()); }

    Support::LanguageFile mFile{
        "[IDS]\n000000100=%s!\n000000101=[a,b]\n000000102=1,2\n000000103=Caption\n100=default form\n"};
};

TEST_F(Gi18nExTest, GivesTexts)
{
    EXPECT_TRUE(Texts::Exists());
    EXPECT_TRUE(Texts::ExistsCheck());
    EXPECT_EQ(Texts::GetString(EText::Format), u"%s!");
    EXPECT_EQ(Texts::GetStringDef(EText::Format, u""), u"default form");
    EXPECT_EQ(Texts::GetString_V(EText::Format, {"x"}), u"x!");
    EXPECT_EQ(Texts::GetString_VA(EText::Format, "x"), u"x!");
    EXPECT_EQ(Texts::GetCommaText(EText::Names), u"a,b");
    Classes::TStringList list;
    Texts::GetStrings(EText::Names, &list);
    EXPECT_EQ(list.getCommaText(), u"a,b");
    Texts::GetStringsEx(EText::Names, EText::Numbers, &list);
    EXPECT_EQ(list.getObjects(1), reinterpret_cast<System::TObject*>(2));
    Texts::Init(u"IDS", u"100%d.ids", u"new ");
    Texts::InitWithPath(mFile.Path(), true);
    EXPECT_EQ(Texts::GetString(EText::Caption), u"Caption");
}

TEST_F(Gi18nExTest, ShowsBoxes)
{
    const struct
    {
        int (*show)();
        UnicodeString text;
    } cases[] = {
        {[] { return Texts::MessageBox1(EText::Format, MB_OK); }, u"%s!"},
        {[] { return Texts::MessageBox1_VA(EText::Format, MB_OK, "x"); }, u"x!"},
        {[] { return Texts::MessageBox2(EText::Format, EText::Caption, MB_OK); }, u"%s!"},
        {[] { return Texts::MessageBox2_VA(EText::Format, EText::Caption, MB_OK, "x"); }, u"x!"},
        {[] { return Texts::MessageBox3(EText::Format, u"Caption", MB_OK); }, u"%s!"},
        {[] { return Texts::MessageBox3_VA(EText::Format, u"Caption", MB_OK, "x"); }, u"x!"},
        {[] { return Texts::MessageDlg(EText::Format, Dialogs::mtCustom, {Dialogs::mbOK}, 0); }, u"%s!"},
        {[] { return Texts::MessageDlg_V(EText::Format, Dialogs::mtCustom, {Dialogs::mbOK}, 0, {"x"}); },
         u"x!"},
        {[] { return Texts::MessageDlg_VA(EText::Format, Dialogs::mtCustom, {Dialogs::mbOK}, 0, "x"); },
         u"x!"},
    };
    Support::ScriptedBoxes boxes;
    testing::internal::CaptureStderr();
    for (const auto& row : cases) {
        EXPECT_EQ(row.show(), IDOK);
        EXPECT_EQ(boxes.TakeShown().at(0).box.text, row.text);
    }
    static_cast<void>(testing::internal::GetCapturedStderr());
}

TEST_F(Gi18nExTest, AsksForLines)
{
    Support::ScriptedBoxes boxes;
    for (const auto& line : {u"a", u"b", u"c"}) {
        boxes.AnswerInput(UnicodeString(line));
    }
    UnicodeString value = u"old";
    EXPECT_EQ(Texts::InputBox(EText::Caption, EText::Names, u"own"), u"a");
    EXPECT_EQ(Texts::InputBox(EText::Caption, EText::Names, EText::Numbers), u"b");
    EXPECT_TRUE(Texts::InputQuery(EText::Caption, EText::Names, value));
    EXPECT_EQ(value, u"c");
    EXPECT_EQ(boxes.TakeAsked().at(1).input.value, u"1,2");
}

} // namespace
