// SPDX-License-Identifier: MIT
#include <malloc.h>

#include <climits>

namespace
{

/// Lets the process keep the memory that it frees. By default blocks of many megabytes go back to the system
/// and come again page by page, at times only for one of the two sides of a comparison: whether they do
/// depends on what was measured before. That can cost more than the work that is to be compared.
[[maybe_unused]] const bool keepsMemory =
    mallopt(M_MMAP_MAX, 0) != 0 && mallopt(M_TRIM_THRESHOLD, INT_MAX) != 0;

} // namespace
