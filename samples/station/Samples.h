// SPDX-License-Identifier: MIT
#pragma once

#include <TRS8_BTL/foundation/UTL_CVariants.h>
#include <TRS8_BTL/streams/BTL_STRM_FileOutStream.h>

#include <functional>
#include <iosfwd>
#include <optional>

namespace Station
{

/// What the items of a sample are.
enum ESampleItem : int
{
    siTime,
    siChannel,
    siValue,
    siUnit,
    siCount
};

UTL::CVariants MakeSample(const System::TDateTime& time, const System::UnicodeString& channel, double value,
                          const System::UnicodeString& unit);

/// Adds samples to a text file, one a line. Meanwhile others may read the file, but not write it. An empty
/// line comes in front of the samples of each run: so they stay whole where a run before ended within its
/// last line.
class CSampleWriter
{
public:
    /// `Sysutils::Exception` if the file can't be opened.
    explicit CSampleWriter(const System::UnicodeString& path);

    /// Where in the file the samples of this run begin.
    System::Int64 getStart() const { return mStart; }

    /// `Sysutils::Exception` if the file doesn't take it.
    void Add(const UTL::CVariants& sample);
    /// Lets others see the samples, so that they are there if this program doesn't end well. Fails as `Add`.
    void Flush() { mStream.getFileStream()->Flush(); }

private:
    BTL::CFileOutStream mStream;
    System::Int64 mStart;
};

/// Calls `take` with each sample of the file from a position on, in their order; with `from`, only with those
/// of that time and later. A line that is no sample is logged and passed over.
void ReadSamples(const System::UnicodeString& path, System::Int64 position,
                 const std::optional<System::TDateTime>& from,
                 const std::function<void(const UTL::CVariants&)>& take);

/// Writes the sample as a line, in the form of the `SET` of an SQL statement.
void WriteSql(std::ostream& stream, const UTL::CVariants& sample);

} // namespace Station
