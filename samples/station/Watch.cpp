// SPDX-License-Identifier: MIT
#include "Watch.h"

#include "Progress.h"

#include <TRS8_BTL/os/WIN_Duration.h>
#include <TRS8_BTL/os/WIN_TickCount.h>
#include <TRS8_BTL/platform/base/dates/Sysutils_Calendar.h>
#include <TRS8_BTL/platform/host/Host_TickCount.h>

#include <algorithm>
#include <iostream>
#include <optional>
#include <string>

#include <unistd.h>

namespace Station
{

namespace
{

using System::Int64;
using System::UnicodeString;

/// As parts of the whole, 0 to 1; 0 for a whole of nothing.
double DoneOf(const BTL::CSharedProgressInfoData& data)
{
    const auto max = static_cast<double>(data.getMax());
    return max > 0 ? std::clamp(static_cast<double>(data.getPosition()) / max, 0.0, 1.0) : 0;
}

/// From a position of 0 or more on; 0 for one that lies in front of it.
Int64 Distance(Int64 from, Int64 to)
{
    return to > from ? to - from : 0;
}

std::string BarOf(double done)
{
    constexpr int width = 20;
    std::string bar(width, '-');
    std::fill_n(bar.begin(), static_cast<int>(done * width), '#');
    return '[' + bar + ']';
}

/// What another process wrote may hold what a terminal obeys.
UnicodeString Printable(const UnicodeString& text)
{
    std::u16string shown(text.c_str(), static_cast<std::size_t>(text.Length()));
    const auto isControl = [](char16_t character) {
        return character < u' ' || (character >= u'\x7F' && character < u'\xA0');
    };
    std::replace_if(shown.begin(), shown.end(), isControl, u' ');
    return UnicodeString(shown.c_str());
}

UnicodeString ElapsedSince(System::TDateTime start)
{
    constexpr double millisecondsADay = 24 * 3600 * 1000.0;
    constexpr double longest = 4e9;
    const double elapsed = (Sysutils::Now() - start) * millisecondsADay;
    return WIN::GetDuration(static_cast<unsigned long>(elapsed > 0 ? std::min(elapsed, longest) : 0));
}

/// The run as one line that grows older.
class CWatchedRun
{
public:
    explicit CWatchedRun(std::ostream& stream)
        : mStream(stream), mIsTerminal(&stream == &std::cout && isatty(STDOUT_FILENO) != 0)
    {
    }

    void Show(const BTL::CSharedProgressInfoData& data)
    {
        const bool isNew = !mFirstPosition || data.getPosition() != mData.getPosition() ||
                           data.getText1() != mData.getText1();
        if (!mFirstPosition) {
            mFirstPosition = std::max<Int64>(data.getPosition(), 0);
        }
        mData = data;
        if (mIsTerminal) {
            // A line that is too long is cut, so that it stays one.
            mStream << "\r\x1B[?7l" << Line() << "\x1B[K\x1B[?7h" << std::flush;
        } else if (isNew) {
            mStream << Line() << std::endl;
        }
    }

    void End(const UnicodeString& text) { mStream << (mIsTerminal ? "\n" : "") << text << std::endl; }

private:
    UnicodeString Line() const
    {
        constexpr int whole = 100;
        const double done = DoneOf(mData);
        UnicodeString line = Printable(mData.getCaption()) + u' ' + UnicodeString(BarOf(done).c_str()) +
                             u' ' + UnicodeString(static_cast<int>(done * whole)) + u" %, " +
                             UnicodeString(mData.getPosition()) + u" of " + UnicodeString(mData.getMax()) +
                             u", elapsed " + ElapsedSince(mData.getStartTime());
        // By what was done while this program looked.
        const Int64 total = Distance(*mFirstPosition, mData.getMax());
        const Int64 turns = Distance(*mFirstPosition, mData.getPosition());
        const UnicodeString rest = turns < total ? mWatch.GetDuartionInfo(turns, total) : UnicodeString();
        for (const UnicodeString& part : {rest, Printable(mData.getText1())}) {
            line += part.IsEmpty() ? UnicodeString() : u", " + part;
        }
        return line;
    }

    std::ostream& mStream;
    const bool mIsTerminal;
    WIN::CTickCount mWatch;
    std::optional<Int64> mFirstPosition;
    BTL::CSharedProgressInfoData mData;
};

} // namespace

bool WatchRun(unsigned long process, std::ostream& stream)
{
    constexpr unsigned long betweenLooks = 100;
    const UnicodeString name = u"process " + UnicodeString(process);
    const BTL::CSharedProgressInfo info(true, RunRecord, process);
    if (!info.IsOpen()) {
        stream << "no run of " << name << " is published" << std::endl;
        return false;
    }
    CWatchedRun run(stream);
    for (;;) {
        // Asked first, so that the last words of a process that ends aren't missed.
        const bool isAlive = info.IsWriterAlive();
        if (BTL::CSharedProgressInfoData data; info.Snapshot(data)) {
            run.Show(data);
            if (const UnicodeString message = data.getMessage(); !message.IsEmpty()) {
                run.End(u"the run is " + Printable(message));
                return message == RunDone;
            }
        }
        if (!isAlive) {
            run.End(name + u" died");
            return false;
        }
        Sleep(betweenLooks);
    }
}

} // namespace Station
