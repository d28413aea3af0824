// SPDX-License-Identifier: MIT
#include "text/grammar/BTL_STR_Command.h"

#include "text/grammar/internal/BTL_STR_Word.h"

#include <algorithm>
#include <utility>

namespace BTL
{

namespace
{

using Detail::ContinuesWord;
using Detail::StartsWord;
using System::AnsiString;
using System::UnicodeString;
using System::WideChar;

/// The space and every code below it, zero among them.
template <class Char>
bool IsCodeUpToSpace(Char c)
{
    return static_cast<std::make_unsigned_t<Char>>(c) <= 32;
}

/// The index of a 1-based place that must not lie in front of the text.
template <class S>
std::size_t IndexOf(const S& s, int place)
{
    if (place < 1 && !s.IsEmpty()) {
        System::ThrowStringRange(place, s.Length());
    }
    return static_cast<std::size_t>(std::max(place, 1)) - 1;
}

template <class S>
S Delimited(const S& s, typename S::CharType open, typename S::CharType close, int start)
{
    const auto text = s.AsView();
    const auto first = text.find(open, IndexOf(s, start));
    if (first == S::View::npos || first + 1 == text.size()) {
        return S();
    }
    const auto last = text.find(close, first + 1);
    return last == S::View::npos ? S() : S(text.substr(first + 1, last - first - 1));
}

template <class S>
S Word(const S& s, int& pos, typename S::CharType prefix)
{
    const auto text = s.AsView();
    std::size_t at = IndexOf(s, pos);
    if (at >= text.size()) {
        return S();
    }
    const auto last = text.size() - 1;
    at = std::min(text.find(prefix, at), last);
    pos = static_cast<int>(at) + 1;
    if (at == last) {
        return S();
    }
    ++pos;
    if (!StartsWord(text[at + 1])) {
        return S();
    }
    const auto* const begin = text.data() + at + 2;
    const auto* const end =
        std::find_if_not(begin, text.data() + text.size(), [](auto c) { return ContinuesWord(c); });
    const auto length = static_cast<std::size_t>(end - text.data()) - at;
    pos = static_cast<int>(std::min(at + length, last)) + 1;
    return S(text.substr(at, length));
}

/// What may stand in front of a piece.
enum class EBefore
{
    Anything,
    Blanks,
};

constexpr EBefore BeforeIf(bool skipBlanks)
{
    return skipBlanks ? EBefore::Blanks : EBefore::Anything;
}

/// Where `GetSubString` looks for its `open`.
template <class View, class Char>
std::size_t FindOpen(View text, std::size_t at, EBefore before, Char open)
{
    if (before == EBefore::Anything) {
        return std::min(text.find(open, at), std::max(text.size(), at));
    }
    const std::size_t start = at;
    while (at < text.size() && IsCodeUpToSpace(text[at])) {
        ++at;
    }
    // An `open` that is a blank itself was skipped too.
    return IsCodeUpToSpace(open) && at > start ? at - 1 : at;
}

/// The place of the `close` that belongs to the piece, or the end of the text.
template <class View, class Char>
std::size_t FindClose(View text, std::size_t at, Char open, Char close, Char escape)
{
    std::size_t depth = 1;
    for (; at < text.size(); ++at) {
        const Char c = text[at];
        if (escape != 0 && c == escape) {
            ++at;
        } else if (c == close) {
            if (--depth == 0) {
                return at;
            }
        } else if (c == open) {
            ++depth;
        }
    }
    return text.size();
}

template <class View, class Char>
auto WithoutEscapes(View piece, Char escape)
{
    std::basic_string<Char> reversed;
    for (std::size_t i = piece.size(); i > 0; --i) {
        if (piece[i - 1] != escape) {
            reversed += piece[i - 1];
        } else if (i > 1) {
            // What stands in front of an escape is text, also if it is one more escape.
            --i;
            reversed += piece[i - 1];
        }
    }
    std::reverse(reversed.begin(), reversed.end());
    return reversed;
}

template <class S>
S Piece(const S& s, int& pos, EBefore before, typename S::CharType open, typename S::CharType close,
        typename S::CharType escape)
{
    const auto text = s.AsView();
    const std::size_t at = FindOpen(text, IndexOf(s, pos), before, open);
    pos = static_cast<int>(at) + 1;
    if (at >= text.size() || text[at] != open) {
        return S();
    }
    const std::size_t end = FindClose(text, at + 1, open, close, escape);
    pos = static_cast<int>(end) + 2;
    if (end == text.size()) {
        return S();
    }
    const auto piece = text.substr(at + 1, end - at - 1);
    return escape == 0 ? S(piece) : S(typename S::View(WithoutEscapes(piece, escape)));
}

template <class S>
int CommandPosition(const S& s, const S& cmd)
{
    const int place = s.Pos(cmd);
    const int next = place + cmd.Length();
    return place != 0 && next <= s.Length() && ContinuesWord(s[next]) ? 0 : place;
}

/// A command in a text and what was read behind it.
template <class S>
struct TCommand
{
    /// 0 if there is none.
    int begin = 0;
    /// Behind the parameter.
    int end = 0;
    S parameter;
};

template <class S>
TCommand<S> FindCommand(const S& s, const S& cmd, typename S::CharType open, typename S::CharType close,
                        typename S::CharType escape)
{
    TCommand<S> command;
    command.begin = CommandPosition(s, cmd);
    if (command.begin != 0) {
        command.end = command.begin + cmd.Length();
        command.parameter = Piece(s, command.end, EBefore::Blanks, open, close, escape);
    }
    return command;
}

template <class S>
bool Cut(S& s, const S& cmd)
{
    const int place = CommandPosition(s, cmd);
    const int length = cmd.Length();
    s.Delete(place, length);
    return place != 0;
}

template <class S>
S CutParameter(S& s, const S& cmd, typename S::CharType open, typename S::CharType close,
               typename S::CharType escape)
{
    const TCommand<S> command = FindCommand(s, cmd, open, close, escape);
    if (!command.parameter.IsEmpty()) {
        s.Delete(command.begin, command.end - command.begin);
    }
    return command.parameter;
}

} // namespace

UnicodeString DelimSubString2(const UnicodeString& s, WideChar open, WideChar close, int start)
{
    return Delimited(s, open, close, start);
}

AnsiString DelimSubString2(const AnsiString& s, char open, char close, int start)
{
    return Delimited(s, open, close, start);
}

UnicodeString DelimSubString(const UnicodeString& s, WideChar delim, int start)
{
    return Delimited(s, delim, delim, start);
}

AnsiString DelimSubString(const AnsiString& s, char delim, int start)
{
    return Delimited(s, delim, delim, start);
}

UnicodeString GetWord(const UnicodeString& s, int& pos, WideChar prefix)
{
    return Word(s, pos, prefix);
}

AnsiString GetWord(const AnsiString& s, int& pos, char prefix)
{
    return Word(s, pos, prefix);
}

UnicodeString GetWord(const UnicodeString& s, WideChar prefix)
{
    int pos = 1;
    return Word(s, pos, prefix);
}

AnsiString GetWord(const AnsiString& s, char prefix)
{
    int pos = 1;
    return Word(s, pos, prefix);
}

UnicodeString GetSubString(const UnicodeString& s, int& pos, bool skipBlanks, WideChar open, WideChar close,
                           WideChar escape)
{
    return Piece(s, pos, BeforeIf(skipBlanks), open, close, escape);
}

AnsiString GetSubString(const AnsiString& s, int& pos, bool skipBlanks, char open, char close, char escape)
{
    return Piece(s, pos, BeforeIf(skipBlanks), open, close, escape);
}

UnicodeString GetSubString(const UnicodeString& s, bool skipBlanks, WideChar open, WideChar close,
                           WideChar escape)
{
    int pos = 1;
    return Piece(s, pos, BeforeIf(skipBlanks), open, close, escape);
}

AnsiString GetSubString(const AnsiString& s, bool skipBlanks, char open, char close, char escape)
{
    int pos = 1;
    return Piece(s, pos, BeforeIf(skipBlanks), open, close, escape);
}

int GetCommandPosition(const UnicodeString& s, const UnicodeString& cmd)
{
    return CommandPosition(s, cmd);
}

int GetCommandPosition(const AnsiString& s, const AnsiString& cmd)
{
    return CommandPosition(s, cmd);
}

UnicodeString GetCommandParameter(const UnicodeString& s, const UnicodeString& cmd, WideChar open,
                                  WideChar close, WideChar escape)
{
    return FindCommand(s, cmd, open, close, escape).parameter;
}

AnsiString GetCommandParameter(const AnsiString& s, const AnsiString& cmd, char open, char close, char escape)
{
    return FindCommand(s, cmd, open, close, escape).parameter;
}

bool GetCommandParameter2(UnicodeString& param, const UnicodeString& s, const UnicodeString& cmd,
                          WideChar open, WideChar close, WideChar escape)
{
    TCommand<UnicodeString> command = FindCommand(s, cmd, open, close, escape);
    if (command.begin == 0) {
        return false;
    }
    param = std::move(command.parameter);
    return true;
}

bool CutCommand(UnicodeString& s, const UnicodeString& cmd)
{
    return Cut(s, cmd);
}

bool CutCommand(AnsiString& s, const AnsiString& cmd)
{
    return Cut(s, cmd);
}

bool CutCommand(UnicodeString& s, UnicodeString& param, const UnicodeString& cmd, WideChar open,
                WideChar close, WideChar escape)
{
    TCommand<UnicodeString> command = FindCommand(s, cmd, open, close, escape);
    if (command.begin != 0) {
        s.Delete(command.begin, command.end - command.begin);
    }
    param = std::move(command.parameter);
    return command.begin != 0;
}

UnicodeString CutCommandParameter(UnicodeString& s, const UnicodeString& cmd, WideChar open, WideChar close,
                                  WideChar escape)
{
    return CutParameter(s, cmd, open, close, escape);
}

AnsiString CutCommandParameter(AnsiString& s, const AnsiString& cmd, char open, char close, char escape)
{
    return CutParameter(s, cmd, open, close, escape);
}

} // namespace BTL
