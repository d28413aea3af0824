// SPDX-License-Identifier: MIT
#include "charts/BTL_CD_CChartData.h"
#include "config/BTL_INI_IniFileEx.h"
#include "platform/base/Sysutils_Exception.h"
#include "platform/runtime/classes/Classes_Stream.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "support/Fuzz.h"

using BTL::CChartData;
using Classes::TMemoryStream;
using Fuzz::Require;

namespace
{

std::string Saved(const CChartData& chart)
{
    TMemoryStream stream;
    chart.SaveToStream(&stream);
    return {static_cast<const char*>(stream.getMemory()), static_cast<std::size_t>(stream.getSize())};
}

/// A chart that loads comes back as it is, one that doesn't leaves the chart alone.
template <class Load>
void LoadAndSave(Load load)
{
    CChartData chart;
    chart.AddSeries()->AddX(1);
    const std::string before = Saved(chart);
    if (!Fuzz::Try<Sysutils::Exception>([&] { load(chart); })) {
        Require(Saved(chart) == before);
        return;
    }
    const std::string bytes = Saved(chart);
    TMemoryStream stream;
    stream.WriteBuffer(bytes.data(), static_cast<System::Int64>(bytes.size()));
    stream.setPosition(0);
    CChartData again;
    again.LoadFromStream(&stream);
    Require(Saved(again) == bytes);
}

} // namespace

/// Takes the bytes as a chart in a stream, and as the lines of a file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    TMemoryStream stream;
    stream.WriteBuffer(data, static_cast<System::Int64>(size));
    stream.setPosition(0);
    LoadAndSave([&](CChartData& chart) { chart.LoadFromStream(&stream); });

    Classes::TStringList lines;
    lines.setText(System::FromUtf8(Fuzz::Bytes(data, size)));
    auto* const store = new BTL::CMemIniFileImp;
    BTL::AIni ini(store);
    ini.setFile(u"\\no\\such\\file.ini");
    store->SetStrings(&lines);
    LoadAndSave([&](CChartData& chart) { chart.LoadFromIni(&ini); });
    return 0;
}
