// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Component.h"

#include <utility>
#include <vector>

namespace BTL
{

/// Calls `visit` for each component below `root`, depth first and each before what it owns. It goes on below
/// those for which `visit` gives true. Trees may be deeper than the stack bears.
template <class Visit>
void WalkOwned(const Classes::TComponent& root, Visit visit)
{
    std::vector<std::pair<const Classes::TComponent*, int>> path{{&root, 0}};
    while (!path.empty()) {
        auto& [owner, next] = path.back();
        if (next >= owner->GetComponentCount()) {
            path.pop_back();
            continue;
        }
        Classes::TComponent* const component = owner->GetComponent(next++);
        if (visit(component)) {
            path.emplace_back(component, 0);
        }
    }
}

} // namespace BTL
