// SPDX-License-Identifier: MIT
#include "foundation/UTL_SV_CommaTextInternal.h"

#include <charconv>

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
    mText.Append({wide.data(), length});
    mEnd = mBuffer.data();
}

char* WriteInteger(System::Int64 value, char* out)
{
    return std::to_chars(out, out + NumberRoom, value).ptr;
}

} // namespace UTL::Detail
