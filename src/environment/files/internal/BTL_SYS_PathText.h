// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "platform/host/internal/Host_PathText.h"

namespace BTL::Detail
{

/// The part of a path that no folder is made for: a drive, a server and its share, or nothing, and the
/// separators behind it.
[[nodiscard]] std::size_t RootLength(std::u16string_view path);

/// Whether the path is the root of the host or of a drive and no more.
[[nodiscard]] bool IsRoot(const System::UnicodeString& path);

/// Calls `visit` with each piece of `path`, up to and with the separators behind it, until it gives false.
/// Gives what the last call gave, true if there was none.
template <class Visit>
bool ForEachPiece(std::u16string_view path, Visit visit)
{
    while (!path.empty()) {
        std::size_t length = 0;
        while (length < path.size() && !Sysutils::Detail::IsPathSeparator(path[length])) {
            ++length;
        }
        while (length < path.size() && Sysutils::Detail::IsPathSeparator(path[length])) {
            ++length;
        }
        if (!visit(System::UnicodeString(path.substr(0, length)))) {
            return false;
        }
        path.remove_prefix(length);
    }
    return true;
}

} // namespace BTL::Detail
