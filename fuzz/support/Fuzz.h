// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

namespace Fuzz
{

/// Ends the program unless `condition` holds, so that the fuzzer keeps the input.
inline void Require(bool condition)
{
    if (!condition) {
        std::abort();
    }
}

inline std::string_view Bytes(const std::uint8_t* data, std::size_t size)
{
    return {reinterpret_cast<const char*>(data), size};
}

/// The bytes as 16-bit units, which may hold lone surrogates. An odd byte at the end is left out.
inline std::u16string Units(std::string_view bytes)
{
    std::u16string units(bytes.size() / 2, u'\0');
    std::memcpy(units.data(), bytes.data(), units.size() * 2);
    return units;
}

} // namespace Fuzz
