// SPDX-License-Identifier: MIT
#include "platform/runtime/filer/internal/Classes_FormInput.h"

#include "platform/base/internal/System_Memory.h"
#include "platform/runtime/classes/internal/Classes_StreamWindow.h"
#include "platform/runtime/filer/internal/Classes_FormNames.h"

#include <algorithm>
#include <bit>

namespace Classes::Form
{

using System::Int64;
using System::UnicodeString;

static_assert(std::endian::native == std::endian::little,
              "form resources are stored with the low byte first");

namespace
{

constexpr System::Byte PrefixMark = 0xF0;
constexpr System::Byte InheritedBit = 1;
constexpr System::Byte ChildPosBit = 2;
constexpr System::Byte InlineBit = 4;

/// More than this isn't asked for at once: a count may be damaged.
constexpr std::size_t MaxBlock = 0x100000;

} // namespace

CInput::CInput(TStream& stream, std::size_t blockSize)
    : mStream(stream),
      mBlockSize(std::max(blockSize, std::size_t{1})),
      mStart(ToldPosition(stream).value_or(-1))
{
    if (dynamic_cast<TCustomMemoryStream*>(&stream) != nullptr) {
        mBytes = CStreamWindow::Of(stream);
        mIsWhole = true;
    }
}

void CInput::GiveBack()
{
    if (mStart >= 0) {
        mStream.setPosition(mStart + Offset());
    }
}

bool CInput::Grow(std::size_t missing)
{
    if (mIsWhole) {
        return false;
    }
    const std::size_t count = std::clamp(missing, std::min(mBlockSize, MaxBlock), MaxBlock);
    const std::size_t old = mOwn.size();
    System::WithMemory(u"Out of memory while reading a form", [&] { mOwn.resize(old + count); });
    const Int64 read = std::max(mStream.Read(mOwn.data() + old, static_cast<Int64>(count)), Int64{0});
    mOwn.resize(old + static_cast<std::size_t>(read));
    mBytes = {mOwn.data(), mOwn.size()};
    return read > 0;
}

std::string_view CInput::Take(std::size_t count)
{
    while (mBytes.size() - mAt < count) {
        if (!Grow(count - (mBytes.size() - mAt))) {
            throw EReadError(u"The form ends at byte " + UnicodeString(mBytes.size()) +
                             u" in the middle of a value");
        }
    }
    const std::string_view taken = mBytes.substr(mAt, count);
    mAt += count;
    return taken;
}

std::string_view CInput::TakeRest()
{
    while (Grow(MaxBlock)) {
        CStreamWindow::CheckHasEnd(mStream);
    }
    return Take(mBytes.size() - mAt);
}

std::string_view CInput::PeekUpTo(std::size_t count)
{
    while (mBytes.size() - mAt < count && Grow(count)) {
    }
    return mBytes.substr(mAt, count);
}

System::Byte CInput::Peek()
{
    const auto byte = Take<System::Byte>();
    --mAt;
    return byte;
}

TValueType CInput::TakeType()
{
    const auto type = Take<System::Byte>();
    if (type > vaDouble) {
        --mAt;
        Fail(u"There is no value of type " + UnicodeString(type));
    }
    return static_cast<TValueType>(type);
}

std::string_view CInput::TakeIdentifier()
{
    const Int64 start = Offset();
    const std::string_view name = TakeShort();
    if (!IsIdentifier(name)) {
        GoTo(start);
        Fail(u"A name is no identifier");
    }
    return name;
}

std::string_view CInput::TakePath()
{
    const Int64 start = Offset();
    const std::string_view path = TakeShort();
    if (!IsPath(path)) {
        GoTo(start);
        Fail(u"A name is no identifier");
    }
    return path;
}

std::size_t CInput::TakeCount()
{
    const auto count = Take<std::int32_t>();
    if (count < 0) {
        mAt -= sizeof count;
        Fail(u"A size is negative");
    }
    return static_cast<std::size_t>(count);
}

Int64 CInput::TakeInteger(TValueType type)
{
    switch (type) {
    case vaInt8:
        return Take<std::int8_t>();
    case vaInt16:
        return Take<std::int16_t>();
    case vaInt32:
        return Take<std::int32_t>();
    case vaInt64:
        return Take<std::int64_t>();
    default:
        FailType(type);
    }
}

std::string_view CInput::TakeTextBytes(TValueType type)
{
    switch (type) {
    case vaString:
        return TakeShort();
    case vaLString:
        return Take(TakeCount());
    case vaWString:
        return Take(TakeCount() * sizeof(System::WideChar));
    case vaUTF8String: {
        const Int64 start = Offset();
        const std::string_view text = Take(TakeCount());
        if (!IsUtf8(text)) {
            GoTo(start);
            Fail(u"A text is no UTF-8");
        }
        return text;
    }
    default:
        FailType(type);
    }
}

UnicodeString CInput::TakeText(TValueType type)
{
    const std::string_view bytes = TakeTextBytes(type);
    if (type == vaWString) {
        auto text =
            System::GSharedText<System::WideChar>::Uninitialized(bytes.size() / sizeof(System::WideChar));
        if (!bytes.empty()) {
            bytes.copy(reinterpret_cast<char*>(text.Unique()), bytes.size());
        }
        return UnicodeString(std::move(text));
    }
    const auto codePage = type == vaUTF8String ? System::CP_UTF8 : System::DefaultSystemCodePage;
    return UnicodeString(System::DecodeText(codePage, bytes));
}

TFilerFlags CInput::TakePrefix(Int64& childPos)
{
    TFilerFlags flags;
    if ((Peek() & PrefixMark) != PrefixMark) {
        return flags;
    }
    const auto bits = static_cast<System::Byte>(Take<System::Byte>() & ~PrefixMark);
    if ((bits & ~(InheritedBit | ChildPosBit | InlineBit)) != 0) {
        --mAt;
        Fail(u"A component begins with unknown flags");
    }
    if ((bits & InheritedBit) != 0) {
        flags << ffInherited;
    }
    if ((bits & InlineBit) != 0) {
        flags << ffInline;
    }
    if ((bits & ChildPosBit) != 0) {
        flags << ffChildPos;
        childPos = TakeInteger(TakeType());
    }
    return flags;
}

void CInput::Fail(const UnicodeString& message)
{
    throw EReadError(message);
}

void CInput::FailType(TValueType type)
{
    --mAt;
    Fail(UnicodeString(u"Here stands ") + NameOfType(type) + u", which doesn't fit");
}

const char16_t* NameOfType(TValueType type)
{
    constexpr const char16_t* names[] = {
        u"Null",   u"a list",        u"an integer",   u"an integer", u"an integer",         u"a float",
        u"a text", u"an identifier", u"False",        u"True",       u"a row of bytes",     u"a set",
        u"a text", u"nil",           u"a collection", u"a float",    u"an amount of money", u"a date",
        u"a text", u"an integer",    u"a text",       u"a float"};
    return names[type];
}

} // namespace Classes::Form
