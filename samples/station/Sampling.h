// SPDX-License-Identifier: MIT
#pragma once

#include "Chart.h"
#include "Samples.h"
#include "SerialReader.h"
#include "Single.h"

#include <TRS8_BTL/progress/BTL_THRD_ActionThread.h>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace Station
{

/// What a run in the background samples, and how.
struct TPlan
{
    std::vector<CChannel> channels;
    /// The instrument that some of the channels belong to; null for none.
    std::unique_ptr<CSerialReader> serial;
    /// Between two turns, in seconds.
    double interval;
    /// How long, in seconds.
    double seconds;
    /// Where the samples are kept.
    System::UnicodeString file;
    /// What the chart is called.
    System::UnicodeString title;
};

/// A run in the background. A thread of its own reads the channels; the values come to the main thread, to
/// which all else here belongs.
///
///     CSampling sampling(std::move(plan), [&] { ShowValues(); }, [&] { ShowEnd(); });
///     sampling.Start();                                           // returns at once
class CSampling
{
public:
    using TEvent = std::function<void()>;

    /// `taken` is called behind each turn and `ended` once, behind the last one, both from the message loop.
    /// `Sysutils::Exception` if the file or the instrument can't be opened.
    CSampling(TPlan plan, TEvent taken, TEvent ended);
    CSampling(const CSampling&) = delete;
    CSampling& operator=(const CSampling&) = delete;
    /// Ends the run without calling `taken` or `ended`.
    ~CSampling();

    void Start();
    /// Asks for the end of the run, which comes soon.
    void Stop();
    /// The run goes on for so many seconds from now at least. False if it has ended.
    bool PutOff(double seconds);

    const std::vector<CChannel>& getChannels() const { return mPlan.channels; }
    const BTL::CChartData& getChart() const { return mChart; }
    /// When the run began.
    const System::TDateTime& getStart() const { return mStart; }
    double getSeconds() const { return mPlan.seconds; }
    /// How many seconds are behind the run.
    double getPassed() const { return mPassed; }
    /// Whether it was stopped in front of its end.
    bool IsStopped() const { return mIsStopped; }
    /// What the run, or the instrument, failed by; empty if nothing did.
    System::UnicodeString GetFault() const;

private:
    using Clock = std::chrono::steady_clock;
    using TValues = std::vector<std::optional<double>>;

    /// One turn and the pause behind it; runs in the thread.
    void Turn(BTL::TActionThread* thread);
    TValues Read();
    void Take(const TValues& values);

    TPlan mPlan;
    BTL::CChartData mChart;
    CSampleWriter mWriter;
    System::TDateTime mStart;
    Clock::duration mInterval;
    Clock::time_point mNext;
    CRunEnd mEnd;
    double mPassed = 0;
    bool mIsStopped = false;
    /// Whether nobody hears of the run any more.
    bool mIsLeft = false;
    TEvent mTaken;
    /// Goes first, so that it finds all else in place.
    BTL::TActionThread mThread;
};

} // namespace Station
