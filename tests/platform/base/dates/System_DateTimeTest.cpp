// SPDX-License-Identifier: MIT
#include "platform/base/dates/System_DateTime.h"

#include <gtest/gtest.h>

#include <concepts>
#include <sstream>

namespace
{

using System::TDateTime;

template <class A, class B>
using Sum = decltype(std::declval<A>() + std::declval<B>());
template <class A, class B>
using Difference = decltype(std::declval<A>() - std::declval<B>());

static_assert(std::same_as<Sum<TDateTime, double>, TDateTime>);
static_assert(std::same_as<Sum<TDateTime, int>, TDateTime>);
static_assert(std::same_as<Sum<long long, TDateTime>, TDateTime>);
static_assert(std::same_as<Sum<TDateTime, TDateTime>, TDateTime>);
static_assert(std::same_as<Difference<TDateTime, float>, TDateTime>);
static_assert(std::same_as<Difference<TDateTime, unsigned>, TDateTime>);
static_assert(std::same_as<Difference<TDateTime, TDateTime>, double>);

TEST(DateTimeTest, IsADateAgainAfterDaysAreAdded)
{
    const TDateTime day(2022, 2, 28);
    EXPECT_EQ(day + 1, TDateTime(2022, 3, 1));
    EXPECT_EQ(1 + day, TDateTime(2022, 3, 1));
    EXPECT_EQ(day - 59, TDateTime(2021, 12, 31));
    EXPECT_EQ((day + 0.5).DateTimeString(), (day + TDateTime(12, 0, 0, 0)).DateTimeString());
    EXPECT_EQ(TDateTime(2022, 3, 1) + 0.25 - day, 1.25);
}

TEST(DateTimeTest, ShowsItsTextInAStream)
{
    const TDateTime noon = TDateTime(2022, 2, 28) + 0.5;
    std::ostringstream stream;
    stream << noon << '|' << noon - TDateTime(2022, 2, 26);
    EXPECT_EQ(stream.str(), System::ToUtf8(noon.DateTimeString()) + "|2.5");
}

} // namespace
