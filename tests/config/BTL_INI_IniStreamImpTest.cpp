// SPDX-License-Identifier: MIT
#include "config/BTL_INI_IniStreamImp.h"

#include "platform/runtime/classes/Classes_Stream.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "support/TempFolder.h"

#include <fstream>
#include <iterator>
#include <map>
#include <random>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

using BTL::CIniStreamImp;
using Classes::TFileStream;
using Classes::TMemoryStream;
using Classes::TStringList;
using System::AnsiString;
using System::Int64;
using System::UnicodeString;

namespace
{

using Lines = std::vector<std::u16string>;

class TBytes : public TMemoryStream
{
public:
    explicit TBytes(std::string_view bytes) : TMemoryStream(bytes) {}
};

/// A stream of a class of its own: each call gives a byte.
class TSlowStream : public Classes::TStream
{
public:
    explicit TSlowStream(std::string_view bytes) : mBytes(bytes) {}

    Int64 Read(void* buffer, Int64 count) override { return mBytes.Read(buffer, std::min(count, Int64{1})); }
    Int64 Write(const void* buffer, Int64 count) override { return mBytes.Write(buffer, count); }
    Int64 Seek(Int64 offset, Classes::TSeekOrigin origin) override { return mBytes.Seek(offset, origin); }
    void setSize(Int64 size) override { mBytes.setSize(size); }

private:
    TBytes mBytes;
};

/// "[section]" and "key=value" of all that the store holds, in its order.
Lines Content(const CIniStreamImp& store)
{
    TStringList list;
    store.GetStrings(&list);
    Lines lines;
    for (int i = 0; i < list.getCount(); ++i) {
        if (const UnicodeString line = list.getStrings(i); !line.IsEmpty()) {
            lines.emplace_back(line.AsView());
        }
    }
    return lines;
}

Lines Items(const TStringList& list)
{
    Lines lines;
    for (int i = 0; i < list.getCount(); ++i) {
        lines.emplace_back(list.getStrings(i).AsView());
    }
    return lines;
}

Lines Loaded(std::string_view text)
{
    TBytes stream(text);
    CIniStreamImp store(&stream);
    store.Load();
    return Content(store);
}

std::string Saved(CIniStreamImp& store)
{
    TMemoryStream stream;
    store.SaveToStream(&stream);
    return std::string(stream.AsView());
}

void Put(CIniStreamImp& store, const UnicodeString& section, const UnicodeString& key,
         const UnicodeString& value)
{
    store.SetSection(section);
    store.WriteString(key, value);
}

/// What the texts of the format give.
const std::vector<std::pair<std::string_view, Lines>>& Layouts()
{
    using namespace std::string_view_literals;
    static const std::vector<std::pair<std::string_view, Lines>> layouts = {
        {"", {}},
        {"[", {}},
        {"[a", {}},
        {"[a]\r\nx=1\r\n", {u"[a]", u"x=1"}},
        {"[a]x=1\r\ny=2\r\n", {u"[a]", u"y=2"}},
        {"[a]\r\nx=1", {u"[a]", u"x=1"}},
        {"[a]\r\n  x  =  1  \r\n", {u"[a]", u"x=1"}},
        {"[a]\r\nx=\r\n=1\r\n", {u"[a]", u"=1", u"x="}},
        {"[a]\r\nx=1=2\r\n", {u"[a]", u"x=1=2"}},
        {"[b]\r\nx=1\r\n[a]\r\ny=2\r\n", {u"[a]", u"y=2", u"[b]", u"x=1"}},
        {"[a]\r\nx=1\r\n[A]\r\nX=2\r\nx=3\r\n", {u"[A]", u"X=2", u"x=3", u"[a]", u"x=1"}},
        {"[a]\r\nx=1\r\ny=2\r\n[b]\r\nz=4\r\n[a]\r\nx=3\r\n", {u"[a]", u"x=3", u"y=2", u"[b]", u"z=4"}},
        // Comments: `;`, a control character, a byte above 127. A blank in front hides none of them.
        {"[a]\r\n;x=1\r\n\r\n\tx=2\r\n\xE4=3\r\ny=4\r\n", {u"[a]", u"y=4"}},
        {"[a]\r\n ;x=1\r\n [b]=2\r\n \xE4=3\r\n", {u"[a]", u";x=1", u"[b]=2", u"\u00E4=3"}},
        {"[a]\r\n\x7Fx=1\r\n", {u"[a]", u"\u007Fx=1"}},
        // A line without `=` is the front of the next key.
        {"[a]\r\njunk\r\nx=1\r\ny=2\r\n", {u"[a]", u"junk\r\nx=1", u"y=2"}},
        {"[a]\r\njunk\r\n[b]\r\nx=1\r\n", {u"[a]", u"junk\r\n[b]\r\nx=1"}},
        {"[a]\r\njunk", {u"[a]", u"junk="}},
        // Only a CR ends a value, and the rest of its line is passed over.
        {"[a]\nx=1\ny=2\n", {u"[a]", u"x=1\ny=2"}},
        {"[a]\r\nx=1\ry=2\r\nz=3\r\n", {u"[a]", u"x=1", u"z=3"}},
        // A zero ends the section; the line that it begins is passed over, and so is all up to a section.
        {"[a]\r\nx=1\r\n\0y=2\r\nz=3\r\n[b]\r\nu=4\r\n"sv, {u"[a]", u"x=1", u"[b]", u"u=4"}},
        // Quotes, and what is between them.
        {"[a]\r\nx= \" 1 \" \r\ny=\"\r\nz=\"\"\r\n", {u"[a]", u"x= 1 ", u"y=\"", u"z="}},
        // A headline, and what else is in front of the first section.
        {"head\r\n[a]\r\nx=1\r\n", {u"[a]", u"x=1"}},
        {"head=1\r\n\r\nmore=2\r\n[a]\r\nx=1\r\n", {u"[a]", u"x=1"}},
        {"head\r\n\n[a]\r\nx=1\r\n[b]\r\ny=2\r\n", {u"[b]", u"y=2"}},
        {"head\n[a]\nx=1\n", {}},
        // Names are in the code page, values in UTF-8.
        {"[\xE4]\r\nx\x80=\xC3\xA4\xE2\x82\xAC\r\ny=\xE4\r\n",
         {u"[\u00E4]", u"x\u20AC=\u00E4\u20AC", u"y=\uFFFD"}},
        {"[a\r\nb]\r\nx=1\r\n", {u"[a\r\nb]", u"x=1"}},
        {"[]\r\nx=1\r\n", {u"[]", u"x=1"}},
        {"\xEF\xBB\xBF[a]\r\nx=1\r\n[b]\r\ny=2\r\n", {u"[b]", u"y=2"}},
    };
    return layouts;
}

TEST(IniStreamImpTest, Loads)
{
    for (const auto& [text, lines] : Layouts()) {
        EXPECT_EQ(Loaded(text), lines) << "text: " << text;
    }
}

TEST(IniStreamImpTest, LoadsTheSameFromEveryKindOfStreamWithAndWithoutClosures)
{
    const Support::TempFolder folder;
    const auto path = folder.Path() / "text";
    for (const auto& [text, lines] : Layouts()) {
        SCOPED_TRACE(text);
        std::ofstream(path, std::ios::binary) << text;
        Classes::TStringStream memory{AnsiString(text)};
        TSlowStream slow(text);
        TFileStream file(path, Classes::fmOpenRead);
        for (Classes::TStream* stream : std::initializer_list<Classes::TStream*>{&memory, &slow, &file}) {
            CIniStreamImp store(stream);
            store.Load();
            EXPECT_EQ(Content(store), lines);
            EXPECT_EQ(stream->getPosition(), static_cast<Int64>(text.size()));
            store.setOnLoadKey([](const AnsiString&, const AnsiString&, int) {});
            store.Load();
            EXPECT_EQ(Content(store), lines);
            EXPECT_EQ(stream->getPosition(), static_cast<Int64>(text.size()));
        }
    }
}

TEST(IniStreamImpTest, LoadsAndSavesValuesOfTheCodePage)
{
    TBytes stream("[a]\r\nx=\xE4\x80\r\n\r\n");
    CIniStreamImp store(&stream);
    store.LoadAnsi();
    store.SetSection(u"a");
    EXPECT_EQ(store.ReadString(u"x", u""), u"\u00E4\u20AC");
    store.WriteString(u"y", u"\u03B1");
    store.SaveAnsi();
    EXPECT_EQ(stream.AsView(), "[a]\r\nx=\xE4\x80\r\ny=?\r\n\r\n");
    store.Save();
    EXPECT_EQ(stream.AsView(), "[a]\r\nx=\xC3\xA4\xE2\x82\xAC\r\ny=\xCE\xB1\r\n\r\n");
}

TEST(IniStreamImpTest, SavesSectionsAndKeysInTheOrderOfTheirCharacters)
{
    TBytes stream("something\r\nlonger than what will be written, which goes as a whole");
    CIniStreamImp store(&stream);
    Put(store, u"b", u"y", u"2");
    Put(store, u"b", u"Z", u" \"3\" ");
    Put(store, u"a", u"  x ", u"");
    store.SetSection(u"empty");
    store.setHeadline(u"Head \u00E4");
    store.Save();
    EXPECT_EQ(stream.AsView(), "Head \xE4\r\n\r\n[a]\r\nx=\r\n\r\n[b]\r\nZ= \"3\" \r\ny=2\r\n\r\n");
    EXPECT_EQ(store.GetItemCount(), 3);
    EXPECT_EQ(store.GetItemCount(u"b"), 2);
    EXPECT_EQ(store.GetItemCount(u"c"), 0);
}

TEST(IniStreamImpTest, ComesBackAsItWasOrIsRefused)
{
    const std::string old = "[old]\r\nx=1\r\n";
    // Section, key, value, and the value that comes back; none if `Save` raises.
    using Row = std::tuple<UnicodeString, UnicodeString, UnicodeString, const char16_t*>;
    const UnicodeString large(std::u16string(1'000'000, u'x'));
    const std::vector<Row> rows = {
        {u"s", u"k", u"v", u"v"},
        {u"s", u"k", large, large.c_str()},
        {u"s", large, u"v", u"v"},
        {u"s", u"", u"v", u"v"},
        {u"s", u"k", u"a=b]#;[", u"a=b]#;["},
        {u"s", u"k", u"[evil]", u"[evil]"},
        {u"s", u"k", u";v", u";v"},
        {u"s", u"k", u"a\n[evil]\nx=1", u"a\n[evil]\nx=1"},
        {u"s", u"k", u" v ", u"v"},
        {u"s", u"k", u"\"v\"", u"v"},
        {u"s", u"k", u"\u03B1\U0001F600", u"\u03B1\U0001F600"},
        {u"s", u"a b#]", u"v", u"v"},
        {u"s", u"a\r\nb", u"v", u"v"},
        {u"[s#;= \u00E4", u"\u007Fk\u00E4", u"v", u"v"},
        // Told to be lost: a line that begins so is a comment.
        {u"s", u"\u00E4", u"v", u""},
        {u"s", u"k", u"a\rb", nullptr},
        {u"s", u"k", u"a\r\n[evil]\r\nx=1", nullptr},
        {u"s", u"k=x", u"v", nullptr},
        {u"s", u"[evil]", u"v", nullptr},
        {u"s", u";k", u"v", nullptr},
        {u"s", u"\u00E4", u"a\n[evil]\r", nullptr},
        {u"s", u"\u00E4\n[evil]\nx", u"v", nullptr},
        {u"s", u"\u00E4", u"a\n[evil]\n", nullptr},
        {u"s", u"\u03B1", u"v", nullptr},
        {u"s]\r\n[evil", u"k", u"v", nullptr},
        {u"\u03B1", u"k", u"v", nullptr},
    };
    for (const auto& [section, key, value, read] : rows) {
        SCOPED_TRACE(section.SubString(1, 20) + u" / " + key.SubString(1, 20) + u" / " +
                     value.SubString(1, 20));
        TBytes stream(old);
        CIniStreamImp store(&stream);
        Put(store, section, key, value);
        EXPECT_EQ(store.ReadString(key, u""), value) << "in memory as told";
        if (read == nullptr) {
            EXPECT_THROW(store.Save(), Classes::EWriteError);
            EXPECT_EQ(stream.AsView(), old);
            continue;
        }
        store.Save();
        CIniStreamImp again(&stream);
        again.Load();
        again.SetSection(section);
        EXPECT_EQ(again.ReadString(key, u""), read);
        EXPECT_EQ(again.GetItemCount(), *read == u'\0' ? 0 : 1);
    }
    for (const UnicodeString headline : {u"[evil]", u"a\r\n[evil]\r\nx=1"}) {
        TBytes stream(old);
        CIniStreamImp store(&stream);
        store.setHeadline(headline);
        EXPECT_THROW(store.Save(), Classes::EWriteError);
        EXPECT_EQ(stream.AsView(), old);
    }
}

TEST(IniStreamImpTest, AnEmptySectionMayHaveAnyName)
{
    TMemoryStream stream;
    CIniStreamImp store(&stream);
    store.SetSection(u"s]\r\n[evil");
    store.Save();
    EXPECT_EQ(stream.getSize(), 0);
}

TEST(IniStreamImpTest, TheHeadlineIsLoadedOnlyWhereOneIsExpected)
{
    TBytes stream("Head\r\n\r\n[a]\r\nx=1\r\n");
    CIniStreamImp store(&stream);
    Lines told;
    store.setOnReadHeadline([&](const AnsiString& line) { told.emplace_back(UnicodeString(line).AsView()); });
    store.Load();
    EXPECT_EQ(store.getHeadline(), u"");
    EXPECT_EQ(told, Lines{});
    store.ReadHeadline();
    EXPECT_EQ(store.getHeadline(), u"Head");
    store.setHeadline(u"other");
    store.Load();
    EXPECT_EQ(store.getHeadline(), u"Head");
    EXPECT_EQ(Content(store), (Lines{u"[a]", u"x=1"}));

    TBytes without("[a]\r\nx=1\r\n");
    store.SetStream(&without);
    store.SkipHeadline();
    EXPECT_EQ(store.getHeadline(), u"");
    EXPECT_EQ(told, (Lines{u"Head", u"Head", u""}));
    store.SkipHeadlineFromStream(&stream);
    EXPECT_EQ(stream.getPosition(), 6);
    store.SkipHeadlineFromStream(&without);
    EXPECT_EQ(without.getPosition(), 0);
}

TEST(IniStreamImpTest, ClosuresAreToldNamesAndPositionsInTheOrderOfTheStream)
{
    TBytes stream("[b]\r\ny=\"2\"\r\n;\r\n[a]\r\nx=1");
    CIniStreamImp store(&stream);
    std::vector<std::string> told;
    const auto tell = [&](std::string_view text, int number) {
        told.push_back(std::string(text) + ' ' + std::to_string(number));
    };
    store.setOnLoadSection([&](const AnsiString& section, int position) {
        tell(section.AsView(), position);
        EXPECT_EQ(stream.getPosition(), position);
        EXPECT_FALSE(store.SectionExists(section)) << "made behind it";
    });
    store.setOnLoadKey([&](const AnsiString& key, const AnsiString& value, int position) {
        tell((key + "=" + value).AsView(), position);
        EXPECT_EQ(stream.getPosition(), position);
    });
    store.Load();
    EXPECT_EQ(told, (std::vector<std::string>{"b 3", "y=2 11", "a 18", "x=1 23"}));

    told.clear();
    store.setOnSaveSection([&](const AnsiString& section) {
        tell(section.AsView(), static_cast<int>(stream.getSize()));
        stream.WriteBuffer("; ", 2);
        stream.WriteBuffer("note\r\n", 6);
    });
    store.setOnSaveKey([&](const AnsiString& key, const AnsiString& value, int index) {
        tell((key + "=" + value).AsView(), index);
    });
    store.Save();
    EXPECT_EQ(told, (std::vector<std::string>{"a 0", "x=1 0", "b 20", "y=2 1"}));
    EXPECT_EQ(stream.AsView(), "; note\r\n[a]\r\nx=1\r\n\r\n; note\r\n[b]\r\ny=2\r\n\r\n");
}

TEST(IniStreamImpTest, AClosureMayUseTheStoreWhileItIsLoaded)
{
    TBytes stream("[a]\r\nx=1\r\ny=2\r\n[b]\r\nz=3\r\n");
    CIniStreamImp store(&stream);
    store.setOnLoadKey([&](const AnsiString& key, const AnsiString&, int) {
        if (key == "x") {
            store.SetStrings(nullptr);
        }
    });
    store.Load();
    EXPECT_EQ(Content(store), (Lines{u"[a]", u"y=2", u"[b]", u"z=3"}));
}

TEST(IniStreamImpTest, AClosureMayChangeTheSectionThatIsSaved)
{
    TBytes stream("[a]\r\nb=1\r\nc=2\r\nd=3\r\ne=4\r\n");
    CIniStreamImp store(&stream);
    store.Load();
    store.SetSection(u"a");
    store.setOnSaveKey([&](const AnsiString& key, const AnsiString&, int) {
        if (key == "b") {
            store.WriteString(u"b", u"changed");
            store.WriteString(u"a", u"too late");
            store.WriteString(u"b2", u"in time");
            store.DeleteKey(u"c");
        } else if (key == "d") {
            store.DeleteKey(u"d");
            store.WriteString(u"f", u"5");
        }
    });
    store.Save();
    EXPECT_EQ(stream.AsView(), "[a]\r\nb=changed\r\nb2=in time\r\ne=4\r\nf=5\r\n\r\n");
    store.setOnSaveKey([&](const AnsiString&, const AnsiString&, int) { store.EraseSection(u"a"); });
    store.Save();
    EXPECT_EQ(stream.AsView(), "[a]\r\n\r\n");
}

TEST(IniStreamImpTest, KeepsManyKeysInOrder)
{
    std::map<UnicodeString, UnicodeString> expected;
    CIniStreamImp store(nullptr);
    store.SetSection(u"a");
    std::mt19937 random(1);
    const auto contentOf = [](const auto& map) {
        Lines lines{u"[a]"};
        for (const auto& [key, value] : map) {
            lines.emplace_back((key + u'=' + value).AsView());
        }
        return lines;
    };
    // Grows for the most part, then shrinks.
    for (const unsigned deletions : {2U, 9U}) {
        for (int i = 0; i < 5000; ++i) {
            const UnicodeString key(random() % 4000);
            if (random() % 10 < deletions) {
                store.DeleteKey(key);
                expected.erase(key);
            } else {
                const UnicodeString value = UnicodeString::StringOfChar(u'v', i % 20) + UnicodeString(i);
                store.WriteString(key, value);
                expected[key] = value;
            }
            const UnicodeString other(random() % 4000);
            const auto found = expected.find(other);
            ASSERT_EQ(store.ReadString(other, u"none"), found == expected.end() ? u"none" : found->second);
        }
        EXPECT_EQ(Content(store), contentOf(expected));
        EXPECT_EQ(store.GetItemCount(u"a"), static_cast<int>(expected.size()));
    }
    for (const auto& [key, value] : expected) {
        store.DeleteKey(key);
    }
    EXPECT_EQ(store.GetItemCount(), 0);
    store.WriteString(u"x", u"1");
    EXPECT_EQ(Content(store), (Lines{u"[a]", u"x=1"}));
}

TEST(IniStreamImpTest, NoSectionIsTheCurrentOneAfterALoad)
{
    TBytes stream("[a]\r\nx=1\r\n");
    CIniStreamImp store(&stream);
    store.SetSection(u"a");
    store.Load();
    EXPECT_EQ(store.getSection(), u"a");
    EXPECT_EQ(store.ReadString(u"x", u"default"), u"default");
    EXPECT_FALSE(store.KeyExists2(u"x"));
    store.WriteString(u"y", u"dropped");
    store.DeleteKey(u"x");
    store.SetSection(u"a");
    EXPECT_EQ(store.ReadString(u"x", u"default"), u"1");
    EXPECT_EQ(store.ReadString(u" x", u"default"), u"default") << "sought as it is";
    EXPECT_TRUE(store.KeyExists2(u"x"));
    EXPECT_EQ(store.GetItemCount(), 1);
    store.SetSection(u"");
    EXPECT_EQ(store.ReadString(u"x", u"default"), u"default");
    store.SetSection(u"a");
    store.DeleteKey(u"x");
    EXPECT_FALSE(store.KeyExists(u"a", u"x"));
}

TEST(IniStreamImpTest, AnErasedSectionStaysCurrentAndIsListedButNotSaved)
{
    CIniStreamImp store(nullptr);
    Put(store, u"a", u"x", u"1");
    store.EraseSection(u"a");
    store.EraseSection(u"missing");
    EXPECT_TRUE(store.SectionExists(u"a"));
    EXPECT_FALSE(store.SectionExists(u"missing"));
    EXPECT_EQ(Saved(store), "");
    store.WriteString(u"y", u"2");
    EXPECT_EQ(Saved(store), "[a]\r\ny=2\r\n\r\n");
}

TEST(IniStreamImpTest, AddsToTheLists)
{
    CIniStreamImp store(nullptr);
    Put(store, u"b", u"y", u"2");
    Put(store, u"b", u"x", u"1");
    store.SetSection(u"a");
    TStringList list;
    list.Add(u"first");
    store.ReadSections(&list);
    store.ReadKeys(u"b", &list);
    store.ReadKeys(u"missing", &list);
    store.ReadValues(u"b", &list);
    EXPECT_EQ(Items(list), (Lines{u"first", u"a", u"b", u"x", u"y", u"1", u"2"}));
    store.ReadSections(nullptr);
    store.ReadKeys(u"b", nullptr);
    store.ReadValues(u"b", nullptr);
    store.GetStrings(nullptr);
}

TEST(IniStreamImpTest, StringListsKeepValuesAsTheyAre)
{
    TStringList lines;
    for (const UnicodeString line : {u"lost=1", u"[b]", u" x = \"1\" ", u";c=2", u"none", u"[a", u"lost=3",
                                     u"[]", u"=4", u"[a=b]", u"y=5", u""}) {
        lines.Add(line);
    }
    CIniStreamImp store(nullptr);
    Put(store, u"former", u"x", u"1");
    store.SetStrings(&lines);
    EXPECT_EQ(store.ReadString(u"x", u"default"), u"default") << "no section is the current one";
    lines.Clear();
    store.GetStrings(&lines);
    EXPECT_EQ(Items(lines), (Lines{u"[]", u"=4", u"", u"[a=b]", u"y=5", u"", u"[b]", u"x= \"1\" ", u""}));
    CIniStreamImp again(nullptr);
    again.SetStrings(&lines);
    EXPECT_EQ(Content(again), Content(store));
}

TEST(IniStreamImpTest, TellsWhetherTheFileExists)
{
    const Support::TempFolder folder;
    CIniStreamImp store(nullptr);
    EXPECT_TRUE(store.FileExists());
    store.SetFile(folder.Path() / "text");
    EXPECT_FALSE(store.FileExists());
    std::ofstream(folder.Path() / "text") << "x";
    EXPECT_TRUE(store.FileExists());
    EXPECT_EQ(CIniStreamImp(nullptr, u"\\a\\b.ini", 7).getUserId(), 7);
    EXPECT_EQ(CIniStreamImp(u"\\a\\b.ini", 7).getFileName(), u"b.ini");
}

TEST(IniStreamImpTest, WhatTheStreamRaisesComesThroughAndTheStoreStays)
{
    class TBroken : public TBytes
    {
    public:
        using TBytes::TBytes;
        Int64 Read(void* buffer, Int64 count) override
        {
            if (getPosition() > 2) {
                throw Classes::EReadError(u"broken");
            }
            return TBytes::Read(buffer, std::min(count, Int64{3}));
        }
    };
    TBroken stream("[a]\r\nx=1\r\n");
    CIniStreamImp store(&stream);
    Put(store, u"b", u"y", u"2");
    EXPECT_THROW(store.Load(), Classes::EReadError);
    EXPECT_EQ(Content(store), (Lines{u"[b]", u"y=2"}));
    store.SetStream(nullptr);
    store.Load();
    store.LoadAnsi();
    store.ReadHeadline();
    store.SkipHeadlineFromStream(nullptr);
    store.Save();
    store.SaveAnsi();
    EXPECT_EQ(Content(store), (Lines{u"[b]", u"y=2"}));
}

} // namespace
