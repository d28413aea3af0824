// SPDX-License-Identifier: MIT
#include "platform/host/system/Host_FindExecutable.h"

#include "platform/host/Host_Path.h"
#include "support/ScopedVariable.h"
#include "support/Script.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace
{

using Support::ScopedVariable;
using System::UnicodeString;
using Sysutils::FromHostPath;

/// A desktop whose register of types knows the endings "view" and "gone".
class FindExecutableTest : public testing::Test
{
protected:
    FindExecutableTest()
    {
        std::filesystem::create_directories(mFolder.Path() / "data/applications/vendor");
        Support::WriteScript(mFolder.Path() / "xdg-mime",
                             "test \"$1\" = query || exit 1\n"
                             "case \"$2 $3\" in filetype*.view) echo x/view;; filetype*.gone) echo x/gone;;\n"
                             "filetype*) echo x/none;; 'default x/view') echo vendor-viewer.desktop;;\n"
                             "'default x/gone') echo gone.desktop;; esac");
        Support::WriteScript(mFolder.Path() / "viewer", "");
        std::ofstream(mFolder.Path() / "data/applications/vendor/viewer.desktop")
            << "[Desktop Entry]\nExec=viewer %f\n";
        std::ofstream(mFolder.Path() / "data/applications/gone.desktop")
            << "[Desktop Entry]\nExec=/no/such/program %f\n";
        for (const char* const name : {"a b.view", "-a.view", "a.gone", "a.none"}) {
            std::ofstream(mFolder.Path() / name) << "x";
        }
    }

    System::NativeInt Find(const char* name, UnicodeString& program) const
    {
        return Host::FindExecutable(FromHostPath((mFolder.Path() / name).string()), UnicodeString(), program);
    }

    Support::TempFolder mFolder;
    ScopedVariable mPath{"PATH", mFolder.Path().string() + ":" + std::getenv("PATH")};
    ScopedVariable mData{"XDG_DATA_HOME", mFolder.Path() / "data"};
    ScopedVariable mShared{"XDG_DATA_DIRS", nullptr};
};

TEST_F(FindExecutableTest, FollowsTheAssociations)
{
    const UnicodeString viewer = FromHostPath((mFolder.Path() / "viewer").string());
    for (const char* const name : {"a b.view", "-a.view", "viewer"}) {
        UnicodeString program;
        EXPECT_GT(Find(name, program), 32) << name;
        EXPECT_EQ(program, viewer) << name;
    }
    UnicodeString program;
    EXPECT_GT(Host::FindExecutable(u"-a.view", FromHostPath(mFolder.Path().string()), program), 32);
    EXPECT_EQ(program, viewer);
}

TEST_F(FindExecutableTest, TellsWhatIsMissing)
{
    const std::pair<const char*, int> cases[] = {
        {"a.none", 31}, {"a.gone", 31}, {"x.view", 2}, {"no/x.view", 3}};
    for (const auto& [name, result] : cases) {
        UnicodeString program = u"stays";
        EXPECT_EQ(Find(name, program), result) << name;
        EXPECT_EQ(program, u"stays") << name;
    }
    UnicodeString program;
    EXPECT_EQ(Host::FindExecutable(UnicodeString(), UnicodeString(), program), 2);
}

TEST_F(FindExecutableTest, BearsARegisterThatFails)
{
    UnicodeString program;
    Support::WriteScript(mFolder.Path() / "xdg-mime", "echo x/view; exit 4");
    EXPECT_EQ(Find("a b.view", program), 31);
    Support::WriteScript(mFolder.Path() / "xdg-mime", "echo ../../x");
    EXPECT_EQ(Find("a b.view", program), 31);
    mPath.Set("/no/such/folder");
    EXPECT_EQ(Find("a b.view", program), 31);
}

} // namespace
