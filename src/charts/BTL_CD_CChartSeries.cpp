// SPDX-License-Identifier: MIT
#include "charts/BTL_CD_CChartSeries.h"

#include "charts/internal/BTL_CD_ChartStream.h"
#include "config/BTL_INI_Ini.h"
#include "platform/runtime/classes/Classes_Stream.h"

#include <algorithm>

namespace BTL
{

namespace
{

using Classes::TStream;
using System::UnicodeString;
using UTL::CDoubleVector;

constexpr const char16_t* ValueKeys[AChartSeries::AxisCount] = {u"X", u"Y", u"Z"};

AChartSeries::EType CheckedType(int type, const UnicodeString& place)
{
    if (type < AChartSeries::None || type > AChartSeries::XYZ) {
        Detail::ThrowDamagedChart(place, "has an unknown type");
    }
    return static_cast<AChartSeries::EType>(type);
}

/// Reads a list for each axis of the type; all have one length.
template <class Read>
void ReadLists(AChartSeries::EType type, const UnicodeString& place,
               CDoubleVector (&values)[AChartSeries::AxisCount], Read read)
{
    for (int axis = 0; axis < type; ++axis) {
        read(axis, values[axis]);
        if (values[axis].size() != values[0].size()) {
            Detail::ThrowDamagedChart(place, "has lists of unequal length");
        }
    }
}

} // namespace

CChartSeries::CChartSeries() = default;

CChartSeries::CChartSeries(const AChartSeries& other) : AChartSeries(other) {}

CChartSeries::CChartSeries(const CChartSeries& other) = default;

CChartSeries& CChartSeries::operator=(const CChartSeries& other) = default;

CChartSeries::~CChartSeries() = default;

void CChartSeries::SaveToIni(AIni* ini, const UnicodeString& section) const
{
    const CSetIniSection scope(ini, section);
    ini->WriteString(u"Title", Title);
    ini->WriteInteger(u"Tag", Tag);
    ini->WriteInteger(u"Type", getAxes());
    for (int axis = 0; axis < getAxes(); ++axis) {
        ini->WriteCommaText(ValueKeys[axis], getValues(axis).getCommaText());
    }
}

void CChartSeries::LoadFromIni(AIni* ini, const UnicodeString& section)
{
    const CSetIniSection scope(ini, section);
    const UnicodeString title = ini->ReadString(u"Title", UnicodeString());
    const int tag = ini->ReadInteger(u"Tag", 0);
    const EType type = CheckedType(ini->ReadInteger(u"Type", None), section);
    CDoubleVector values[AxisCount];
    ReadLists(type, section, values, [&](int axis, CDoubleVector& list) {
        list.setCommaText(ini->ReadCommaText(ValueKeys[axis], UnicodeString()));
    });
    Title = title;
    Tag = tag;
    TakeValues(type, values);
}

void CChartSeries::SaveToStream(TStream* stream) const
{
    Detail::WriteText(*stream, Title);
    Detail::WriteNumber(*stream, Tag);
    Detail::WriteNumber(*stream, getAxes());
    for (int axis = 0; axis < getAxes(); ++axis) {
        Detail::WriteValues(*stream, getValues(axis));
    }
}

void CChartSeries::LoadFromStream(TStream* stream)
{
    constexpr const char16_t* place = u"a series";
    const UnicodeString title = Detail::ReadText(*stream);
    const int tag = Detail::ReadNumber(*stream);
    const EType type = CheckedType(Detail::ReadNumber(*stream), place);
    CDoubleVector values[AxisCount];
    ReadLists(type, place, values,
              [&](int /*axis*/, CDoubleVector& list) { list = Detail::ReadValues(*stream); });
    ClearValues();
    Title = title;
    Tag = tag;
    TakeValues(type, values);
}

} // namespace BTL
