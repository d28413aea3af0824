// SPDX-License-Identifier: MIT
#include "foundation/UTL_STR_Find.h"

#include "foundation/UTL_ASRT_Assert.h"

#include <string>

namespace UTL
{

namespace
{

using System::WideChar;

template <class Char>
constexpr const char* Source = "UTL_STR_UtilitiesA.cpp";
template <>
constexpr const char* Source<WideChar> = "UTL_STR_UtilitiesW.cpp";

template <class Char>
constexpr CFaultPlace FindsOfFromNegative{Source<Char>, 158};
template <class Char>
constexpr CFaultPlace FindsNotOfFromNegative{Source<Char>, 173};
template <class Char>
constexpr CFaultPlace FindsOf2FromNegative{Source<Char>, 188};

/// The index of the first character at or behind `start` that `matches`; `place` names the check of `start`.
template <class Char, class Matches>
int FindFirst(const Char* text, int start, const CFaultPlace& place, Matches matches)
{
    if (start < 0) {
        THROW_XAssert(place);
        return -1;
    }
    // Up to `start` only the end is sought, which goes in blocks.
    using Traits = std::char_traits<Char>;
    if (text == nullptr || Traits::find(text, static_cast<std::size_t>(start), Char()) != nullptr) {
        return -1;
    }
    for (int i = start; text[i] != 0; ++i) {
        if (matches(text[i])) {
            return i;
        }
    }
    return -1;
}

template <class Char>
int FindFirstOf(Char c, const Char* text, int start)
{
    return FindFirst(text, start, FindsOfFromNegative<Char>, [c](Char other) { return other == c; });
}

template <class Char>
int FindFirstNotOf(Char c, const Char* text, int start)
{
    return FindFirst(text, start, FindsNotOfFromNegative<Char>, [c](Char other) { return other != c; });
}

template <class Char>
int FindFirstOf2(Char c1, Char c2, const Char* text, int start)
{
    return FindFirst(text, start, FindsOf2FromNegative<Char>,
                     [c1, c2](Char other) { return other == c1 || other == c2; });
}

} // namespace

int find_first_of(char c, const char* text, int start)
{
    return FindFirstOf(c, text, start);
}

int find_first_of(WideChar c, const WideChar* text, int start)
{
    return FindFirstOf(c, text, start);
}

int find_first_not_of(char c, const char* text, int start)
{
    return FindFirstNotOf(c, text, start);
}

int find_first_not_of(WideChar c, const WideChar* text, int start)
{
    return FindFirstNotOf(c, text, start);
}

int find_first_of2(char c1, char c2, const char* text, int start)
{
    return FindFirstOf2(c1, c2, text, start);
}

int find_first_of2(WideChar c1, WideChar c2, const WideChar* text, int start)
{
    return FindFirstOf2(c1, c2, text, start);
}

} // namespace UTL
