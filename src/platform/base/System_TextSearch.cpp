// SPDX-License-Identifier: MIT
#include "platform/base/System_TextSearch.h"

#include "platform/base/internal/System_LinearSearch.h"

#include <cstdint>
#include <cstring>

namespace System::Detail
{

namespace
{

template <class Char>
auto Characters(std::basic_string_view<Char> text)
{
    return [text](std::size_t i) { return text[i]; };
}

template <class Char>
auto CharactersFromBehind(std::basic_string_view<Char> text)
{
    return [text](std::size_t i) { return text[text.size() - 1 - i]; };
}

/// So many characters as one instruction compares.
template <class Char>
struct GBlock
{
    static constexpr std::size_t Size = 16 / sizeof(Char);
    using Type [[gnu::vector_size(16)]] = Char;

    /// Whether the characters `first` and `last` stand at one index of two blocks.
    static bool HasPair(const Char* firsts, Char first, const Char* lasts, Char last)
    {
        Type a;
        Type b;
        std::memcpy(&a, firsts, sizeof a);
        std::memcpy(&b, lasts, sizeof b);
        const auto pairs = (a == first) & (b == last);
        std::uint64_t halves[2];
        static_assert(sizeof halves == sizeof pairs);
        std::memcpy(halves, &pairs, sizeof halves);
        return (halves[0] | halves[1]) != 0;
    }
};

/// The first place at or behind `at` from which a block of places on may hold one with the first and the last
/// character of the pattern. Places nearer to the end of the text than a block are not looked at.
template <class Char>
std::size_t SkipBlocks(std::basic_string_view<Char> text, std::basic_string_view<Char> pattern,
                       std::size_t at)
{
    constexpr std::size_t size = GBlock<Char>::Size;
    const std::size_t span = size + pattern.size() - 1;
    const Char* const firsts = text.data();
    const Char* const lasts = firsts + pattern.size() - 1;
    while (span <= text.size() - at &&
           !GBlock<Char>::HasPair(firsts + at, pattern.front(), lasts + at, pattern.back())) {
        at += size;
    }
    return at;
}

template <class Char>
std::size_t Find(std::basic_string_view<Char> text, std::basic_string_view<Char> pattern, std::size_t from)
{
    using View = std::basic_string_view<Char>;
    if (from > text.size() || pattern.size() > text.size() - from) {
        return View::npos;
    }
    if (pattern.empty()) {
        return from;
    }
    const std::size_t last = text.size() - pattern.size();
    std::size_t compared = 0;
    for (std::size_t at = from; (at = SkipBlocks(text, pattern, at)) <= last;) {
        for (const std::size_t end = std::min(at + GBlock<Char>::Size, last + 1); at < end; ++at) {
            if (text[at] != pattern.front() || text[at + pattern.size() - 1] != pattern.back()) {
                continue;
            }
            const auto place = text.begin() + static_cast<std::ptrdiff_t>(at);
            const auto differs = std::mismatch(pattern.begin(), pattern.end(), place).first;
            if (differs == pattern.end()) {
                return at;
            }
            compared += static_cast<std::size_t>(differs - pattern.begin());
            if (compared > PlainSearchBudget(at - from)) {
                const GTwoWaySearch search(Characters(pattern), pattern.size());
                const std::size_t found = search.Find(Characters(text), text.size(), at + 1);
                return found == text.size() ? View::npos : found;
            }
        }
    }
    return View::npos;
}

template <class Char>
std::size_t FindLast(std::basic_string_view<Char> text, std::basic_string_view<Char> pattern)
{
    using View = std::basic_string_view<Char>;
    if (pattern.empty()) {
        return text.size();
    }
    const std::size_t behind =
        FindLinear(CharactersFromBehind(text), text.size(), CharactersFromBehind(pattern), pattern.size());
    return behind == text.size() ? View::npos : text.size() - behind - pattern.size();
}

} // namespace

std::size_t FindText(std::string_view text, std::string_view pattern, std::size_t from) noexcept
{
    return Find(text, pattern, from);
}

std::size_t FindText(std::u16string_view text, std::u16string_view pattern, std::size_t from) noexcept
{
    return Find(text, pattern, from);
}

std::size_t FindLastText(std::string_view text, std::string_view pattern) noexcept
{
    return FindLast(text, pattern);
}

std::size_t FindLastText(std::u16string_view text, std::u16string_view pattern) noexcept
{
    return FindLast(text, pattern);
}

} // namespace System::Detail
