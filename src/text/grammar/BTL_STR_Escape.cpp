// SPDX-License-Identifier: MIT
#include "text/grammar/BTL_STR_Escape.h"

#include <algorithm>
#include <climits>

namespace BTL
{

namespace
{

using System::AnsiString;
using System::UnicodeString;

/// Whether quotes are escaped as well.
enum class EQuotes
{
    Plain,
    Escaped
};

constexpr bool IsQuote(auto c)
{
    return c == '"' || c == '\'';
}

/// A control character and the letter that stands for it behind a backslash.
struct TControl
{
    char control;
    char letter;
};

constexpr TControl Controls[] = {{'\n', 'n'}, {'\r', 'r'}, {'\t', 't'}};

/// 0 for a letter that stands for none.
template <class Char>
constexpr Char ControlOf(Char letter)
{
    Char result = 0;
    for (const TControl& known : Controls) {
        result = letter == known.letter ? static_cast<Char>(known.control) : result;
    }
    return result;
}

/// Whether a character is written with a backslash. Without branches, so that many are told at a time.
template <EQuotes Quotes, class Char>
constexpr bool NeedsEscape(Char c)
{
    bool result = c == '\\';
    result |= Quotes == EQuotes::Escaped && IsQuote(c);
    for (const TControl& known : Controls) {
        result |= c == known.control;
    }
    return result;
}

/// What stands behind the backslash for a character, 0 for one that needs none.
template <EQuotes Quotes, class Char>
constexpr Char EscapeOf(Char c)
{
    if (c == '\\' || (Quotes == EQuotes::Escaped && IsQuote(c))) {
        return c;
    }
    // Most characters, told by one comparison.
    if (c >= ' ') {
        return 0;
    }
    Char result = 0;
    for (const TControl& known : Controls) {
        result = c == known.control ? static_cast<Char>(known.letter) : result;
    }
    return result;
}

/// Writes what a run of backslashes becomes, with the character behind it if that belongs to it. `in` is
/// moved behind what was read, the result is the place behind what was written.
///
/// As by one replacement of the whole text after the other: a control character takes the last backslash of
/// the run in front of it, then each pair becomes one, and then a quote takes the last one that is left.
template <EQuotes Quotes, class Char>
Char* ApplyRun(const Char*& in, const Char* end, Char* out)
{
    const Char* const behind = std::find_if(in, end, [](Char c) { return c != '\\'; });
    auto count = behind - in;
    in = behind;
    const Char next = behind == end ? Char() : *behind;
    const Char control = ControlOf(next);
    count = control != 0 ? count / 2 : (count + 1) / 2;
    if (Quotes == EQuotes::Escaped && IsQuote(next)) {
        --count;
    }
    out = std::fill_n(out, count, Char('\\'));
    if (control != 0) {
        *out++ = control;
        ++in;
    }
    return out;
}

template <EQuotes Quotes, class S>
S Apply(const S& s)
{
    using Char = typename S::CharType;
    const std::size_t first = s.AsView().find(Char('\\'));
    if (first == S::View::npos) {
        return s;
    }
    // What comes of a text is never longer, so that it can be written over what was read.
    S result = s;
    Char* const text = result.UniqueData();
    const Char* const end = text + s.Length();
    const Char* in = text + first;
    Char* out = text + first;
    while (in != end) {
        if (*in == '\\') {
            out = ApplyRun<Quotes>(in, end, out);
        } else {
            *out++ = *in++;
        }
    }
    return result.SetLength(static_cast<int>(out - text));
}

template <EQuotes Quotes, class S>
S Insert(const S& s)
{
    using Char = typename S::CharType;
    const auto count = std::count_if(s.begin(), s.end(), NeedsEscape<Quotes, Char>);
    if (count == 0) {
        return s;
    }
    if (count > INT_MAX - s.Length()) {
        System::ThrowStringMemory();
    }
    S result;
    result.SetLength(s.Length() + static_cast<int>(count));
    Char* out = result.UniqueData();
    for (const Char c : s.AsView()) {
        const Char escape = EscapeOf<Quotes>(c);
        if (escape != 0) {
            *out++ = '\\';
            *out++ = escape;
        } else {
            *out++ = c;
        }
    }
    return result;
}

} // namespace

UnicodeString ApplyEscapeSequences(const UnicodeString& s)
{
    return Apply<EQuotes::Plain>(s);
}

AnsiString ApplyEscapeSequences(const AnsiString& s)
{
    return Apply<EQuotes::Plain>(s);
}

UnicodeString ApplyEscapeSequences2(const UnicodeString& s)
{
    return Apply<EQuotes::Escaped>(s);
}

AnsiString ApplyEscapeSequences2(const AnsiString& s)
{
    return Apply<EQuotes::Escaped>(s);
}

UnicodeString InsertEscapeSequences(const UnicodeString& s)
{
    return Insert<EQuotes::Plain>(s);
}

AnsiString InsertEscapeSequences(const AnsiString& s)
{
    return Insert<EQuotes::Plain>(s);
}

UnicodeString InsertEscapeSequences2(const UnicodeString& s)
{
    return Insert<EQuotes::Escaped>(s);
}

AnsiString InsertEscapeSequences2(const AnsiString& s)
{
    return Insert<EQuotes::Escaped>(s);
}

} // namespace BTL
