// SPDX-License-Identifier: MIT
#pragma once

namespace Sysutils::Detail
{

/// Whether `unit` parts the levels of a path: `\` as the library writes it, `/` as it also reads it.
[[nodiscard]] constexpr bool IsPathSeparator(char16_t unit)
{
    return unit == u'\\' || unit == u'/';
}

} // namespace Sysutils::Detail
