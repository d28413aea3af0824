// SPDX-License-Identifier: MIT
#include "streams/BTL_STRM_AStream.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "platform/base/numbers/Sysutils_Number.h"
#include "platform/runtime/classes/internal/Classes_Position.h"
#include "streams/BTL_STRM_ReadAheadStream.h"
#include "streams/internal/BTL_STRM_Scan.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <type_traits>
#include <typeinfo>

namespace BTL
{

namespace
{

using Classes::CStreamWindow;
using Classes::TStream;
using System::AnsiString;
using System::Int64;
using System::UInt64;
using System::UnicodeString;
using System::WideChar;

constexpr UTL::CFaultPlace NullStream{"BTL_STRM_AStream.cpp", 28};
constexpr UTL::CFaultPlace SurplusRelease{"BTL_STRM_AStream.cpp", 140};

/// The codes are signed: the bytes from 128 on count too.
bool IsAtMostBlank(char c)
{
    return static_cast<signed char>(c) <= 32;
}

bool EndsNumber(char c)
{
    return (c < '0' || c > '9') && c != '-' && c != '+' && c != '.' && c != 'e' && c != 'E';
}

enum class EByteUse
{
    Continue,
    Stop,
    /// The byte belongs to the next operation.
    GiveBack
};

TStream* Checked(TStream* stream)
{
    if (stream == nullptr) {
        UTL::THROW_XAssert(NullStream);
        return new Classes::TMemoryStream;
    }
    return stream;
}

/// Whether the stream itself shows what comes next. The bytes of a handle that can't seek are better taken in
/// blocks than one by one.
bool LooksAhead(TStream& stream)
{
    return CStreamWindow::ShowsEnd(stream) &&
           (typeid(stream) != typeid(Classes::THandleStream) || Classes::ToldPosition(stream));
}

} // namespace

AStream::AStream(TStream* stream, EStreamSync sync, bool ownsStream)
    : mOwnsStream(ownsStream || stream == nullptr), mStream(Checked(stream))
{
    if (sync == ssRewind && Classes::ToldPosition(*mStream)) {
        mStream->setPosition(0);
    }
}

AStream::AStream(TStream* stream, bool ownsStream) : AStream(stream, ssKeep, ownsStream) {}

AStream::AStream(const UnicodeString& path, EFileOpenMode mode, EFileShareMode share)
    : AStream(CreateFileStream(path, mode, share), true)
{
}

AStream::~AStream()
{
    if (mOwnsStream) {
        delete mStream;
    }
}

void AStream::Release()
{
    if (mReferences < 0) {
        UTL::THROW_XAssert(SurplusRelease, "Unexpected AStream release.");
    }
    if (--mReferences == 0) {
        delete this;
    }
}

void AStream::NoteRead(Int64 count, bool metEnd) noexcept
{
    mLastCount = count;
    if (metEnd) {
        mState << esEof;
        if (count == 0) {
            mState << esFail;
        }
    }
}

Int64 AStream::seekoff(Int64 offset, std::ios_base::seekdir direction)
{
    Int64 base = 0;
    if (direction == std::ios_base::cur) {
        base = GetPosition();
        if (offset == 0) {
            return base;
        }
    } else if (direction == std::ios_base::end) {
        base = mStream->getSize();
    } else if (direction != std::ios_base::beg) {
        offset = 0;
    }
    return SetPosition(Classes::AddClamped(base, offset));
}

Int64 AStream::SetPosition(Int64 position)
{
    TStream& stream = mReadAhead ? *mReadAhead : *mStream;
    stream.setPosition(position);
    const Int64 reached = GetPosition();
    if (reached < 0) {
        Detail::ThrowCantSeek();
    }
    mState >> esEof;
    return reached;
}

Int64 AStream::GetPosition() const
{
    return Classes::ToldPosition(mReadAhead ? *mReadAhead : *mStream).value_or(-1);
}

/// Runs an operation on the stream; one that raises leaves bad in the state.
template <class Operation>
auto AStream::Guarded(Operation operation)
{
    struct TRun
    {
        AStream& stream;
        explicit TRun(AStream& running) : stream(running) { ++stream.mRunning; }
        ~TRun() { stream.EndOperation(); }
    };
    try {
        const TRun run(*this);
        return operation();
    } catch (...) {
        mState << esBad;
        throw;
    }
}

/// Behind the last of the operations that run, a stream that can seek stands behind what was read.
void AStream::EndOperation()
{
    if (--mRunning == 0 && mReadAhead) {
        mReadAhead->GiveBack();
    }
}

TStream& AStream::Source()
{
    if (mSource == nullptr) {
        if (!LooksAhead(*mStream)) {
            mReadAhead = std::make_unique<CReadAheadStream>(mStream);
        }
        mSource = mReadAhead ? mReadAhead.get() : mStream;
    }
    return *mSource;
}

bool AStream::AtEnd()
{
    return Guarded([&] { return Detail::AtEnd(Source()); });
}

void AStream::DoSkipWhiteSpaces()
{
    Guarded([&] {
        while (good()) {
            const std::string_view window = CStreamWindow::Of(Source());
            if (window.empty()) {
                return;
            }
            const auto* const end = std::find_if_not(window.begin(), window.end(), IsAtMostBlank);
            CStreamWindow::Pass(Source(), static_cast<std::size_t>(end - window.begin()));
            if (end != window.end()) {
                return;
            }
        }
    });
}

char AStream::DoReadChar()
{
    return Guarded([&] {
        char c = 0;
        mLastCount = Source().Read(&c, 1);
        if (mLastCount < 1) {
            mState << esEof;
            return '\0';
        }
        return c;
    });
}

char AStream::DoGetChar()
{
    const char c = DoReadChar();
    if (eof()) {
        mState << esFail;
    }
    return c;
}

void AStream::DoRead(char* buffer, Int64 count)
{
    Guarded([&] {
        mLastCount = std::max(Source().Read(buffer, count), Int64{0});
        // What can't seek gives what it has, and more later.
        while (mLastCount < count && !Classes::ToldPosition(Source())) {
            const Int64 more = Source().Read(buffer + mLastCount, count - mLastCount);
            if (more <= 0) {
                break;
            }
            mLastCount += more;
        }
        if (mLastCount < count) {
            if (AtEnd()) {
                mState << esEof;
            }
            mState << esFail;
        }
    });
}

/// Hands up to `count` bytes to `take` until it wants no more; eof if the stream ends before.
template <class Take>
void AStream::ReadBytewise(Int64 count, Take take)
{
    Guarded([&] {
        Detail::CByteCursor bytes(Source());
        for (Int64 i = 0; i < count; ++i) {
            const std::optional<char> c = bytes.Next();
            if (!c) {
                mState << esEof;
                break;
            }
            const EByteUse use = take(*c);
            if (use == EByteUse::GiveBack) {
                bytes.Back();
            }
            if (use != EByteUse::Continue) {
                break;
            }
        }
        bytes.Finish();
    });
}

void AStream::DoGet(char* buffer, Int64 count, char delimiter)
{
    mLastCount = 0;
    if (buffer == nullptr || count <= 1) {
        mState << esFail;
        return;
    }
    ReadBytewise(count - 1, [&](char c) {
        if (delimiter != '\0' && c == delimiter) {
            return EByteUse::GiveBack;
        }
        const bool isLineEnd = delimiter == '\0' && c == '\n';
        buffer[mLastCount++] = isLineEnd ? '\0' : c;
        if (c == '\0') {
            mState << esFail;
        }
        return isLineEnd || c == '\0' ? EByteUse::Stop : EByteUse::Continue;
    });
    buffer[mLastCount] = '\0';
    if (mLastCount == 0) {
        mState << esFail;
    }
}

void AStream::DoGetLine(char* buffer, Int64 count, char delimiter)
{
    mLastCount = 0;
    if (buffer == nullptr || count <= 1) {
        mState << esFail;
        return;
    }
    bool found = false;
    ReadBytewise(count - 1, [&](char c) {
        found = c == delimiter;
        buffer[mLastCount++] = found ? '\0' : c;
        if (c == '\0' && !found) {
            mState << esFail;
        }
        return found || c == '\0' ? EByteUse::Stop : EByteUse::Continue;
    });
    if (found) {
        return;
    }
    buffer[mLastCount] = '\0';
    if (mLastCount == 0) {
        mState << esFail;
    }
    if (AtEnd()) {
        mState << esEof;
    }
}

void AStream::DoReadUntil(char* buffer, Int64 count, char delimiter, bool stopAtLineFeed)
{
    mLastCount = 0;
    if (buffer == nullptr || !good()) {
        return;
    }
    ReadBytewise(count, [&](char c) {
        if (c == delimiter) {
            return EByteUse::Stop;
        }
        buffer[mLastCount++] = c;
        return stopAtLineFeed && c == '\n' ? EByteUse::Stop : EByteUse::Continue;
    });
}

/// Reads the bytes in front of the first that `findEnd` finds.
template <class Find>
void AStream::ReadWhile(Find findEnd, AnsiString& text)
{
    text = AnsiString();
    mLastCount = 0;
    if (AtEnd()) {
        mState << esEof;
        return;
    }
    Guarded([&] {
        Detail::ReadInFrontOf(Source(), findEnd, Detail::AppendTo(text));
        mLastCount = text.Length();
    });
}

void AStream::DoReadTillWS(AnsiString& text)
{
    ReadWhile(Detail::GFindIf{IsAtMostBlank}, text);
}

void AStream::DoReadWord(AnsiString& text)
{
    Guarded([&] {
        DoSkipWhiteSpaces();
        DoReadTillWS(text);
    });
}

void AStream::DoReadNumStr(AnsiString& text)
{
    ReadWhile(Detail::GFindIf{EndsNumber}, text);
}

/// A text of characters that numbers are made of.
struct AStream::TScannedNumber
{
    /// The text of a usual number fits in here, and needs no string of its own.
    std::array<WideChar, 40> shortText;
    UnicodeString longText;
    /// One of the two.
    std::u16string_view view;
    bool isLast = false;
};

void AStream::TakeNumber(TScannedNumber& number)
{
    DoSkipWhiteSpaces();
    const std::string_view window = CStreamWindow::Of(Source());
    const std::string_view start = window.substr(0, number.shortText.size() + 1);
    const std::size_t length = Detail::GFindIf{EndsNumber}(start);
    if (length != std::string_view::npos) {
        std::copy_n(start.begin(), length, number.shortText.begin());
        number.view = std::u16string_view(number.shortText.data(), length);
        mLastCount = static_cast<Int64>(length);
        CStreamWindow::Pass(Source(), length);
        return;
    }
    AnsiString bytes;
    DoReadNumStr(bytes);
    number.longText = bytes;
    number.view = number.longText.AsView();
    number.isLast = AtEnd();
}

/// `convert` takes the number's wide text and gives whether it is one.
template <class Number, class Convert>
Number AStream::Converted(const TScannedNumber& number, Convert convert)
{
    Number value = 0;
    if (number.view.empty() || (good() && !convert(number.view, value))) {
        mState << esFail;
        value = 0;
    }
    if (number.isLast) {
        mState << esEof;
    }
    return value;
}

Int64 AStream::ToInt64(const TScannedNumber& number)
{
    return Converted<Int64>(number, [](std::u16string_view text, Int64& value) {
        return Sysutils::TryStrToInt64(UnicodeString(text), value);
    });
}

Int64 AStream::ReadInt64()
{
    TScannedNumber number;
    Guarded([&] { TakeNumber(number); });
    return ToInt64(number);
}

UInt64 AStream::ReadUInt64()
{
    TScannedNumber number;
    Guarded([&] { TakeNumber(number); });
    if (number.view.starts_with(u'-')) {
        mState << esFail;
    }
    return static_cast<UInt64>(ToInt64(number));
}

template <class Float>
Float AStream::ReadFloating()
{
    TScannedNumber number;
    Guarded([&] { TakeNumber(number); });
    return Converted<Float>(number, [](std::u16string_view text, Float& value) {
        if constexpr (std::is_same_v<Float, float>) {
            double wide = 0;
            const bool isNumber = Sysutils::BufferToFloat(text, u'.', wide);
            value = static_cast<float>(wide);
            return isNumber && std::isfinite(value);
        } else {
            return Sysutils::BufferToFloat(text, u'.', value);
        }
    });
}

float AStream::ReadFloat()
{
    return ReadFloating<float>();
}

double AStream::ReadDouble()
{
    return ReadFloating<double>();
}

long double AStream::ReadLDouble()
{
    return ReadFloating<long double>();
}

void AStream::DoWriteChar(char c)
{
    DoWrite(&c, 1);
}

void AStream::DoWrite(const char* bytes, Int64 count)
{
    Guarded([&] {
        if (mStream->Write(bytes, count) < count) {
            mState << esFail;
        }
    });
}

} // namespace BTL
