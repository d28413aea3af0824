// SPDX-License-Identifier: MIT
#include "text/lists/internal/BTL_STR_TextIndex.h"

#include <gtest/gtest.h>

#include <map>
#include <random>

namespace
{

using System::Int64;
using System::UnicodeString;

TEST(TextIndexTest, HoldsWhatAMapHolds)
{
    std::mt19937 random(1);
    for (const int texts : {1, 10, 1'000, 100'000}) {
        BTL::CTextIndex index;
        std::map<UnicodeString, Int64> model;
        EXPECT_EQ(index.Find(u""), nullptr);
        for (int step = 0; step < 5'000; ++step) {
            const auto number = static_cast<int>(random() % static_cast<unsigned>(texts));
            const UnicodeString text = number == 0 ? UnicodeString() : UnicodeString(number);
            const auto found = model.find(text);
            const Int64* const value = index.Find(text);
            ASSERT_EQ(value != nullptr, found != model.end()) << text;
            if (value != nullptr) {
                ASSERT_EQ(*value, found->second);
            }
            index.Set(text, step);
            model[text] = step;
        }
        for (const auto& [text, value] : model) {
            ASSERT_EQ(*index.Find(text), value);
        }
    }
}

} // namespace
