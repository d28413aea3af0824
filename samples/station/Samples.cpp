// SPDX-License-Identifier: MIT
#include "Samples.h"

#include <TRS8_BTL/foundation/logs/UTL_LOG_Log.h>
#include <TRS8_BTL/platform/base/dates/Sysutils_DateText.h>
#include <TRS8_BTL/streams/BTL_STRM_Stream.h>
#include <TRS8_BTL/text/dates/BTL_DT_Reading.h>
#include <TRS8_BTL/text/editing/BTL_STR_Search.h>
#include <TRS8_BTL/text/variants/BTL_VARI_NameValuePairs.h>
#include <functional>

#include <ostream>

namespace Station
{

namespace
{

using System::TDateTime;
using System::UnicodeString;
using UTL::CVariants;

// A time in the file, and in SQL, depends on no locale.
constexpr auto TimePicture = u"yyyy-mm-dd hh':'nn':'ss.zzz";
constexpr auto TimeMask = u"yyyy-mm-dd hh:nn:ss.ccc";

UnicodeString TimeText(const CVariants& sample)
{
    return Sysutils::FormatDateTime(TimePicture, sample.getItem(siTime).ToDateTime());
}

/// The sample of a line as `CVariants::WriteTo` writes it; nothing if it is none.
std::optional<CVariants> ReadSample(const UnicodeString& line)
{
    if (!BTL::BeginsWith(line, u"[", 1) || !BTL::EndsWith(line, u"]")) {
        return std::nullopt;
    }
    CVariants sample;
    UTL::CommaTextToVariants(line.SubString(2, line.Length() - 2), sample);
    if (sample.GetCount() != siCount || sample.getItem(siValue).Type() != UTL::vdtDouble) {
        return std::nullopt;
    }
    try {
        sample.setItem(siTime, BTL::StrToDateTime(sample.getItem(siTime).ToString(), TimeMask));
    } catch (const Sysutils::EConvertError&) {
        return std::nullopt;
    }
    return sample;
}

} // namespace

CVariants MakeSample(const TDateTime& time, const UnicodeString& channel, double value,
                     const UnicodeString& unit)
{
    CVariants sample(siCount);
    sample << time << channel << value << unit;
    return sample;
}

CSampleWriter::CSampleWriter(const UnicodeString& path) : mStream(path, BTL::fomAppend, BTL::fsmDenyWrite)
{
    if (mStream.tellp() > 0) {
        mStream.WriteLine(u"");
    }
    mStart = mStream.tellp();
}

void CSampleWriter::Add(const CVariants& sample)
{
    CVariants line = sample;
    line.setItem(siTime, TimeText(sample));
    line.WriteTo(mStream);
    mStream.WriteLine(u"");
    if (!mStream.good()) {
        throw Sysutils::Exception(u"The file of the samples takes no more");
    }
}

void ReadSamples(const UnicodeString& path, System::Int64 position, const std::optional<TDateTime>& from,
                 const std::function<void(const CVariants&)>& take)
{
    BTL::CFileStream file(path);
    Classes::TStream& stream = *file.getStream();
    stream.setPosition(position);
    const System::Int64 size = stream.getSize();
    while (stream.getPosition() < size) {
        const UnicodeString line(file.ReadLine());
        if (line.IsEmpty()) {
            continue;
        }
        const std::optional<CVariants> sample = ReadSample(line);
        if (!sample) {
            BTL::Log(u"No sample: " + line);
        } else if (!from || sample->getItem(siTime).ToDateTime() >= *from) {
            take(*sample);
        }
    }
}

void WriteSql(std::ostream& stream, const CVariants& sample)
{
    BTL::CNameValuePairs columns;
    // As text: a date as such would stand there without its time of day.
    columns.Add(u"Time", TimeText(sample));
    columns.Add(u"Channel", sample.getItem(siChannel).ToVariant());
    columns.Add(u"Value", sample.getItem(siValue).ToVariant());
    columns.Add(u"Unit", sample.getItem(siUnit).ToVariant());
    stream << columns.GetSqlUpdateAssign() << '\n';
}

} // namespace Station
