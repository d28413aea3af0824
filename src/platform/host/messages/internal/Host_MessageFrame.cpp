// SPDX-License-Identifier: MIT
#include "platform/host/messages/internal/Host_MessageFrame.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>

namespace Host
{

namespace
{

/// Holds most messages.
constexpr std::size_t FirstCapacity = 4096;
/// The next step beyond that; from there on the memory doubles.
constexpr std::size_t SecondCapacity = 1U << 18U;

/// The bytes, and behind them the zeros, in units of text.
constexpr std::size_t DataSpan(std::size_t dataBytes)
{
    return (dataBytes + 1) / 2 * 2 + 2;
}

} // namespace

std::size_t MessageFrame::GetTotal() const noexcept
{
    return sizeof mHead + mHead.dataBytes + mHead.folderBytes + mHead.tokenBytes;
}

std::size_t MessageFrame::GetFolderStart() const noexcept
{
    return sizeof mHead + DataSpan(mHead.dataBytes);
}

void MessageFrame::Grow(std::size_t capacity)
{
    // Large blocks only move in the host's tables, so their bytes are not copied.
    char* const bytes = static_cast<char*>(std::realloc(mBytes.get(), capacity));
    if (bytes == nullptr) {
        throw std::bad_alloc();
    }
    static_cast<void>(mBytes.release());
    mBytes.reset(bytes);
    mCapacity = capacity;
}

std::span<char> MessageFrame::Room()
{
    if (mCapacity == 0) {
        Grow(FirstCapacity);
    } else if (mSize == mCapacity) {
        Grow(std::min(std::max(mCapacity * 2, SecondCapacity), GetTotal()));
    }
    const std::size_t end = HasHead() ? std::min(mCapacity, GetTotal()) : mCapacity;
    return {mBytes.get() + mSize, end - mSize};
}

bool MessageFrame::IsHeadGood() const
{
    return mHead.mark == FrameMark && mHead.message == WM_COPYDATA && mHead.dataBytes <= MaxDataBytes &&
           mHead.folderBytes <= MaxFolderBytes && mHead.tokenBytes <= MaxFolderBytes;
}

bool MessageFrame::Add(std::size_t count)
{
    const bool hadHead = HasHead();
    mSize += count;
    if (!HasHead()) {
        return true;
    }
    if (!hadHead) {
        std::memcpy(&mHead, mBytes.get(), sizeof mHead);
        if (!IsHeadGood()) {
            return false;
        }
    }
    if (mSize < GetTotal()) {
        return true;
    }
    if (mSize > GetTotal()) {
        return false;
    }
    // Makes place for the zeros between the bytes and the folder.
    const std::size_t rest = std::size_t{mHead.folderBytes} + mHead.tokenBytes;
    if (const std::size_t needed = GetFolderStart() + rest; needed > mCapacity) {
        Grow(needed);
    }
    char* const dataEnd = mBytes.get() + sizeof mHead + mHead.dataBytes;
    char* const folder = mBytes.get() + GetFolderStart();
    std::memmove(folder, dataEnd, rest);
    std::fill(dataEnd, folder, '\0');
    mIsWhole = true;
    return true;
}

COPYDATASTRUCT MessageFrame::GetData() const
{
    return {static_cast<std::uintptr_t>(mHead.dwData), mHead.dataBytes, mBytes.get() + sizeof mHead};
}

std::string_view MessageFrame::GetFolder() const
{
    return {mBytes.get() + GetFolderStart(), mHead.folderBytes};
}

std::string_view MessageFrame::GetToken() const
{
    return {mBytes.get() + GetFolderStart() + mHead.folderBytes, mHead.tokenBytes};
}

} // namespace Host
