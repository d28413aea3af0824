// SPDX-License-Identifier: MIT
#include "platform/base/System_Set.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <iterator>

namespace
{

enum EDay
{
    Mon = -1,
    Tue,
    Wed,
    Thu
};

using Days = System::Set<EDay, Mon, Wed>;

static_assert(std::forward_iterator<Days::CIterator>);

TEST(SetTest, HoldsWhatItsBracesHold)
{
    const Days days{Wed, Mon, Mon, Thu};
    EXPECT_EQ(days, Days() << Mon << Wed) << "what lies outside has no effect";
    EXPECT_EQ(days.size(), 2U);
    EXPECT_FALSE(days.empty());
    EXPECT_TRUE(Days{}.empty());
}

TEST(SetTest, IsARangeOfItsValues)
{
    std::vector<EDay> seen;
    std::ranges::copy(Days{Wed, Mon}, std::back_inserter(seen));
    EXPECT_THAT(seen, testing::ElementsAre(Mon, Wed));
    for (const EDay day : Days()) {
        FAIL() << "the empty set holds " << day;
    }
}

} // namespace
