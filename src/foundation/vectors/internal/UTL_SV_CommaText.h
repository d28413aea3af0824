// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/vectors/UTL_SV_GSimpleVectorClass.h"
#include "platform/base/System_String.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <limits>
#include <string_view>

namespace UTL::Detail
{

/// Room for the text of any number.
inline constexpr std::size_t NumberRoom = 40;

/// Collects numbers with commas between. They are widened many at a time: one by one that would take as long
/// as writing their digits.
class CCommaText
{
public:
    /// For that many numbers.
    explicit CCommaText(std::size_t count) : mTotal(count) {}

    /// Where the next number goes; there is `NumberRoom`.
    char* Room()
    {
        if (mEnd > mBuffer.data() + mBuffer.size() - NumberRoom - 1) {
            Flush();
        }
        return mEnd;
    }

    /// Takes over the number that ends there.
    void Add(char* end)
    {
        *end = ',';
        mEnd = end + 1;
        ++mCount;
    }

    System::UnicodeString Take();

private:
    void Flush();

    System::UnicodeString mText;
    std::array<char, 4096> mBuffer;
    char* mEnd = mBuffer.data();
    /// How many numbers there will be, and how many there are.
    std::size_t mTotal;
    std::size_t mCount = 0;
};

/// Joins the elements with commas. `write(element, out)` writes one of up to `NumberRoom` characters and
/// gives its end.
template <class T, class Write>
System::UnicodeString JoinNumbers(const GSimpleVector<T>& items, Write write)
{
    CCommaText text(items.size());
    for (const T item : items) {
        text.Add(write(item, text.Room()));
    }
    return text.Take();
}

/// Fills the vector from a comma text up to its first empty part. `read(part)` converts a part without the
/// blanks around it, or throws; the elements read until then stay. `scan(first, last, value)` is the short
/// way for a part that needs no trimming: it gives the end of a plain number, or `first` if it sees none.
template <class T, class Scan, class Read>
void SplitNumbers(GSimpleVector<T>& items, std::u16string_view text, Scan scan, Read read)
{
    const auto isText = [](System::WideChar c) { return c > u' '; };
    const System::WideChar* first = text.data();
    const System::WideChar* const last = first + text.size();
    items.resize(0);
    while (true) {
        T value = T();
        const System::WideChar* end = scan(first, last, value);
        if (end == first || (end != last && *end != u',')) {
            end = std::find(first, last, u',');
            first = std::find_if(first, end, isText);
            if (first == end) {
                return;
            }
            const auto* const trimmedEnd =
                std::find_if(std::reverse_iterator(end), std::reverse_iterator(first), isText).base();
            value = read(std::u16string_view(first, trimmedEnd));
        }
        items.push_back(value);
        if (end == last) {
            return;
        }
        first = end + 1;
    }
}

/// Writes a decimal integer.
char* WriteInteger(System::Int64 value, char* out);

/// Reads a short decimal number at the front of a text and gives its end; `first`, with `value` left alone,
/// for anything that takes the long way.
template <class Integer>
const System::WideChar* ScanInteger(const System::WideChar* first, const System::WideChar* last,
                                    Integer& value)
{
    const bool negative = first != last && *first == u'-';
    const System::WideChar* const digits = first + (negative ? 1 : 0);
    // One digit less than the largest number has, so that all of them fit.
    const std::ptrdiff_t room =
        std::min<std::ptrdiff_t>(last - digits, std::numeric_limits<Integer>::digits10);
    const System::WideChar* end = digits;
    Integer read = 0;
    for (; end != digits + room && *end >= u'0' && *end <= u'9'; ++end) {
        read = read * 10 + static_cast<Integer>(*end - u'0');
    }
    if (end == digits) {
        return first;
    }
    value = negative ? -read : read;
    return end;
}

} // namespace UTL::Detail
