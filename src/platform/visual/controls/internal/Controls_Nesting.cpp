// SPDX-License-Identifier: MIT
#include "platform/visual/controls/internal/Controls_Nesting.h"

#include "platform/runtime/classes/Classes_ComponentWatch.h"

#include <deque>
#include <memory>

namespace Controls
{

namespace
{

/// So many levels take less than a megabyte of stack, also where the sanitizers enlarge it.
constexpr int MostLevels = 100;

struct TDeferred
{
    TWinControl* control;
    std::unique_ptr<Classes::TComponentWatch> watch;
    void (*work)(TWinControl& control);
};

struct TNesting
{
    int level = 0;
    std::deque<TDeferred> deferred;
};

TNesting& Nesting()
{
    static auto& nesting = *new TNesting;
    return nesting;
}

/// One level deeper, also while an exception passes.
class CLevel
{
public:
    CLevel() { ++Nesting().level; }
    CLevel(const CLevel&) = delete;
    CLevel& operator=(const CLevel&) = delete;
    ~CLevel() { --Nesting().level; }
};

void RunDeferred()
{
    std::deque<TDeferred>& deferred = Nesting().deferred;
    while (!deferred.empty()) {
        const TDeferred next = std::move(deferred.front());
        deferred.pop_front();
        if (next.watch->IsAlive()) {
            const CLevel level;
            next.work(*next.control);
        }
    }
}

} // namespace

void RunNested(TWinControl& control, void (*work)(TWinControl& control))
{
    TNesting& nesting = Nesting();
    if (nesting.level >= MostLevels) {
        nesting.deferred.push_back({&control, std::make_unique<Classes::TComponentWatch>(&control), work});
        return;
    }
    {
        const CLevel level;
        work(control);
    }
    if (nesting.level == 0) {
        RunDeferred();
    }
}

} // namespace Controls
