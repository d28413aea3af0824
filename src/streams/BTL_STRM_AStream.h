// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Set.h"
#include "streams/BTL_STRM_Stream.h"

#include <ios>
#include <memory>

namespace BTL
{

class CReadAheadStream;

/// The bits of the state: the end was met, the operation failed, the stream itself failed.
enum EStreamState
{
    esEof = 1,
    esFail,
    esBad
};

/// The bits that are set.
using TStreamState = System::Set<EStreamState, esEof, esBad>;

/// A text stream in the manner of the standard streams on a `Classes::TStream`: operations that can't be done
/// set bits of its state and raise nothing. An exception of the stream itself sets bad and goes on.
///
/// One rule for the state holds for all streams of files, those of the standard among them:
///
/// - Eof: an operation wanted a byte, and the stream had no more. The last byte itself sets nothing yet, nor
///   does a text that a delimiter ends; a number or a line that the end cuts off does.
/// - Fail: there was nothing of what was asked for, or it was none, or `read` got less.
/// - As a condition the stream tells whether the last operation worked: `while (in >> value)`.
/// - Seeking takes eof back. `clear` takes all back.
///
/// What differs says so: `>>` of a text sets no eof with the last word, and no fail behind it. To know before
/// reading whether something is left there is `BTL::Eof`, which looks ahead.
///
/// A stream that can seek stands exactly behind what was read after each operation. One that only reads, as a
/// pipe, a socket or a class whose `Seek` gives -1 or raises, is read in blocks, and the rest of a block is
/// kept here for the next operation; only a `Classes::TFileStream` keeps it itself.
class TRS8_BTL_API AStream
{
public:
    /// With `ownsStream` the destructor deletes the stream. A null stream is an internal fault, and an empty
    /// one takes its place if the user lets that pass.
    AStream(Classes::TStream* stream, EStreamSync sync, bool ownsStream);
    AStream(Classes::TStream* stream, bool ownsStream);
    /// Owns a stream of `CreateFileStream`.
    AStream(const System::UnicodeString& path, EFileOpenMode mode, EFileShareMode share);
    AStream(const AStream&) = delete;
    AStream& operator=(const AStream&) = delete;
    virtual ~AStream();

    Classes::TStream* getStream() const noexcept { return mStream; }

    // Each tells about its own bit alone.
    bool good() const noexcept { return mState.Empty(); }
    bool eof() const noexcept { return mState.Contains(esEof); }
    bool fail() const noexcept { return mState.Contains(esFail); }
    bool bad() const noexcept { return mState.Contains(esBad); }
    /// Whether the last operation worked: neither fail nor bad, nor eof with nothing read, so that
    /// `while (in >> word)` ends behind the last word. `fail` alone doesn't tell that of a text.
    explicit operator bool() const noexcept { return !fail() && !bad() && !(eof() && mLastCount == 0); }
    bool operator!() const noexcept { return !static_cast<bool>(*this); }
    const TStreamState& getState() const noexcept { return mState; }
    void clear() noexcept { mState = TStreamState(); }
    /// The count of characters that the last read operation delivered.
    System::Int64 gcount() const noexcept { return mLastCount; }

    /// For what reads `getStream()` itself: it got `count` bytes, and ended because the stream did, or not.
    /// With nothing and the end that is a failure.
    void NoteRead(System::Int64 count, bool metEnd) noexcept;

    /// One reference more.
    void AddRef() noexcept { ++mReferences; }
    /// Gives up one reference; the last one deletes the object.
    void Release();

    // Seeking gives the position that the stream then has, and takes eof out of the state.
    // `Classes::EStreamError` for a stream that can't seek, whose position is -1.

    System::Int64 seekoff(System::Int64 offset, std::ios_base::seekdir direction);
    System::Int64 seekpos(System::Int64 position) { return SetPosition(position); }
    System::Int64 SetPosition(System::Int64 position);
    System::Int64 GetPosition() const;

protected:
    /// While the state is good, passes over the bytes that are at most 32 as signed values: those from 128 on
    /// are among them.
    void DoSkipWhiteSpaces();
    /// The next byte; 0, and eof, at the end.
    char DoReadChar();
    /// As `DoReadChar`, but sets fail with eof.
    char DoGetChar();
    /// Reads `count` bytes; fail if there are fewer, and eof if that is due to the end.
    void DoRead(char* buffer, System::Int64 count);
    /// Reads up to `count` - 1 characters and puts a zero behind them. Ends in front of the delimiter, or if
    /// that is 0 behind a line feed, which counts and is stored as 0; behind a zero, which sets fail too.
    /// Fail if there are none, or for a `count` below 2, which stores nothing.
    void DoGet(char* buffer, System::Int64 count, char delimiter);
    /// As `DoGet`, but ends behind the delimiter, which counts and is stored as 0. Without one it sets eof at
    /// the end of the stream.
    void DoGetLine(char* buffer, System::Int64 count, char delimiter);
    /// Reads at most `count` bytes while the state is good, up to and with the delimiter or, if wanted, a
    /// line feed; stores all but the delimiter, without a zero.
    void DoReadUntil(char* buffer, System::Int64 count, char delimiter, bool stopAtLineFeed);
    /// The bytes in front of the next white space; eof, without fail, if there is nothing left.
    void DoReadTillWS(System::AnsiString& text);
    /// As `DoReadTillWS`, behind `DoSkipWhiteSpaces`.
    void DoReadWord(System::AnsiString& text);
    /// The digits, signs, points and letters of an exponent up to another byte; eof if there is nothing left.
    void DoReadNumStr(System::AnsiString& text);

    // The number behind white space. 0 and fail if there is none; eof if nothing follows. Its point is `.`.

    System::Int64 ReadInt64();
    /// A text that begins with `-` fails, whatever the state was, and a number above 2^63-1.
    System::UInt64 ReadUInt64();
    /// Each with the range and the precision of its type: a number above it fails, one too small for it is 0.
    float ReadFloat();
    double ReadDouble();
    long double ReadLDouble();

    /// Writes one byte; fails as `DoWrite`.
    void DoWriteChar(char c);
    /// Fail if not all bytes can be written. A file gathers small writes, and one that the host doesn't take
    /// shows later: see `Classes::TFileStream`.
    void DoWrite(const char* bytes, System::Int64 count);

private:
    struct TScannedNumber;

    template <class Operation>
    auto Guarded(Operation operation);
    void EndOperation();
    Classes::TStream& Source();
    bool AtEnd();
    template <class Find>
    void ReadWhile(Find findEnd, System::AnsiString& text);
    void TakeNumber(TScannedNumber& number);
    template <class Number, class Convert>
    Number Converted(const TScannedNumber& number, Convert convert);
    System::Int64 ToInt64(const TScannedNumber& number);
    template <class Float>
    Float ReadFloating();
    template <class Take>
    void ReadBytewise(System::Int64 count, Take take);

    int mReferences = 0;
    bool mOwnsStream;
    Classes::TStream* mStream;
    TStreamState mState;
    System::Int64 mLastCount = 0;
    /// What the stream is read through; null before it is read first.
    Classes::TStream* mSource = nullptr;
    std::unique_ptr<CReadAheadStream> mReadAhead;
    int mRunning = 0;
};

} // namespace BTL
