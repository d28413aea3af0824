// SPDX-License-Identifier: MIT
#include "foundation/vectors/UTL_SV_Int64Vector.h"

#include "foundation/vectors/TypedVectorSupport.h"

#include <gtest/gtest.h>

#include <climits>

namespace
{

using System::Int64;

TEST(Int64VectorTest, Int64sAsCommaText)
{
    Support::ExpectReads<UTL::CInt64Vector, Int64>({
        {u"", {}, u""},
        {u" 5 ,-6", {5, -6}, u"5,-6"},
        {u"9223372036854775807,-9223372036854775808",
         {LLONG_MAX, LLONG_MIN},
         u"9223372036854775807,-9223372036854775808"},
        {u"1,9223372036854775808", {1}, nullptr},
        {u"000000000000000000000012", {12}, u"12"},
        {u"1,,x", {1}, u"1"},
        {u"1,x", {1}, nullptr},
    });
}

} // namespace
