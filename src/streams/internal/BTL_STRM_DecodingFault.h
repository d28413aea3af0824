// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Sysutils_Encoding.h"

#include <optional>

namespace BTL::Detail
{

/// Where the first byte of `bytes` is that is no text in `encoding`, if `text` is what they were decoded to.
/// Nothing if all is text.
std::optional<std::size_t> FindDecodingFault(const Sysutils::TEncoding& encoding, std::string_view bytes,
                                             const System::UnicodeString& text);

} // namespace BTL::Detail
