// SPDX-License-Identifier: MIT
#include "environment/files/BTL_SYS_Files.h"

#include "languages/BTL_I18N_Texts.h"
#include "platform/base/Sysutils_Exception.h"
#include "platform/host/Host_FileSupport.h"
#include "platform/runtime/sysutils/Sysutils_File.h"
#include "platform/toolkit/MessageBox.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

using BTL::EIDS;
using BTL::Gi18n;
using System::UnicodeString;

namespace
{

namespace fs = std::filesystem;

using FilesTest = Support::FolderTest;

TEST_F(FilesTest, TellsOfMissingFiles)
{
    Write("f", "12345");
    Support::ScriptedBoxes boxes({IDOK});
    EXPECT_TRUE(BTL::FileExists(Name(u"f")));
    EXPECT_FALSE(BTL::FileExists(Name(u"")));
    EXPECT_TRUE(BTL::FileExistsEx(Name(u"f"), true));
    EXPECT_FALSE(BTL::FileExistsEx(Name(u"gone"), false));
    EXPECT_FALSE(BTL::FileExistsEx(Name(u"gone"), true));
    const auto shown = boxes.TakeShown();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0].box.text, Gi18n::GetString_VA(EIDS::FileNotFoundBox, Name(u"gone")));
    EXPECT_EQ(shown[0].box.flags, MB_ICONSTOP);

    EXPECT_NO_THROW(BTL::CheckFileExists(Name(u"f")));
    try {
        BTL::CheckFileExists(Name(u"gone"));
        ADD_FAILURE() << "nothing raised";
    } catch (const Sysutils::Exception& fault) {
        EXPECT_EQ(fault.getMessage(), Gi18n::GetString_VA(EIDS::FileNotFound, Name(u"gone")));
    }
    EXPECT_EQ(BTL::GetFileSize(Name(u"f")), 5);
    EXPECT_THROW(static_cast<void>(BTL::GetFileSize(Name(u"gone"))), Sysutils::Exception);
}

TEST_F(FilesTest, PathsExist)
{
    Write("f", "");
    Write(".hidden", "");
    fs::create_directory(Host("d"));
    fs::create_directory_symlink("nowhere", Host("broken"));
    mkfifo(Host("pipe").c_str(), 0666);
    for (const char16_t* const name : {u"f", u"f\\", u".hidden", u"d", u"d\\", u"d/", u"broken", u"?"}) {
        EXPECT_TRUE(BTL::PathExists(Name(name))) << UnicodeString(name);
    }
    for (const char16_t* const name : {u"gone", u"pipe", u"gone\\f", u"d\\x*"}) {
        EXPECT_FALSE(BTL::PathExists(Name(name))) << UnicodeString(name);
    }
    EXPECT_TRUE(BTL::PathExists(u"\\"));
    EXPECT_TRUE(BTL::PathExists(u"C:\\"));
    EXPECT_FALSE(BTL::PathExists(u"Q:\\"));
    EXPECT_FALSE(BTL::PathExists(u""));
}

TEST_F(FilesTest, SwitchesAttributes)
{
    Write("f", "");
    EXPECT_EQ(BTL::FileSetAttrOn(Name(u"f"), Sysutils::faReadOnly), 0);
    EXPECT_TRUE(Sysutils::FileIsReadOnly(Name(u"f")));
    EXPECT_EQ(BTL::FileSetAttrOn(Name(u"f"), 0), 0);
    EXPECT_TRUE(Sysutils::FileIsReadOnly(Name(u"f")));
    EXPECT_EQ(BTL::FileSetAttrOff(Name(u"f"), Sysutils::faReadOnly), 0);
    EXPECT_FALSE(Sysutils::FileIsReadOnly(Name(u"f")));
    EXPECT_EQ(BTL::FileSetAttrOn(Name(u"gone"), 1), 2);
    EXPECT_EQ(BTL::FileSetAttrOff(Name(u"gone"), 1), 2);
}

TEST_F(FilesTest, DeletesByConsentAlone)
{
    Write("f", "");
    Support::ScriptedBoxes boxes({IDNO, IDYES, IDYES});
    EXPECT_FALSE(BTL::DeleteFileW(Name(u"f")));
    EXPECT_TRUE(fs::exists(Host("f")));
    EXPECT_TRUE(BTL::DeleteFileW(Name(u"f")));
    EXPECT_FALSE(fs::exists(Host("f")));
    EXPECT_FALSE(BTL::DeleteFileW(Name(u"f")));
    const auto shown = boxes.TakeShown();
    ASSERT_EQ(shown.size(), 3U);
    EXPECT_EQ(shown[0].box.flags, 36U);
    EXPECT_EQ(shown[0].box.text, Gi18n::GetString_VA(EIDS::DeleteFile, Name(u"f")));
}

} // namespace
