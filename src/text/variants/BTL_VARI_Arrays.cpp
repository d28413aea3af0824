// SPDX-License-Identifier: MIT
#include "text/variants/BTL_VARI_Arrays.h"

#include <algorithm>

namespace BTL
{

using System::Int64;
using System::Variant;

System::DynamicArray<unsigned char> VarToBytes(const Variant& value)
{
    System::DynamicArray<unsigned char> result;
    if (value.Type() == (System::varArray | System::varByte) && value.ArrayDimCount() == 1) {
        const auto bytes = value.ArrayBytes();
        result.set_length(static_cast<int>(bytes.size()));
        std::ranges::copy(bytes, result.begin());
    }
    return result;
}

Variant BytesToVar(const System::DynamicArray<unsigned char>& bytes)
{
    if (bytes.Length() == 0) {
        return Variant::Null();
    }
    Variant result({0, bytes.High()}, System::varByte);
    std::ranges::copy(bytes, result.ArrayBytes().begin());
    return result;
}

Variant ForEeachVar_Sum(const Variant& value)
{
    if (value.ArrayDimCount() != 1) {
        return value;
    }
    const Int64 low = value.ArrayLowBound();
    const Int64 high = value.ArrayHighBound();
    if (low > high) {
        return 0;
    }
    Variant sum = value.GetElement(static_cast<int>(low));
    for (Int64 i = low + 1; i <= high; ++i) {
        sum += value.GetElement(static_cast<int>(i));
    }
    return sum;
}

} // namespace BTL
