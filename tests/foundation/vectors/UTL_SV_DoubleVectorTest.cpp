// SPDX-License-Identifier: MIT
#include "foundation/vectors/UTL_SV_DoubleVector.h"

#include "foundation/vectors/TypedVectorSupport.h"
#include "foundation/vectors/UTL_SV_Int64Vector.h"
#include "support/FormatSettingsGuard.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace
{

using System::Int64;
using System::UnicodeString;

TEST(DoubleVectorTest, DoublesAsCommaTextInEveryLocale)
{
    const Support::FormatSettingsGuard guard;
    for (const char16_t separator : {u'.', u','}) {
        Sysutils::FormatSettings.DecimalSeparator = separator;
        Support::ExpectReads<UTL::CDoubleVector, double>({
            {u"", {}, u""},
            {u"1.5", {1.5}, u"1.5"},
            {u" -0.25 ,1e3, .5, 2.", {-0.25, 1000, 0.5, 2}, u"-0.25,1000,0.5,2"},
            {u"1,5", {1, 5}, u"1,5"},
            {u"1e300,1E-6,0.0001", {1e300, 1e-6, 1e-4}, u"1E300,1E-6,0.0001"},
            {u"0.1,3.14159265358979312", {0.1, 3.14159265358979312}, u"0.1,3.14159265358979"},
            {u"2.5,,1", {2.5}, u"2.5"},
            {u"2.5,1e400", {2.5}, nullptr},
            {u"2.5,nan", {2.5}, nullptr},
            {u"2.5,1.2.3", {2.5}, nullptr},
            {u"2.5;1", {}, nullptr},
            {u"2.5,1 1", {2.5}, nullptr},
        });
        EXPECT_EQ(Sysutils::FormatSettings.DecimalSeparator, separator);
        EXPECT_EQ(UTL::CDoubleVector("1.5").at(0), 1.5);
    }
}

TEST(DoubleVectorTest, LongTextsComeBack)
{
    UTL::CDoubleVector doubles;
    UTL::CInt64Vector integers;
    for (int i = 0; i < 20000; ++i) {
        doubles.push_back((i - 10000) * 0.37e-3);
        integers.push_back((i - 10000) * Int64(912345678901));
    }
    const UnicodeString text = doubles.getCommaText();
    UTL::CDoubleVector readDoubles(text);
    ASSERT_EQ(readDoubles.size(), doubles.size());
    for (unsigned i = 0; i < doubles.size(); ++i) {
        ASSERT_NEAR(readDoubles[i], doubles[i], 1e-14 * std::abs(doubles[i])) << i;
    }
    EXPECT_EQ(readDoubles.getCommaText(), text);
    UTL::CInt64Vector readIntegers;
    readIntegers.setCommaText(integers.getCommaText());
    EXPECT_EQ(readIntegers, integers);
}

TEST(DoubleVectorTest, ReadsBackWhatIsNoNumber)
{
    using Limits = std::numeric_limits<double>;
    const UTL::CDoubleVector v{Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity(),  Limits::max(),
                               -Limits::max(),      Limits::min(),      Limits::denorm_min(), 0};
    const UnicodeString text = v.getCommaText();
    EXPECT_TRUE(text.AsView().starts_with(u"NAN,INF,-INF,"));
    const UTL::CDoubleVector read(text);
    ASSERT_EQ(read.size(), v.size());
    EXPECT_TRUE(std::isnan(read[0]));
    for (unsigned i = 1; i < v.size(); ++i) {
        EXPECT_DOUBLE_EQ(read[i], v[i]);
    }
    EXPECT_EQ(read.getCommaText(), text);
}

TEST(DoubleVectorTest, StatisticsOfDoubles)
{
    const UTL::CDoubleVector v("2,4,4,4,5,5,7,9");
    EXPECT_EQ(v.GetMaxValue(), 9);
    EXPECT_EQ(v.GetMinValue(), 2);
    EXPECT_EQ(v.GetSum(), 40);
    EXPECT_EQ(v.GetMean(), 5);
    EXPECT_EQ(v.GetSumOfSquares(), 232);
    EXPECT_EQ(v.GetTotalVariance(), 32);
    EXPECT_DOUBLE_EQ(static_cast<double>(v.GetVariance()), 32.0 / 7);
    EXPECT_DOUBLE_EQ(static_cast<double>(v.GetStdDev()), std::sqrt(32.0 / 7));
    EXPECT_EQ(UTL::CDoubleVector("3,4").GetNorm(), 5);
    long double mean = -1;
    long double stdDev = -1;
    v.GetMeanAndStdDev(mean, stdDev);
    EXPECT_EQ(mean, v.GetMean());
    EXPECT_EQ(stdDev, v.GetStdDev());
    EXPECT_EQ(UTL::CDoubleVector("-3,-4").GetMaxValue(), -3);
    EXPECT_EQ(UTL::CDoubleVector("3").GetStdDev(), 0);

    const UTL::CDoubleVector none;
    EXPECT_EQ(none.GetMaxValue(), 0);
    EXPECT_EQ(none.GetMinValue(), 0);
    none.GetMeanAndStdDev(mean, stdDev);
    for (const long double value :
         {mean, stdDev, none.GetMean(), none.GetStdDev(), none.GetNorm(), none.GetSum(),
          none.GetSumOfSquares(), none.GetVariance(), none.GetTotalVariance()}) {
        EXPECT_EQ(value, 0);
    }
}

} // namespace
