// SPDX-License-Identifier: MIT
#include "platform/runtime/filer/internal/Classes_FormTextSink.h"

#include "platform/runtime/classes/Classes_Stream.h"
#include "platform/runtime/filer/internal/Classes_FormFloat.h"
#include "platform/runtime/filer/internal/Classes_FormNames.h"

#include <algorithm>
#include <array>
#include <charconv>

#include <unicode/utf16.h>

namespace Classes::Form
{

using System::Int64;

namespace
{

/// So much text is gathered.
constexpr std::size_t BlockSize = 0x10000;
/// Levels beyond this are set in no further: deep forms would be mostly blanks.
constexpr int MaxIndent = 32;
/// A text goes on in the next line behind so many characters.
constexpr int LineLength = 80;
constexpr std::size_t BytesInLine = 32;

/// A byte that stands for itself within quotes.
bool IsPlain(char c)
{
    return c >= ' ' && c != '\'' && c != 0x7F;
}

/// Characters that a line of text shows as themselves: no controls, and none that break lines or turn them.
bool IsShown(UChar32 c)
{
    const bool isControl = c < 0x20 || (c >= 0x7F && c < 0xA0);
    const bool isBreak = c == 0x2028 || c == 0x2029 || c == 0xFEFF;
    const bool isTurn =
        c == 0x200E || c == 0x200F || (c >= 0x202A && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069);
    return !isControl && !isBreak && !isTurn && !U_IS_SURROGATE(c);
}

void AppendInteger(std::string& out, Int64 value)
{
    std::array<char, 24> buffer;
    out.append(buffer.data(), std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr);
}

} // namespace

/// A text between quotes, which goes over several lines where it is long.
class CTextSink::CTextValue
{
public:
    explicit CTextValue(CTextSink& sink) : mSink(sink), mOut(sink.mOut) {}

    void AddRun(std::string_view plain)
    {
        while (!plain.empty()) {
            BreakLine();
            const auto room = static_cast<std::size_t>(LineLength - mInLine);
            const std::string_view piece = plain.substr(0, room);
            Open();
            mOut += piece;
            mInLine += static_cast<int>(piece.size());
            plain.remove_prefix(piece.size());
        }
    }

    void AddShown(std::string_view bytes)
    {
        BreakLine();
        Open();
        mOut += bytes;
        ++mInLine;
    }

    void AddCode(Int64 code)
    {
        BreakLine();
        Close();
        mOut += '#';
        AppendInteger(mOut, code);
        ++mInLine;
        mIsEmpty = false;
    }

    void End()
    {
        if (mIsEmpty) {
            mOut += "''";
        }
        Close();
    }

private:
    void BreakLine()
    {
        if (mInLine >= LineLength) {
            Close();
            mOut += " +";
            mSink.NewLine();
            mInLine = 0;
        }
    }
    void Open()
    {
        if (!mIsOpen) {
            mOut += '\'';
            mIsOpen = true;
        }
        mIsEmpty = false;
    }
    void Close()
    {
        if (mIsOpen) {
            mOut += '\'';
            mIsOpen = false;
        }
    }

    CTextSink& mSink;
    std::string& mOut;
    int mInLine = 0;
    bool mIsOpen = false;
    bool mIsEmpty = true;
};

void CTextSink::Flush()
{
    mTarget.WriteBuffer(mOut.data(), static_cast<Int64>(mOut.size()));
    mOut.clear();
}

void CTextSink::NewLine()
{
    mOut += '\n';
    if (mOut.size() >= BlockSize) {
        Flush();
    }
    mOut.append(2 * static_cast<std::size_t>(std::min(mLevel, MaxIndent)), ' ');
}

void CTextSink::BeginValue()
{
    if (mIsInList.back()) {
        NewLine();
    }
}

void CTextSink::BeginObject(const TObjectHead& head)
{
    if (mLevel > 0) {
        NewLine();
    }
    if (head.isInherited) {
        mOut += "inherited ";
    }
    if (head.isInline) {
        mOut += "inline ";
    }
    if (!head.isInherited && !head.isInline) {
        mOut += "object ";
    }
    if (!head.name.empty()) {
        mOut.append(head.name).append(": ");
    }
    mOut += head.className;
    if (head.childPos) {
        mOut += " [";
        AppendInteger(mOut, *head.childPos);
        mOut += ']';
    }
    ++mLevel;
}

void CTextSink::EndObject()
{
    --mLevel;
    NewLine();
    mOut += "end";
    if (mLevel == 0) {
        mOut += '\n';
    }
}

void CTextSink::BeginProperty(std::string_view path)
{
    NewLine();
    mOut.append(path).append(" = ");
}

void CTextSink::Constant(TValueType type)
{
    BeginValue();
    mOut += type == vaNull ? "Null" : type == vaNil ? "nil" : type == vaTrue ? "True" : "False";
}

void CTextSink::Integer(Int64 value)
{
    BeginValue();
    AppendInteger(mOut, value);
}

void CTextSink::Float(TValueType type, std::string_view bytes)
{
    BeginValue();
    AppendFloat(mOut, type, bytes);
}

void CTextSink::Text(std::string_view text)
{
    BeginValue();
    CTextValue value(*this);
    std::size_t at = 0;
    while (at < text.size()) {
        const auto run =
            std::find_if_not(text.begin() + static_cast<std::ptrdiff_t>(at), text.end(), IsPlain);
        const auto end = static_cast<std::size_t>(run - text.begin());
        value.AddRun(text.substr(at, end - at));
        at = end;
        if (at == text.size()) {
            break;
        }
        const std::string_view rest = text.substr(at);
        if (rest.front() == '\'') {
            value.AddShown("''");
            ++at;
            continue;
        }
        const auto [code, size] = CharacterOf(rest);
        if (IsShown(code)) {
            value.AddShown(rest.substr(0, size));
        } else {
            value.AddCode(code);
        }
        at += size;
    }
    value.End();
}

void CTextSink::WideText(std::u16string_view text)
{
    BeginValue();
    CTextValue value(*this);
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t start = at;
        UChar32 c = 0;
        U16_NEXT(text.data(), at, text.size(), c);
        if (!IsShown(c)) {
            value.AddCode(c);
        } else if (c == '\'') {
            value.AddShown("''");
        } else {
            value.AddShown(System::ToUtf8(text.substr(start, at - start)));
        }
    }
    value.End();
}

void CTextSink::Ident(std::string_view path)
{
    BeginValue();
    mOut += path;
}

void CTextSink::Bytes(std::string_view bytes)
{
    constexpr std::string_view digits = "0123456789ABCDEF";
    BeginValue();
    mOut += '{';
    ++mLevel;
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        if (at % BytesInLine == 0) {
            NewLine();
        }
        const auto byte = static_cast<unsigned char>(bytes[at]);
        mOut += digits[byte >> 4];
        mOut += digits[byte & 15];
    }
    --mLevel;
    mOut += '}';
}

void CTextSink::BeginSet()
{
    BeginValue();
    mOut += '[';
    mIsFirstElement = true;
}

void CTextSink::Element(std::string_view name)
{
    if (!std::exchange(mIsFirstElement, false)) {
        mOut += ", ";
    }
    mOut += name;
}

void CTextSink::EndSet()
{
    mOut += ']';
}

void CTextSink::BeginList()
{
    BeginValue();
    mOut += '(';
    ++mLevel;
    mIsInList.push_back(true);
}

void CTextSink::EndList()
{
    --mLevel;
    mIsInList.pop_back();
    mOut += ')';
}

void CTextSink::BeginCollection()
{
    BeginValue();
    mOut += '<';
    ++mLevel;
}

void CTextSink::BeginItem(std::optional<Int64> place)
{
    NewLine();
    mOut += "item";
    if (place) {
        mOut += " [";
        AppendInteger(mOut, *place);
        mOut += ']';
    }
    ++mLevel;
    mIsInList.push_back(false);
}

void CTextSink::EndItem()
{
    mIsInList.pop_back();
    --mLevel;
    NewLine();
    mOut += "end";
}

void CTextSink::EndCollection()
{
    --mLevel;
    mOut += '>';
}

} // namespace Classes::Form
