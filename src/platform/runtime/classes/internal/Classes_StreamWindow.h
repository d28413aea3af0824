// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Stream.h"

namespace Classes
{

/// Looks at bytes of a stream that are in memory anyway, so that reading byte by byte needs no call per byte.
class CStreamWindow
{
public:
    /// Bytes from the position on, which stays, at least one if there is one. Empty at the end, and for
    /// streams of classes that only `Read` can tell about. Valid until the next call of the stream.
    static std::string_view Of(TStream& stream) { return stream.Window(); }
};

} // namespace Classes
