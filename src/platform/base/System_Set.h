// SPDX-License-Identifier: MIT
#pragma once

#include <bitset>
#include <cstddef>

namespace System
{

/// A set of the values of an enumeration or small integer type from `Min` to `Max`. A value outside is never
/// in the set; putting one in has no effect.
template <class T, T Min, T Max>
class Set
{
    static constexpr auto First = static_cast<long long>(Min);
    static constexpr auto Count = static_cast<std::size_t>(static_cast<long long>(Max) - First + 1);

public:
    Set() = default;

    Set& operator<<(T value) { return Put(value, EMember::In); }
    Set& operator>>(T value) { return Put(value, EMember::Out); }

    /// Whether the value is in the set; false for one outside `Min` to `Max`.
    bool Contains(T value) const { return IsInside(value) && mBits[IndexOf(value)]; }
    /// Whether no value is in the set.
    bool Empty() const { return mBits.none(); }
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
