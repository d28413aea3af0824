// SPDX-License-Identifier: MIT
#pragma once

#include "streams/BTL_STRM_AStream.h"

#include <string>

namespace Support
{

/// The bits of the state as letters, and the position.
inline std::string StateOf(const BTL::AStream& stream)
{
    std::string text;
    text += stream.eof() ? "e" : "";
    text += stream.fail() ? "f" : "";
    text += stream.bad() ? "b" : "";
    return text + std::to_string(stream.GetPosition());
}

} // namespace Support
