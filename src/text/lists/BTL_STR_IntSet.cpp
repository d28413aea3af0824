// SPDX-License-Identifier: MIT
#include "text/lists/BTL_STR_IntSet.h"

#include "streams/BTL_STRM_StreamUtilities.h"

#include <charconv>
#include <limits>

namespace BTL
{

template <class T>
GIntegerSet<T>::GIntegerSet(const T* values, int count)
{
    if (values != nullptr && count > 0) {
        this->insert(values, values + count);
    }
}

template <class T>
T GIntegerSet<T>::NextFreeValue(T start) const
{
    if (this->empty()) {
        return start;
    }
    const T max = *this->rbegin();
    if (start < max) {
        T value = start;
        for (auto taken = this->lower_bound(start); *taken == value && value != max; ++taken) {
            ++value;
        }
        if (value < max) {
            return value;
        }
    }
    if (max != std::numeric_limits<T>::max()) {
        return max + 1;
    }
    T value = max;
    for (auto taken = this->rbegin(); taken != this->rend() && *taken == value; ++taken) {
        --value;
    }
    return value;
}

template <class T>
void GIntegerSet<T>::SaveToFile(const System::UnicodeString& path) const
{
    System::AnsiString text;
    for (const T value : *this) {
        if (!text.IsEmpty()) {
            text += ',';
        }
        char digits[32];
        const char* const end = std::to_chars(digits, digits + sizeof digits, value).ptr;
        text.Append({static_cast<const char*>(digits), static_cast<std::size_t>(end - digits)});
    }
    SaveStringToFile(path, text);
}

template class GIntegerSet<int>;
template class GIntegerSet<System::Int64>;

} // namespace BTL
