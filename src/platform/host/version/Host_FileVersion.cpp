// SPDX-License-Identifier: MIT
#include "platform/host/version/Host_FileVersion.h"

#include "platform/base/System_String.h"
#include "platform/base/internal/System_Ascii.h"
#include "platform/host/Host_Error.h"
#include "platform/host/version/internal/Host_VersionNote.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

namespace
{

using System::Detail::AsciiHexValue;
using System::Detail::AsciiLower;

/// In front of the texts of a block, which are `KEY=VALUE` each and ended by a zero.
struct TBlockHead
{
    /// Of the texts, in bytes.
    std::uint32_t size;
    /// Whether the data tell language and code page.
    std::uint32_t isTranslated;
    std::array<std::uint16_t, 2> translation;
};

bool EqualsInAnyCase(std::string_view a, std::string_view b)
{
    return std::ranges::equal(a, b, {}, AsciiLower<char>, AsciiLower<char>);
}

/// Takes `head` off the front of `text` in any case.
bool TakePrefix(std::string_view& text, std::string_view head)
{
    if (!EqualsInAnyCase(text.substr(0, head.size()), head)) {
        return false;
    }
    text.remove_prefix(head.size());
    return true;
}

/// The value of the key in texts as a block has them, or in a note; nothing if there is none.
std::optional<std::string_view> FindText(std::string_view texts, std::string_view key)
{
    while (!texts.empty()) {
        std::string_view text = texts.substr(0, texts.find('\0'));
        texts.remove_prefix(std::min(text.size() + 1, texts.size()));
        if (TakePrefix(text, key) && text.starts_with('=')) {
            return text.substr(1);
        }
    }
    return std::nullopt;
}

/// Eight hexadecimal digits as two numbers.
std::optional<std::array<std::uint16_t, 2>> ReadTranslation(std::string_view text)
{
    std::uint32_t value = 0;
    for (const char digit : text) {
        if (AsciiHexValue(digit) < 0) {
            return std::nullopt;
        }
        value = value << 4 | static_cast<std::uint32_t>(AsciiHexValue(digit));
    }
    return text.size() == 8 ? std::optional(std::array{static_cast<std::uint16_t>(value >> 16),
                                                       static_cast<std::uint16_t>(value)})
                            : std::nullopt;
}

/// The texts of the file as a block has them.
std::optional<System::AnsiString> ReadTexts(const System::WideChar* file)
{
    const std::optional<std::string> note = Host::ReadVersionNote(file);
    if (!note) {
        return std::nullopt;
    }
    System::AnsiString texts(System::FromUtf8(*note));
    // The last one of damaged data may have no end.
    texts += '\0';
    return texts;
}

unsigned long BlockSize(const System::AnsiString& texts)
{
    return static_cast<unsigned long>(sizeof(TBlockHead) + texts.AsView().size());
}

} // namespace

unsigned long GetFileVersionInfoSizeW(const System::WideChar* file, unsigned long* handle)
{
    if (handle != nullptr) {
        *handle = 0;
    }
    const auto texts = ReadTexts(file);
    return texts ? BlockSize(*texts) : 0;
}

bool GetFileVersionInfoW(const System::WideChar* file, unsigned long /*handle*/, unsigned long size,
                         void* buffer)
{
    const auto texts = ReadTexts(file);
    if (!texts) {
        return false;
    }
    if (buffer == nullptr || size < BlockSize(*texts)) {
        return Host::Fail(ERROR_INSUFFICIENT_BUFFER);
    }
    const std::string_view bytes = texts->AsView();
    const auto translation = ReadTranslation(FindText(bytes, "Translation").value_or(std::string_view()));
    const TBlockHead head{static_cast<std::uint32_t>(bytes.size()), translation.has_value(),
                          translation.value_or(std::array<std::uint16_t, 2>())};
    std::memcpy(buffer, &head, sizeof head);
    std::memcpy(static_cast<char*>(buffer) + sizeof head, bytes.data(), bytes.size());
    return true;
}

bool VerQueryValueA(const void* block, const char* path, const void** value, unsigned* length)
{
    if (block == nullptr || path == nullptr || value == nullptr || length == nullptr) {
        return Host::Fail(ERROR_INVALID_PARAMETER);
    }
    const auto& head = *static_cast<const TBlockHead*>(block);
    const std::string_view texts(static_cast<const char*>(block) + sizeof head, head.size);
    std::string_view left = path;
    TakePrefix(left, "\\");
    if (head.isTranslated == 0) {
        return Host::Fail(ERROR_NOT_FOUND);
    }
    if (EqualsInAnyCase(left, "VarFileInfo\\Translation")) {
        *value = head.translation.data();
        *length = sizeof head.translation;
        return true;
    }
    constexpr std::size_t digits = 8;
    if (!TakePrefix(left, "StringFileInfo\\") ||
        ReadTranslation(left.substr(0, digits)) != head.translation) {
        return Host::Fail(ERROR_NOT_FOUND);
    }
    left.remove_prefix(digits);
    const auto text = TakePrefix(left, "\\") ? FindText(texts, left) : std::nullopt;
    if (!text) {
        return Host::Fail(ERROR_NOT_FOUND);
    }
    *value = text->data();
    *length = static_cast<unsigned>(text->size() + 1);
    return true;
}
