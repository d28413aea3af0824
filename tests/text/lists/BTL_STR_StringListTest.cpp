// SPDX-License-Identifier: MIT
#include "text/lists/BTL_STR_StringList.h"
#include "foundation/UTL_AutoPtr.h"
#include "platform/base/Sysutils_Encoding.h"
#include "platform/runtime/classes/Classes.h"
#include "platform/runtime/sysutils/Sysutils_File.h"
#include "support/TempFolder.h"
#include "text/editing/BTL_STR_String.h"
#include "text/editing/BTL_STR_StringBuilder.h"
#include "text/lists/BTL_STR_StringLists.h"
#include "text/lists/BTL_STR_StringsUpdate.h"

#include <gtest/gtest.h>

#include <climits>
#include <fstream>
#include <iomanip>
#include <locale>
#include <sstream>
#include <type_traits>

namespace
{

using namespace BTL;
using Classes::TStringList;
using System::AnsiString;
using System::UnicodeString;
using System::WideChar;

TEST(MStringListTest, EditsLines)
{
    CStringList list(u"a,b,c");
    list.AppendToLastLine(u"+");
    list.AddCommaText(u"\"d e\",f");
    EXPECT_EQ(list.getCommaText(), u"a,b,c+,\"d e\",f");
    EXPECT_EQ(list.GetDelimitedText(u';'), u"a;b;c+;d e;f");
    list.InsertPrefixToEachLine(u" <");
    list.AppendSuffixToEachLine(u"> ");
    list.TrimEachLine();
    EXPECT_EQ(list.GetDelimitedText(u' '), u"<a> <b> <c+> <d e> <f>");
    list.DeleteLast();
    list.DeleteAt(1, 2);
    EXPECT_EQ(list.GetDelimitedText(u' '), u"<a> <d e>");
    list.DeleteAllAt(1);
    list.DeleteAllAt(7);
    EXPECT_EQ(list.GetCommaText(), u"<a>");
    list.DeleteAllAt(-1);
    list.DeleteLast();
    EXPECT_EQ(list.GetCount(), 0);
    list.AppendToLastLine(u"x");
    list.AddStrings(nullptr);
    list.AddStrings(CStringList(u"y").getList());
    EXPECT_EQ(list[1], u"y");
    EXPECT_TRUE(list.Equals(CStringList(u"x,y")));
    EXPECT_FALSE(list.Equals(CStringList(u"x,Y").getList()));
    EXPECT_THROW(list[2], Classes::EStringListError);
    EXPECT_THROW(list.DeleteAt(-1, 1), Classes::EStringListError);

    System::TObject object;
    CStringList marked;
    marked->AddObject(u" x ", &object);
    marked.TrimEachLine();
    marked.InsertPrefixToEachLine(u"<");
    EXPECT_EQ(marked[0], u"<x");
    EXPECT_EQ(marked->getObjects(0), &object);

    CStringList six(6);
    six.DeleteAt(5, 3);
    EXPECT_EQ(six.getCount(), 5);
    six.DeleteAt(5, 1);
    EXPECT_EQ(six.getCount(), 5);
}

TEST(MStringListTest, FormatsLines)
{
    CStringList list;
    EXPECT_EQ(list.Add_VA(u"%d-%s", 7, u"ä→"), 0);
    EXPECT_EQ(list.Add_VA("%05.2f|%s", 1.5, "narrow"), 1);
    list.Add_VA(u"plain");
    list.Set_VA(2, u"%s", UnicodeString::StringOfChar(u'x', 20'000));
    EXPECT_EQ(list[0], u"7-ä→");
    EXPECT_EQ(list[1], u"01.50|narrow");
    EXPECT_EQ(list[2].Length(), 20'000);
    EXPECT_THROW(list.Set_VA(3, "x"), Classes::EStringListError);
    EXPECT_THROW(list.Add_VA(u"%s %s", 1), Sysutils::EConvertError);
}

TEST(MStringListTest, SearchesAsTheListCompares)
{
    CStringList list(u"b,a,B,c,b");
    EXPECT_EQ(list.IndexOf(u"B"), 0);
    EXPECT_EQ(list.IndexOf(u"x"), -1);
    list.RemoveFirst(u"B");
    list.RemoveFirst(u"x");
    EXPECT_EQ(list.getCommaText(), u"a,B,c,b");
    EXPECT_TRUE(list.ContainsAll(u"A,C,a"));
    EXPECT_FALSE(list.ContainsAll(u"a,x"));
    EXPECT_TRUE(list.ContainsAll(u""));
    EXPECT_TRUE(list.ContainsAll(nullptr));
    list.RemoveAll(u"b");
    EXPECT_EQ(list.getCommaText(), u"a,c");
    list->setCaseSensitive(true);
    EXPECT_FALSE(list.ContainsAll(u"A"));

    CSortedStringList sorted(Classes::dupAccept);
    sorted.AddStrings(CStringList(u"b,a,B,c,b").getList());
    EXPECT_TRUE(sorted.ContainsAll(u"A,c"));
    EXPECT_FALSE(sorted.ContainsAll(u"a,x"));
    sorted.RemoveFirst(u"B");
    EXPECT_EQ(sorted.getCount(), 4);
    int changes = 0;
    sorted->setOnChange([&](System::TObject*) { ++changes; });
    sorted.RemoveAll(u"b");
    EXPECT_EQ(sorted.getCommaText(), u"a,c");
    EXPECT_EQ(changes, 1);

    CStringList values(u"a=1=2,\" b = 3\",plain,=x");
    const WideChar* const expected[][2] = {{u"a", u"1=2"}, {u" b ", u" 3"}, {u"", u""}, {u"", u"x"}};
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(values.GetKeyOf(i), expected[i][0]);
        EXPECT_EQ(values.GetValueOf(i), expected[i][1]);
    }
}

TEST(MStringListTest, WorksOnLargeListsInTime)
{
    constexpr int count = 200'000;
    CStringList list;
    for (int i = 0; i < count; ++i) {
        list.Add(i % 2 == 0 ? UnicodeString(u"even") : UnicodeString(i));
    }
    EXPECT_TRUE(list.ContainsAll(list.getList()));
    list.RemoveAll(u"even");
    EXPECT_EQ(list.getCount(), count / 2);
    list.DeleteAt(1, count / 2 - 2);
    EXPECT_EQ(list.getCommaText(), u"1,199999");
}

TEST(MStringListTest, LoadsFiles)
{
    const Support::TempFolder folder;
    const auto path = folder.Path() / "lines.txt";
    std::ofstream(path, std::ios::binary) << "gr\xFC\xDF\r\n\xC3\xA4";
    const UnicodeString name = Sysutils::FromHostPath(path.string());
    CStringList list;
    list.LoadFromFile(name);
    EXPECT_EQ(list->getText(), u"grüß\r\nÃ¤\r\n");
    std::ofstream(path, std::ios::binary) << "gr\xC3\xBC";
    list.LoadFromFile(name, Sysutils::TEncoding::getUTF8());
    EXPECT_EQ(list.getCommaText(), u"grü");
    EXPECT_THROW(list.LoadFromFile(name + u"x"), Classes::EFOpenError);
}

template <class List>
class StringListOwnerTest : public testing::Test
{
};
using Owners = testing::Types<CStringList, CAutoStringList>;
TYPED_TEST_SUITE(StringListOwnerTest, Owners);

TYPED_TEST(StringListOwnerTest, IsAValue)
{
    EXPECT_EQ(TypeParam(3).getCommaText(), u",,");
    EXPECT_EQ(TypeParam(-1).getCount(), 0);
    EXPECT_EQ(TypeParam(u"a b", true).getCount(), 1);
    EXPECT_EQ(TypeParam(u"a b", false).getCount(), 2);
    TypeParam source(u"b,a,a");
    source->setSorted(true);
    source->setDuplicates(Classes::dupError);
    TypeParam copy(source);
    EXPECT_EQ(copy.getCommaText(), u"a,a,b");
    EXPECT_EQ(copy->getDuplicates(), Classes::dupError);
    copy.Add(u"ab");
    EXPECT_EQ(copy[2], u"ab") << "sorted as well";
    EXPECT_EQ(source.getCount(), 3);
    const TypeParam plain(u"z,y,z");
    copy = plain;
    EXPECT_EQ(copy.getCommaText(), u"z,y,z") << "the former order drops and moves nothing";
    const TypeParam& same = copy;
    copy = same;
    EXPECT_EQ(copy.getCount(), 3);
}

TEST(StringListHelperTest, LeavesTheListToItsOwner)
{
    TStringList list;
    {
        CStringListHelper helper(&list);
        helper.AddCommaText(u"a,b");
    }
    EXPECT_EQ(list.getCommaText(), u"a,b");
}

TEST(SortedStringListTest, HasEachLineOnce)
{
    CSortedStringList list(Classes::dupAccept);
    list.Add(u"b");
    list.Add(u"a");
    EXPECT_EQ(list.Add(u"B"), 1);
    EXPECT_EQ(list.getCommaText(), u"a,b");
    EXPECT_EQ(list->getDuplicates(), Classes::dupAccept);
    EXPECT_TRUE(list.Contains(u"A"));
    EXPECT_TRUE(list.Contains(CStringList(u"b,a").getList()));
    EXPECT_FALSE(list.Contains(CStringList(u"b,c").getList()));
    EXPECT_EQ(list.Find(u"c"), -1);
    const CSortedStringList copy(list);
    EXPECT_TRUE(list.Delete(u"a"));
    EXPECT_FALSE(list.Delete(u"a"));
    EXPECT_EQ(copy.getCommaText(), u"a,b");
    EXPECT_TRUE(copy->getSorted());
    EXPECT_EQ(copy->getDuplicates(), Classes::dupAccept);
    EXPECT_EQ(list.Find(u"b"), 0);
}

TEST(StringsUpdateTest, EndsWithItsScope)
{
    CStringList list;
    int changes = 0;
    list->setOnChange([&](System::TObject*) { ++changes; });
    try {
        const CStringsUpdate update(list.getList());
        list.Add(u"a");
        list.Add(u"b");
        EXPECT_EQ(changes, 0);
        throw Sysutils::EAbort("leaves");
    } catch (const Sysutils::EAbort&) {
        EXPECT_EQ(changes, 1);
    }
    EXPECT_FALSE(list->IsUpdating());
}

TEST(AutoStringListTest, EndsWithItsLastHolder)
{
    UTL::GAutoPtr<CAutoStringList> list(new CAutoStringList(u"a,b"));
    const UTL::GAutoPtr<CAutoStringList> other = list;
    list = nullptr;
    EXPECT_EQ(other->getCommaText(), u"a,b");
    EXPECT_EQ(other->getRefCount(), 1);
}

TEST(StringListsTest, GrowsAndMakesListsWhenTold)
{
    CStringLists lists;
    EXPECT_EQ(lists.SetCount(0, false), nullptr);
    EXPECT_EQ(lists.SetCount(-5, false), nullptr);
    TStringList* const last = lists.SetCount(3, true);
    ASSERT_NE(last, nullptr);
    EXPECT_EQ(lists.getItem(0), nullptr);
    EXPECT_EQ(lists.getItem(1), nullptr);
    EXPECT_EQ(lists.getItem(2), last);
    EXPECT_EQ(lists.SetCount(1, true), last) << "never shrinks";
    lists.SetCount(5, false);
    EXPECT_NE(lists.getItem(3), nullptr);
    TStringList* const added = lists.Add();
    EXPECT_EQ(lists.getItem(5), added);
    for (const int index : {-1, 6, INT_MIN, INT_MAX}) {
        EXPECT_EQ(lists.getItem(index), nullptr);
    }
    lists.Clear();
    EXPECT_EQ(lists.getCount(), 0);
}

TEST(StringBuilderOwnerTest, HoldsABuilder)
{
    const CStringBuilder builder(100);
    EXPECT_GE(builder->getCapacity(), 100);
    builder->Append(kEmptyString).Append(u"x").Append(1);
    EXPECT_EQ(builder->ToString(), u"x1");
}

TEST(StringValueTest, KeepsAllCharactersInAStream)
{
    std::stringstream stream;
    const CUnicodeString wide(u"größer → 💡 end");
    wide.Write(stream);
    CUnicodeString().Write(stream);
    const CAnsiString narrow("a b\n\0c", 6);
    narrow.Write(stream);
    const std::string written = stream.str();
    EXPECT_EQ(written.substr(0, 3), "21 ") << "counted in bytes of UTF-8";
    EXPECT_EQ(written.substr(24), std::string("0 6 a b\n\0c", 10));

    CUnicodeString wideRead;
    wideRead.Read(stream);
    EXPECT_EQ(wideRead, wide);
    wideRead.Read(stream);
    EXPECT_EQ(wideRead.length(), 0);
    CAnsiString narrowRead;
    narrowRead.Read(stream);
    EXPECT_EQ(narrowRead, narrow);
}

TEST(StringValueTest, ReadsWhatIsThereOfADamagedStream)
{
    const struct
    {
        const char* bytes;
        const char* text;
        bool good;
    } cases[] = {
        {"3 abcd", "abc", true},  {"2147483647 abc", "abc", false},
        {"-5 abc", "", true},     {"99999999999 abc", "", false},
        {"x abc", "", false},     {"", "", false},
        {"2\nab", "ab", true},    {" \n2 ab", "ab", true},
        {"0002 ab", "ab", true},  {"2147483648 abc", "", false},
        {"- abc", "", false},     {"-99999999999999999999 abc", "", true},
        {"1,000 abc", "0", true}, {"0x2 ab", "", true},
    };
    for (const auto& test : cases) {
        std::istringstream stream(test.bytes);
        CAnsiString text("former");
        text.Read(stream);
        EXPECT_EQ(text, CAnsiString(test.text)) << test.bytes;
        EXPECT_EQ(stream.good(), test.good) << test.bytes;
    }
}

TEST(StringValueTest, KeepsItsFormInAnyStream)
{
    struct Groups : std::numpunct<char>
    {
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };
    const CAnsiString text(std::string(1234, 'x').c_str());
    for (const auto base : {std::ios::dec, std::ios::hex, std::ios::oct}) {
        std::stringstream stream;
        stream.imbue(std::locale(std::locale::classic(), new Groups));
        stream.setf(base, std::ios::basefield);
        stream.setf(std::ios::showpos | std::ios::showbase);
        stream << std::setfill('*') << std::setw(9);
        text.Write(stream);
        EXPECT_EQ(stream.str().substr(0, 6), "1234 x");
        stream << std::setw(3);
        CAnsiString read;
        read.Read(stream);
        EXPECT_EQ(read, text);
    }
}

TEST(StringValueTest, IsPlainTextToOperators)
{
    std::ostringstream out;
    out << CUnicodeString(u"ä") << '|' << CAnsiString("\xE4");
    EXPECT_EQ(out.str(), "\xC3\xA4|\xE4");
    std::istringstream in("  w\xC3\xB6rd two " + std::string(300, 'x'));
    CUnicodeString wide;
    CAnsiString narrow;
    in >> wide >> narrow;
    EXPECT_EQ(wide, CUnicodeString(u"wörd"));
    EXPECT_EQ(narrow, CAnsiString("two"));
    in >> narrow;
    EXPECT_EQ(narrow.size(), 255);
    in >> narrow;
    EXPECT_EQ(narrow.size(), 45);
    in >> narrow;
    EXPECT_EQ(narrow.size(), 0) << "nothing is left";
}

TEST(StringValueTest, HasTheOperationsOfItsText)
{
    const CUnicodeString wide(u"  aBc ");
    EXPECT_EQ(wide.Trim().UpperCase(), CUnicodeString(u"ABC"));
    EXPECT_EQ(wide.TrimLeft().LowerCase(), CUnicodeString(u"abc "));
    const struct
    {
        int index;
        int count;
        const WideChar* text;
    } parts[] = {
        {2, 2, u"aB"},           {-5, 3, u"  a"},   {INT_MIN, INT_MAX, u"  aBc "}, {5, 1, u" "}, {6, 1, u""},
        {INT_MAX, INT_MAX, u""}, {0, INT_MIN, u""},
    };
    for (const auto& part : parts) {
        EXPECT_EQ(wide.SubString(part.index, part.count), CUnicodeString(part.text)) << part.index;
    }
    EXPECT_EQ(CAnsiString("abc").SubString(1, 1), CAnsiString("b"));
    EXPECT_EQ(wide.find_first_of(u'B', 0), 3);
    EXPECT_EQ(wide.find_first_of2(u'c', u'B', 4), 4);
    EXPECT_EQ(wide.find_first_not_of(u' ', 0), 2);
    EXPECT_EQ(wide[0], u' ');
    EXPECT_EQ(wide[wide.find_first_of(u'B', 0)], u'B');
    EXPECT_EQ(wide[5], u' ');
    for (const int index : {-1, 6, INT_MIN, INT_MAX}) {
        EXPECT_THROW(wide[index], Sysutils::ERangeError) << index;
    }
    EXPECT_EQ(CUnicodeString(u"42").ToIntDef(1), 42);
    EXPECT_EQ(wide.ToIntDef(1), 1);
    EXPECT_EQ(CUnicodeString(System::UTF8String("\xC3\xA4")).vcl_str(), u"ä");
    static_assert(!std::is_convertible_v<const char*, CUnicodeString>);
    static_assert(!std::is_convertible_v<AnsiString, CUnicodeString>);
    EXPECT_EQ(CUnicodeString(u"abc", 2), CUnicodeString(u"ab"));
    EXPECT_EQ(CAnsiString("abc").find_first_of('c', 0), 2);
    EXPECT_EQ(CAnsiString(nullptr).size(), 0);
}

} // namespace
