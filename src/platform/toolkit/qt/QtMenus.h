// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <vector>

class QMenu;

namespace Toolkits
{

struct TMenuEntry;

/// Adds the entries to a menu; `choose` is called with the id of one that is chosen.
void FillMenu(QMenu& menu, const std::vector<TMenuEntry>& entries, const std::function<void(int)>& choose);

} // namespace Toolkits
