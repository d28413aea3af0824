// SPDX-License-Identifier: MIT
#include "platform/base/Sysutils_Exception.h"
#include "support/Fuzz.h"
#include "text/BTL_STR_Utilities.h"
#include "text/grammar/BTL_STR_EscapeText.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <string_view>
#include <type_traits>
#include <vector>

namespace
{

using Fuzz::Require;
using System::AnsiString;
using System::UnicodeString;

/// The marks and texts that an input chooses.
template <class S>
struct TCase
{
    typename S::CharType open;
    typename S::CharType close;
    typename S::CharType escape;
    bool skipBlanks;
    bool recursion;
    int position;
    S name;
    S other;
    S text;
};

template <class S>
S Joined(Classes::TStrings& list)
{
    S result;
    for (int i = 0; i < list.getCount(); ++i) {
        result += S(list.getStrings(i)) + typename S::CharType('\x01');
    }
    return result;
}

/// All pieces of the text one after the other: the position moves on until it is at the end.
template <class S>
void CheckPieces(const TCase<S>& in, S& trace)
{
    for (int pos = 1; pos <= in.text.Length();) {
        const int former = pos;
        const S piece = BTL::GetSubString(in.text, pos, in.skipBlanks, in.open, in.close, in.escape);
        Require(pos >= former - 1 && pos <= in.text.Length() + 2);
        Require(piece.Length() <= std::max(pos - former, 0));
        trace += piece;
        // Without an `open` the position stays.
        pos = std::max(pos, former + 1);
    }
    for (int pos = 1; pos < in.text.Length();) {
        const int former = pos;
        const S word = BTL::GetWord(in.text, pos, in.open);
        Require(pos > former && pos <= in.text.Length());
        Require(word.IsEmpty() || (word[1] == in.open && in.text.Pos(word) != 0));
        trace += word;
    }
    const S between = BTL::DelimSubString2(in.text, in.open, in.close, std::max(in.position, 1));
    Require(between.Pos(in.close) == 0);
    trace += between;

    int pos = in.position;
    const bool isInRange = Fuzz::Try<Sysutils::ERangeError>(
        [&] { trace += BTL::GetSubString(in.text, pos, in.skipBlanks, in.open, in.close, in.escape); });
    Require(isInRange || in.position < 1);
}

template <class S>
void CheckCommands(const TCase<S>& in, S& trace)
{
    const int place = BTL::GetCommandPosition(in.text, in.name);
    Require(place == 0 || place == in.text.Pos(in.name));
    const S parameter = BTL::GetCommandParameter(in.text, in.name, in.open, in.close, in.escape);
    S rest = in.text;
    Require(BTL::CutCommandParameter(rest, in.name, in.open, in.close, in.escape) == parameter);
    Require(parameter.IsEmpty() ? rest == in.text
                                : rest.Length() <= in.text.Length() - in.name.Length() - parameter.Length());
    trace += parameter + rest;
    rest = in.text;
    Require(BTL::CutCommand(rest, in.name) == (place != 0));
    Require(rest.Length() == in.text.Length() - (place != 0 ? in.name.Length() : 0));
    trace += rest;
}

template <class S>
void CheckMacros(const TCase<S>& in, S& trace)
{
    trace += BTL::ApplyMacro(in.text, in.name, in.other);
    if (in.recursion) {
        // A body that calls its own macro ends too.
        const S macro = in.name + S("(a,b)");
        const S expanded = BTL::ApplyMacro(in.text, macro, in.other + S("%a") + in.name + S("(%b)"));
        Require(expanded.Length() < 2'000'000);
        trace += expanded;
    }
    if (in.name.IsEmpty() || in.name.Pos(typename S::CharType('(')) != 0 || in.text.Pos(in.name) == 0) {
        Require(BTL::ApplyMacro(in.text, in.name + S("(a)"), S("%a")).Length() <= in.text.Length());
    }
}

template <class S>
void CheckEscapes(const TCase<S>& in, S& trace)
{
    const S inserted = BTL::InsertEscapeSequences(in.text);
    const auto isBreak = [](auto c) { return c == '\n' || c == '\r' || c == '\t'; };
    Require(std::none_of(inserted.AsView().begin(), inserted.AsView().end(), isBreak));
    const S inserted2 = BTL::InsertEscapeSequences2(in.text);
    Require(BTL::DeleteChars(inserted2, typename S::CharType('\\')).Length() <= in.text.Length());
    const S escaped = BTL::EscapeText(in.text);
    Require(std::none_of(escaped.begin(), escaped.end(), isBreak));
    Require(BTL::UnescapeText(escaped) == in.text);
    trace += escaped + BTL::UnescapeText(in.text);
    trace += inserted + inserted2 + BTL::ApplyEscapeSequences(in.text) + BTL::ApplyEscapeSequences2(in.text);
    // A backslash of the text may join with what stands behind it, so only the rest comes back.
    const S plain = BTL::DeleteChars(in.text, typename S::CharType('\\'));
    Require(BTL::ApplyEscapeSequences(BTL::InsertEscapeSequences(plain)) == plain);
    Require(BTL::ApplyEscapeSequences2(BTL::InsertEscapeSequences2(plain)) == plain);
}

template <class S>
void CheckLists(const TCase<S>& in, S& trace)
{
    using Char = typename S::CharType;
    Classes::TStringList list;
    BTL::SetDelimitedTextEx(&list, in.text, in.open, in.close);
    Require(list.getCount() <= in.text.Length());
    trace += Joined<S>(list);
    trace += BTL::GetDelimitedTextEx(&list, in.open, in.close) + BTL::GetDelimitedText(&list, in.open);

    // Items come back if the list is written with quotes where they are needed.
    constexpr auto delim = Char(',');
    constexpr auto quote = Char('"');
    Classes::TStringList items;
    for (int i = 0; i < list.getCount(); ++i) {
        S item(list.getStrings(i));
        if (!item.IsEmpty() && item.AsView().front() != quote &&
            std::none_of(item.AsView().begin(), item.AsView().end(),
                         [](Char c) { return static_cast<std::make_unsigned_t<Char>>(c) <= 32; })) {
            items.Add(item);
        }
    }
    const S written = BTL::GetDelimitedTextEx(&items, delim, quote);
    Classes::TStringList read;
    BTL::SetDelimitedTextEx(&read, written, delim, quote);
    Require(Joined<S>(read) == Joined<S>(items));

    const S commaText = BTL::LinesToCommaText(in.text);
    trace += commaText;
    if (commaText != in.text) {
        Classes::TStringList lines;
        lines.setText(in.text);
        read.setCommaText(commaText);
        Require(Joined<S>(read) == Joined<S>(lines));
    }
}

template <class S>
void CheckReplacing(const TCase<S>& in, S& trace)
{
    const S exchanged = BTL::ExchangeAll(in.text, in.name, in.other);
    Require(in.name.IsEmpty() || in.name.Pos(in.open) != 0 || in.other.Pos(in.open) != 0 ||
            BTL::Pos(exchanged, in.open) == 0 || in.text.Pos(in.open) != 0);
    trace += exchanged + BTL::ExchangeAll(in.text, in.open, in.other);
    trace += BTL::Exchange1stSubStr(in.text, in.name, in.other, in.position);
    const S deleted = BTL::DeleteSubStrings(in.text, in.open, in.close);
    Require(deleted.Length() <= in.text.Length());
    trace += deleted;
}

template <class S>
void CheckIdentifiers(const TCase<S>& in, S& trace)
{
    using Char = typename S::CharType;
    const S ident = BTL::TransformToValidIdent(in.text, Char('_'));
    Require(ident.Length() == in.text.Length());
    Require(BTL::TransformToValidIdent(ident, Char('#')) == ident);
    trace += ident + BTL::TransformToValidIdent(in.text, Char(0));

    const S cleared = BTL::ClearShortCut(in.text, in.open);
    Require(BTL::Pos_N2(cleared, in.open) == 0 && BTL::ShortCutPos(cleared, in.open) == 0);
    const int shortCut = BTL::ShortCutPos(in.text, in.open);
    Require(shortCut == 0 || (in.text[shortCut] == in.open && in.text[shortCut + 1] != in.open));
    trace += cleared;
}

/// All results in a row, to be compared between the widths.
template <class S>
S Check(const TCase<S>& in)
{
    S trace;
    CheckPieces(in, trace);
    CheckCommands(in, trace);
    CheckMacros(in, trace);
    CheckEscapes(in, trace);
    CheckLists(in, trace);
    CheckReplacing(in, trace);
    CheckIdentifiers(in, trace);
    return trace;
}

/// Reads a comma separated line by the usual rules, with `delim` and double quotes.
std::vector<UnicodeString> ReadCsv(std::u16string_view line, System::WideChar delim)
{
    std::vector<UnicodeString> fields(1);
    bool quoted = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] == u'"') {
            if (quoted && i + 1 < line.size() && line[i + 1] == u'"') {
                fields.back() += line[i++];
            } else {
                quoted = !quoted;
            }
        } else if (line[i] == delim && !quoted) {
            fields.emplace_back();
        } else {
            fields.back() += line[i];
        }
    }
    return fields;
}

void CheckWide(const TCase<UnicodeString>& in)
{
    UnicodeString csv;
    const UnicodeString fields[] = {u"ID" + in.name, BTL::DeleteChars(in.text, u'"'), u";" + in.other};
    for (const UnicodeString& field : fields) {
        BTL::AddCSVString(csv, field, u';');
    }
    const auto read = ReadCsv(csv.AsView(), u';');
    Require(read.size() == std::size(fields) && std::equal(read.begin(), read.end(), fields));

    const UnicodeString quotes = UnicodeString(in.open) + in.escape;
    Require(BTL::ExchangeAll(in.text, in.name, in.name, quotes) == in.text);
    Require(BTL::ExchangeAll(in.text, in.name, in.other, u"") ==
            BTL::ExchangeAll(in.text, in.name, in.other));
    Require(BTL::DelDelimitedSubStrings(in.text, in.name, in.other, quotes).Length() <= in.text.Length());
    UnicodeString parameter;
    UnicodeString rest = in.text;
    const bool found = BTL::CutCommand(rest, parameter, in.name, in.open, in.close, in.escape);
    Require(found == (BTL::GetCommandPosition(in.text, in.name) != 0));
    Require(parameter == BTL::GetCommandParameter(in.text, in.name, in.open, in.close, in.escape));
    Require(found ? rest.Length() <= in.text.Length() - in.name.Length() : rest == in.text);
}

TCase<AnsiString> ReadCase(Fuzz::Input input)
{
    TCase<AnsiString> result = {};
    result.open = input.Take<char>();
    result.close = input.Take<char>();
    result.escape = input.Take<char>();
    const auto flags = input.Take<std::uint8_t>();
    result.skipBlanks = (flags & 1) != 0;
    result.recursion = (flags & 2) != 0;
    result.position = input.Take<std::uint8_t>() - 128;
    result.name = AnsiString(input.TakeLine());
    result.other = AnsiString(input.TakeLine());
    result.text = AnsiString(input.getText());
    return result;
}

template <class S>
TCase<S> Widened(const TCase<AnsiString>& in)
{
    const auto unit = [](char c) { return UnicodeString(c)[1]; };
    return {unit(in.open), unit(in.close), unit(in.escape), in.skipBlanks, in.recursion,
            in.position,   in.name,        in.other,        in.text};
}

} // namespace

/// Five bytes choose the marks, what is done, and a position counted from 128; then follow a name, another
/// text and the text to work on, each ended by a line feed but the last.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 5) {
        return 0;
    }
    const TCase<AnsiString> narrow = ReadCase(Fuzz::Input(data, size));
    const auto wide = Widened<UnicodeString>(narrow);
    const AnsiString narrowTrace = Check(narrow);
    const UnicodeString wideTrace = Check(wide);
    // The letters of these codes are no word characters once they are wide.
    const bool isLatin = std::none_of(data, data + size, [](unsigned c) { return c >= 0x80 && c < 0xA0; });
    Require(!isLatin || UnicodeString(narrowTrace) == wideTrace);
    CheckWide(wide);
    return 0;
}
