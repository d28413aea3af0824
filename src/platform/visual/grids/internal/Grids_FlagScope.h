// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_ComponentWatch.h"

#include <utility>

namespace Grids
{

/// Holds a flag of a component on for a while. The component may be destroyed meanwhile.
class CFlagScope
{
public:
    CFlagScope(const Classes::TComponent& owner, bool& flag)
        : mWatch(&owner), mFlag(flag), mFormer(std::exchange(flag, true))
    {
    }
    CFlagScope(const CFlagScope&) = delete;
    CFlagScope& operator=(const CFlagScope&) = delete;
    ~CFlagScope()
    {
        if (mWatch.IsAlive()) {
            mFlag = mFormer;
        }
    }

private:
    Classes::TComponentWatch mWatch;
    bool& mFlag;
    bool mFormer;
};

} // namespace Grids
