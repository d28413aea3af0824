// SPDX-License-Identifier: MIT
#include "text/lists/BTL_STR_Cache.h"

#include <gtest/gtest.h>

#include <utility>

namespace
{

using BTL::GCache;

TEST(CacheTest, BelongsToOneContent)
{
    GCache<int> cache;
    EXPECT_EQ(cache.value, 0);
    cache.value = 7;
    const GCache<int> copy = cache;
    EXPECT_EQ(copy.value, 0);
    EXPECT_EQ(cache.value, 7);
    const GCache<int>& same = cache;
    cache = same;
    EXPECT_EQ(cache.value, 7) << "the content is still the same";
    cache = copy;
    EXPECT_EQ(cache.value, 0);

    cache.value = 7;
    const GCache<int> moved = std::move(cache);
    EXPECT_EQ(moved.value, 0);
    EXPECT_EQ(cache.value, 0) << "the content is gone";
    cache.value = 7;
    GCache<int> target;
    target.value = 7;
    target = std::move(cache);
    EXPECT_EQ(target.value, 0);
    EXPECT_EQ(cache.value, 0);
    target.value = 7;
    target.Forget();
    EXPECT_EQ(target.value, 0);
}

} // namespace
