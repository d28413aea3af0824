// SPDX-License-Identifier: MIT
#include "config/WIN_GIniFile.h"

#include "config/WIN_IniFileA.h"
#include "config/WIN_IniFileW.h"
#include "config/WIN_IniFileW2.h"
#include "foundation/UTL_ASRT_Assert.h"
#include "os/WIN_LastError.h"
#include "platform/host/Host_Error.h"
#include "platform/toolkit/MessageBox.h"
#include "support/ScopedVariable.h"
#include "support/ScriptedBoxes.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <limits>

#include <sys/stat.h>

namespace
{

using System::AnsiString;
using System::UnicodeString;
using namespace WIN;

/// The reading operations of all engines under one name.
template <class Ini>
struct Reader : Ini
{
    using Ini::Ini;
    using Text = typename Ini::TText;

    Text String(const Text& key, const Text& fallback = {}) { return this->ReadString(key, fallback); }
    using Ini::ReadAnsiString;
    using Ini::ReadBool;
    using Ini::ReadCommaText;
    using Ini::ReadEscSeqString;
    using Ini::ReadFloat;
    using Ini::ReadInt;
    using Ini::ReadInt64;
    using Ini::ReadKeys;
    using Ini::ReadSections;
    using Ini::ReadSTDString;
    using Ini::ReadStringBuf;
    using Ini::ReadUnicodeString;
    using Ini::ReadUTF8String;
};

template <class Ini>
class GIniFileTest : public testing::Test
{
protected:
    using Text = typename Ini::TText;

    Text Name(const char* name) const { return Text(UnicodeString(mFolder.Path() / name)); }
    void Write(const std::string& text) const
    {
        std::ofstream(mFolder.Path() / "a.ini", std::ios::binary) << text;
    }
    std::string Read(const char* name = "a.ini") const
    {
        std::ifstream stream(mFolder.Path() / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    Support::TempFolder mFolder;
    Reader<Ini> mIni{Text("s"), Name("a.ini")};
};

using Engines = testing::Types<CIniFileA, CIniFileW, CIniFileW2>;
TYPED_TEST_SUITE(GIniFileTest, Engines);

TYPED_TEST(GIniFileTest, WritesEachTypeInItsTextForm)
{
    auto& ini = this->mIni;
    EXPECT_TRUE(ini.WriteString("text", " a b "));
    EXPECT_TRUE(ini.WriteSTDString("std", UTL::CString("\xE4")));
    EXPECT_TRUE(ini.WriteInt("int", -5));
    EXPECT_TRUE(ini.WriteInt64("int64", System::Int64{1} << 40));
    EXPECT_TRUE(ini.WriteFloat("float", 1234567.0F));
    EXPECT_TRUE(ini.WriteFloat("point", 0.1F));
    EXPECT_TRUE(ini.WriteBool("true", true));
    EXPECT_TRUE(ini.WriteBool("no", false, "yes", "no"));
    EXPECT_TRUE(ini.WriteEscSeqString("esc", "a\nb\\"));
    EXPECT_TRUE(ini.WriteCommaText("comma", "\"a b\",c"));
    EXPECT_TRUE(ini.WriteUTF8String("\xE4", "\xFC"));
    EXPECT_EQ(this->Read(), "[s]\r\ntext=\" a b \"\r\nstd=\xE4\r\nint=-5\r\nint64=1099511627776\r\n"
                            "float=1.23457e+06\r\npoint=0.1\r\ntrue=TRUE\r\nno=no\r\nesc=a\\nb\\\\\r\n"
                            "comma=[\"a b\",c]\r\n\xC3\xA4=\xC3\xBC\r\n");
    EXPECT_EQ(ini.String("text"), " a b ");
    EXPECT_EQ(ini.ReadSTDString("std", ""), "\xE4");
    EXPECT_EQ(ini.ReadAnsiString("std", ""), "\xE4");
    EXPECT_EQ(ini.ReadUnicodeString(u"std", u""), u"\u00E4");
    EXPECT_EQ(ini.ReadInt("int", 0), -5);
    EXPECT_EQ(ini.ReadInt64("int64", 0), System::Int64{1} << 40);
    EXPECT_EQ(ini.ReadFloat("float", 0), 1.23457e+06F);
    EXPECT_EQ(ini.ReadFloat("point", 0), 0.1F);
    EXPECT_TRUE(ini.ReadBool("true", false));
    EXPECT_FALSE(ini.ReadBool("no", "YES", "NO", true));
    EXPECT_EQ(ini.ReadEscSeqString("esc", nullptr), "a\nb\\");
    EXPECT_EQ(ini.ReadCommaText("comma", ""), "\"a b\",c");
    EXPECT_EQ(ini.ReadUTF8String("\xE4", u""), "\xFC");
}

TYPED_TEST(GIniFileTest, GivesTheDefaultForWhatIsMissing)
{
    auto& ini = this->mIni;
    this->Write("[s]\nempty=\nword=x\n");
    EXPECT_EQ(ini.String("none"), "");
    EXPECT_EQ(ini.String("none", "def"), "def");
    EXPECT_EQ(ini.String("empty", "def"), "");
    EXPECT_EQ(ini.ReadAnsiString("none", "def"), "def");
    EXPECT_EQ(ini.ReadAnsiString("none", nullptr), "");
    EXPECT_EQ(ini.ReadUnicodeString(u"none", u"def"), u"def");
    EXPECT_EQ(ini.ReadSTDString("none", "def"), "def");
    EXPECT_EQ(ini.ReadInt("word", 7), 7);
    for (const char* const key : {"none", "empty", "word"}) {
        EXPECT_EQ(ini.ReadInt64(key, 7), 7);
        EXPECT_EQ(ini.ReadFloat(key, 7), 7);
        EXPECT_TRUE(ini.ReadBool(key, true));
        EXPECT_FALSE(ini.ReadBool(key, "a", "b", false));
    }
    EXPECT_EQ(ini.ReadUTF8String("none", u"\u0416"), typename TypeParam::TText(u"\u0416"));
    const typename TypeParam::TText escaped = "a\\n";
    EXPECT_EQ(ini.ReadEscSeqString("none", escaped.c_str()), "a\n");
    typename TypeParam::TText out;
    EXPECT_FALSE(ini.ReadCommaText("none", out, "[d]"));
    EXPECT_EQ(out, "[d]");
    EXPECT_FALSE(ini.ReadStringBuf("none", out));
    EXPECT_EQ(out, "");
    EXPECT_TRUE(ini.ReadStringBuf("none", out, "def"));
    EXPECT_EQ(out, "def");
}

TYPED_TEST(GIniFileTest, ReadsNumbersAndWords)
{
    auto& ini = this->mIni;
    for (const auto& [text, value] : {std::pair("1.5", 1.5F),
                                      {"+1.5 V", 1.5F},
                                      {"1,5", 1.0F},
                                      {"-2e3", -2000.0F},
                                      {"+oo", std::numeric_limits<float>::max()},
                                      {"-oo", std::numeric_limits<float>::min()},
                                      {"inf", 9.0F},
                                      {"V", 9.0F}}) {
        SCOPED_TRACE(text);
        this->Write(std::string("[s]\nk=") + text + "\n");
        EXPECT_EQ(ini.ReadFloat("k", 9), value);
    }
    for (const auto& [text, whenFalse, whenTrue] : {std::tuple("True", true, true),
                                                    {"true", true, true},
                                                    {"FALSE", false, false},
                                                    {"1", false, true}}) {
        SCOPED_TRACE(text);
        this->Write(std::string("[s]\nk=") + text + "\n");
        EXPECT_EQ(ini.ReadBool("k", false), whenFalse);
        EXPECT_EQ(ini.ReadBool("k", true), whenTrue);
    }
    for (const auto& [text, list] :
         {std::pair("[a,b]", "a,b"), {"a,b", "a,b"}, {"[", "["}, {"[]", ""}, {"[a", "[a"}}) {
        SCOPED_TRACE(text);
        this->Write(std::string("[s]\nk=") + text + "\n");
        typename TypeParam::TText out;
        EXPECT_TRUE(ini.ReadCommaText("k", out, "default"));
        EXPECT_EQ(out, list);
    }
    this->Write("[s]\nk=" + std::string(40'000, 'x') + "\n");
    EXPECT_EQ(ini.String("k").Length(), 32767);
}

template <class Char>
std::string Filled(const std::array<Char, 16>& buffer)
{
    std::string text;
    std::transform(buffer.begin(), buffer.end(), std::back_inserter(text),
                   [](Char c) { return c == 0 ? '0' : static_cast<char>(c); });
    return text;
}

TYPED_TEST(GIniFileTest, FillsBuffersOfBothWidths)
{
    auto& ini = this->mIni;
    this->Write("[s]\nab=12\xE4\n[t]\nc=1\n");
    const auto check = [&](auto character) {
        using Char = decltype(character);
        std::array<Char, 16> buffer;
        const auto call = [&](auto use, unsigned count, const std::string& text) {
            buffer.fill('#');
            EXPECT_EQ(use(), count);
            EXPECT_EQ(Filled(buffer), text);
        };
        const Char fallback[] = {'d', 0};
        call([&] { return ini.ReadSections(buffer.data(), 16); }, 4, "s0t00###########");
        call([&] { return ini.ReadKeys(buffer.data(), 16); }, 3, "ab00############");
        call([&] { return ini.ReadSections(buffer.data(), 4); }, 2, "s000############");
        call([&] { return ini.ReadStringBuf("ab", buffer.data(), 3, fallback); }, 2, "120#############");
        call([&] { return ini.ReadStringBuf("none", buffer.data(), 16, fallback); }, 1, "d0##############");
        call([&] { return ini.ReadStringBuf("none", buffer.data(), 16, static_cast<const Char*>(nullptr)); },
             0, "0###############");
        EXPECT_EQ(ini.ReadStringBuf("ab", buffer.data(), 16, fallback), 3U);
        EXPECT_EQ(static_cast<int>(static_cast<std::make_unsigned_t<Char>>(buffer[2])), 0xE4);
    };
    check('c');
    check(u'c');
    typename TypeParam::TOtherChar* const nothing = nullptr;
    EXPECT_EQ(ini.ReadSections(nothing, 4'000'000'000U), 4U);
    EXPECT_EQ(ini.ReadKeys(nothing, 16), 3U);
}

TYPED_TEST(GIniFileTest, BindsItsFile)
{
    {
        const Support::ScriptedBoxes boxes{IDYES, IDNO};
        try {
            TypeParam("s", "name");
            ADD_FAILURE();
        } catch (const UTL::XAssert& fault) {
            EXPECT_TRUE(fault.getFile().AsView().starts_with("WIN_IniFile"));
            EXPECT_EQ(fault.getExpression(), u"");
        }
        EXPECT_NO_THROW(TypeParam("s", "name"));
    }
    TypeParam::SetPath(this->Name(""));
    TypeParam ini("s", "path.ini");
    TypeParam::SetPath("");
    EXPECT_TRUE(ini.WriteInt("k", 1));
    EXPECT_EQ(this->Read("path.ini"), "[s]\r\nk=1\r\n");
    EXPECT_TRUE(ini.FileExists());

    ini.Init("s", "three.ini", this->Name(""));
    EXPECT_FALSE(ini.FileExists());
    ini.SetSection("t");
    EXPECT_TRUE(ini.WriteInt("k", 2));
    TypeParam copy = ini;
    ini.Clear();
    EXPECT_TRUE(copy.WriteInt("l", 3));
    EXPECT_EQ(this->Read("three.ini"), "[t]\r\nk=2\r\nl=3\r\n");
    EXPECT_TRUE(copy.DeleteKey("k"));
    EXPECT_TRUE(copy.DeleteKey("none"));
    EXPECT_EQ(this->Read("three.ini"), "[t]\r\nl=3\r\n");
    EXPECT_TRUE(copy.DeleteSection());
    EXPECT_EQ(this->Read("three.ini"), "");

    const TypeParam plain(0, this->Name("plain"), typename TypeParam::TText("s"));
    EXPECT_FALSE(plain.FileExists());
}

TYPED_TEST(GIniFileTest, HasTheProfileOfTheUserWithoutAFile)
{
    const Support::ScopedVariable settings("XDG_CONFIG_HOME", this->mFolder.Path().c_str());
    Reader<TypeParam> ini("s", "");
    EXPECT_TRUE(ini.WriteInt("k", 1));
    EXPECT_EQ(this->Read("win.ini"), "[s]\r\nk=1\r\n");
    EXPECT_EQ(ini.ReadInt("k", 0), 1);
    ini.Flush();
    EXPECT_EQ(ini.DiscardCache(), 1);
    EXPECT_EQ(ini.PrepareWrite(), 0);
    EXPECT_EQ(Reader<TypeParam>("s").ReadInt("k", 0), 1);
    EXPECT_EQ(Reader<TypeParam>().ReadInt("k", 9), 9);
}

TYPED_TEST(GIniFileTest, TellsOfReadOnlyFiles)
{
    auto& ini = this->mIni;
    EXPECT_FALSE(ini.FileReadOnly());
    EXPECT_EQ(ini.PrepareWrite(), 0);
    this->Write("[s]\nk=1\n");
    ini.Flush();
    EXPECT_EQ(ini.DiscardCache(), 0);
    {
        Support::ScriptedBoxes boxes;
        EXPECT_FALSE(ini.ShowReadOnlyWarinig());
        EXPECT_TRUE(boxes.TakeShown().empty());
    }
    chmod((this->mFolder.Path() / "a.ini").c_str(), 0444);
    EXPECT_TRUE(ini.FileReadOnly());
    {
        Support::ScriptedBoxes boxes{IDOK};
        EXPECT_TRUE(ini.ShowReadOnlyWarinig());
        const auto shown = boxes.TakeShown();
        ASSERT_EQ(shown.size(), 1U);
        EXPECT_EQ(shown[0].box.flags, MB_ICONWARNING);
        EXPECT_EQ(shown[0].box.text, u"Die Ini-Datei \n'" + UnicodeString(this->Name("a.ini")) +
                                         u"'\nist schreibgesch\u00FCtzt.\nEntfernen Sie bitte den "
                                         u"Schreibschutz, damit die Daten gespeichert werden k\u00F6nnen.");
    }
    try {
        ini.WriteInt("k", 2);
        ADD_FAILURE();
    } catch (const XLastError& error) {
        EXPECT_EQ(error.getError(), ERROR_ACCESS_DENIED);
    }
    EXPECT_FALSE(ini.DeleteKey("k"));
    EXPECT_FALSE(ini.DeleteSection());
    if (std::is_same_v<TypeParam, CIniFileA>) {
        EXPECT_THROW(ini.WriteUTF8String("k", "2"), XLastError);
    } else {
        EXPECT_FALSE(ini.WriteUTF8String("k", "2"));
    }
    EXPECT_EQ(ini.PrepareWrite(), 0);
    EXPECT_TRUE(ini.WriteInt("k", 2));
    EXPECT_EQ(this->Read(), "[s]\nk=2\n");
    EXPECT_THROW(ini.WriteString("k", "a\nb"), XLastError);
    EXPECT_THROW(ini.WriteString("k=", "a"), XLastError);
    EXPECT_THROW(ini.WriteString("k", typename TypeParam::TText("a\0b", 3)), XLastError);
    EXPECT_FALSE(ini.DeleteKey(typename TypeParam::TText("k\0b", 3)));
    ini.SetSection(typename TypeParam::TText("s\0b", 3));
    EXPECT_FALSE(ini.DeleteKey("k"));
    EXPECT_FALSE(ini.DeleteSection());
    ini.SetSection("");
    EXPECT_THROW(ini.WriteString("k", "a"), XLastError);
    EXPECT_EQ(this->Read(), "[s]\nk=2\n");
}

} // namespace
