// SPDX-License-Identifier: MIT
#include "platform/host/profile/internal/Host_ProfileIndex.h"

#include <gtest/gtest.h>

#include <map>
#include <random>

namespace
{

using Host::ProfileIndex;
using Host::ProfilePlace;

auto At(const ProfilePlace& wanted)
{
    return [wanted](const ProfilePlace& place) { return place == wanted; };
}

TEST(ProfileIndexTest, AnEmptyOneHasNothing)
{
    ProfileIndex index;
    EXPECT_EQ(index.Find(1, At({0, 0})), nullptr);
    index.Remove(1, At({0, 0}));
    EXPECT_EQ(index.Find(1, At({0, 0})), nullptr);
}

TEST(ProfileIndexTest, KeysOfOneHashAreToldApart)
{
    ProfileIndex index;
    for (std::uint32_t i = 0; i < 100; ++i) {
        index.Add(7, {1, i});
    }
    for (std::uint32_t i = 0; i < 100; ++i) {
        const ProfilePlace* const found = index.Find(7, At({1, i}));
        ASSERT_NE(found, nullptr);
        EXPECT_EQ(*found, (ProfilePlace{1, i}));
    }
    EXPECT_EQ(index.Find(7, At({2, 0})), nullptr);
    EXPECT_EQ(index.Find(8, At({1, 0})), nullptr);
}

TEST(ProfileIndexTest, KeepsTheOthersWhereSomeAreRemoved)
{
    ProfileIndex index;
    // Few hashes, so that most entries stand away from their own slot.
    const auto hashOf = [](std::uint32_t line) { return std::size_t{line % 5} * 3 + 0xFFFFFFFC; };
    std::map<std::uint32_t, bool> lines;
    std::mt19937 random(1);
    for (int i = 0; i < 5000; ++i) {
        const std::uint32_t line = random() % 300;
        bool& isIn = lines[line];
        if (isIn) {
            index.Remove(hashOf(line), At({0, line}));
        } else {
            index.Add(hashOf(line), {0, line});
        }
        isIn = !isIn;
        if (i % 100 == 0) {
            for (const auto& [number, isExpected] : lines) {
                ASSERT_EQ(index.Find(hashOf(number), At({0, number})) != nullptr, isExpected)
                    << number << " after " << i;
            }
        }
    }
}

} // namespace
