// SPDX-License-Identifier: MIT
#include "foundation/UTL_STR_Utilities.h"

#include "foundation/PlainTextSupport.h"
#include "platform/host/Host_Path.h"
#include "support/MemoryLimit.h"
#include "support/TempFolder.h"

#include <climits>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <memory>

namespace
{

template <class S>
using StringUtilitiesTest = Support::PlainText<S>;
TYPED_TEST_SUITE(StringUtilitiesTest, Support::PlainTextWidths);

TYPED_TEST(StringUtilitiesTest, StrnewdupMakesRoom)
{
    using Char = typename TypeParam::CharType;
    const TypeParam text = this->T("abc");
    const std::unique_ptr<Char[]> same(UTL::strnewdup(text.c_str(), 2));
    EXPECT_EQ(TypeParam(same.get()), text);
    const std::unique_ptr<Char[]> roomy(UTL::strnewdup(text.c_str(), 100));
    EXPECT_EQ(TypeParam(roomy.get()), text);
    EXPECT_TRUE(std::all_of(roomy.get() + 3, roomy.get() + 100, [](Char c) { return c == 0; }));
    const std::unique_ptr<Char[]> empty(UTL::strnewdup(this->Null, 0));
    EXPECT_EQ(empty[0], 0);
}

TEST(FileExistsTest, FindsFilesOnly)
{
    const Support::TempFolder folder;
    const auto path = [](const std::filesystem::path& host) { return Sysutils::FromHostPath(host.string()); };
    std::ofstream(folder.Path() / "a.txt") << "a";
    EXPECT_TRUE(UTL::FileExists(path(folder.Path() / "a.txt")));
    EXPECT_FALSE(UTL::FileExists(path(folder.Path() / "b.txt")));
    EXPECT_FALSE(UTL::FileExists(path(folder.Path())));
    EXPECT_FALSE(UTL::FileExists(u""));
}

using StrnewdupMemoryTest = Support::OutOfMemoryTest;

TEST_F(StrnewdupMemoryTest, RaisesForTooMuchRoom)
{
    EXPECT_TRUE(Support::RaisesOutOfMemory([] { delete[] UTL::strnewdup("a", UINT_MAX); }));
    EXPECT_TRUE(Support::RaisesOutOfMemory([] { delete[] UTL::strnewdup(u"a", UINT_MAX); }));
}

} // namespace
