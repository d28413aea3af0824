// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <compare>
#include <concepts>
#include <cstddef>
#include <string_view> // std::begin and the iterator tags, as <iterator>, which is twice as large
#include <type_traits>
#include <utility>

namespace System
{

/// What a `for` can walk over.
template <class R>
concept IterableRange = requires(R&& range)
{
    std::begin(range);
    std::end(range);
};

/// What the elements of `R` are, without reference and `const`.
template <IterableRange R>
using RangeElement = std::remove_cvref_t<decltype(*std::begin(std::declval<R&>()))>;

/// A range of values of the type `T` itself: a conversion might cut them.
template <class R, class T>
concept RangeOf = IterableRange<R> && std::same_as<RangeElement<R>, T>;

/// A range of texts. A text itself, which is a range of characters, is none.
template <class R>
concept RangeOfTexts = IterableRange<R> && TextSource<RangeElement<R>> && !TextSource<std::remove_cvref_t<R>>;

/// Walks over a container that gives its elements by index, as values. It stays valid while the container
/// lives; one that stands behind the end fails as the container's `operator[]` does.
///
///     struct CRow {
///         using CIterator = GIndexIterator<CRow, int>;
///         int operator[](int index) const { return mFirst + index; }
///         CIterator begin() const { return {*this, 0}; }
///         CIterator end() const { return {*this, mCount}; } ...
///     };
template <class Container, class Value>
class GIndexIterator
{
public:
    using value_type = Value;
    using reference = Value;
    using pointer = void;
    using difference_type = std::ptrdiff_t;
    // The old algorithms want references from all but this one.
    using iterator_category = std::input_iterator_tag;
    using iterator_concept = std::random_access_iterator_tag;

    GIndexIterator() = default;
    GIndexIterator(const Container& container, int index) : mContainer(&container), mIndex(index) {}

    Value operator*() const { return (*mContainer)[static_cast<int>(mIndex)]; }
    Value operator[](difference_type offset) const { return *(*this + offset); }

    GIndexIterator& operator+=(difference_type offset)
    {
        mIndex += offset;
        return *this;
    }
    GIndexIterator& operator-=(difference_type offset) { return *this += -offset; }
    GIndexIterator& operator++() { return *this += 1; }
    GIndexIterator& operator--() { return *this += -1; }
    GIndexIterator operator++(int)
    {
        const GIndexIterator old = *this;
        ++*this;
        return old;
    }
    GIndexIterator operator--(int)
    {
        const GIndexIterator old = *this;
        --*this;
        return old;
    }

    friend GIndexIterator operator+(GIndexIterator at, difference_type offset) { return at += offset; }
    friend GIndexIterator operator+(difference_type offset, GIndexIterator at) { return at += offset; }
    friend GIndexIterator operator-(GIndexIterator at, difference_type offset) { return at -= offset; }
    friend difference_type operator-(const GIndexIterator& a, const GIndexIterator& b)
    {
        return a.mIndex - b.mIndex;
    }
    friend bool operator==(const GIndexIterator& a, const GIndexIterator& b) { return a.mIndex == b.mIndex; }
    friend std::strong_ordering operator<=>(const GIndexIterator& a, const GIndexIterator& b)
    {
        return a.mIndex <=> b.mIndex;
    }

private:
    const Container* mContainer = nullptr;
    difference_type mIndex = 0;
};

} // namespace System
