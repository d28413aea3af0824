// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Component.h"
#include "platform/toolkit/Window.h"

namespace Extctrls
{

/// Calls an event from the message loop over and over.
///
///     auto* const timer = new Extctrls::TTimer(form);
///     timer->setInterval(250);
///     timer->setOnTimer({this, &TMainForm::Sample});
class TRS8_BTL_API TTimer : public Classes::TComponent
{
    TRS8_BTL_CLASS(TTimer, Classes::TComponent)

public:
    explicit TTimer(Classes::TComponent* owner = nullptr);
    ~TTimer() override;

    /// Whether it ticks; on at first.
    bool getEnabled() const noexcept { return mEnabled; }
    void setEnabled(bool isEnabled);
    /// Milliseconds from tick to tick, 1000 at first; with 0 it doesn't tick. A change begins it anew.
    unsigned getInterval() const noexcept { return mInterval; }
    void setInterval(unsigned milliseconds);
    /// Without it, nothing ticks.
    const Classes::TNotifyEvent& getOnTimer() const noexcept { return mOnTimer; }
    void setOnTimer(const Classes::TNotifyEvent& event);

protected:
    /// Called at each tick.
    virtual void Timer();

private:
    void Restart();
    void Stop();
    void Tick();

    Toolkits::TTimerId mTimer = 0;
    unsigned mInterval = 1000;
    bool mEnabled = true;
    Classes::TNotifyEvent mOnTimer;
};

} // namespace Extctrls
