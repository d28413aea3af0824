// SPDX-License-Identifier: MIT
#include "streams/BTL_STRM_TextWriter.h"

#include "platform/runtime/classes/internal/Classes_StreamWindow.h"

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

UnicodeString EndText(ELineEnd lineEnd)
{
    switch (lineEnd) {
    case ELineEnd::LF:
        return u"\n";
    case ELineEnd::CRLF:
        return u"\r\n";
    case ELineEnd::CR:
        return u"\r";
    default:
        return {};
    }
}

/// A mark belongs to the very beginning alone.
bool NeedsMark(TStream& stream, EByteOrderMark mark)
{
    return mark == EByteOrderMark::With && Classes::ToldPosition(stream).value_or(0) == 0;
}

} // namespace

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
    WriteText(text + EndText(mForm.lineEnd));
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
    WriteHalf();
    Flush();
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
    if (mHalf != 0) {
        text = UnicodeString(std::exchange(mHalf, u'\0')) + text;
    }
    if (IsFirstHalf(*text.LastChar())) {
        mHalf = *text.LastChar();
        text.SetLength(text.Length() - 1);
    }
    WriteBytes(mForm.encoding.GetBytes(text).AsView());
}

void CTextWriter::WriteBytes(std::string_view bytes)
{
    mStream->WriteBuffer(bytes.data(), static_cast<Int64>(bytes.size()));
}

/// Writes a half whose other half never came.
void CTextWriter::WriteHalf()
{
    if (mHalf != 0) {
        const UnicodeString half(std::exchange(mHalf, u'\0'));
        WriteBytes(mForm.encoding.GetBytes(half).AsView());
    }
}

} // namespace BTL
