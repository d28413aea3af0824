// SPDX-License-Identifier: MIT
#include "languages/WIN_ErrorTexts.h"

#include "environment/folders/BTL_ENV_Folders.h"
#include "os/WIN_LastError.h"
#include "support/ChildProgram.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <fstream>

namespace
{

/// The messages of the codes that matter, as a program in `folder` tells them.
std::string MessagesOf(const Support::TempFolder& folder)
{
    std::filesystem::create_directories(folder.Path() / "Bin");
    return Support::RunChildTest("ErrorTextsTest.DISABLED_TellsMessages", folder.Path() / "Bin" / "program");
}

TEST(ErrorTextsTest, DISABLED_TellsMessages)
{
    const WIN::XWinError error(31, u"ShellExecute", u"a.txt");
    Support::PrintResult(System::ToUtf8(WIN::GetErrorMessage(5, u"ShellExecute") + u'|' + error.getMessage() +
                                        u'|' + WIN::GetErrorMessage(5, u"Other") + u'|' +
                                        WIN::GetErrorMessage(4294967295UL, u"ShellExecute")));
    EXPECT_EQ(WIN::GetErrorMessage(5, System::UnicodeString()), WIN::GetErrorMessage(5));
    EXPECT_EQ(WIN::GetErrorMessage(5, u"ShellExecute"), WIN::ReadErrorText(5, u"ShellExecute"));
}

TEST(ErrorTextsTest, TellsThatTheFileIsMissing)
{
    const Support::TempFolder folder;
    const std::string missing = "WIN-Error-IDS File is missing.";
    EXPECT_EQ(MessagesOf(folder), missing + '|' + missing + "\na.txt|" + missing + '|' + missing);
}

TEST(ErrorTextsTest, ReadsTheTextOfTheContext)
{
    const Support::TempFolder folder;
    std::filesystem::create_directories(folder.Path() / "ProgramData/IDS");
    std::ofstream(folder.Path() / "ProgramData/IDS/WIN_Error_German.ids")
        << "[ShellExecute]\n31=Kein Programm\\nhier\n000000005=nine digits\n[Other]\n5=Zugriff\n";
    EXPECT_EQ(MessagesOf(folder), "Unexpected error 5 in ShellExecute.|Kein Programm\nhier\na.txt|Zugriff|"
                                  "Unexpected error -1 in ShellExecute.");
}

TEST(ErrorTextsTest, SpeaksTheLanguageOfItsFolder)
{
    const auto textOf = [](const System::UnicodeString& path) {
        WIN::SetErrorTextPath(path);
        return WIN::GetErrorMessage(2, u"ShellExecute");
    };
    EXPECT_EQ(textOf(BTL::GetProgramIDSPath() + u"English\\"), u"The file doesn't exist.");
    EXPECT_EQ(textOf(BTL::GetProgramIDSPath() + u"German\\"), u"Die Datei ist nicht vorhanden.");
    EXPECT_EQ(textOf(u"none\\"), u"WIN-Error-IDS File is missing.");
    EXPECT_EQ(textOf({}), u"Die Datei ist nicht vorhanden.");
}

} // namespace
