// SPDX-License-Identifier: MIT
#include "text/BTL_Text.h"

#include "platform/base/dates/Sysutils_IsoDate.h"

#include <gtest/gtest.h>

namespace
{

TEST(TextTest, FunctionsTakeTheViewsThatSplitGives)
{
    double sum = 0;
    BTL::CStringInt32Map counts;
    for (const std::u16string_view field : BTL::Split(u"1,5;2.5;1,5", u';')) {
        sum += BTL::ToDouble(field);
        counts.IncValue(field, 1);
    }
    EXPECT_EQ(sum, 5.5);
    EXPECT_EQ(counts.IncValue(u"1,5", 0), 2);

    const std::u16string_view text = u"|12 kV|2022-02-28|";
    int whole = 0;
    EXPECT_TRUE(BTL::ToInt(text.substr(1, 2), whole) && BTL::IsInt(text.substr(1, 2)));
    EXPECT_EQ(whole, 12);
    double value = 0;
    System::UnicodeString unit;
    EXPECT_TRUE(BTL::ValueWithUnitToDouble(text.substr(1, 5), value, unit));
    EXPECT_EQ(value, 12000);
    EXPECT_TRUE(BTL::FindUnit(text.substr(4, 2), value, unit));
    EXPECT_EQ(unit, u"V");
    Sysutils::TIsoDateTime date;
    EXPECT_TRUE(Sysutils::TryIsoToDateTime(text.substr(7, 10), date));
    EXPECT_EQ(date, Sysutils::IsoToDateTime(text.substr(7, 10)));
}

} // namespace
