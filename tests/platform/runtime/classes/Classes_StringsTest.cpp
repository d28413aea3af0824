// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_Strings.h"

#include "platform/runtime/classes/Classes_Stream.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/runtime/classes/Classes_StringsSupport.h"
#include "support/TempFolder.h"
#include <fstream>
#include <ranges>

#include <gmock/gmock.h>

using namespace Classes;
using namespace Support;
using System::TObject;
using System::UnicodeString;
using System::WideChar;
using Sysutils::TEncoding;
using testing::ElementsAre;

namespace
{

/// A store with nothing but what it must have, as controls have.
class Memo : public TStrings
{
public:
    ~Memo() override = default;
    void Insert(int index, const UnicodeString& text) override
    {
        CheckIndex(index, GetCount() + 1);
        items.insert(items.begin() + index, {text, nullptr});
    }
    void Delete(int index) override
    {
        CheckIndex(index, GetCount());
        items.erase(items.begin() + index);
    }
    void Clear() override { items.clear(); }

    std::vector<TStringItem> items;
    int updates = 0;

protected:
    UnicodeString Get(int index) const override
    {
        CheckIndex(index, GetCount());
        return items[static_cast<std::size_t>(index)].String;
    }
    int GetCount() const override { return static_cast<int>(items.size()); }
    TObject* GetObject(int index) const override { return items.at(static_cast<std::size_t>(index)).Object; }
    void PutObject(int index, TObject* object) override
    {
        items.at(static_cast<std::size_t>(index)).Object = object;
    }
    void SetUpdateState(bool) override { ++updates; }
};

TEST(StringsTest, TextHoldsLines)
{
    const struct
    {
        const WideChar* text;
        Lines lines;
    } cases[] = {
        {u"", {}},
        {u"a", {u"a"}},
        {u"a\r\n", {u"a"}},
        {u"a\nb\rc\r\nd", {u"a", u"b", u"c", u"d"}},
        {u"\r\n", {u""}},
        {u"\n\r", {u"", u""}},
        {u"\r\r\n", {u"", u""}},
    };
    TStringList list;
    for (const auto& test : cases) {
        list.setText(test.text);
        EXPECT_EQ(LinesOf(list), test.lines) << UnicodeString(test.text);
    }
    Fill(list, {WithZero(), u""});
    const UnicodeString text = list.getText();
    EXPECT_EQ(text, WithZero() + u"\r\n\r\n");
    list.setText(text);
    EXPECT_THAT(LinesOf(list), ElementsAre(WithZero(), u""));
}

TEST(StringsTest, TextUsesItsOwnLineBreak)
{
    TStringList list;
    list.setLineBreak(u"<>");
    list.setText(u"a\r\nb<>c<><d");
    EXPECT_THAT(LinesOf(list), ElementsAre(u"a\r\nb", u"c", u"<d"));
    EXPECT_EQ(list.getText(), u"a\r\nb<>c<><d<>");
    list.setLineBreak(u"");
    EXPECT_EQ(list.getLineBreak(), u"\r\n");
}

TEST(StringsTest, LargeTextsAreTakenInOneGo)
{
    // More lines than 16 bits count; work on all lines for each of them would outlast the time limit of a
    // test.
    constexpr int count = 70'000;
    UnicodeString comma;
    UnicodeString text;
    for (int i = 0; i < count; ++i) {
        comma += u"\"a\"\"b\",";
        text += u"line 1234\r\n";
    }
    TStringList list;
    list.setCommaText(comma);
    EXPECT_EQ(list.getCount(), count + 1);
    EXPECT_EQ(list[count - 1], u"a\"b");
    EXPECT_EQ(list.getCommaText(), comma);
    list.setText(text);
    EXPECT_EQ(list.getCount(), count);
    EXPECT_EQ(list.getText(), text);
}

TEST(StringsTest, HoldsNamesAndValues)
{
    TStringList list;
    Fill(list, {u"plain", u"a=1", u"B=2=3", u"c="});
    EXPECT_EQ(list.getValues(u"b"), u"2=3");
    EXPECT_EQ(list.getValues(u"plain"), u"");
    EXPECT_EQ(list.IndexOfName(u"plain"), -1);
    EXPECT_EQ(list.getNames(0), u"");
    EXPECT_EQ(list.getValueFromIndex(0), u"");
    EXPECT_EQ(list.getNames(3), u"c");
    list.setValues(u"A", u"x");
    EXPECT_EQ(list[1], u"A=x");
    list.setValues(u"new", u"y");
    EXPECT_EQ(list[4], u"new=y");
    list.setValues(u"b", u"");
    EXPECT_EQ(list.getCount(), 4);
    list.setValues(u"missing", u"");
    EXPECT_EQ(list.getCount(), 4);
    list.setValueFromIndex(1, u"z");
    EXPECT_EQ(list[1], u"A=z");
    list.setValueFromIndex(-1, u"v");
    EXPECT_EQ(list[4], u"=v");
    list.setNameValueSeparator(u':');
    EXPECT_EQ(list.IndexOfName(u"a"), -1);
}

TEST(StringsTest, OtherStoresGetAllOfItFromTheBase)
{
    Memo memo;
    TObject object;
    memo.setText(u"b\na");
    EXPECT_EQ(memo.updates, 2);
    memo.setObjects(0, &object);
    memo.setStrings(0, u"c");
    EXPECT_EQ(memo.getObjects(0), &object);
    memo.Exchange(0, 1);
    EXPECT_EQ(memo.getCommaText(), u"a,c");
    memo.Move(1, 0);
    EXPECT_EQ(memo.IndexOf(u"C"), 0);
    EXPECT_EQ(memo.getObjects(0), &object);
    memo.AddObject(u"d=1", &object);
    EXPECT_EQ(memo.getValues(u"D"), u"1");
    TStringList list;
    list.Assign(&memo);
    EXPECT_EQ(list.getText(), u"c\r\na\r\nd=1\r\n");
    EXPECT_TRUE(memo.Equals(&list));
}

TEST(StringsTest, StreamsInEachEncoding)
{
    const UnicodeString text = u"ä€\r\n\u4E2D\U0001F600\r\n";
    for (TEncoding* encoding :
         {TEncoding::getUTF8(), TEncoding::getUnicode(), TEncoding::getBigEndianUnicode()}) {
        TMemoryStream stream;
        TStringList list;
        list.setText(text);
        list.SaveToStream(&stream, encoding);
        EXPECT_TRUE(stream.AsView().starts_with(encoding->GetPreamble()));
        stream.setPosition(0);
        list.LoadFromStream(&stream);
        EXPECT_EQ(list.getText(), text) << encoding->getCodePage();
    }
    TStringStream western(System::AnsiString("\xE4\x80"));
    TStringList list;
    list.LoadFromStream(&western);
    EXPECT_EQ(list[0], u"ä€");
    TStringStream plainUtf8(System::UTF8String(UnicodeString(u"ä")));
    list.LoadFromStream(&plainUtf8, TEncoding::getUTF8());
    EXPECT_EQ(list[0], u"ä");
    TMemoryStream odd;
    odd.WriteBuffer("\xFF\xFE\x41\x00\x42", 5);
    odd.setPosition(0);
    list.LoadFromStream(&odd);
    EXPECT_EQ(list[0], u"A\uFFFD");
    EXPECT_THROW(list.LoadFromStream(nullptr), EStreamError);
    EXPECT_THROW(list.SaveToStream(nullptr), EStreamError);
}

TEST(StringsTest, LoadsAndSavesFiles)
{
    const Support::TempFolder folder;
    const std::filesystem::path file = folder.Path() / "list.txt";
    const UnicodeString path = System::FromUtf8(file.string());
    TStringList list;
    list.setText(u"ä\nb");
    list.SaveToFile(path);
    EXPECT_EQ(std::filesystem::file_size(file), 6U);
    list.Clear();
    list.LoadFromFile(path);
    EXPECT_THAT(LinesOf(list), ElementsAre(u"ä", u"b"));
    EXPECT_THROW(list.LoadFromFile(path + u"x"), EFOpenError);
    EXPECT_THROW(list.SaveToFile(path + u"/x/y"), EFCreateError);
    EXPECT_EQ(list.getCount(), 2);
}

template <class List>
concept SetsByIndex = requires(List list)
{
    list[0] = u"new";
};
static_assert(!SetsByIndex<TStringList&> && !SetsByIndex<TStrings&>, "it would set a copy");

TEST(StringsTest, GivesLinesByIndex)
{
    const TStringList list{u"one", u"two"};
    UnicodeString line = list[0];
    line += u"!";
    EXPECT_EQ(line, u"one!");
    EXPECT_EQ(list[0], u"one");
    EXPECT_TRUE(list[1] == "two" && list[0] < list[1]);
}

TEST(StringsTest, IsARangeOfItsLines)
{
    static_assert(std::random_access_iterator<TStrings::CIterator>);
    static_assert(std::ranges::sized_range<const TStrings>);
    Memo memo;
    EXPECT_TRUE(memo.empty());
    EXPECT_EQ(memo.begin(), memo.end());
    memo.AddStrings({u"b", u"a", u"c"});
    EXPECT_EQ(memo.size(), 3U);
    UnicodeString joined;
    for (const UnicodeString& line : memo) {
        joined += line;
    }
    EXPECT_EQ(joined, u"bac");
    EXPECT_EQ(memo.end() - memo.begin(), 3);
    EXPECT_EQ(memo.begin()[2], u"c");
    EXPECT_EQ(std::ranges::find(memo, u"a") - memo.begin(), 1);
    const std::vector<UnicodeString> copy(memo.begin(), memo.end());
    EXPECT_THAT(copy, ElementsAre(u"b", u"a", u"c"));
    EXPECT_THROW(*memo.end(), EStringListError);
}

TEST(StringsTest, TakesRangesOfTexts)
{
    Memo memo;
    memo.AddStrings(std::vector<std::string>{"gr\xC3\xB6\xC3\x9F"
                                             "er",
                                             "b"});
    memo.AddStrings(std::vector<UnicodeString>{u"c"});
    const char16_t* const pointers[] = {u"d", u"e"};
    memo.AddStrings(pointers);
    EXPECT_EQ(memo.updates, 6) << "each is one change";
    TStringList list;
    list.AddStrings(std::vector(memo.begin() + 1, memo.end()));
    EXPECT_EQ(list.getCommaText(), u"b,c,d,e");
    list.AddStrings(list);
    list.AddStrings({});
    EXPECT_EQ(list.getCommaText(), u"b,c,d,e,b,c,d,e");
    static_assert(!System::RangeOfTexts<UnicodeString> && !System::RangeOfTexts<const char(&)[3]>,
                  "a text is one line");
}

} // namespace
