// SPDX-License-Identifier: MIT
#include "Channels.h"

#include <TRS8_BTL/text/editing/BTL_STR_Cut.h>
#include <TRS8_BTL/text/editing/BTL_STR_Search.h>
#include <TRS8_BTL/text/numbers/BTL_NUM_Limits.h>
#include <TRS8_BTL/text/numbers/BTL_NUM_Units.h>

#include <algorithm>
#include <fstream>
#include <string>
#include <utility>

namespace Station
{

namespace
{

using System::UnicodeString;

constexpr auto AllOfKind = u".*";

/// The value of a limit in `unit`. The limit functions take 0 for no limit, so it is refused as one.
double ReadLimit(const UnicodeString& text, const UnicodeString& unit)
{
    UnicodeString ownUnit;
    double value = 0;
    if (!BTL::ValueWithUnitToDouble(text, value, ownUnit)) {
        throw XBadSettings(u"'" + text + u"' is no number");
    }
    if (value == 0) {
        throw XBadSettings(u"'" + text + u"' can't be a limit");
    }
    if (ownUnit.IsEmpty()) {
        return value;
    }
    if (BTL::CutUnitPrefix(ownUnit) != BTL::CutUnitPrefix(unit)) {
        throw XBadSettings(u"the limit '" + text + u"' is not in " +
                           (unit.IsEmpty() ? u"a plain number" : unit));
    }
    return value / BTL::GetUnitPrefixFactor(unit);
}

struct TLimits
{
    double lower = 0;
    double upper = 0;
};

void ReadLimitWord(TLimits& limits, UnicodeString word, const UnicodeString& unit)
{
    UnicodeString value = word.Trim();
    const UnicodeString kind = BTL::ConsumeLeftSubString(value, u' ', false);
    if (kind == u"lower") {
        limits.lower = ReadLimit(value.Trim(), unit);
    } else if (kind == u"upper") {
        limits.upper = ReadLimit(value.Trim(), unit);
    } else {
        throw XBadSettings(u"'" + word.Trim() + u"' is neither 'lower VALUE' nor 'upper VALUE'");
    }
}

bool Matches(const UnicodeString& pattern, const UnicodeString& name)
{
    if (!BTL::EndsWith(pattern, AllOfKind)) {
        return pattern == name;
    }
    // Of ".*" the point stays.
    return BTL::BeginsWith(name, BTL::LeftSubString(pattern, pattern.Length() - 1), 1);
}

bool IsOfInstrument(const UnicodeString& name)
{
    return BTL::BeginsWith(name, SerialPrefix, 1);
}

} // namespace

CChannel::CChannel(TSource source, UnicodeString unit, double lower, double upper)
    : mSource(std::move(source)), mUnit(std::move(unit)), mLower(lower), mUpper(upper)
{
}

UnicodeString CChannel::getLimitText() const
{
    return BTL::GetLimitTextW(mUpper, mLower, mUnit.IsEmpty() ? nullptr : &mUnit).Trim();
}

std::optional<double> CChannel::Read() const
{
    std::optional<double> value = mSource.read();
    if (value && !mSource.unit.IsEmpty()) {
        *value /= BTL::GetUnitFactor(mUnit, mSource.unit);
    }
    return value;
}

bool CChannel::IsWithinLimits() const
{
    return mSamples.empty() || ((mLower == 0 || mSamples.GetMinValue() >= mLower) &&
                                (mUpper == 0 || mSamples.GetMaxValue() <= mUpper));
}

void AddChannels(std::vector<CChannel>& channels, const UnicodeString& name, UnicodeString rest,
                 const std::vector<TSource>& sources, const TSourceMaker& serial)
{
    const UnicodeString unit = BTL::ConsumeLeftSubString(rest, u';', true).Trim();
    TLimits limits;
    while (!rest.Trim().IsEmpty()) {
        ReadLimitWord(limits, BTL::ConsumeLeftSubString(rest, u';', true), unit);
    }
    if (limits.lower != 0 && limits.upper != 0 && limits.lower > limits.upper) {
        throw XBadSettings(u"the lower limit is above the upper one");
    }

    if (IsOfInstrument(name)) {
        if (serial) {
            const UnicodeString own =
                BTL::RightSubString(name, name.Length() - UnicodeString(SerialPrefix).Length());
            channels.emplace_back(serial(own, BTL::CutUnitPrefix(unit)), unit, limits.lower, limits.upper);
        }
        return;
    }
    const std::size_t before = channels.size();
    for (const TSource& source : sources) {
        if (!Matches(name, source.name)) {
            continue;
        }
        if (BTL::CutUnitPrefix(unit) != source.unit) {
            throw XBadSettings(u"the unit '" + unit + u"' does not fit " + source.name);
        }
        channels.emplace_back(source, unit, limits.lower, limits.upper);
    }
    // A kind that this machine doesn't show is no fault of the file.
    if (channels.size() == before && !BTL::EndsWith(name, AllOfKind)) {
        throw XBadSettings(u"there is no channel '" + name + u"'");
    }
}

std::vector<CChannel> LoadChannels(const std::filesystem::path& file, const std::vector<TSource>& sources,
                                   const TSourceMaker& serial)
{
    const UnicodeString name = System::FromUtf8(file.string());
    std::ifstream stream(file);
    std::vector<CChannel> channels;
    std::string bytes;
    for (int number = 1; std::getline(stream, bytes); ++number) {
        UnicodeString line = BTL::LeftSubStringUntil(System::FromUtf8(bytes), u'#').Trim();
        if (line.IsEmpty()) {
            continue;
        }
        try {
            if (BTL::Pos(line, u'=') == 0) {
                throw XBadSettings(u"'=' is missing");
            }
            const UnicodeString channel = BTL::ConsumeLeftSubString(line, u'=', false).Trim();
            AddChannels(channels, channel, line, sources, serial);
        } catch (const XBadSettings& fault) {
            throw XBadSettings(name + u":" + UnicodeString(number) + u": " + fault.getMessage());
        }
    }
    if (!stream.eof()) {
        throw XBadSettings(name + u": the file can't be read");
    }
    if (channels.empty()) {
        throw XBadSettings(name + u": the file names no channel");
    }
    CheckInstrument(channels, serial, name);
    return channels;
}

void CheckInstrument(const std::vector<CChannel>& channels, const TSourceMaker& serial,
                     const UnicodeString& file)
{
    if (serial && std::none_of(channels.begin(), channels.end(),
                               [](const CChannel& channel) { return IsOfInstrument(channel.getName()); })) {
        throw XBadSettings(file + u": the file names no channel of the instrument, '" + SerialPrefix +
                           u"NAME'");
    }
}

} // namespace Station
