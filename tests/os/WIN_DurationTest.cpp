// SPDX-License-Identifier: MIT
#include "os/WIN_Duration.h"

#include <gtest/gtest.h>

#include <utility>

namespace
{

TEST(DurationTest, IsHoursMinutesAndSeconds)
{
    const std::pair<unsigned long, const char16_t*> rows[] = {
        {0, u"0:0:0.0"},       {5, u"0:0:0.5"},         {250, u"0:0:0.250"},     {999, u"0:0:0.999"},
        {1000, u"0:0:1"},      {1500, u"0:0:1"},        {59'999, u"0:0:59"},     {60'000, u"0:1:0"},
        {3'661'000, u"1:1:1"}, {86'400'000, u"24:0:0"}, {90'061'000, u"25:1:1"}, {0xFFFFFFFF, u"1193:2:47"},
    };
    for (const auto& [milliseconds, text] : rows) {
        SCOPED_TRACE(milliseconds);
        EXPECT_EQ(WIN::GetDuration(milliseconds), text);
    }
}

} // namespace
