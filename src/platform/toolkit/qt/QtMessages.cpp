// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/QtMessages.h"

#include <QSocketNotifier>
#include <QTimer>

#include <algorithm>
#include <climits>
#include <utility>

namespace Toolkits
{

struct CQtMessages::TTimer
{
    QTimer timer;
    std::function<void()> tick;
    bool isDue = false;
};

struct CQtMessages::TWatch
{
    explicit TWatch(int descriptor) : notifier(descriptor, QSocketNotifier::Read) {}

    QSocketNotifier notifier;
    std::function<void()> action;
};

CQtMessages::CQtMessages() = default;

CQtMessages::~CQtMessages() = default;

void CQtMessages::setDispatcher(QAbstractEventDispatcher* dispatcher)
{
    {
        const std::lock_guard lock(mMutex);
        mDispatcher = dispatcher;
    }
    if (dispatcher == nullptr) {
        return;
    }
    QObject::connect(dispatcher, &QObject::destroyed, mContext.get(), [this] { setDispatcher(nullptr); });
    // Of those that a former loop had it knows nothing.
    for (const auto& [id, timer] : mTimers) {
        timer->timer.start();
    }
    for (const auto& [descriptor, watch] : mWatches) {
        watch->notifier.setEnabled(false);
        watch->notifier.setEnabled(true);
    }
}

void CQtMessages::Post(std::function<void()> action)
{
    const std::lock_guard lock(mMutex);
    // Where others wait already, the loop is awake or about to be.
    if (mActions.empty() && mDispatcher != nullptr) {
        mDispatcher->wakeUp();
    }
    mActions.push_back(std::move(action));
}

bool CQtMessages::IsEmpty()
{
    const std::lock_guard lock(mMutex);
    return mActions.empty();
}

bool CQtMessages::RunOne()
{
    std::function<void()> action;
    {
        const std::lock_guard lock(mMutex);
        if (mActions.empty()) {
            return false;
        }
        action = std::move(mActions.front());
        mActions.pop_front();
    }
    action();
    return true;
}

TTimerId CQtMessages::StartTimer(unsigned milliseconds, std::function<void()> tick)
{
    const TTimerId id = NewTimerId();
    const auto timer = std::make_shared<TTimer>();
    timer->tick = std::move(tick);
    timer->timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer->timer, &QTimer::timeout, &timer->timer,
                     [this, weak = std::weak_ptr<TTimer>(timer)] {
                         const std::shared_ptr<TTimer> due = weak.lock();
                         // Ticks that the program is late for are one.
                         if (due == nullptr || std::exchange(due->isDue, true)) {
                             return;
                         }
                         Post([weak] {
                             if (const std::shared_ptr<TTimer> running = weak.lock()) {
                                 running->isDue = false;
                                 running->tick();
                             }
                         });
                     });
    timer->timer.start(static_cast<int>(std::clamp<unsigned>(milliseconds, 1, INT_MAX)));
    mTimers.emplace(id, timer);
    return id;
}

void CQtMessages::Watch(int descriptor, std::function<void()> action)
{
    // The former one goes first: Qt has one for a descriptor.
    mWatches.erase(descriptor);
    const auto watch = std::make_shared<TWatch>(descriptor);
    watch->action = std::move(action);
    QObject::connect(&watch->notifier, &QSocketNotifier::activated, &watch->notifier,
                     [this, weak = std::weak_ptr<TWatch>(watch)] {
                         const std::shared_ptr<TWatch> ready = weak.lock();
                         if (ready == nullptr) {
                             return;
                         }
                         // It would tell over and over until somebody has read.
                         ready->notifier.setEnabled(false);
                         Post([weak] {
                             const std::shared_ptr<TWatch> running = weak.lock();
                             if (running == nullptr) {
                                 return;
                             }
                             running->notifier.setEnabled(true);
                             running->action();
                         });
                     });
    mWatches.emplace(descriptor, watch);
}

} // namespace Toolkits
