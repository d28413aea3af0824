// SPDX-License-Identifier: MIT
#pragma once

#include "Sources.h"

#include <TRS8_BTL/foundation/vectors/UTL_SV_DoubleVector.h>
#include <TRS8_BTL/platform/base/Sysutils_Exception.h>

#include <filesystem>
#include <optional>
#include <vector>

namespace Station
{

/// A line of the channel file or a setting that makes no sense. The message that the user gets begins with
/// the file, and the line number or section and key.
class XBadSettings : public Sysutils::Exception
{
public:
    using Exception::Exception;
};

/// One measured quantity: where it comes from, how it is shown, what it may be, and its samples.
class CChannel
{
public:
    /// Limits are in `unit`; 0 means no limit. `unit` is the unit of `source` with any prefix.
    CChannel(TSource source, System::UnicodeString unit, double lower, double upper);

    const System::UnicodeString& getName() const { return mSource.name; }
    const System::UnicodeString& getUnit() const { return mUnit; }
    const UTL::CDoubleVector& getSamples() const { return mSamples; }
    System::UnicodeString getLimitText() const;

    /// The value of now in the channel's unit; nothing if the machine gives none.
    std::optional<double> Read() const;

    /// Adds a value in the channel's unit to the samples.
    void Add(double value) { mSamples.push_back(value); }

    /// Counts that the machine gave no value.
    void AddMiss() { ++mMissCount; }
    int getMissCount() const { return mMissCount; }

    /// False if any sample lies outside the limits.
    bool IsWithinLimits() const;

private:
    TSource mSource;
    System::UnicodeString mUnit;
    double mLower;
    double mUpper;
    UTL::CDoubleVector mSamples;
    int mMissCount = 0;
};

/// What the names of channels of an instrument begin with.
inline constexpr auto SerialPrefix = u"serial.";

/// Adds the channels that `name` stands for; `rest` is the unit and the limits, "mV; lower -40; upper -30".
/// `XBadSettings`, without a place, if they make no sense.
void AddChannels(std::vector<CChannel>& channels, const System::UnicodeString& name,
                 System::UnicodeString rest, const std::vector<TSource>& sources, const TSourceMaker& serial);

/// The channels that `file` names, in its order; `XBadSettings` if it can't be read or has a bad line.
/// Those of an instrument are passed over if `serial` is null, else there must be one.
std::vector<CChannel> LoadChannels(const std::filesystem::path& file, const std::vector<TSource>& sources,
                                   const TSourceMaker& serial);

/// `XBadSettings`, which names the file, if an instrument is read but none of the channels is its own.
void CheckInstrument(const std::vector<CChannel>& channels, const TSourceMaker& serial,
                     const System::UnicodeString& file);

} // namespace Station
