// SPDX-License-Identifier: MIT
#include "platform/base/dates/Sysutils_Chrono.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/base/dates/Sysutils_DateSupport.h"
#include "platform/base/dates/Sysutils_IsoDate.h"
#include "support/ScopedVariable.h"

#include <gtest/gtest.h>

#include <ctime>
#include <optional>

using namespace Sysutils;
using namespace std::chrono;
using namespace std::chrono_literals;
using System::TDateTime;
using System::UnicodeString;

namespace
{

class ZoneGuard
{
public:
    explicit ZoneGuard(const char* zone)
    {
        mZone.emplace("TZ", zone);
        tzset();
    }
    ZoneGuard(const ZoneGuard&) = delete;
    ZoneGuard& operator=(const ZoneGuard&) = delete;
    ~ZoneGuard()
    {
        mZone.reset();
        tzset();
    }

private:
    std::optional<Support::ScopedVariable> mZone;
};

TEST(ChronoTest, GoesBothWaysInUniversalTime)
{
    const struct
    {
        TSysMilliSeconds time;
        const char16_t* text;
    } cases[] = {
        {TSysMilliSeconds(0ms), u"1970-01-01T00:00:00"},
        {TSysMilliSeconds(-1ms), u"1969-12-31T23:59:59.999"},
        {sys_days(2022y / 2 / 28) + 12h + 30min + 250ms, u"2022-02-28T12:30:00.250"},
        {sys_days(1899y / 12 / 30), u"1899-12-30T00:00:00"},
        {sys_days(1899y / 12 / 30) - 1ms, u"1899-12-29T23:59:59.999"},
        {sys_days(1y / 1 / 1), u"0001-01-01T00:00:00"},
        {sys_days(9999y / 12 / 31) + 24h - 1ms, u"9999-12-31T23:59:59.999"},
    };
    for (const auto& [time, text] : cases) {
        SCOPED_TRACE(UnicodeString(text));
        EXPECT_EQ(DateTimeToIso(ToDateTime(time)), text);
        EXPECT_EQ(ToSysTime(ToDateTime(time)), time);
        EXPECT_EQ(ToSysTime(IsoToDateTime(text).value), time);
    }
}

TEST(ChronoTest, TakesAnyUnit)
{
    const sys_days day = 2022y / 2 / 28;
    EXPECT_EQ(ToDateTime(day), TDateTime(2022, 2, 28));
    EXPECT_EQ(ToDateTime(sys_time<hours>(day + 6h)), TDateTime(2022, 2, 28) + 0.25);
    EXPECT_EQ(ToSysTime(ToDateTime(sys_time<nanoseconds>(day + 1'999'999ns))), day + 1ms);
    EXPECT_EQ(ToSysTime(ToDateTime(sys_time<duration<double>>(day + duration<double>(0.5)))), day + 500ms);
}

TEST(ChronoTest, RefusesWhatHasNoDate)
{
    EXPECT_THROW(ToDateTime(sys_days(10000y / 1 / 1)), EConvertError);
    EXPECT_THROW(ToDateTime(sys_days(1y / 1 / 1) - 1ms), EConvertError);
    EXPECT_THROW(ToDateTime(sys_time<hours>::max()), EConvertError);
    EXPECT_THROW(ToDateTime(sys_seconds::min()), EConvertError);
    EXPECT_THROW(ToLocalDateTime(sys_seconds::max()), EConvertError);
    EXPECT_THROW(ToDateTime(sys_time<duration<double>>(duration<double>(Support::NotANumber))),
                 EConvertError);
    for (const double value : Support::ValuesWithoutADate) {
        EXPECT_THROW(ToSysTime(value), EConvertError) << value;
        EXPECT_THROW(LocalToSysTime(value), EConvertError) << value;
    }
}

TEST(ChronoTest, KnowsTheLocalTime)
{
    const ZoneGuard zone("CET-1CEST,M3.5.0,M10.5.0/3");
    const struct
    {
        TSysMilliSeconds time;
        const char16_t* local;
    } cases[] = {
        {sys_days(2022y / 1 / 31) + 23h + 250ms, u"2022-02-01T00:00:00.250"},
        {sys_days(2022y / 7 / 1) + 12h, u"2022-07-01T14:00:00"},
        {sys_days(1890y / 7 / 1) + 12h + 1ms, u"1890-07-01T13:00:00.001"},
    };
    for (const auto& [time, local] : cases) {
        SCOPED_TRACE(UnicodeString(local));
        EXPECT_EQ(DateTimeToIso(ToLocalDateTime(time)).SubString(1, 4), UnicodeString(local).SubString(1, 4));
        EXPECT_EQ(LocalToSysTime(ToLocalDateTime(time)), time);
    }
    EXPECT_EQ(DateTimeToIso(ToLocalDateTime(cases[0].time)), cases[0].local);
    EXPECT_EQ(DateTimeToIso(ToLocalDateTime(cases[1].time)), cases[1].local);
}

} // namespace
