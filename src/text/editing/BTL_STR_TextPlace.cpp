// SPDX-License-Identifier: MIT
#include "text/editing/BTL_STR_TextPlace.h"

#include <algorithm>
#include <cstddef>

namespace BTL
{

namespace
{

template <class View>
TTextPlace PlaceIn(View text, int position)
{
    const std::size_t at = std::min(static_cast<std::size_t>(std::max(position, 1)) - 1, text.size());
    int line = 1;
    std::size_t lineBegin = 0;
    for (std::size_t i = 0; i < at; ++i) {
        const bool isPair = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
        if (text[i] == '\n' || (text[i] == '\r' && !isPair)) {
            ++line;
            lineBegin = i + 1;
        }
    }
    return {line, static_cast<int>(at - lineBegin) + 1};
}

} // namespace

TTextPlace GetTextPlace(std::u16string_view text, int position) noexcept
{
    return PlaceIn(text, position);
}

TTextPlace GetTextPlace(std::string_view text, int position) noexcept
{
    return PlaceIn(text, position);
}

} // namespace BTL
