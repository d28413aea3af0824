// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/Extctrls_Timer.h"

#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/toolkit/Toolkit.h"
#include "platform/visual/controls/Controls_FormHost.h"

namespace Extctrls
{

System::TMetaClass* TTimer::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TTimer>(u"TTimer")
            .Property(u"Enabled", &TTimer::getEnabled, &TTimer::setEnabled, {.defaultValue = 1})
            .Property(u"Interval", &TTimer::getInterval, &TTimer::setInterval, {.defaultValue = 1000})
            .Property(u"OnTimer", &TTimer::getOnTimer, &TTimer::setOnTimer)
            .Build();
    return record;
}

TTimer::TTimer(Classes::TComponent* owner) : Classes::TComponent(owner) {}

TTimer::~TTimer()
{
    Stop();
}

void TTimer::setEnabled(bool isEnabled)
{
    if (isEnabled != mEnabled) {
        mEnabled = isEnabled;
        Restart();
    }
}

void TTimer::setInterval(unsigned milliseconds)
{
    if (milliseconds != mInterval) {
        mInterval = milliseconds;
        Restart();
    }
}

void TTimer::setOnTimer(const Classes::TNotifyEvent& event)
{
    mOnTimer = event;
    Restart();
}

void TTimer::Stop()
{
    if (mTimer != 0) {
        Toolkits::CurrentToolkit().StopTimer(std::exchange(mTimer, 0));
    }
}

void TTimer::Restart()
{
    Stop();
    if (mEnabled && mInterval > 0 && mOnTimer && !getComponentState().Contains(Classes::csDesigning)) {
        mTimer = Toolkits::CurrentToolkit().StartTimer(mInterval, [this] { Tick(); });
    }
}

void TTimer::Tick()
{
    try {
        Timer();
    } catch (...) {
        if (Controls::ApplicationLinks().HandleException == nullptr) {
            throw;
        }
        Controls::ApplicationLinks().HandleException(nullptr);
    }
}

void TTimer::Timer()
{
    if (mOnTimer) {
        mOnTimer(this);
    }
}

} // namespace Extctrls
