// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

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
        const auto end = path.find_first_of(u"\\/");
        const auto length =
            end == std::u16string_view::npos ? path.size() : path.find_first_not_of(u"\\/", end);
        if (!visit(System::UnicodeString(path.substr(0, length)))) {
            return false;
        }
        path.remove_prefix(length == std::u16string_view::npos ? path.size() : length);
    }
    return true;
}

} // namespace BTL::Detail
