// SPDX-License-Identifier: MIT
#include "languages/BTL_ID_Strings.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/toolkit/MessageBox.h"
#include "platform/visual/Forms.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

#include <vector>

namespace
{

using Classes::TStringList;
using System::UnicodeString;

/// Texts of a program's own.
class COwnStrings : public BTL::AID_Strings
{
public:
    COwnStrings(std::initializer_list<UnicodeString> texts) : mTexts(texts) {}

    UnicodeString GetString(int id) override { return mTexts.at(static_cast<std::size_t>(id)); }

private:
    std::vector<UnicodeString> mTexts;
};

TEST(IdStringsTest, GivesTextsAndFilledFormats)
{
    COwnStrings texts{u"", u"%s: %.1f"};
    EXPECT_EQ(texts.GetStringDef(0, u"none"), u"none");
    EXPECT_EQ(texts.GetStringDef(1, u"none"), u"%s: %.1f");
    EXPECT_EQ(texts.GetString_VA(1, u"Ofen", 20.5), u"Ofen: 20.5");
    EXPECT_EQ(texts.GetString_V(1, {"Ofen", 20.5}), u"Ofen: 20.5");
}

TEST(IdStringsTest, TellsOfWrongPlaceholders)
{
    COwnStrings texts{u"%d of %d", u"%s", u"%", u"%n"};
    EXPECT_EQ(texts.GetString_VA(0, 5), u"IDS-Key '0' has wrong placeholders: %d of %d");
    EXPECT_EQ(texts.GetString_VA(1, 5), u"IDS-Key '1' has wrong placeholders: %s");
    EXPECT_EQ(texts.GetString_VA(2), u"IDS-Key '2' has wrong placeholders: %");
    EXPECT_EQ(texts.GetString_VA(3, 5), u"IDS-Key '3' has wrong placeholders: %n");
}

TEST(IdStringsTest, TakesTheBracketsOffLists)
{
    const struct
    {
        UnicodeString text;
        UnicodeString commaText;
    } cases[] = {{u"[a,b]", u"a,b"}, {u"a,b", u"a,b"}, {u"[", u"["},
                 {u"[]", u""},       {u"[a", u"[a"},   {u"", u""}};
    for (const auto& row : cases) {
        COwnStrings texts{row.text};
        EXPECT_EQ(texts.GetCommaText(0), row.commaText) << row.text;
    }
    COwnStrings texts{u"[one,\"t,wo\"]"};
    TStringList list{u"old"};
    texts.GetStrings(0, &list);
    EXPECT_EQ(list.getCommaText(), u"one,\"t,wo\"");
    texts.GetStrings(0, nullptr);
}

TEST(IdStringsTest, JoinsNamesAndNumbers)
{
    COwnStrings texts{u"a,b", u"[\" 1 \",word]", u"1"};
    TStringList list{u"old"};
    texts.GetStringsEx(0, 1, &list);
    EXPECT_EQ(list.getCommaText(), u"a,b");
    EXPECT_EQ(list.getObjects(0), reinterpret_cast<System::TObject*>(1));
    EXPECT_EQ(list.getObjects(1), nullptr);
    texts.GetStringsEx(0, 1, nullptr);

    Support::ScriptedBoxes boxes({IDYES, IDNO});
    EXPECT_THROW(texts.GetStringsEx(0, 2, &list), UTL::XAssert);
    EXPECT_EQ(list.getCount(), 0) << "cleared before it fails";
    texts.GetStringsEx(0, 2, &list);
    EXPECT_EQ(list.getCommaText(), u"a") << "what there is of both";
    EXPECT_NE(boxes.TakeShown().at(0).box.text.Pos(u"BTL_ID_Strings"), 0);
}

TEST(IdStringsTest, ShowsBoxes)
{
    COwnStrings texts{u"Text %s", u"Caption %s"};
    const int flags = MB_YESNO | MB_ICONQUESTION;
    const UnicodeString title = Forms::Application->getTitle();
    const struct
    {
        int (*show)(BTL::AID_Strings& texts);
        UnicodeString text;
        UnicodeString caption;
    } cases[] = {
        {[](auto& t) { return t.MessageBoxW(u"own", flags); }, u"own", title},
        {[](auto& t) { return t.MessageBox1(0, flags); }, u"Text %s", title},
        {[](auto& t) { return t.MessageBox1_VA(0, flags, "x"); }, u"Text x", title},
        {[](auto& t) { return t.MessageBox2(0, 1, flags); }, u"Text %s", u"Caption %s"},
        {[](auto& t) { return t.MessageBox2_VA(0, 1, flags, "x"); }, u"Text x", u"Caption %s"},
        {[](auto& t) { return t.MessageBox3(0, u"own %s", flags); }, u"Text %s", u"own %s"},
        {[](auto& t) { return t.MessageBox3_VA(0, u"own %s", flags, "x"); }, u"Text x", u"own %s"},
        {[](auto& t) {
             return t.MessageDlg(0, Dialogs::mtConfirmation, {Dialogs::mbYes, Dialogs::mbNo}, 0);
         },
         u"Text %s", u"Confirm"},
        {[](auto& t) {
             return t.MessageDlg_VA(0, Dialogs::mtConfirmation, {Dialogs::mbYes, Dialogs::mbNo}, 0, "x");
         },
         u"Text x", u"Confirm"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.text + row.caption);
        Support::ScriptedBoxes boxes({IDNO});
        EXPECT_EQ(row.show(texts), IDNO);
        const auto shown = boxes.TakeShown();
        ASSERT_EQ(shown.size(), 1U);
        EXPECT_EQ(shown[0].box.text, row.text);
        EXPECT_EQ(shown[0].box.caption, row.caption);
        EXPECT_EQ(shown[0].box.flags, static_cast<unsigned>(flags));
    }
}

TEST(IdStringsTest, RaisesTextsWithAPageOfTheHelp)
{
    COwnStrings texts{u"Text %s"};
    const struct
    {
        void (*raise)(BTL::AID_Strings& texts);
        UnicodeString message;
    } cases[] = {
        {[](auto& t) { t.ThrowMessage(u"own %s", 12); }, u"own %s"},
        {[](auto& t) { t.ThrowMessage(0, 12); }, u"Text %s"},
        {[](auto& t) { t.ThrowMessage_VA(0, 12, "x"); }, u"Text x"},
    };
    for (const auto& row : cases) {
        try {
            row.raise(texts);
            ADD_FAILURE() << row.message;
        } catch (const Sysutils::Exception& fault) {
            EXPECT_EQ(fault.getMessage(), row.message);
            EXPECT_EQ(fault.getHelpContext(), 12);
        }
    }
}

TEST(IdStringsTest, AsksForLines)
{
    COwnStrings texts{u"Caption", u"Prompt", u"Default"};
    Support::ScriptedBoxes boxes;
    for (const auto& line : {u"a", u"b", u"c"}) {
        boxes.AnswerInput(UnicodeString(line));
    }
    EXPECT_EQ(texts.InputBox(0, 1, u"own"), u"a");
    EXPECT_EQ(texts.InputBox(0, 1, 2), u"b");
    UnicodeString value = u"old";
    EXPECT_TRUE(texts.InputQuery(0, 1, value));
    EXPECT_EQ(value, u"c");

    const auto asked = boxes.TakeAsked();
    ASSERT_EQ(asked.size(), 3U);
    EXPECT_EQ(asked[0].input.caption, u"Caption");
    EXPECT_EQ(asked[0].input.prompt, u"Prompt");
    EXPECT_EQ(asked[0].input.value, u"own");
    EXPECT_EQ(asked[1].input.value, u"Default");
    EXPECT_EQ(asked[2].input.value, u"old");
}

} // namespace
