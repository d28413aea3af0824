// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "platform/host/messages/Host_Messages.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace Host
{

/// How a message begins on its way. Behind it are its bytes, the sender's folder and its token.
struct TFrameHead
{
    std::array<char, 8> mark;
    std::uint32_t message;
    std::uint32_t dataBytes;
    std::uint64_t wParam;
    std::uint64_t dwData;
    std::uint32_t folderBytes;
    std::uint32_t tokenBytes;
};

inline constexpr std::array<char, 8> FrameMark = {'T', 'R', 'S', '8', 'M', 'S', 'G', '1'};
/// The most bytes of a message.
inline constexpr std::uint32_t MaxDataBytes = 1U << 30U;
/// The most bytes of a folder, and of a token.
inline constexpr std::uint32_t MaxFolderBytes = 4096;

/// What the receiver gives back.
struct TFrameReply
{
    std::array<char, 8> mark;
    std::int64_t result;
};

/// A message that comes in piece by piece from somebody who may send anything. What is announced takes
/// addresses for 16 MB at most, and memory in step with what has come.
///
///     MessageFrame frame;
///     while (!frame.IsWhole()) {
///         const std::span<char> room = frame.Room();          // EOutOfMemory if there is no memory
///         if (!frame.Add(Read(room))) { ... }                 // no message
///     }
class TRS8_BTL_API MessageFrame
{
public:
    /// Where the next bytes go; empty if the message is whole.
    [[nodiscard]] std::span<char> Room();
    /// The first `count` bytes of the room have come. False if they make no message.
    [[nodiscard]] bool Add(std::size_t count);
    bool IsWhole() const noexcept;

    // Of a whole message.

    const TFrameHead& getHead() const noexcept { return mHead; }
    /// The bytes as units, the last one filled up with a zero; behind them stands a zero.
    System::UnicodeString TakeUnits() { return std::move(mUnits); }
    std::string_view GetFolder() const { return std::string_view(mTail).substr(0, mHead.folderBytes); }
    std::string_view GetToken() const { return std::string_view(mTail).substr(mHead.folderBytes); }

private:
    bool HasHead() const noexcept { return mHeadBytes == sizeof mHead; }
    bool HasData() const noexcept { return mDataBytes == mHead.dataBytes; }
    std::span<char> DataRoom();
    bool TakeHead();

    TFrameHead mHead{};
    std::size_t mHeadBytes = 0;
    /// In the form in which the receiver wants them, so that nothing is copied.
    System::UnicodeString mUnits;
    std::size_t mDataBytes = 0;
    /// Folder and token.
    std::string mTail;
    std::size_t mTailBytes = 0;
};

} // namespace Host
