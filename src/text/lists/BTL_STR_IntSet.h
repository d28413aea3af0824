// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <initializer_list>
#include <set>
#include <span>

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
    /// largest is the last value of the type, the search goes on downwards from it.
    T NextFreeValue(T start) const;
    /// Makes the values, in decimal with commas between, the whole file. `Classes::EFCreateError` if it can't
    /// be made.
    void SaveToFile(const System::UnicodeString& path) const;
};

/// The sets of integers of 32 and of 64 bits.
using CIntSet = GIntegerSet<int>;
using CInt64Set = GIntegerSet<System::Int64>;

extern template class GIntegerSet<int>;
extern template class GIntegerSet<System::Int64>;

} // namespace BTL
