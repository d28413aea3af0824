// SPDX-License-Identifier: MIT
#include "platform/base/dates/Sysutils_FileDate.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/base/dates/Sysutils_DateSupport.h"

#include <gtest/gtest.h>

using namespace Sysutils;
using Support::Infinity;
using Support::LastDay;
using Support::NotANumber;
using System::TDateTime;

namespace
{

TEST(FileDateTest, PacksFileDates)
{
    const TDateTime value = EncodeDate(2022, 12, 22) + EncodeTime(10, 5, 9, 999);
    const int packed = (2022 - 1980) << 25 | 12 << 21 | 22 << 16 | 10 << 11 | 5 << 5 | 4;
    EXPECT_EQ(DateTimeToFileDate(value), packed);
    EXPECT_EQ(FileDateToDateTime(packed), EncodeDate(2022, 12, 22) + EncodeTime(10, 5, 8, 0));

    const int first = DateTimeToFileDate(EncodeDate(1980, 1, 1));
    const int last = DateTimeToFileDate(EncodeDate(2107, 12, 31) + EncodeTime(23, 59, 59, 0));
    EXPECT_EQ(FileDateToDateTime(first), EncodeDate(1980, 1, 1));
    EXPECT_EQ(FileDateToDateTime(last), EncodeDate(2107, 12, 31) + EncodeTime(23, 59, 58, 0));
    for (const double early : {-Infinity, NotANumber, -1e300, -1.0, 0.0, 29220.0}) {
        EXPECT_EQ(DateTimeToFileDate(early), first) << early;
    }
    for (const double late : {Infinity, 1e300, LastDay, LastDay + 1}) {
        EXPECT_EQ(DateTimeToFileDate(late), last) << late;
    }
    for (const int bad : {0, -1, 13 << 21 | 1 << 16, 2 << 21 | 30 << 16, 1 << 21 | 1 << 16 | 24 << 11}) {
        EXPECT_THROW(FileDateToDateTime(bad), EConvertError) << bad;
    }
}

} // namespace
