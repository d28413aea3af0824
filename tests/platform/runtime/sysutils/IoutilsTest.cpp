// SPDX-License-Identifier: MIT
#include "platform/runtime/sysutils/Ioutils.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/runtime/sysutils/Sysutils_File.h"

#include <gtest/gtest.h>

#include <algorithm>

using Ioutils::TPath;
using System::UnicodeString;

namespace
{

TEST(IoutilsTest, CombinesPaths)
{
    const struct
    {
        const char16_t* first;
        const char16_t* second;
        const char16_t* combined;
    } cases[] = {{u"a", u"b", u"a\\b"},      {u"a\\", u"b", u"a\\b"}, {u"a/", u"b", u"a/b"},
                 {u"", u"b", u"b"},          {u"a", u"", u"a"},       {u"a", u"\\b", u"\\b"},
                 {u"a", u"C:\\b", u"C:\\b"}, {u"C:", u"b", u"C:b"}};
    for (const auto& test : cases) {
        EXPECT_EQ(TPath::Combine(test.first, test.second), test.combined);
    }
}

TEST(IoutilsTest, TakesPathsApart)
{
    EXPECT_EQ(TPath::GetFileNameWithoutExtension(u"\\a.b\\c.d.e"), u"c.d");
    EXPECT_EQ(TPath::GetExtension(u"c.d"), u".d");
    EXPECT_EQ(TPath::GetExtension(u"c."), u"");
    EXPECT_TRUE(TPath::HasExtension(u"c.d"));
    EXPECT_EQ(TPath::ChangeExtension(u"c.d", u"e"), u"c.e");
    EXPECT_EQ(TPath::ChangeExtension(u"c.d", u".e"), u"c.e");
    EXPECT_EQ(TPath::ChangeExtension(u"c.d", u""), u"c");
    EXPECT_EQ(TPath::ChangeExtension(u"", u"e"), u"");
    EXPECT_EQ(TPath::GetDirectoryName(u"\\a\\b"), u"\\a");
    EXPECT_EQ(TPath::GetPathRoot(u"C:\\a"), u"C:\\");
    EXPECT_EQ(TPath::GetPathRoot(u"C:a"), u"C:");
    EXPECT_EQ(TPath::GetPathRoot(u"\\a"), u"\\");
    EXPECT_EQ(TPath::GetPathRoot(u"\\\\s\\t\\a"), u"\\\\s\\t");
    EXPECT_EQ(TPath::GetPathRoot(u"a"), u"");
    EXPECT_TRUE(TPath::IsPathRooted(u"C:a"));
    EXPECT_FALSE(TPath::IsPathRooted(u"a\\b"));
    EXPECT_TRUE(TPath::IsExtendedPrefixed(u"\\\\?\\C:\\a"));
    EXPECT_EQ(TPath::GetFullPath(u"\\a\\..\\b\\"), u"\\b\\");
    EXPECT_THROW(TPath::GetFullPath(u""), Sysutils::EArgumentException);
    EXPECT_THROW(TPath::GetFileName(UnicodeString(u"a\0b", 3)), Sysutils::EArgumentException);
}

TEST(IoutilsTest, KnowsTheFoldersOfTheHost)
{
    const UnicodeString file = TPath::GetTempFileName();
    ASSERT_TRUE(Sysutils::FileExists(file));
    EXPECT_EQ(Sysutils::ExtractFilePath(file), TPath::GetTempPath());
    EXPECT_TRUE(Sysutils::DeleteFile(file));
    EXPECT_TRUE(Sysutils::IsPathDelimiter(TPath::GetTempPath(), TPath::GetTempPath().Length()));
    EXPECT_TRUE(TPath::IsPathRooted(TPath::GetHomePath()));
}

TEST(IoutilsTest, KnowsValidCharacters)
{
    EXPECT_TRUE(TPath::HasValidFileNameChars(u"a b.c\u00E4", false));
    EXPECT_FALSE(TPath::HasValidFileNameChars(u"a\\b", false));
    EXPECT_FALSE(TPath::HasValidFileNameChars(u"*.c", false));
    EXPECT_TRUE(TPath::HasValidFileNameChars(u"*.c", true));
    EXPECT_TRUE(TPath::HasValidPathChars(u"C:\\a/b", false));
    EXPECT_FALSE(TPath::HasValidPathChars(u"a|b", false));
    EXPECT_FALSE(TPath::HasValidPathChars(UnicodeString(u"a\0", 2), false));
    for (const System::WideChar character : TPath::GetInvalidPathChars()) {
        EXPECT_FALSE(TPath::IsValidPathChar(character));
        EXPECT_FALSE(TPath::IsValidFileNameChar(character));
    }
    EXPECT_EQ(TPath::GetInvalidFileNameChars().size(), 32U + 9U);
}

} // namespace
