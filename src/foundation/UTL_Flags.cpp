// SPDX-License-Identifier: MIT
#include "foundation/UTL_Flags.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "foundation/vectors/UTL_SV_IntVector.h"
#include "platform/base/internal/System_Memory.h"
#include "platform/base/numbers/Sysutils_Number.h"
#include "platform/runtime/classes/Classes_StringList.h"

#include <algorithm>
#include <bit>
#include <climits>
#include <cstring>
#include <string_view>

namespace UTL
{

namespace
{

using System::UnicodeString;
using System::WideChar;

using Word = std::uint64_t;

std::size_t ByteCount(int count)
{
    return (static_cast<std::size_t>(std::max(count, 1)) + 7) / 8;
}

Word WordAt(const std::uint8_t* bytes) noexcept
{
    Word word = 0;
    std::memcpy(&word, bytes, sizeof word);
    return word;
}

/// Combines the bytes of both rows into the first, in words as far as they go.
template <class Operation>
void CombineBytes(std::uint8_t* own, const std::uint8_t* other, std::size_t count,
                  Operation operation) noexcept
{
    const std::size_t words = count / sizeof(Word);
    for (std::size_t i = 0; i < words; ++i) {
        const std::size_t at = i * sizeof(Word);
        const Word word = operation(WordAt(own + at), WordAt(other + at));
        std::memcpy(own + at, &word, sizeof word);
    }
    for (std::size_t i = words * sizeof(Word); i < count; ++i) {
        own[i] = static_cast<std::uint8_t>(operation(own[i], other[i]));
    }
}

/// Whether all bytes are `value`: the first is, and each is like the one in front of it.
bool AreAll(const std::uint8_t* bytes, std::size_t count, std::uint8_t value) noexcept
{
    return count == 0 || (bytes[0] == value && std::memcmp(bytes, bytes + 1, count - 1) == 0);
}

/// Whether the text is as `getCommaText` writes it, so that it needs no list of items.
bool IsPlainText(std::u16string_view text) noexcept
{
    bool isPlain = text.size() % 2 != 0;
    // Without an end of its own, so that the compiler takes many characters at once.
    for (std::size_t i = 0; i + 1 < text.size(); i += 2) {
        isPlain &= (text[i] == u'0' || text[i] == u'1') && text[i + 1] == u',';
    }
    return isPlain && (text.back() == u'0' || text.back() == u'1');
}

} // namespace

CFlags::CFlags(int count)
{
    setCount(count);
}

CFlags::CFlags(int count, bool value) : CFlags(count)
{
    if (value) {
        SetFlags();
    }
}

CFlags::CFlags(const CFlags& other, int count) : CFlags(count)
{
    std::copy_n(other.mBytes.begin(), std::min(mBytes.size(), other.mBytes.size()), mBytes.begin());
    ClearSurplus();
}

bool CFlags::Fail(const CFaultPlace& place)
{
    THROW_XAssert(place);
    return false;
}

void CFlags::ClearSurplus() noexcept
{
    const int used = mCount - 8 * static_cast<int>(mBytes.size() - 1);
    mBytes.back() &= static_cast<Byte>((1U << used) - 1);
}

bool CFlags::Assign(const CFlags& other)
{
    if (*this == other) {
        return false;
    }
    *this = other;
    return true;
}

bool CFlags::Assign(const CFlags* other)
{
    if (other != nullptr) {
        return Assign(*other);
    }
    const bool changes = !AreAllFlagsFalse();
    ClearFlags();
    return changes;
}

void CFlags::Assign(const CIntVector& values)
{
    CFlags flags(static_cast<int>(values.size()));
    int i = 0;
    for (const int value : values) {
        flags.Put(i++, value != 0);
    }
    *this = flags;
}

void CFlags::Clear()
{
    setCount(0);
}

void CFlags::setCount(int count)
{
    count = std::max(count, 0);
    System::WithMemory(u"There is no memory for the flags.", [&] { mBytes.resize(ByteCount(count)); });
    mCount = count;
    ClearSurplus();
}

int CFlags::NextTrue(int from) const noexcept
{
    const int start = std::max(from, 0);
    if (start >= mCount) {
        return -1;
    }
    const auto first = mBytes.begin() + static_cast<std::ptrdiff_t>(ByteOf(start));
    const auto inFirst = static_cast<Byte>(*first & ~(MaskOf(start) - 1U));
    const auto found =
        inFirst != 0 ? first : std::find_if(first + 1, mBytes.end(), [](Byte byte) { return byte != 0; });
    if (found == mBytes.end()) {
        return -1;
    }
    const Byte byte = found == first ? inFirst : *found;
    return 8 * static_cast<int>(found - mBytes.begin()) + std::countr_zero(byte);
}

bool CFlags::SetFlag(int i, bool value)
{
    if (!Check(i, ChangesNoFlag) || IsSet(i) == value) {
        return false;
    }
    Put(i, value);
    return true;
}

void CFlags::SetFlags()
{
    std::fill(mBytes.begin(), mBytes.end(), Byte(0xFF));
    ClearSurplus();
}

void CFlags::ClearFlags()
{
    std::fill(mBytes.begin(), mBytes.end(), Byte(0));
}

template <class Operation>
CFlags& CFlags::Combine(const CFlags& other, Operation operation) noexcept
{
    CombineBytes(mBytes.data(), other.mBytes.data(), std::min(mBytes.size(), other.mBytes.size()), operation);
    ClearSurplus();
    return *this;
}

void CFlags::SetFlags(const CFlags& mask, bool value)
{
    if (value) {
        *this |= mask;
    } else {
        Combine(mask, [](Word a, Word b) { return a & ~b; });
    }
}

CFlags& CFlags::operator&=(const CFlags& other)
{
    return Combine(other, [](Word a, Word b) { return a & b; });
}

CFlags& CFlags::operator|=(const CFlags& other)
{
    return Combine(other, [](Word a, Word b) { return a | b; });
}

CFlags& CFlags::operator^=(const CFlags& other)
{
    return Combine(other, [](Word a, Word b) { return a ^ b; });
}

CFlags& CFlags::operator~()
{
    std::ranges::transform(mBytes, mBytes.begin(), [](Byte byte) { return static_cast<Byte>(~byte); });
    ClearSurplus();
    return *this;
}

bool CFlags::AreAllFlagsFalse() const noexcept
{
    return AreAll(mBytes.data(), mBytes.size(), 0);
}

bool CFlags::AreAllFlagsTrue() const noexcept
{
    const std::size_t whole = ByteOf(mCount);
    const int rest = mCount % 8;
    return mCount > 0 && AreAll(mBytes.data(), whole, 0xFF) &&
           (rest == 0 || mBytes[whole] == (1U << rest) - 1);
}

UnicodeString CFlags::getCommaText() const
{
    if (mCount == 0) {
        return {};
    }
    UnicodeString text = UnicodeString::StringOfChar(u',', mCount <= INT_MAX / 2 ? 2 * mCount - 1 : INT_MAX);
    WideChar* out = text.UniqueData();
    for (int i = 0; i < mCount; ++i) {
        out[2 * static_cast<std::size_t>(i)] = IsSet(i) ? u'1' : u'0';
    }
    return text;
}

void CFlags::setCommaText(UnicodeString text)
{
    const std::u16string_view view = text.AsView();
    if (IsPlainText(view)) {
        CFlags flags(static_cast<int>(view.size() / 2) + 1);
        for (int i = 0; i < flags.mCount; ++i) {
            flags.Put(i, view[2 * static_cast<std::size_t>(i)] == u'1');
        }
        *this = flags;
        return;
    }
    Classes::TStringList items;
    items.setCommaText(text);
    CFlags flags(items.getCount());
    for (int i = 0; i < flags.mCount; ++i) {
        flags.Put(i, Sysutils::StrToIntDef(items[i], 0) != 0);
    }
    *this = flags;
}

bool CFlags::operator==(const CFlags& other) const noexcept
{
    return mCount == other.mCount && std::memcmp(mBytes.data(), other.mBytes.data(), mBytes.size()) == 0;
}

bool CFlags::operator<(const CFlags& other) const noexcept
{
    if (mCount != other.mCount) {
        return mCount < other.mCount;
    }
    return std::memcmp(mBytes.data(), other.mBytes.data(), mBytes.size()) < 0;
}

UnicodeString CFlags::_GetDebugInfo() const
{
    UnicodeString text = u"Byte-Count: " + UnicodeString(mBytes.size()) + u" Bits:";
    for (int i = 0; i < mCount; ++i) {
        if (i % 4 == 0) {
            text += u' ';
        }
        text += IsSet(i) ? u'1' : u'0';
    }
    return text;
}

} // namespace UTL
