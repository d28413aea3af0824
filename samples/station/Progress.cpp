// SPDX-License-Identifier: MIT
#include "Progress.h"

#include <algorithm>

namespace Station
{

// Without a record nothing is written anywhere.
CPublishedRun::CPublishedRun(bool isPublished, const System::UnicodeString& title)
    : mInfo(!isPublished, RunRecord, 0)
{
    mInfo.Prepare(0, false, false, title, u"", u"", u"", 0);
}

CPublishedRun::~CPublishedRun()
{
    if (!mIsFinished) {
        mInfo.setMessage(u"failed");
    }
}

void CPublishedRun::Start(System::Int64 turns)
{
    mInfo.Start(turns);
}

void CPublishedRun::AddTurn(const System::UnicodeString& text, System::Int64 left)
{
    mInfo.setText1(text);
    mInfo.IncPosition();
    // Others may have put the end off.
    mInfo.setMax(std::max(mInfo.getMax(), mInfo.getPosition() + left));
}

void CPublishedRun::Finish()
{
    mInfo.SetProgressEndPosition();
    mInfo.setMessage(RunDone);
    mIsFinished = true;
}

} // namespace Station
