// SPDX-License-Identifier: MIT
#pragma once

namespace UTL
{

/// The name of a check: the source and line under which its fault is reported. They are identifiers, known to
/// users and their helpers, and stay as they are when the code around the check moves. A unit keeps those of
/// its checks as named constants.
struct CFaultPlace
{
    /// A source name without folder.
    const char* source;
    int line;
};

} // namespace UTL
