// SPDX-License-Identifier: MIT
#pragma once

#include <TRS8_BTL/progress/BTL_SharedProgress.h>

namespace Station
{

/// What the records of stations are called, in front of the number of the process.
inline constexpr auto RunRecord = u"TRS8_BTL station ";
/// The last message of a run that ended well.
inline constexpr auto RunDone = u"done";

/// A run that others may watch.
class CPublishedRun
{
public:
    /// Publishes nothing unless `isPublished`. `WIN::XLastError` if there is no room for the record.
    CPublishedRun(bool isPublished, const System::UnicodeString& title);
    CPublishedRun(const CPublishedRun&) = delete;
    CPublishedRun& operator=(const CPublishedRun&) = delete;
    /// Tells that the run failed, unless `Finish` was called.
    ~CPublishedRun();

    /// The run takes so many turns.
    void Start(System::Int64 turns);
    /// One turn is done, `text` is what came of it, and so many turns are left at least.
    void AddTurn(const System::UnicodeString& text, System::Int64 left);
    /// All turns are done.
    void Finish();

private:
    bool mIsFinished = false;
    BTL::CSharedProgressInfo mInfo;
};

} // namespace Station
