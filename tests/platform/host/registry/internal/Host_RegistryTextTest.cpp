// SPDX-License-Identifier: MIT
#include "platform/host/registry/internal/Host_RegistryText.h"

#include <gtest/gtest.h>

namespace
{

using Host::RegistryText;
using System::UnicodeString;

TEST(RegistryTextTest, ReadsWhatPeopleWrite)
{
    const RegistryText text =
        RegistryText::Parse("\xEF\xBB\xBF; of the bench\r\n"
                            " [Ports] \r\n"
                            " COM7 = /dev/pts/3 \n"
                            "com8=int:12\nCOM9=int:12x\nCOM10=hex:00fF\nCOM11=hex:0\nCOM12=50%\n"
                            "no value\n[HKEY_CURRENT_USER\\Software\\\\Station\\]\n=a=b");
    EXPECT_EQ(std::get<UnicodeString>(*text.Find(u"ports", u"com7")), u"/dev/pts/3");
    EXPECT_EQ(std::get<std::uint32_t>(*text.Find(u"Ports", u"COM8")), 12U);
    EXPECT_EQ(std::get<UnicodeString>(*text.Find(u"Ports", u"COM9")), u"int:12x");
    EXPECT_EQ(std::get<std::string>(*text.Find(u"Ports", u"COM10")), std::string("\0\xFF", 2));
    EXPECT_EQ(std::get<UnicodeString>(*text.Find(u"Ports", u"COM11")), u"hex:0");
    EXPECT_EQ(std::get<UnicodeString>(*text.Find(u"Ports", u"COM12")), u"50%");
    EXPECT_EQ(std::get<UnicodeString>(*text.Find(u"HKEY_CURRENT_USER\\Software\\Station", u"")), u"a=b");
    EXPECT_TRUE(text.HasKey(u"hkey_current_user\\software"));
    EXPECT_EQ(text.Find(u"Ports", u"COM1"), nullptr);
    // Nothing that a person wrote is lost.
    EXPECT_NE(text.Write().find("; of the bench\n"), std::string::npos);
    EXPECT_NE(text.Write().find("no value\n"), std::string::npos);
}

TEST(RegistryTextTest, BringsAnyTextBack)
{
    RegistryText text;
    const UnicodeString broken = UnicodeString(char16_t{0xDC00}) + u"a" + UnicodeString(char16_t{0xD800});
    for (const UnicodeString& value :
         {UnicodeString(u""), UnicodeString(u" a "), UnicodeString(u"int:5"), UnicodeString(u"hex:00"),
          UnicodeString(u"a\r\nb\t%0041%"), UnicodeString(u"\uFEFF\u00B0\U0001F600"), broken,
          UnicodeString(std::u16string_view(u"\0a\0", 3)), UnicodeString(u"[x]"), UnicodeString(u";=#")}) {
        text.Set(u"Root\\[a]; \u00D6", value, value);
        text.Set(u"Root\\" + value, u"x", value);
    }
    const RegistryText again = RegistryText::Parse(text.Write());
    for (const auto& name : {u" a ", u"int:5", u"[x]", u";=#"}) {
        EXPECT_EQ(std::get<UnicodeString>(*again.Find(u"Root\\[a]; \u00F6", name)), name);
    }
    EXPECT_EQ(std::get<UnicodeString>(*again.Find(u"Root\\[a]; \u00D6", broken)), broken);
    EXPECT_EQ(again, RegistryText::Parse(again.Write()));
}

TEST(RegistryTextTest, ListsAndDeletesKeys)
{
    RegistryText text = RegistryText::Parse("[A\\B\\C]\nx=1\n[A\\D]\n[AB]\n[a\\b\\E]\n");
    EXPECT_EQ(text.KeysBelow(u"A"), (std::vector<UnicodeString>{u"B", u"D"}));
    EXPECT_EQ(text.KeysBelow(u""), (std::vector<UnicodeString>{u"A", u"AB"}));
    EXPECT_TRUE(text.DeleteKey(u"a\\B"));
    EXPECT_FALSE(text.DeleteKey(u"a\\B"));
    EXPECT_EQ(text.KeysBelow(u"A"), (std::vector<UnicodeString>{u"D"}));
    EXPECT_TRUE(text.HasKey(u"AB"));
    EXPECT_FALSE(text.Delete(u"AB", u"x"));
}

} // namespace
