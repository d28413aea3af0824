// SPDX-License-Identifier: MIT
#include "platform/host/messages/internal/Host_MessageFrame.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace Host
{

namespace
{

using System::WideChar;

/// Taken at once; beyond that the room doubles.
constexpr std::size_t FirstRoom = 1U << 24U;

constexpr std::size_t UnitsOf(std::size_t bytes)
{
    return (bytes + 1) / sizeof(WideChar);
}

/// Units that are to be written, behind the first `kept` bytes of the former ones.
System::UnicodeString Grown(const System::UnicodeString& former, std::size_t bytes, std::size_t kept)
{
    System::UnicodeString grown(System::GSharedText<WideChar>::Uninitialized(UnitsOf(bytes)));
    std::memcpy(grown.UniqueData(), former.c_str(), kept);
    return grown;
}

} // namespace

std::span<char> MessageFrame::Room()
{
    if (!HasHead()) {
        return std::span(reinterpret_cast<char*>(&mHead), sizeof mHead).subspan(mHeadBytes);
    }
    return HasData() ? std::span(mTail).subspan(mTailBytes) : DataRoom();
}

std::span<char> MessageFrame::DataRoom()
{
    std::size_t capacity = std::min<std::size_t>(mUnits.AsView().size() * sizeof(WideChar), mHead.dataBytes);
    if (mDataBytes == capacity) {
        capacity = std::min<std::size_t>(std::max(FirstRoom, 2 * capacity), mHead.dataBytes);
        mUnits = Grown(mUnits, capacity, mDataBytes);
    }
    return {reinterpret_cast<char*>(mUnits.UniqueData()) + mDataBytes, capacity - mDataBytes};
}

bool MessageFrame::TakeHead()
{
    mTail.resize(std::size_t{std::min(mHead.folderBytes, MaxFolderBytes)} +
                 std::min(mHead.tokenBytes, MaxFolderBytes));
    return mHead.mark == FrameMark && mHead.message == WM_COPYDATA && mHead.dataBytes <= MaxDataBytes &&
           mHead.folderBytes <= MaxFolderBytes && mHead.tokenBytes <= MaxFolderBytes;
}

bool MessageFrame::Add(std::size_t count)
{
    if (!HasHead()) {
        mHeadBytes += count;
        return !HasHead() || TakeHead();
    }
    if (HasData()) {
        mTailBytes += count;
        return true;
    }
    mDataBytes += count;
    if (HasData() && mDataBytes % sizeof(WideChar) != 0) {
        reinterpret_cast<char*>(mUnits.UniqueData())[mDataBytes] = '\0';
    }
    return true;
}

bool MessageFrame::IsWhole() const noexcept
{
    return HasHead() && HasData() && mTailBytes == mTail.size();
}

} // namespace Host
