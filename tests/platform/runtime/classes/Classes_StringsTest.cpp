// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes.h"
#include "support/TempFolder.h"

#include <fstream>
#include <random>

#include <gmock/gmock.h>

using namespace Classes;
using System::TObject;
using System::UnicodeString;
using System::WideChar;
using Sysutils::TEncoding;
using testing::ElementsAre;

namespace
{

using Lines = std::vector<UnicodeString>;

Lines LinesOf(const TStrings& strings)
{
    Lines lines;
    for (int i = 0; i < strings.getCount(); ++i) {
        lines.push_back(strings[i]);
    }
    return lines;
}

void Fill(TStrings& strings, const Lines& lines)
{
    strings.Clear();
    for (const UnicodeString& line : lines) {
        strings.Add(line);
    }
}

UnicodeString WithZero()
{
    return UnicodeString(u"a\0b", 3);
}

class Counted : public TObject
{
public:
    explicit Counted(int& alive) : mAlive(alive) { ++mAlive; }
    ~Counted() override { --mAlive; }

private:
    int& mAlive;
};

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

TEST(StringListTest, ReadsCommaText)
{
    const struct
    {
        const WideChar* text;
        Lines lines;
    } cases[] = {
        {u"", {}},
        {u"   ", {}},
        {u"a,b", {u"a", u"b"}},
        {u" a  b\tc ", {u"a", u"b", u"c"}},
        {u"a , b", {u"a", u"b"}},
        {u",", {u"", u""}},
        {u"a,,b", {u"a", u"", u"b"}},
        {u"a,", {u"a", u""}},
        {u",a", {u"", u"a"}},
        {u"\"\"", {u""}},
        {u"\"a b\",\"c,d\"", {u"a b", u"c,d"}},
        {u"\"a\"\"b\"", {u"a\"b"}},
        {u"\"\"\"\"", {u"\""}},
        {u"a\"b", {u"a\"b"}},
        {u"\"a\"b", {u"a", u"b"}},
        {u"\"open, to the end", {u"open, to the end"}},
        {u"\"", {u""}},
        {u"x=1,y=\"2 3\"", {u"x=1", u"y=\"2", u"3\""}},
    };
    TStringList list;
    for (const auto& test : cases) {
        list.setCommaText(test.text);
        EXPECT_EQ(LinesOf(list), test.lines) << UnicodeString(test.text);
    }
}

TEST(StringListTest, CommaTextQuotesOnlyWhatNeedsIt)
{
    TStringList list;
    Fill(list, {u"a", u"", u"b c", u"d,e", u"f\"g", u"h\ti", u"ä€"});
    EXPECT_EQ(list.getCommaText(), u"a,,\"b c\",\"d,e\",\"f\"\"g\",\"h\ti\",ä€");
    Fill(list, {u""});
    EXPECT_EQ(list.getCommaText(), u"\"\"");
    list.Clear();
    EXPECT_EQ(list.getCommaText(), u"");
}

TEST(StringListTest, DelimitedTextBringsAnyListBack)
{
    std::mt19937 random(7);
    const WideChar letters[] = {u'a', u' ', u'"', u',', u';', 0, 9, 13, 10, 0xD800, u'\'', u'='};
    std::uniform_int_distribution<std::size_t> letter(0, std::size(letters) - 1);
    std::uniform_int_distribution<int> few(0, 4);
    const WideChar delimiters[] = {u',', u';', u' ', u'\t', u'a'};
    for (int round = 0; round < 4000; ++round) {
        TStringList list;
        list.setDelimiter(delimiters[static_cast<std::size_t>(round) % std::size(delimiters)]);
        list.setQuoteChar(round % 3 == 0 ? u'\'' : u'"');
        list.setStrictDelimiter(round % 2 == 0);
        for (int lines = few(random); lines > 0; --lines) {
            UnicodeString line;
            for (int length = few(random); length > 0; --length) {
                line += letters[letter(random)];
            }
            list.Add(line);
        }
        const Lines lines = LinesOf(list);
        list.setDelimitedText(list.getDelimitedText());
        ASSERT_EQ(LinesOf(list), lines) << "delimited, round " << round;
        list.setCommaText(list.getCommaText());
        ASSERT_EQ(LinesOf(list), lines) << "comma text, round " << round;
    }
}

TEST(StringListTest, StrictDelimiterKeepsBlanks)
{
    TStringList list;
    list.setDelimiter(u';');
    list.setStrictDelimiter(true);
    list.setDelimitedText(u" a b ;c; ");
    EXPECT_THAT(LinesOf(list), ElementsAre(u" a b ", u"c", u" "));
    EXPECT_EQ(list.getDelimitedText(), u" a b ;c; ");
    list.setQuoteChar(0);
    list.setDelimitedText(u"\"a;b\"");
    EXPECT_THAT(LinesOf(list), ElementsAre(u"\"a", u"b\""));
    EXPECT_EQ(list.getDelimiter(), u';');
    list.setCommaText(u"a b");
    EXPECT_EQ(list.getCount(), 2) << "comma text knows no strictness";
    EXPECT_EQ(list.getDelimiter(), u';');
}

TEST(StringListTest, AcceptsADelimiterThatIsTheQuote)
{
    TStringList list;
    list.setDelimiter(u'"');
    list.setDelimitedText(u"a\"b\"c\"\"");
    list.getDelimitedText();
    EXPECT_GT(list.getCount(), 0);
}

TEST(StringListTest, TextHoldsLines)
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

TEST(StringListTest, TextUsesItsOwnLineBreak)
{
    TStringList list;
    list.setLineBreak(u"<>");
    list.setText(u"a\r\nb<>c<><d");
    EXPECT_THAT(LinesOf(list), ElementsAre(u"a\r\nb", u"c", u"<d"));
    EXPECT_EQ(list.getText(), u"a\r\nb<>c<><d<>");
    list.setLineBreak(u"");
    EXPECT_EQ(list.getLineBreak(), u"\r\n");
}

TEST(StringListTest, LargeTextsAreTakenInOneGo)
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

TEST(StringListTest, SortedListsTakeTextsInOneGo)
{
    UnicodeString text;
    for (int i = 0; i < 5'000; ++i) {
        text += u"line 1234\r\n";
    }
    TStringList list;
    list.setSorted(true);
    list.setText(text);
    EXPECT_EQ(list.getCount(), 1);
}

TEST(StringListTest, IndicesOutOfRangeRaise)
{
    TStringList list;
    Fill(list, {u"a", u"b"});
    for (const int index : {-1, 2, INT_MAX, INT_MIN}) {
        EXPECT_THROW(list.getStrings(index), EStringListError);
        EXPECT_THROW(list[index], EStringListError);
        EXPECT_THROW(list.setStrings(index, u"x"), EStringListError);
        EXPECT_THROW(list.getObjects(index), EStringListError);
        EXPECT_THROW(list.setObjects(index, nullptr), EStringListError);
        EXPECT_THROW(list.Delete(index), EStringListError);
        EXPECT_THROW(list.Exchange(0, index), EStringListError);
        EXPECT_THROW(list.Move(index, 0), EStringListError);
        EXPECT_THROW(list.Move(0, index), EStringListError);
        EXPECT_THROW(list.getNames(index), EStringListError);
    }
    EXPECT_THROW(list.Insert(3, u"x"), EStringListError);
    EXPECT_THROW(list.setCapacity(1), EStringListError);
    EXPECT_THAT(LinesOf(list), ElementsAre(u"a", u"b"));
    try {
        list.Delete(7);
        FAIL();
    } catch (const EStringListError& error) {
        EXPECT_EQ(error.getMessage(), u"List index out of bounds (7)");
    }
}

TEST(StringListTest, EditsLinesWithTheirObjects)
{
    TStringList list;
    TObject a;
    TObject b;
    list.AddObject(u"a", &a);
    list.Insert(0, u"x");
    list.InsertObject(2, u"b", &b);
    list.Move(2, 0);
    EXPECT_THAT(LinesOf(list), ElementsAre(u"b", u"x", u"a"));
    EXPECT_EQ(list.getObjects(0), &b);
    list.Exchange(0, 2);
    EXPECT_EQ(list.getObjects(0), &a);
    EXPECT_EQ(list.IndexOfObject(&b), 2);
    list.setStrings(2, u"c");
    EXPECT_EQ(list.getObjects(2), &b);
    list.AddStrings(&list);
    EXPECT_EQ(list.getCount(), 6);
    EXPECT_EQ(list.getObjects(5), &b);
    list.AddStrings(nullptr);
    EXPECT_EQ(list.IndexOfObject(&list), -1);

    TStringList copy;
    copy.Assign(&list);
    EXPECT_TRUE(copy.Equals(&list));
    EXPECT_EQ(copy.getObjects(2), &b);
    copy.Assign(&copy);
    EXPECT_TRUE(copy.Equals(&list));
    copy.setStrings(0, u"A");
    EXPECT_FALSE(copy.Equals(&list)) << "compared exactly";
    TComponent other;
    EXPECT_THROW(copy.Assign(&other), Sysutils::EConvertError);
}

TEST(StringListTest, DestroysTheObjectsItOwns)
{
    int alive = 0;
    {
        TStringList list(true);
        for (int i = 0; i < 6; ++i) {
            list.AddObject(UnicodeString(i), new Counted(alive));
        }
        list.Add(u"none");
        list.Delete(0);
        EXPECT_EQ(alive, 5);
        list.Move(0, 3);
        list.Exchange(0, 1);
        list.Sort();
        list.setStrings(1, u"other");
        EXPECT_EQ(alive, 5);
        list.setText(u"x");
        EXPECT_EQ(alive, 0);
        list.AddObject(u"y", new Counted(alive));
    }
    EXPECT_EQ(alive, 0);
}

TEST(StringListTest, DeletesManyLinesAtOnce)
{
    int alive = 0;
    TStringList list(true);
    for (const WideChar* const line : {u"a", u"B", u"c", u"b", u"d", u"b", u"e"}) {
        list.AddObject(line, new Counted(alive));
    }
    list.DeleteAll(u"b");
    EXPECT_THAT(LinesOf(list), ElementsAre(u"a", u"c", u"d", u"e"));
    EXPECT_EQ(alive, 4);
    list.DeleteAll(u"x");
    list.DeleteRange(1, 2);
    EXPECT_THAT(LinesOf(list), ElementsAre(u"a", u"e"));
    list.DeleteRange(0, 0);
    list.DeleteRange(0, INT_MIN);
    list.DeleteRange(INT_MAX - 1, INT_MAX);
    EXPECT_THROW(list.DeleteRange(-1, 1), EStringListError);
    EXPECT_EQ(list.getCount(), 2);
    list.DeleteRange(1, INT_MAX);
    EXPECT_THAT(LinesOf(list), ElementsAre(u"a"));
    EXPECT_EQ(alive, 1);
}

TEST(StringListTest, SortedListsKeepTheirOrder)
{
    TStringList list;
    Fill(list, {u"b", u"C", u"ä", u"a", u"Z"});
    list.setSorted(true);
    EXPECT_THAT(LinesOf(list), ElementsAre(u"a", u"ä", u"b", u"C", u"Z")) << "by the language's order";
    EXPECT_EQ(list.Add(u"B"), 2) << "ignored: there already";
    EXPECT_EQ(list.Add(u"ba"), 3);
    int index = 0;
    EXPECT_TRUE(list.Find(u"c", index));
    EXPECT_EQ(index, 4);
    EXPECT_FALSE(list.Find(u"m", index));
    EXPECT_EQ(index, 5);
    EXPECT_EQ(list.IndexOf(u"z"), 5);
    EXPECT_THROW(list.Insert(0, u"x"), EStringListError);
    EXPECT_THROW(list.setStrings(0, u"x"), EStringListError);
    EXPECT_THROW(list.Move(0, 1), EStringListError);
    EXPECT_EQ(list.getCount(), 6) << "a refusal loses nothing";
}

TEST(StringListTest, DuplicatesAreAcceptedOrRefused)
{
    TStringList list;
    list.setSorted(true);
    list.setDuplicates(dupError);
    list.Add(u"a");
    try {
        list.Add(u"A");
        FAIL();
    } catch (const EStringListError& error) {
        EXPECT_EQ(error.getMessage(), u"String list does not allow duplicates");
    }
    EXPECT_THROW(list.setCommaText(u"b,a,B"), EStringListError);
    EXPECT_THAT(LinesOf(list), ElementsAre(u"a", u"b"));
    list.setDuplicates(dupAccept);
    list.setCommaText(u"b,a,B");
    EXPECT_THAT(LinesOf(list), ElementsAre(u"a", u"b", u"B"));
    list.Add(u"b");
    EXPECT_EQ(list.IndexOf(u"B"), 1) << "the first of them";
    list.setDuplicates(dupIgnore);
    TStringList more;
    Fill(more, {u"c", u"A", u"c", u"b"});
    list.AddStrings(&more);
    EXPECT_EQ(list.getCount(), 5);
    EXPECT_EQ(list[4], u"c");
}

TEST(StringListTest, CaseCountsIfTold)
{
    TStringList list;
    Fill(list, {u"b", u"A", u"a", u"B"});
    EXPECT_EQ(list.IndexOf(u"B"), 0);
    EXPECT_EQ(list.IndexOf(u"Ä"), -1);
    list.setCaseSensitive(true);
    EXPECT_EQ(list.IndexOf(u"B"), 3);
    list.setSorted(true);
    EXPECT_EQ(list.IndexOf(u"A"), list.IndexOf(u"a") + 1);
    list.Add(u"A");
    EXPECT_EQ(list.getCount(), 4);
    // What a language takes for the same, such as control characters, is not the same line.
    list.Add(u"a\x01");
    list.Add(WithZero());
    list.Add(u"ab");
    EXPECT_EQ(list.getCount(), 7);
    EXPECT_GE(list.IndexOf(WithZero()), 0);
}

TEST(StringListTest, SortsByACallersOrder)
{
    TStringList list;
    Fill(list, {u"ccc", u"a", u"bb", u"dd"});
    list.CustomSort(
        [](TStringList* lines, int a, int b) { return (*lines)[b].Length() - (*lines)[a].Length(); });
    EXPECT_THAT(LinesOf(list), ElementsAre(u"ccc", u"bb", u"dd", u"a"));
    list.CustomSort([](TStringList*, int, int) { return -1; });
    EXPECT_EQ(list.getCount(), 4) << "an order that is none loses no line";
    list.CustomSort({});
}

TEST(StringListTest, HoldsNamesAndValues)
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

TEST(StringListTest, GivesOneNoticeForAnUpdate)
{
    TStringList list;
    int changing = 0;
    int changed = 0;
    list.setOnChanging([&](TObject*) { ++changing; });
    list.setOnChange([&](TObject* sender) {
        EXPECT_EQ(sender, &list);
        ++changed;
    });
    list.Add(u"a");
    EXPECT_EQ(changing, 1);
    EXPECT_EQ(changed, 1);
    list.setCommaText(u"a,b,c");
    EXPECT_EQ(changed, 2);
    list.BeginUpdate();
    list.BeginUpdate();
    list.Add(u"d");
    list.EndUpdate();
    EXPECT_EQ(changed, 2);
    list.EndUpdate();
    EXPECT_EQ(changed, 3);
    EXPECT_EQ(changing, 3);
    list.EndUpdate();
    EXPECT_EQ(changed, 3) << "one end too many";
    list.setSorted(true);
    list.setDuplicates(dupError);
    EXPECT_THROW(list.setCommaText(u"x,x"), EStringListError);
    EXPECT_FALSE(list.IsUpdating());
    list.Clear();
    const int before = changed;
    list.Clear();
    EXPECT_EQ(changed, before) << "nothing to clear";
}

TEST(StringListTest, OtherStoresGetAllOfItFromTheBase)
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

TEST(StringListTest, StreamsInEachEncoding)
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

TEST(StringListTest, LoadsAndSavesFiles)
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

} // namespace
