// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Export.h"
#include "platform/base/System_HolderCount.h"

#include <cstddef>
#include <type_traits>
#include <utility>

namespace System
{

/// Base of what several values hold in common, with the count of its holders.
class TRS8_BTL_API TSharedBlock
{
public:
    TSharedBlock(const TSharedBlock&) = delete;
    TSharedBlock& operator=(const TSharedBlock&) = delete;
    virtual ~TSharedBlock();

protected:
    TSharedBlock() noexcept = default;

private:
    template <class>
    friend class GSharedBlock;

    THolderCount mHolders{0};
};

/// One holder of a block, one pointer wide; the last one destroys it.
template <class T>
class GSharedBlock
{
public:
    GSharedBlock() noexcept = default;
    GSharedBlock(std::nullptr_t) noexcept {}
    /// Takes a block made by `new`, or one that others hold.
    explicit GSharedBlock(T* block) noexcept : mBlock(block) { AddRef(); }
    GSharedBlock(const GSharedBlock& other) noexcept : mBlock(other.mBlock) { AddRef(); }
    GSharedBlock(GSharedBlock&& other) noexcept : mBlock(std::exchange(other.mBlock, nullptr)) {}
    ~GSharedBlock()
    {
        static_assert(std::is_base_of_v<TSharedBlock, T>);
        if (mBlock != nullptr && mBlock->mHolders.Decrement()) {
            delete mBlock;
        }
    }

    GSharedBlock& operator=(GSharedBlock other) noexcept
    {
        std::swap(mBlock, other.mBlock);
        return *this;
    }

    /// The block, null if none is held; it stays held.
    T* get() const noexcept { return mBlock; }
    T* operator->() const noexcept { return mBlock; }
    T& operator*() const noexcept { return *mBlock; }
    explicit operator bool() const noexcept { return mBlock != nullptr; }
    /// Whether both hold the same block, or none.
    friend bool operator==(const GSharedBlock& a, const GSharedBlock& b) noexcept
    {
        return a.mBlock == b.mBlock;
    }
    /// True if no other value sees a change of the block.
    bool IsUnique() const noexcept { return mBlock != nullptr && mBlock->mHolders.IsOne(); }

private:
    void AddRef() const noexcept
    {
        if (mBlock != nullptr) {
            mBlock->mHolders.Increment();
        }
    }

    T* mBlock = nullptr;
};

} // namespace System
