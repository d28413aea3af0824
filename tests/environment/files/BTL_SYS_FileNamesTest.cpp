// SPDX-License-Identifier: MIT
#include "environment/files/BTL_SYS_FileNames.h"

#include "platform/toolkit/MessageBox.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

using System::UnicodeString;

namespace
{

TEST(FileNamesTest, JudgesCharacters)
{
    for (const char16_t c : std::u16string(u"\r\n\\/:*?\"<>|")) {
        EXPECT_FALSE(BTL::IsFileNameCharValid(c)) << static_cast<int>(c);
        EXPECT_FALSE(BTL::IsFileNameValid(UnicodeString(u"a") + c + u"b"));
    }
    for (const char16_t c : std::u16string(u" .%'{}\t\u00E4\u4E00")) {
        EXPECT_TRUE(BTL::IsFileNameCharValid(c)) << static_cast<int>(c);
    }
}

TEST(FileNamesTest, JudgesNames)
{
    for (const auto& [name, isValid] : {std::pair(u"a.txt", true),
                                        {u"CON", false},
                                        {u"CON.txt", false},
                                        {u"con.txt", true},
                                        {u"CON.a.b", true},
                                        {u"COM0", true},
                                        {u"COM9", false},
                                        {u"LPT1.", false},
                                        {u"XCON", true},
                                        {u"folder\\a", false},
                                        {u"", true}}) {
        EXPECT_EQ(BTL::IsFileNameValid(name), isValid) << UnicodeString(name);
    }
}

TEST(FileNamesTest, ShowsABoxForAnInvalidName)
{
    Support::ScriptedBoxes boxes({IDOK});
    EXPECT_TRUE(BTL::IsFileNameValidOrMessageBox(u"a", u"'%s' is none."));
    EXPECT_FALSE(BTL::IsFileNameValidOrMessageBox(u"a%d?", u"'%s' is none."));
    const auto shown = boxes.TakeShown();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0].box.text, u"'a%d?' is none.");
    EXPECT_EQ(shown[0].box.flags, MB_ICONSTOP);
}

TEST(FileNamesTest, ReplacesInvalidCharacters)
{
    EXPECT_EQ(BTL::GetValidFileName(u"12:30 <run>\r\n|", '_'), u"12_30 _run____");
    EXPECT_EQ(BTL::GetValidFileName(u"a/b", '\xE4'), u"a\u00E4b") << "the code page's character";
    EXPECT_EQ(BTL::GetValidFileName(u"", '_'), u"");
}

TEST(FileNamesTest, TakesTheLastPart)
{
    EXPECT_EQ(BTL::ExtractFileName(u"\\data\\a.b.txt", false), u"a.b.txt");
    EXPECT_EQ(BTL::ExtractFileName(u"\\data\\a.b.txt", true), u"a.b");
    EXPECT_EQ(BTL::ExtractFileName(u"\\da.ta\\a", true), u"a");
    EXPECT_EQ(BTL::ExtractFileName(u"\\data\\", true), u"");
}

TEST(FileNamesTest, KnowsPathsOfTheNet)
{
    for (const auto& [path, isNet] : {std::pair(u"C:\\a", false),
                                      {u"\\\\server\\share", true},
                                      {u"//server/share", true},
                                      {u"\\\\", false},
                                      {u"name", false},
                                      {u"\\a\\b", false},
                                      {u"http://x", true},
                                      {u":x", false},
                                      {u"\\\\?\\C:\\a", true},
                                      {u"\\\\?\\:\\a", false},
                                      {u"\\\\?\\UNC\\server", true},
                                      {u"\\\\?\\", true},
                                      {u"", false}}) {
        EXPECT_EQ(BTL::IsNetPath(path), isNet) << UnicodeString(path);
    }
}

} // namespace
