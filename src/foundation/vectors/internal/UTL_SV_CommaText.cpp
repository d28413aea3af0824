// SPDX-License-Identifier: MIT
#include "foundation/vectors/internal/UTL_SV_CommaText.h"

#include <algorithm>
#include <charconv>
#include <climits>

namespace UTL::Detail
{

System::UnicodeString CCommaText::Take()
{
    Flush();
    return std::move(mText.SetLength(mText.Length() - 1));
}

void CCommaText::Flush()
{
    std::array<System::WideChar, std::tuple_size_v<decltype(mBuffer)>> wide;
    const auto length = static_cast<std::size_t>(mEnd - mBuffer.data());
    std::copy_n(mBuffer.data(), length, wide.data());
    const bool isFirst = mText.IsEmpty();
    mText.Append({wide.data(), length});
    mEnd = mBuffer.data();
    if (isFirst && mCount > 0) {
        // Room for all if it goes on like this, so that a long text seldom moves while it grows.
        constexpr std::size_t most = INT_MAX / 4;
        mText.Reserve(static_cast<int>(std::min(mTotal * (length / mCount + 1), most)));
    }
}

char* WriteInteger(System::Int64 value, char* out)
{
    return std::to_chars(out, out + NumberRoom, value).ptr;
}

} // namespace UTL::Detail
