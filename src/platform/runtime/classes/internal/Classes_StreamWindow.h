// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Stream.h"

#include <exception>
#include <optional>

namespace Classes
{

/// Looks at bytes of a stream that are in memory anyway, so that reading byte by byte needs no call per byte.
class CStreamWindow
{
public:
    /// Bytes from the position on, which stays, at least one if there is one. Empty at the end, and for
    /// streams of classes that only `Read` can tell about. Valid until the next call of the stream.
    static std::string_view Of(TStream& stream) { return stream.Window(); }

    /// Whether an empty window is the end of what can be read.
    static bool ShowsEnd(const TStream& stream) { return stream.ShowsEnd(); }

    /// For those who read up to the end, once they got a first byte: `EReadError` for a device that has none.
    static void CheckHasEnd(const TStream& stream)
    {
        if (stream.IsEndless()) {
            throw EReadError(u"A device without an end can't be read as a whole");
        }
    }

    /// Moves behind `count` bytes of the window that was just shown, which a stream that can't seek can too.
    static void Pass(TStream& stream, std::size_t count)
    {
        stream.PassWindow(static_cast<System::Int64>(count));
    }
};

/// The position; nothing for a stream that can't seek: one that gives a negative position or raises.
inline std::optional<System::Int64> ToldPosition(TStream& stream)
{
    try {
        const System::Int64 position = stream.Seek(0, soCurrent);
        return position < 0 ? std::nullopt : std::optional(position);
    } catch (const EWriteError&) {
        // Gathered bytes that were lost don't tell about the position, and must be told of.
        throw;
    } catch (const Sysutils::Exception&) {
        return std::nullopt;
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

} // namespace Classes
