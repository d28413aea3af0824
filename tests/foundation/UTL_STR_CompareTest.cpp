// SPDX-License-Identifier: MIT
#include "foundation/UTL_STR_Compare.h"

#include "foundation/PlainTextSupport.h"

#include <gtest/gtest.h>

namespace
{

template <class S>
using StringCompareTest = Support::PlainText<S>;
TYPED_TEST_SUITE(StringCompareTest, Support::PlainTextWidths);

TYPED_TEST(StringCompareTest, ComparesTextsAndNulls)
{
    const struct
    {
        const char* a;
        const char* b;
        int count;
        bool equal;
        bool equalIgnoringCase;
        bool less;
    } cases[] = {
        {"abc", "abd", 2, true, true, false},     {"abc", "abd", 3, false, false, true},
        {"abc", "ABD", 2, false, true, false},    {"abc", "ab", 9, false, false, false},
        {"ab", "abc", 9, false, false, true},     {"abc", "xyz", 0, true, true, false},
        {"abc", "ABC", -1, false, true, false},   {"z", "\xE4", 1, false, false, true},
        {"\xE4", "\xC4", 1, false, false, false}, {"[", "{", 1, false, false, true},
    };
    for (const auto& c : cases) {
        const TypeParam a = this->T(c.a);
        const TypeParam b = this->T(c.b);
        EXPECT_EQ(UTL::IsEqual(a.c_str(), b.c_str(), c.count), c.equal) << c.a << ' ' << c.b;
        EXPECT_EQ(UTL::IsIEqual(a.c_str(), b.c_str(), c.count), c.equalIgnoringCase) << c.a << ' ' << c.b;
        EXPECT_EQ(UTL::IsLess(a.c_str(), b.c_str(), c.count), c.less) << c.a << ' ' << c.b;
    }
    const TypeParam empty = this->T("");
    const TypeParam text = this->T("x");
    EXPECT_TRUE(UTL::IsEqual(text.c_str(), this->T("x").c_str()));
    EXPECT_FALSE(UTL::IsEqual(text.c_str(), this->T("xy").c_str()));
    EXPECT_TRUE(UTL::IsLess(text.c_str(), this->T("xy").c_str()));
    EXPECT_FALSE(UTL::IsEqual(this->Null, empty.c_str()));
    EXPECT_TRUE(UTL::IsEqual(this->Null, this->Null));
    EXPECT_TRUE(UTL::IsEqual(this->Null, this->Null, 3));
    EXPECT_FALSE(UTL::IsIEqual(empty.c_str(), this->Null, 0));
    EXPECT_TRUE(UTL::IsLess(this->Null, this->Null));
    EXPECT_TRUE(UTL::IsLess(this->Null, empty.c_str(), 1));
    EXPECT_FALSE(UTL::IsLess(empty.c_str(), this->Null));
}

} // namespace
