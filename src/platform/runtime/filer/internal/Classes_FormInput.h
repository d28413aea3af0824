// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "platform/runtime/filer/Classes_Filer.h"

#include <string_view>
#include <vector>

namespace Classes::Form
{

/// The four bytes that a form resource begins with.
inline constexpr std::string_view Signature = "TPF0";
/// What the text of one may begin with.
inline constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

/// What a value of this type is, for messages.
[[nodiscard]] const char16_t* NameOfType(TValueType type);

/// The bytes of a form resource in a stream, and what they stand for. What was taken can be taken again, so
/// that they stay in memory: those of a stream in memory where they are, those of any other one here. It
/// grows with what the stream really has, whatever a damaged count says. All that reads raises `EReadError`
/// for what isn't there or isn't so, and is at its place then.
class CInput
{
public:
    /// Reads `stream` from its position on, at least `blockSize` bytes at a time.
    CInput(TStream& stream, std::size_t blockSize);

    /// How many bytes were taken.
    System::Int64 Offset() const noexcept { return static_cast<System::Int64>(mAt); }
    /// Goes back, or forth within what was looked at.
    void GoTo(System::Int64 offset) noexcept { mAt = static_cast<std::size_t>(offset); }
    /// Puts the stream behind the last byte taken.
    void GiveBack();

    /// The next bytes, valid until the next call.
    std::string_view Take(std::size_t count);
    /// All bytes up to the end of the stream; `EReadError` for a device that has none.
    std::string_view TakeRest();
    /// The next bytes, which stay; fewer at the end.
    std::string_view PeekUpTo(std::size_t count);
    /// The next byte, which stays.
    System::Byte Peek();
    TValueType TakeType();
    /// A number of the host's order of bytes.
    template <class T>
    T Take()
    {
        T value{};
        Take(sizeof value).copy(reinterpret_cast<char*>(&value), sizeof value);
        return value;
    }

    /// A text with its length in one byte.
    std::string_view TakeShort() { return Take(Take<System::Byte>()); }
    /// As `TakeShort`, for an identifier, or for a path of them.
    std::string_view TakeIdentifier();
    std::string_view TakePath();
    /// The count of a long value: not negative.
    std::size_t TakeCount();
    /// The value of a `vaInt8` to `vaInt32` or `vaInt64`.
    System::Int64 TakeInteger(TValueType type);
    /// The value of any kind of text.
    System::UnicodeString TakeText(TValueType type);
    /// The bytes of the text `type`, valid until the next call: of UTF-16, of UTF-8 or of the code page.
    std::string_view TakeTextBytes(TValueType type);
    /// Whether the component that begins here is inherited, inline, or has a place.
    TFilerFlags TakePrefix(System::Int64& childPos);

    /// Raises at the present place.
    [[noreturn]] static void Fail(const System::UnicodeString& message);
    /// Raises for a value of the wrong type, whose code was just taken; that is the present place then.
    [[noreturn]] void FailType(TValueType type);

private:
    bool Grow(std::size_t missing);

    TStream& mStream;
    std::size_t mBlockSize;
    System::Int64 mStart;
    /// All that was read up to now.
    std::string_view mBytes;
    bool mIsWhole = false;
    std::vector<char> mOwn;
    std::size_t mAt = 0;
};

} // namespace Classes::Form
