// SPDX-License-Identifier: MIT
#include "text/lists/BTL_STR_IntSet.h"
#include "platform/runtime/classes/Classes.h"
#include "platform/runtime/sysutils/Sysutils_File.h"
#include "support/TempFolder.h"

#include <climits>
#include <fstream>
#include <iterator>
#include <limits>
#include <random>
#include <set>
#include <utility>

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

/// What the rule says word by word.
int ExpectedFreeValue(const std::set<int>& values, int start)
{
    if (values.empty()) {
        return start;
    }
    const int max = *values.rbegin();
    for (int value = start; value < max; ++value) {
        if (!values.contains(value)) {
            return value;
        }
    }
    return max + 1;
}

TEST(IntSetTest, FindsTheNextFreeValueAfterAnyChange)
{
    std::mt19937 random(1);
    for (int round = 0; round < 200; ++round) {
        CIntSet set;
        std::set<int> model;
        const auto ask = [&](int start) {
            const int value = set.NextFreeValue(start);
            ASSERT_EQ(value, ExpectedFreeValue(model, start))
                << testing::PrintToString(model) << " from " << start;
        };
        for (int step = 0; step < 100; ++step) {
            const int value = static_cast<int>(random() % 20);
            switch (random() % 16) {
            case 0:
                set.erase(value);
                model.erase(value);
                break;
            case 1:
                if (!model.empty()) {
                    set.erase(set.begin());
                    model.erase(model.begin());
                }
                break;
            case 2:
                set.extract(value);
                model.extract(value);
                break;
            case 3: {
                CIntSet other = {value, value + 1};
                set.swap(other);
                other.NextFreeValue(0);
                set.merge(other);
                model.insert({value, value + 1});
                EXPECT_EQ(other.NextFreeValue(value), ExpectedFreeValue(other, value));
                break;
            }
            case 4:
                std::erase_if(set, [value](int other) { return other == value; });
                model.erase(value);
                break;
            case 5: {
                CIntSet moved = std::move(set);
                EXPECT_EQ(moved.NextFreeValue(0), ExpectedFreeValue(model, 0));
                set = CIntSet{value};
                set.NextFreeValue(0);
                set = moved;
                break;
            }
            case 6:
                if (step % 8 == 0) {
                    set.clear();
                    model.clear();
                }
                break;
            default:
                set.insert(value);
                model.insert(value);
            }
            ask(0);
            if (random() % 4 == 0) {
                ask(value);
            }
        }
    }
}

TEST(IntSetTest, TakesOneFreeValueAfterTheOther)
{
    constexpr int count = 100'000;
    CIntSet set = {5, count + 1'000};
    for (int i = 0; i < count; ++i) {
        set.insert(set.NextFreeValue(1));
    }
    EXPECT_EQ(set.NextFreeValue(1), count + 2);
    EXPECT_EQ(set.size(), static_cast<std::size_t>(count + 2));
}

} // namespace
