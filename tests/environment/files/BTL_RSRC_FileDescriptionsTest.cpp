// SPDX-License-Identifier: MIT
#include "environment/files/BTL_RSRC_FileDescriptions.h"

#include "platform/host/Host_Path.h"
#include "support/ProgramImage.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <fstream>

using namespace std::string_literals;

namespace
{

TEST(FileDescriptionsTest, ListsFilesThatHaveVersionData)
{
    const Support::TempFolder folder;
    std::filesystem::create_directory(folder.Path() / "a");
    for (const char* name : {"one.so", "two.txt", "a/three.so"}) {
        std::ofstream(folder.Path() / name, std::ios::binary)
            << Support::ProgramImage("Translation=000004E4\0InternalName="s + name).getBytes();
    }
    std::ofstream(folder.Path() / "none.so") << "no program";
    std::ofstream(folder.Path() / "damaged.so", std::ios::binary)
        << Support::ProgramImage("InternalName=x").getBytes();
    const auto path = Sysutils::FromHostPath(folder.Path().string());
    BTL::CFileList list(1);
    BTL::GetFileDescriptions(path, u"*.so", list, 7);
    ASSERT_EQ(list.size(), 3);
    EXPECT_EQ(list[0].Tag, 0);
    EXPECT_EQ(list[1].InternalName, u"one.so");
    EXPECT_EQ(list[1].File, path + u"\\one.so");
    EXPECT_EQ(list[1].Tag, 7);
    EXPECT_EQ(list[2].InternalName, u"a/three.so");
    EXPECT_EQ(list[2].File, path + u"\\a\\three.so");
    BTL::GetFileDescriptions(path + u"\\gone", u"*", list, 7);
    EXPECT_EQ(list.size(), 3);
}

} // namespace
