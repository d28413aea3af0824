// SPDX-License-Identifier: MIT
#include "config/BTL_INI_IniFileEx.h"

#include "BTL_INI_FailedSave.h"
#include "BTL_INI_IniFileFolder.h"
#include "config/BTL_INI_WinIniFile.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/runtime/inifiles/Inifiles.h"
#include "support/FileSizeLimit.h"
#include "text/lists/BTL_STR_StringPairs.h"

#include <functional>
#include <memory>

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

namespace
{

using Classes::TStringList;
using System::UnicodeString;

struct TStore
{
    const char* name;
    std::function<std::unique_ptr<BTL::AIni>(const UnicodeString& file, const UnicodeString& section)> open;
    /// What a refused text raises.
    bool hasOwnMessage;

    friend void PrintTo(const TStore& store, std::ostream* stream) { *stream << store.name; }
};

template <class Ini>
auto Opener()
{
    return [](const UnicodeString& file, const UnicodeString& section) {
        return std::make_unique<Ini>(file, section);
    };
}

const TStore Stores[] = {
    {"file", Opener<BTL::CIniFileEx>(), false},
    {"memory", Opener<BTL::CMemIniFile>(), false},
    {"profile", Opener<BTL::CWIN_IniFile>(), true},
};

class CIniStoresTest : public testing::TestWithParam<TStore>, protected Support::IniFileFolder
{
protected:
    std::unique_ptr<BTL::AIni> Open() const { return GetParam().open(file, u"S"); }
};

INSTANTIATE_TEST_SUITE_P(All, CIniStoresTest, testing::ValuesIn(Stores),
                         [](const auto& tested) { return std::string(tested.param.name); });

TEST_P(CIniStoresTest, BringsEveryTextOfOneLineBack)
{
    const UnicodeString texts[] = {
        u"",
        u"plain",
        u" outer blanks ",
        u"\ttab\t",
        u"\"quoted\"",
        u"'single'",
        u"\"a\",\"b\"",
        u"\"",
        u"''",
        u"\" 'both' \"",
        u"a=b",
        u"[x]",
        u"; no comment",
        u"# no comment",
        u"a ; b",
        u"\u00B5\u20AC",
        u"\u03A9 \u4E2D",
        u"C:\\new\\t",
        std::u16string_view(u"\u0001\u007F"),
        u"\U0001F600",
        UnicodeString(std::u16string_view(std::u16string(60000, u'x'))),
    };
    const auto ini = Open();
    int number = 0;
    for (const UnicodeString& text : texts) {
        ini->WriteString(UnicodeString(number++), text);
    }
    ini->Save();
    const auto again = Open();
    number = 0;
    for (const UnicodeString& text : texts) {
        SCOPED_TRACE(number);
        EXPECT_EQ(again->ReadString(UnicodeString(number++), u"missing"), text);
    }
    TStringList keys;
    again->ReadKeys(&keys);
    EXPECT_EQ(keys.getCount(), number);
}

TEST_P(CIniStoresTest, RefusesWhatWouldBecomeAnotherKey)
{
    Fill("[S]\r\na=1\r\n");
    const std::string before = Content();
    const struct
    {
        UnicodeString section, key, value;
    } cases[] = {
        {u"S", u"a", u"1\nb=2"}, {u"S", u"a", u"1\r"}, {u"S", u"a", std::u16string_view(u"1\0", 2)},
        {u"S", u"a\nb", u"1"},   {u"S", u"a=b", u"1"}, {u"S", u"", u"1"},
        {u"S", u" ", u"1"},      {u"S", u";a", u"1"},  {u"S", u"[a", u"1"},
        {u"S]x", u"a", u"1"},    {u"", u"a", u"1"},    {u"S\n[T]", u"a", u"1"},
        {u"S", u"a", u"\xD800"},
    };
    for (const auto& [section, key, value] : cases) {
        SCOPED_TRACE(section + u'|' + key + u'|' + value);
        const auto ini = Open();
        ini->setSection(section);
        try {
            ini->WriteString(key, value);
            ADD_FAILURE() << "was written";
        } catch (const Sysutils::Exception& fault) {
            EXPECT_EQ(fault.getMessage() == System::Printf(BTL::GetIniText(BTL::EIniText::CannotWrite), file),
                      GetParam().hasOwnMessage);
        }
        ini->Save();
        EXPECT_EQ(Content(), before);
    }
}

TEST_P(CIniStoresTest, DeletesNothingByTheFrontOfAName)
{
    Fill("[S]\r\na=1\r\n");
    const std::string before = Content();
    const auto ini = Open();
    ini->setSection(u"S");
    ini->DeleteKey(std::u16string_view(u"a\0b", 3));
    ini->EraseSection(std::u16string_view(u"S\0b", 3));
    ini->Save();
    EXPECT_EQ(Content(), before);
}

TEST_P(CIniStoresTest, ReadsTypedValues)
{
    Fill("[S]\r\nint=12\r\nhex=$1F\r\nword=word\r\nfloat=2,5\r\nempty=\r\n");
    const auto ini = Open();
    EXPECT_EQ(ini->ReadInt("INT", 0), 12);
    EXPECT_EQ(ini->ReadInt64("int", 0), 12);
    EXPECT_EQ(ini->ReadHex("int", 0), 0x12);
    EXPECT_EQ(ini->ReadInt("word", 7), 7);
    EXPECT_EQ(ini->ReadInt("none", 7), 7);
    EXPECT_EQ(ini->ReadInt("empty", 7), 7);
    EXPECT_EQ(ini->ReadFloat("float", 0), 2.5);
    EXPECT_TRUE(ini->ReadBool("int", false));
    EXPECT_TRUE(ini->ReadBool("word", true));
    EXPECT_EQ(ini->ReadString(u"empty", u"d"), u"");
    EXPECT_EQ(ini->ReadString(u"none", u"d"), u"d");
    ini->WriteBool("bool", true);
    EXPECT_EQ(ini->ReadString(u"bool", u""), u"1");
    EXPECT_TRUE(ini->ReadBool("bool", false));
    ini->WriteInt("i", -3);
    EXPECT_EQ(ini->ReadInt("i", 0), -3);
}

TEST_P(CIniStoresTest, ListsInTheOrderOfTheFile)
{
    Fill("; head\r\n[S]\r\nb=1\r\na= 2 \r\n; c=3\r\n\r\n[T]\r\nc=\r\n[Empty]\r\n");
    const auto ini = Open();
    TStringList list{u"old"};
    ini->ReadSections(&list);
    EXPECT_EQ(list.getCommaText(), u"S,T,Empty");
    ini->ReadKeys(&list);
    EXPECT_EQ(list.getCommaText(), u"b,a");
    ini->ReadValues(u"s", &list);
    EXPECT_EQ(list.getCommaText(), u"1,2");
    ini->ReadSectionValues(u"S", &list);
    EXPECT_EQ(list.getCommaText(), u"b=1,a=2");
    EXPECT_TRUE(ini->SectionExists(u"T"));
    EXPECT_FALSE(ini->SectionExists(u"Empty"));
    EXPECT_FALSE(ini->SectionExists(u"None"));
    EXPECT_TRUE(ini->KeyExists(u"B"));
    EXPECT_FALSE(ini->KeyExists(u"T", u"a"));
    ini->ReadKeys(u"none", &list);
    EXPECT_TRUE(list.empty());
}

TEST_P(CIniStoresTest, KeepsWhatAWriteDoesNotConcern)
{
    Fill("; head\n[S]\nb=1\n; note\n\n[T]\nc = 'x'\n");
    const auto ini = Open();
    ini->WriteString(u"B", u"2");
    ini->WriteString(u"n", u"3");
    ini->DeleteKey(u"none");
    ini->EraseSection(u"None");
    ini->Save();
    EXPECT_EQ(Content(), "; head\n[S]\nb=2\n; note\nn=3\n\n[T]\nc = 'x'\n");
    ini->DeleteKey(u"b");
    ini->EraseSection(u"T");
    ini->Save();
    EXPECT_EQ(Content(), "; head\n[S]\n; note\nn=3\n\n");
}

TEST_P(CIniStoresTest, CopiesSections)
{
    Fill("[S]\r\na=1\r\n[Own]\r\no=1\r\n");
    BTL::CMemIniFile source(UnicodeString(folder.Path() / "b.ini"), u"S");
    source.WriteString("a", u"2");
    source.WriteString("b", u"3");
    const auto ini = Open();
    TStringList lines;
    ini->WriteMissingValues(&source);
    ini->ReadSectionValues(u"S", &lines);
    EXPECT_EQ(lines.getCommaText(), u"a=1,b=3");
    ini->SetValues(&source);
    ini->ReadSectionValues(u"S", &lines);
    EXPECT_EQ(lines.getCommaText(), u"a=2,b=3");
    EXPECT_FALSE(ini->SectionExists(u"Own"));
    ini->Save();
    EXPECT_EQ(Content(), "[S]\r\na=2\r\nb=3\r\n");
}

TEST_P(CIniStoresTest, CopiesInOneStep)
{
    BTL::CMemIniFile source(UnicodeString(folder.Path() / "b.ini"));
    for (const char16_t* section : {u"A", u"B"}) {
        source.setSection(section);
        source.WriteString("long", UnicodeString::StringOfChar(u'x', 80));
    }
    TStringList lines;
    for (const char16_t key : {u'a', u'b'}) {
        lines.Add(UnicodeString(key) + u'=' + UnicodeString::StringOfChar(u'x', 80));
    }
    BTL::CStringPairs pairs;
    pairs.Add(u"a", UnicodeString::StringOfChar(u'x', 80));
    pairs.Add(u"b", UnicodeString::StringOfChar(u'x', 80));
    const std::string old = "[S]\r\na=1\r\n[Own]\r\no=1\r\n";
    const std::function<void(BTL::AIni&)> copies[] = {
        [&](BTL::AIni& ini) { ini.SetValues(&source); },
        [&](BTL::AIni& ini) { ini.WriteValues(&source); },
        [&](BTL::AIni& ini) { ini.WriteMissingValues(&source); },
        [&](BTL::AIni& ini) { ini.SetSectionValues(u"S", &lines); },
        [&](BTL::AIni& ini) { ini.SetSectionValues(u"S", pairs); },
        [&](BTL::AIni& ini) { ini.WriteSectionValues(u"S", &lines); },
        [&](BTL::AIni& ini) { ini.WriteMissingSectionValues(u"T", &lines); },
    };
    int number = 0;
    for (const auto& copy : copies) {
        SCOPED_TRACE(number++);
        Fill(old);
        // There is room for a part of it.
        const int exit = Support::ExitOfFork([&] {
            Support::LimitFileSize(150);
            const auto ini = Open();
            try {
                copy(*ini);
                ini->Save();
            } catch (const Sysutils::Exception&) {
                return 1;
            }
            return 0;
        });
        EXPECT_EQ(exit, 1);
        EXPECT_EQ(Content(), old);
    }
}

TEST_P(CIniStoresTest, NeedsNoFile)
{
    const auto ini = Open();
    EXPECT_FALSE(ini->FileExists());
    EXPECT_FALSE(ini->FileReadOnly());
    EXPECT_EQ(ini->ReadInt("a", 5), 5);
    ini->WriteInt("a", 6);
    ini->Save();
    EXPECT_TRUE(ini->FileExists());
    EXPECT_EQ(Content(), "[S]\r\na=6\r\n");
    EXPECT_EQ(ini->getFile(), file);
}

TEST_P(CIniStoresTest, TellsAFileThatCanNotBeWritten)
{
    Fill("[S]\r\na=1\r\n");
    chmod(Path().c_str(), 0444);
    const auto ini = Open();
    EXPECT_TRUE(ini->FileReadOnly());
    const auto write = [&] {
        ini->WriteInt("a", 2);
        // The profile store's own way to save takes the attribute away.
        if (!GetParam().hasOwnMessage) {
            ini->Save();
        }
    };
    EXPECT_THROW(write(), Sysutils::Exception);
    EXPECT_EQ(Content(), "[S]\r\na=1\r\n");
    chmod(Path().c_str(), 0644);
    std::filesystem::remove(Path());
    std::filesystem::create_directory(Path());
    EXPECT_THROW(write(), Sysutils::Exception);
    std::size_t count = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(folder.Path())) {
        ++count;
    }
    EXPECT_EQ(count, 1U);
}

class CMemIniFileTest : public testing::Test, protected Support::IniFileFolder
{
};

TEST_F(CMemIniFileTest, ReachesTheFileOnlyWhenSaved)
{
    BTL::CMemIniFile first(file, u"S");
    BTL::CMemIniFile second(file, u"S");
    first.WriteInt("a", 1);
    EXPECT_EQ(first.ReadInt("a", 0), 1);
    EXPECT_FALSE(std::filesystem::exists(Path()));
    first.Save();
    EXPECT_EQ(Content(), "[S]\r\na=1\r\n");
    second.WriteInt("b", 2);
    second.Save();
    EXPECT_EQ(Content(), "[S]\r\nb=2\r\n");
}

TEST_F(CMemIniFileTest, KeepsWhatIsNotSavedUnderItsName)
{
    BTL::CMemIniFile ini;
    EXPECT_THROW(ini.ReadInt("a", 0), Sysutils::Exception);
    const UnicodeString hostName(Path());
    ini.setFile(hostName);
    ini.setSection(u"S");
    ini.WriteInt("a", 1);
    ini.setFile(hostName);
    EXPECT_EQ(ini.ReadInt("a", 0), 1);
    ini.setFile(ini.getFile());
    EXPECT_EQ(ini.ReadInt("a", 0), 1);
    ini.setFile(UnicodeString(folder.Path() / "b.ini"));
    EXPECT_EQ(ini.ReadInt("a", 0), 0);
    ini.setFile(file);
    EXPECT_EQ(ini.ReadInt("a", 0), 0);
}

TEST_F(CMemIniFileTest, TellsAFailedSave)
{
    BTL::CMemIniFile ini(Sysutils::FromHostPath((folder.Path() / "none" / "a.ini").string()), u"S");
    ini.WriteInt("a", 1);
    try {
        ini.Save();
        ADD_FAILURE() << "was saved";
    } catch (const Sysutils::Exception& fault) {
        EXPECT_EQ(fault.getMessage(),
                  System::Printf(BTL::GetIniText(BTL::EIniText::CannotWrite), ini.getFile()));
    }
    EXPECT_EQ(ini.ReadInt("a", 0), 1);
}

TEST_F(CMemIniFileTest, ASaveOfWhichOneCallFailsLeavesTheOldOrTheNewFile)
{
    if (!Support::CanFailCalls) {
        GTEST_SKIP() << "The calls of this processor can't be failed.";
    }
    Support::ExpectOldOrNew(Path(), "[S]\r\na=1\r\n", [&] {
        BTL::CMemIniFile ini(file, u"S");
        ini.WriteInt("b", 2);
        ini.Save();
    });
}

TEST_F(CMemIniFileTest, HandsItsLinesOut)
{
    Fill("; head\r\n[S]\r\na=1\r\n");
    auto* const store = new BTL::CMemIniFileImp;
    BTL::AIni ini(store);
    ini.Init(u"S", u"a.ini", UnicodeString(folder.Path()) + u'\\');
    TStringList lines;
    store->GetStrings(&lines);
    EXPECT_EQ(lines.getCommaText(), u"\"; head\",[S],a=1");
    lines.Add(u"b=\u00B5");
    store->SetStrings(&lines);
    EXPECT_EQ(ini.ReadString(u"b", u""), u"\u00B5");
    ini.Save();
    EXPECT_EQ(Content(), "; head\r\n[S]\r\na=1\r\nb=\xB5\r\n");
    lines.setStrings(3, u"b=\u03A9");
    store->SetStrings(&lines);
    ini.Save();
    EXPECT_EQ(Content(), "\xEF\xBB\xBF; head\r\n[S]\r\na=1\r\nb=\xCE\xA9\r\n");
    store->GetStrings(&lines);
    EXPECT_EQ(lines[3], u"b=\u03A9");
    store->SetStrings(nullptr);
    EXPECT_FALSE(ini.SectionExists(u"S"));
}

} // namespace
