// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Exceptions.h"

#include <algorithm>
#include <vector>

namespace Classes
{

/// -1 if `item` isn't in the list.
template <class T>
[[nodiscard]] int IndexIn(const std::vector<T*>& list, const T* item)
{
    const auto found = std::ranges::find(list, item);
    return found == list.end() ? -1 : static_cast<int>(found - list.begin());
}

/// Moves the item at `from` to `to`, which is held within the list.
template <class T>
void MoveItem(std::vector<T*>& list, int from, int to)
{
    to = std::clamp(to, 0, static_cast<int>(list.size()) - 1);
    const auto begin = list.begin();
    if (from < to) {
        std::rotate(begin + from, begin + from + 1, begin + to + 1);
    } else {
        std::rotate(begin + to, begin + from, begin + from + 1);
    }
}

[[noreturn]] inline void ThrowListIndex(int index)
{
    throw EListError(u"List index out of bounds (" + System::UnicodeString(index) + u")");
}

} // namespace Classes
