// SPDX-License-Identifier: MIT
#include "platform/host/system/internal/Host_DesktopEntry.h"

#include <gtest/gtest.h>

namespace
{

TEST(HostDesktopEntryTest, FindsTheProgramOfTheCommand)
{
    const std::pair<const char*, const char*> cases[] = {
        {"", ""},
        {"Exec=outside\n", ""},
        {"[Desktop Entry]\nName=x\nExec=view %f\n", "view"},
        {"# c\n\n[Desktop Entry]\r\nExec = /opt/a/view\t--new %U\r\n", "/opt/a/view"},
        {"[Desktop Entry]\nTryExec=no\nExec=\"/opt/with blank/view\" %f", "/opt/with blank/view"},
        {R"([Desktop Entry]
Exec="/opt/a\\"b\\\\c/\\$d" %f)",
         R"(/opt/a"b\c/$d)"},
        {"[Desktop Entry]\nExec=a\\sb", "a"},
        {"[Desktop Action new]\nExec=other\n[Desktop Entry]\nExec=view\n", "view"},
        {"[Desktop Entry]\nName=x\n[Desktop Action new]\nExec=other\n", ""},
        {"[Desktop Entry]\nExec=\"open end", "open end"},
        {"[Desktop Entry]\nExec=\n", ""},
        {"[Desktop Entry]\nExec=tail\\", "tail\\"}};
    for (const auto& [text, program] : cases) {
        EXPECT_EQ(Host::ProgramOfEntry(text), program) << text;
    }
}

TEST(HostDesktopEntryTest, TurnsIdentifiersIntoPaths)
{
    using Paths = std::vector<std::string>;
    EXPECT_EQ(Host::PathsOfEntry("view.desktop"), Paths{"view.desktop"});
    EXPECT_EQ(Host::PathsOfEntry("kde-a-b.desktop"),
              (Paths{"kde-a-b.desktop", "kde/a-b.desktop", "kde/a/b.desktop"}));
    for (const std::string& id : {std::string(), std::string("../x"), std::string("..-x"),
                                  std::string("a-..-..-x"), std::string("/x"), std::string(300, '-')}) {
        EXPECT_TRUE(Host::PathsOfEntry(id).empty()) << id;
    }
}

} // namespace
