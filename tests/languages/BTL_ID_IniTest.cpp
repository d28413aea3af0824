// SPDX-License-Identifier: MIT
#include "languages/BTL_ID_Ini.h"

#include "config/BTL_INI_WinIniFile.h"
#include "languages/LanguageFile.h"

#include <gtest/gtest.h>

namespace
{

using BTL::CIDSIniFile;
using Support::LanguageFile;
using System::UnicodeString;

TEST(IdIniTest, ReadsAndWritesTextsByTheirNumbers)
{
    const LanguageFile file("[IDS]\n000000012=two\\nlines\n000000013=\n");
    CIDSIniFile texts(file.Name());
    texts.setSection(u"IDS");
    EXPECT_EQ(texts.GetString(12), u"two\nlines");
    EXPECT_EQ(texts.GetStringDef(12, u"none"), u"two\nlines");
    EXPECT_TRUE(texts.IDKeyExists(12));
    EXPECT_FALSE(texts.IDKeyExists(13)) << "an empty value counts as none there";
    EXPECT_EQ(texts.GetStringDef(13, u"none"), u"") << "but is one here";
    EXPECT_EQ(texts.GetString(14), u"");
    EXPECT_EQ(texts.GetStringDef(14, u"no\\ntext"), u"no\ntext");
    texts.WriteIDString(14, u"\u00E4\n\u20AC");
    EXPECT_EQ(texts.GetString(14), u"\u00E4\n\u20AC");
    EXPECT_EQ(texts.ReadString(u"000000014", u""), u"\u00E4\\n\u20AC");
}

TEST(IdIniTest, TakesAnyFormatOfKeys)
{
    const LanguageFile file("[Own]\n0012=short\n000000012=long\n");
    EXPECT_EQ(CIDSIniFile(file.Name(), u"Own", "0000").GetString(12), u"short");
    EXPECT_EQ(CIDSIniFile(file.Name(), u"Own", u"0000").GetString(12), u"short");
    EXPECT_EQ(CIDSIniFile(file.Name(), u"Own", static_cast<const char*>(nullptr)).GetString(12), u"long");
    EXPECT_EQ(CIDSIniFile(file.Name(), u"Own", static_cast<const System::WideChar*>(nullptr)).GetString(12),
              u"long");
    CIDSIniFile texts(file.Name(), u"Own", u"0000");
    texts.SetDefaultKeyFormat();
    EXPECT_EQ(texts.GetString(12), u"long");
}

TEST(IdIniTest, StandsOnAnyStore)
{
    const LanguageFile file("[Own]\n0012=%s!\n000000012=long\n");
    for (const bool narrow : {false, true}) {
        auto* const store = new BTL::CWIN_IniFileImp;
        BTL::AIDSIni texts = narrow ? BTL::AIDSIni(store, "0000") : BTL::AIDSIni(store, u"0000");
        texts.Init(u"Own", u"new 100%d.ids", file.Path());
        BTL::AID_Strings& source = texts;
        EXPECT_EQ(source.GetString(12), u"%s!");
        EXPECT_EQ(source.GetStringDef(13, u"none"), u"none");
        EXPECT_EQ(source.GetString_VA(12, "x"), u"x!");
        EXPECT_EQ(source.GetString_VA(12, 5),
                  u"IDS-Key '0012' in File '" + file.Name() + u"' has wrong placeholders: %s!");
    }
    BTL::AIDSIni texts(new BTL::CWIN_IniFileImp);
    texts.Init(u"Own", file.Name(), u"");
    EXPECT_EQ(texts.GetString(12), u"long");
    BTL::AIDSIni later;
    later.SetImp(new BTL::CWIN_IniFileImp);
    later.Init(u"Own", file.Name(), u"");
    EXPECT_EQ(later.GetString(12), u"long");
}

} // namespace
