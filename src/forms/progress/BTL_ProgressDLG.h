// SPDX-License-Identifier: MIT
#pragma once

#include "forms/progress/BTL_ProgressForm.h"

namespace Extctrls
{
class TTimer;
} // namespace Extctrls

/// As `TProgress64DLG`, but counts in 32 bits, in the bar itself, and can let that glide to a position.
///
///     TProgressDLG dialog;
///     dialog.Prepare(100, false, true, u"Heating", u"", u"", u"", 0);
///     dialog.Start(0);
///     dialog.SetPositionDelayed(80, 2000, 50);                    // in two seconds, a step each 50 ms
class TRS8_BTL_API TProgressDLG : public TProgressForm
{
    TRS8_BTL_CLASS(TProgressDLG, TProgressForm)

public:
    explicit TProgressDLG(Classes::TComponent* owner = nullptr);
    ~TProgressDLG() override;

    Extctrls::TTimer* fTimer = nullptr;

    /// Told at each tick of a position that glides, before the bar moves.
    Classes::TNotifyEvent OnTick;

    System::Int64 getMax() const override { return GetMax(); }
    /// Held within the numbers of 32 bits from 0 on.
    void setMax(System::Int64 max) override;
    System::Int64 getProgressPosition() const override { return GetPosition(); }
    void SetProgressBarPosition(System::Int64 position) override;

    /// 100 at first.
    int GetMax() const;
    void SetMax(int max) { setMax(max); }
    /// What the bar shows; as `setPosition`.
    int GetPosition() const;
    void SetPosition(int position) { setPosition(System::Int64(position)); }

    /// Lets the bar glide to `position` within `duration` milliseconds, a step at each `interval`; at once
    /// for a `duration` of 0 or a bar that is there already. An `interval` of 0 counts as 1. Cancel stops it.
    void SetPositionDelayed(int position, unsigned duration, unsigned interval);
    /// Moves the bar by its own step, or by `delta`.
    void StepIt();
    void StepBy(int delta);

    // The operations of `TProgressForm`, as users of this dialog call them.

    using TProgressForm::GetText;
    using TProgressForm::SetText;

    /// As `getUserCancel`, `setUserCancel`.
    bool GetUserCancel() const noexcept { return getUserCancel(); }
    void SetUserCancel(bool isCancelled) noexcept { setUserCancel(isCancelled); }
    /// As `getShowOk`, `setShowOk`.
    bool GetShowOk() const { return getShowOk(); }
    void SetShowOk(bool isShown) { setShowOk(isShown); }
    /// As `getShowCancel`, `setShowCancel`.
    bool GetShowCancel() const { return getShowCancel(); }
    void SetShowCancel(bool isShown) { setShowCancel(isShown); }
    /// As `setLinesHeight`.
    void SetLinesHeight(int height) { setLinesHeight(height); }
    /// As `getText`, `setText`.
    System::UnicodeString GetText(int index) const { return getText(index); }
    void SetText(int index, const System::UnicodeString& text) { setText(index, text); }
    /// As `getText1`, `setText1`.
    System::UnicodeString GetText1() const { return getText1(); }
    void SetText1(const System::UnicodeString& text) { setText1(text); }
    /// As `getText2`, `setText2`.
    System::UnicodeString GetText2() const { return getText2(); }
    void SetText2(const System::UnicodeString& text) { setText2(text); }
    /// As `getLines`.
    Classes::TStrings* GetLines() const { return getLines(); }
    /// As `setProgressBar`.
    void SetProgressBar(bool isShown) { setProgressBar(isShown); }
    /// As `setShowText1`, `setShowText2` and `setShowLines`.
    void SetShowText1(bool isShown) { setShowText1(isShown); }
    void SetShowText2(bool isShown) { setShowText2(isShown); }
    void SetShowLines(bool isShown) { setShowLines(isShown); }

protected:
    void KeepPosition(System::Int64 position) override { SetProgressBarPosition(position); }
    void Cancelled() override;

private:
    void TimerTick(System::TObject* sender);
    void Glide();

    int mTarget = 0;
    int mStep = 1;
    /// From `SetPositionDelayed` up to the goal, or Cancel.
    bool mIsGliding = false;
};
