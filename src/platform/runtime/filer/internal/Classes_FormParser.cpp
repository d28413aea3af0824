// SPDX-License-Identifier: MIT
#include "platform/runtime/filer/internal/Classes_FormParser.h"

#include "platform/base/internal/System_Ascii.h"
#include "platform/runtime/filer/internal/Classes_FormFloat.h"
#include "platform/runtime/filer/internal/Classes_FormInput.h"
#include "platform/runtime/filer/internal/Classes_FormNames.h"
#include "platform/runtime/filer/internal/Classes_FormOutput.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace Classes::Form
{

using System::Int64;
using System::UnicodeString;
using System::Detail::AsciiHexValue;
using System::Detail::IsAsciiDigit;
using System::Detail::IsAsciiLetter;
using System::Detail::IsAsciiSpace;

namespace
{

/// What may be part of a number behind its begin.
bool IsNumberPart(char c)
{
    return IsAsciiDigit(c) || IsAsciiLetter(c) || c == '.';
}

/// The offset of the first byte that is no UTF-8.
std::size_t FaultInUtf8(std::string_view text)
{
    std::size_t at = 0;
    while (at < text.size()) {
        const auto [code, size] = CharacterOf(text.substr(at));
        if (code < 0) {
            break;
        }
        at += size;
    }
    return at;
}

} // namespace

/// The parts of a text value. It is UTF-8 as long as it can be: codes may stand for halves of characters.
class CGatheredText
{
public:
    void Add(std::string_view utf8)
    {
        if (mIsWide) {
            mWide += System::FromUtf8(utf8).AsView();
        } else {
            mNarrow += utf8;
        }
    }

    void AddCode(char32_t code)
    {
        if (!mIsWide && code < 0x80) {
            mNarrow += static_cast<char>(code);
            return;
        }
        if (!mIsWide) {
            mWide = System::FromUtf8(mNarrow).AsView();
            mIsWide = true;
        }
        if (code < 0x10000) {
            mWide += static_cast<char16_t>(code);
        } else {
            mWide += static_cast<char16_t>(0xD7C0 + (code >> 10));
            mWide += static_cast<char16_t>(0xDC00 + (code & 0x3FF));
        }
    }

    void Tell(ASink& sink) const
    {
        if (!mIsWide) {
            sink.Text(mNarrow);
        } else if (HasLoneSurrogate(mWide)) {
            sink.WideText(mWide);
        } else {
            sink.Text(System::ToUtf8(mWide));
        }
    }

private:
    std::string mNarrow;
    std::u16string mWide;
    bool mIsWide = false;
};

/// One level further in, for a scope.
class CParser::CLevel
{
public:
    explicit CLevel(CParser& parser) : mParser(parser)
    {
        if (++mParser.mDepth > MaxDepth) {
            mParser.Fail(mParser.mAt,
                         u"the form is nested deeper than " + UnicodeString(MaxDepth) + u" levels");
        }
    }
    CLevel(const CLevel&) = delete;
    CLevel& operator=(const CLevel&) = delete;
    ~CLevel() { --mParser.mDepth; }

private:
    CParser& mParser;
};

TPlace PlaceIn(std::string_view text, std::size_t offset)
{
    TPlace place;
    if (text.starts_with(ByteOrderMark)) {
        text.remove_prefix(ByteOrderMark.size());
        offset -= std::min(offset, ByteOrderMark.size());
    }
    const std::string_view before = text.substr(0, offset);
    for (std::size_t i = 0; i < before.size(); ++i) {
        const char c = before[i];
        const bool isFirstOfTwo = c == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
        if (c == '\n' || (c == '\r' && !isFirstOfTwo)) {
            ++place.line;
            place.column = 1;
        } else if ((c & 0xC0) != 0x80) {
            ++place.column;
        }
    }
    return place;
}

void CParser::Fail(std::size_t offset, const UnicodeString& message) const
{
    const TPlace place = PlaceIn(mText, offset);
    throw EParserError(mPath.AsText() + u": " + message, place.line, place.column);
}

void CParser::FailExpected(const UnicodeString& what)
{
    SkipBlanks();
    Fail(mAt, what + u" is missing");
}

void CParser::SkipBlanks() noexcept
{
    while (mAt < mText.size() && IsAsciiSpace(mText[mAt])) {
        ++mAt;
    }
}

char CParser::PeekSign() noexcept
{
    SkipBlanks();
    return IsAtEnd() ? '\0' : mText[mAt];
}

bool CParser::TakeSign(char sign) noexcept
{
    // At the end there is nothing to take, not even a zero.
    if (PeekSign() != sign || IsAtEnd()) {
        return false;
    }
    ++mAt;
    return true;
}

void CParser::NeedSign(char sign)
{
    if (!TakeSign(sign)) {
        FailExpected(u"'" + UnicodeString(sign) + u"'");
    }
}

std::string_view CParser::TakeWord() noexcept
{
    SkipBlanks();
    const std::string_view word = mText.substr(mAt, IdentifierLength(mText.substr(mAt)));
    mAt += word.size();
    return word;
}

std::string_view CParser::NeedIdentifier(const char16_t* what, std::size_t maxLength)
{
    SkipBlanks();
    mEventStart = mAt;
    const std::string_view word = TakeWord();
    if (word.empty()) {
        FailExpected(what);
    }
    if (word.size() > maxLength) {
        Fail(mEventStart, UnicodeString(what) + u" is longer than " + UnicodeString(maxLength) + u" bytes");
    }
    return word;
}

std::string_view CParser::TakePath()
{
    SkipBlanks();
    const std::size_t start = mAt;
    if (TakeWord().empty()) {
        return {};
    }
    while (!IsAtEnd() && mText[mAt] == '.') {
        ++mAt;
        const std::size_t length = IdentifierLength(mText.substr(mAt));
        if (length == 0) {
            Fail(mAt, u"a name is missing behind the point");
        }
        mAt += length;
    }
    const std::string_view path = mText.substr(start, mAt - start);
    if (path.size() > MaxName) {
        Fail(start, u"a name is longer than " + UnicodeString(MaxName) + u" bytes");
    }
    return path;
}

void CParser::Parse()
{
    if (const std::size_t fault = FaultInUtf8(mText); fault < mText.size()) {
        Fail(fault, u"the text is no UTF-8");
    }
    mAt = mText.starts_with(ByteOrderMark) ? ByteOrderMark.size() : 0;
    ParseObject();
    SkipBlanks();
    if (!IsAtEnd()) {
        Fail(mAt, u"there is more behind the end of the form");
    }
}

bool CParser::TakeKinds(TObjectHead& head)
{
    const std::size_t start = mAt;
    const std::string_view first = TakeWord();
    head.isInherited = SameAsciiText(first, "inherited");
    head.isInline = SameAsciiText(first, "inline");
    if (!head.isInherited && !head.isInline && !SameAsciiText(first, "object")) {
        mAt = start;
        return false;
    }
    if (head.isInherited) {
        const std::size_t behind = mAt;
        // An inherited component may itself be called so.
        head.isInline = SameAsciiText(TakeWord(), "inline") && PeekSign() != ':' && !IsAtEnd() &&
                        IdentifierLength(mText.substr(mAt)) > 0;
        if (!head.isInline) {
            mAt = behind;
        }
    }
    return true;
}

void CParser::ParseHead(TObjectHead& head)
{
    const std::string_view first = NeedIdentifier(u"the name or class of a component", MaxName);
    const std::size_t start = mEventStart;
    if (TakeSign(':')) {
        head.name = first;
        head.className = NeedIdentifier(u"the class of a component", MaxClassName);
    } else if (first.size() > MaxClassName) {
        Fail(mEventStart,
             u"the class of a component is longer than " + UnicodeString(MaxClassName) + u" bytes");
    } else {
        head.className = first;
    }
    if (SameAsciiText(head.className, "inline")) {
        Fail(mEventStart, u"no class has the name of a word of the grammar");
    }
    mEventStart = start;
    if (PeekSign() == '[') {
        head.childPos = ParsePlaceNumber();
    }
}

Int64 CParser::ParsePlaceNumber()
{
    NeedSign('[');
    SkipBlanks();
    const std::size_t start = mAt;
    while (!IsAtEnd() && (IsAsciiDigit(mText[mAt]) || mText[mAt] == '-')) {
        ++mAt;
    }
    const Int64 number = IntegerOf(mText.substr(start, mAt - start), 10, start);
    NeedSign(']');
    return number;
}

void CParser::ParseObject()
{
    const CLevel level(*this);
    TObjectHead head;
    if (!TakeKinds(head)) {
        FailExpected(u"'object', 'inherited' or 'inline'");
    }
    ParseHead(head);
    mPath.Enter(head.className, head.name);
    mSink.BeginObject(head);
    bool hasChildren = false;
    for (;;) {
        SkipBlanks();
        const std::size_t start = mAt;
        const std::string_view path = TakePath();
        // A property may have the name of a word of the grammar.
        if (PeekSign() == '=') {
            if (hasChildren) {
                Fail(start, u"a property stands behind a component; properties come first");
            }
            ParseProperty(path, start);
            continue;
        }
        if (SameAsciiText(path, "end")) {
            break;
        }
        if (path.empty()) {
            FailExpected(u"a property, a component or 'end'");
        }
        mAt = start;
        TObjectHead inner;
        if (!TakeKinds(inner)) {
            mAt = start + path.size();
            FailExpected(u"'='");
        }
        mAt = start;
        hasChildren = true;
        ParseObject();
    }
    mSink.EndObject();
    mPath.Leave();
}

void CParser::ParseProperty(std::string_view path, std::size_t start)
{
    if (path.empty()) {
        Fail(start, u"the name of a property is missing");
    }
    NeedSign('=');
    const std::string outer = mPath.getProperty();
    mPath.setProperty(outer.empty() ? std::string(path) : outer + "." + std::string(path));
    mEventStart = start;
    mSink.BeginProperty(path);
    ParseValue();
    mPath.setProperty(outer);
}

void CParser::ParseValue()
{
    const char sign = PeekSign();
    mEventStart = mAt;
    switch (sign) {
    case '\'':
    case '#':
        return ParseText();
    case '{':
        return ParseBytes();
    case '[':
        return ParseSet();
    case '(':
        return ParseList();
    case '<':
        return ParseCollection();
    default:
        break;
    }
    if (IsAsciiDigit(sign) || sign == '-' || sign == '$' || sign == '%') {
        return ParseNumber();
    }
    ParseWord();
}

Int64 CParser::IntegerOf(std::string_view digits, int base, std::size_t start) const
{
    Int64 value = 0;
    const auto [end, fault] = std::from_chars(digits.data(), digits.data() + digits.size(), value, base);
    if (fault == std::errc::result_out_of_range) {
        Fail(start, u"a number is beyond 64 bits");
    }
    if (fault != std::errc() || end != digits.data() + digits.size()) {
        Fail(start, u"'" + System::FromUtf8(digits) + u"' is no whole number");
    }
    return value;
}

void CParser::ParseNumber()
{
    const std::size_t start = mAt++;
    while (!IsAtEnd()) {
        const char c = mText[mAt];
        const bool isExponentSign = (c == '-' || c == '+') &&
                                    (mText[mAt - 1] == 'e' || mText[mAt - 1] == 'E') && mText[start] != '%' &&
                                    mText[start] != '$';
        if (!IsNumberPart(c) && !isExponentSign) {
            break;
        }
        ++mAt;
    }
    const std::string_view number = mText.substr(start, mAt - start);
    if (number.front() == '$') {
        return mSink.Integer(IntegerOf(number.substr(1), 16, start));
    }
    if (std::ranges::all_of(number.substr(1), IsAsciiDigit<char>) && number.front() != '%') {
        return mSink.Integer(IntegerOf(number, 10, start));
    }
    const std::optional<TFloatValue> value = ParseFloat(number);
    if (!value) {
        Fail(start, u"'" + System::FromUtf8(number) + u"' is no number");
    }
    mSink.Float(value->type, value->bytes);
}

void CParser::ParseText()
{
    CGatheredText text;
    for (;;) {
        const char c = IsAtEnd() ? '\0' : mText[mAt];
        if (c == '\'') {
            ParseQuoted(text);
        } else if (c == '#') {
            ParseCode(text);
        } else if (!TakeJoin()) {
            break;
        }
    }
    text.Tell(mSink);
}

/// Goes behind a `+` between two parts of a text, in front of the second.
bool CParser::TakeJoin() noexcept
{
    const std::size_t start = mAt;
    if (TakeSign('+')) {
        const char next = PeekSign();
        if (next == '\'' || next == '#') {
            return true;
        }
    }
    mAt = start;
    return false;
}

void CParser::ParseQuoted(CGatheredText& text)
{
    const std::size_t start = mAt++;
    for (;;) {
        const auto isEnd = [](char c) {
            return c == '\'' || (static_cast<unsigned char>(c) < ' ' && c != '\t');
        };
        const auto* const from = mText.data() + mAt;
        const auto* const end = std::find_if(from, mText.data() + mText.size(), isEnd);
        text.Add({from, end});
        mAt += static_cast<std::size_t>(end - from);
        if (IsAtEnd() || mText[mAt] == '\n' || mText[mAt] == '\r') {
            Fail(start, u"a text has no closing quote in its line");
        }
        if (mText[mAt] != '\'') {
            Fail(mAt, u"a control character in a text is written by its number, as in #13");
        }
        ++mAt;
        if (IsAtEnd() || mText[mAt] != '\'') {
            return;
        }
        text.Add("'");
        ++mAt;
    }
}

void CParser::ParseCode(CGatheredText& text)
{
    const std::size_t start = mAt++;
    const bool isHex = !IsAtEnd() && mText[mAt] == '$';
    mAt += isHex ? 1 : 0;
    char32_t code = 0;
    const std::size_t digits = mAt;
    for (; !IsAtEnd(); ++mAt) {
        const int digit = AsciiHexValue(mText[mAt]);
        if (digit < 0 || (!isHex && digit > 9)) {
            break;
        }
        code = code * (isHex ? 16 : 10) + static_cast<char32_t>(digit);
        if (code > 0x10FFFF) {
            Fail(start, u"no character has such a number");
        }
    }
    if (mAt == digits) {
        Fail(start, u"the number of a character is missing");
    }
    text.AddCode(code);
}

void CParser::ParseWord()
{
    const std::string_view path = TakePath();
    if (path.empty()) {
        FailExpected(u"a value");
    }
    constexpr std::pair<std::string_view, TValueType> constants[] = {
        {"True", vaTrue}, {"False", vaFalse}, {"nil", vaNil}, {"Null", vaNull}};
    const auto found = std::ranges::find_if(
        constants, [path](const auto& constant) { return SameAsciiText(constant.first, path); });
    if (found == std::end(constants)) {
        return mSink.Ident(path);
    }
    // In the binary form it would be the list's end.
    if (found->second == vaNull && mIsInList) {
        Fail(mEventStart, u"a list has no Null");
    }
    mSink.Constant(found->second);
}

void CParser::ParseBytes()
{
    const std::size_t start = mAt++;
    std::string bytes;
    int first = -1;
    for (;; ++mAt) {
        if (IsAtEnd()) {
            Fail(start, u"the closing '}' is missing");
        }
        const char c = mText[mAt];
        const int digit = AsciiHexValue(c);
        if (digit >= 0) {
            if (first < 0) {
                first = digit;
            } else {
                bytes += static_cast<char>(first << 4 | digit);
                first = -1;
            }
        } else if (c == '}') {
            break;
        } else if (!IsAsciiSpace(c)) {
            Fail(mAt, u"a hexadecimal digit or '}' is missing");
        }
    }
    if (first >= 0) {
        Fail(mAt, u"a byte has two hexadecimal digits");
    }
    ++mAt;
    mSink.Bytes(bytes);
}

void CParser::ParseSet()
{
    NeedSign('[');
    mSink.BeginSet();
    if (PeekSign() != ']') {
        do {
            mSink.Element(NeedIdentifier(u"an element of the set", MaxName));
        } while (TakeSign(','));
    }
    NeedSign(']');
    mSink.EndSet();
}

void CParser::ParseList()
{
    const CLevel level(*this);
    NeedSign('(');
    mSink.BeginList();
    const bool outer = std::exchange(mIsInList, true);
    while (!TakeSign(')')) {
        ParseValue();
    }
    mIsInList = outer;
    mSink.EndList();
}

void CParser::ParseCollection()
{
    const CLevel level(*this);
    NeedSign('<');
    mSink.BeginCollection();
    const bool outer = std::exchange(mIsInList, false);
    const std::string property = mPath.getProperty();
    for (int index = 0; !TakeSign('>'); ++index) {
        mPath.setProperty(property + "[" + std::to_string(index) + "]");
        ParseItem();
    }
    mPath.setProperty(property);
    mIsInList = outer;
    mSink.EndCollection();
}

void CParser::ParseItem()
{
    SkipBlanks();
    mEventStart = mAt;
    if (!SameAsciiText(TakeWord(), "item")) {
        mAt = mEventStart;
        FailExpected(u"'item' or '>'");
    }
    std::optional<Int64> place;
    if (PeekSign() == '[') {
        place = ParsePlaceNumber();
    }
    mSink.BeginItem(place);
    for (;;) {
        SkipBlanks();
        const std::size_t start = mAt;
        const std::string_view path = TakePath();
        if (PeekSign() == '=') {
            ParseProperty(path, start);
        } else if (SameAsciiText(path, "end")) {
            break;
        } else {
            mAt = start + path.size();
            FailExpected(path.empty() ? u"a property or 'end'" : u"'='");
        }
    }
    mSink.EndItem();
}

} // namespace Classes::Form
