// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/internal/Classes_StreamWindow.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <vector>

namespace BTL::Detail
{

// Reading byte by byte, as if with one call each, but in pieces where the stream has them in memory. Finders
// tell where in a piece a byte is that ends the reading, or `npos`.

struct CFindByte
{
    char byte;
    std::size_t operator()(std::string_view bytes) const { return bytes.find(byte); }
};

template <class Predicate>
struct GFindIf
{
    Predicate predicate;
    std::size_t operator()(std::string_view bytes) const
    {
        const auto found = std::find_if(bytes.begin(), bytes.end(), predicate);
        return found == bytes.end() ? std::string_view::npos
                                    : static_cast<std::size_t>(found - bytes.begin());
    }
};

template <class Predicate>
GFindIf(Predicate) -> GFindIf<Predicate>;

/// Looks little further than the nearer of the two, so that one that is far away, or nowhere, isn't looked
/// for again and again.
struct CFindEither
{
    char a;
    char b;
    std::size_t operator()(std::string_view bytes) const
    {
        constexpr std::size_t step = 256;
        for (std::size_t at = 0; at < bytes.size(); at += step) {
            const std::string_view piece = bytes.substr(at, step);
            const std::size_t first = piece.find(a);
            const std::size_t nearer = std::min(first, piece.substr(0, first).find(b));
            if (nearer != std::string_view::npos) {
                return at + nearer;
            }
        }
        return std::string_view::npos;
    }
};

/// Reads one byte; nothing at the end.
inline std::optional<char> ReadByte(Classes::TStream& stream)
{
    char byte = 0;
    return stream.Read(&byte, 1) == 1 ? std::optional(byte) : std::nullopt;
}

/// What a stream that only reads can't do.
[[noreturn]] inline void ThrowCantSeek()
{
    throw Classes::EStreamError(u"The stream can't seek");
}

/// The position, for what can't be done without one.
inline System::Int64 NeedPosition(Classes::TStream& stream)
{
    const std::optional<System::Int64> position = Classes::ToldPosition(stream);
    if (!position) {
        ThrowCantSeek();
    }
    return *position;
}

/// Raises where a byte can be neither looked at nor given back: in a stream that only reads.
inline void NeedLookAhead(Classes::TStream& stream)
{
    if (!Classes::CStreamWindow::ShowsEnd(stream) && !Classes::ToldPosition(stream)) {
        throw Classes::EStreamError(
            u"The stream can't seek, and so can't look ahead; on it a CReadAheadStream can");
    }
}

/// Whether nothing is left. Asks the host only where the bytes in memory don't tell.
inline bool AtEnd(Classes::TStream& stream)
{
    if (!Classes::CStreamWindow::Of(stream).empty()) {
        return false;
    }
    NeedLookAhead(stream);
    const std::optional<System::Int64> position = Classes::ToldPosition(stream);
    return !position || *position >= stream.getSize();
}

/// Reads up to and with the first byte that ends it, which is the result, and gives the bytes in front of it
/// to `sink` in pieces. Nothing if the stream ends before.
template <class Find, class Sink>
std::optional<char> ReadTo(Classes::TStream& stream, Find find, Sink sink)
{
    for (;;) {
        const std::string_view window = Classes::CStreamWindow::Of(stream);
        if (window.empty()) {
            const std::optional<char> byte = ReadByte(stream);
            if (!byte || find(std::string_view(&*byte, 1)) == 0) {
                return byte;
            }
            sink(std::string_view(&*byte, 1));
            continue;
        }
        const std::size_t at = find(window);
        const std::optional<char> end =
            at == std::string_view::npos ? std::nullopt : std::optional(window[at]);
        sink(window.substr(0, at));
        // The window may be gone by now.
        Classes::CStreamWindow::Pass(stream, end ? at + 1 : window.size());
        if (end) {
            return end;
        }
    }
}

/// As `ReadTo`, but the byte that ends it stays in the stream, which must be able to look ahead. Whether
/// there is one.
template <class Find, class Sink>
bool ReadInFrontOf(Classes::TStream& stream, Find find, Sink sink)
{
    for (;;) {
        const std::string_view window = Classes::CStreamWindow::Of(stream);
        if (window.empty()) {
            const std::optional<char> byte = ReadByte(stream);
            if (!byte) {
                return false;
            }
            if (find(std::string_view(&*byte, 1)) == 0) {
                stream.Seek(-1, Classes::soCurrent);
                return true;
            }
            sink(std::string_view(&*byte, 1));
            continue;
        }
        const std::size_t at = find(window);
        sink(window.substr(0, at));
        Classes::CStreamWindow::Pass(stream, std::min(at, window.size()));
        if (at != std::string_view::npos) {
            return true;
        }
    }
}

/// Reads single bytes of a stream that looks ahead. The position of the stream is right again only after
/// `Finish`.
class CByteCursor
{
public:
    explicit CByteCursor(Classes::TStream& stream) : mStream(stream) {}

    /// Nothing at the end.
    std::optional<char> Next()
    {
        if (mUsed == mWindow.size()) {
            Finish();
            mWindow = Classes::CStreamWindow::Of(mStream);
            if (mWindow.empty()) {
                return std::nullopt;
            }
        }
        return mWindow[mUsed++];
    }

    /// Gives the last byte back.
    void Back() { --mUsed; }

    void Finish()
    {
        if (mUsed > 0) {
            Classes::CStreamWindow::Pass(mStream, mUsed);
        }
        mWindow = {};
        mUsed = 0;
    }

private:
    Classes::TStream& mStream;
    std::string_view mWindow;
    std::size_t mUsed = 0;
};

inline void Ignore(std::string_view) {}

/// Appends to a string.
template <class S>
auto AppendTo(S& text)
{
    return [&text](std::string_view bytes) { text.Append(bytes); };
}

/// Reads up to `count` bytes. Takes no more memory than a few times what the stream holds, whatever the
/// count.
template <class S = System::AnsiString>
S ReadUpTo(Classes::TStream& stream, System::Int64 count)
{
    constexpr System::Int64 FirstPiece = 0x10000;
    S text;
    System::Int64 done = 0;
    while (done < count) {
        // A stream that gives little at a time fills what there is before more is taken.
        if (done == text.Length()) {
            if (done == INT_MAX) {
                System::ThrowStringMemory();
            }
            const System::Int64 length = done + std::min(count - done, std::max(done, FirstPiece));
            text.SetLength(static_cast<int>(std::min(length, System::Int64{INT_MAX})));
        }
        const System::Int64 read = stream.Read(text.UniqueData() + done, text.Length() - done);
        if (read <= 0) {
            break;
        }
        done += read;
    }
    text.SetLength(static_cast<int>(done));
    return text;
}

/// The line feeds among the next `count` bytes, or as many as there are, which are read.
inline System::Int64 CountLineFeeds(Classes::TStream& stream, System::Int64 count)
{
    System::Int64 lines = 0;
    std::array<char, 4096> block;
    while (count > 0) {
        const auto size = static_cast<System::Int64>(block.size());
        const System::Int64 read = stream.Read(block.data(), std::min(count, size));
        if (read <= 0) {
            break;
        }
        lines += std::count(block.begin(), block.begin() + read, '\n');
        count -= read;
    }
    return lines;
}

/// Looks for a pattern in bytes that come piece by piece, each of them looked at once.
class CPatternScan
{
public:
    explicit CPatternScan(std::string_view pattern) : mPattern(pattern), mFallback(pattern.size() + 1)
    {
        for (std::size_t i = 1, length = 0; i < pattern.size(); ++i) {
            while (length > 0 && pattern[i] != pattern[length]) {
                length = mFallback[length];
            }
            length += pattern[i] == pattern[length] ? 1 : 0;
            mFallback[i + 1] = length;
        }
    }

    /// A finder: where the last byte of the first occurrence is. An empty pattern is nowhere.
    std::size_t operator()(std::string_view bytes)
    {
        if (mPattern.empty()) {
            return std::string_view::npos;
        }
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            if (mMatched == 0) {
                i = bytes.find(mPattern.front(), i);
                if (i == std::string_view::npos) {
                    break;
                }
            }
            while (mMatched > 0 && bytes[i] != mPattern[mMatched]) {
                mMatched = mFallback[mMatched];
            }
            mMatched += bytes[i] == mPattern[mMatched] ? 1 : 0;
            if (mMatched == mPattern.size()) {
                mMatched = 0;
                return i;
            }
        }
        return std::string_view::npos;
    }

private:
    std::string_view mPattern;
    /// The length of the longest proper prefix of so many matched bytes that they end in.
    std::vector<std::size_t> mFallback;
    std::size_t mMatched = 0;
};

} // namespace BTL::Detail
