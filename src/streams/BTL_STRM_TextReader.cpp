// SPDX-License-Identifier: MIT
#include "streams/BTL_STRM_TextReader.h"

#include "platform/base/Sysutils_StrictEncoding.h"
#include "streams/internal/BTL_STRM_Scan.h"

#include <algorithm>
#include <array>

namespace BTL
{

using Classes::TStream;
using System::Int64;
using System::UnicodeString;
using Sysutils::TEncoding;

namespace
{

constexpr std::size_t BlockSize = 0x10000;

/// Whether more bytes could make `bytes` begin with a byte order mark.
bool MayBecomeMark(std::string_view bytes)
{
    const std::array marks = {TEncoding::getUTF8()->GetPreamble(), TEncoding::getUnicode()->GetPreamble(),
                              TEncoding::getBigEndianUnicode()->GetPreamble()};
    return std::any_of(marks.begin(), marks.end(), [bytes](std::string_view mark) {
        return bytes.size() < mark.size() && mark.starts_with(bytes);
    });
}

bool IsUtf16(const TEncoding& encoding)
{
    return encoding.getCodePage() == TEncoding::Utf16 || encoding.getCodePage() == TEncoding::Utf16BigEndian;
}

UnicodeString FaultMessage(Int64 line, Int64 byteInLine)
{
    return u"Line " + UnicodeString(line) + u", byte " + UnicodeString(byteInLine) +
           u": not a text in the encoding that is read";
}

} // namespace

// ETextFault

ETextFault::ETextFault(Int64 line, Int64 byteInLine, Int64 byte, const UnicodeString& text)
    : EConvertError(FaultMessage(line, byteInLine)),
      mLine(line),
      mByteInLine(byteInLine),
      mByte(byte),
      mText(text)
{
}

ETextFault::~ETextFault() = default;

// CTextReader

/// A line by its places in the bytes.
struct CTextReader::TLine
{
    std::size_t begin = 0;
    /// Where its end begins.
    std::size_t end = 0;
    /// Behind its end.
    std::size_t next = 0;
    ELineEnd lineEnd = ELineEnd::None;
};

CTextReader::CTextReader(const UnicodeString& path, const TEncoding& encoding, EDecoding decoding)
    : CTextReader(std::make_unique<Classes::TFileStream>(
                      path, static_cast<System::Word>(Classes::fmOpenRead | Classes::fmShareDenyNone)),
                  encoding, decoding)
{
}

CTextReader::CTextReader(TStream* stream, const TEncoding& encoding, EDecoding decoding)
    : mStream(stream), mEncoding(encoding), mDecoding(decoding)
{
}

CTextReader::CTextReader(std::unique_ptr<TStream> stream, const TEncoding& encoding, EDecoding decoding)
    : mOwned(std::move(stream)), mStream(mOwned.get()), mEncoding(encoding), mDecoding(decoding)
{
}

CTextReader::~CTextReader() = default;

bool CTextReader::ReadLine(UnicodeString& line)
{
    return Read(line, EKeepEnd::No);
}

bool CTextReader::ReadLineWithEnd(UnicodeString& line)
{
    return Read(line, EKeepEnd::Yes);
}

UnicodeString CTextReader::ReadAll()
{
    UnicodeString text;
    for (UnicodeString line; ReadLineWithEnd(line);) {
        text += line;
    }
    return text;
}

const TEncoding& CTextReader::getEncoding()
{
    Start();
    return mEncoding;
}

EByteOrderMark CTextReader::getMark()
{
    Start();
    return mMark;
}

CTextReader::CLineIterator& CTextReader::CLineIterator::operator++()
{
    mIsAtEnd = !mReader->ReadLine(mReader->mLine);
    return *this;
}

void CTextReader::Start()
{
    if (mHasStarted) {
        return;
    }
    while (MayBecomeMark(mBytes) && Fill()) {
    }
    const auto [found, length] = TEncoding::Detect(mBytes, &mEncoding);
    if (length > 0) {
        mEncoding = *found;
        mMark = EByteOrderMark::With;
        mNext = static_cast<std::size_t>(length);
    }
    mUnitSize = IsUtf16(mEncoding) ? sizeof(char16_t) : 1;
    mHasStarted = true;
}

/// Appends what the stream gives next; whether it gave something.
bool CTextReader::Fill()
{
    if (!mBlock) {
        mBlock = std::make_unique_for_overwrite<char[]>(BlockSize);
    }
    const Int64 count = mStream->Read(mBlock.get(), static_cast<Int64>(BlockSize));
    if (count <= 0) {
        return false;
    }
    mBytes.append(mBlock.get(), static_cast<std::size_t>(count));
    return true;
}

/// As `Fill`, but drops first what was passed. `at` stays at its byte.
bool CTextReader::FillBehind(std::size_t& at)
{
    mBytes.erase(0, mNext);
    at -= mNext;
    mPassed += static_cast<Int64>(mNext);
    mNext = 0;
    return Fill();
}

/// Looks from `at` on for a unit that ends lines, and moves `at` there, or behind the last whole unit.
bool CTextReader::FindEnd(std::size_t& at) const
{
    if (mUnitSize == 1) {
        const std::string_view rest = std::string_view(mBytes).substr(at);
        const std::size_t end = Detail::CFindEither{'\n', '\r'}(rest);
        at += std::min(end, rest.size());
        return end != std::string_view::npos;
    }
    for (; at + mUnitSize <= mBytes.size(); at += mUnitSize) {
        if (UnitAt(at) == u'\n' || UnitAt(at) == u'\r') {
            return true;
        }
    }
    return false;
}

char16_t CTextReader::UnitAt(std::size_t at) const
{
    const auto byte = [this](std::size_t place) { return static_cast<unsigned char>(mBytes[place]); };
    if (mUnitSize == 1) {
        return byte(at);
    }
    const bool isBigEndian = mEncoding.getCodePage() == TEncoding::Utf16BigEndian;
    return static_cast<char16_t>(isBigEndian ? byte(at) << 8 | byte(at + 1) : byte(at + 1) << 8 | byte(at));
}

/// The next line; reads as much as it takes to know where it ends.
bool CTextReader::FindLine(TLine& line)
{
    std::size_t at = mNext;
    while (!FindEnd(at)) {
        if (!FillBehind(at)) {
            // What is left of a unit belongs to the line.
            line = {mNext, mBytes.size(), mBytes.size(), ELineEnd::None};
            return line.begin < line.end;
        }
    }
    if (UnitAt(at) == u'\n') {
        line = {mNext, at, at + mUnitSize, ELineEnd::LF};
        return true;
    }
    while (mBytes.size() < at + 2 * mUnitSize && FillBehind(at)) {
    }
    const bool hasLineFeed = mBytes.size() >= at + 2 * mUnitSize && UnitAt(at + mUnitSize) == u'\n';
    line = {mNext, at, at + (hasLineFeed ? 2 : 1) * mUnitSize, hasLineFeed ? ELineEnd::CRLF : ELineEnd::CR};
    return true;
}

bool CTextReader::Read(UnicodeString& line, EKeepEnd keepEnd)
{
    Start();
    TLine found;
    if (!FindLine(found)) {
        line = UnicodeString();
        return false;
    }
    mNext = found.next;
    mLineEnd = found.lineEnd;
    ++mLineNumber;
    const std::size_t end = keepEnd == EKeepEnd::Yes ? found.next : found.end;
    const std::string_view bytes = std::string_view(mBytes).substr(found.begin, end - found.begin);
    if (mDecoding == EDecoding::Lenient) {
        line = mEncoding.GetString(bytes);
        return true;
    }
    int fault = 0;
    if (!Sysutils::TryDecode(&mEncoding, bytes, line, &fault)) {
        throw ETextFault(mLineNumber, fault, mPassed + static_cast<Int64>(found.begin) + fault,
                         mEncoding.GetString(bytes.substr(0, found.end - found.begin)));
    }
    return true;
}

} // namespace BTL
