// SPDX-License-Identifier: MIT
#include "platform/runtime/sysutils/Sysutils_FileName.h"

#include "platform/runtime/sysutils/Sysutils_File.h"

#include <gtest/gtest.h>

using namespace Sysutils;
using System::UnicodeString;

namespace
{

TEST(SysutilsFileNameTest, PartsOfAPath)
{
    const struct
    {
        const char16_t* path;
        const char16_t* folderPath;
        const char16_t* folder;
        const char16_t* drive;
        const char16_t* name;
        const char16_t* extension;
    } cases[] = {
        {u"", u"", u"", u"", u"", u""},
        {u"C:\\a\\b.c", u"C:\\a\\", u"C:\\a", u"C:", u"b.c", u".c"},
        {u"C:\\b", u"C:\\", u"C:\\", u"C:", u"b", u""},
        {u"C:b", u"C:", u"C:", u"C:", u"b", u""},
        {u"\\a.d\\b", u"\\a.d\\", u"\\a.d", u"", u"b", u""},
        {u"\\b", u"\\", u"\\", u"", u"b", u""},
        {u"a/b.c.d", u"a/", u"a", u"", u"b.c.d", u".d"},
        {u"b.", u"", u"", u"", u"b.", u"."},
        {u"\\\\s\\t\\u.v", u"\\\\s\\t\\", u"\\\\s\\t", u"\\\\s\\t", u"u.v", u".v"},
        {u"\\x\\a:b", u"\\x\\", u"\\x", u"", u"a:b", u""},
        {u"a\\\\b", u"a\\\\", u"a\\\\", u"", u"b", u""},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(ExtractFilePath(test.path), test.folderPath) << UnicodeString(test.path);
        EXPECT_EQ(ExtractFileDir(test.path), test.folder) << UnicodeString(test.path);
        EXPECT_EQ(ExtractFileDrive(test.path), test.drive) << UnicodeString(test.path);
        EXPECT_EQ(ExtractFileName(test.path), test.name) << UnicodeString(test.path);
        EXPECT_EQ(ExtractFileExt(test.path), test.extension) << UnicodeString(test.path);
    }
    EXPECT_EQ(ChangeFileExt(u"a.b\\c.d", u".e"), u"a.b\\c.e");
    EXPECT_EQ(ChangeFileExt(u"a.b\\c", u".e"), u"a.b\\c.e");
    EXPECT_EQ(IncludeTrailingPathDelimiter(u""), u"\\");
    EXPECT_EQ(IncludeTrailingPathDelimiter(u"a/"), u"a/");
    EXPECT_EQ(ExcludeTrailingPathDelimiter(u"a\\\\"), u"a\\");
    EXPECT_FALSE(IsPathDelimiter(u"a", 0));
}

TEST(SysutilsFileNameTest, FullAndRelativePaths)
{
    const UnicodeString current = GetCurrentDir();
    const struct
    {
        const char16_t* path;
        UnicodeString full;
    } cases[] = {{u"\\a\\.\\b\\..\\c", u"\\a\\c"},
                 {u"/a//b/", u"\\a\\b\\"},
                 {u"C:\\..\\x", u"C:\\x"},
                 {u"\\..", u"\\"},
                 {u"C:/", u"C:\\"},
                 {u"a", current + u"\\a"},
                 {u"C:a", u"C:" + current + u"\\a"},
                 {u".\\", current + u"\\"},
                 {u"", UnicodeString()},
                 {u"\\\\s\\t\\..\\u", u"\\\\s\\t\\u"}};
    for (const auto& test : cases) {
        EXPECT_EQ(ExpandFileName(test.path), test.full);
    }
    EXPECT_EQ(ExtractRelativePath(u"\\a\\b\\", u"\\a\\c\\d.e"), u"..\\c\\d.e");
    EXPECT_EQ(ExtractRelativePath(u"\\a\\b\\", u"\\a\\b\\f"), u"f");
    EXPECT_EQ(ExtractRelativePath(u"C:\\a\\", u"D:\\b"), u"D:\\b");
    EXPECT_EQ(ExtractRelativePath(u"\\a\\b\\x.y", u"\\"), u"..\\..\\");
}

} // namespace
