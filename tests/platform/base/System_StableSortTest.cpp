// SPDX-License-Identifier: MIT
#include "platform/base/System_StableSort.h"

#include <memory>
#include <numeric>
#include <random>
#include <stdexcept>

#include <gtest/gtest.h>

namespace
{

using Keys = std::vector<int>;

/// Items that know where they were, and that a move leaves empty.
struct Item
{
    int key;
    std::unique_ptr<int> place;
};

std::vector<Item> ItemsOf(const Keys& keys)
{
    std::vector<Item> items;
    for (const int key : keys) {
        items.push_back({key, std::make_unique<int>(static_cast<int>(items.size()))});
    }
    return items;
}

/// The places, sorted; an item that is missing or twice there shows.
Keys SortedPlaces(const std::vector<Item>& items)
{
    Keys places;
    for (const Item& item : items) {
        places.push_back(item.place == nullptr ? -1 : *item.place);
    }
    std::sort(places.begin(), places.end());
    return places;
}

Keys UpTo(std::size_t count)
{
    Keys places(count);
    std::iota(places.begin(), places.end(), 0);
    return places;
}

bool ByKey(const Item& a, const Item& b)
{
    return a.key < b.key;
}

bool ByKeyAndPlace(const Item& a, const Item& b)
{
    return std::pair(a.key, *a.place) < std::pair(b.key, *b.place);
}

Keys RandomKeys(std::mt19937& random, std::size_t count)
{
    Keys keys(count);
    std::generate(keys.begin(), keys.end(), [&] { return static_cast<int>(random() % (count / 2 + 1)); });
    return keys;
}

constexpr std::size_t Sizes[] = {0, 1, 2, 3, 11, 12, 13, 24, 25, 100, 1000};

TEST(StableSortTest, SortsAndKeepsTheOrderOfEqualItems)
{
    std::mt19937 random(1);
    for (const std::size_t count : Sizes) {
        SCOPED_TRACE(count);
        const Keys mixed = RandomKeys(random, count);
        Keys ascending = mixed;
        std::sort(ascending.begin(), ascending.end());
        for (const Keys& keys :
             {mixed, ascending, Keys(ascending.rbegin(), ascending.rend()), Keys(count, 7)}) {
            std::vector<Item> items = ItemsOf(keys);
            System::StableSort(std::span(items), ByKey);
            EXPECT_TRUE(std::is_sorted(items.begin(), items.end(), ByKeyAndPlace));
            EXPECT_EQ(SortedPlaces(items), UpTo(count));
        }
    }
}

TEST(StableSortTest, MergesTwoSortedParts)
{
    std::mt19937 random(2);
    for (const std::size_t middle : Sizes) {
        for (const std::size_t count : {middle, middle + 1, 2 * middle + 5}) {
            std::vector<Item> items = ItemsOf(RandomKeys(random, count));
            System::StableSort(std::span(items).first(middle), ByKey);
            System::StableSort(std::span(items).subspan(middle), ByKey);
            System::StableMerge(std::span(items), middle, ByKey);
            EXPECT_TRUE(std::is_sorted(items.begin(), items.end(), ByKey)) << middle << " of " << count;
            EXPECT_EQ(SortedPlaces(items), UpTo(count));
        }
    }
}

TEST(StableSortTest, LosesNothingByAnOrderThatContradictsItself)
{
    std::mt19937 random(3);
    for (const std::size_t count : Sizes) {
        const auto isKept = [&](auto less) {
            std::vector<Item> items = ItemsOf(UpTo(count));
            System::StableSort(std::span(items), less);
            System::StableMerge(std::span(items), count / 3, less);
            return SortedPlaces(items) == UpTo(count);
        };
        EXPECT_TRUE(isKept([](const Item&, const Item&) { return true; })) << count;
        EXPECT_TRUE(isKept([](const Item& a, const Item& b) { return a.key != b.key; })) << count;
        for (int i = 0; i < 20; ++i) {
            EXPECT_TRUE(isKept([&](const Item&, const Item&) { return random() % 2 == 0; })) << count;
        }
    }
}

TEST(StableSortTest, LosesNothingByAnOrderThatRaises)
{
    std::mt19937 random(4);
    for (const std::size_t count : {2U, 12U, 30U, 100U}) {
        for (int calls = 0; calls < 300; ++calls) {
            std::vector<Item> items = ItemsOf(RandomKeys(random, count));
            int left = calls;
            const auto less = [&](const Item& a, const Item& b) {
                return left-- > 0 ? ByKey(a, b) : throw std::runtime_error("no answer");
            };
            try {
                System::StableSort(std::span(items), less);
            } catch (const std::runtime_error&) {
            }
            EXPECT_EQ(SortedPlaces(items), UpTo(count)) << calls;
        }
    }
}

} // namespace
