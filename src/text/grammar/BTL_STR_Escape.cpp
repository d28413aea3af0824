// SPDX-License-Identifier: MIT
#include "text/grammar/BTL_STR_Escape.h"

#include "text/editing/BTL_STR_Replace.h"

#include <initializer_list>
#include <utility>

namespace BTL
{

namespace
{

using System::AnsiString;
using System::UnicodeString;

using TReplacements = std::initializer_list<std::pair<const char*, const char*>>;

/// One whole replacement after the other.
template <class S>
S ReplaceInTurn(S s, TReplacements replacements)
{
    for (const auto& [oldText, newText] : replacements) {
        s = ExchangeAll(s, S(oldText), S(newText));
    }
    return s;
}

template <class S>
S Apply(const S& s)
{
    return ReplaceInTurn(s, {{"\\n", "\n"}, {"\\r", "\r"}, {"\\t", "\t"}, {"\\\\", "\\"}});
}

template <class S>
S ApplyQuotes(const S& s)
{
    return ReplaceInTurn(s, {{"\\\"", "\""}, {"\\'", "'"}});
}

template <class S>
S Insert(const S& s)
{
    return ReplaceInTurn(s, {{"\\", "\\\\"}, {"\n", "\\n"}, {"\r", "\\r"}, {"\t", "\\t"}});
}

template <class S>
S InsertQuotes(const S& s)
{
    return ReplaceInTurn(s, {{"'", "\\'"}, {"\"", "\\\""}});
}

} // namespace

UnicodeString ApplyEscapeSequences(const UnicodeString& s)
{
    return Apply(s);
}

AnsiString ApplyEscapeSequences(const AnsiString& s)
{
    return Apply(s);
}

UnicodeString ApplyEscapeSequences2(const UnicodeString& s)
{
    return ApplyQuotes(Apply(s));
}

AnsiString ApplyEscapeSequences2(const AnsiString& s)
{
    return ApplyQuotes(Apply(s));
}

UnicodeString InsertEscapeSequences(const UnicodeString& s)
{
    return Insert(s);
}

AnsiString InsertEscapeSequences(const AnsiString& s)
{
    return Insert(s);
}

UnicodeString InsertEscapeSequences2(const UnicodeString& s)
{
    return InsertQuotes(Insert(s));
}

AnsiString InsertEscapeSequences2(const AnsiString& s)
{
    return InsertQuotes(Insert(s));
}

} // namespace BTL
