// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_SharedBlock.h"

#include <initializer_list>
#include <limits>
#include <new>

namespace System
{

/// Raises `Sysutils::ERangeError`: `index` is not in 0 to `length - 1`.
[[noreturn]] TRS8_BTL_API void ThrowArrayRange(int index, int length);
/// Raises `Sysutils::ERangeError`: no array has `length` elements.
[[noreturn]] TRS8_BTL_API void ThrowArrayLength(int length);
/// Raises `Sysutils::EOutOfMemory`: there is no memory for the elements of an array.
[[noreturn]] TRS8_BTL_API void ThrowArrayMemory();

/// An array of `T`, counted from 0. A copy of the object shares the elements: what one writes, the other
/// sees, also in another thread. `Copy` makes an array of its own, and a change of the length parts the array
/// from those that it shared elements with.
///
///     DynamicArray<int> a{1, 2, 3};
///     DynamicArray<int> b = a;
///     b[0] = 9;                                                   // a[0] too
///     b = a.Copy();                                               // elements of its own
template <class T>
class DynamicArray
{
public:
    using value_type = T;
    using iterator = T*;
    using const_iterator = const T*;

    DynamicArray() noexcept = default;
    DynamicArray(std::initializer_list<T> items) : DynamicArray(items.begin(), items.size()) {}

    /// The count of elements.
    int Length() const noexcept { return mBlock.get() == nullptr ? 0 : mBlock->length; }
    int get_length() const noexcept { return Length(); }
    /// Cuts, or adds elements of the value `T()`. `Sysutils::ERangeError` for a negative `length`,
    /// `Sysutils::EOutOfMemory` if the memory isn't there; then the array stays as it was.
    void set_length(int length)
    {
        if (length < 0) {
            ThrowArrayLength(length);
        }
        if (length == Length() && mBlock.IsUnique()) {
            return;
        }
        DynamicArray fresh;
        fresh.mBlock = Make(length);
        const int kept = Limited(length, Length());
        if (mBlock.IsUnique()) {
            T* const to = fresh.begin();
            T* const from = begin();
            for (int i = 0; i < kept; ++i) {
                to[i] = std::move(from[i]);
            }
        } else {
            fresh.Take(begin(), kept);
        }
        *this = std::move(fresh);
    }

    /// 0; the highest index, -1 for an empty array.
    static constexpr int Low() noexcept { return 0; }
    int High() const noexcept { return Length() - 1; }

    /// `Sysutils::ERangeError` outside 0 to `Length() - 1`.
    T& operator[](int index)
    {
        CheckIndex(index);
        return begin()[index];
    }
    const T& operator[](int index) const
    {
        CheckIndex(index);
        return begin()[index];
    }

    /// An array with elements of its own, equal to these.
    DynamicArray Copy() const { return CopyRange(0, Length()); }
    /// Up to `count` elements from `start`, as far as there are any; a negative `start` counts as 0.
    DynamicArray CopyRange(int start, int count) const
    {
        const int from = Limited(start, Length());
        return DynamicArray(begin() + from, static_cast<std::size_t>(Limited(count, Length() - from)));
    }

    /// The elements one behind the other, null for an empty array; valid until the length changes.
    T* begin() noexcept { return mBlock.get() == nullptr ? nullptr : mBlock->items; }
    T* end() noexcept { return begin() + Length(); }
    const T* begin() const noexcept { return mBlock.get() == nullptr ? nullptr : mBlock->items; }
    const T* end() const noexcept { return begin() + Length(); }

private:
    // The array is owned and copied by hand, since <memory> and <algorithm> would double the cost of this
    // header.
    struct TBlock : TSharedBlock
    {
        explicit TBlock(int count)
            : items(new (std::nothrow) T[static_cast<std::size_t>(count)]()), length(count)
        {
            if (items == nullptr) {
                ThrowArrayMemory();
            }
        }
        TBlock(const TBlock&) = delete;
        TBlock& operator=(const TBlock&) = delete;
        ~TBlock() override { delete[] items; }

        T* items;
        int length;
    };
    using Holder = GSharedBlock<TBlock>;

    DynamicArray(const T* items, std::size_t count)
    {
        if (count > static_cast<std::size_t>(std::numeric_limits<int>::max())) {
            ThrowArrayLength(-1);
        }
        mBlock = Make(static_cast<int>(count));
        Take(items, Length());
    }

    /// Copies elements over the first of these.
    void Take(const T* items, int count)
    {
        T* const to = begin();
        for (int i = 0; i < count; ++i) {
            to[i] = items[i];
        }
    }

    /// The nearest to `value` from 0 to `highest`.
    static int Limited(int value, int highest) noexcept
    {
        return value < 0 ? 0 : value < highest ? value : highest;
    }
    static Holder Make(int length) { return length == 0 ? Holder() : Holder(new TBlock(length)); }

    void CheckIndex(int index) const
    {
        if (index < 0 || index >= Length()) {
            ThrowArrayRange(index, Length());
        }
    }

    Holder mBlock;
};

} // namespace System
