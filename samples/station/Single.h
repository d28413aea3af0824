// SPDX-License-Identifier: MIT
#pragma once

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

private:
    /// Of a run that has ended.
    static constexpr Clock::time_point Never = Clock::time_point::max();

    std::atomic<Clock::time_point> mEnd = Clock::time_point::min();
};

/// Sees to it that one station of the user's session alone samples into a file: a later one hands its command
/// line to that, and ends with its answer.
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

/// How many seconds a handed over command line asks for. `BTL::XCommandLine` if it asks for anything that a
/// run under way can't grant.
double ReadHandedOver(const System::UnicodeString& commandLine);

} // namespace Station
