// SPDX-License-Identifier: MIT
#pragma once

#include "forms/progress/BTL_ProgressForm.h"

/// A dialog of progress that counts in 64 bits; the bar shows what part is done.
///
///     TProgress64DLG dialog;
///     dialog.Prepare(bytes, true, true, u"Copy", u"From A to B", u"", u"", 0);
///     dialog.Start(0);
///     for (...) { Copy(); dialog.IncPosition(64); }               // throws EProgressException on Cancel
///     dialog.Stop();
class TRS8_BTL_API TProgress64DLG : public TProgressForm
{
    TRS8_BTL_CLASS(TProgress64DLG, TProgressForm)

public:
    explicit TProgress64DLG(Classes::TComponent* owner = nullptr);
    ~TProgress64DLG() override;

    /// 100 at first.
    System::Int64 getMax() const override { return mMax; }
    void setMax(System::Int64 max) override;
    System::Int64 getProgressPosition() const override { return mPosition; }
    void SetProgressBarPosition(System::Int64 position) override;

protected:
    void KeepPosition(System::Int64 position) override { mPosition = position; }

private:
    System::Int64 mMax = 100;
    System::Int64 mPosition = 0;
    /// What 1000 steps of the bar stand for; 0 for a bar that counts as the dialog does.
    System::Int64 mScaleDivisor = 0;
};
