// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

// Names in form resources: UTF-8 identifiers of letters, digits and underscores as those of components.

namespace Classes::Form
{

/// A character and the count of its bytes; the code is negative where the bytes are no UTF-8.
struct TCharacter
{
    std::int32_t code;
    std::size_t size;
};

/// The character that `text`, which isn't empty, begins with.
[[nodiscard]] TCharacter CharacterOf(std::string_view text) noexcept;
/// The count of bytes of the identifier that `text` begins with; 0 if it begins with none.
[[nodiscard]] std::size_t IdentifierLength(std::string_view text) noexcept;
[[nodiscard]] bool IsIdentifier(std::string_view text) noexcept;
/// As `IsIdentifier`, for one or several identifiers with points between them.
[[nodiscard]] bool IsPath(std::string_view text) noexcept;
/// Whether all of it is below 128.
[[nodiscard]] bool IsAscii(std::string_view bytes) noexcept;
[[nodiscard]] bool IsUtf8(std::string_view bytes) noexcept;
/// Whether some unit is half of a surrogate pair alone, so that the text has no UTF-8.
[[nodiscard]] bool HasLoneSurrogate(std::u16string_view text) noexcept;
/// Whether both are the same ASCII text, case aside.
[[nodiscard]] bool SameAsciiText(std::string_view a, std::string_view b) noexcept;

} // namespace Classes::Form
