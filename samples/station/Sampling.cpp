// SPDX-License-Identifier: MIT
#include "Sampling.h"

#include <TRS8_BTL/platform/base/Sysutils_Exception.h>
#include <TRS8_BTL/platform/base/dates/Sysutils_Calendar.h>

#include <algorithm>
#include <exception>
#include <thread>
#include <utility>

namespace Station
{

namespace
{

using System::UnicodeString;

/// The longest that an end which somebody asks for has to wait.
constexpr std::chrono::milliseconds Nap(20);

template <class Duration>
Duration Seconds(double seconds)
{
    return std::chrono::duration_cast<Duration>(std::chrono::duration<double>(seconds));
}

/// Sleeps until `time`, or until the thread is asked to end.
void SleepUntil(std::chrono::steady_clock::time_point time, const BTL::TActionThread& thread)
{
    for (auto now = std::chrono::steady_clock::now(); now < time && !thread.getTerminated();
         now = std::chrono::steady_clock::now()) {
        std::this_thread::sleep_for(std::min<std::chrono::steady_clock::duration>(time - now, Nap));
    }
}

} // namespace

CSampling::CSampling(TPlan plan, TEvent taken, TEvent ended)
    : mPlan(std::move(plan)),
      mChart(MakeChart(mPlan.channels, mPlan.title)),
      mWriter(mPlan.file),
      mInterval(Seconds<Clock::duration>(mPlan.interval)),
      mTaken(std::move(taken)),
      mThread([this](BTL::TActionThread* thread) { Turn(thread); }, true, false, false)
{
    mThread.setOnTerminate([this, ended = std::move(ended)](System::TObject*) {
        if (!mIsLeft) {
            ended();
        }
    });
    if (mPlan.serial) {
        mPlan.serial->Open();
    }
}

CSampling::~CSampling()
{
    // What the thread hands over as it ends comes to this thread now.
    mIsLeft = true;
}

void CSampling::Start()
{
    mStart = Sysutils::Now();
    mNext = Clock::now();
    mEnd.PutOff(mPlan.seconds);
    mThread.Start2();
}

void CSampling::Stop()
{
    mIsStopped = true;
    mThread.Terminate();
}

bool CSampling::PutOff(double seconds)
{
    if (mIsStopped || !mEnd.PutOff(seconds)) {
        return false;
    }
    constexpr double secondsADay = 24 * 3600;
    mPlan.seconds = std::max(mPlan.seconds, (Sysutils::Now() - mStart) * secondsADay + seconds);
    return true;
}

UnicodeString CSampling::GetFault() const
{
    if (const std::exception_ptr fault = mThread.getFatalException()) {
        try {
            std::rethrow_exception(fault);
        } catch (const std::exception& known) {
            return Sysutils::MessageOf(known);
        }
    }
    return mPlan.serial && mPlan.serial->getFaultCount() > 0 ? mPlan.serial->getFaultText() : UnicodeString();
}

void CSampling::Turn(BTL::TActionThread* thread)
{
    const TValues values = Read();
    thread->Synchronize([&] { Take(values); });
    // Turns that a slow instrument took the time of are left out.
    mNext = std::max(mNext + mInterval, Clock::now());
    SleepUntil(std::min(mNext, mEnd.getTime()), *thread);
    if (mEnd.EndsBefore(mNext)) {
        thread->Terminate();
        return;
    }
    SleepUntil(mNext, *thread);
}

CSampling::TValues CSampling::Read()
{
    if (mPlan.serial) {
        mPlan.serial->Ask();
    }
    TValues values;
    std::ranges::transform(mPlan.channels, std::back_inserter(values),
                           [](const CChannel& channel) { return channel.Read(); });
    return values;
}

void CSampling::Take(const TValues& values)
{
    constexpr double secondsADay = 24 * 3600;
    const System::TDateTime time = Sysutils::Now();
    mPassed = (time - mStart) * secondsADay;
    for (std::size_t i = 0; i < values.size(); ++i) {
        CChannel& channel = mPlan.channels[i];
        if (!values[i]) {
            channel.AddMiss();
            continue;
        }
        channel.Add(*values[i]);
        mChart.getSeries(static_cast<int>(i))->AddXY(mPassed, *values[i]);
        mWriter.Add(MakeSample(time, channel.getName(), *values[i], channel.getUnit()));
    }
    mWriter.Flush();
    if (!mIsLeft) {
        mTaken();
    }
}

} // namespace Station
