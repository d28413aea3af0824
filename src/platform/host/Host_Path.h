// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <string>

// Inside the library a path is text with `\` between its parts; `/` counts as the same on input. The host's
// names are bytes, which are UTF-8 by custom only. A byte that can't stand as text is kept as the lone
// surrogate U+DC00 + byte, so that each file stays reachable under the name that the library shows:
// - a byte that isn't part of valid UTF-8 (U+DC80 to U+DCFF),
// - a `\` inside a name (U+DC5C),
// - the `:` of a name such as "a:b" at the begin of a path, where it would be read as a drive (U+DC3A).
//
//     std::ofstream stream(Sysutils::HostPath(u"\\tmp\\a.txt"));   // "/tmp/a.txt"
//     Sysutils::FromHostPath("/home/u/x");                        // "\home\u\x"

namespace Sysutils
{

/// The path as the host wants it: bytes with `/`. A drive `X:` is looked up in the drive table; a path such
/// as `X:name` counts from the current directory if that lies in the drive, else from the root of the drive.
/// The prefix `\\?\` in front of a drive is passed over.
/// An empty result means that there is no such path, and the last error tells why: 3 for the empty text and
/// an unknown drive, 123 for a text with a zero character or with a surrogate that stands for no byte.
[[nodiscard]] TRS8_BTL_API std::string HostPath(const System::UnicodeString& path);

/// The path as text of the library, never with a drive. Several separators at the begin become one.
[[nodiscard]] TRS8_BTL_API System::UnicodeString FromHostPath(std::string_view hostPath);

/// Lets the drive `letter` (A to Z, in either case) stand for the folder `hostRoot`, an absolute path of the
/// host; an empty `hostRoot` removes the drive. At start there is `C:` alone, which is the root `/`.
/// `false` with the last error 87 for another letter or for a relative root.
[[nodiscard]] TRS8_BTL_API bool SetDrive(System::WideChar letter, std::string_view hostRoot);

/// The folder for which the drive stands, without a final `/` unless it is the root; empty if there is no
/// such drive.
[[nodiscard]] TRS8_BTL_API std::string GetDrive(System::WideChar letter);

} // namespace Sysutils
