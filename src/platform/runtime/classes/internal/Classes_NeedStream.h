// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Stream.h"

namespace Classes
{

/// `EStreamError` for null.
inline TStream& NeedStream(TStream* stream)
{
    if (stream == nullptr) {
        throw EStreamError(u"There is no stream");
    }
    return *stream;
}

} // namespace Classes
