// SPDX-License-Identifier: MIT
#include "text/grammar/BTL_STR_Delimited.h"

#include "platform/base/internal/System_Quoting.h"
#include "platform/runtime/classes/Classes_Update.h"
#include "platform/runtime/sysutils/Sysutils_Text.h"
#include "text/editing/BTL_STR_Replace.h"
#include "text/editing/BTL_STR_Search.h"

#include <algorithm>

namespace BTL
{

namespace
{

using Classes::TStrings;
using System::AnsiString;
using System::UnicodeString;
using System::WideChar;

/// Joins the lines, each as `write` appends it.
template <class S, class Write>
S Join(TStrings* strings, typename S::CharType delim, Write write)
{
    S result;
    const int count = strings == nullptr ? 0 : strings->getCount();
    for (int i = 0; i < count; ++i) {
        if (i > 0) {
            result += delim;
        }
        write(result, S(strings->getStrings(i)));
    }
    return result;
}

template <class S>
S JoinQuoted(TStrings* strings, typename S::CharType delim, typename S::CharType quote)
{
    return Join<S>(strings, delim, [delim, quote](S& result, const S& line) {
        if (line.Pos(delim) == 0) {
            result.Append(line.AsView());
        } else {
            System::Detail::AppendQuoted(result, line.AsView(), quote);
        }
    });
}

template <class S>
S JoinPlain(TStrings* strings, typename S::CharType delim)
{
    return Join<S>(strings, delim, [](S& result, const S& line) { result.Append(line.AsView()); });
}

/// The space and every code below it but zero: that is text, so that nothing of the input is lost.
template <class Char>
bool IsNonZeroUpToSpace(Char c)
{
    const auto code = static_cast<std::make_unsigned_t<Char>>(c);
    return code >= 1 && code <= 32;
}

template <class View>
void SkipBlanks(View& rest)
{
    const auto text =
        std::find_if_not(rest.begin(), rest.end(), [](auto c) { return IsNonZeroUpToSpace(c); });
    rest.remove_prefix(static_cast<std::size_t>(text - rest.begin()));
}

template <class S>
S TakeItem(typename S::View& rest, typename S::CharType delim, typename S::CharType quote)
{
    if (quote != 0 && rest.front() == quote) {
        return Sysutils::AnsiExtractQuotedStr(rest, quote);
    }
    const auto end = std::find_if(rest.begin(), rest.end(),
                                  [delim](auto c) { return IsNonZeroUpToSpace(c) || c == delim; });
    const auto length = static_cast<std::size_t>(end - rest.begin());
    S item(rest.substr(0, length));
    rest.remove_prefix(length);
    return item;
}

template <class S>
void Split(TStrings* strings, const S& text, typename S::CharType delim, typename S::CharType quote)
{
    if (strings == nullptr) {
        return;
    }
    // All at once, so that a sorted list isn't moved for each item.
    Classes::TStringList items;
    auto rest = text.AsView();
    SkipBlanks(rest);
    while (!rest.empty()) {
        items.Add(TakeItem<S>(rest, delim, quote));
        SkipBlanks(rest);
        if (!rest.empty() && rest.front() == delim) {
            rest.remove_prefix(1);
            SkipBlanks(rest);
        }
    }
    const Classes::GUpdateScope update(*strings);
    strings->Clear();
    strings->AddStrings(&items);
}

template <class S>
S LinesToComma(const S& s)
{
    if (s.Pos(S("\r\n")) == 0) {
        return s;
    }
    Classes::TStringList lines;
    lines.setText(s);
    return lines.getCommaText();
}

} // namespace

UnicodeString& AddCSVString(UnicodeString& csv, const UnicodeString& value, WideChar delim)
{
    const bool enclosed = value.Pos(delim) != 0 || (csv.IsEmpty() && BeginsWith(value, u"ID", 1));
    UnicodeString field = ExchangeAll(value, u'"', u"\"\"");
    if (enclosed) {
        field = u'"' + field + u'"';
    }
    if (csv.IsEmpty()) {
        csv = field;
    } else {
        csv += delim;
        csv += field;
    }
    return csv;
}

UnicodeString GetDelimitedTextEx(TStrings* strings, WideChar delim, WideChar quote)
{
    return JoinQuoted<UnicodeString>(strings, delim, quote);
}

AnsiString GetDelimitedTextEx(TStrings* strings, char delim, char quote)
{
    return JoinQuoted<AnsiString>(strings, delim, quote);
}

void SetDelimitedTextEx(TStrings* strings, const UnicodeString& text, WideChar delim, WideChar quote)
{
    Split(strings, text, delim, quote);
}

void SetDelimitedTextEx(TStrings* strings, const AnsiString& text, char delim, char quote)
{
    Split(strings, text, delim, quote);
}

UnicodeString GetDelimitedText(TStrings* strings, WideChar delim)
{
    return JoinPlain<UnicodeString>(strings, delim);
}

AnsiString GetDelimitedText(TStrings* strings, char delim)
{
    return JoinPlain<AnsiString>(strings, delim);
}

UnicodeString CommaText(TStrings* strings, WideChar delim)
{
    return JoinPlain<UnicodeString>(strings, delim);
}

AnsiString CommaTextA(TStrings* strings, char delim)
{
    return JoinPlain<AnsiString>(strings, delim);
}

UnicodeString LinesToCommaText(const UnicodeString& s)
{
    return LinesToComma(s);
}

AnsiString LinesToCommaText(const AnsiString& s)
{
    return LinesToComma(s);
}

} // namespace BTL
