// SPDX-License-Identifier: MIT
#include "config/BTL_INI_Ini.h"

#include "BTL_INI_MapStore.h"
#include "foundation/UTL_ASRT_Assert.h"
#include "foundation/UTL_Flags.h"
#include "foundation/vectors/UTL_SV_DoubleVector.h"
#include "foundation/vectors/UTL_SV_Int64Vector.h"
#include "foundation/vectors/UTL_SV_IntVector.h"
#include "platform/base/Sysutils_Exception.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/toolkit/MessageBox.h"
#include "support/FormatSettingsGuard.h"
#include "support/ScriptedBoxes.h"
#include "text/lists/BTL_STR_StringPairs.h"

#include <cfloat>
#include <climits>
#include <cstdint>
#include <functional>

#include <gtest/gtest.h>

namespace
{

using Classes::TStringList;
using Support::MapStore;
using System::AnsiString;
using System::UnicodeString;

class CIniTest : public testing::Test
{
protected:
    CIniTest() { ini.setSection(u"S"); }

    UnicodeString Stored(const UnicodeString& key) { return ini.ReadString(key, u"missing"); }
    UnicodeString Lines(const UnicodeString& section)
    {
        TStringList lines;
        ini.ReadSectionValues(section, &lines);
        return lines.getCommaText();
    }

    MapStore* store = new MapStore;
    BTL::AIni ini{store};
};

TEST_F(CIniTest, StoresTheTextOfEachType)
{
    Support::FormatSettingsGuard settings;
    Sysutils::FormatSettings.DecimalSeparator = u',';
    TStringList strings{u"a b", u"c"};
    UTL::CIntVector ints;
    ints.setCommaText(u"1,-2");
    UTL::CInt64Vector longs;
    longs.setCommaText(u"5000000000");
    UTL::CDoubleVector doubles;
    doubles.setCommaText(u"0.5,2");
    const bool bools[] = {true, false, true};

    const std::pair<std::function<void()>, const char16_t*> cases[] = {
        {[&] { ini.WriteBool("k", true); }, u"1"},
        {[&] { ini.WriteBool(u"k", false); }, u"0"},
        {[&] { ini.WriteBool("k", true, "on", "off"); }, u"on"},
        {[&] { ini.WriteBool("k", false, "on", "off"); }, u"off"},
        {[&] { ini.WriteChar("k", 'x'); }, u"x"},
        {[&] { ini.WriteInt("k", -5); }, u"-5"},
        {[&] { ini.WriteInteger("k", INT_MIN); }, u"-2147483648"},
        {[&] { ini.WriteInt64("k", INT64_MIN); }, u"-9223372036854775808"},
        {[&] { ini.WriteFloat("k", 0.5); }, u"0.5"},
        {[&] { ini.WriteString("k", "text"); }, u"text"},
        {[&] { ini.WriteStringEx("k", u" a "); }, u"[ a ]"},
        {[&] { ini.WriteEscSeqString("k", u"a\n\t\\"); }, u"a\\n\\t\\\\"},
        {[&] { ini.WriteCryptString("k", ""); }, u""},
        {[&] { ini.WriteCommaText("k", ""); }, u"[]"},
        {[&] { ini.WriteStrings("k", &strings); }, u"[\"a b\",c]"},
        {[&] { ini.WriteStrings("k", nullptr); }, u"[]"},
        {[&] {
             ini.WriteFlags("k", UTL::CFlags{true, false});
         },
         u"[1,0]"},
        {[&] { ini.WriteBools("k", bools, 3); }, u"[1,0,1]"},
        {[&] { ini.WriteBools("k", nullptr, 3); }, u"[]"},
        {[&] { ini.WriteInts("k", ints); }, u"[1,-2]"},
        {[&] { ini.WriteInts("k", longs); }, u"[5000000000]"},
        {[&] { ini.WriteDoubles("k", doubles); }, u"[0.5,2]"},
        {[&] { ini.WriteUTF8String("k", u"\u00B5"); }, u"\u00C2\u00B5"},
        {[&] { ini.WriteBinaryData("k", AnsiString("\x01\xFF")); }, u"01ff"},
        {[&] { ini.WriteBinaryData("k", nullptr, 4); }, u""},
        {[&] { ini.WriteData("k", AnsiString("a\x02")); }, u"[a\u0001#]"},
    };
    int number = 0;
    for (const auto& [write, text] : cases) {
        SCOPED_TRACE(number++);
        write();
        EXPECT_EQ(Stored(u"k"), text);
    }
    EXPECT_EQ(Sysutils::FormatSettings.DecimalSeparator, u',');
}

TEST_F(CIniTest, ReadsTruthValues)
{
    const struct
    {
        const char16_t* text;
        bool withFalse, withTrue;
    } cases[] = {
        {u"1", true, true}, {u"0", false, false}, {u"-7", true, true},  {u"TRUE", false, true},
        {u"", false, true}, {u"1x", false, true}, {u"$10", true, true},
    };
    for (const auto& [text, withFalse, withTrue] : cases) {
        SCOPED_TRACE(UnicodeString(text));
        ini.WriteString(u"k", text);
        EXPECT_EQ(ini.ReadBool("k", false), withFalse);
        EXPECT_EQ(ini.ReadBool(u"k", true), withTrue);
    }
    EXPECT_TRUE(ini.ReadBool("none", true));
}

TEST_F(CIniTest, ReadsTruthValuesAsWords)
{
    ini.WriteString("k", u"\u00E4N");
    EXPECT_TRUE(ini.ReadBool("k", "\xC4n", "off", false));
    EXPECT_FALSE(ini.ReadBool("k", "off", "\xC4n", true));
    EXPECT_TRUE(ini.ReadBool("k", "yes", "no", true));
    EXPECT_FALSE(ini.ReadBool("k", "yes", "no", false));
    EXPECT_TRUE(ini.ReadBool("none", "", "", true));
}

TEST_F(CIniTest, ReadsNumbers)
{
    Support::FormatSettingsGuard settings;
    Sysutils::FormatSettings.DecimalSeparator = u',';
    const struct
    {
        const char16_t* text;
        int integer, hex;
        System::Int64 big;
        double real;
    } cases[] = {
        {u"12", 12, 0x12, 12, 12},
        {u"0.5", -1, 0, -1, 0.5},
        {u"0,5", -1, 0, -1, 0.5},
        {u"1e400", -1, 0x1e400, -1, -1},
        {u"5000000000", -1, -1, 5000000000, 5e9},
        {u"+oo", -1, -1, -1, DBL_MAX},
        {u"-oo", -1, -1, -1, DBL_MIN},
        {u"word", -1, -1, -1, -1},
        {u"", -1, -1, -1, -1},
    };
    for (const auto& [text, integer, hex, big, real] : cases) {
        SCOPED_TRACE(UnicodeString(text));
        ini.WriteString(u"k", text);
        EXPECT_EQ(ini.ReadInt("k", -1), integer);
        EXPECT_EQ(ini.ReadInteger(u"k", -1), integer);
        EXPECT_EQ(ini.ReadHex("k", -1), hex);
        EXPECT_EQ(ini.ReadInt64("k", -1), big);
        EXPECT_EQ(ini.ReadFloat("k", -1), real);
    }
    EXPECT_EQ(ini.ReadHex("none", 7), 7);
}

TEST_F(CIniTest, ReadsCharacters)
{
    ini.WriteString(u"k", u"\u20ACb");
    EXPECT_EQ(ini.ReadChar("k", 'd'), '\xAC');
    EXPECT_EQ(store->ReadWChar(u"k", u'd'), u'\u20AC');
    EXPECT_EQ(ini.ReadChar("none", 'd'), 'd');
    store->WriteWChar(u"k", u'\u03A9');
    EXPECT_EQ(Stored(u"k"), u"\u03A9");
    ini.WriteString(u"k", u"");
    EXPECT_EQ(ini.ReadChar("k", 'd'), '\0');
    EXPECT_EQ(store->ReadWChar(u"k", u'd'), u'\0');
}

TEST_F(CIniTest, TakesTheDefaultForAnEmptyTextOnlyWhereTold)
{
    ini.WriteString("k", "");
    EXPECT_EQ(ini.ReadString("k", u"d"), u"d");
    EXPECT_EQ(ini.ReadString(u"k", u"d"), u"");
    EXPECT_EQ(ini.ReadString("k", "d"), u"");
    EXPECT_EQ(ini.ReadCryptString("k", u"d"), u"d");
    EXPECT_EQ(ini.ReadCryptString("k", static_cast<const char*>(nullptr)), u"");
    EXPECT_EQ(ini.ReadEscSeqString("k", u"d"), u"");
    EXPECT_EQ(ini.ReadEscSeqString("none", u"a\\nb"), u"a\nb");
    EXPECT_EQ(ini.ReadCommaText("none", u"[d]"), u"d");
}

TEST_F(CIniTest, TakesBracketsOnlyInPairs)
{
    for (const auto& [text, value] : {std::pair(u"[]", u""),
                                      {u"[", u"["},
                                      {u"[a", u"[a"},
                                      {u"a]", u"a]"},
                                      {u"[[a]]", u"[a]"},
                                      {u"", u""}}) {
        SCOPED_TRACE(UnicodeString(text));
        ini.WriteString(u"k", text);
        EXPECT_EQ(ini.ReadCommaText("k", u"d"), value);
        EXPECT_EQ(ini.ReadStringEx("k", u"d"), value);
    }
}

TEST_F(CIniTest, BringsTextsBack)
{
    for (const char16_t* const text : {u"", u"plain", u"\u00B5 \u20AC", u" outer ", u"a=b;c", u"[x]"}) {
        SCOPED_TRACE(UnicodeString(text));
        ini.WriteCommaText("k", text);
        EXPECT_EQ(ini.ReadCommaText("k", u"d"), text);
        ini.WriteEscSeqString("k", text);
        EXPECT_EQ(ini.ReadEscSeqString("k", u"d"), text);
        ini.WriteUTF8String(u"\u03A9", text);
        EXPECT_EQ(ini.ReadUTF8String(u"\u03A9", u"d"), text);
        if (*text != 0) {
            ini.WriteCryptString("k", text);
            EXPECT_EQ(ini.ReadCryptString("k", u"d"), text);
        }
    }
    UnicodeString all;
    for (System::WideChar c = 1; c < 0x3000; ++c) {
        all += c;
    }
    ini.WriteUTF8String("k", all);
    EXPECT_EQ(ini.ReadUTF8String("k", u""), all);
    EXPECT_EQ(ini.ReadUTF8String("none", all), all);
}

TEST_F(CIniTest, BringsBytesBack)
{
    std::string every;
    for (int i = 0; i < 256; ++i) {
        every += static_cast<char>(i);
    }
    const AnsiString bytes{std::string_view(every)};
    ini.WriteBinaryData("hex", bytes);
    EXPECT_EQ(ini.ReadBinaryData("hex"), bytes);
    ini.WriteData("text", bytes);
    EXPECT_EQ(ini.ReadData("text", "d"), bytes);
    EXPECT_EQ(ini.ReadData("none", "[\xFE]"), AnsiString("\xFE"));
    EXPECT_EQ(ini.ReadBinaryData("none"), "");
}

TEST_F(CIniTest, CountsTheStoredBytesWhateverTheBuffer)
{
    ini.WriteString("k", u"010203");
    unsigned char buffer[3] = {9, 9, 9};
    EXPECT_EQ(ini.ReadBinaryData("k", buffer, 2), 3);
    EXPECT_EQ(buffer[1], 2);
    EXPECT_EQ(buffer[2], 9);
    EXPECT_EQ(ini.ReadBinaryData(u"k", nullptr, 3), 3);
    EXPECT_EQ(ini.ReadBinaryData("none", buffer, 3), 0);
}

TEST_F(CIniTest, BringsListsBack)
{
    TStringList strings{u"old"};
    ini.WriteString("strings", u"[\"a b\",c]");
    ini.ReadStrings("strings", &strings);
    EXPECT_EQ(strings.getCommaText(), u"\"a b\",c");
    ini.ReadStrings("none", &strings);
    EXPECT_TRUE(strings.empty());
    ini.ReadStrings("strings", nullptr);

    UTL::CFlags flags(9, true);
    ini.WriteString("list", u"[1,0]");
    ini.ReadFlags("list", flags);
    EXPECT_EQ(flags, (UTL::CFlags{true, false}));
    UTL::CIntVector ints;
    ini.ReadInts("list", ints);
    EXPECT_EQ(ints.getCommaText(), u"1,0");
    UTL::CInt64Vector longs;
    ini.ReadInts("list", longs);
    EXPECT_EQ(longs.getCommaText(), u"1,0");
    UTL::CDoubleVector doubles;
    ini.ReadDoubles("list", doubles);
    EXPECT_EQ(doubles.getCommaText(), u"1,0");
    ini.ReadDoubles("none", doubles);
    EXPECT_TRUE(doubles.empty());
}

TEST_F(CIniTest, FillsWhatAListOfTruthValuesLacks)
{
    bool values[4] = {};
    ini.WriteString("k", u"[0,5]");
    ini.ReadBools("k", values, 4, true);
    EXPECT_EQ(std::vector<bool>(values, values + 4), (std::vector<bool>{false, true, true, true}));
    ini.WriteString("k", u"1,1,1,1");
    values[2] = false;
    ini.ReadBools("k", values, 2, false);
    EXPECT_FALSE(values[2]);
    ini.ReadBools("none", values, 2, false);
    EXPECT_FALSE(values[0]);
}

TEST_F(CIniTest, ReadsTimes)
{
    ini.WriteString("k", u"2022-02-01 18:30:05.250");
    EXPECT_EQ(ini.ReadSqlDateTime("k").FormatString(u"yyyymmddhhnnsszzz"), u"20220201183005250");
    ini.WriteString("k", "");
    EXPECT_EQ(ini.ReadSqlDateTime("k").Val, 0);
    EXPECT_EQ(ini.ReadSqlDateTime("none").Val, 0);
}

TEST_F(CIniTest, FillsFormats)
{
    ini.WriteString("000000042", u"%d of\\n%s");
    EXPECT_EQ(ini.ReadIDString(42, u"d"), u"%d of\n%s");
    EXPECT_EQ(ini.ReadIDString(43, u"d\\t"), u"d\t");
    EXPECT_EQ(ini.ReadIDString_VA(42, 3, u"all"), u"3 of\nall");
    EXPECT_EQ(ini.ReadString_VA("000000042", 4, "all"), u"4 of\nall");
    EXPECT_EQ(ini.ReadIDString_VA(43, 3), u"");
    EXPECT_THROW(ini.ReadIDString_VA(42, 3), Sysutils::EConvertError);
}

TEST_F(CIniTest, ListsASection)
{
    ini.WriteString("a", u"1");
    ini.WriteString("b", u"");
    TStringList first{u"old"};
    TStringList second{u"old"};
    ini.ReadKeys(&first);
    EXPECT_EQ(first.getCommaText(), u"a,b");
    ini.ReadValues(u"S", &first);
    EXPECT_EQ(first.getCommaText(), u"1,");
    EXPECT_EQ(Lines(u"S"), u"a=1,b=");
    ini.ReadSectionValues(u"S", &first, &second);
    EXPECT_EQ(first.getCommaText() + u'|' + second.getCommaText(), u"a,b|1,");
    BTL::CStringPairs pairs = {{u"old", u"old"}};
    ini.ReadSectionValues(u"S", pairs);
    EXPECT_EQ(pairs.GetText(u"=", u";"), u"a=1;b=");
    ini.ReadSections(&first);
    EXPECT_EQ(first.getCommaText(), u"S");
    ini.ReadSections(nullptr);
    ini.ReadSectionValues(u"S", nullptr, &second);
    EXPECT_EQ(ini.getSection(), u"S");
}

TEST_F(CIniTest, KnowsWhatIsThere)
{
    ini.WriteString("a", u"1");
    EXPECT_TRUE(ini.KeyExists(u"S", u"A"));
    EXPECT_TRUE(ini.KeyExists(u"a"));
    EXPECT_FALSE(ini.KeyExists(u"T", u"a"));
    EXPECT_TRUE(ini.SectionExists(u"S"));
    ini.DeleteKey("a");
    EXPECT_FALSE(ini.SectionExists(u"S"));
}

/// Gives one value less than keys.
class CForgetfulStore : public MapStore
{
public:
    void ReadSectionValues2(const UnicodeString& section, Classes::TStrings* keys,
                            Classes::TStrings* values) override
    {
        MapStore::ReadSectionValues2(section, keys, values);
        values->Delete(0);
    }
};

TEST(CIniFaultTest, FaultOfAStoreIsTold)
{
    const Support::ScriptedBoxes boxes({IDYES, IDYES});
    BTL::AIni ini(new CForgetfulStore);
    ini.WriteString("a", u"1");
    TStringList keys;
    TStringList values;
    EXPECT_THROW(ini.ReadSectionValues(u"", &keys, &values), UTL::XAssert);
    BTL::CStringPairs pairs;
    EXPECT_THROW(ini.ReadSectionValues(u"", pairs), UTL::XAssert);
}

TEST_F(CIniTest, WritesLines)
{
    ini.WriteString("a", u"1");
    TStringList lines{u" b = 2=3 ", u"no pair", u"a=4"};
    ini.WriteMissingSectionValues(u"S", &lines);
    EXPECT_EQ(Lines(u"S"), u"a=1,b=2=3");
    ini.WriteSectionValues(u"S", &lines);
    EXPECT_EQ(Lines(u"S"), u"a=4,b=2=3");
    ini.SetSectionValues(u"S", BTL::CStringPairs{{u"c", u"5"}});
    EXPECT_EQ(Lines(u"S"), u"c=5");
    ini.WriteSectionValues(u"S", BTL::CStringPairs{{u"d", u" 6 "}});
    EXPECT_EQ(Lines(u"S"), u"c=5,d=6");
    ini.SetSectionValues(u"S", &lines);
    EXPECT_EQ(Lines(u"S"), u"b=2=3,a=4");
    ini.WriteSectionValues(u"S", static_cast<Classes::TStrings*>(nullptr));
    EXPECT_EQ(Lines(u"S"), u"b=2=3,a=4");
    EXPECT_EQ(ini.getSection(), u"S");
}

TEST_F(CIniTest, CopiesFromAnotherStore)
{
    BTL::AIni source(new MapStore);
    source.setSection(u"S");
    source.WriteString("a", u"new");
    source.WriteString("b", u" 2 ");
    source.setSection(u"T");
    source.WriteString("c", u"3");
    ini.WriteString("a", u"old");
    ini.setSection(u"Own");
    ini.WriteString("o", u"1");

    ini.WriteMissingValues(&source);
    EXPECT_EQ(Lines(u"S") + u'|' + Lines(u"T"), u"a=old,b=2|c=3");
    ini.WriteValues(&source);
    EXPECT_EQ(Lines(u"S") + u'|' + Lines(u"Own"), u"a=new,b=2|o=1");
    ini.SetSectionValues(u"Own", &source, u"T");
    EXPECT_EQ(Lines(u"Own"), u"c=3");
    ini.WriteMissingSectionValues(u"Own", &source, u"S");
    EXPECT_EQ(Lines(u"Own"), u"c=3,a=new,b=2");
    ini.WriteSectionValues(u"T", &source, u"");
    EXPECT_EQ(Lines(u"T"), u"c=3");
    ini.SetValues(&source);
    EXPECT_FALSE(ini.SectionExists(u"Own"));
    EXPECT_EQ(Lines(u"S"), u"a=new,b=2");

    ini.SetValues(nullptr);
    ini.SetSectionValues(u"S", static_cast<BTL::AIni*>(nullptr), u"");
    EXPECT_EQ(Lines(u"S"), u"a=new,b=2");
}

TEST_F(CIniTest, LosesNothingToACopyOfItself)
{
    ini.WriteString("a", u"1");
    ini.SetValues(&ini);
    EXPECT_EQ(Lines(u"S"), u"a=1");
    ini.SetSectionValues(u"S", &ini, u"");
    EXPECT_EQ(Lines(u"S"), u"a=1");
}

TEST_F(CIniTest, ErasesSections)
{
    ini.WriteString("a", u"1");
    ini.DeleteSection();
    EXPECT_EQ(Lines(u"S"), u"");
    ini.WriteString("a", u"1");
    ini.setSection(u"T");
    ini.WriteString("a", u"1");
    ini.Clear();
    TStringList sections;
    ini.ReadSections(&sections);
    EXPECT_TRUE(sections.empty());
}

TEST_F(CIniTest, CutsTheNameOfTheFile)
{
    ini.Init(u"Run", u"a.ini", u"\\tmp\\x\\..\\");
    EXPECT_EQ(ini.getSection(), u"Run");
    EXPECT_EQ(ini.getPath(), u"\\tmp\\");
    EXPECT_EQ(ini.getFileName(), u"a.ini");
    EXPECT_EQ(ini.getFile(), u"\\tmp\\a.ini");
    EXPECT_EQ(store->getFile(), u"\\tmp\\x\\..\\a.ini");
    ini.setUserId(5000000000);
    EXPECT_EQ(ini.getUserId(), 5000000000);

    const MapStore named(u"b.ini", 7);
    EXPECT_EQ(named.getFileName(), u"b.ini");
    EXPECT_EQ(named.getUserId(), 7);
}

TEST_F(CIniTest, WarnsOfAReadOnlyFile)
{
    Support::ScriptedBoxes boxes({IDOK});
    ini.setFile(u"\\new\\a.ini");
    EXPECT_FALSE(ini.ShowReadOnlyWarinig());
    EXPECT_TRUE(boxes.TakeShown().empty());
    store->isReadOnly = true;
    EXPECT_TRUE(ini.ShowReadOnlyWarinig());
    const auto shown = boxes.TakeShown();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_GT(shown[0].box.text.Pos(u"'\\new\\a.ini'"), 0);
    EXPECT_EQ(shown[0].box.flags, 48U);
}

/// Mirrors a value in a member.
class CSettings : public BTL::AIni
{
public:
    using AIni::AIni;
    int limit = 0;

protected:
    void DoLoad() override { limit = ReadInt("limit", 5); }
    void DoSave() override { WriteInt("limit", limit); }
};

TEST(CIniLifeTest, LetsADerivedClassMirrorValues)
{
    auto* const store = new MapStore;
    CSettings settings(store);
    settings.LoadAnsi();
    EXPECT_EQ(settings.limit, 5);
    settings.limit = 6;
    settings.Save();
    EXPECT_EQ(store->ReadInteger(u"limit", 0), 6);
    settings.WriteInt("limit", 7);
    settings.Load();
    EXPECT_EQ(settings.limit, 7);
    EXPECT_EQ(store->calls, "ansi save load ");
}

TEST(CIniLifeTest, NeedsAStore)
{
    BTL::AIni ini;
    EXPECT_THROW(ini.ReadInt("a", 1), Sysutils::Exception);
    EXPECT_THROW(ini.getSection(), Sysutils::Exception);
    auto* const store = new MapStore;
    ini.SetImp(store);
    ini.SetImp(store);
    ini.WriteInt("a", 2);
    EXPECT_EQ(ini.ReadInt("a", 1), 2);
    ini.SetImp(new MapStore);
    EXPECT_EQ(ini.ReadInt("a", 1), 1);
}

TEST_F(CIniTest, SetsTheSectionForAScope)
{
    {
        const BTL::CSetIniSection scope(&ini, u"T");
        EXPECT_EQ(ini.getSection(), u"T");
    }
    EXPECT_EQ(ini.getSection(), u"S");
    {
        const BTL::CSetIniSection scope(&ini, u"");
        EXPECT_EQ(ini.getSection(), u"S");
        ini.setSection(u"T");
    }
    EXPECT_EQ(ini.getSection(), u"S");
    {
        const BTL::CIniImpSection scope(store, u"");
        EXPECT_EQ(ini.getSection(), u"");
    }
    EXPECT_EQ(ini.getSection(), u"S");
}

} // namespace
