// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/UTL_ASRT_FaultPlace.h"
#include "platform/base/System_Range.h"
#include "platform/base/System_String.h"

#include <concepts>
#include <cstdint>
#include <initializer_list>
#include <vector>

namespace UTL
{

class CIntVector;

/// A growable row of flags, packed eight to the byte, the lowest bit first. A negative count counts as 0. A
/// position outside the row is an internal fault; if the user lets it pass, the flag reads as false and
/// nothing is set.
///
///     UTL::CFlags alarms{true, false, true};
///     alarms.setItem(1, true);
///     for (const bool alarm : alarms) { ... }
///     for (int i = alarms.NextTrue(0); i >= 0; i = alarms.NextTrue(i + 1)) { ... }
class TRS8_BTL_API CFlags
{
public:
    /// All flags false.
    explicit CFlags(int count = 0);
    CFlags(int count, bool value);
    /// Braces of `bool` hold the flags: `CFlags{true, false}`, but `CFlags{2, true}` has two that are true.
    template <std::same_as<bool> Bool>
    CFlags(std::initializer_list<Bool> flags) : CFlags(static_cast<int>(flags.size()))
    {
        int i = 0;
        for (const bool flag : flags) {
            Put(i++, flag);
        }
    }
    /// The first flags of `other`; those that it lacks are false.
    CFlags(const CFlags& other, int count);
    // Only copies: a row that was moved from would lack the byte that it always has.
    CFlags(const CFlags&) = default;
    /// Without the memory for it, nothing changes.
    // NOLINTNEXTLINE(modernize-use-equals-default): the memory comes before the count.
    CFlags& operator=(const CFlags& other)
    {
        mBytes = other.mBytes;
        mCount = other.mCount;
        return *this;
    }
    ~CFlags() = default;

    /// Becomes equal to `other` and tells whether that changed anything.
    bool Assign(const CFlags& other);
    /// As `Assign(const CFlags&)`, but null makes all flags false and keeps their count.
    bool Assign(const CFlags* other);
    /// Each number becomes a flag that is true unless the number is 0.
    void Assign(const CIntVector& values);
    /// Removes all flags.
    void Clear();

    int getCount() const noexcept { return mCount; }
    /// Flags that stay keep their value, new ones are false. `Sysutils::EOutOfMemory`, with the row as it
    /// was, if the memory isn't there.
    void setCount(int count);

    // The flags as a range, by value. `setItem` sets one.

    using const_iterator = System::GIndexIterator<CFlags, bool>;
    const_iterator begin() const noexcept { return {*this, 0}; }
    const_iterator end() const noexcept { return {*this, mCount}; }
    std::size_t size() const noexcept { return static_cast<std::size_t>(mCount); }
    [[nodiscard]] bool empty() const noexcept { return mCount == 0; }
    /// As `getItem`.
    bool operator[](int i) const { return getItem(i); }
    /// The first position from `from` on whose flag is true; -1 if there is none.
    int NextTrue(int from) const noexcept;

    bool getItem(int i) const { return Check(i, GetsNoFlag) && IsSet(i); }
    void setItem(int i, bool value)
    {
        if (Check(i, SetsNoFlag)) {
            Put(i, value);
        }
    }
    /// Tells whether that changed the flag.
    bool SetFlag(int i, bool value);
    bool ChangeFlag(int i, bool value) { return SetFlag(i, value); }

    /// All flags true.
    void SetFlags();
    /// All flags false.
    void ClearFlags();
    /// Where `mask` is true, the flag becomes `value`.
    void SetFlags(const CFlags& mask, bool value);
    void ClearFlags(const CFlags& mask) { SetFlags(mask, false); }
    /// True for no flags.
    bool AreAllFlagsFalse() const noexcept;
    /// False for no flags.
    bool AreAllFlagsTrue() const noexcept;

    /// The flags as 0 and 1 with commas between.
    System::UnicodeString getCommaText() const;
    /// Each item of the comma text becomes a flag: true if it is an integer other than 0.
    void setCommaText(System::UnicodeString text);

    /// Equal counts and equal flags.
    bool operator==(const CFlags& other) const noexcept;
    /// The smaller count is less; of equal counts, the smaller byte at the first difference.
    bool operator<(const CFlags& other) const noexcept;

    /// Flips every flag of this row itself.
    CFlags& operator~();
    // What works with another row goes byte by byte as far as both have bytes, and the count stays. So in a
    // byte that the other row fills only in part, its missing flags count as false; further ones stay.
    CFlags& operator&=(const CFlags& other);
    CFlags& operator|=(const CFlags& other);
    CFlags& operator^=(const CFlags& other);
    CFlags operator&(const CFlags& other) const { return CFlags(*this) &= other; }
    CFlags operator|(const CFlags& other) const { return CFlags(*this) |= other; }
    CFlags operator^(const CFlags& other) const { return CFlags(*this) ^= other; }

    /// For a debugger or a log: the count of bytes, and the flags in groups of four.
    System::UnicodeString _GetDebugInfo() const; // NOLINT(bugprone-reserved-identifier)
    /// Keeps the debug text in the program; does nothing.
    void _LinkDebugInfo(bool) const noexcept {} // NOLINT(bugprone-reserved-identifier)

private:
    using Byte = std::uint8_t;

    static constexpr const char* Source = "UTL_Flags.cpp";
    static constexpr CFaultPlace ChangesNoFlag{Source, 334};
    static constexpr CFaultPlace GetsNoFlag{Source, 407};
    static constexpr CFaultPlace SetsNoFlag{Source, 415};

    static Byte MaskOf(int i) noexcept { return static_cast<Byte>(1U << (static_cast<unsigned>(i) % 8)); }
    static std::size_t ByteOf(int i) noexcept { return static_cast<unsigned>(i) / 8; }

    bool Check(int i, const CFaultPlace& place) const
    {
        return static_cast<unsigned>(i) < static_cast<unsigned>(mCount) || Fail(place);
    }
    static bool Fail(const CFaultPlace& place);
    bool IsSet(int i) const noexcept { return (mBytes[ByteOf(i)] & MaskOf(i)) != 0; }
    void Put(int i, bool value) noexcept
    {
        Byte& byte = mBytes[ByteOf(i)];
        byte = static_cast<Byte>(value ? byte | MaskOf(i) : byte & ~MaskOf(i));
    }
    void ClearSurplus() noexcept;
    template <class Operation>
    CFlags& Combine(const CFlags& other, Operation operation) noexcept;

    int mCount = 0;
    /// Never empty. Bits behind the last flag are zero, so that rows can be compared byte by byte.
    std::vector<Byte> mBytes;
};

} // namespace UTL
