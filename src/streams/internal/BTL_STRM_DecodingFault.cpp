// SPDX-License-Identifier: MIT
#include "streams/internal/BTL_STRM_DecodingFault.h"

#include <algorithm>

namespace BTL::Detail
{

namespace
{

using System::RawByteString;
using System::UnicodeString;
using Sysutils::TEncoding;

constexpr char16_t Replacement = u'\uFFFD';

bool IsSurrogate(char16_t unit, char16_t first)
{
    return unit >= first && unit < first + 0x400;
}

/// The first surrogate without its other half.
std::size_t FindLoneSurrogate(std::u16string_view text)
{
    constexpr char16_t firstHigh = 0xD800;
    constexpr char16_t firstLow = 0xDC00;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (IsSurrogate(text[i], firstHigh) && i + 1 < text.size() && IsSurrogate(text[i + 1], firstLow)) {
            ++i;
        } else if (IsSurrogate(text[i], firstHigh) || IsSurrogate(text[i], firstLow)) {
            return i;
        }
    }
    return std::u16string_view::npos;
}

bool IsUtf8Tail(char c)
{
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

std::optional<std::size_t> FaultInUtf16(std::string_view bytes, std::u16string_view text)
{
    const std::size_t lone = FindLoneSurrogate(text);
    if (lone != std::u16string_view::npos) {
        return lone * sizeof(char16_t);
    }
    return bytes.size() % sizeof(char16_t) == 0 ? std::nullopt : std::optional(bytes.size() - 1);
}

/// Up to the fault, what was decoded gives the bytes again.
std::optional<std::size_t> FaultInUtf8(std::string_view bytes, std::u16string_view text)
{
    if (text.find(Replacement) == std::u16string_view::npos) {
        return std::nullopt;
    }
    const RawByteString all = TEncoding(System::CP_UTF8).GetBytes(UnicodeString(text));
    const std::string_view again = all.AsView();
    if (again == bytes) {
        return std::nullopt;
    }
    const auto differs = std::mismatch(again.begin(), again.end(), bytes.begin(), bytes.end()).first;
    // A part of the character there may be the same by chance.
    auto at = static_cast<std::size_t>(differs - again.begin());
    while (at > 0 && at < again.size() && IsUtf8Tail(again[at])) {
        --at;
    }
    return at;
}

/// Other bytes than those of its encoding may stand for a character of a code page, but not for what replaces
/// a fault.
std::optional<std::size_t> FaultInCodePage(const TEncoding& encoding, std::string_view bytes,
                                           std::u16string_view text)
{
    const auto sizeOf = [&encoding](std::u16string_view piece) {
        return static_cast<std::size_t>(encoding.GetBytes(UnicodeString(piece)).Length());
    };
    constexpr std::u16string_view replacements = u"\uFFFD\u001A";
    for (std::size_t at = text.find_first_of(replacements); at != std::u16string_view::npos;
         at = text.find_first_of(replacements, at + 1)) {
        const std::size_t begin = sizeOf(text.substr(0, at));
        const RawByteString form = encoding.GetBytes(UnicodeString(text.substr(at, 1)));
        if (bytes.substr(std::min(begin, bytes.size()), form.AsView().size()) != form.AsView()) {
            return begin;
        }
    }
    return std::nullopt;
}

} // namespace

std::optional<std::size_t> FindDecodingFault(const TEncoding& encoding, std::string_view bytes,
                                             const UnicodeString& text)
{
    const System::CodePage codePage = encoding.getCodePage();
    if (codePage == TEncoding::Utf16 || codePage == TEncoding::Utf16BigEndian) {
        return FaultInUtf16(bytes, text.AsView());
    }
    return codePage == System::CP_UTF8 ? FaultInUtf8(bytes, text.AsView())
                                       : FaultInCodePage(encoding, bytes, text.AsView());
}

} // namespace BTL::Detail
