// SPDX-License-Identifier: MIT
#pragma once

#include "streams/BTL_STRM_StreamUtilities.h"

#include <algorithm>
#include <optional>
#include <string_view>

namespace BTL::Detail
{

/// The bytes of an ini text, all in memory.
class CIniTextBytes
{
public:
    explicit CIniTextBytes(std::string_view bytes) : mRest(bytes) {}

    /// Nothing at the end.
    std::optional<char> Peek() const { return mRest.empty() ? std::nullopt : std::optional(mRest.front()); }
    std::optional<char> Next()
    {
        const std::optional<char> byte = Peek();
        mRest.remove_prefix(byte ? 1 : 0);
        return byte;
    }
    /// The bytes up to `end`, which is passed over, or to the end of the text.
    std::string_view ReadUntil(char end)
    {
        const std::string_view read = mRest.substr(0, mRest.find(end));
        mRest.remove_prefix(std::min(read.size() + 1, mRest.size()));
        return read;
    }
    void SkipUntil(char end) { ReadUntil(end); }

private:
    std::string_view mRest;
};

/// As `CIniTextBytes`, but of a stream, whose position is always behind what was read.
class CIniTextStream
{
public:
    explicit CIniTextStream(Classes::TStream& stream) : mStream(stream) {}

    std::optional<char> Peek()
    {
        return BTL::Eof(&mStream) ? std::nullopt : std::optional(BTL::PeekChar(&mStream));
    }
    std::optional<char> Next()
    {
        return BTL::Eof(&mStream) ? std::nullopt : std::optional(BTL::ReadChar(&mStream));
    }
    System::AnsiString ReadUntil(char end) { return BTL::ReadStringUntil(&mStream, end); }
    void SkipUntil(char end) { BTL::SkipUntil(&mStream, end); }

private:
    Classes::TStream& mStream;
};

/// Whether a line that begins with this byte holds a key; else it is a comment.
inline bool BeginsKey(char byte)
{
    return static_cast<signed char>(byte) >= 32 && byte != ';';
}

template <class Text, class Sink>
void ReadIniKeys(Text& text, Sink& sink)
{
    for (std::optional<char> first = text.Peek(); first && *first != '\0' && *first != '[';
         first = text.Peek()) {
        if (BeginsKey(*first)) {
            const auto key = text.ReadUntil('=');
            const auto value = text.ReadUntil('\r');
            sink.OnKey(std::string_view(key), std::string_view(value));
        }
        text.SkipUntil('\n');
    }
}

/// Gives the bytes of each section's name and of its keys and values, as they stand, to the sink. The text is
/// that behind the headline.
template <class Text, class Sink>
void ReadIniText(Text& text, Sink& sink)
{
    for (std::optional<char> byte = text.Next(); byte; byte = text.Next()) {
        if (*byte != '[') {
            text.SkipUntil('\n');
            continue;
        }
        const auto name = text.ReadUntil(']');
        sink.OnSection(std::string_view(name));
        text.SkipUntil('\n');
        ReadIniKeys(text, sink);
    }
}

} // namespace BTL::Detail
