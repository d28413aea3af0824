// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <span>
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

/// Calls what may refuse its input by an `Exception`; false if it did.
template <class Exception, class Call>
bool Try(Call call)
{
    try {
        call();
    } catch (const Exception&) {
        return false;
    }
    return true;
}

inline std::string_view Bytes(std::span<const std::uint8_t> bytes)
{
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

inline std::string_view Bytes(const std::uint8_t* data, std::size_t size)
{
    return Bytes({data, size});
}

/// The bytes as 16-bit units, which may hold lone surrogates. An odd byte at the end is left out.
inline std::u16string Units(std::string_view bytes)
{
    std::u16string units(bytes.size() / 2, u'\0');
    // An empty input may come as null, which `memcpy` must not be given.
    if (!units.empty()) {
        std::memcpy(units.data(), bytes.data(), units.size() * 2);
    }
    return units;
}

/// The text of these `Units`.
inline System::UnicodeString WideText(std::string_view bytes)
{
    return System::UnicodeString(std::u16string_view(Units(bytes)));
}

/// An input of several parts, which are taken from its front one after the other.
class Input
{
public:
    Input(const std::uint8_t* data, std::size_t size) : mRest(data, size) {}

    /// What was not taken yet.
    std::span<const std::uint8_t> getRest() const { return mRest; }
    std::string_view getText() const { return Bytes(mRest); }

    /// Up to `count` bytes.
    std::string_view Take(std::size_t count)
    {
        const auto taken = mRest.first(std::min(count, mRest.size()));
        mRest = mRest.subspan(taken.size());
        return Bytes(taken);
    }

    /// A value in the form that it has in memory; there must be as many bytes.
    template <class Value>
    Value Take()
    {
        Value value;
        Require(mRest.size() >= sizeof value);
        std::memcpy(&value, Take(sizeof value).data(), sizeof value);
        return value;
    }

    /// The bytes up to the next line feed, which is passed over, or to the end.
    std::string_view TakeLine()
    {
        const std::string_view line = Take(getText().find('\n'));
        Take(1);
        return line;
    }

private:
    std::span<const std::uint8_t> mRest;
};

} // namespace Fuzz
