// SPDX-License-Identifier: MIT
#include "platform/visual/dialogs/Filectrl_SelectDirectory.h"

#include "platform/host/Host_Path.h"
#include "platform/toolkit/MessageBox.h"
#include "support/ScriptedBoxes.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace
{

using namespace Filectrl;
using System::UnicodeString;

class SelectDirectoryTest : public testing::Test
{
protected:
    UnicodeString In(const char* name) const
    {
        return Sysutils::FromHostPath((mFolder.Path() / name).string());
    }

    Support::TempFolder mFolder;
};

TEST_F(SelectDirectoryTest, AsksForAFolder)
{
    Support::ScriptedBoxes toolkit;
    UnicodeString folder;
    toolkit.AnswerFiles({.files = {u"\\data"}, .filterIndex = 0});
    EXPECT_TRUE(SelectDirectory(u"Werte", u"\\home", folder));
    EXPECT_EQ(folder, u"\\data");
    toolkit.AnswerFiles({});
    EXPECT_FALSE(SelectDirectory(u"Werte", u"\\home", folder));
    EXPECT_EQ(folder, u"\\data");
    const auto asked = toolkit.TakeAskedFiles();
    EXPECT_EQ(asked[0].question.kind, Toolkits::EFileQuestion::Folder);
    EXPECT_EQ(asked[0].question.folder, u"\\home");
    EXPECT_EQ(asked[1].question.folder, u"\\data");
}

TEST_F(SelectDirectoryTest, MakesTheFolderOrAsksAgain)
{
    const struct
    {
        const char* name;
        TSelectDirOpts options;
        std::initializer_list<int> boxes;
        bool isTaken;
        bool isMade;
    } cases[] = {
        {"must be there", {}, {IDOK}, false, false},
        {"may be missing", {sdAllowCreate}, {}, true, false},
        {"refused", {sdAllowCreate, sdPerformCreate, sdPrompt}, {IDNO}, false, false},
        {"agreed", {sdAllowCreate, sdPrompt}, {IDYES}, true, false},
        {"made", {sdAllowCreate, sdPerformCreate}, {}, true, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Support::ScriptedBoxes toolkit(c.boxes);
        toolkit.AnswerFiles({.files = {In("a/b")}, .filterIndex = 0});
        toolkit.AnswerFiles({});
        UnicodeString folder = In("");
        EXPECT_EQ(SelectDirectory(folder, c.options, 0), c.isTaken);
        EXPECT_EQ(folder, c.isTaken ? In("a/b") : In(""));
        EXPECT_EQ(std::filesystem::exists(mFolder.Path() / "a" / "b"), c.isMade);
        EXPECT_EQ(toolkit.TakeShown().size(), c.boxes.size());
    }
}

} // namespace
