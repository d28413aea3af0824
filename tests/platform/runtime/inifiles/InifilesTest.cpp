// SPDX-License-Identifier: MIT
#include "platform/runtime/inifiles/Inifiles.h"

#include "platform/runtime/classes/Classes_StringList.h"
#include "support/TempFolder.h"

#include <fstream>
#include <memory>
#include <sstream>
#include <thread>

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

namespace
{

using Classes::TStringList;
using System::UnicodeString;

template <class Ini>
class CInifilesTest : public testing::Test
{
protected:
    void Fill(std::string_view bytes) const { std::ofstream(Path(), std::ios::binary) << bytes; }
    std::string Content() const
    {
        std::ostringstream text;
        text << std::ifstream(Path(), std::ios::binary).rdbuf();
        return text.str();
    }
    std::filesystem::path Path() const { return folder.Path() / "a.ini"; }

    const Support::TempFolder folder;
    const UnicodeString file{Path()};
};

using CKinds = testing::Types<Inifiles::TIniFile, Inifiles::TMemIniFile>;
TYPED_TEST_SUITE(CInifilesTest, CKinds, );

TYPED_TEST(CInifilesTest, ReadsAndWrites)
{
    this->Fill("[S]\r\na=1\r\nb=\r\nc=x\r\n");
    TypeParam ini(this->file);
    EXPECT_EQ(ini.getFileName(), this->file);
    EXPECT_EQ(ini.ReadString(u"s", u"A", u"d"), u"1");
    EXPECT_EQ(ini.ReadString(u"S", u"b", u"d"), u"");
    EXPECT_EQ(ini.ReadString(u"T", u"b", u"d"), u"d");
    EXPECT_EQ(ini.ReadInteger(u"S", u"a", 5), 1);
    EXPECT_EQ(ini.ReadInteger(u"S", u"c", 5), 5);
    EXPECT_TRUE(ini.ReadBool(u"S", u"a", false));
    EXPECT_TRUE(ini.ReadBool(u"S", u"c", true));
    EXPECT_TRUE(ini.ValueExists(u"S", u"b"));
    EXPECT_FALSE(ini.ValueExists(u"S", u"d"));
    ini.WriteInteger(u"S", u"a", -2);
    ini.WriteBool(u"N", u"yes", true);
    ini.WriteBool(u"N", u"no", false);
    ini.DeleteKey(u"S", u"c");
    ini.UpdateFile();
    EXPECT_EQ(this->Content(), "[S]\r\na=-2\r\nb=\r\n[N]\r\nyes=1\r\nno=0\r\n");
    ini.EraseSection(u"s");
    ini.EraseSection(u"s");
    ini.DeleteKey(u"S", u"a");
    ini.UpdateFile();
    EXPECT_EQ(this->Content(), "[N]\r\nyes=1\r\nno=0\r\n");
}

TYPED_TEST(CInifilesTest, IsReadBySeveralThreads)
{
    this->Fill("[S]\r\na=1\r\nb=2\r\n[T]\r\na=3\r\nb=4\r\n");
    const TypeParam ini(this->file);
    const auto read = [&ini] {
        for (int i = 0; i < 1000; ++i) {
            EXPECT_EQ(ini.ReadInteger(u"S", u"a", 0), 1);
            EXPECT_EQ(ini.ReadInteger(u"S", u"b", 0), 2);
            EXPECT_EQ(ini.ReadInteger(u"T", u"b", 0), 4);
            EXPECT_EQ(ini.ReadInteger(u"T", u"a", 0), 3);
        }
    };
    const std::jthread other(read);
    read();
}

TYPED_TEST(CInifilesTest, Lists)
{
    this->Fill("[S]\nb=1\na=2\n[T]\n");
    const TypeParam ini(this->file);
    TStringList list{u"old"};
    ini.ReadSections(&list);
    EXPECT_EQ(list.getCommaText(), u"S,T");
    ini.ReadSection(u"S", &list);
    EXPECT_EQ(list.getCommaText(), u"b,a");
    ini.ReadSectionValues(u"S", &list);
    EXPECT_EQ(list.getCommaText(), u"b=1,a=2");
    EXPECT_TRUE(ini.SectionExists(u"S"));
    EXPECT_FALSE(ini.SectionExists(u"T"));
    ini.ReadSection(u"S", nullptr);
}

TYPED_TEST(CInifilesTest, RaisesWhereItCanNotWrite)
{
    TypeParam ini(this->file);
    EXPECT_THROW(ini.WriteString(u"S", u"a", u"1\n2"), Inifiles::EIniFileException);
    EXPECT_FALSE(std::filesystem::exists(this->Path()));
    this->Fill("[S]\na=1\n");
    chmod(this->Path().c_str(), 0444);
    const auto write = [&] {
        ini.WriteString(u"S", u"a", u"2");
        ini.UpdateFile();
    };
    EXPECT_THROW(write(), Inifiles::EIniFileException);
    EXPECT_EQ(this->Content(), "[S]\na=1\n");
}

TYPED_TEST(CInifilesTest, KeepsTheEncoding)
{
    const struct
    {
        std::string_view before, after;
    } cases[] = {
        {"[S]\na=\xB5\n", "[S]\na=\xB5\nb=1\n"},
        {"\xEF\xBB\xBF[S]\na=\xC2\xB5\n", "\xEF\xBB\xBF[S]\na=\xC2\xB5\nb=1\n"},
        {std::string_view("\xFF\xFE[\0S\0]\0\n\0a\0=\0\xB5\0\n\0", 18),
         std::string_view("\xFF\xFE[\0S\0]\0\n\0a\0=\0\xB5\0\n\0b\0=\0001\0\n\0", 26)},
    };
    for (const auto& [before, after] : cases) {
        SCOPED_TRACE(before);
        this->Fill(before);
        TypeParam ini(this->file);
        EXPECT_EQ(ini.ReadString(u"S", u"a", u""), u"\u00B5");
        ini.WriteString(u"S", u"b", u"1");
        ini.UpdateFile();
        EXPECT_EQ(this->Content(), after);
    }
}

class CMemIniTest : public CInifilesTest<Inifiles::TMemIniFile>
{
};

TEST_F(CMemIniTest, HandsItsLinesOutInAnyEncoding)
{
    for (const std::string_view mark : {"", "\xEF\xBB\xBF", "\xFF\xFE"}) {
        SCOPED_TRACE(mark);
        Fill(mark);
        Inifiles::TMemIniFile ini(file);
        const TStringList lines{u"; head", u"", u"[S]", u"a=\u00B5"};
        ini.SetStrings(&lines);
        EXPECT_EQ(ini.ReadString(u"S", u"a", u""), u"\u00B5");
        TStringList again;
        ini.GetStrings(&again);
        EXPECT_TRUE(again.Equals(&lines));
        ini.UpdateFile();
        EXPECT_TRUE(Content().starts_with(mark));
        EXPECT_EQ(Inifiles::TIniFile(file).ReadString(u"S", u"a", u""), u"\u00B5");
    }
}

TEST_F(CMemIniTest, KeepsAFileThatCanNotBeReadBeside)
{
    if (geteuid() == 0) {
        GTEST_SKIP() << "Root reads every file.";
    }
    Fill("[S]\na=1\n");
    chmod(Path().c_str(), 0200);
    Inifiles::TMemIniFile ini(file);
    EXPECT_EQ(ini.ReadString(u"S", u"a", u"d"), u"d");
    ini.WriteString(u"S", u"b", u"2");
    ini.UpdateFile();
    const auto kept = folder.Path() / "a.ini.unreadable1";
    chmod(kept.c_str(), 0600);
    EXPECT_EQ(std::filesystem::file_size(kept), 8U);
}

TEST_F(CMemIniTest, FollowsLinksAndKeepsTheMode)
{
    const auto real = folder.Path() / "real.ini";
    std::ofstream(real) << "[S]\n";
    chmod(real.c_str(), 0640);
    std::filesystem::create_symlink(real, Path());
    Inifiles::TMemIniFile ini(file);
    ini.WriteString(u"S", u"a", u"1");
    ini.UpdateFile();
    EXPECT_TRUE(std::filesystem::is_symlink(Path()));
    struct stat status;
    ASSERT_EQ(stat(real.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0640U);
    EXPECT_EQ(Content(), "[S]\na=1\n");
}

TEST(CIniBundleTest, ShowsAtOnceAndWritesAtItsEnd)
{
    const Support::TempFolder folder;
    const UnicodeString file(folder.Path() / "a.ini");
    Inifiles::TIniFile ini(file);
    Inifiles::CIniBundle bundle(file);
    ini.WriteString(u"S", u"a", u"1");
    EXPECT_EQ(ini.ReadString(u"S", u"a", u""), u"1");
    EXPECT_FALSE(std::filesystem::exists(folder.Path() / "a.ini"));
    bundle.End();
    EXPECT_TRUE(std::filesystem::exists(folder.Path() / "a.ini"));
}

} // namespace
