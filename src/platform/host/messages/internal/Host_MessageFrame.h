// SPDX-License-Identifier: MIT
#pragma once

#include "platform/host/messages/Host_Messages.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <span>
#include <string_view>

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

/// A message that comes in piece by piece from somebody who may send anything. It takes memory in step with
/// what has come, not with what was announced.
///
///     MessageFrame frame;
///     while (!frame.IsWhole()) {
///         const std::span<char> room = frame.Room();          // std::bad_alloc if there is no memory
///         if (!frame.Add(Read(room))) { ... }                 // no message
///     }
class TRS8_BTL_API MessageFrame
{
public:
    /// Where the next bytes go; never empty as long as the message isn't whole.
    [[nodiscard]] std::span<char> Room();
    /// The first `count` bytes of the room have come. False if they make no message, or go on behind it.
    [[nodiscard]] bool Add(std::size_t count);
    bool IsWhole() const noexcept { return mIsWhole; }

    // Of a whole message, as long as this object lives.

    /// Behind the bytes stand zeros, as many as one unit of text has at least.
    COPYDATASTRUCT GetData() const;
    std::uintptr_t GetWParam() const { return static_cast<std::uintptr_t>(mHead.wParam); }
    std::string_view GetFolder() const;
    std::string_view GetToken() const;

private:
    struct TFree
    {
        void operator()(char* bytes) const { std::free(bytes); }
    };

    bool HasHead() const noexcept { return mSize >= sizeof mHead; }
    std::size_t GetTotal() const noexcept;
    std::size_t GetFolderStart() const noexcept;
    void Grow(std::size_t capacity);
    bool IsHeadGood() const;

    TFrameHead mHead{};
    /// All bytes, the head among them.
    std::unique_ptr<char, TFree> mBytes;
    std::size_t mCapacity = 0;
    std::size_t mSize = 0;
    bool mIsWhole = false;
};

} // namespace Host
