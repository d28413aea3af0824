// SPDX-License-Identifier: MIT
#include "forms/progress/BTL_ProgressDLG.h"

#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/visual/stdctrls/Extctrls_Timer.h"
#include "platform/visual/stdctrls/panels/Comctrls_ProgressBar.h"

#include <algorithm>
#include <limits>

using Classes::TComponentWatch;
using System::Int64;
using System::TObject;

namespace
{

int ForBar(Int64 value)
{
    return static_cast<int>(std::clamp<Int64>(value, 0, std::numeric_limits<int>::max()));
}

} // namespace

System::TMetaClass* TProgressDLG::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TProgressDLG>(u"TProgressDLG")
                                                  .Field(u"fTimer", &TProgressDLG::fTimer)
                                                  .Method(u"TimerTick", &TProgressDLG::TimerTick)
                                                  .Build();
    return record;
}

TProgressDLG::TProgressDLG(Classes::TComponent* owner) : TProgressForm(owner)
{
    ReadDesign();
}

TProgressDLG::~TProgressDLG() = default;

int TProgressDLG::GetMax() const
{
    return fProgressBar->getMax();
}

void TProgressDLG::setMax(Int64 max)
{
    fProgressBar->setMax(ForBar(max));
}

int TProgressDLG::GetPosition() const
{
    return fProgressBar->getPosition();
}

void TProgressDLG::SetProgressBarPosition(Int64 position)
{
    fProgressBar->setPosition(ForBar(position));
}

void TProgressDLG::SetPositionDelayed(int position, unsigned duration, unsigned interval)
{
    if (duration == 0 || GetPosition() >= position) {
        return SetPosition(position);
    }
    const int distance = position - GetPosition();
    const unsigned pause = std::max(interval, 1U);
    const auto ticks =
        static_cast<int>(std::clamp<unsigned>(duration / pause, 1, static_cast<unsigned>(distance)));
    fTimer->setEnabled(false);
    fTimer->setInterval(pause);
    mTarget = position;
    mStep = distance / ticks;
    mIsGliding = true;
    fTimer->setEnabled(true);
}

void TProgressDLG::TimerTick(TObject* sender)
{
    const TComponentWatch watch(this);
    if (OnTick) {
        OnTick(sender);
    }
    // The event may have cancelled. And where nothing glides, the timer is the program's own.
    if (!watch.IsAlive() || !fTimer->getEnabled() || (!mIsGliding && GetPosition() >= mTarget)) {
        return;
    }
    fTimer->setEnabled(false);
    mIsGliding = true;
    if (GetPosition() < mTarget) {
        Glide();
    }
    if (watch.IsAlive()) {
        mIsGliding = mIsGliding && GetPosition() < std::min(mTarget, GetMax());
        fTimer->setEnabled(mIsGliding);
    }
}

void TProgressDLG::Glide()
{
    const TComponentWatch watch(this);
    try {
        IncPosition(mStep);
    } catch (EProgressException) {
        // The work isn't on the stack here: its own next step tells it.
        if (watch.IsAlive()) {
            mIsGliding = false;
        }
        return;
    }
    if (watch.IsAlive() && GetPosition() > mTarget) {
        SetProgressBarPosition(mTarget);
    }
}

void TProgressDLG::StepIt()
{
    fProgressBar->StepIt();
    PositionChanged();
}

void TProgressDLG::StepBy(int delta)
{
    fProgressBar->StepBy(delta);
    PositionChanged();
}

void TProgressDLG::Cancelled()
{
    TProgressForm::Cancelled();
    mIsGliding = false;
    fTimer->setEnabled(false);
}
