// SPDX-License-Identifier: MIT
#include "text/grammar/BTL_STR_Delimited.h"

#include "platform/runtime/classes/Classes_StringList.h"
#include "text/BothWidthsSupport.h"
#include "text/GrowthSupport.h"

#include <gtest/gtest.h>

#include <string>

namespace
{

using System::UnicodeString;

template <class S>
using DelimitedTest = Support::BothWidths<S>;
TYPED_TEST_SUITE(DelimitedTest, Support::Widths);

TEST(DelimitedWideTest, AppendsCsvFields)
{
    UnicodeString csv;
    EXPECT_EQ(BTL::AddCSVString(csv, u"IDENT", u';'), u"\"IDENT\"");
    EXPECT_EQ(BTL::AddCSVString(csv, u"IDENT", u';'), u"\"IDENT\";IDENT");
    EXPECT_EQ(BTL::AddCSVString(csv, u"a;\"b", u';'), u"\"IDENT\";IDENT;\"a;\"\"b\"");
    EXPECT_EQ(BTL::AddCSVString(csv, u"\"", u';'), u"\"IDENT\";IDENT;\"a;\"\"b\";\"\"");
    csv = UnicodeString();
    EXPECT_EQ(BTL::AddCSVString(csv, u"id", u';'), u"id");
}

TYPED_TEST(DelimitedTest, SplitsAndJoinsLists)
{
    const auto T = TestFixture::T;
    const auto C = TestFixture::C;
    const struct
    {
        const char* text;
        const char* items;
    } cases[] = {{"a b,,c,", "a|b||c"},
                 {"  \"x, y\" ,z", "x, y|z"},
                 {",", ""},
                 {"\"open", "open"},
                 {"\"a\"b", "a|b"},
                 {"a\"b", "a\"b"},
                 {"", "-"}};
    Classes::TStringList list;
    for (const auto& c : cases) {
        BTL::SetDelimitedTextEx(&list, T(c.text), C(','), C('"'));
        EXPECT_EQ(BTL::GetDelimitedText(&list, C('|')), T(c.items == std::string("-") ? "" : c.items))
            << c.text;
        EXPECT_EQ(list.getCount() == 0, c.items == std::string("-")) << c.text;
    }
    list.Clear();
    list.Add(u"a b");
    list.Add(u"c,\"d\"");
    EXPECT_EQ(BTL::GetDelimitedTextEx(&list, C(','), C('"')), T("a b,\"c,\"\"d\"\"\""));
    EXPECT_EQ(BTL::GetDelimitedText(static_cast<Classes::TStrings*>(nullptr), C(',')), T(""));
    BTL::SetDelimitedTextEx(&list, T(std::string("a\0b,c", 5)), C(','), C(0));
    EXPECT_EQ(list.getCount(), 2);
    EXPECT_EQ(list.getStrings(0).Length(), 3) << "a zero is text";
    EXPECT_EQ(BTL::LinesToCommaText(T("a\r\nb c")), T("a,\"b c\""));
    EXPECT_EQ(BTL::LinesToCommaText(T("a\nb")), T("a\nb"));
}

TEST(DelimitedWideTest, TakesLongTexts)
{
    Classes::TStringList list;
    BTL::SetDelimitedTextEx(&list, Support::RepeatedText(), u',', u'\'');
    EXPECT_EQ(list.getCount(), 2 * Support::LongText);
}

TEST(DelimitedWideTest, TakesNarrowMarks)
{
    Classes::TStringList list;
    BTL::SetDelimitedTextEx(&list, UnicodeString(u"a\u20AC'b\u20ACc'"), '\x80', '\'');
    EXPECT_EQ(list.getCount(), 2);
    EXPECT_EQ(list.getStrings(1), u"b\u20ACc");
    BTL::SetDelimitedTextEx(&list, UnicodeString(u"'a'"), ';', 0);
    EXPECT_EQ(list.getStrings(0), u"'a'") << "nothing quotes";
    list.Add(u"b");
    EXPECT_EQ(BTL::CommaText(&list, '\x80'), u"'a'\u20ACb");
    UnicodeString csv = u"1";
    EXPECT_EQ(BTL::AddCSVString(csv, u"a\u20ACb", '\x80'), u"1\u20AC\"a\u20ACb\"");
}

} // namespace
