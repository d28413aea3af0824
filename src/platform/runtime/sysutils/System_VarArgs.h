// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "platform/base/dates/System_DateTime.h"

#include <concepts>
#include <initializer_list>
#include <span>
#include <variant>

namespace System
{

/// One argument of a formatted text, with its type: nothing is ever read as something else.
class TVarRec
{
public:
    /// What an argument is kept as.
    using TValue = std::variant<Int64, UInt64, long double, WideChar, UnicodeString, const void*>;

    template <TextInteger T>
    TVarRec(T value) : mValue(FromInteger(value)), mSize(sizeof(T))
    {
    }
    TVarRec(bool value) : mValue(Int64(value)), mIsBool(true) {}
    template <std::floating_point T>
    TVarRec(T value) : mValue(static_cast<long double>(value))
    {
    }
    TVarRec(WideChar value) : mValue(value) {}
    TVarRec(char value) : mValue(UnicodeString(value)[1]) {}
    TVarRec(const UnicodeString& value) : mValue(value) {}
    template <CodePage CP>
    TVarRec(const AnsiStringT<CP>& value) : mValue(UnicodeString(value))
    {
    }
    /// Bytes are UTF-8.
    template <StandardText T>
    TVarRec(const T& value) : mValue(ToUnicodeString(value))
    {
    }
    /// The text, as `TDateTime::DateTimeString`.
    TVarRec(const TDateTime& value) : mValue(value.DateTimeString()) {}
    TVarRec(const WideChar* value) : mValue(UnicodeString(value)) {}
    TVarRec(const char* value) : mValue(UnicodeString(value)) {}
    TVarRec(const void* value) : mValue(value) {}

    const TValue& getValue() const noexcept { return mValue; }
    /// The bytes of the integer type that was given; 8 for everything else.
    std::size_t getSize() const noexcept { return mSize; }
    /// Whether it was given as a truth value, which is kept as the integer 0 or 1.
    bool IsBool() const noexcept { return mIsBool; }

private:
    template <TextInteger T>
    static TValue FromInteger(T value)
    {
        if constexpr (std::is_signed_v<T>) {
            return Int64(value);
        } else {
            return UInt64(value);
        }
    }

    TValue mValue;
    std::size_t mSize = 8;
    bool mIsBool = false;
};

/// The arguments of a call, alive until it ends.
///
///     void Tell(const UnicodeString& format, TVarArgs arguments); // a function of your own that formats
///     Tell(u"%s: %d", {u"a", 5});
class TVarArgs
{
public:
    TVarArgs() = default;
    TVarArgs(std::initializer_list<TVarRec> arguments) : mArguments(arguments.begin(), arguments.size()) {}
    TVarArgs(std::span<const TVarRec> arguments) : mArguments(arguments) {}

    std::size_t size() const noexcept { return mArguments.size(); }
    const TVarRec& operator[](std::size_t index) const { return mArguments[index]; }

private:
    std::span<const TVarRec> mArguments;
};

} // namespace System
