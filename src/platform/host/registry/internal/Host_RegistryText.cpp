// SPDX-License-Identifier: MIT
#include "platform/host/registry/internal/Host_RegistryText.h"

#include "platform/base/internal/System_Ascii.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace Host
{

namespace
{

using System::UnicodeString;

constexpr std::string_view NumberMark = "int:";
constexpr std::string_view BytesMark = "hex:";
constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view HexDigits = "0123456789abcdef";
constexpr std::size_t EscapeDigits = 4;

bool IsUpToBlank(char c)
{
    return static_cast<unsigned char>(c) <= ' ';
}

std::string_view Trimmed(std::string_view text)
{
    const auto begin = std::ranges::find_if_not(text, IsUpToBlank);
    text.remove_prefix(static_cast<std::size_t>(begin - text.begin()));
    while (!text.empty() && IsUpToBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

/// A line without what stands around it; editors put a byte order mark in front of the first.
std::string_view LineOf(std::string_view line)
{
    line = Trimmed(line);
    while (line.starts_with(ByteOrderMark)) {
        line = Trimmed(line.substr(ByteOrderMark.size()));
    }
    return line;
}

bool IsSurrogate(char16_t unit)
{
    return (unit & 0xF800U) == 0xD800U;
}

/// Whether the unit at `index` stands for itself nowhere in a file.
bool NeedsEscape(std::u16string_view text, std::size_t index)
{
    const char16_t unit = text[index];
    const bool isEnd = index == 0 || index + 1 == text.size();
    if (unit < u' ' || unit == u'%' || unit == u'\x7F' || unit == u'\uFEFF' || (isEnd && unit == u' ')) {
        return true;
    }
    if (!IsSurrogate(unit)) {
        return false;
    }
    const bool isFirst = (unit & 0x0400U) == 0;
    const std::size_t other = isFirst ? index + 1 : index - 1;
    // A half without its other half, which is looked for by the kind of this one.
    return other >= text.size() || !IsSurrogate(text[other]) || ((text[other] & 0x0400U) == 0) == isFirst;
}

/// `extra` tells which units can't stand at their place either.
template <class Extra>
std::string Escaped(std::u16string_view text, Extra extra)
{
    UnicodeString escaped;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        if (!NeedsEscape(text, i) && !extra(unit, i)) {
            escaped += unit;
            continue;
        }
        escaped += u'%';
        for (int shift = 12; shift >= 0; shift -= 4) {
            escaped += static_cast<char16_t>(HexDigits[(unit >> shift) & 15U]);
        }
    }
    return System::ToUtf8(escaped);
}

UnicodeString Unescaped(std::string_view text)
{
    const UnicodeString wide = System::FromUtf8(text);
    const std::u16string_view units = wide.AsView();
    std::u16string result;
    for (std::size_t i = 0; i < units.size(); ++i) {
        const std::u16string_view digits = units.substr(i + 1, EscapeDigits);
        const bool isEscape = units[i] == u'%' && digits.size() == EscapeDigits &&
                              std::ranges::all_of(digits, [](char16_t unit) {
                                  return System::Detail::AsciiHexValue(unit) >= 0;
                              });
        if (!isEscape) {
            result += units[i];
            continue;
        }
        unsigned code = 0;
        for (const char16_t digit : digits) {
            code = code * 16 + static_cast<unsigned>(System::Detail::AsciiHexValue(digit));
        }
        result += static_cast<char16_t>(code);
        i += EscapeDigits;
    }
    return UnicodeString(std::u16string_view(result));
}

std::string BytesText(std::string_view bytes)
{
    std::string text(BytesMark);
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        text += HexDigits[byte >> 4U];
        text += HexDigits[byte & 15U];
    }
    return text;
}

bool ReadBytes(std::string_view text, std::string& bytes)
{
    if (text.size() % 2 != 0 ||
        !std::ranges::all_of(text, [](char c) { return System::Detail::AsciiHexValue(c) >= 0; })) {
        return false;
    }
    for (std::size_t i = 0; i < text.size(); i += 2) {
        bytes += static_cast<char>(System::Detail::AsciiHexValue(text[i]) * 16 +
                                   System::Detail::AsciiHexValue(text[i + 1]));
    }
    return true;
}

RegistryValue ReadValue(std::string_view text)
{
    if (text.starts_with(NumberMark)) {
        const std::string_view digits = text.substr(NumberMark.size());
        std::uint32_t number = 0;
        const auto [end, fault] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
        if (fault == std::errc() && end == digits.data() + digits.size()) {
            return number;
        }
    }
    if (std::string bytes; text.starts_with(BytesMark) && ReadBytes(text.substr(BytesMark.size()), bytes)) {
        return bytes;
    }
    return Unescaped(text);
}

struct ValueWriter
{
    std::string operator()(const UnicodeString& text) const
    {
        const std::string plain = System::ToUtf8(text);
        const bool looksMarked = plain.starts_with(NumberMark) || plain.starts_with(BytesMark);
        return Escaped(text.AsView(), [&](char16_t, std::size_t index) { return looksMarked && index == 0; });
    }
    std::string operator()(std::uint32_t number) const
    {
        return std::string(NumberMark) + std::to_string(number);
    }
    std::string operator()(const std::string& bytes) const { return BytesText(bytes); }
};

std::string EscapedName(const UnicodeString& name)
{
    return Escaped(name.AsView(), [](char16_t unit, std::size_t index) {
        return unit == u'=' || (index == 0 && (unit == u'[' || unit == u';' || unit == u'#'));
    });
}

std::string EscapedPath(const UnicodeString& path)
{
    return Escaped(path.AsView(), [](char16_t, std::size_t) { return false; });
}

bool IsRemark(std::string_view line)
{
    return line.starts_with(';') || line.starts_with('#') || System::ToUtf8(System::FromUtf8(line)) != line;
}

/// What stands in front of the paths of the keys below.
UnicodeString PrefixOf(const UnicodeString& path)
{
    return path.IsEmpty() ? path : path.LowerCase() + u'\\';
}

} // namespace

UnicodeString RegistryPath(const UnicodeString& path)
{
    std::u16string clean;
    for (const char16_t unit : path.AsView()) {
        if (unit != u'\\' || (!clean.empty() && clean.back() != u'\\')) {
            clean += unit;
        }
    }
    if (clean.ends_with(u'\\')) {
        clean.pop_back();
    }
    return UnicodeString(std::u16string_view(clean));
}

RegistryText RegistryText::Parse(std::string_view text)
{
    RegistryText result;
    UnicodeString path;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size() - 1);
        const std::string_view line = LineOf(text.substr(0, end + 1));
        text.remove_prefix(end + 1);
        const std::size_t equals = line.find('=');
        if (line.empty()) {
            continue;
        }
        if (!IsRemark(line) && line.starts_with('[') && line.ends_with(']')) {
            path = RegistryPath(Unescaped(Trimmed(line.substr(1, line.size() - 2))));
            // The root needs no line of its own.
            if (!path.IsEmpty()) {
                result.MakeKey(path);
            }
        } else if (!IsRemark(line) && !line.starts_with('[') && equals != std::string_view::npos) {
            result.Set(path, Unescaped(Trimmed(line.substr(0, equals))),
                       ReadValue(Trimmed(line.substr(equals + 1))));
        } else {
            result.MakeKey(path).remarks.emplace_back(line);
        }
    }
    return result;
}

std::string RegistryText::Write() const
{
    std::string text;
    for (const auto& [folded, key] : mKeys) {
        if (!key.path.IsEmpty()) {
            text += (text.empty() ? "[" : "\n[") + EscapedPath(key.path) + "]\n";
        }
        for (const std::string& remark : key.remarks) {
            text += remark + '\n';
        }
        for (const auto& [foldedName, entry] : key.entries) {
            text += EscapedName(entry.name) + '=' + std::visit(ValueWriter(), entry.value) + '\n';
        }
    }
    return text;
}

bool RegistryText::HasKey(const UnicodeString& path) const
{
    return FindKey(path) != nullptr || !KeysBelow(path).empty();
}

const RegistryText::Key* RegistryText::FindKey(const UnicodeString& path) const
{
    const auto found = mKeys.find(path.LowerCase());
    return found == mKeys.end() ? nullptr : &found->second;
}

RegistryText::Key& RegistryText::MakeKey(const UnicodeString& path)
{
    const auto [place, isNew] = mKeys.try_emplace(path.LowerCase());
    if (isNew) {
        place->second.path = path;
    }
    return place->second;
}

bool RegistryText::DeleteKey(const UnicodeString& path)
{
    const UnicodeString folded = path.LowerCase();
    const UnicodeString prefix = PrefixOf(path);
    return std::erase_if(mKeys, [&](const auto& key) {
               return key.first == folded || key.first.AsView().starts_with(prefix.AsView());
           }) != 0;
}

std::vector<UnicodeString> RegistryText::KeysBelow(const UnicodeString& path) const
{
    const UnicodeString prefix = PrefixOf(path);
    std::map<UnicodeString, UnicodeString> names;
    for (auto key = mKeys.lower_bound(prefix); key != mKeys.end(); ++key) {
        if (!key->first.AsView().starts_with(prefix.AsView())) {
            break;
        }
        if (key->first.Length() == prefix.Length()) {
            continue;
        }
        // Names fold to texts of other lengths, so the parts are counted, not the characters.
        const auto parts = std::ranges::count(prefix.AsView(), u'\\');
        std::u16string_view name = key->second.path.AsView();
        for (auto part = parts; part > 0; --part) {
            name.remove_prefix(name.find(u'\\') + 1);
        }
        const UnicodeString first(name.substr(0, name.find(u'\\')));
        names.try_emplace(first.LowerCase(), first);
    }
    std::vector<UnicodeString> result;
    result.reserve(names.size());
    for (const auto& [folded, name] : names) {
        result.push_back(name);
    }
    return result;
}

const RegistryValue* RegistryText::Find(const UnicodeString& path, const UnicodeString& name) const
{
    const Key* const key = FindKey(path);
    if (key == nullptr) {
        return nullptr;
    }
    const auto found = key->entries.find(name.LowerCase());
    return found == key->entries.end() ? nullptr : &found->second.value;
}

void RegistryText::Set(const UnicodeString& path, const UnicodeString& name, RegistryValue value)
{
    Entry& entry = MakeKey(path).entries[name.LowerCase()];
    if (entry.name.IsEmpty()) {
        entry.name = name;
    }
    entry.value = std::move(value);
}

bool RegistryText::Delete(const UnicodeString& path, const UnicodeString& name)
{
    const auto key = mKeys.find(path.LowerCase());
    return key != mKeys.end() && key->second.entries.erase(name.LowerCase()) != 0;
}

} // namespace Host
