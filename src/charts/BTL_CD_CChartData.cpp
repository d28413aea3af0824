// SPDX-License-Identifier: MIT
#include "charts/BTL_CD_CChartData.h"

#include "charts/internal/BTL_CD_ChartStream.h"
#include "charts/internal/BTL_CD_SeriesList.h"
#include "config/BTL_INI_WinIniFile.h"
#include "config/internal/BTL_INI_ProfileLimit.h"
#include "config/internal/BTL_INI_Unwritable.h"
#include "platform/host/profile/internal/Host_ProfileText.h"
#include "platform/runtime/classes/Classes_Stream.h"

#include <algorithm>
#include <cstring>
#include <initializer_list>

namespace BTL
{

using Classes::TStream;
using System::UnicodeString;

namespace
{

constexpr const char16_t* ChartSection = u"Chart";

/// In front of a chart in a stream; the last character is the version of what follows.
constexpr char Mark[] = {'T', 'R', 'S', '8', 'C', 'H', 'T', '1'};

/// Around a list.
constexpr int Brackets = 2;

UnicodeString SectionOf(int series)
{
    return u"Series_" + UnicodeString(series);
}

bool FitsLine(const UnicodeString& text)
{
    return text.Length() <= Detail::LongestProfileText &&
           Host::IsStorable({ChartSection, UnicodeString(u"Title"), text});
}

bool FitsValue(const UTL::CDoubleVector& values)
{
    // A value takes a character and a comma at the least, so most long lists need not become text.
    return values.size() <= Detail::LongestProfileText / 2 &&
           values.getCommaText().Length() <= Detail::LongestProfileText - Brackets;
}

/// The values of an axis that the type has: as many as there are points.
bool FitsAxis(const AChartSeries& series, AChartSeries::EType type, const UTL::CDoubleVector& values)
{
    return !series.Contains(type) || (values.size() == series.getXValues().size() && FitsValue(values));
}

bool FitsSection(const AChartSeries& series)
{
    return FitsLine(series.Title) && FitsAxis(series, AChartSeries::X, series.getXValues()) &&
           FitsAxis(series, AChartSeries::XY, series.getYValues()) &&
           FitsAxis(series, AChartSeries::XYZ, series.getZValues());
}

} // namespace

struct CChartData::TTexts
{
    UnicodeString name;
    UnicodeString title;
    int tag = 0;
    int type = 0;
    UnicodeString xAxis;
    UnicodeString yAxis;
    UnicodeString zAxis;
};

CChartData::CChartData() = default;

CChartData::CChartData(const CChartData& other) : AChartData(other)
{
    CopySeries(other);
}

CChartData& CChartData::operator=(const CChartData& other) = default;

CChartData::~CChartData() = default;

AChartSeries* CChartData::NewSeries(AChartSeries* source)
{
    return source == nullptr ? new CChartSeries : new CChartSeries(*source);
}

const CChartSeries* CChartData::StoredSeries(int index) const
{
    const auto* const series = dynamic_cast<const CChartSeries*>(getSeries(index));
    if (series == nullptr) {
        throw Sysutils::Exception(u"The chart has a series that can't be stored.");
    }
    return series;
}

CChartSeries* CChartData::NewStoredSeries()
{
    AChartSeries* const made = NewSeries(nullptr);
    auto* const series = dynamic_cast<CChartSeries*>(made);
    if (series == nullptr) {
        delete made;
        throw Sysutils::Exception(u"The chart makes series that can't be stored.");
    }
    return series;
}

void CChartData::Take(const TTexts& texts, UTL::GSimpleVector<AChartSeries*>& series)
{
    Class = texts.name;
    Title = texts.title;
    Tag = texts.tag;
    Type = texts.type;
    setXAxisTitle(texts.xAxis);
    setYAxisTitle(texts.yAxis);
    setZAxisTitle(texts.zAxis);
    TakeSeries(series);
}

void CChartData::SaveToIni(AIni* ini) const
{
    const CSetIniSection scope(ini, ChartSection);
    ini->WriteString(u"Class", Class);
    ini->WriteString(u"Title", Title);
    ini->WriteInteger(u"Tag", Tag);
    ini->WriteInteger(u"Type", Type);
    ini->WriteString(u"X_AxisTitle", getXAxisTitle());
    ini->WriteString(u"Y_AxisTitle", getYAxisTitle());
    ini->WriteString(u"Z_AxisTitle", getZAxisTitle());
    ini->WriteInteger(u"SeriesCount", getSeriesCount());
    for (int i = 0; i < getSeriesCount(); ++i) {
        StoredSeries(i)->SaveToIni(ini, SectionOf(i));
    }
}

void CChartData::LoadFromIni(AIni* ini)
{
    const CSetIniSection scope(ini, ChartSection);
    const auto text = [&](const char16_t* key) { return ini->ReadString(key, UnicodeString()); };
    const TTexts texts{
        text(u"Class"),       text(u"Title"),       ini->ReadInteger(u"Tag", 0), ini->ReadInteger(u"Type", 0),
        text(u"X_AxisTitle"), text(u"Y_AxisTitle"), text(u"Z_AxisTitle")};
    const int count = ini->ReadInteger(u"SeriesCount", 0);
    Detail::CSeriesList list;
    for (int i = 0; i < count; ++i) {
        const UnicodeString section = SectionOf(i);
        if (!ini->SectionExists(section)) {
            Detail::ThrowDamagedChart(section, "is missing");
        }
        CChartSeries* const series = NewStoredSeries();
        list.Add(series);
        series->LoadFromIni(ini, section);
    }
    Take(texts, list.series);
}

bool CChartData::FitsFile() const
{
    const auto texts = {Class, Title, getXAxisTitle(), getYAxisTitle(), getZAxisTitle()};
    if (!std::ranges::all_of(texts, FitsLine)) {
        return false;
    }
    for (int i = 0; i < getSeriesCount(); ++i) {
        if (!FitsSection(*getSeries(i))) {
            return false;
        }
    }
    return true;
}

void CChartData::SaveToFile(const UnicodeString& path) const
{
    if (!FitsFile()) {
        throw Sysutils::Exception(u"The chart doesn't fit the file '" + path + u"'.");
    }
    CWIN_IniFile ini(path);
    Host::ProfileBundle bundle(ini.getFile());
    SaveToIni(&ini);
    if (!bundle.End()) {
        Detail::ThrowUnwritable(ini.getFile());
    }
}

void CChartData::LoadFromFile(const UnicodeString& path)
{
    CWIN_IniFile ini(path);
    LoadFromIni(&ini);
}

void CChartData::SaveToStream(TStream* stream) const
{
    stream->WriteBuffer(Mark, sizeof Mark);
    for (const UnicodeString& text : {Class, Title, getXAxisTitle(), getYAxisTitle(), getZAxisTitle()}) {
        Detail::WriteText(*stream, text);
    }
    for (const int number : {Tag, Type, getSeriesCount()}) {
        Detail::WriteNumber(*stream, number);
    }
    for (int i = 0; i < getSeriesCount(); ++i) {
        StoredSeries(i)->SaveToStream(stream);
    }
}

void CChartData::LoadFromStream(TStream* stream)
{
    char mark[sizeof Mark];
    stream->ReadBuffer(mark, sizeof mark);
    if (std::memcmp(mark, Mark, sizeof mark) != 0) {
        Detail::ThrowDamagedChart(u"its begin", "is unknown");
    }
    TTexts texts;
    for (UnicodeString* const text : {&texts.name, &texts.title, &texts.xAxis, &texts.yAxis, &texts.zAxis}) {
        *text = Detail::ReadText(*stream);
    }
    texts.tag = Detail::ReadNumber(*stream);
    texts.type = Detail::ReadNumber(*stream);
    Detail::CSeriesList list;
    for (unsigned left = Detail::ReadCount(*stream); left > 0; --left) {
        CChartSeries* const series = NewStoredSeries();
        list.Add(series);
        series->LoadFromStream(stream);
    }
    Take(texts, list.series);
}

} // namespace BTL
