// SPDX-License-Identifier: MIT
#include "forms/progress/BTL_ProgressDialogWithTimekeeper.h"

#include "platform/base/numbers/Sysutils_Integer.h"

namespace BTL
{

using System::Int64;
using System::UnicodeString;

namespace
{

constexpr unsigned long MillisecondsOfEstimate = 1000;

} // namespace

void CProgressDialogWithTimekeeper::Prepare(Int64 max, bool throwOnCancel, bool showCancel,
                                            const UnicodeString& caption, const UnicodeString& text2,
                                            int width)
{
    CProgress64Dialog::Prepare(max, throwOnCancel, showCancel, caption, u"0 ... " + Sysutils::IntToStr(max),
                               text2, nullptr, width);
}

void CProgressDialogWithTimekeeper::Start(Int64 max)
{
    CProgress64Dialog::Start(max);
    mEstimated = 0;
    mEstimate = {};
    mTicks.Start();
}

void CProgressDialogWithTimekeeper::Stop()
{
    CProgress64Dialog::Stop();
    mTicks.Stop();
    setText1(CountText() + u" [" + mTicks.getLastDuration() + u"]");
}

void CProgressDialogWithTimekeeper::IncPosition(int step)
{
    CProgress64Dialog::IncPosition(step);
    SetDuartionInfo();
}

bool CProgressDialogWithTimekeeper::IncPositionModulo(int modulo)
{
    const bool isShown = CProgress64Dialog::IncPositionModulo(modulo);
    if (isShown) {
        SetDuartionInfo();
    }
    return isShown;
}

void CProgressDialogWithTimekeeper::SetDuartionInfo()
{
    const unsigned long now = mTicks.GetTicks();
    if (now - mEstimated > MillisecondsOfEstimate) {
        mEstimated = now;
        mEstimate = u" [" + mTicks.GetDuartionInfo(getPosition(), getMax()) + u"]";
    }
    setText1(CountText() + mEstimate);
}

UnicodeString CProgressDialogWithTimekeeper::CountText() const
{
    return Sysutils::IntToStr(getPosition()) + u" ... " + Sysutils::IntToStr(getMax());
}

} // namespace BTL
