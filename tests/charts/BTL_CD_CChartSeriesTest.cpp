// SPDX-License-Identifier: MIT
#include "charts/BTL_CD_CChartSeries.h"

#include "config/BTL_INI_IniFileEx.h"
#include "platform/base/Sysutils_Exception.h"
#include "platform/runtime/classes/Classes_StringList.h"

#include <gtest/gtest.h>

namespace
{

using BTL::AChartSeries;
using BTL::CChartSeries;
using System::UnicodeString;

CChartSeries Sample()
{
    CChartSeries series;
    series.Title = u"U [V]";
    series.Tag = -7;
    series.AddXY(0.1, 1e300);
    series.AddXY(-2, 3);
    return series;
}

TEST(StoredSeriesTest, StandsInASection)
{
    BTL::CMemIniFile ini(u"\\no\\such\\file.ini");
    ini.setSection(u"Former");
    Sample().SaveToIni(&ini, u"Series_0");
    EXPECT_EQ(ini.getSection(), u"Former");
    Classes::TStringList lines;
    ini.ReadSectionValues(u"Series_0", &lines);
    EXPECT_EQ(lines.getCommaText(), u"\"Title=U [V]\",Tag=-7,Type=2,\"X=[0.1,-2]\",\"Y=[1E300,3]\"");

    CChartSeries one;
    one.AddX(1);
    one.SaveToIni(&ini, u"Series_1");
    EXPECT_FALSE(ini.KeyExists(u"Series_1", u"Y"));
    EXPECT_FALSE(ini.KeyExists(u"Series_1", u"Z"));
}

TEST(StoredSeriesTest, ComesBack)
{
    BTL::CMemIniFile ini(u"\\no\\such\\file.ini");
    Sample().SaveToIni(&ini, u"s");
    CChartSeries series;
    series.AddXYZ(7, 8, 9);
    EXPECT_EQ(series.GetMinXValue(), 7);
    series.LoadFromIni(&ini, u"s");
    EXPECT_EQ(series.Title, u"U [V]");
    EXPECT_EQ(series.Tag, -7);
    EXPECT_EQ(series.Type, AChartSeries::XY);
    EXPECT_EQ(series.getYCommaText(), Sample().getYCommaText());
    EXPECT_EQ(series.getZCommaText(), u"9") << "the axis isn't the type's";
    EXPECT_EQ(series.GetMinXValue(), 7) << "what is kept stays";
    EXPECT_EQ(series.GetMaxXValue(), 0.1);
    series.LoadFromIni(&ini, u"none");
    EXPECT_EQ(series.Title, u"");
    EXPECT_EQ(series.Type, AChartSeries::None);
}

TEST(StoredSeriesTest, RefusesDamage)
{
    const std::pair<const char*, const char*> cases[] = {{"Type", "4"}, {"Type", "-1"},   {"Type", "3"},
                                                         {"X", "[1]"},  {"Y", "[1,2,3]"}, {"Y", "[1,x]"},
                                                         {"Y", "[1"},   {"X", ""}};
    for (const auto& [key, value] : cases) {
        SCOPED_TRACE(key);
        SCOPED_TRACE(value);
        BTL::CMemIniFile ini(u"\\no\\such\\file.ini");
        Sample().SaveToIni(&ini, u"s");
        ini.setSection(u"s");
        ini.WriteString(key, value);
        CChartSeries series;
        series.Title = u"stays";
        series.AddX(1);
        EXPECT_THROW(series.LoadFromIni(&ini, u"s"), Sysutils::Exception);
        EXPECT_EQ(series.Title, u"stays");
        EXPECT_EQ(series.getXCommaText(), u"1");
        EXPECT_EQ(series.Type, AChartSeries::X);
    }
}

} // namespace
