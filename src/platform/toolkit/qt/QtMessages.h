// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/Window.h"

#include <QAbstractEventDispatcher>

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <mutex>

namespace Toolkits
{

/// What the program has its message loop do: actions of any thread, ticks of timers, descriptors that are
/// looked after. All of it runs outside of Qt, so that an exception comes out of the message loop. Of the
/// main thread, but for `Post`.
class CQtMessages
{
public:
    CQtMessages();
    CQtMessages(const CQtMessages&) = delete;
    CQtMessages& operator=(const CQtMessages&) = delete;
    ~CQtMessages();

    /// Qt's own loop, once there is one; it is woken for what is posted. Timers and descriptors go on in it.
    /// It may end before this, and another one follow.
    void setDispatcher(QAbstractEventDispatcher* dispatcher);

    void Post(std::function<void()> action);
    /// Runs the action that waits longest; false if there is none.
    bool RunOne();
    bool IsEmpty();

    TTimerId StartTimer(unsigned milliseconds, std::function<void()> tick);
    void StopTimer(TTimerId timer) { mTimers.erase(timer); }
    void Watch(int descriptor, std::function<void()> action);
    void Unwatch(int descriptor) { mWatches.erase(descriptor); }

private:
    struct TTimer;
    struct TWatch;

    /// What it is connected by, so that it hears nothing when it is gone.
    std::unique_ptr<QObject> mContext = std::make_unique<QObject>();
    std::mutex mMutex;
    std::deque<std::function<void()>> mActions;
    /// Under the lock as well, so that nobody wakes one that ends meanwhile.
    QAbstractEventDispatcher* mDispatcher = nullptr;
    std::map<TTimerId, std::shared_ptr<TTimer>> mTimers;
    std::map<int, std::shared_ptr<TWatch>> mWatches;
};

} // namespace Toolkits
