// SPDX-License-Identifier: MIT
#pragma once

#include "Options.h"

#include <TRS8_BTL/progress/BTL_StartOnce.h>

#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>

namespace Station
{

/// When a run ends. Others put it off while it is under way.
class CRunEnd
{
public:
    using Clock = std::chrono::steady_clock;

    /// The run goes on for so many seconds from now at least. False if it has ended.
    bool PutOff(double seconds);
    /// Whether the run ends before `time`; then it has ended, and nobody puts that off any more.
    bool EndsBefore(Clock::time_point time);
    /// How many turns of that length begin from `time` on up to the end.
    std::int64_t GetTurnsFrom(Clock::time_point time, Clock::duration interval) const;
    /// Later than any time once the run has ended.
    Clock::time_point getTime() const { return mEnd; }

private:
    /// Of a run that has ended.
    static constexpr Clock::time_point Never = Clock::time_point::max();

    std::atomic<Clock::time_point> mEnd = Clock::time_point::min();
};

/// Sees to it that one station of the user's session alone samples into a file, or has a window for that: a
/// later one hands its command line to it, and ends with its answer.
///
///     CSingleStation single(file);
///     if (const auto answer = single.HandOver(commandLine)) {
///         return *answer;
///     }
///     single.Serve([](const UnicodeString& line) { return Obey(line); });     // from the message loop
class CSingleStation
{
public:
    explicit CSingleStation(const System::UnicodeString& samplesFile);

    /// Hands the command line to the station that samples into the file, which may be starting still, and
    /// gives its answer; nothing if there is none, or it has just ended: then this is the one.
    std::optional<int> HandOver(const System::UnicodeString& commandLine);

    /// Lets `obey` give the answers to later stations, 0 or more, from the message loop of this one. One that
    /// gets none asks again until this one has ended.
    void Serve(std::function<std::optional<int>(const System::UnicodeString&)> obey);

private:
    /// Whether no other station is in front of this one; it takes the place of one that has ended.
    bool IsFirst();

    System::UnicodeString mName;
    std::optional<BTL::CStartOnce> mOnce;
};

/// What a station does, for those that come later.
enum class EStationKind
{
    Terminal,
    Window
};

/// What a later station asks for: some seconds more, and of a window also to be seen. `BTL::XCommandLine` if
/// it asks for anything that this one can't grant.
TOptions ReadHandedOver(const System::UnicodeString& commandLine, EStationKind kind);

} // namespace Station
