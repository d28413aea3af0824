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
T GIntegerSet<T>::SkipRun(T start) const
{
    const TRun& run = mRun.value;
    const bool isWithin = run.begin <= start && start <= run.end && this->size() >= run.count;
    // With as many values as before, the one behind the run can only be there if another one went.
    const bool isWhole = isWithin && (this->size() > run.count || !this->contains(run.end));
    return isWhole ? run.end : start;
}

template <class T>
T GIntegerSet<T>::NextFreeValue(T start) const
{
    if (this->empty()) {
        return start;
    }
    const T max = *this->rbegin();
    if (start < max) {
        T value = SkipRun(start);
        const T begin = value == start ? start : mRun.value.begin;
        if (value < max) {
            for (auto taken = this->lower_bound(value); *taken == value && value != max; ++taken) {
                ++value;
            }
        }
        // The largest is taken as well; behind the last value of the type there is none.
        const bool isBeforeNext = value == max && max != std::numeric_limits<T>::max();
        mRun.value = {begin, isBeforeNext ? max + 1 : value, this->size()};
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
