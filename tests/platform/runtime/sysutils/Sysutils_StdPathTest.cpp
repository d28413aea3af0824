// SPDX-License-Identifier: MIT
#include "platform/runtime/sysutils/Sysutils_StdPath.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/runtime/classes/Classes_Stream.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/runtime/sysutils/Sysutils_File.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace
{

using namespace std::string_literals;
using System::UnicodeString;
using Sysutils::ToFileName;
using Sysutils::ToPath;

TEST(StdPathTest, GoesBothWays)
{
    for (const std::string& bytes :
         {"a"s, "/tmp/größer/💡"s, "bad\xFF\xC3/name"s, "a\\b"s, "c:d"s, "../x y"s}) {
        SCOPED_TRACE(bytes);
        const std::filesystem::path path(bytes);
        EXPECT_EQ(ToPath(ToFileName(path)), path);
    }
    EXPECT_EQ(ToFileName("data/größer"), u"data/größer") << "as the user wrote it";
    EXPECT_EQ(ToPath(u"a\\b"), "a/b");
    EXPECT_EQ(ToPath(u"C:\\x"), "/x");
}

TEST(StdPathTest, RefusesNamesThatTheHostCannotHave)
{
    for (const UnicodeString& name :
         {UnicodeString(), UnicodeString(u"a\0b", 3), UnicodeString(u"Y:\\a"), UnicodeString(u"\xD800", 1)}) {
        EXPECT_THROW(ToPath(name), Sysutils::EInOutError);
    }
}

TEST(StdPathTest, IsTakenWhereverAFileNameGoes)
{
    const Support::TempFolder folder;
    const std::filesystem::path path = folder.Path() / "lines \xFF.txt";
    Classes::TStringList list{u"one", u"two"};
    list.SaveToFile(path);
    EXPECT_TRUE(Sysutils::FileExists(path));
    EXPECT_TRUE(std::filesystem::exists(path));
    Classes::TStringList read;
    read.LoadFromFile(path);
    EXPECT_TRUE(read.Equals(&list));
    const Classes::TFileStream stream(path, Classes::fmOpenRead);
    EXPECT_EQ(ToPath(stream.getFileName()), path);
    EXPECT_TRUE(Sysutils::DeleteFile(path));
}

TEST(StdPathTest, StandsInMessagesAsItWasWritten)
{
    try {
        const Classes::TFileStream stream(std::filesystem::path("/no such/file.txt"), Classes::fmOpenRead);
        FAIL() << "there is such a file";
    } catch (const std::exception& error) {
        EXPECT_NE(std::string(error.what()).find("\"/no such/file.txt\""), std::string::npos) << error.what();
    }
}

} // namespace
