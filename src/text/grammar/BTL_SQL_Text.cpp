// SPDX-License-Identifier: MIT
#include "text/grammar/BTL_SQL_Text.h"

#include "platform/base/internal/System_Ascii.h"
#include "platform/runtime/sysutils/Character.h"
#include "text/editing/BTL_STR_Replace.h"

#include <algorithm>
#include <array>

namespace BTL
{

using Character::TCharacter;
using System::UnicodeString;
using System::WideChar;

namespace
{

using View = std::u16string_view;

constexpr WideChar Apostrophe = u'\'';

constexpr bool IsOneOf(WideChar c, View characters)
{
    return characters.find(c) != View::npos;
}

// What a character is in a statement, as flags.
constexpr unsigned Letter = 1;
constexpr unsigned Digit = 2;
constexpr unsigned Blank = 4;
constexpr unsigned NamePart = 8;
constexpr unsigned NumberPart = 16;
constexpr unsigned OperatorPart = 32;

constexpr unsigned KindOf(WideChar c, bool isLetter, bool isDigit, bool isBlank)
{
    const bool isNamePart = isLetter || isDigit || IsOneOf(c, u"$._");
    const bool isNumberPart = isDigit || IsOneOf(c, u"+-.Ee");
    const bool isOperatorPart = !isLetter && !isDigit && !IsOneOf(c, u"$_.['\"");
    return (isLetter ? Letter : 0U) | (isDigit ? Digit : 0U) | (isBlank ? Blank : 0U) |
           (isNamePart ? NamePart : 0U) | (isNumberPart ? NumberPart : 0U) |
           (isOperatorPart ? OperatorPart : 0U);
}

/// Statements are ASCII but for texts and few names, and to ask Unicode takes a call.
constexpr auto AsciiKinds = [] {
    std::array<unsigned char, 128> kinds{};
    for (std::size_t code = 0; code < kinds.size(); ++code) {
        const auto c = static_cast<WideChar>(code);
        kinds[code] = static_cast<unsigned char>(KindOf(c, System::Detail::IsAsciiLetter(c),
                                                        System::Detail::IsAsciiDigit(c),
                                                        System::Detail::IsAsciiSpace(c)));
    }
    return kinds;
}();

bool Is(WideChar c, unsigned kind)
{
    const unsigned kinds = c < AsciiKinds.size() ? AsciiKinds[c]
                                                 : KindOf(c, TCharacter::IsLetter(c), TCharacter::IsDigit(c),
                                                          TCharacter::IsWhiteSpace(c));
    return (kinds & kind) != 0;
}

/// The length of the run at the start of `text`; its first character always belongs to it.
std::size_t RunLength(View text, unsigned kind)
{
    const auto end = std::find_if(text.begin() + 1, text.end(), [kind](WideChar c) { return !Is(c, kind); });
    return static_cast<std::size_t>(end - text.begin());
}

std::size_t QuotedNameLength(View text)
{
    const auto closer = text.find_first_of(u"\"]", 1);
    if (closer != View::npos) {
        return closer + 1;
    }
    return std::max<std::size_t>(text.size() - 1, 1);
}

std::size_t LiteralLength(View text)
{
    for (auto at = text.find(Apostrophe, 1); at != View::npos; at = text.find(Apostrophe, at + 2)) {
        if (at + 1 == text.size() || text[at + 1] != Apostrophe) {
            return at + 1;
        }
    }
    return text.size();
}

/// The length of the token that begins with the first character of `text`.
std::size_t TokenLength(View text)
{
    const WideChar first = text.front();
    if (Is(first, Letter)) {
        return RunLength(text, NamePart);
    }
    if (IsOneOf(first, u"\"[")) {
        return QuotedNameLength(text);
    }
    if (IsOneOf(first, u"+-.") || Is(first, Digit)) {
        return RunLength(text, NumberPart);
    }
    if (first == Apostrophe) {
        return LiteralLength(text);
    }
    return Is(first, Blank) ? 0 : RunLength(text, OperatorPart);
}

} // namespace

UnicodeString SQLValueDelim(const UnicodeString& text)
{
    return ExchangeAll(text, UnicodeString(u"'"), UnicodeString(u"''"));
}

UnicodeString GetNextSqlToken(const UnicodeString& statement, int& index)
{
    index = std::max(index, 1);
    const View text = statement.AsView();
    auto at = static_cast<std::size_t>(index - 1);
    while (at + 1 < text.size() && Is(text[at], Blank)) {
        ++at;
    }
    index = static_cast<int>(at + 1);
    if (at >= text.size()) {
        return {};
    }
    const View rest = text.substr(at);
    const std::size_t length = TokenLength(rest);
    return length == text.size() ? statement : UnicodeString(rest.substr(0, length));
}

} // namespace BTL
