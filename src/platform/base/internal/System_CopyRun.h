// SPDX-License-Identifier: MIT
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <type_traits>

// Copies runs of characters from one width to the other, in blocks as large as the machine's vectors.

namespace System::Detail
{

/// The characters that are looked at together.
inline constexpr std::size_t BlockLength = 16;

// The compiler's own vectors of characters without a sign, which it breaks down where those of the machine
// are smaller.

template <class Char>
struct GVector;

template <>
struct GVector<char>
{
    using Part [[gnu::vector_size(16)]] = unsigned char;
    using Block [[gnu::vector_size(16)]] = unsigned char;
};

template <>
struct GVector<char16_t>
{
    using Part [[gnu::vector_size(16)]] = unsigned short;
    using Block [[gnu::vector_size(32)]] = unsigned short;
};

/// Copies a block from one width to the other.
template <class From, class To>
void CopyBlock(const From* from, To* to)
{
    typename GVector<From>::Block block;
    std::memcpy(&block, from, sizeof block);
    const auto copy = __builtin_convertvector(block, typename GVector<To>::Block);
    // The linter takes the room of a text for none, which is so only for an empty one.
    std::memcpy(to, &copy, sizeof copy); // NOLINT(clang-analyzer-core.NonNullParamChecker)
}

/// The place of the first character of a block that has a bit in these words; `BlockLength` if there is none.
template <class Char, std::size_t Words>
std::size_t FirstMarked(const std::uint64_t (&words)[Words])
{
    static_assert(std::endian::native == std::endian::little, "the first character has the lowest bits");
    constexpr std::size_t inWord = BlockLength / Words;
    std::size_t place = 0;
    for (const std::uint64_t word : words) {
        if (word != 0) {
            return place + static_cast<std::size_t>(std::countr_zero(word)) / (8 * sizeof(Char));
        }
        place += inWord;
    }
    return place;
}

/// What ends a run: whatever `Marks` says of a vector, by lanes that aren't zero, or of one character.
template <class Marks>
struct GRunEnd : Marks
{
    template <class Char>
    static std::size_t FindInBlock(const Char* block)
    {
        using Part = typename GVector<Char>::Part;
        constexpr std::size_t inPart = sizeof(Part) / sizeof(Char);
        std::uint64_t words[BlockLength * sizeof(Char) / sizeof(std::uint64_t)];
        char* out = reinterpret_cast<char*>(words);
        for (std::size_t start = 0; start < BlockLength; start += inPart) {
            Part part;
            std::memcpy(&part, block + start, sizeof part);
            const auto lanes = Marks::Ends(part);
            std::memcpy(out, &lanes, sizeof lanes);
            out += sizeof lanes;
        }
        return FirstMarked<Char>(words);
    }
};

/// A run of 7-bit characters ends. Their bits are tested in words as they lie in memory, without a vector.
struct TAsciiEnd
{
    template <class Char>
    static constexpr bool Ends(Char c)
    {
        return c > 0x7F;
    }
    template <class Char>
    static std::size_t FindInBlock(const Char* block)
    {
        constexpr std::uint64_t beyond = sizeof(Char) == 1 ? 0x8080808080808080U : 0xFF80FF80FF80FF80U;
        std::uint64_t words[BlockLength * sizeof(Char) / sizeof(std::uint64_t)];
        std::memcpy(words, block, sizeof words);
        std::uint64_t all = 0;
        for (std::uint64_t& word : words) {
            word &= beyond;
            all |= word;
        }
        return all == 0 ? BlockLength : FirstMarked<Char>(words);
    }
};

/// Copies the characters at the front of `text` to `out` up to the first that ends the run, and gives how
/// many. There must be room for as many as `text` has; what lies behind the count may change.
template <class End, class From, class To>
std::size_t CopyRun(std::basic_string_view<From> text, To* out)
{
    using Unsigned = std::make_unsigned_t<From>;
    const From* const from = text.data();
    const std::size_t size = text.size();
    if (size < BlockLength) {
        std::size_t done = 0;
        for (; done < size && !End::Ends(static_cast<Unsigned>(from[done])); ++done) {
            // NOLINTNEXTLINE(clang-analyzer-core.NullDereference): as of `CopyBlock`
            out[done] = static_cast<To>(static_cast<Unsigned>(from[done]));
        }
        return done;
    }
    // The last block overlaps the one before it.
    const std::size_t last = size - BlockLength;
    for (std::size_t start = 0;; start = start + BlockLength < last ? start + BlockLength : last) {
        CopyBlock(from + start, out + start);
        const std::size_t run = End::FindInBlock(from + start);
        if (run < BlockLength || start == last) {
            return start + run;
        }
    }
}

} // namespace System::Detail
