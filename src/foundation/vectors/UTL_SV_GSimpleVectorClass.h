// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/vectors/UTL_SV_ASimpleVector.h"
#include "platform/base/System_Range.h"

#include <cstddef>
#include <initializer_list>
#include <type_traits>
#include <utility>

// The class without what its members do: enough for the vectors of numbers, whose members the library holds,
// and quick to compile. A vector of a type of your own takes `UTL_SV_GSimpleVector.h`.

namespace UTL
{

namespace Detail
{

inline constexpr CFaultPlace WritesOutsideVector{"UTL_SV_GSimpleVector.h", 133};
inline constexpr CFaultPlace ReadsOutsideVector{"UTL_SV_GSimpleVector.h", 134};

/// Memory for `count` items, `Sysutils::EOutOfMemory` if it isn't there.
TRS8_BTL_API void* AllocateItems(std::size_t count, std::size_t size, std::size_t alignment);
/// Null is allowed.
TRS8_BTL_API void FreeItems(void* items, std::size_t alignment) noexcept;

/// The elements' memory. Whoever allocates it writes an element before reading it.
template <class T>
class GVectorMemory
{
public:
    GVectorMemory() noexcept = default;
    /// `Sysutils::EOutOfMemory` if the memory isn't there.
    explicit GVectorMemory(std::size_t count)
        // NOLINTNEXTLINE(bugprone-sizeof-expression): elements may be pointers.
        : mItems(static_cast<T*>(AllocateItems(count, sizeof(T), alignof(T))))
    {
    }
    GVectorMemory(GVectorMemory&& other) noexcept : mItems(std::exchange(other.mItems, nullptr)) {}
    GVectorMemory& operator=(GVectorMemory&& other) noexcept
    {
        std::swap(mItems, other.mItems);
        return *this;
    }
    ~GVectorMemory() { FreeItems(mItems, alignof(T)); }

    T* get() const noexcept { return mItems; }

private:
    T* mItems = nullptr;
};

} // namespace Detail

/// A growable array of plain values. It grows by a fixed step that its creator sets, never shrinks, and can
/// act as a sorted set. Positions are pointers into the array; `Sysutils::ERangeError` for one that lies
/// outside. A reference to an own element is a valid argument everywhere.
///
///     UTL::CIntVector numbers{3, 1, 2};                 // braces hold elements
///     numbers.Sort();
///     std::span<const int> view = numbers;              // any algorithm that takes a span or a range
///     const UTL::CIntVector copy(std::vector{4, 5});    // from any range of the same type
template <class T>
class GSimpleVector : public ASimpleVector
{
    static_assert(std::is_trivially_copyable_v<T>, "elements are moved as raw values");

public:
    using value_type = T;
    using iterator = T*;
    using const_iterator = const T*;

    GSimpleVector() = default;
    /// `count` elements of value zero; none for a negative count.
    explicit GSimpleVector(int count);
    GSimpleVector(int count, T value);
    GSimpleVector(std::initializer_list<T> values) { assign(values.begin(), values.end()); }
    /// The elements of a range, which are of the type `T` itself.
    template <System::RangeOf<T> Range>
    // NOLINTNEXTLINE(bugprone-forwarding-reference-overload): the constraint keeps it off copies and moves.
    requires(!std::derived_from<std::remove_cvref_t<Range>, ASimpleVector>) explicit GSimpleVector(
        Range&& range)
    {
        for (auto&& value : range) {
            push_back(value);
        }
    }
    /// Empty, with room for `capacity` elements.
    GSimpleVector(ECapacity, int capacity, int increment);
    /// The copy has the same capacity and increment.
    GSimpleVector(const GSimpleVector& other);
    GSimpleVector(GSimpleVector&& other) noexcept;
    GSimpleVector& operator=(const GSimpleVector& other);
    GSimpleVector& operator=(GSimpleVector&& other) noexcept;
    ~GSimpleVector() = default;

    bool operator==(const GSimpleVector& other) const;
    /// Lexicographic.
    bool operator<(const GSimpleVector& other) const;

    /// An index out of range is an internal fault, see `RangeCheck`.
    T& at(unsigned index);
    const T& at(unsigned index) const;
    T& operator[](unsigned index)
    {
        RangeCheck(index, Detail::WritesOutsideVector);
        return begin()[index];
    }
    const T& operator[](unsigned index) const
    {
        RangeCheck(index, Detail::ReadsOutsideVector);
        return begin()[index];
    }

    T* data() noexcept { return mItems.get(); }
    const T* data() const noexcept { return mItems.get(); }
    T* begin() noexcept { return mItems.get(); }
    T* end() noexcept { return mItems.get() + mSize; }
    const T* begin() const noexcept { return mItems.get(); }
    const T* end() const noexcept { return mItems.get() + mSize; }

    /// The first element equal to `value`; -1 if there is none.
    int IndexOf(const T& value) const;
    /// The first of the largest or smallest elements; -1 in an empty vector.
    int IndexOfMaxValue() const;
    int IndexOfMinValue() const;

    /// Makes the capacity exactly `capacity`, unless it is larger already.
    void reserve(unsigned capacity);
    /// New elements are zero, or `value`.
    void resize(unsigned size);
    void resize(unsigned size, const T& value);

    /// Takes these elements in place of all that was there.
    void assign(unsigned count, const T& value);
    void assign(const T* first, const T* last);
    /// Takes over the elements of `other` and keeps the own increment and capacity; null empties the vector.
    void Assign(const GSimpleVector* other);
    void append(const GSimpleVector& other);

    /// Appends a value. The capacity of a full vector grows by its increment, the memory by more: many values
    /// take time in proportion to their count.
    void push_back(const T& value)
    {
        const T copy = value;
        if (mSize == mCapacity) {
            reserve(CapacityWith(1));
        }
        begin()[mSize++] = copy;
    }
    void push_front(const T& value);
    /// Inserts in front of `position`; gives the place of the first new element.
    T* insert(T* position, const T& value);
    T* insert(T* position, unsigned count, const T& value);
    /// `first` behind `last` is an internal fault, and inserts nothing if the user lets it pass.
    T* insert(T* position, const T* first, const T* last);

    /// Gives the place of the element behind the erased ones.
    T* erase(T* position);
    /// `first` behind `last` is an internal fault, and erases nothing if the user lets it pass.
    T* erase(T* first, T* last);
    /// An index out of range is an internal fault, and deletes nothing if the user lets it pass.
    void Delete(int index);
    /// Deletes the first element equal to `value` and gives its index; -1 if there is none.
    int Remove(const T& value);

    /// Puts the elements in the opposite order.
    void Reverse();
    /// An index out of range is an internal fault, and swaps nothing if the user lets it pass.
    void Swap(int i, int j);
    /// Ascending; pointers by address, a float that is no number behind all others. If the order of an own
    /// type contradicts itself, the elements come in any.
    void Sort();

    // What follows wants the vector sorted ascending, and doesn't check that.

    /// The index of the first element not less than `value`; the size if there is none.
    int InsIndexOf(T value) const;
    /// True if `value` is there; `index` is `InsIndexOf`.
    bool FindIndexOf(T value, unsigned& index) const;
    bool Contains(T value) const;
    /// The index at which `value` was inserted, in front of its equals; -1 if it is there already and
    /// duplicates aren't allowed.
    int AddSorted(T value, bool allowDuplicates);
    /// Deletes one element equal to `value`.
    void DelSorted(T value);
    void DelAllSorted(T value);
    /// Deletes every element that `other`, which is sorted too, contains.
    void DelAllSorted(const GSimpleVector& other);
    /// Adds each element of `other` that isn't there already, once.
    void Union(const GSimpleVector& other);
    /// Keeps only what the sorted `other` contains.
    void Intersect(const GSimpleVector& other);
    /// Becomes what both contain, once each. An own argument is an internal fault.
    void Intersect(const GSimpleVector& a, const GSimpleVector& b);
    /// As `Intersect`; a `small` larger than `large` is an internal fault.
    void DoIntersect(const GSimpleVector& small, const GSimpleVector& large);

private:
    static Detail::GVectorMemory<T> NewItems(unsigned capacity);
    unsigned OffsetOf(const T* position) const;
    /// Moves the elements from `offset` on up by `count`; the new places hold anything.
    T* OpenGap(unsigned offset, unsigned count);
    template <class Predicate>
    void EraseIf(Predicate predicate);

    Detail::GVectorMemory<T> mItems;
};

} // namespace UTL
