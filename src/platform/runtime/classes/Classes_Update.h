// SPDX-License-Identifier: MIT
#pragma once

#include <exception>

namespace Classes
{

/// Keeps a list or collection between `BeginUpdate` and `EndUpdate` for a scope.
///
///     const GUpdateScope scope(list);
///     list.Add(u"a");
///     list.Add(u"b");                                             // observers hear of both at once
template <class T>
class GUpdateScope
{
public:
    explicit GUpdateScope(T& target) : mTarget(target), mExceptions(std::uncaught_exceptions())
    {
        mTarget.BeginUpdate();
    }
    GUpdateScope(const GUpdateScope&) = delete;
    GUpdateScope& operator=(const GUpdateScope&) = delete;
    ~GUpdateScope() noexcept(false)
    {
        if (std::uncaught_exceptions() == mExceptions) {
            mTarget.EndUpdate();
            return;
        }
        try {
            mTarget.EndUpdate();
        } catch (...) {
            // The exception on its way tells what happened first.
        }
    }

private:
    T& mTarget;
    int mExceptions;
};

} // namespace Classes
