// SPDX-License-Identifier: MIT
#pragma once

#include "charts/BTL_CD_AChartSeries.h"

namespace Classes
{
class TStream;
} // namespace Classes

namespace BTL
{

class AIni;

/// A series of points that can be stored in a section of settings or in a stream.
///
///     const BTL::CChartSeries series = Measure();
///     BTL::CIniFileEx ini(u"last.ini");
///     series.SaveToIni(&ini, u"Series_0");
///     ini.Save();
class TRS8_BTL_API CChartSeries : public AChartSeries
{
public:
    CChartSeries();
    explicit CChartSeries(const AChartSeries& other);
    CChartSeries(const CChartSeries& other);
    CChartSeries& operator=(const CChartSeries& other);
    ~CChartSeries() override;

    /// Writes title, tag, type and the values as comma texts, with 15 significant digits each.
    void SaveToIni(AIni* ini, const System::UnicodeString& section) const;
    /// Reads what `SaveToIni` wrote; a missing key is an empty text or 0. The values of an axis that the
    /// stored type lacks stay, and so do the kept extremes. `Sysutils::Exception` for a type outside 0 to 3
    /// or lists of unequal length, `Sysutils::EConvertError` for a value that is none; the series stays as it
    /// was then.
    void LoadFromIni(AIni* ini, const System::UnicodeString& section);

    /// Writes the series with each bit of its values.
    void SaveToStream(Classes::TStream* stream) const;
    /// Reads what `SaveToStream` wrote. `Classes::EReadError` for a stream that ends within,
    /// `Sysutils::Exception` for what isn't a series; it stays as it was then.
    void LoadFromStream(Classes::TStream* stream);
};

} // namespace BTL
