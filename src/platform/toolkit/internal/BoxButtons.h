// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/MessageBox.h"

#include <algorithm>
#include <array>
#include <span>

namespace Toolkits
{

/// The answers of the buttons that a box of these flags has, in order; OK alone for a set that isn't known.
inline std::span<const int> ButtonsOf(unsigned flags)
{
    static constexpr std::array sets = {
        std::array{IDOK, 0, 0},
        std::array{IDOK, IDCANCEL, 0},
        std::array{IDABORT, IDRETRY, IDIGNORE},
        std::array{IDYES, IDNO, IDCANCEL},
        std::array{IDYES, IDNO, 0},
        std::array{IDRETRY, IDCANCEL, 0},
    };
    const std::size_t set = flags & MB_TYPEMASK;
    const auto& buttons = sets[set < sets.size() ? set : MB_OK];
    const auto* const end = std::ranges::find(buttons, 0);
    return {buttons.begin(), static_cast<std::size_t>(end - buttons.begin())};
}

inline bool HasButton(unsigned flags, int answer)
{
    const auto buttons = ButtonsOf(flags);
    return std::ranges::find(buttons, answer) != buttons.end();
}

} // namespace Toolkits
