// SPDX-License-Identifier: MIT
#include "foundation/UTL_STR_Find.h"

#include "foundation/PlainTextSupport.h"
#include "foundation/UTL_ASRT_Assert.h"
#include "platform/toolkit/MessageBox.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

#include <climits>

namespace
{

template <class S>
using StringFindTest = Support::PlainText<S>;
TYPED_TEST_SUITE(StringFindTest, Support::PlainTextWidths);

TYPED_TEST(StringFindTest, FindsCharactersFromAStart)
{
    using Char = typename TypeParam::CharType;
    const TypeParam text = this->T("aabca");
    const struct
    {
        int start;
        int a;
        int notA;
        int bOrC;
    } cases[] = {{0, 0, 2, 2},   {1, 1, 2, 2},    {2, 4, 2, 2},    {3, 4, 3, 3},
                 {4, 4, -1, -1}, {5, -1, -1, -1}, {6, -1, -1, -1}, {INT_MAX, -1, -1, -1}};
    for (const auto& c : cases) {
        EXPECT_EQ(UTL::find_first_of(Char('a'), text.c_str(), c.start), c.a) << c.start;
        EXPECT_EQ(UTL::find_first_not_of(Char('a'), text.c_str(), c.start), c.notA) << c.start;
        EXPECT_EQ(UTL::find_first_of2(Char('c'), Char('b'), text.c_str(), c.start), c.bOrC) << c.start;
    }
    EXPECT_EQ(UTL::find_first_of(Char('x'), this->Null, 0), -1);
    EXPECT_EQ(UTL::find_first_not_of(Char('x'), this->Null, 0), -1);
    EXPECT_EQ(UTL::find_first_of(Char(0), text.c_str(), 0), -1);
}

TYPED_TEST(StringFindTest, NegativeStartRaisesAnAssertion)
{
    using Char = typename TypeParam::CharType;
    const TypeParam text = this->T("aa");
    const auto expectLine = [](int line, auto find) {
        {
            const Support::ScriptedBoxes boxes({IDYES});
            try {
                find();
                FAIL() << "nothing was raised";
            } catch (const UTL::XAssert& fault) {
                EXPECT_EQ(fault.getLine(), line);
                EXPECT_EQ(fault.getFile(),
                          TestFixture::IsWide ? "UTL_STR_UtilitiesW.cpp" : "UTL_STR_UtilitiesA.cpp");
                EXPECT_TRUE(fault.getExpression().IsEmpty());
            }
        }
        const Support::ScriptedBoxes boxes({IDNO});
        EXPECT_EQ(find(), -1);
    };
    expectLine(158, [&] { return UTL::find_first_of(Char('a'), text.c_str(), -1); });
    expectLine(173, [&] { return UTL::find_first_not_of(Char('b'), text.c_str(), INT_MIN); });
    expectLine(188, [&] { return UTL::find_first_of2(Char('a'), Char('b'), text.c_str(), -1); });
}

} // namespace
