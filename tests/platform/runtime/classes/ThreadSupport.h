// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Thread.h"

#include <functional>

namespace Support
{

/// A thread that runs a function on its object.
class ThreadOf final : public Classes::TThread
{
public:
    explicit ThreadOf(std::function<void(ThreadOf&)> body, bool createSuspended = false)
        : TThread(createSuspended), mBody(std::move(body))
    {
        AfterConstruction();
    }
    ~ThreadOf() override { EndThread(); }

    using TThread::LeaveThread;
    using TThread::PassGate;

protected:
    void Execute() override { mBody(*this); }

private:
    std::function<void(ThreadOf&)> mBody;
};

} // namespace Support
