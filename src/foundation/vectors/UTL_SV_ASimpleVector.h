// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/UTL_ASRT_FaultPlace.h"
#include "platform/Export.h"

namespace UTL
{

/// Selects the constructor that makes an empty vector with room; call sites pass `ECapacity(0)`.
enum ECapacity : int
{
    WithCapacity = 0
};

/// What a simple vector knows apart from its elements.
class TRS8_BTL_API ASimpleVector
{
public:
    static constexpr unsigned DefaultIncrement = 16;

    ASimpleVector() = default;
    /// Empty. A negative `capacity` counts as 0.
    ASimpleVector(ECapacity, int capacity, int increment);
    /// A `size` above the capacity counts as the capacity.
    ASimpleVector(int capacity, int size, int increment);

    /// The step of growth, the room and the count, all in elements.
    unsigned increment() const noexcept { return mIncrement; }
    unsigned capacity() const noexcept { return mCapacity; }
    unsigned size() const noexcept { return mSize; }
    bool empty() const noexcept { return mSize == 0; }

    /// The capacity after one more step of growth; a step is never less than one element.
    unsigned NewCapacity() const noexcept { return mCapacity + (mIncrement == 0 ? 1 : mIncrement); }

    /// Raises an internal fault if `index` is not below the size; a negative index is large here. If the user
    /// lets that pass, `Sysutils::ERangeError`, since no element could be given.
    void RangeCheck(unsigned index, const char* file, int line) const { RangeCheck(index, {file, line}); }
    void RangeCheck(unsigned index, const CFaultPlace& place) const
    {
        if (index >= mSize) {
            FailRange(index, place);
        }
    }

    /// Drops the last element; does nothing to an empty vector.
    void pop_back() noexcept { mSize -= mSize == 0 ? 0 : 1; }

protected:
    /// The most elements that indices can reach.
    static constexpr unsigned MaxSize = 0x7FFFFFFF;

    /// The size with `count` more elements; `Sysutils::EOutOfMemory` beyond `MaxSize`.
    unsigned SizeWith(unsigned count) const;
    /// The capacity that holds `count` more elements, reached in whole steps of growth.
    unsigned CapacityWith(unsigned count) const;
    [[noreturn]] static void FailPosition();
    [[noreturn]] static void FailMemory();

    unsigned mIncrement = DefaultIncrement;
    unsigned mCapacity = 0;
    unsigned mSize = 0;

private:
    [[noreturn]] void FailRange(unsigned index, const CFaultPlace& place) const;
};

} // namespace UTL
