// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/UTL_ASRT_Assert.h"
#include "foundation/vectors/UTL_SV_GSimpleVectorClass.h"
#include "platform/base/System_StableSort.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <functional>
#include <iterator>
#include <utility>

namespace UTL
{

namespace Detail
{

inline constexpr const char* VectorSource = "UTL_SV_GSimpleVector.hpp";
inline constexpr CFaultPlace AtWritesOutsideVector{VectorSource, 131};
inline constexpr CFaultPlace AtReadsOutsideVector{VectorSource, 138};
inline constexpr CFaultPlace InsertsBackwards{VectorSource, 324};
inline constexpr CFaultPlace ErasesBackwards{VectorSource, 353};
inline constexpr CFaultPlace SwapsNoFirstItem{VectorSource, 375};
inline constexpr CFaultPlace SwapsNoSecondItem{VectorSource, 376};
inline constexpr CFaultPlace DeletesNoItem{VectorSource, 386};
inline constexpr CFaultPlace IntersectsItself{VectorSource, 509};
inline constexpr CFaultPlace IntersectsWrongWayRound{VectorSource, 521};

/// The order of sorted vectors. Floats that are no numbers stand behind all others: the order of numbers
/// must not contradict itself.
struct TVectorOrder
{
    template <class T>
    bool operator()(const T& a, const T& b) const
    {
        if constexpr (std::is_floating_point_v<T>) {
            // NOLINTNEXTLINE(misc-redundant-expression): what is no number differs from itself.
            return a < b || (b != b && a == a);
        } else {
            return std::less<T>()(a, b);
        }
    }
};

/// The elements really allocated for a capacity. The capacity grows in small steps as its users see it; the
/// memory under it doubles, so that a step seldom moves the elements.
inline std::size_t VectorRoom(unsigned capacity)
{
    return std::bit_ceil(static_cast<std::size_t>(capacity));
}

} // namespace Detail

template <class T>
GSimpleVector<T>::GSimpleVector(int count) : GSimpleVector(count, T())
{
}

template <class T>
GSimpleVector<T>::GSimpleVector(int count, T value)
    : ASimpleVector(count, count, DefaultIncrement), mItems(NewItems(mCapacity))
{
    std::fill(begin(), end(), value);
}

template <class T>
GSimpleVector<T>::GSimpleVector(ECapacity, int capacity, int increment)
    : ASimpleVector(capacity, 0, increment), mItems(NewItems(mCapacity))
{
}

template <class T>
GSimpleVector<T>::GSimpleVector(const GSimpleVector& other)
    : ASimpleVector(other), mItems(NewItems(mCapacity))
{
    std::copy(other.begin(), other.end(), begin());
}

template <class T>
GSimpleVector<T>::GSimpleVector(GSimpleVector&& other) noexcept
    : ASimpleVector(other), mItems(std::move(other.mItems))
{
    other.mCapacity = 0;
    other.mSize = 0;
}

template <class T>
GSimpleVector<T>& GSimpleVector<T>::operator=(const GSimpleVector& other)
{
    if (this != &other) {
        *this = GSimpleVector(other);
    }
    return *this;
}

template <class T>
GSimpleVector<T>& GSimpleVector<T>::operator=(GSimpleVector&& other) noexcept
{
    std::swap(static_cast<ASimpleVector&>(*this), static_cast<ASimpleVector&>(other));
    std::swap(mItems, other.mItems);
    return *this;
}

template <class T>
bool GSimpleVector<T>::operator==(const GSimpleVector& other) const
{
    return std::equal(begin(), end(), other.begin(), other.end());
}

template <class T>
bool GSimpleVector<T>::operator<(const GSimpleVector& other) const
{
    return std::lexicographical_compare(begin(), end(), other.begin(), other.end(), Detail::TVectorOrder());
}

template <class T>
T& GSimpleVector<T>::at(unsigned index)
{
    RangeCheck(index, Detail::AtWritesOutsideVector);
    return begin()[index];
}

template <class T>
const T& GSimpleVector<T>::at(unsigned index) const
{
    RangeCheck(index, Detail::AtReadsOutsideVector);
    return begin()[index];
}

template <class T>
int GSimpleVector<T>::IndexOf(const T& value) const
{
    const T* found = std::find(begin(), end(), value);
    return found == end() ? -1 : static_cast<int>(found - begin());
}

template <class T>
int GSimpleVector<T>::IndexOfMaxValue() const
{
    return empty() ? -1 : static_cast<int>(std::max_element(begin(), end()) - begin());
}

template <class T>
int GSimpleVector<T>::IndexOfMinValue() const
{
    return empty() ? -1 : static_cast<int>(std::min_element(begin(), end()) - begin());
}

template <class T>
void GSimpleVector<T>::reserve(unsigned capacity)
{
    if (capacity <= mCapacity) {
        return;
    }
    if (mCapacity == 0 || Detail::VectorRoom(capacity) != Detail::VectorRoom(mCapacity)) {
        Detail::GVectorMemory<T> items = NewItems(capacity);
        std::copy(begin(), end(), items.get());
        mItems = std::move(items);
    }
    mCapacity = capacity;
}

template <class T>
void GSimpleVector<T>::resize(unsigned size)
{
    resize(size, T());
}

template <class T>
void GSimpleVector<T>::resize(unsigned size, const T& value)
{
    if (size > mSize) {
        insert(end(), size - mSize, value);
    }
    mSize = size;
}

template <class T>
void GSimpleVector<T>::assign(unsigned count, const T& value)
{
    const T copy = value;
    mSize = 0;
    insert(begin(), count, copy);
}

template <class T>
void GSimpleVector<T>::assign(const T* first, const T* last)
{
    GSimpleVector copy;
    copy.insert(copy.begin(), first, last);
    Assign(&copy);
}

template <class T>
void GSimpleVector<T>::Assign(const GSimpleVector* other)
{
    if (other == this) {
        return;
    }
    mSize = 0;
    if (other != nullptr) {
        append(*other);
    }
}

template <class T>
void GSimpleVector<T>::append(const GSimpleVector& other)
{
    insert(end(), other.begin(), other.end());
}

template <class T>
void GSimpleVector<T>::push_front(const T& value)
{
    insert(begin(), value);
}

template <class T>
T* GSimpleVector<T>::insert(T* position, const T& value)
{
    const T copy = value;
    const unsigned offset = OffsetOf(position);
    if (mSize == mCapacity) {
        reserve(CapacityWith(1));
    }
    T* const place = OpenGap(offset, 1);
    *place = copy;
    return place;
}

template <class T>
T* GSimpleVector<T>::insert(T* position, unsigned count, const T& value)
{
    const T copy = value;
    const unsigned offset = OffsetOf(position);
    reserve(SizeWith(count));
    T* const place = OpenGap(offset, count);
    std::fill_n(place, count, copy);
    return place;
}

template <class T>
T* GSimpleVector<T>::insert(T* position, const T* first, const T* last)
{
    const unsigned offset = OffsetOf(position);
    if (std::less<const T*>()(last, first)) {
        THROW_XAssert(Detail::InsertsBackwards);
        return position;
    }
    const auto count = static_cast<std::size_t>(last - first);
    if (count > MaxSize) {
        FailMemory();
    }
    const bool own = !std::less<const T*>()(first, begin()) && std::less<const T*>()(first, end());
    if (own) {
        // The source would move away under the copy.
        GSimpleVector copy;
        copy.insert(copy.begin(), first, last);
        return insert(position, copy.begin(), copy.end());
    }
    reserve(SizeWith(static_cast<unsigned>(count)));
    T* const place = OpenGap(offset, static_cast<unsigned>(count));
    std::copy(first, last, place);
    return place;
}

template <class T>
T* GSimpleVector<T>::erase(T* position)
{
    if (OffsetOf(position) == mSize) {
        FailPosition();
    }
    return erase(position, position + 1);
}

template <class T>
T* GSimpleVector<T>::erase(T* first, T* last)
{
    if (std::less<T*>()(last, first)) {
        THROW_XAssert(Detail::ErasesBackwards);
        return first;
    }
    const unsigned count = OffsetOf(last) - OffsetOf(first);
    std::copy(last, end(), first);
    mSize -= count;
    return first;
}

template <class T>
void GSimpleVector<T>::Swap(int i, int j)
{
    for (const auto& [index, place] :
         {std::pair(i, Detail::SwapsNoFirstItem), std::pair(j, Detail::SwapsNoSecondItem)}) {
        if (static_cast<unsigned>(index) >= mSize) {
            THROW_XAssert(place);
            return;
        }
    }
    std::swap(begin()[i], begin()[j]);
}

template <class T>
void GSimpleVector<T>::Delete(int index)
{
    if (static_cast<unsigned>(index) >= mSize) {
        THROW_XAssert(Detail::DeletesNoItem);
        return;
    }
    erase(begin() + index);
}

template <class T>
int GSimpleVector<T>::Remove(const T& value)
{
    const int index = IndexOf(value);
    if (index >= 0) {
        Delete(index);
    }
    return index;
}

template <class T>
void GSimpleVector<T>::Reverse()
{
    std::reverse(begin(), end());
}

template <class T>
void GSimpleVector<T>::Sort()
{
    if constexpr (std::is_class_v<T>) {
        // The order of a user's type may contradict itself, which the standard's sort doesn't survive.
        System::StableSort(std::span(begin(), mSize), Detail::TVectorOrder());
    } else {
        std::sort(begin(), end(), Detail::TVectorOrder());
    }
}

template <class T>
int GSimpleVector<T>::InsIndexOf(T value) const
{
    return static_cast<int>(std::lower_bound(begin(), end(), value, Detail::TVectorOrder()) - begin());
}

template <class T>
bool GSimpleVector<T>::FindIndexOf(T value, unsigned& index) const
{
    index = static_cast<unsigned>(InsIndexOf(value));
    return index < mSize && begin()[index] == value;
}

template <class T>
bool GSimpleVector<T>::Contains(T value) const
{
    unsigned index = 0;
    return FindIndexOf(value, index);
}

template <class T>
int GSimpleVector<T>::AddSorted(T value, bool allowDuplicates)
{
    unsigned index = 0;
    if (FindIndexOf(value, index) && !allowDuplicates) {
        return -1;
    }
    insert(begin() + index, value);
    return static_cast<int>(index);
}

template <class T>
void GSimpleVector<T>::DelSorted(T value)
{
    unsigned index = 0;
    if (FindIndexOf(value, index)) {
        Delete(static_cast<int>(index));
    }
}

template <class T>
void GSimpleVector<T>::DelAllSorted(T value)
{
    const auto [first, last] = std::equal_range(begin(), end(), value, Detail::TVectorOrder());
    erase(first, std::find_if(first, last, [&value](const T& item) { return !(item == value); }));
}

template <class T>
void GSimpleVector<T>::DelAllSorted(const GSimpleVector& other)
{
    EraseIf([&other](const T& item) { return other.Contains(item); });
}

template <class T>
void GSimpleVector<T>::Union(const GSimpleVector& other)
{
    GSimpleVector added;
    std::copy_if(other.begin(), other.end(), std::back_inserter(added),
                 [this](const T& item) { return !Contains(item); });
    added.Sort();
    added.erase(std::unique(added.begin(), added.end()), added.end());
    const unsigned oldSize = mSize;
    reserve(CapacityWith(added.size()));
    append(added);
    System::StableMerge(std::span(begin(), mSize), oldSize, Detail::TVectorOrder());
}

template <class T>
void GSimpleVector<T>::Intersect(const GSimpleVector& other)
{
    EraseIf([&other](const T& item) { return !other.Contains(item); });
}

template <class T>
void GSimpleVector<T>::Intersect(const GSimpleVector& a, const GSimpleVector& b)
{
    if (&a == this || &b == this) {
        THROW_XAssert(Detail::IntersectsItself);
    }
    b.size() <= a.size() ? DoIntersect(b, a) : DoIntersect(a, b);
}

template <class T>
void GSimpleVector<T>::DoIntersect(const GSimpleVector& small, const GSimpleVector& large)
{
    if (small.size() > large.size()) {
        THROW_XAssert(Detail::IntersectsWrongWayRound);
    }
    GSimpleVector common;
    std::copy_if(small.begin(), small.end(), std::back_inserter(common),
                 [&large](const T& item) { return large.Contains(item); });
    common.Sort();
    common.erase(std::unique(common.begin(), common.end()), common.end());
    mSize = 0;
    reserve(CapacityWith(common.size()));
    append(common);
}

template <class T>
Detail::GVectorMemory<T> GSimpleVector<T>::NewItems(unsigned capacity)
{
    if (capacity > MaxSize) {
        FailMemory();
    }
    return capacity == 0 ? Detail::GVectorMemory<T>()
                         : Detail::GVectorMemory<T>(Detail::VectorRoom(capacity));
}

template <class T>
unsigned GSimpleVector<T>::OffsetOf(const T* position) const
{
    const std::less<const T*> before;
    if (before(position, begin()) || before(end(), position)) {
        FailPosition();
    }
    return static_cast<unsigned>(position - begin());
}

template <class T>
T* GSimpleVector<T>::OpenGap(unsigned offset, unsigned count)
{
    T* const place = begin() + offset;
    std::copy_backward(place, end(), end() + count);
    mSize += count;
    return place;
}

template <class T>
template <class Predicate>
void GSimpleVector<T>::EraseIf(Predicate predicate)
{
    // The predicate may look into this very vector, so nothing is moved before all is decided.
    GSimpleVector kept(WithCapacity, static_cast<int>(mSize), static_cast<int>(DefaultIncrement));
    std::copy_if(begin(), end(), std::back_inserter(kept), [&](const T& item) { return !predicate(item); });
    std::copy(kept.begin(), kept.end(), begin());
    mSize = kept.mSize;
}

} // namespace UTL
