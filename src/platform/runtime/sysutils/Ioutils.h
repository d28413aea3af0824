// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <vector>

namespace Ioutils
{

/// Operations on the text of paths. A character that no path may hold, which is the zero alone, makes
/// `Combine`, `GetFullPath`, `ChangeExtension` and the `Get` operations on parts raise
/// `Sysutils::EArgumentException`.
///
///     const auto file = TPath::Combine(TPath::GetTempPath(), u"a.txt");
///     TPath::GetFileNameWithoutExtension(file);                   // "a"
///     TPath::ChangeExtension(file, u"log");                       // ends with "a.log"
class TPath
{
public:
    TPath() = delete;

    static constexpr System::WideChar DirectorySeparatorChar = u'\\';
    static constexpr System::WideChar AltDirectorySeparatorChar = u'/';
    static constexpr System::WideChar ExtensionSeparatorChar = u'.';
    static constexpr System::WideChar PathSeparator = u';';
    static constexpr System::WideChar VolumeSeparatorChar = u':';

    /// The two with one separator between them; `second` alone if it is rooted or `first` is empty.
    TRS8_BTL_API static System::UnicodeString Combine(const System::UnicodeString& first,
                                                      const System::UnicodeString& second);
    /// As `Sysutils::ExpandFileName`. `EArgumentException` for the empty text.
    TRS8_BTL_API static System::UnicodeString GetFullPath(const System::UnicodeString& path);
    TRS8_BTL_API static System::UnicodeString GetFileName(const System::UnicodeString& path);
    TRS8_BTL_API static System::UnicodeString GetFileNameWithoutExtension(const System::UnicodeString& path);
    /// With its dot; empty for a dot at the end of the name.
    TRS8_BTL_API static System::UnicodeString GetExtension(const System::UnicodeString& path);
    TRS8_BTL_API static bool HasExtension(const System::UnicodeString& path);
    /// `extension` with or without its dot; empty removes the extension. The empty path stays empty.
    TRS8_BTL_API static System::UnicodeString ChangeExtension(const System::UnicodeString& path,
                                                              const System::UnicodeString& extension);
    /// The folder part without a final separator, unless it is the root.
    TRS8_BTL_API static System::UnicodeString GetDirectoryName(const System::UnicodeString& path);
    /// "X:", "X:\", "\", "\\server\share" or empty.
    TRS8_BTL_API static System::UnicodeString GetPathRoot(const System::UnicodeString& path);
    /// Whether the path begins with a separator or a drive.
    TRS8_BTL_API static bool IsPathRooted(const System::UnicodeString& path);
    /// Whether the path begins with "\\?\".
    [[nodiscard]] TRS8_BTL_API static bool IsExtendedPrefixed(const System::UnicodeString& path);

    /// The folder for files of a short life, with a final separator.
    [[nodiscard]] TRS8_BTL_API static System::UnicodeString GetTempPath();
    /// Makes a new empty file in the folder of `GetTempPath` and gives its path; empty on a failure.
    [[nodiscard]] TRS8_BTL_API static System::UnicodeString GetTempFileName();
    /// The user's own folder without a final separator.
    [[nodiscard]] TRS8_BTL_API static System::UnicodeString GetHomePath();

    /// The names may be matched by masks, so `*` and `?` count as valid in paths with `useWildcards`.
    [[nodiscard]] TRS8_BTL_API static bool HasValidPathChars(const System::UnicodeString& path,
                                                             bool useWildcards);
    [[nodiscard]] TRS8_BTL_API static bool HasValidFileNameChars(const System::UnicodeString& name,
                                                                 bool useWildcards);
    [[nodiscard]] TRS8_BTL_API static bool IsValidPathChar(System::WideChar character);
    [[nodiscard]] TRS8_BTL_API static bool IsValidFileNameChar(System::WideChar character);
    /// The characters that `IsValidPathChar` denies: the controls below the blank and `"`, `<`, `>`, `|`. The
    /// host could keep all but the zero, but other machines of a user may not.
    [[nodiscard]] TRS8_BTL_API static std::vector<System::WideChar> GetInvalidPathChars();
    /// The characters of `GetInvalidPathChars`, and `*`, `/`, `:`, `?`, `\`.
    [[nodiscard]] TRS8_BTL_API static std::vector<System::WideChar> GetInvalidFileNameChars();
};

} // namespace Ioutils
