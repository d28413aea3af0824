// SPDX-License-Identifier: MIT
#include "text/grammar/BTL_STR_EscapeText.h"

#include "platform/base/internal/System_Ascii.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <type_traits>

namespace BTL
{

using System::AnsiString;
using System::UnicodeString;
using System::Detail::AsciiHexValue;

namespace
{

/// A letter behind a backslash, and what the two stand for.
struct TEscape
{
    char letter;
    char meaning;
};

constexpr std::array Escapes = {TEscape{'\\', '\\'}, TEscape{'n', '\n'}, TEscape{'r', '\r'},
                                TEscape{'t', '\t'}};

template <class Char>
bool NeedsEscape(Char c)
{
    return c == '\\' || static_cast<std::make_unsigned_t<Char>>(c) < ' ';
}

template <class S>
void AppendEscape(S& out, typename S::CharType c)
{
    using Char = typename S::CharType;
    constexpr std::string_view digits = "0123456789ABCDEF";
    out += Char('\\');
    const auto* const known = std::ranges::find(Escapes, c, &TEscape::meaning);
    if (known != Escapes.end()) {
        out += Char(known->letter);
        return;
    }
    out += Char('x');
    out += Char(digits[static_cast<std::size_t>(c) / 16]);
    out += Char(digits[static_cast<std::size_t>(c) % 16]);
}

template <class S>
S Escaped(const S& text)
{
    using Char = typename S::CharType;
    auto rest = text.AsView();
    auto special = std::ranges::find_if(rest, NeedsEscape<Char>);
    if (special == rest.end()) {
        return text;
    }
    S out;
    out.Reserve(text.Length() + 1);
    for (auto from = rest.begin(); from != rest.end();
         special = std::find_if(from, rest.end(), NeedsEscape<Char>)) {
        out.Append({from, special});
        from = special;
        if (special != rest.end()) {
            AppendEscape(out, *special);
            ++from;
        }
    }
    return out;
}

/// Reads the escape at the front of `rest`, and gives its length; 0 if none stands there.
template <class Char>
std::size_t ReadEscape(std::basic_string_view<Char> rest, Char& meaning)
{
    if (rest.size() < 2) {
        return 0;
    }
    const auto* const known = std::ranges::find(Escapes, rest[1], &TEscape::letter);
    if (known != Escapes.end()) {
        meaning = Char(known->meaning);
        return 2;
    }
    if (rest[1] != 'x' || rest.size() < 4) {
        return 0;
    }
    const int high = AsciiHexValue(rest[2]);
    const int low = AsciiHexValue(rest[3]);
    if (high < 0 || low < 0) {
        return 0;
    }
    meaning = static_cast<Char>(high * 16 + low);
    return 4;
}

template <class S>
S Unescaped(const S& text)
{
    using Char = typename S::CharType;
    auto rest = text.AsView();
    auto at = rest.find(Char('\\'));
    if (at == rest.npos) {
        return text;
    }
    S out;
    out.Reserve(text.Length());
    for (; at != rest.npos; at = rest.find(Char('\\'))) {
        out.Append(rest.substr(0, at));
        rest.remove_prefix(at);
        Char meaning = Char('\\');
        const std::size_t length = ReadEscape(rest, meaning);
        out += meaning;
        rest.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return out.Append(rest);
}

} // namespace

UnicodeString EscapeText(const UnicodeString& text)
{
    return Escaped(text);
}

AnsiString EscapeText(const AnsiString& text)
{
    return Escaped(text);
}

UnicodeString UnescapeText(const UnicodeString& text)
{
    return Unescaped(text);
}

AnsiString UnescapeText(const AnsiString& text)
{
    return Unescaped(text);
}

} // namespace BTL
