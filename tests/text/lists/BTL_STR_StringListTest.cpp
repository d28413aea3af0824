// SPDX-License-Identifier: MIT
#include "text/lists/BTL_STR_StringList.h"
#include "foundation/UTL_AutoPtr.h"
#include "platform/base/Sysutils_Encoding.h"
#include "platform/runtime/classes/Classes.h"
#include "platform/runtime/sysutils/Sysutils_File.h"
#include "support/TempFolder.h"

#include <fstream>

#include <gtest/gtest.h>

namespace
{

using namespace BTL;
using Classes::TStringList;
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
    // Comparing is dear, so that far fewer lines already show a search through all of them for each.
    CStringList numbers;
    for (int i = 0; i < 40'000; ++i) {
        numbers.Add(UnicodeString(i));
    }
    EXPECT_TRUE(numbers.ContainsAll(numbers.getList()));

    constexpr int count = 200'000;
    CStringList list;
    for (int i = 0; i < count; ++i) {
        list.Add(i % 2 == 0 ? UnicodeString(u"even") : UnicodeString(i));
    }
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

TEST(AutoStringListTest, EndsWithItsLastHolder)
{
    UTL::GAutoPtr<CAutoStringList> list(new CAutoStringList(u"a,b"));
    const UTL::GAutoPtr<CAutoStringList> other = list;
    list = nullptr;
    EXPECT_EQ(other->getCommaText(), u"a,b");
    EXPECT_EQ(other->getRefCount(), 1);
}

TEST(StringListTest, IsMadeOfLines)
{
    EXPECT_EQ(CStringList{u"a,b"}.getCount(), 2) << "a comma text in braces too";
    EXPECT_EQ(CStringList(u"a,b").getCount(), 2);
    EXPECT_EQ(CStringList{3}.getCount(), 3) << "empty lines";
    const std::vector<UnicodeString> lines = {u"x", u"y,z"};
    EXPECT_EQ(CStringList(lines)[1], u"y,z");
}

} // namespace
