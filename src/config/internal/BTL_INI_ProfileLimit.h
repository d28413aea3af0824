// SPDX-License-Identifier: MIT
#pragma once

namespace BTL::Detail
{

/// The most characters of a value that the stores on profile files read, and of all names of a list together.
constexpr int LongestProfileText = 65534;

} // namespace BTL::Detail
