// SPDX-License-Identifier: MIT
#include "platform/runtime/typinfo/System_Method.h"

namespace System
{

TMethodCode::~TMethodCode() = default;

bool TMethod::Equal(const TMethod& a, const TMethod& b) noexcept
{
    const bool sameCode = a.Code == b.Code || (a.Code && b.Code && a.Code->Equals(*b.Code));
    return sameCode && a.Data == b.Data;
}

} // namespace System
