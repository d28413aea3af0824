// SPDX-License-Identifier: MIT
#include "platform/host/Host_Path.h"

#include "platform/host/Host_Error.h"
#include "platform/runtime/sysutils/Sysutils_File.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include <sys/stat.h>

using System::UnicodeString;
using Sysutils::FromHostPath;
using Sysutils::HostPath;

namespace
{

TEST(HostPathTest, TurnsTheSeparators)
{
    const struct
    {
        const char16_t* path;
        const char* host;
    } cases[] = {{u"\\home\\u\\x", "/home/u/x"},
                 {u"a/b\\c", "a/b/c"},
                 {u"\\", "/"},
                 {u"C:\\home\\x", "/home/x"},
                 {u"c:/x", "/x"},
                 {u"C:\\", "/"},
                 {u"C:x", "x"},
                 {u"C:", "."},
                 {u"\\\\?\\C:\\x", "/x"},
                 {u"\u00E4\U0001F600", "\xC3\xA4\xF0\x9F\x98\x80"},
                 {u"1:b", "1:b"},
                 {u"\\a:b", "/a:b"}};
    for (const auto& test : cases) {
        EXPECT_EQ(HostPath(test.path), test.host);
    }
    EXPECT_EQ(FromHostPath("/home/u/\xC3\xA4"), u"\\home\\u\\\u00E4");
    EXPECT_EQ(FromHostPath("//home"), u"\\home");
}

TEST(HostPathTest, KeepsTheBytesOfAnyName)
{
    std::string name;
    for (int byte = 1; byte < 256; ++byte) {
        name += static_cast<char>(byte);
    }
    for (const std::string& host :
         {name, std::string("\xC3"), std::string("\xED\xA0\x80"), std::string("a\\b"), std::string("C:x"),
          std::string("\xF0\x9F\x98"), std::string("\xC0\xAF")}) {
        EXPECT_EQ(HostPath(FromHostPath(host)), host);
    }
    EXPECT_EQ(FromHostPath("a\\b"), u"a\xDC5C"
                                    u"b");
    EXPECT_EQ(FromHostPath("C:x"), u"C\xDC3A"
                                   u"x");
}

TEST(HostPathTest, TellsWhyThereIsNoPath)
{
    const struct
    {
        UnicodeString path;
        unsigned long error;
    } cases[] = {{UnicodeString(), ERROR_PATH_NOT_FOUND},
                 {UnicodeString(u"Q:\\x"), ERROR_PATH_NOT_FOUND},
                 {UnicodeString(u"a\0b", 3), ERROR_INVALID_NAME},
                 {UnicodeString(u"a\xD800"), ERROR_INVALID_NAME},
                 {UnicodeString(u"a\xDC2F"
                                u"b"),
                  ERROR_INVALID_NAME}};
    for (const auto& test : cases) {
        SetLastError(0);
        EXPECT_EQ(HostPath(test.path), "");
        EXPECT_EQ(GetLastError(), test.error);
    }
}

TEST(HostPathTest, LooksUpDrives)
{
    const Support::TempFolder folder;
    const std::string root = folder.Path().string();
    ASSERT_TRUE(Sysutils::SetDrive(u'x', root + "/"));
    EXPECT_EQ(Sysutils::GetDrive(u'X'), root);
    EXPECT_EQ(HostPath(u"X:\\a\\b"), root + "/a/b");
    EXPECT_EQ(HostPath(u"x:"), root);
    EXPECT_EQ(HostPath(u"x:a"), root + "/a");
    EXPECT_EQ(Sysutils::ExpandFileName(u"X:a\\..\\b"), u"X:\\b");
    EXPECT_GT(Sysutils::DiskFree('X' - 'A' + 1), 0);
    ASSERT_TRUE(Sysutils::SetDrive(u'X', ""));
    EXPECT_EQ(HostPath(u"X:\\a"), "");
    EXPECT_FALSE(Sysutils::SetDrive(u'X', "relative"));
    EXPECT_FALSE(Sysutils::SetDrive(u'1', "/"));
    EXPECT_EQ(Sysutils::DiskFree(200), -1);
}

} // namespace
