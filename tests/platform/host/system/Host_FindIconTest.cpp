// SPDX-License-Identifier: MIT
#include "platform/host/system/Host_FindIcon.h"

#include "platform/host/Host_Error.h"
#include "platform/host/Host_Path.h"
#include "support/ScopedVariable.h"
#include "support/Script.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace
{

using Support::ScopedVariable;
using System::UnicodeString;
using Sysutils::FromHostPath;

/// A desktop with a type that has a picture, one whose program has, one whose program names a file, and one
/// of which nobody knows anything.
class FindIconTest : public testing::Test
{
protected:
    FindIconTest()
    {
        Support::WriteScript(
            mFolder.Path() / "xdg-mime",
            "case \"$2 $3\" in filetype*.pic) echo x/pic;; filetype*.app) echo x/app;;\n"
            "filetype*.own) echo x/own;; filetype*.out) echo x/out;; filetype*) echo x/none;;\n"
            "'default x/app') echo app.desktop;; 'default x/own') echo own.desktop;;\n"
            "'default x/out') echo out.desktop;; esac");
        Write("data/icons/hicolor/48x48/mimetypes/x-pic.png");
        Write("data/icons/hicolor/16x16/apps/viewer.png");
        Write("data/icons/hicolor/32x32/apps/viewer.png");
        Write("data/pixmaps/drawer.png");
        Write("own/logo.png");
        Write("data/icons/out.png");
        Describe("app", "viewer");
        Describe("own", (mFolder.Path() / "own/logo.png").string());
        Describe("out", "../../../out");
        for (const char* const name : {"a.pic", "a.app", "a.own", "a.out", "a.none"}) {
            Write(name);
        }
        for (const char* const name : {"viewer", "drawer", "unknown"}) {
            Support::WriteScript(mFolder.Path() / name, "");
        }
    }

    void Write(const std::filesystem::path& name, const std::string& text = "x") const
    {
        std::filesystem::create_directories((mFolder.Path() / name).parent_path());
        std::ofstream(mFolder.Path() / name) << text;
    }
    void Describe(const std::string& name, const std::string& icon) const
    {
        Write("data/applications/" + name + ".desktop", "[Desktop Entry]\nExec=x\nIcon=" + icon + "\n");
    }
    UnicodeString PathOf(const std::string& name) const
    {
        return FromHostPath((mFolder.Path() / name).string());
    }

    Support::TempFolder mFolder;
    ScopedVariable mPath{"PATH", mFolder.Path().string() + ":" + std::getenv("PATH")};
    ScopedVariable mData{"XDG_DATA_HOME", mFolder.Path() / "data"};
    ScopedVariable mShared{"XDG_DATA_DIRS", mFolder.Path() / "none"};
};

TEST_F(FindIconTest, FollowsTheDesktop)
{
    for (const auto& [file, picture] : {std::pair("a.pic", "data/icons/hicolor/48x48/mimetypes/x-pic.png"),
                                        {"a.app", "data/icons/hicolor/32x32/apps/viewer.png"},
                                        {"a.own", "own/logo.png"},
                                        {"viewer", "data/icons/hicolor/32x32/apps/viewer.png"},
                                        {"drawer", "data/pixmaps/drawer.png"}}) {
        EXPECT_EQ(Host::FindIcon(PathOf(file)), PathOf(picture)) << file;
    }
}

TEST_F(FindIconTest, TellsWhatHasNone)
{
    for (const auto& [file, error] : {std::pair("a.none", ERROR_NOT_FOUND),
                                      {"a.out", ERROR_NOT_FOUND},
                                      {"unknown", ERROR_NOT_FOUND},
                                      {"a.gone", ERROR_FILE_NOT_FOUND}}) {
        SetLastError(0);
        EXPECT_EQ(Host::FindIcon(PathOf(file)), u"") << file;
        EXPECT_EQ(GetLastError(), error) << file;
    }
    EXPECT_EQ(Host::FindIcon(UnicodeString()), u"");
}

} // namespace
