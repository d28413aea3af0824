// SPDX-License-Identifier: MIT
#include "streams/BTL_STRM_StreamUtilities.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "platform/base/internal/System_Ascii.h"
#include "platform/base/numbers/Sysutils_Number.h"
#include "platform/runtime/classes/internal/Classes_Position.h"
#include "platform/runtime/sysutils/Character.h"
#include "streams/internal/BTL_STRM_Reading.h"
#include "streams/internal/BTL_STRM_Scan.h"

#include <algorithm>
#include <array>
#include <bitset>
#include <climits>
#include <functional>
#include <memory>
#include <utility>

namespace BTL
{

namespace
{

using Classes::TStream;
using System::AnsiString;
using System::Int64;
using System::UnicodeString;
using System::UTF8String;
using System::Detail::IsAsciiDigit;

/// The faults of a null stream, each by the operation that was given it.
namespace NullStreamIn
{

constexpr const char* Source = "BTL_STRM_StreamUtilities.cpp";

constexpr UTL::CFaultPlace Eof{Source, 31};
constexpr UTL::CFaultPlace GetSize{Source, 38};
constexpr UTL::CFaultPlace CountLines{Source, 45};
constexpr UTL::CFaultPlace GetCurrStrLine{Source, 68};
constexpr UTL::CFaultPlace ReadChar{Source, 78};
constexpr UTL::CFaultPlace PeekChar{Source, 83};
constexpr UTL::CFaultPlace SkipUntil{Source, 98};
constexpr UTL::CFaultPlace SkipBytes{Source, 103};
constexpr UTL::CFaultPlace SkipWhitespaces{Source, 110};
constexpr UTL::CFaultPlace ReadStringUntil{Source, 120};
constexpr UTL::CFaultPlace ReadUTF8StringUntil{Source, 125};
constexpr UTL::CFaultPlace ReadStringUntil2{Source, 130};
constexpr UTL::CFaultPlace ReadStringUntilText{Source, 135};
constexpr UTL::CFaultPlace ReadBytes{Source, 155};
constexpr UTL::CFaultPlace WriteString{Source, 160};
constexpr UTL::CFaultPlace WriteUTF8String{Source, 170};
constexpr UTL::CFaultPlace WriteEndOfLine{Source, 175};
constexpr UTL::CFaultPlace ReadInteger{Source, 180};
constexpr UTL::CFaultPlace ReadIntegerDef{Source, 185};
constexpr UTL::CFaultPlace ReadIntegerUnget{Source, 190};
constexpr UTL::CFaultPlace ReadInt64{Source, 195};
constexpr UTL::CFaultPlace ReadInt64Def{Source, 200};
constexpr UTL::CFaultPlace ReadInt64Unget{Source, 205};
constexpr UTL::CFaultPlace LoadStringFromStream{Source, 215};

} // namespace NullStreamIn

/// The stream, or an empty one for a null pointer that the user lets pass.
class CCheckedStream
{
public:
    CCheckedStream(TStream* stream, const UTL::CFaultPlace& place) : mStream(stream)
    {
        if (stream == nullptr) {
            UTL::THROW_XAssert(place);
            mEmpty = std::make_unique<Classes::TMemoryStream>();
            mStream = mEmpty.get();
        }
    }

    TStream& operator*() { return *mStream; }
    TStream* operator->() { return mStream; }

private:
    std::unique_ptr<Classes::TMemoryStream> mEmpty;
    TStream* mStream;
};

template <class S, class Find>
Detail::TReadEnd ReadTextTo(TStream& stream, Find find, S& text)
{
    const bool metEnd = !Detail::ReadTo(stream, find, Detail::AppendTo(text));
    return {text.Length(), metEnd};
}

template <class S, class Find>
S TextTo(TStream& stream, Find find)
{
    S text;
    ReadTextTo(stream, find, text);
    return text;
}

template <class Find>
Detail::TReadEnd SkipTo(TStream& stream, Find find)
{
    Int64 count = 0;
    const auto countBytes = [&count](std::string_view bytes) { count += static_cast<Int64>(bytes.size()); };
    const bool metEnd = !Detail::ReadTo(stream, find, countBytes);
    return {count, metEnd};
}

/// By the rule of Unicode for the character that the byte is in the code page.
bool IsUnicodeWhiteSpace(char c)
{
    static const std::bitset<256> table = [] {
        std::bitset<256> result;
        for (unsigned code = 0; code < 256; ++code) {
            result[code] = Character::TCharacter::IsWhiteSpace(UnicodeString(static_cast<char>(code))[1]);
        }
        return result;
    }();
    return table[static_cast<unsigned char>(c)];
}

/// Where the line begins in which `position` lies.
Int64 LineStart(TStream& stream, Int64 position)
{
    constexpr Int64 BlockSize = 512;
    while (position > 0) {
        const Int64 start = std::max(position - BlockSize, Int64{0});
        stream.setPosition(start);
        const AnsiString block = Detail::ReadUpTo(stream, position - start);
        const std::size_t lineFeed = block.AsView().rfind('\n');
        if (lineFeed != std::string_view::npos) {
            return start + static_cast<Int64>(lineFeed) + 1;
        }
        position = start;
    }
    return 0;
}

/// A finder for the byte that ends an integer: no digit, and no `-` at its very front. To be used once.
class CFindIntegerEnd
{
public:
    std::size_t operator()(std::string_view bytes)
    {
        const std::size_t sign = std::exchange(mIsFirst, false) && bytes.starts_with('-') ? 1 : 0;
        const std::size_t end = Detail::GFindIf{std::not_fn(IsAsciiDigit<char>)}(bytes.substr(sign));
        return end == std::string_view::npos ? end : end + sign;
    }

private:
    bool mIsFirst = true;
};

/// The integer's text up to the byte behind it.
UnicodeString IntegerText(TStream& stream, Detail::EByteBehind byteBehind = Detail::EByteBehind::Read)
{
    UnicodeString text;
    Detail::ReadIntegerText(stream, byteBehind, text);
    return text;
}

/// Passes over bytes by reading them.
void ReadOver(TStream& stream, Int64 count)
{
    std::array<char, 512> block;
    while (count > 0) {
        const Int64 read = stream.Read(block.data(), std::min(count, static_cast<Int64>(block.size())));
        if (read <= 0) {
            return;
        }
        count -= read;
    }
}

void WriteBytes(TStream& stream, std::string_view bytes)
{
    stream.WriteBuffer(bytes.data(), static_cast<Int64>(bytes.size()));
}

} // namespace

namespace Detail
{

TReadEnd SkipUntil(TStream& stream, char c)
{
    return SkipTo(stream, CFindByte{c});
}

TReadEnd SkipWhitespaces(TStream& stream)
{
    return SkipTo(stream, GFindIf{IsUnicodeWhiteSpace});
}

TReadEnd ReadStringUntil(TStream& stream, char delimiter, AnsiString& text)
{
    return ReadTextTo(stream, CFindByte{delimiter}, text);
}

TReadEnd ReadStringUntil(TStream& stream, const AnsiString& delimiter, AnsiString& text)
{
    CPatternScan scan(delimiter.AsView());
    TReadEnd end = ReadTextTo(stream, std::ref(scan), text);
    if (!end.metEnd) {
        // All of the delimiter but its last byte was taken for text.
        text.SetLength(text.Length() - (delimiter.Length() - 1));
        end.count = text.Length();
    }
    return end;
}

TReadEnd ReadBytes(TStream& stream, int count, AnsiString& bytes)
{
    bytes = ReadUpTo(stream, count);
    return {bytes.Length(), bytes.Length() < count};
}

TReadEnd ReadIntegerText(TStream& stream, EByteBehind byteBehind, UnicodeString& text)
{
    AnsiString bytes;
    TReadEnd end;
    if (byteBehind == EByteBehind::Read) {
        end = ReadTextTo(stream, CFindIntegerEnd(), bytes);
    } else {
        NeedLookAhead(stream);
        end.metEnd = !ReadInFrontOf(stream, CFindIntegerEnd(), AppendTo(bytes));
        end.count = bytes.Length();
    }
    text = bytes;
    return end;
}

} // namespace Detail

bool Eof(TStream* stream)
{
    CCheckedStream checked(stream, NullStreamIn::Eof);
    return Detail::AtEnd(*checked);
}

Int64 GetSize(TStream* stream)
{
    return CCheckedStream(stream, NullStreamIn::GetSize)->getSize();
}

int CountLines(TStream* stream, Int64 limit)
{
    CCheckedStream checked(stream, NullStreamIn::CountLines);
    Detail::NeedPosition(*checked);
    checked->setPosition(0);
    const Int64 lines = Detail::CountLineFeeds(*checked, limit < 0 ? INT_MAX : limit);
    return static_cast<int>(std::min(lines, Int64{INT_MAX}));
}

AnsiString GetCurrStrLine(TStream* stream)
{
    CCheckedStream checked(stream, NullStreamIn::GetCurrStrLine);
    const Int64 position = Detail::NeedPosition(*checked);
    checked->setPosition(LineStart(*checked, std::min(position, checked->getSize())));
    AnsiString line = ReadLine(&*checked);
    checked->setPosition(position);
    return line;
}

char ReadChar(TStream* stream)
{
    return Detail::ReadByte(*CCheckedStream(stream, NullStreamIn::ReadChar)).value_or('\0');
}

char PeekChar(TStream* stream)
{
    CCheckedStream checked(stream, NullStreamIn::PeekChar);
    Detail::NeedLookAhead(*checked);
    const std::string_view window = Classes::CStreamWindow::Of(*checked);
    if (!window.empty()) {
        return window.front();
    }
    const std::optional<char> c = Detail::ReadByte(*checked);
    if (c) {
        checked->Seek(-1, Classes::soCurrent);
    }
    return c.value_or('\0');
}

void SkipLine(TStream* stream)
{
    SkipUntil(stream, '\n');
}

void SkipUntil(TStream* stream, char c)
{
    Detail::SkipUntil(*CCheckedStream(stream, NullStreamIn::SkipUntil), c);
}

void SkipBytes(TStream* stream, int count)
{
    CCheckedStream checked(stream, NullStreamIn::SkipBytes);
    if (count >= 0 && !Classes::ToldPosition(*checked)) {
        ReadOver(*checked, count);
        return;
    }
    const Int64 position = Detail::NeedPosition(*checked);
    const Int64 last = std::max(checked->getSize(), Int64{1}) - 1;
    const Int64 target = std::clamp(Classes::AddClamped(position, count), Int64{0}, last);
    checked->Seek(target - position, Classes::soCurrent);
}

void SkipWhitespaces(TStream* stream)
{
    Detail::SkipWhitespaces(*CCheckedStream(stream, NullStreamIn::SkipWhitespaces));
}

void ReadUntil(TStream* stream, char c)
{
    SkipUntil(stream, c);
}

AnsiString ReadStringUntil(TStream* stream, char delimiter)
{
    return TextTo<AnsiString>(*CCheckedStream(stream, NullStreamIn::ReadStringUntil),
                              Detail::CFindByte{delimiter});
}

UTF8String ReadUTF8StringUntil(TStream* stream, char delimiter)
{
    return TextTo<UTF8String>(*CCheckedStream(stream, NullStreamIn::ReadUTF8StringUntil),
                              Detail::CFindByte{delimiter});
}

AnsiString ReadStringUntil2(TStream* stream, char a, char b)
{
    return TextTo<AnsiString>(*CCheckedStream(stream, NullStreamIn::ReadStringUntil2),
                              Detail::CFindEither{a, b});
}

AnsiString ReadStringUntil(TStream* stream, const AnsiString& text)
{
    AnsiString result;
    Detail::ReadStringUntil(*CCheckedStream(stream, NullStreamIn::ReadStringUntilText), text, result);
    return result;
}

AnsiString ReadLine(TStream* stream)
{
    // Nearly all lines: the line feed follows at once, and both are in memory.
    if (stream != nullptr) {
        const std::string_view window = Classes::CStreamWindow::Of(*stream);
        const std::size_t end = std::min(window.find('\r'), window.size());
        if (window.substr(end).starts_with("\r\n")) {
            AnsiString whole(window.substr(0, end));
            Classes::CStreamWindow::Pass(*stream, end + 2);
            return whole;
        }
    }
    AnsiString line = ReadStringUntil(stream, '\r');
    SkipLine(stream);
    return line;
}

AnsiString ReadBytes(TStream* stream, int count)
{
    return Detail::ReadUpTo(*CCheckedStream(stream, NullStreamIn::ReadBytes), count);
}

void WriteString(TStream* stream, const AnsiString& text)
{
    WriteBytes(*CCheckedStream(stream, NullStreamIn::WriteString), text.AsView());
}

void WriteAnsiString(TStream* stream, const AnsiString& text)
{
    WriteString(stream, text);
}

void WriteUTF8String(TStream* stream, const UTF8String& text)
{
    WriteBytes(*CCheckedStream(stream, NullStreamIn::WriteUTF8String), text.AsView());
}

void WriteEndOfLine(TStream* stream)
{
    WriteBytes(*CCheckedStream(stream, NullStreamIn::WriteEndOfLine), "\r\n");
}

int ReadInteger(TStream* stream)
{
    return Sysutils::StrToInt(IntegerText(*CCheckedStream(stream, NullStreamIn::ReadInteger)));
}

int ReadIntegerDef(TStream* stream, int defaultValue)
{
    return Sysutils::StrToIntDef(IntegerText(*CCheckedStream(stream, NullStreamIn::ReadIntegerDef)),
                                 defaultValue);
}

int ReadIntegerUnget(TStream* stream, int defaultValue)
{
    return Sysutils::StrToIntDef(
        IntegerText(*CCheckedStream(stream, NullStreamIn::ReadIntegerUnget), Detail::EByteBehind::Kept),
        defaultValue);
}

Int64 ReadInt64(TStream* stream)
{
    return Sysutils::StrToInt64(IntegerText(*CCheckedStream(stream, NullStreamIn::ReadInt64)));
}

Int64 ReadInt64Def(TStream* stream, Int64 defaultValue)
{
    return Sysutils::StrToInt64Def(IntegerText(*CCheckedStream(stream, NullStreamIn::ReadInt64Def)),
                                   defaultValue);
}

Int64 ReadInt64Unget(TStream* stream, Int64 defaultValue)
{
    return Sysutils::StrToInt64Def(
        IntegerText(*CCheckedStream(stream, NullStreamIn::ReadInt64Unget), Detail::EByteBehind::Kept),
        defaultValue);
}

void SaveStringToStream(TStream* stream, const AnsiString& text)
{
    WriteString(stream, text);
}

AnsiString LoadStringFromStream(TStream* stream)
{
    CCheckedStream checked(stream, NullStreamIn::LoadStringFromStream);
    const std::optional<Int64> position = Classes::ToldPosition(*checked);
    const Int64 left = position ? Classes::BytesBehind(*position, checked->getSize()) : 0;
    // The size of a pipe, or of a file that the host makes up while it is read, tells nothing.
    return Detail::ReadUpTo(*checked, left > 0 ? left : INT64_MAX);
}

void SaveStringToFile(const UnicodeString& path, const AnsiString& text)
{
    Classes::TFileStream stream(path, Classes::fmCreate);
    SaveStringToStream(&stream, text);
    // A failure shall be told, which the destructor couldn't.
    stream.Close();
}

AnsiString LoadStringFromFile(const UnicodeString& path)
{
    Classes::TFileStream stream(path, Classes::fmOpenRead | Classes::fmShareDenyNone);
    return LoadStringFromStream(&stream);
}

} // namespace BTL
