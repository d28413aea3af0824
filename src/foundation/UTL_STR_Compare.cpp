// SPDX-License-Identifier: MIT
#include "foundation/UTL_STR_Compare.h"

#include "platform/base/internal/System_Ascii.h"

#include <cstddef>
#include <type_traits>

namespace UTL
{

namespace
{

using System::WideChar;
using System::Detail::AsciiLower;

constexpr int WholeText = -1;

/// The order of the first `count` characters, as `strncmp` gives it.
template <class Char>
int Compare(const Char* a, const Char* b, int count, Char (*fold)(Char))
{
    using Code = std::make_unsigned_t<Char>;
    for (std::size_t i = 0; count < 0 || i < static_cast<std::size_t>(count); ++i) {
        const auto codeA = static_cast<Code>(fold(a[i]));
        const auto codeB = static_cast<Code>(fold(b[i]));
        if (codeA != codeB) {
            return codeA < codeB ? -1 : 1;
        }
        if (codeA == 0) {
            break;
        }
    }
    return 0;
}

template <class Char>
constexpr Char AsItIs(Char c)
{
    return c;
}

template <class Char>
bool AreEqual(const Char* a, const Char* b, int count, Char (*fold)(Char))
{
    if (a == nullptr || b == nullptr) {
        return a == b;
    }
    return Compare(a, b, count, fold) == 0;
}

template <class Char>
bool IsLessOf(const Char* a, const Char* b, int count)
{
    if (a == nullptr || b == nullptr) {
        return a == nullptr;
    }
    return Compare(a, b, count, &AsItIs<Char>) < 0;
}

} // namespace

bool IsEqual(const char* a, const char* b)
{
    return AreEqual(a, b, WholeText, &AsItIs<char>);
}

bool IsEqual(const WideChar* a, const WideChar* b)
{
    return AreEqual(a, b, WholeText, &AsItIs<WideChar>);
}

bool IsEqual(const char* a, const char* b, int count)
{
    return AreEqual(a, b, count, &AsItIs<char>);
}

bool IsEqual(const WideChar* a, const WideChar* b, int count)
{
    return AreEqual(a, b, count, &AsItIs<WideChar>);
}

bool IsIEqual(const char* a, const char* b, int count)
{
    return AreEqual(a, b, count, &AsciiLower<char>);
}

bool IsIEqual(const WideChar* a, const WideChar* b, int count)
{
    return AreEqual(a, b, count, &AsciiLower<WideChar>);
}

bool IsLess(const char* a, const char* b)
{
    return IsLessOf(a, b, WholeText);
}

bool IsLess(const WideChar* a, const WideChar* b)
{
    return IsLessOf(a, b, WholeText);
}

bool IsLess(const char* a, const char* b, int count)
{
    return IsLessOf(a, b, count);
}

bool IsLess(const WideChar* a, const WideChar* b, int count)
{
    return IsLessOf(a, b, count);
}

} // namespace UTL
