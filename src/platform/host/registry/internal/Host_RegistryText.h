// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace Host
{

/// A text, a number or bytes.
using RegistryValue = std::variant<System::UnicodeString, std::uint32_t, std::string>;

/// The keys of a registry file with their values, and its text form:
///
///     ; a remark
///     [HKEY_CURRENT_USER\Software\Station]
///     Title=Bench 3
///     Count=int:12
///     Data=hex:00ff
///     [Ports]
///     COM7=/dev/pts/3
///
/// Names are found without regard to case. A character that can't stand for itself is `%` with its four hex
/// digits. A line that is none of these is kept as it is.
class TRS8_BTL_API RegistryText
{
public:
    struct Entry
    {
        System::UnicodeString name;
        RegistryValue value;
        friend bool operator==(const Entry&, const Entry&) = default;
    };

    struct Key
    {
        System::UnicodeString path;
        /// By their names in lower case.
        std::map<System::UnicodeString, Entry> entries;
        /// Lines that tell no value.
        std::vector<std::string> remarks;
        friend bool operator==(const Key&, const Key&) = default;
    };

    [[nodiscard]] static RegistryText Parse(std::string_view text);
    [[nodiscard]] std::string Write() const;

    /// Whether there is the key, or one below it.
    [[nodiscard]] bool HasKey(const System::UnicodeString& path) const;
    /// Null if the key has no values; it may have keys below.
    [[nodiscard]] const Key* FindKey(const System::UnicodeString& path) const;
    Key& MakeKey(const System::UnicodeString& path);
    /// With all that is below it; false if there is nothing.
    bool DeleteKey(const System::UnicodeString& path);
    /// The names of the keys right below.
    [[nodiscard]] std::vector<System::UnicodeString> KeysBelow(const System::UnicodeString& path) const;

    [[nodiscard]] const RegistryValue* Find(const System::UnicodeString& path,
                                            const System::UnicodeString& name) const;
    void Set(const System::UnicodeString& path, const System::UnicodeString& name, RegistryValue value);
    /// False if there is no such value.
    bool Delete(const System::UnicodeString& path, const System::UnicodeString& name);

    friend bool operator==(const RegistryText&, const RegistryText&) = default;

private:
    /// By their paths in lower case.
    std::map<System::UnicodeString, Key> mKeys;
};

/// The path with one `\` between its parts, and none at the ends.
[[nodiscard]] TRS8_BTL_API System::UnicodeString RegistryPath(const System::UnicodeString& path);

} // namespace Host
