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

    Set& operator<<(T value) { return Put(value, true); }
    Set& operator>>(T value) { return Put(value, false); }

    bool Contains(T value) const { return IsInside(value) && mBits[IndexOf(value)]; }
    bool Empty() const { return mBits.none(); }
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

    Set& Put(T value, bool in)
    {
        if (IsInside(value)) {
            mBits[IndexOf(value)] = in;
        }
        return *this;
    }

    std::bitset<Count> mBits;
};

} // namespace System
