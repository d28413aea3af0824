// SPDX-License-Identifier: MIT
#pragma once

#include "forms/progress/BTL_ProgressDialog.h"
#include "os/WIN_TickCount.h"

namespace BTL
{

/// A dialog of progress whose first text tells the count and, once a second anew, how long the rest will
/// take; at the end, how long it took.
///
///     BTL::CProgressDialogWithTimekeeper progress;
///     progress.Prepare(count, true, true, u"Import", u"Reading", 0);
///     progress.Start(count);
///     for (...) { progress.IncPosition(1); }                      // "17 ... 400 [Restzeit: 0:0:42]"
///     progress.Stop();
class TRS8_BTL_API CProgressDialogWithTimekeeper : public CProgress64Dialog
{
public:
    using CProgress64Dialog::CProgress64Dialog;

    /// As `TProgressForm::Prepare`; there are no lines.
    void Prepare(System::Int64 max, bool throwOnCancel, bool showCancel, const System::UnicodeString& caption,
                 const System::UnicodeString& text2, int width);
    void Start(System::Int64 max);
    void Stop();
    void IncPosition(int step);
    bool IncPositionModulo(int modulo);
    /// Shows the count, and an estimate that is at most a second old.
    void SetDuartionInfo();

private:
    System::UnicodeString CountText() const;

    WIN::CTickCount mTicks;
    /// The milliseconds since the start at which the last estimate was made.
    unsigned long mEstimated = 0;
    System::UnicodeString mEstimate;
};

} // namespace BTL
