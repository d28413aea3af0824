// SPDX-License-Identifier: MIT
#pragma once

#include "streams/BTL_STRM_TextForm.h"

#include <string_view>

namespace BTL::Detail
{

/// The characters that end a line so.
constexpr std::u16string_view EndText(ELineEnd lineEnd)
{
    switch (lineEnd) {
    case ELineEnd::LF:
        return u"\n";
    case ELineEnd::CRLF:
        return u"\r\n";
    case ELineEnd::CR:
        return u"\r";
    default:
        return {};
    }
}

} // namespace BTL::Detail
