// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <concepts>

namespace BTL
{

namespace Detail
{

/// The character that a narrow one is in the code page of the system.
inline System::WideChar WideMark(char mark)
{
    return System::UnicodeString(mark)[1];
}

} // namespace Detail

// Delimited pieces, words and commands with parameters inside a larger text. A start position of 0 or less
// raises `Sysutils::ERangeError`, unless the text is empty. Narrow marks in a wide text are the characters
// that they are in the system's code page.
//
//     const auto inner = BTL::DelimSubString2(u"f(x)", u'(', u')', 1);                    // "x"
//     const auto name = BTL::GetWord(u"to @anna and @bob", u'@');                         // "@anna"
//     const auto text = BTL::GetCommandParameter(u"a @bold{b{c}}", u"@bold", u'{', u'}', 0); // "b{c}"

/// What stands between the first `open` at or behind `start` and the next `close`; empty if either is
/// missing. The last character of `s` is no `open`. There is no nesting.
TRS8_BTL_API System::UnicodeString DelimSubString2(const System::UnicodeString& s, System::WideChar open,
                                                   System::WideChar close, int start);
TRS8_BTL_API System::AnsiString DelimSubString2(const System::AnsiString& s, char open, char close,
                                                int start);
template <std::same_as<char> Narrow>
System::UnicodeString DelimSubString2(const System::UnicodeString& s, Narrow open, Narrow close, int start)
{
    return DelimSubString2(s, Detail::WideMark(open), Detail::WideMark(close), start);
}
/// As `DelimSubString2`, with `delim` for both `open` and `close`.
TRS8_BTL_API System::UnicodeString DelimSubString(const System::UnicodeString& s, System::WideChar delim,
                                                  int start);
TRS8_BTL_API System::AnsiString DelimSubString(const System::AnsiString& s, char delim, int start);
template <std::same_as<char> Narrow>
System::UnicodeString DelimSubString(const System::UnicodeString& s, Narrow delim, int start)
{
    return DelimSubString(s, Detail::WideMark(delim), start);
}

/// The next word with its `prefix`, from `pos` on. `pos` moves behind it; it stops on the last character if
/// the word ends there or no `prefix` stands before it, and on the character behind `prefix` if no word
/// begins there.
TRS8_BTL_API System::UnicodeString GetWord(const System::UnicodeString& s, int& pos, System::WideChar prefix);
TRS8_BTL_API System::AnsiString GetWord(const System::AnsiString& s, int& pos, char prefix);
template <std::same_as<char> Narrow>
System::UnicodeString GetWord(const System::UnicodeString& s, int& pos, Narrow prefix)
{
    return GetWord(s, pos, Detail::WideMark(prefix));
}
/// The first word with its `prefix`, as `GetWord` with a place finds it.
TRS8_BTL_API System::UnicodeString GetWord(const System::UnicodeString& s, System::WideChar prefix);
TRS8_BTL_API System::AnsiString GetWord(const System::AnsiString& s, char prefix);
template <std::same_as<char> Narrow>
System::UnicodeString GetWord(const System::UnicodeString& s, Narrow prefix)
{
    return GetWord(s, Detail::WideMark(prefix));
}

/// The piece between `open` and its `close`, which may be nested where the two differ; `escape`, unless it is
/// 0, takes the next character with it and is removed. With `skipBlanks` the piece must begin behind blanks,
/// else the next `open` is looked for. `pos` moves to the place where `open` should stand, and behind the
/// piece if it does. Empty without an `open`, without its `close`, or if nothing stands between.
TRS8_BTL_API System::UnicodeString GetSubString(const System::UnicodeString& s, int& pos, bool skipBlanks,
                                                System::WideChar open, System::WideChar close,
                                                System::WideChar escape);
TRS8_BTL_API System::AnsiString GetSubString(const System::AnsiString& s, int& pos, bool skipBlanks,
                                             char open, char close, char escape);
template <std::same_as<char> Narrow>
System::UnicodeString GetSubString(const System::UnicodeString& s, int& pos, bool skipBlanks, Narrow open,
                                   Narrow close, char escape)
{
    return GetSubString(s, pos, skipBlanks, Detail::WideMark(open), Detail::WideMark(close),
                        Detail::WideMark(escape));
}
/// The first piece, as `GetSubString` with a place finds it.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetSubString(const System::UnicodeString& s, bool skipBlanks,
                                                              System::WideChar open, System::WideChar close,
                                                              System::WideChar escape);
[[nodiscard]] TRS8_BTL_API System::AnsiString GetSubString(const System::AnsiString& s, bool skipBlanks,
                                                           char open, char close, char escape);
template <std::same_as<char> Narrow>
[[nodiscard]] System::UnicodeString GetSubString(const System::UnicodeString& s, bool skipBlanks, Narrow open,
                                                 Narrow close, char escape)
{
    return GetSubString(s, skipBlanks, Detail::WideMark(open), Detail::WideMark(close),
                        Detail::WideMark(escape));
}

/// The place of the first `cmd`; 0 if there is none or a word goes on behind it.
[[nodiscard]] TRS8_BTL_API int GetCommandPosition(const System::UnicodeString& s,
                                                  const System::UnicodeString& cmd);
[[nodiscard]] TRS8_BTL_API int GetCommandPosition(const System::AnsiString& s, const System::AnsiString& cmd);

// The parameter of a command is the piece that begins behind it, with blanks between, see `GetSubString`.

/// The parameter; empty if there is no command.
[[nodiscard]] TRS8_BTL_API System::UnicodeString
GetCommandParameter(const System::UnicodeString& s, const System::UnicodeString& cmd, System::WideChar open,
                    System::WideChar close, System::WideChar escape);
[[nodiscard]] TRS8_BTL_API System::AnsiString GetCommandParameter(const System::AnsiString& s,
                                                                  const System::AnsiString& cmd, char open,
                                                                  char close, char escape);
template <std::same_as<char> Narrow>
[[nodiscard]] System::UnicodeString GetCommandParameter(const System::UnicodeString& s,
                                                        const System::UnicodeString& cmd, Narrow open,
                                                        Narrow close, char escape)
{
    return GetCommandParameter(s, cmd, Detail::WideMark(open), Detail::WideMark(close),
                               Detail::WideMark(escape));
}
/// True if there is the command; only then `param` is written.
TRS8_BTL_API bool GetCommandParameter2(System::UnicodeString& param, const System::UnicodeString& s,
                                       const System::UnicodeString& cmd, System::WideChar open,
                                       System::WideChar close, System::WideChar escape);
template <std::same_as<char> Narrow>
bool GetCommandParameter2(System::UnicodeString& param, const System::UnicodeString& s,
                          const System::UnicodeString& cmd, Narrow open, Narrow close, char escape)
{
    return GetCommandParameter2(param, s, cmd, Detail::WideMark(open), Detail::WideMark(close),
                                Detail::WideMark(escape));
}

/// Removes the command; true if it was there.
TRS8_BTL_API bool CutCommand(System::UnicodeString& s, const System::UnicodeString& cmd);
TRS8_BTL_API bool CutCommand(System::AnsiString& s, const System::AnsiString& cmd);
/// Removes the command and all that was read as its parameter, also if that is none; `param` is empty then.
/// True if the command was there.
TRS8_BTL_API bool CutCommand(System::UnicodeString& s, System::UnicodeString& param,
                             const System::UnicodeString& cmd, System::WideChar open, System::WideChar close,
                             System::WideChar escape);
template <std::same_as<char> Narrow>
bool CutCommand(System::UnicodeString& s, System::UnicodeString& param, const System::UnicodeString& cmd,
                Narrow open, Narrow close, char escape)
{
    return CutCommand(s, param, cmd, Detail::WideMark(open), Detail::WideMark(close),
                      Detail::WideMark(escape));
}
/// The parameter; command and parameter are removed only if it isn't empty.
TRS8_BTL_API System::UnicodeString CutCommandParameter(System::UnicodeString& s,
                                                       const System::UnicodeString& cmd,
                                                       System::WideChar open, System::WideChar close,
                                                       System::WideChar escape);
TRS8_BTL_API System::AnsiString CutCommandParameter(System::AnsiString& s, const System::AnsiString& cmd,
                                                    char open, char close, char escape);
template <std::same_as<char> Narrow>
System::UnicodeString CutCommandParameter(System::UnicodeString& s, const System::UnicodeString& cmd,
                                          Narrow open, Narrow close, char escape)
{
    return CutCommandParameter(s, cmd, Detail::WideMark(open), Detail::WideMark(close),
                               Detail::WideMark(escape));
}

} // namespace BTL
