// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/lists/internal/Stdctrls_TypeAhead.h"

#include "platform/host/Host_TickCount.h"

#include <algorithm>
#include <utility>

namespace Stdctrls
{

void CTypeAhead::Take(System::WideChar character, unsigned delay)
{
    const std::uint32_t now = GetTickCount();
    if (now - std::exchange(mTypedAt, now) >= delay) {
        mTyped = {};
    }
    mTyped += System::UnicodeString(character);
}

bool CTypeAhead::IsOneLetter() const
{
    const std::u16string_view typed = mTyped.AsView();
    return typed.size() > 1 &&
           std::ranges::all_of(typed, [&](System::WideChar character) { return character == typed[0]; });
}

} // namespace Stdctrls
