// SPDX-License-Identifier: MIT
#pragma once

#include <bitset>
#include <cstddef>
#include <initializer_list>

namespace System
{

/// A set of the values of an enumeration or small integer type from `Min` to `Max`. A value outside is never
/// in the set; putting one in has no effect.
///
///     enum EDay { Mon, Tue, Wed };
///     Set<EDay, Mon, Wed> days{Mon, Wed};
///     days << Tue;
///     for (const EDay day : days) { ... }
template <class T, T Min, T Max>
class Set
{
    static constexpr auto First = static_cast<long long>(Min);
    static constexpr auto Count = static_cast<std::size_t>(static_cast<long long>(Max) - First + 1);

public:
    class CIterator;

    Set() = default;
    Set(std::initializer_list<T> values)
    {
        for (const T value : values) {
            *this << value;
        }
    }

    Set& operator<<(T value) { return Put(value, EMember::In); }
    Set& operator>>(T value) { return Put(value, EMember::Out); }

    /// Whether the value is in the set; false for one outside `Min` to `Max`.
    bool Contains(T value) const { return IsInside(value) && mBits[IndexOf(value)]; }
    /// Whether no value is in the set.
    bool Empty() const { return mBits.none(); }
    [[nodiscard]] bool empty() const { return mBits.none(); }
    std::size_t size() const { return mBits.count(); }

    /// The values in the set, the lowest first.
    CIterator begin() const { return CIterator(*this, 0); }
    CIterator end() const { return CIterator(*this, Count); }

    /// Takes all values out.
    Set& Clear()
    {
        mBits.reset();
        return *this;
    }

    /// Union, difference, intersection.
    friend Set operator+(Set a, const Set& b) { return a += b; }
    friend Set operator-(Set a, const Set& b) { return a -= b; }
    friend Set operator*(Set a, const Set& b) { return a *= b; }
    Set& operator+=(const Set& other)
    {
        mBits |= other.mBits;
        return *this;
    }
    Set& operator-=(const Set& other)
    {
        mBits &= ~other.mBits;
        return *this;
    }
    Set& operator*=(const Set& other)
    {
        mBits &= other.mBits;
        return *this;
    }

    friend bool operator==(const Set& a, const Set& b) { return a.mBits == b.mBits; }

    /// Walks over the values in a set, which must outlive it.
    class CIterator
    {
    public:
        using value_type = T;
        using reference = T;
        using pointer = void;
        using difference_type = std::ptrdiff_t;
        // The old algorithms want references from all but this one.
        using iterator_category = std::input_iterator_tag;
        using iterator_concept = std::forward_iterator_tag;

        CIterator() = default;
        CIterator(const Set& set, std::size_t index) : mSet(&set), mIndex(index) { SkipMissing(); }

        T operator*() const { return static_cast<T>(First + static_cast<long long>(mIndex)); }
        CIterator& operator++()
        {
            ++mIndex;
            SkipMissing();
            return *this;
        }
        CIterator operator++(int)
        {
            const CIterator old = *this;
            ++*this;
            return old;
        }
        friend bool operator==(const CIterator& a, const CIterator& b) { return a.mIndex == b.mIndex; }

    private:
        void SkipMissing()
        {
            while (mIndex < Count && !mSet->mBits[mIndex]) {
                ++mIndex;
            }
        }

        const Set* mSet = nullptr;
        std::size_t mIndex = 0;
    };

private:
    static bool IsInside(T value)
    {
        return static_cast<long long>(value) >= First &&
               static_cast<long long>(value) <= static_cast<long long>(Max);
    }
    static std::size_t IndexOf(T value)
    {
        return static_cast<std::size_t>(static_cast<long long>(value) - First);
    }

    enum class EMember
    {
        Out,
        In,
    };

    Set& Put(T value, EMember member)
    {
        if (IsInside(value)) {
            mBits[IndexOf(value)] = member == EMember::In;
        }
        return *this;
    }

    std::bitset<Count> mBits;
};

} // namespace System
