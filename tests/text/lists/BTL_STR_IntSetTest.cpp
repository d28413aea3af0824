// SPDX-License-Identifier: MIT
#include "text/lists/BTL_STR_IntSet.h"
#include "platform/runtime/classes/Classes.h"
#include "platform/runtime/sysutils/Sysutils_File.h"
#include "support/TempFolder.h"

#include <climits>
#include <fstream>
#include <iterator>
#include <limits>

#include <gmock/gmock.h>

namespace
{

using namespace BTL;
using System::Int64;
using System::UnicodeString;

TEST(IntSetTest, FindsTheNextFreeValue)
{
    const struct
    {
        std::vector<int> values;
        int start;
        int free;
    } cases[] = {
        {{}, 5, 5},
        {{1, 2, 4}, 1, 3},
        {{1, 2, 4}, 5, 5},
        {{1, 2, 4}, 4, 5},
        {{1, 2, 4}, 0, 0},
        {{1, 2}, 1, 3},
        {{1, 2}, 9, 3},
        {{-2, -1, 0}, -2, 1},
        {{1, INT_MAX}, 1, 2},
        {{INT_MIN, INT_MAX}, INT_MIN, INT_MIN + 1},
        {{INT_MAX - 1, INT_MAX}, INT_MAX - 1, INT_MAX - 2},
        {{INT_MAX}, INT_MAX, INT_MAX - 1},
    };
    for (const auto& test : cases) {
        const CIntSet set(test.values.data(), static_cast<int>(test.values.size()));
        EXPECT_EQ(set.NextFreeValue(test.start), test.free) << testing::PrintToString(test.values);
    }
    EXPECT_FALSE(CIntSet(nullptr, 3).Contains(0));
}

TEST(IntSetTest, SavesItsValues)
{
    const Support::TempFolder folder;
    const auto path = folder.Path() / "set.txt";
    const UnicodeString name = Sysutils::FromHostPath(path.string());
    const auto content = [&] {
        std::ifstream file(path, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    };
    const int values[] = {3, 1, 2};
    CIntSet(values, 3).SaveToFile(name);
    EXPECT_EQ(content(), "1,2,3");
    const Int64 wide[] = {std::numeric_limits<Int64>::min(), 0};
    CInt64Set(wide, 2).SaveToFile(name);
    EXPECT_EQ(content(), "-9223372036854775808,0");
    CIntSet().SaveToFile(name);
    EXPECT_EQ(content(), "");
    EXPECT_THROW(CIntSet().SaveToFile(name + u"\\x"), Classes::EFCreateError);
}

TEST(IntSetTest, IsMadeOfValues)
{
    const CIntSet set = {3, 1, 3};
    const std::vector<int> values = {3, 1};
    EXPECT_EQ(set, CIntSet(values));
    EXPECT_THAT(set, testing::ElementsAre(1, 3));
    EXPECT_EQ(CInt64Set{7}.NextFreeValue(7), 8);
}

} // namespace
