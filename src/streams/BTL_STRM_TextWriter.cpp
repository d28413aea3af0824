// SPDX-License-Identifier: MIT
#include "streams/BTL_STRM_TextWriter.h"

#include "platform/base/Sysutils_StrictEncoding.h"
#include "platform/runtime/classes/internal/Classes_StreamWindow.h"
#include "streams/internal/BTL_STRM_LineEnd.h"

#include <array>
#include <cstdio>
#include <utility>

namespace BTL
{

using Classes::TStream;
using System::Int64;
using System::UnicodeString;

namespace
{

bool IsFirstHalf(System::WideChar unit)
{
    return unit >= 0xD800 && unit < 0xDC00;
}

bool IsSecondHalf(System::WideChar unit)
{
    return unit >= 0xDC00 && unit < 0xE000;
}

/// The character at an index.
char32_t CharacterAt(std::u16string_view text, std::size_t at)
{
    const bool isPair = IsFirstHalf(text[at]) && at + 1 < text.size() && IsSecondHalf(text[at + 1]);
    return isPair ? 0x10000 + ((text[at] - 0xD800U) << 10) + (text[at + 1] - 0xDC00U) : text[at];
}

UnicodeString FaultReason(char32_t character)
{
    std::array<char, 16> code{};
    std::snprintf(code.data(), code.size(), "U+%04X", static_cast<unsigned>(character));
    return UnicodeString(code.data()) + u": not in the encoding that is written";
}

/// A mark belongs to the very beginning alone.
bool NeedsMark(TStream& stream, EByteOrderMark mark)
{
    return mark == EByteOrderMark::With && Classes::ToldPosition(stream).value_or(0) == 0;
}

} // namespace

// ECharacterFault

ECharacterFault::ECharacterFault(int place, char32_t character)
    : EConvertError(u"Character " + UnicodeString(place) + u", " + FaultReason(character)),
      mPlace(place),
      mCharacter(character)
{
}

ECharacterFault::ECharacterFault(std::u16string_view text, int place)
    : ECharacterFault(place, CharacterAt(text, static_cast<std::size_t>(place) - 1))
{
}

ECharacterFault::~ECharacterFault() = default;

UnicodeString ECharacterFault::getReason() const
{
    return FaultReason(mCharacter);
}

// CTextWriter

CTextWriter::CTextWriter(const UnicodeString& path, EFileOpenMode mode, const TTextForm& form)
    : CTextWriter(std::unique_ptr<TStream>(CreateFileStream(path, mode, fsmDenyWrite)), form)
{
}

CTextWriter::CTextWriter(const UnicodeString& path, const TTextForm& form)
    : CTextWriter(path, fomCreate, form)
{
}

CTextWriter::CTextWriter(TStream* stream, const TTextForm& form)
    : mStream(stream), mForm(form), mNeedsMark(NeedsMark(*stream, form.mark))
{
}

CTextWriter::CTextWriter(std::unique_ptr<TStream> stream, const TTextForm& form)
    : CTextWriter(stream.get(), form)
{
    mOwned = std::move(stream);
}

CTextWriter::~CTextWriter()
{
    try {
        Close();
    } catch (const Sysutils::Exception&) { // NOLINT(bugprone-empty-catch): nobody is there to be told.
    } catch (const std::exception&) {      // NOLINT(bugprone-empty-catch)
    }
}

void CTextWriter::Write(const UnicodeString& text)
{
    WriteText(text);
}

void CTextWriter::WriteLine(const UnicodeString& text)
{
    WriteText(text + Detail::EndText(mForm.lineEnd));
}

void CTextWriter::Flush()
{
    WriteText({});
    if (const auto* const file = dynamic_cast<const Classes::THandleStream*>(mStream)) {
        file->Flush();
    }
}

void CTextWriter::Close()
{
    if (mStream == nullptr) {
        return;
    }
    // Whatever happens now, the work ends.
    struct TEnd
    {
        CTextWriter& writer;
        ~TEnd()
        {
            writer.mStream = nullptr;
            writer.mOwned.reset();
        }
    } const end{*this};
    Flush();
    if (mHalf != 0) {
        // A half whose other half never came; a fault of it must not keep back what came before.
        WriteBytes(Encoded(UnicodeString(mHalf), 1).AsView());
        mHalf = 0;
        Flush();
    }
}

void CTextWriter::WriteText(UnicodeString text)
{
    if (mStream == nullptr) {
        throw Classes::EStreamError(u"The text writer is closed");
    }
    if (std::exchange(mNeedsMark, false)) {
        WriteBytes(mForm.encoding.GetPreamble());
    }
    if (text.IsEmpty()) {
        return;
    }
    const int before = mHalf == 0 ? 0 : 1;
    if (before != 0) {
        text = UnicodeString(mHalf) + text;
    }
    System::WideChar half = 0;
    if (IsFirstHalf(*text.LastChar())) {
        half = *text.LastChar();
        text.SetLength(text.Length() - 1);
    }
    const System::RawByteString bytes = Encoded(text, before);
    mHalf = half;
    WriteBytes(bytes.AsView());
}

void CTextWriter::WriteBytes(std::string_view bytes)
{
    mStream->WriteBuffer(bytes.data(), static_cast<Int64>(bytes.size()));
}

/// The bytes of a text, whose first `before` units came with a text before it.
System::RawByteString CTextWriter::Encoded(const UnicodeString& text, int before)
{
    if (mForm.strictness == EEncoding::Lenient) {
        return mForm.encoding.GetBytes(text);
    }
    System::RawByteString bytes;
    int fault = 0;
    if (!Sysutils::TryEncode(&mForm.encoding, text.AsView(), bytes, &fault)) {
        if (fault <= before) {
            mHalf = 0;
        }
        throw ECharacterFault(fault - before,
                              CharacterAt(text.AsView(), static_cast<std::size_t>(fault) - 1));
    }
    return bytes;
}

} // namespace BTL
