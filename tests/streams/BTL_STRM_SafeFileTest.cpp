// SPDX-License-Identifier: MIT
#include "streams/BTL_STRM_SafeFile.h"

#include "streams/BTL_STRM_StreamUtilities.h"
#include "streams/BTL_STRM_TextWriter.h"
#include "support/ChildProgram.h"
#include "support/FailingCall.h"
#include "support/FileSizeLimit.h"
#include "support/TempFolder.h"

#include <algorithm>
#include <filesystem>
#include <iterator>

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

using BTL::CSafeFile;
using System::UnicodeString;

namespace
{

namespace fs = std::filesystem;

class SafeFileTest : public testing::Test
{
protected:
    fs::path Host(const char* name) const { return mFolder.Path() / name; }
    static System::AnsiString Content(const fs::path& file) { return BTL::LoadStringFromFile(file); }
    std::ptrdiff_t FileCount() const
    {
        return std::distance(fs::directory_iterator(mFolder.Path()), fs::directory_iterator());
    }
    static void Put(CSafeFile& file, const UnicodeString& text)
    {
        BTL::CTextWriter out(file.getStream());
        out.Write(text);
        out.Close();
    }

private:
    Support::TempFolder mFolder;
};

TEST_F(SafeFileTest, TheOldContentStaysUntilTheNewOneIsComplete)
{
    const fs::path path = Host("state");
    BTL::SaveStringToFile(path, "old");
    {
        CSafeFile file(path);
        Put(file, u"new");
        EXPECT_EQ(Content(path), "old");
        file.Commit();
        EXPECT_EQ(Content(path), "new");
        file.Commit();
        EXPECT_EQ(file.getStream()->Write("x", 1), 0) << "nothing behind the end of the work";
    }
    {
        CSafeFile file(path);
        Put(file, u"thrown away");
        EXPECT_EQ(FileCount(), 2);
    }
    EXPECT_EQ(Content(path), "new");
    EXPECT_EQ(FileCount(), 1);
}

TEST_F(SafeFileTest, MayBeTheFirstOfItsName)
{
    for (const bool commits : {false, true}) {
        {
            CSafeFile file(Host("state"));
            Put(file, u"new");
            if (commits) {
                file.Commit();
            }
        }
        EXPECT_EQ(fs::exists(Host("state")), commits);
    }
    struct stat made;
    ASSERT_EQ(stat(Host("state").c_str(), &made), 0);
    const mode_t mask = umask(0);
    umask(mask);
    EXPECT_EQ(made.st_mode & 0777U, 0666U & ~mask);
}

TEST_F(SafeFileTest, KeepsPermissionsAndLinks)
{
    fs::create_directory(Host("folder"));
    BTL::SaveStringToFile(Host("folder/state"), "old");
    fs::permissions(Host("folder/state"), fs::perms(0604));
    fs::create_symlink("folder/state", Host("link"));
    fs::create_symlink(Host("link"), Host("second"));
    CSafeFile file(Host("second"));
    Put(file, u"new");
    file.Commit();
    EXPECT_TRUE(fs::is_symlink(Host("link")));
    EXPECT_TRUE(fs::is_symlink(Host("second")));
    EXPECT_EQ(Content(Host("folder/state")), "new");
    EXPECT_EQ(fs::status(Host("folder/state")).permissions(), fs::perms(0604));
}

TEST_F(SafeFileTest, WritersOfOneFileDontMix)
{
    const fs::path path = Host("state");
    CSafeFile first(path);
    CSafeFile second(path);
    Put(first, u"first");
    Put(second, u"second");
    first.Commit();
    second.Commit();
    EXPECT_EQ(Content(path), "second");
    EXPECT_EQ(FileCount(), 1);
}

TEST_F(SafeFileTest, RefusesWhatIsNoFileToReplace)
{
    const fs::path readOnly = Host("readOnly");
    BTL::SaveStringToFile(readOnly, "old");
    fs::permissions(readOnly, fs::perms(0444));
    fs::create_symlink("circle", Host("circle"));
    ASSERT_EQ(mkfifo(Host("pipe").c_str(), 0666), 0);
    const auto* const device = u"\". It is a device, a pipe or a socket, which no file can take the place of";
    const struct
    {
        fs::path path;
        const char16_t* why;
    } cases[] = {
        {readOnly, u"\". It is read-only"},
        {Host(""), u"\". It is a folder"},
        {"/dev/full", device},
        {Host("pipe"), device},
        {Host("circle"), u"\". "},
        {Host("missing/state"), u"\". "},
        {fs::path(), u"\". "},
    };
    for (const auto& [path, why] : cases) {
        try {
            CSafeFile file{UnicodeString(path)};
            ADD_FAILURE() << path << " was taken";
        } catch (const Classes::EFCreateError& fault) {
            EXPECT_NE(fault.getMessage().Pos(why), 0) << fault.getMessage();
        }
    }
    EXPECT_EQ(FileCount(), 3);
}

TEST_F(SafeFileTest, RefusesAFileWhoseOwnerItCanNotKeep)
{
    if (geteuid() != 0) {
        GTEST_SKIP() << "Only root can give a file away.";
    }
    const fs::path path = Host("state");
    BTL::SaveStringToFile(path, "old");
    // Its content may be changed by everybody, but nobody else can make such a file.
    fs::permissions(path, fs::perms(0666));
    fs::permissions(Host(""), fs::perms(0777));
    EXPECT_EQ(Support::ExitOfFork([&] {
                  if (setgid(65534) != 0 || setuid(65534) != 0) {
                      return 3;
                  }
                  try {
                      CSafeFile file(path);
                  } catch (const Classes::EFCreateError& fault) {
                      return fault.getMessage().Pos(u"\". Its owner can't be kept") != 0 ? 0 : 1;
                  }
                  return 2;
              }),
              0);
    EXPECT_EQ(Content(path), "old");
    EXPECT_EQ(FileCount(), 1);
}

TEST(SafeFileDiskTest, DISABLED_ChildThatFillsTheDisk)
{
    Support::LimitFileSize(100);
    const Support::TempFolder folder;
    const fs::path path = folder.Path() / "state";
    BTL::SaveStringToFile(path, "old");
    try {
        CSafeFile file(path);
        BTL::CTextWriter out(file.getStream());
        out.Write(UnicodeString(std::u16string(101, u'x')));
        out.Close();
        file.Commit();
    } catch (const Classes::EWriteError& fault) {
        const bool namesFile = fault.getMessage().Pos(u"state.new1\". ") != 0;
        const bool isAlone = std::distance(fs::directory_iterator(folder.Path()), {}) == 1;
        Support::PrintResult(std::string(BTL::LoadStringFromFile(path).AsView()) +
                             (namesFile && isAlone ? " stays" : " hidden"));
    }
}

TEST(SafeFileDiskTest, AFullDiskLeavesTheOldFile)
{
    EXPECT_EQ(Support::RunChildTest("SafeFileDiskTest.DISABLED_ChildThatFillsTheDisk"), "old stays");
}

} // namespace
