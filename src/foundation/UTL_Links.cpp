// SPDX-License-Identifier: MIT
#include "foundation/UTL_Links.h"

namespace UTL
{

namespace
{

constinit TLinks links;

} // namespace

TLinks& Links() noexcept
{
    return links;
}

} // namespace UTL
