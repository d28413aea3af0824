// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "text/lists/BTL_STR_Cache.h"

#include <initializer_list>
#include <set>
#include <span>
#include <utility>

namespace BTL
{

/// A set of integers; for `int` and `System::Int64`.
///
///     BTL::CIntSet ids = {1, 2, 5};
///     const int id = ids.NextFreeValue(1); // 3
///     ids.insert(id);
template <class T>
class TRS8_BTL_API GIntegerSet : public std::set<T>
{
    using Base = std::set<T>;

public:
    GIntegerSet() = default;
    /// Null `values` count as none.
    GIntegerSet(const T* values, int count);
    GIntegerSet(std::initializer_list<T> values) : std::set<T>(values) {}
    explicit GIntegerSet(std::span<const T> values) : std::set<T>(values.begin(), values.end()) {}

    /// Whether the value is in the set.
    bool Contains(T value) const { return this->contains(value); }
    /// The first value from `start` on, and below the largest, that the set lacks; if it lacks none of them,
    /// the largest plus 1, which is less than a `start` far above. `start` if the set is empty. Where the
    /// largest is the last value of the type, the search goes on downwards from it. The set remembers how far
    /// the search has come, so that one value after the other is found without looking at those before.
    T NextFreeValue(T start) const;
    /// Makes the values, in decimal with commas between, the whole file. `Classes::EFCreateError` if it can't
    /// be made.
    void SaveToFile(const System::UnicodeString& path) const;

    // As those of `std::set`; they forget what `NextFreeValue` remembers. Who takes values out by way of a
    // reference to the base class calls one of these too, such as `erase` of a value that isn't there.

    template <class... Arguments>
    auto erase(Arguments&&... arguments)
    {
        mRun.Forget();
        return Base::erase(std::forward<Arguments>(arguments)...);
    }
    /// As of `std::set`.
    template <class Argument>
    auto extract(Argument&& argument)
    {
        mRun.Forget();
        return Base::extract(std::forward<Argument>(argument));
    }
    void clear() noexcept
    {
        mRun.Forget();
        Base::clear();
    }
    void swap(GIntegerSet& other) noexcept
    {
        Base::swap(other);
        mRun.Forget();
        other.mRun.Forget();
    }
    /// Takes the values of `other` that it lacks; the rest stays there.
    void merge(GIntegerSet& other)
    {
        other.mRun.Forget();
        Base::merge(other);
    }
    using Base::merge;

private:
    /// Values without a gap.
    struct TRun
    {
        T begin = 0;
        T end = 0;
        /// How many values there were in all.
        std::size_t count = 0;
    };

    /// Where a search from `start` on goes on.
    T SkipRun(T start) const;

    mutable GCache<TRun> mRun;
};

/// The sets of integers of 32 and of 64 bits.
using CIntSet = GIntegerSet<int>;
using CInt64Set = GIntegerSet<System::Int64>;

extern template class GIntegerSet<int>;
extern template class GIntegerSet<System::Int64>;

} // namespace BTL
