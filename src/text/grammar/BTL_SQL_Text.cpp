// SPDX-License-Identifier: MIT
#include "text/grammar/BTL_SQL_Text.h"

#include "platform/runtime/sysutils/Character.h"
#include "text/editing/BTL_STR_Replace.h"

#include <algorithm>

namespace BTL
{

using Character::TCharacter;
using System::UnicodeString;
using System::WideChar;

namespace
{

using View = std::u16string_view;

constexpr WideChar Apostrophe = u'\'';

bool IsOneOf(WideChar c, View characters)
{
    return characters.find(c) != View::npos;
}

bool IsNamePart(WideChar c)
{
    return IsOneOf(c, u"$._") || TCharacter::IsLetterOrDigit(c);
}

bool IsNumberPart(WideChar c)
{
    return IsOneOf(c, u"+-.Ee") || TCharacter::IsDigit(c);
}

bool IsOperatorPart(WideChar c)
{
    return !IsOneOf(c, u"$_.['\"") && !TCharacter::IsLetterOrDigit(c);
}

/// The length of the run at the start of `text`; its first character always belongs to it.
std::size_t RunLength(View text, bool (*belongs)(WideChar))
{
    return static_cast<std::size_t>(std::find_if_not(text.begin() + 1, text.end(), belongs) - text.begin());
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
    if (TCharacter::IsLetter(first)) {
        return RunLength(text, IsNamePart);
    }
    if (IsOneOf(first, u"\"[")) {
        return QuotedNameLength(text);
    }
    if (IsOneOf(first, u"+-.") || TCharacter::IsDigit(first)) {
        return RunLength(text, IsNumberPart);
    }
    if (first == Apostrophe) {
        return LiteralLength(text);
    }
    return TCharacter::IsWhiteSpace(first) ? 0 : RunLength(text, IsOperatorPart);
}

} // namespace

UnicodeString SQLValueDelim(const UnicodeString& text)
{
    return ExchangeAll(text, UnicodeString(u"'"), UnicodeString(u"''"));
}

UnicodeString GetNextSqlToken(const UnicodeString& statement, int& index)
{
    index = std::max(index, 1);
    const int length = statement.Length();
    while (index < length && TCharacter::IsWhiteSpace(statement[index])) {
        ++index;
    }
    if (index > length) {
        return {};
    }
    const View rest = statement.AsView().substr(static_cast<std::size_t>(index - 1));
    return statement.SubString(index, static_cast<int>(TokenLength(rest)));
}

} // namespace BTL
