// SPDX-License-Identifier: MIT
#include "foundation/vectors/UTL_SV_BoolVector.h"

#include "foundation/vectors/TypedVectorSupport.h"
#include "foundation/vectors/UTL_SV_DoubleVector.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{

using testing::IsEmpty;

TEST(BoolVectorTest, BoolsAsCommaText)
{
    Support::ExpectReads<UTL::CBoolVector, bool>({
        {u"", {}, u""},
        {u"0,2", {false, true}, u"0,1"},
        {u" -1 , 0 ,00,1", {true, false, false, true}, u"1,0,0,1"},
        {u"1,true", {true}, nullptr},
        {u"0,,1", {false}, u"0"},
    });
}

TEST(BoolVectorTest, NullIsAnEmptyVector)
{
    const UTL::CBoolVector bools(2, true);
    EXPECT_EQ(UTL::CBoolVector(&bools), bools);
    EXPECT_THAT(UTL::CBoolVector(static_cast<const UTL::CBoolVector*>(nullptr)), IsEmpty());
    const UTL::CDoubleVector doubles(2, 1.5);
    EXPECT_EQ(UTL::CDoubleVector(&doubles), doubles);
    EXPECT_THAT(UTL::CDoubleVector(static_cast<const UTL::CDoubleVector*>(nullptr)), IsEmpty());
}

} // namespace
